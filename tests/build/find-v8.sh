#!/bin/sh
# A build directory follows V8_ROOT when that changes, and stays as it is when it does not.
#
#   find-v8.sh SOURCE-DIRECTORY WORK-DIRECTORY
set -eu
source=$1
work=$2

# prefix NAME MAJOR: what looks like an installed engine.
prefix() {
    mkdir -p "$work/$1/lib" "$work/$1/include/node"
    : >"$work/$1/lib/libnode.so"
    : >"$work/$1/include/node/v8.h"
    printf '#define V8_MAJOR_VERSION %s\n#define V8_MINOR_VERSION 2\n' "$2" \
        >"$work/$1/include/node/v8-version.h"
}

# expect ENGINE CMAKE-ARGUMENT...
expect() {
    engine=$1
    shift
    cmake -S "$source/tests/build/find_v8" -B "$work/build" -DKXJS_SOURCE_DIR="$source" "$@" \
        >"$work/output"
    if ! grep -qxF -e "-- engine: $work/$engine" "$work/output"; then
        echo "expected $engine with $*" >&2
        exit 1
    fi
}

rm -rf "$work"
prefix first 10
prefix second 11
unset V8_ROOT
expect "first/lib/libnode.so 10.2" -DV8_ROOT="$work/first"
expect "first/lib/libnode.so 10.2"
expect "second/lib/libnode.so 11.2" -DV8_ROOT="$work/second"
V8_ROOT="$work/first"
export V8_ROOT
expect "first/lib/libnode.so 10.2" -UV8_ROOT
