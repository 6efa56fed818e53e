#!/bin/sh
# Compares the names that the library exports with the list.
#
#   exported-symbols.sh LIBRARY LIST
set -eu
# Constructors and destructors have several symbols of one name; the two-column form drops addresses.
nm -DC --defined-only "$1" | sed 's/^[0-9a-f]* [A-Za-z] //' | LC_ALL=C sort -u | diff -u "$2" -
