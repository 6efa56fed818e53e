#!/bin/sh
# Builds examples/embed outside the source tree, as a user does, and runs it.
#
#   embed.sh cmake|make EXAMPLE PREFIX LIBDIR COMPILER
set -eu
how=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cp -r "$2" "$work/embed"
# make and pkg-config do not support blanks in paths.
ln -s "$3" "$work/prefix"
libdir=$work/prefix/$4
cd "$work/embed"
case "$how" in
    cmake)
        cmake -B build -DCMAKE_PREFIX_PATH="$work/prefix" -DCMAKE_CXX_COMPILER="$5" >&2
        cmake --build build >&2
        program=build/embed
        ;;
    make)
        make CXX="$5" PKG_CONFIG_PATH="$libdir/pkgconfig" LDFLAGS="-Wl,-rpath,$libdir" >&2
        program=./embed
        ;;
esac
"$program"
