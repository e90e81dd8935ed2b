// The public header on its own, as C++17.
#include "ast.h"

static_assert(AST_SUBFIELD_TYPE(AST_DATAITEM_TYPE(48, 130), 1) == 48130001);

uint64_t use_header(const uint8_t *octets, uint64_t length) {
    const ast_uap_t own{[](uint32_t) -> uint32_t { return 1; },
                        [](uint32_t, uint32_t) -> ast_dataitem_type_t { return 48010; }};
    ast_log_handler_reg([](uint32_t, const char *) -> int32_t { return 0; });
    return ast_datarecord_decode(octets, length, 48, own).item_count;
}
