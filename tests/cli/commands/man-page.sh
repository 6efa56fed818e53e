#!/usr/bin/env bash
# Compares the manual page with the program's help: both have the same commands, and the same options
# for each.
#
#   man-page.sh PROGRAM MANUAL-PAGE
set -euo pipefail
program=$1
page=$2

# help COMMAND...: the program's, in one layout for all versions of CLI11.
help() {
    "$program" "$@" --help |
        sed -E 's/^OPTIONS:/Options:/; s/^SUBCOMMANDS:/Subcommands:/; s/^ +(-[^ ,]+), +-/  \1,-/
            s/^ {3,12}-/  -/'
}

# options COMMAND...: the options in the program's help, without --help, which every command has.
options() {
    help "$@" | sed -n '/^Options:/,/^$/s/^  \(-[^ ]*\).*/\1/p' | tr , '\n' |
        grep -vxE -e '-h|--help' || true
}

# commands: the commands in the program's help.
commands() { help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p'; }

# section NAME: the lines of the page below the heading.
section() {
    awk -v name="$1" '/^\.S[hs] / { inside = ($0 == ".Ss " name || $0 == ".Sh " name); next }
        inside' "$page"
}

# documented: reads a section and prints the options that its list items begin with.
documented() {
    sed -n 's/^\.It //p' | tr ' ' '\n' | awk '
        $0 == "Fl" { option = 1; next }
        $0 == "," { next }
        $0 == "Ar" || $0 == "Ns" { option = 0; next }
        option { print "-" $0 }' | grep -vxE -e '-h|--help' || true
}

failed=0
# same WHAT ADVICE THERE HERE: reports what only one of two lists contains.
same() {
    local name
    for name in $(comm -23 <(sort -u <<<"$3") <(sort -u <<<"$4")); do
        printf '%s does not name the %s "%s": %s\n' "$page" "$1" "$name" "$2"
        failed=1
    done
    for name in $(comm -13 <(sort -u <<<"$3") <(sort -u <<<"$4")); do
        printf '%s names the %s "%s", which the program does not have\n' "$page" "$1" "$name"
        failed=1
    done
}

known=$(commands)
[[ -n $known ]] || { echo "the program's help lists no commands"; exit 1; }
same "command" 'add ".Ss" with that name to COMMANDS' "$known" \
    "$(sed -n 's/^\.Ss //p' "$page")"
same "option of kxjs" 'add ".It Fl" to DESCRIPTION' "$(options)" \
    "$(section DESCRIPTION | documented)"
for command in $known; do
    same "option of kxjs $command" "add \".It Fl\" below \".Ss $command\"" \
        "$(options "$command")" "$(section "$command" | documented)"
done
exit $failed
