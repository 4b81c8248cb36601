# Completion of vireo-cli in bash.

_vireo_cli()
{
    local commands="identify header analyse check render report export unpack pack convert error"
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    local command="" i
    COMPREPLY=()
    # "--as=st" comes as three words, and what is behind the '=' is completed.
    if [[ ${COMP_WORDS[COMP_CWORD]} == = ]]; then
        word=""
    elif [[ $previous == = ]] && ((COMP_CWORD > 1)); then
        previous=${COMP_WORDS[COMP_CWORD-2]}
    fi
    for ((i = 1; i < COMP_CWORD; i++)); do
        # Behind it every word is a file.
        [[ ${COMP_WORDS[i]} != -- ]] || { _vireo_cli_files "$word"; return; }
        [[ -n $command || ${COMP_WORDS[i]} == -* ]] || command=${COMP_WORDS[i]}
    done
    if [[ -z $command ]]; then
        COMPREPLY=($(compgen -W "$commands --help --version" -- "$word"))
        return
    fi

    local values="" options="--help"
    case $previous in
        --as) values="oscilloscope mtf stitch noise light-profile kitbag adjust-center-ccd
            vertical-camera-verification startest tonal-resolution tiff" ;;
        --camera) values="A B C D E F G H" ;;
        --color) values="red green blue gray all" ;;
        --unit) values="SU Inch CM" ;;
        --compression) values="none huffman g4 lzw packbits" ;;
        --predictor) values="1 2" ;;
        --page) [[ $command == convert ]] || values="A4 A3 Letter" ;;
        --size) values="1600x500 1600x1000 800x300" ;;
        -d | --directory) _vireo_cli_folders "$word"; return ;;
        -o | --output | --icc | --limits) _vireo_cli_files "$word"; return ;;
    esac
    if [[ -n $values ]]; then
        COMPREPLY=($(compgen -W "$values" -- "$word"))
        return
    fi
    case $previous in
        # Numbers: nothing to offer.
        --jobs | --line | --list | --sweep | --view | --zoom | --scale | --page) return ;;
    esac

    case $command in
        identify | header) options+=" --recursive --jobs" ;;
        analyse) options+=" --recursive --as --line --unit --arrays --jobs" ;;
        check) options+=" --recursive --limits --as --line --unit --jobs" ;;
        render) options+=" --output --as --line --camera --color --zoom --view --fit --unit
            --sweep --size --scale --list --page --limits" ;;
        report) options+=" --recursive --output --limits --as --line --unit --page --jobs" ;;
        export) options+=" --output --as --line --sweep" ;;
        unpack) options+=" --directory" ;;
        pack) options+=" --recursive --output" ;;
        convert) options+=" --output --compression --predictor --page --icc" ;;
        error) options+=" --plate" ;;
    esac
    if [[ $word == -* ]]; then
        COMPREPLY=($(compgen -W "$options" -- "$word"))
    elif [[ $command != error ]]; then
        _vireo_cli_files "$word"
    fi
}

_vireo_cli_files()
{
    local IFS=$'\n'
    compopt -o filenames 2>/dev/null
    COMPREPLY=($(compgen -f -- "$1"))
}

_vireo_cli_folders()
{
    local IFS=$'\n'
    compopt -o filenames 2>/dev/null
    COMPREPLY=($(compgen -d -- "$1"))
}

complete -F _vireo_cli vireo-cli
