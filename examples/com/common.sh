# shellcheck shell=bash
# Sourced by run-vbscript and run-cpp: builds the automation server and makes a Wine environment.

source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

here="$root/examples/com"
wine="$root/src/com/wine"
built="$root/build/release"
server="$built/com/KxJsParser.dll"
prefix="$built/examples/wine"

# Only the example writes to standard output.
"$root/scripts/setup" --with com >&2
configure release >&2
build_quietly release com

# Wine writes this file last; an incomplete environment does not have it.
if [[ ! -e $prefix/system.reg ]]; then
    say "making a Wine environment, which takes some seconds"
    "$wine/prefix" start "$prefix" >&2
fi
trap '"$wine/prefix" end "$prefix" >&2' EXIT
