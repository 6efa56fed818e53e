#!/bin/sh
# Installs the build, moves the result to another directory, and checks its files. No file may name
# the directory of the build or of the first installation.
#
#   install.sh BUILD-DIRECTORY DIRECTORY EXPECTED-FILES
set -eu
build=$1
directory=$2
expected=$3

rm -rf "$directory"
cmake --install "$build" --prefix "$directory/first" >/dev/null
mv "$directory/first" "$directory/moved"
cd "$directory/moved"

find . ! -type d | sed 's,^\./,,' | LC_ALL=C sort >"$directory/files"
diff -u "$expected" "$directory/files"

# The program and the library may name the directory of an unpacked V8, which is below the build
# tree, but no text file may.
if grep -rIlF -e "$directory/first" -e "$build" .; then
    echo "these files name the build or the first prefix" >&2
    exit 1
fi
