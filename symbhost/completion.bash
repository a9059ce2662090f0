# Completion of symbhost for bash. It knows no command and no option: it asks the program for its help, and for the
# symbols of the export that stands on the line.

# A word of the line as the program would receive it.
_symbhost_plain() {
    local word=${1/#\~\//$HOME/}
    word=${word//[\"\']/}
    printf '%s' "${word//\\/}"
}

# Files that end in $2 (all without it) and folders.
_symbhost_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        [[ -z ${2-} ]] || compgen -f -X "!*$2" -- "$1"
        [[ -n ${2-} ]] || compgen -f -- "$1"
        compgen -d -- "$1"
    )
    mapfile -t COMPREPLY < <(printf '%s\n' "${COMPREPLY[@]}" | sort -u)
}

# The symbols of an export that begin like the last word: $1 program, $2 export, $3 last word, $4 where to look, if
# not in what the word already names. One that has something below it is not ended by a blank.
_symbhost_symbols() {
    local parent=${4-} kind symbol branches=0 safe='^[][:alnum:]_[][][:alnum:]_.,[-]*$'
    [[ -n $parent || $3 != *[.[]* ]] || parent=${3%[.[]*}
    COMPREPLY=()
    while read -r kind symbol; do
        # Names come from a file: none may become more than a word of the command line.
        if [[ $symbol == "$3"* && $symbol =~ $safe ]]; then
            COMPREPLY+=("$symbol")
            [[ $kind != branch ]] || branches=$((branches + 1))
        fi
    done < <(timeout 10 "$1" browse "$2" ${parent:+"$parent"} 2>/dev/null)
    ((branches == 0)) || compopt -o nospace 2>/dev/null
    # The word is such a symbol itself: go on below it.
    if [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == "$3" && $branches == 1 && $parent != "$3" ]]; then
        _symbhost_symbols "$1" "$2" "$3" "$3"
    fi
}

_symbhost() {
    local program current command='' help word value=0 i
    local -a names=() given=()
    program=$(_symbhost_plain "${COMP_WORDS[0]}")
    current=$(_symbhost_plain "${COMP_WORDS[COMP_CWORD]}")
    COMPREPLY=()

    help=$("$program" --help 2>/dev/null) || return
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=$(_symbhost_plain "${COMP_WORDS[i]}")
        if ((value)); then
            value=0
        elif [[ $word == -?* ]]; then
            # An option that takes a value has its kind, in capitals, behind it.
            [[ ! $help =~ (^|[[:space:]])"$word "([A-Z]+)(:|[[:space:]]) ]] || value=1
        elif [[ -z $command ]]; then
            command=$word
            help=$("$program" "$command" --help 2>/dev/null) || return
        else
            given+=("$word")
        fi
    done

    if ((value)); then
        case ${BASH_REMATCH[2]} in
            PATH | FILE) _symbhost_files "$current" ;;
            DIR) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
        esac
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(grep -oE '^ +(-[a-z],)?--[a-z-]+' <<<"$help" | grep -oE -- '--[a-z-]+')" \
            -- "$current")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$help")" \
            -- "$current")
    else
        mapfile -t names < <(sed -n '/^Positionals:/,/^$/s/^  \([A-Z]* TEXT[ .]*\) .*/\1/p' <<<"$help")
        word=${names[${#given[@]}]-}
        [[ -n $word || ${names[-1]-} != *...* ]] || word=${names[-1]} # which takes all that follow
        case ${word%% *} in
            EXPORT | BEFORE | AFTER) _symbhost_files "$current" .kds ;;
            DIR) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
            NAME | PATH) _symbhost_symbols "$program" "${given[0]}" "$current" ;;
        esac
    fi
}

complete -F _symbhost symbhost
