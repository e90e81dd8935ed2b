#!/bin/sh
# Whether programs in C11 and C++17 build and run with what pkg-config says of the installed library, and where
# WITH_RECORDING is ON, one with the library of recordings.
# usage: pkg_config_test.sh CC CXX PREFIX LIBRARY_DIRECTORY CONSUMERS WITH_RECORDING
set -eu
cc=$1 cxx=$2 prefix=$3 library=$3/$4 consumers=$5 with_recording=$6
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

PKG_CONFIG_PATH=$library/pkgconfig
LD_LIBRARY_PATH=$library
export PKG_CONFIG_PATH LD_LIBRARY_PATH
# shellcheck disable=SC2046 # one word for each flag
{
    "$cc" -std=c11 "$consumers/consumer.c" -o "$work/c" $(pkg-config --cflags --libs ast)
    "$cxx" -std=c++17 "$consumers/consumer.cpp" -o "$work/cpp" $(pkg-config --cflags --libs ast)
}
"$work/c"
"$work/cpp"
if [ "$with_recording" = ON ]; then
    # shellcheck disable=SC2046
    "$cc" -std=c11 "$consumers/recording.c" -o "$work/recording" $(pkg-config --cflags --libs ast-recording)
    "$work/recording"
fi

# Nothing of another installation can have helped.
pkg-config --cflags ast | grep -F "$prefix" >/dev/null
