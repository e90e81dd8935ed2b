#!/bin/sh
# Whether every exported function has a comment of its own, or stands in a paragraph that opens with one; whether one
# covers each member of each struct; and whether each file of the header compiles on its own.
# usage: commented_test.sh CC INCLUDE_DIRECTORY
set -eu
cc=$1 include=$2

awk -v RS= '/AST_(RECORDING_)?API [a-z]/ && !/^\/\*/ { print FILENAME ": " $0 "\n"; ++bare } END { exit bare > 0 }' \
    "$include"/ast/*.h "$include/ast_recording.h" ||
    { echo "have no comment"; exit 1; }
awk -f "$(dirname "$0")/bare_members.awk" "$include"/ast/*.h "$include/ast_recording.h" ||
    { echo "have neither a unit nor a meaning"; exit 1; }
for header in "$include"/ast/*.h; do
    "$cc" -std=c11 -Wall -Wextra -pedantic -Werror -fsyntax-only -x c "$header"
    grep -qx "#include \"ast/$(basename "$header")\"" "$include/ast.h" || { echo "$header is not gathered"; exit 1; }
done
