#!/bin/sh
# The library has its major version in its name, and is never unloaded.
#
#   soname.sh LIBRARY SONAME
set -eu
dynamic=$(LC_ALL=C readelf -dW "$1")
echo "$dynamic" | grep -F "(SONAME)" | grep -qF "[$2]" || {
    echo "the SONAME is not $2:"
    echo "$dynamic"
    exit 1
}
echo "$dynamic" | grep -F "(FLAGS_1)" | grep -qw NODELETE || {
    echo "the library is not marked NODELETE"
    exit 1
}
