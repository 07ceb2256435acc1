# Bash completion for detect_layout; source it or put it into bash-completion's folder.

_detect_layout() {
    local current=${COMP_WORDS[COMP_CWORD]}
    local previous=${COMP_WORDS[COMP_CWORD - 1]}
    local options='--json --explain --show --recursive --help --version --rows --encoding --quote
        --decimal --thousands --whitespace --missing --comment --comment-end --no-comments --layout
        --delimiter --widths --header-lines --first-data-line --names-line --rules
        --exclude-delimiter --expect-variables'
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
    --encoding)
        mapfile -t COMPREPLY < <(compgen -W 'UTF-8 UTF-16LE UTF-16BE windows-1252 ISO-8859-1
            Shift_JIS GB18030 Big5 EUC-KR windows-1251 KOI8-R' -- "$current")
        return
        ;;
    --show | --rows | --quote | --decimal | --thousands | --whitespace | --missing | --comment | \
        --comment-end | --delimiter | --widths | --header-lines | --first-data-line | \
        --names-line | --exclude-delimiter | --expect-variables)
        COMPREPLY=()
        compopt +o default 2>/dev/null # nor files
        return
        ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    fi
}

complete -o default -F _detect_layout detect_layout
