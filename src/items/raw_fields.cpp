// Octets without a meaning of their own: their bits, or what kind of field they are.

#include "items/items.hpp"

using namespace ast;

namespace {

void write_fixed(char *text, uint64_t capacity, const ast_dataitem_t *item, std::string_view content) {
    set_text(text, capacity, is_readable(item) ? content : "");
}

} // namespace

void ast_dataitem_binary_data_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    if (!is_readable(item)) return;
    out.append("BIN");
    for (uint64_t i = 0; i < item->size; ++i) {
        out.append(i == 0 ? ":" : " ");
        out.append(BinaryOctet(item->data[i]));
    }
}

void ast_dataitem_reserved_expansion_field_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    write_fixed(text, capacity, item, "RESERVED_EXPANSION");
}

void ast_dataitem_special_purpose_field_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    write_fixed(text, capacity, item, "SPECIAL_PURPOSE");
}

void ast_dataitem_random_field_sequencing_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    write_fixed(text, capacity, item, "RANDOM_FIELD_SEQUENCING");
}
