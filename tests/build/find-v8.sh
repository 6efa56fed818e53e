#!/bin/sh
# A build directory follows V8_ROOT when that changes, and stays as it is when it does not. A V8
# that is too old or has no headers is refused.
#
#   find-v8.sh SOURCE-DIRECTORY WORK-DIRECTORY
set -eu
source=$1
work=$2

# prefix NAME MAJOR: what looks like an installed V8.
prefix() {
    mkdir -p "$work/$1/lib" "$work/$1/include/node"
    : >"$work/$1/lib/libnode.so"
    : >"$work/$1/include/node/v8.h"
    printf '#define V8_MAJOR_VERSION %s\n#define V8_MINOR_VERSION 2\n' "$2" \
        >"$work/$1/include/node/v8-version.h"
}

# expect PREFIX CMAKE-ARGUMENT...
expect() {
    expected=$1
    shift
    cmake -S "$source/tests/build/find_v8" -B "$work/build" -DKXJS_SOURCE_DIR="$source" "$@" \
        >"$work/output"
    if ! grep -qxF -e "-- V8: $work/$expected" "$work/output"; then
        echo "expected $expected with $*" >&2
        exit 1
    fi
}

# refuse MESSAGE CMAKE-ARGUMENT...
refuse() {
    message=$1
    shift
    if cmake -S "$source/tests/build/find_v8" -B "$work/refused" -DKXJS_SOURCE_DIR="$source" "$@" \
        >"$work/output" 2>&1; then
        echo "expected to be refused: $*" >&2
        exit 1
    fi
    # CMake breaks the lines of messages.
    if ! tr -s '\n ' '  ' <"$work/output" | grep -qF -e "$message"; then
        echo "expected \"$message\" with $*, but got" >&2
        cat "$work/output" >&2
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

unset V8_ROOT
what_to_do="install libnode-dev, run scripts/setup, or pass -DV8_ROOT=PREFIX of an installation with \
headers."
prefix old 9
refuse "V8 9.2 ($work/old/lib/libnode.so) is older than 10.2: $what_to_do" -DV8_ROOT="$work/old"
prefix bare 11
rm -r "$work/bare/include/node"
refuse "V8's headers are missing beside $work/bare/lib/libnode.so: $what_to_do" \
    -DV8_ROOT="$work/bare"
