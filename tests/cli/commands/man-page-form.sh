#!/bin/sh
# Checks the form of the manual page with a formatter; status 77 where none is installed.
#
#   man-page-form.sh MANUAL-PAGE
set -eu
if command -v mandoc >/dev/null; then
    # The level "style" concerns BSD's own pages.
    mandoc -T lint -W warning "$1"
elif command -v groff >/dev/null; then
    warnings=$(groff -man -mandoc -Tutf8 -ww -z "$1" 2>&1)
    printf '%s' "$warnings"
    [ -z "$warnings" ]
else
    echo "neither mandoc nor groff is there"
    exit 77
fi
