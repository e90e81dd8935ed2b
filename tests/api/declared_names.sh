#!/bin/sh
# The names that the header declares as exported, one a line.
# usage: declared_names.sh CC HEADER
set -eu

# One declaration a line; its name stands before the first parenthesis, or at its end.
"$1" -E -P -x c "$2" | tr -s '\n\t ' ' ' | tr ';' '\n' |
    sed -n 's/.*__attribute__((visibility("default"))) //p' |
    sed -e 's/^extern //' -e 's/ *(.*//' -e 's/.*[ *]//' | sort -u
