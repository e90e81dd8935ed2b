#!/bin/sh
# The functions of the header that read or write a value record of its own type, as X-macro calls.
# usage: list_functions.sh CC HEADER
set -eu

"$1" -E -P -x c "$2" | tr -s '\n\t ' ' ' | tr ';' '\n' | awk '
    match($0, /ast_[a-zA-Z0-9_]+_decode\(const ast_dataitem_t \*item\)/) { decoders[++count] = name() }
    match($0, /ast_[a-zA-Z0-9_]+_decode\(const ast_bds_t \*bds\)/) { registers[++register_count] = name() }
    match($0, /ast_[a-zA-Z0-9_]+_encode\(ast_dataitem_t \*result/) { encoders[name()] = 1 }
    match($0, /ast_[a-zA-Z0-9_]+_disassemble\(/) { flats[++flat_count] = name() }
    match($0, /ast_[a-zA-Z0-9_]+_assemble\(/) { assemblers[name()] = 1 }
    function name() { text = substr($0, RSTART, RLENGTH); sub(/\(.*/, "", text); return text }
    function other(text, from, to) { sub(from "$", to, text); return text }
    END {
        print "#ifdef AST_FUZZ_DECODER"
        for (i = 1; i <= count; ++i) {
            encode = other(decoders[i], "_decode", "_encode")
            print encode in encoders ? "AST_FUZZ_CODEC(" decoders[i] ", " encode ")" : "AST_FUZZ_DECODER(" decoders[i] ")"
        }
        print "#undef AST_FUZZ_DECODER\n#undef AST_FUZZ_CODEC\n#endif\n#ifdef AST_FUZZ_REGISTER"
        for (i = 1; i <= register_count; ++i) print "AST_FUZZ_REGISTER(" registers[i] ")"
        print "#undef AST_FUZZ_REGISTER\n#endif\n#ifdef AST_FUZZ_FLAT_RECORD"
        for (i = 1; i <= flat_count; ++i) {
            assemble = other(flats[i], "_disassemble", "_assemble")
            print assemble in assemblers ? "AST_FUZZ_FLAT_RECORD(" flats[i] ", " assemble ")" : "AST_FUZZ_FLAT_RECORD_READ(" flats[i] ")"
        }
        print "#undef AST_FUZZ_FLAT_RECORD\n#undef AST_FUZZ_FLAT_RECORD_READ\n#endif"
    }'
