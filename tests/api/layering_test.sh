#!/bin/sh
# Whether each folder of the library includes only its own headers and those of the floors below it.
# usage: layering_test.sh SOURCE_DIRECTORY
set -eu
cd "$1"

below=
for floor in core codec view query items cat; do
    below="$below $floor"
    pattern=$(echo $below | tr ' ' '|')
    if grep -nE '^#include "[a-z]+/' "$floor"/*.?pp | grep -vE "#include \"($pattern)/"; then
        echo "$floor may include: $below"
        exit 1
    fi
done
