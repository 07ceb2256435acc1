# Bash completion for detect_layout; source it or put it into bash-completion's folder.

_detect_layout() {
    local current=${COMP_WORDS[COMP_CWORD]}
    local previous=${COMP_WORDS[COMP_CWORD - 1]}
    local commands='convert diff import'
    local options='--help --rows --encoding --quote --decimal --thousands --whitespace --missing
        --comment --comment-end --no-comments --layout --delimiter --widths --header-lines
        --first-data-line --names-line'
    # Only the first word is a command.
    case ${COMP_WORDS[1]} in
    convert) options+=' --output --force --to --iso-dates --irregular --reports --longest-record' ;;
    diff) ;;
    import) options+=' --for' ;;
    *)
        options+=' --json --explain --show --recursive --version --rules --exclude-delimiter
            --expect-variables'
        ;;
    esac
    # Bash makes three words of --layout=fixed.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $previous in
    --layout)
        mapfile -t COMPREPLY < <(compgen -W 'open delimited aligned fixed lines no-fixed' -- "$current")
        return
        ;;
    --to)
        mapfile -t COMPREPLY < <(compgen -W 'csv tsv jsonl' -- "$current")
        return
        ;;
    --for)
        mapfile -t COMPREPLY < <(compgen -W 'data.table duckdb excel pandas polars postgres python-csv r
            spark sqlite' -- "$current")
        return
        ;;
    --irregular)
        mapfile -t COMPREPLY < <(compgen -W 'pad keep skip stop' -- "$current")
        return
        ;;
    --encoding)
        mapfile -t COMPREPLY < <(compgen -W 'UTF-8 UTF-16LE UTF-16BE windows-1252 ISO-8859-1
            Shift_JIS GB18030 Big5 EUC-KR windows-1251 KOI8-R' -- "$current")
        return
        ;;
    --show | --rows | --quote | --decimal | --thousands | --whitespace | --missing | --comment | \
        --comment-end | --delimiter | --widths | --header-lines | --first-data-line | \
        --names-line | --exclude-delimiter | --expect-variables | --reports | --longest-record)
        COMPREPLY=()
        compopt +o default 2>/dev/null # nor files
        return
        ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    elif ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current"; compgen -f -- "$current")
        compopt -o filenames 2>/dev/null # quoted as files are
    fi
}

complete -o default -F _detect_layout detect_layout
