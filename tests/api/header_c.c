/* The public header on its own, as C11. */
#include "ast.h"

#include "ast.h" /* twice is once */

_Static_assert(sizeof(bool) == 1, "flags are one octet");
_Static_assert(AST_DATAITEM_TYPE(48, 10) == 48010, "item types are constants");
_Static_assert(AST_SUBFIELD_TYPE(48130, 1) == 48130001, "subfield types are constants");

static int32_t sink(uint32_t level, const char *message) { return level > AST_LOG_PANIC || !message; }

void use_header(const uint8_t *octets, uint64_t length);

void use_header(const uint8_t *octets, uint64_t length) {
    static ast_datablock_t block;
    static const ast_dataitem_src_list_t nothing = {0};
    uint8_t buffer[3];
    ast_log_handler_reg(sink);
    ast_datablock_decode_into(&block, octets, length, AST_UAP_STANDARD);
    block = ast_datablock_modify(buffer, sizeof buffer, &block, &nothing);
    ast_html_gen_table_row(0, 0, 1, "cell", AST_HTML_TABLE_END_OF_ROW);
}
