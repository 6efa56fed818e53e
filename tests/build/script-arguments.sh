#!/usr/bin/env bash
# Every script checks its arguments before it installs, configures or builds anything.
#
#   script-arguments.sh SOURCE-DIRECTORY WORK-DIRECTORY
set -euo pipefail
scripts=$1/scripts
work=$2

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The programs that scripts call; here each only notes that it was called.
rm -rf "$work"
mkdir -p "$work/bin" "$work/installed"
called="$work/called"
cat >"$work/bin/tool" <<END
#!/bin/sh
echo "\$0 \$*" >>"$called"
exit 99
END
chmod +x "$work/bin/tool"
for tool in apt-cache apt-get clang-format clang-tidy cmake cpack ctest doxygen dpkg-query mkdir \
    ninja rm sudo; do
    ln -s tool "$work/bin/$tool"
done

# expect STATUS SCRIPT ARGUMENT...: puts what the script prints into $said.
expect() {
    local expected=$1 script=$2 status=0
    shift 2
    said=$(PATH="$work/bin:$PATH" "$scripts/$script" "$@" 2>&1) || status=$?
    [[ $status == "$expected" ]] ||
        fail "scripts/$script $* ends with $status and not with $expected, saying: $said"
    [[ ! -e $called ]] || fail "scripts/$script $* has called $(cat "$called")"
}

count=0
for script in "$scripts"/*; do
    script=$(basename "$script")
    [[ $script != common.sh ]] || continue
    for option in --help -h; do
        expect 0 "$script" "$option"
        [[ $said == "$(sed -n '2s/^# //p' "$scripts/$script")"* ]] ||
            fail "scripts/$script $option does not begin with what the script is for: $said"
        [[ $said == *"scripts/$script"* && $said != *"set -e"* ]] ||
            fail "scripts/$script $option does not show how to call it: $said"
    done
    count=$((count + 1))
done
((count >= 11)) || fail "only $count scripts were found"

# refused SCRIPT ARGUMENT...: the last argument is the one that is named.
refused() {
    expect 2 "$@"
    [[ $said == *"'${*: -1}'"* ]] || fail "scripts/$1 ${*:2} does not name the argument: $said"
}
refused docs anything
refused format --nonsense
refused format --check anything
refused fuzz --nonsense
refused fuzz nonsense
refused lint --nonsense
refused lint no-such-file.cpp
refused package --nonsense
refused package --test anything
refused sanitize nonsense
refused setup --nonsense
refused soak --nonsense

# "all" is a feature like the others. Here every package is installed.
cat >"$work/installed/dpkg-query" <<END
#!/bin/sh
shift 3
for name; do printf 'installed:%s ' "\$name"; done
echo "\$*" >>"$work/asked"
END
chmod +x "$work/installed/dpkg-query"
V8_ROOT=/some/where PATH="$work/installed:$work/bin:$PATH" "$scripts/setup" --only all
[[ ! -e $called ]] || fail "scripts/setup --only all has called $(cat "$called")"
for package in chromium doxygen lintian; do
    grep -qw "$package" "$work/asked" || fail "scripts/setup --only all passes over $package"
done
! grep -qF "libgtest-dev" "$work/asked" || fail "scripts/setup --only all looks for more"
