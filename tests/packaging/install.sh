#!/bin/sh
# Installs what is built, and moves the installed tree, as its users may.
# usage: install.sh CMAKE BUILD_DIRECTORY PREFIX
set -eu
cmake=$1 build=$2 prefix=$3

rm -rf "$prefix" "$prefix.first"
"$cmake" --install "$build" --prefix "$prefix.first"
mv "$prefix.first" "$prefix"
