#!/usr/bin/env bash
# Whether the shells complete all options that --help has, and values; zsh and fish where they are installed.
# usage: completions_test.sh TOOL DATA_DIRECTORY
set -euo pipefail
tool=$1 data=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
PATH=$(dirname "$tool"):$PATH
cd "$work"
touch recording.ast

"$tool" --help all | sed -n 's/^  \(-[a-z],\)\{0,1\}\(--[a-z-]*\).*/\2/p' | sort >options
grep -qx -- --framing options

# complete WORD...: what each shell makes of the last word of a command line.
complete_bash() {
    COMP_WORDS=(astdump "$@") COMP_CWORD=$#
    local before=(astdump "${@:1:$#-1}")
    _astdump "$tool" "${!#}" "${before[-1]}"
    printf '%s\n' "${COMPREPLY[@]}"
}
complete_fish() {
    fish --no-config -c "source $data/fish/vendor_completions.d/astdump.fish; complete -C 'astdump $*'" | cut -f 1
}

# expect SHELL "WORD..." VALUE...
expect() {
    local -a words
    IFS=' ' read -r -a words <<<"$2"
    [[ $2 == *' ' ]] && words+=('')
    diff -u <(printf '%s\n' "${@:3}") <("complete_$1" "${words[@]}" | sort) || { echo "in $1: astdump $2"; exit 1; }
}

check() {
    "complete_$1" - | sort | diff -u options - || { echo "in $1"; exit 1; }
    expect "$1" '--framing h' hdlc hex
    expect "$1" '--uap cat001' cat001-plot
    expect "$1" '--shift ' now
    expect "$1" '--quiet --color ' always auto never
    expect "$1" '--where sq' squawk
    expect "$1" '--where I048/070/M' I048/070/MODE3A
    expect "$1" '--fields I048/04' I048/040 I048/040/RHO I048/040/THETA I048/042 I048/042/X I048/042/Y
    expect "$1" '--csv time,sq' time,squawk
    expect "$1" '--columns time,re' time,received time,record time,reports
    expect "$1" '--names ' traffic
    expect "$1" '--category 34,20' 34,20 34,205
}

# shellcheck source=/dev/null
source "$data/bash-completion/completions/astdump"
check bash
complete -p astdump | grep -q -- '-o default'
if command -v fish >/dev/null; then
    check fish
    expect fish '--stats rec' recording.ast
fi
if command -v zsh >/dev/null; then zsh -n "$data"/zsh/*/_astdump; fi
