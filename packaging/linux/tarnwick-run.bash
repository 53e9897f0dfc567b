# Completes the command lines of tarnwick-run in bash.

_tarnwick_run() {
    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} given
    # "--color=al" comes as three words.
    if [[ $word == = ]]; then
        word=
    elif [[ $option == = ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $option in
    --color) _tarnwick_run_offer -W 'auto always never' -- "$word" ;;
    --shard) _tarnwick_run_offer -W auto -- "$word" ;;
    --format) _tarnwick_run_offer -W 'sh null json' -- "$word" ;;
    --mp | --cns) _tarnwick_run_files -f -- "$word" ;;
    --report)
        _tarnwick_run_files -d -- "$word"
        for given in html json csv xml; do
            mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -X "!*.$given" -- "$word")
        done
        ;;
    # Of "--drive T:=/srv" the last word is a folder.
    -F | --input-folder | --state | :=) _tarnwick_run_files -d -- "${word#:=}" ;;
    --drive | --code-page | -e | --extensions | -j | --jobs | --accept | --timeout | --retries | --stop-after | --notice | --ignore | --fail-on)
        COMPREPLY=()
        ;;
    *)
        if [[ $word == := ]]; then
            _tarnwick_run_files -d
        elif [[ $word == -* ]]; then
            _tarnwick_run_options "$word"
        else
            COMPREPLY=()
            for given in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
                # Records follow, by their names alone: they lie in a folder that we do not know.
                [[ $given != *.[iI][nN][iI] ]] || return
            done
            _tarnwick_run_files -d -X '*.state' -- "$word"
            mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -X '!*.[iI][nN][iI]' -- "$word")
            ((COMP_CWORD > 1)) ||
                mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W 'run commands report' -- "$word")
        fi
        ;;
    esac
}

_tarnwick_run_options() { # BEGINNING
    local options='-F --input-folder -e --extensions --mp --cns --shard --in-place -q --quiet -v --verbose --color
        --drive --code-page -h --help --version'
    case ${COMP_WORDS[1]} in
    commands) options+=' --format' ;;
    report) options+=' --report --ignore --fail-on --state' ;;
    *)
        options+=' -j --jobs --all --dry-run --accept --timeout --retries --stop-after --keep-partial --notice --state
            --report --ignore --fail-on'
        ;;
    esac
    _tarnwick_run_offer -W "$options" -- "$1"
}

# Both take what compgen takes.
_tarnwick_run_offer() { mapfile -t COMPREPLY < <(compgen "$@"); }
_tarnwick_run_files() {
    compopt -o filenames 2>/dev/null
    _tarnwick_run_offer "$@"
}

complete -F _tarnwick_run tarnwick-run
