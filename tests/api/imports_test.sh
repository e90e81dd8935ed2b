#!/bin/sh
# Whether the library does without the heap and without work at load time.
# usage: imports_test.sh NM READELF LIBRARY
set -eu
nm=$1 readelf=$2 library=$3

imports=$("$nm" -D --undefined-only --format=posix "$library" | cut -d' ' -f1 | cut -d@ -f1)
[ -n "$imports" ] || { echo "no imports found in $library"; exit 1; }
allocators='malloc|calloc|realloc|reallocarray|free|aligned_alloc|posix_memalign|strdup|v?asprintf|_Zn[wa].*|_Zd[la].*'
if echo "$imports" | grep -E -x "$allocators"; then
    echo "are imported"
    exit 1
fi

# The compiler itself enters one function; every static constructor adds another.
pointer_octets=8
size=$("$readelf" -S -W "$library" | sed -n 's/.* \.init_array  *[A-Z_]*  *[0-9a-f]*  *[0-9a-f]*  *\([0-9a-f]*\) .*/\1/p')
[ -n "$size" ] || { echo "no .init_array found in $library"; exit 1; }
entries=$((0x$size / pointer_octets))
[ "$entries" -le 1 ] || { echo "$entries functions run at load time"; exit 1; }
