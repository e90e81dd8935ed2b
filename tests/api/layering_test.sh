#!/bin/sh
# Whether each folder of the library includes only its own headers and those of the floors below it.
# usage: layering_test.sh SOURCE_DIRECTORY
set -eu
cd "$1"

# only FLOOR FOLDERS: the floor may include these folders and no other.
only() {
    pattern=$(echo $2 | tr ' ' '|')
    if find "$1" -name '*.?pp' -exec grep -nE '^#include "[a-z]+/' {} + | grep -vE "#include \"($pattern)/"; then
        echo "$1 may include: $2"
        exit 1
    fi
}

below=
for floor in core codec view schema query items cat reader; do
    below="$below $floor"
    only "$floor" "$below"
done

# What the documents say stands beside what users know, and knows nothing of it.
only schema "core schema"
