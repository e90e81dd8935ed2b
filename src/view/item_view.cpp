// Items and subfields as text: what their handlers write, or their plain octets.

#include "codec/category.hpp"
#include "codec/item.hpp"
#include "view/html.hpp"
#include "view/subfield_view.hpp"

namespace {

using namespace ast;

constexpr char kNotImplemented[] = "NOT_IMPLEMENTED";

} // namespace

void ast_dataitem_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    set_text(text, capacity, kNotImplemented);
    if (!is_readable(item)) return;
    if (const auto get_summary = handlers_of(item->type).get_summary) get_summary(text, capacity, item);
}

void ast_dataitem_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    set_text(text, capacity, "");
    if (!is_readable(item)) return;
    if (const auto get_detail = handlers_of(item->type).detail.html) get_detail(text, capacity, item);
}

void ast_dataitem_get_details(const ast_dataitem_t *item, const ast_details_visitor_t *visitor, void *context) {
    if (!visitor || !is_readable(item)) return;
    const auto show = handlers_of(item->type).detail.pieces;
    if (!show) return;
    const WholeVisitor whole(*visitor);
    ViewWriter view(whole.get(), context);
    show(view, item);
}

void ast_dataitem_get_detail_html_dummy(char *text, uint64_t capacity) { set_text(text, capacity, ""); }

void ast_dataitem_get_hex_str(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    if (!is_readable(item)) return;
    for (uint64_t i = 0; i < item->size; ++i) out.print(i == 0 ? "%.2x" : " %.2x", item->data[i]);
}

// Shows the octets of items that are not valid too: it is how one looks at what went wrong.
void ast_dataitem_get_bin_str(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    if (!item || !item->data) return;
    for (uint64_t i = 0; i < item->size; ++i) {
        if (i != 0) out.append(" ");
        out.append(BinaryOctet(item->data[i]));
    }
}

void ast_dataitem_get_hex_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    if (is_readable(item)) html.hex_table(item->data, item->size);
}

void ast_dataitem_get_bin_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    if (is_readable(item)) html.bit_table(item->data, item->size);
}

void ast_subfield_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item, uint32_t subfield_type) {
    set_text(text, capacity, kNotImplemented);
    if (const auto get_summary = ast_subfield_get_func(subfield_type).get_summary)
        get_summary(text, capacity, item, subfield_type);
}

void ast_subfield_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item, uint32_t subfield_type) {
    set_text(text, capacity, "");
    if (const auto get_detail = ast_subfield_get_func(subfield_type).get_detail_html)
        get_detail(text, capacity, item, subfield_type);
}

void ast_subfield_get_details(const ast_dataitem_t *item, uint32_t subfield_type, const ast_details_visitor_t *visitor,
                              void *context) {
    const Compound *const compound = find_compound(subfield_type / kSubfieldNumbers);
    if (!visitor || !compound || !has_details(*compound)) return;
    const WholeVisitor whole(*visitor);
    ViewWriter view(whole.get(), context);
    show_subfield(view, *compound, item, subfield_type);
}

void ast_subfield_get_bin_html(char *text, uint64_t capacity, const ast_subfield_t *subfield) {
    HtmlWriter html(text, capacity);
    if (subfield && subfield->valid) html.bit_table(subfield->data, subfield->size);
}
