# bash completion for vantle-cli
_vantle_cli()
{
    local cur prev words cword
    _init_completion || return

    case $prev in
        --home)
            _filedir -d
            return
            ;;
        --interval)
            return
            ;;
    esac

    # The command and sub-command so far, without options and --home's folder.
    local i command="" sub=""
    for ((i = 1; i < cword; i++)); do
        case ${words[i]} in
            --home) ((i++)) ;;
            -*) ;;
            *)
                if [[ -z $command ]]; then
                    command=${words[i]}
                elif [[ -z $sub ]]; then
                    sub=${words[i]}
                fi
                ;;
        esac
    done

    if [[ $cur == -* ]]; then
        local options="--help --home"
        case $command in
            "") options+=" --version" ;;
            shred) options+=" --yes --dry-run --logout --shutdown --restart --quiet --timing --wait" ;;
            watch) options+=" --yes --verbose --interval" ;;
            erase) options+=" --quiet --timing --wait" ;;
        esac
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi

    case $command in
        "")
            COMPREPLY=($(compgen -W "shred watch erase prefs apps profiles keep plugins custom help" -- "$cur"))
            ;;
        erase)
            _filedir
            ;;
        prefs | apps | profiles | keep | plugins | custom)
            if [[ -z $sub ]]; then
                local subs
                case $command in
                    prefs) subs="list get set reset" ;;
                    apps) subs="list enable disable" ;;
                    profiles) subs="list select deselect" ;;
                    keep) subs="list add remove on off" ;;
                    plugins) subs="list enable disable add add-path remove restore" ;;
                    custom) subs="list add-process remove-process add-path remove-path keep" ;;
                esac
                COMPREPLY=($(compgen -W "$subs" -- "$cur"))
            elif [[ $command == prefs && ($sub == get || $sub == set) && $prev == "$sub" ]]; then
                local keys
                keys=$(vantle-cli prefs list 2>/dev/null | cut -d' ' -f1)
                COMPREPLY=($(compgen -W "$keys" -- "$cur"))
            elif [[ $command == prefs && $sub == set ]]; then
                COMPREPLY=($(compgen -W "YES NO" -- "$cur"))
            elif [[ $command == custom ]]; then
                _filedir
            fi
            ;;
    esac
} &&
    complete -F _vantle_cli vantle-cli
