#!/bin/sh
# Whether the fuzz targets list every function of the header that reads or writes a value record of its own type.
# usage: listed_test.sh HEADER LIST
set -eu
header=$1 list=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

tr -s '\n ' ' ' <"$header" | grep -oE 'ast_[a-z0-9_]+_(decode\(const ast_(dataitem|bds)_t \*|encode\(ast_dataitem_t \*result|(dis)?assemble\()' |
    cut -d'(' -f1 | sort >"$work/declared"
grep -oE '\<ast_[a-z0-9_]+_(decode|encode|disassemble|assemble)\>' "$list" | sort >"$work/listed"

[ -s "$work/declared" ] || { echo "no declaration found in $header"; exit 1; }
diff -u "$work/declared" "$work/listed"
