#!/usr/bin/env bash
# Tests when the scripts configure a build directory again. A program that prints its arguments
# replaces CMake.
#
#   configure.sh SOURCE-DIRECTORY WORK-DIRECTORY
set -euo pipefail
source "$1/scripts/common.sh"
work=$2
rm -rf "$work"
mkdir -p "$work/build/release"
root=$(cd "$work" && pwd -P)
unset V8_ROOT

cmake() { printf '%s\n' "$*"; }

# expect ARGUMENTS COMMAND...
expect() {
    local expected=$1 actual
    shift
    actual=$("$@")
    [[ $actual == "$expected" ]] ||
        die "expected \"$expected\" of $*, but CMake was called with \"$actual\""
}

expect "--preset release" configure release

touch "$root/build/release/build.ninja"
printf 'V8_ROOT:UNINITIALIZED=/some/where\nKXJS_BUILD_COM:STRING=OFF\n' \
    >"$root/build/release/CMakeCache.txt"
expect "" configure release
expect "--preset release -DX=1" configure release -DX=1

V8_ROOT=/some/where
expect "" configure release
V8_ROOT="/else where"
expect "--preset release -DV8_ROOT=/else where" configure release
unset V8_ROOT

touch -d "next minute" "$root/build/packages-installed"
expect "--preset release" configure release
