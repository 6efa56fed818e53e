#!/bin/sh
# The manual page is well formed, as far as one of the formatters is there to say so; else, status 77.
#
#   man-page-form.sh MANUAL-PAGE
set -eu
if command -v mandoc >/dev/null; then
    # The style level is for those who write pages for BSD.
    mandoc -T lint -W warning "$1"
elif command -v groff >/dev/null; then
    warnings=$(groff -man -mandoc -Tutf8 -ww -z "$1" 2>&1)
    printf '%s' "$warnings"
    [ -z "$warnings" ]
else
    echo "neither mandoc nor groff is there"
    exit 77
fi
