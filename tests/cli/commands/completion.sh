#!/usr/bin/env bash
# Tests the candidates that bash shows for a command line of kxjs.
#
#   completion.sh PROGRAM COMPLETION WORK-DIRECTORY
# Not -e: completion runs in interactive shells, which do not end at a false condition.
set -uo pipefail
program=$1
work=$3
# shellcheck source=src/cli/kxjs.bash
source "$2" || exit

[[ $(complete -p kxjs) == "complete -F _kxjs kxjs" ]] || { echo "not registered"; exit 1; }

rm -rf "$work" && mkdir -p "$work/pages" "$work/prices 2026" && cd "$work" &&
    touch prices.csv result.txt || exit

failed=0
# expect "CANDIDATES" WORD...: the words after kxjs, as bash splits them; the last is to be completed.
expect() {
    local expected=$1
    shift
    COMP_WORDS=("$program" "$@")
    COMP_CWORD=$#
    _kxjs "$program" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    local actual
    actual=$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | paste -sd '|')
    [[ $actual == "$expected" ]] || {
        printf 'kxjs %s: expected "%s" but got "%s"\n' "$*" "$expected" "$actual"
        failed=1
    }
}

# offers CANDIDATE WORD...: CANDIDATE is among the candidates for these words.
offers() {
    local expected=$1
    shift
    COMP_WORDS=("$program" "$@")
    COMP_CWORD=$#
    _kxjs "$program" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    [[ $(printf '|%s' "${COMPREPLY[@]}")"|" == *"|$expected|"* ]] || {
        printf 'kxjs %s: "%s" is not offered\n' "$*" "$expected"
        failed=1
    }
}

# All commands of the program, and no others.
expect "$(_kxjs_help "$program" | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p' |
    LC_ALL=C sort | paste -sd '|')" ""
expect "convert" con
expect "--version" --v

offers --js eval -
offers -v eval -
offers --help eval -
offers prices.csv batch -i ""
expect "--string" eval --str
expect "--pages" docs --p
expect "--js" extract eval --j # "eval" is a formula here
expect "--string" eval -v A = 5 --str
expect "" eval -- --str
expect "" eval "IIF(A" ""
expect "" eval -v ""
expect "" eval --long A = ""

expect "ALLTRIM" functions ALLT
expect "ALLTRIM" functions allt
expect "" functions NOTHING
expect "STRZERO" functions --translated STRZ
expect "STRZ" functions STRZ
offers ROUND functions ""

expect "pages|prices 2026|prices.csv|result.txt" docs -o ""
expect "prices 2026|prices.csv" docs --examples -o pr
expect "pages|prices 2026" docs --pages ""
expect "pages" docs --pages = pa
expect "pages|prices 2026" docs --pages =
exit $failed
