#!/bin/sh
# Whether a library exports exactly what its header declares, less what a header of another library does.
# usage: exports_test.sh NM CC LIBRARY HEADER [OTHER_HEADER]
set -eu
nm=$1 cc=$2 library=$3 header=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$(dirname "$0")/declared_names.sh" "$cc" "$header" >"$work/all"
touch "$work/others"
[ $# -lt 5 ] || "$(dirname "$0")/declared_names.sh" "$cc" "$5" >"$work/others"
comm -23 "$work/all" "$work/others" >"$work/declared"
"$nm" -D --defined-only --format=posix "$library" | cut -d' ' -f1 | grep -v -x -e _init -e _fini | sort -u >"$work/exported"

declared=$(wc -l <"$work/declared")
[ "$declared" -gt 10 ] || { echo "only $declared declarations found in $header"; exit 1; }
diff -u "$work/declared" "$work/exported"
