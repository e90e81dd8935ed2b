#!/bin/sh
# Whether the manual has every option that --help has, and no other.
# usage: manual_test.sh TOOL MANUAL
set -eu
tool=$1 manual=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$tool" --help all | sed -n 's/^  \(-[a-z],\)\{0,1\}--\([a-z-]*\).*/\2/p' | sort >"$work/help"
sed -n 's/^\.It Fl \([a-z] , \)\{0,1\}-\([a-z-]*\).*/\2/p' "$manual" | sort >"$work/manual"

grep -qx help "$work/help" || { echo "no option found in what --help shows"; exit 1; }
diff -u "$work/help" "$work/manual"
