# shellcheck shell=bash
# Sourced by the other scripts.

# The top of the source tree.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)

say() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; }

# die MESSAGE [STATUS]
die() {
    say "$1"
    exit "${2:-1}"
}

# usage: the comment at the head of the script that runs, which is its help.
usage() { sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$0"; }

# help_first ARGUMENT...: shows the help and ends, if the first argument asks for it. Call it before
# any work.
help_first() {
    case "${1:-}" in
        -h | --help) usage && exit 0 ;;
    esac
}

refuse_argument() { die "unknown argument '$1' (scripts/$(basename "$0") --help)" 2; }

can_be_root() { [[ $(id -u) == 0 ]] || command -v sudo >/dev/null; }

as_root() { if [[ $(id -u) == 0 ]]; then "$@"; else sudo "$@"; fi; }

# distribution_sources DISTRIBUTION: apt's lines for the packages of the distribution itself, without
# those of other vendors.
distribution_sources() {
    apt-get indextargets --format '$(ORIGIN) deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' | sed -n "s/^$1 deb /deb /Ip" | sort -u
}

# apt_options SETTINGS: options of mmdebstrap that set apt in a new system as it is set here. SETTINGS
# is a regular expression.
apt_options() {
    apt-config dump | sed -nE "/^Acquire::($1) /s/^/--aptopt=/p"
}

# missing_packages NAME...: those that are not installed, on one line.
missing_packages() {
    command -v dpkg-query >/dev/null || die "this needs Debian's or Ubuntu's dpkg and apt"
    local installed name missing=()
    installed=" $(dpkg-query -W -f '${db:Status-Status}:${Package} ' "$@" 2>/dev/null || true)"
    for name in "$@"; do
        [[ $installed == *" installed:$name "* ]] || missing+=("$name")
    done
    printf '%s' "${missing[*]:-}"
}

# configured_with BUILD-DIRECTORY VARIABLE: the value in CMake's cache.
configured_with() { sed -n "s/^$2:[A-Z]*=//p" "$1/CMakeCache.txt"; }

# configure PRESET [CMAKE-ARGUMENT...]: without arguments, only where that was not done since
# packages were installed or another V8_ROOT was given. Ninja repeats it by itself when a CMake file
# changes.
configure() {
    local preset=$1
    shift
    local directory="$root/build/$preset" installed="$root/build/packages-installed"
    (($# == 0)) && [[ -e $directory/build.ninja ]] &&
        [[ $directory/CMakeCache.txt -nt $installed ]] &&
        [[ -z ${V8_ROOT:-} || $(configured_with "$directory" V8_ROOT) == "$V8_ROOT" ]] && return
    (cd "$root" && cmake --preset "$preset" ${V8_ROOT:+"-DV8_ROOT=$V8_ROOT"} "$@")
}

# build PRESET [CMAKE-BUILD-ARGUMENT...]
build() {
    local preset=$1
    shift
    (cd "$root" && cmake --build --preset "$preset" "$@")
}

# build_quietly PRESET TARGET...: prints nothing when there is nothing to do, and all when it fails.
build_quietly() {
    local preset=$1
    shift
    local up_to_date
    up_to_date=$(cd "$root/build/$preset" && ninja -n "$@" | tail -n 1)
    [[ $up_to_date == *"no work to do"* ]] || build "$preset" --target "$@" >&2
}

# cpp_files [GLOB]: the C++ files of the tree, each ended by a zero byte.
cpp_files() {
    if (($#)); then
        git -C "$root" ls-files -z --cached --others --exclude-standard -- "$1"
    else
        git -C "$root" ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp'
    fi
}

# compiled_only BUILD-DIRECTORY: of the files on standard input, those that the build compiles.
compiled_only() {
    local file
    while IFS= read -r -d '' file; do
        grep -qF "\"file\": \"$root/$file\"" "$1/compile_commands.json" && printf '%s\0' "$file"
    done
    return 0
}
