# Completes command lines of astdump for bash. What can be completed is asked of the tool itself.

# The lines of --help on options: "--uap NAME  Profile to decode with".
_astdump_options() {
    "$1" --help all 2>/dev/null </dev/null | sed -n 's/^  \(-[a-z],\)\{0,1\}\(--[a-z]\)/\2/p'
}

# What an option may be, in the words of the tool on something that it cannot be.
_astdump_values() {
    "$1" "$2" '?' - 2>&1 </dev/null |
        sed -n 's/.* not in {\(.*\)}.*/\1/p' | tr -d ' ' | tr , '\n'
}

# The quantities and fields whose name begins so.
_astdump_names() {
    "$1" --fields "$2*" 2>/dev/null </dev/null | sed '1d; s/ .*//'
}

_astdump() {
    local tool=$1 word=$2 option=$3 known='' list=''
    # "=" is a word of its own.
    if [[ $word == = ]]; then
        word=''
    elif [[ $option == = ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $option in
    --uap | --framing | --color | --shift | --names) known=$(_astdump_values "$tool" "$option") ;;
    --where | --csv | --fields) known=$(_astdump_names "$tool" "${word##*,}") ;;
    --columns) known="common all reports file block record received $(_astdump_names "$tool" "${word##*,}")" ;;
    --category) known='1 2 4 7 8 9 10 11 15 16 17 18 19 20 21 23 25 32 34 48 62 63 65 150 205 240 247' ;;
    --convert) known='1 2 34 48' ;;
    --interface | -i) known=$(cd /sys/class/net 2>/dev/null && printf '%s\n' *) ;;
    --html | --write | -w | --sites | --metrics) ;;
    --*)
        # Another value, of which nothing is known: not that it is a file.
        if _astdump_options "$tool" | grep -q "^$option [A-Z]"; then
            compopt +o default +o bashdefault 2>/dev/null
            return 0
        fi
        ;;
    esac
    case $option in
    --csv | --columns | --category | --convert)
        list=${word%"${word##*,}"}
        compopt -o nospace 2>/dev/null
        ;;
    --where | --fields) compopt -o nospace 2>/dev/null ;;
    esac
    [[ -z $known && $word == -* ]] && known=$(_astdump_options "$tool" | sed 's/ .*//')
    # Nothing known leaves it to the names of files.
    mapfile -t COMPREPLY < <(compgen -P "$list" -W "$known" -- "${word#"$list"}")
}

complete -o bashdefault -o default -F _astdump astdump
