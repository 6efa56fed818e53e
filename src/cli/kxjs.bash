# bash completion of kxjs                                                     -*- shell-script -*-
#
# Commands, options and their values come from the program's help, and names of functions from its
# list. A change of the program needs no change here.

# _kxjs_help PROGRAM [COMMAND]: the help, which newer versions of CLI11 lay out in another way, in
# the older one's layout.
_kxjs_help() {
    "$1" ${2:+"$2"} --help 2>/dev/null |
        sed -E 's/^OPTIONS:/Options:/; s/^SUBCOMMANDS:/Subcommands:/; s/^ +(-[^ ,]+), +-/  \1,-/
            s/^ {3,12}-/  -/'
}

# _kxjs_commands PROGRAM
_kxjs_commands() {
    _kxjs_help "$1" | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p'
}

# _kxjs_options PROGRAM [COMMAND]: lines such as "-h,--help" and "-o FILE".
_kxjs_options() {
    _kxjs_help "$@" |
        sed -n '/^Options:/,/^$/s/^  \(-[^ ]*\( [A-Z][A-Za-z.=_-]*\)\{0,1\}\)\( .*\)\{0,1\}$/\1/p'
}

# _kxjs_value_of OPTIONS OPTION: the name of the option's value, empty where it takes none.
_kxjs_value_of() {
    local names value
    while read -r names value; do
        if [[ ",$names," == *",$2,"* ]]; then
            printf '%s' "$value"
            return
        fi
    done <<<"$1"
}

_kxjs() {
    local program=${1/#\~\//$HOME/} cur=${COMP_WORDS[COMP_CWORD]} prev="" command="" only_names=""
    local commands options word i
    COMPREPLY=()

    # bash splits the line at "=", which becomes a word.
    local before=$((COMP_CWORD - 1))
    if [[ $cur == "=" ]]; then
        cur=""
        before=$((COMP_CWORD))
    fi
    if ((before > 1)) && [[ ${COMP_WORDS[before]} == "=" ]]; then before=$((before - 1)); fi
    prev=${COMP_WORDS[before]}

    commands=$(_kxjs_commands "$program")
    for ((i = 1; i <= before; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ $word == "--" ]]; then
            only_names=yes
        elif [[ -z $command && $'\n'$commands$'\n' == *$'\n'"$word"$'\n'* ]]; then
            command=$word
        fi
    done
    options=$(_kxjs_options "$program" "$command")

    if [[ -z $only_names && $prev == -* ]]; then
        case "$(_kxjs_value_of "$options" "$prev")" in
            "") ;;
            DIR)
                compopt -o filenames 2>/dev/null
                mapfile -t COMPREPLY < <(compgen -d -- "$cur")
                return
                ;;
            *FILE* | *.csv | *.CSV)
                compopt -o filenames 2>/dev/null
                mapfile -t COMPREPLY < <(compgen -f -- "$cur")
                return
                ;;
            *) return ;;
        esac
    fi

    if [[ -z $only_names && $cur == -* ]]; then
        options=$(cut -d ' ' -f 1 <<<"$options" | tr , '\n')
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$cur")
    elif [[ $command == functions ]]; then
        [[ " ${COMP_WORDS[*]} " == *" --translated "* ]] && word=--translated || word=
        mapfile -t COMPREPLY < <(compgen -W "$(
            COLUMNS=0 "$program" functions ${word:+"$word"} 2>/dev/null | sed -n 's/^  \([A-Z0-9_]*\)(.*/\1/p'
        )" -- "${cur^^}")
    fi
} && complete -F _kxjs kxjs
