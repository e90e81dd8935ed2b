#!/bin/sh
# Whether the library exports exactly what its header declares.
# usage: exports_test.sh NM CC LIBRARY HEADER
set -eu
nm=$1 cc=$2 library=$3 header=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$(dirname "$0")/declared_names.sh" "$cc" "$header" >"$work/declared"
"$nm" -D --defined-only --format=posix "$library" | cut -d' ' -f1 | grep -v -x -e _init -e _fini | sort -u >"$work/exported"

declared=$(wc -l <"$work/declared")
[ "$declared" -gt 100 ] || { echo "only $declared declarations found in $header"; exit 1; }
diff -u "$work/declared" "$work/exported"
