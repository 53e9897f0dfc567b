# Completion of tarnwick-run for bash.

_tarnwick_run() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    case $before in
    --color) mapfile -t COMPREPLY < <(compgen -W 'auto always never' -- "$word") ; return ;;
    --format) mapfile -t COMPREPLY < <(compgen -W 'sh null json' -- "$word") ; return ;;
    -F | --input-folder | --state)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        return ;;
    --mp | --cns)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return ;;
    -e | --extensions | -j | --jobs | --accept | --timeout | --retries | --stop-after | --drive | --code-page)
        return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '-h --help --version -F --input-folder -e --extensions --mp --cns
            --in-place -j --jobs --all --dry-run --accept --timeout --retries --stop-after --keep-partial
            --state -q --quiet -v --verbose --color --format --drive --code-page' -- "$word")
        return
    fi
    compopt -o filenames
    mapfile -t COMPREPLY < <(
        compgen -f -X '!*.[iI][nN][iI]' -- "$word"
        compgen -d -- "$word"
        [ "$COMP_CWORD" -gt 1 ] || compgen -W 'run commands' -- "$word"
    )
}
complete -F _tarnwick_run tarnwick-run
