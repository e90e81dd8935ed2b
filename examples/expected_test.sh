#!/usr/bin/env bash
# Types the commands of a text in the folder of the samples, and compares what they print with what stands there.
# usage: expected_test.sh TEXT PROGRAMS SAMPLES
set -uo pipefail

readonly text=$1 programs=$2 samples=$3
PATH=$programs:$PATH
cd "$samples" || exit 2

grep '^\$ ' "$text" | while IFS= read -r line; do
    printf '%s\n' "$line"
    (eval "${line#\$ }") 2>&1 </dev/null || echo "(exit status $?)"
done | diff "$text" -
