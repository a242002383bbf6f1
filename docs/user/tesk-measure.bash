# Completion of tesk-measure for bash. Commands and options are those that the program itself names in its help.

_tesk_measure_help() {
    "$@" --help 2>/dev/null
}

_tesk_measure() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]-} words=
    COMPREPLY=()
    case $previous in
    --view) words="iso front back left right top bottom" ;;
    --background) words="dark light black white gray blue" ;;
    --load | --save | --csv | --picture)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
        ;;
    --point | --point[123] | --node | --node[12] | --from | --to | --line | --step | --precision | --size | --active | \
        --expect) return ;;
    esac

    if [[ -z $words ]] && ((COMP_CWORD == 1)); then
        words="--help --version --load $(_tesk_measure_help "${COMP_WORDS[0]}" | sed -n '/^Commands:/,/^$/s/^  \([a-z-]*\) .*/\1/p')"
    elif [[ -z $words && $word == -* ]]; then
        if [[ $command == --load ]]; then command=load; fi
        words=$(_tesk_measure_help "${COMP_WORDS[0]}" "$command" | sed -n 's/^  \(-[a-z],\)*\(--[a-z0-9]*\)[ ].*/\2/p')
    elif [[ -z $words ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _tesk_measure tesk-measure
