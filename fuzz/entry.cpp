#include "entry.hpp"

#include "harness.hpp"

int LLVMFuzzerInitialize(int *, char ***) {
    ast_fuzz::registered_items();
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    ast_fuzz::run(ast_fuzz::Input({data, size}));
    return 0;
}
