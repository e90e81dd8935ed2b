// Compound items as a list of their subfields, and each present subfield as its handlers show it.

#include "codec/category.hpp"
#include "codec/fspec.hpp"
#include "codec/item.hpp"
#include "view/html.hpp"
#include "view/subfield_view.hpp"

namespace {

using namespace ast;

constexpr uint64_t kSummaryChars = 64;

void write_table(ViewWriter &view, const ast_dataitem_t *item, const ast_subfields_t &decoded) {
    DetailTable table(view, "Subfield", "ID", "Name", "Size", "Existing", "Summary");
    for (uint64_t i = 0; i < decoded.subfield_count; ++i) {
        const ast_subfield_t &subfield = decoded.subfields[i];
        char summary[kSummaryChars];
        ast_subfield_get_summary(summary, sizeof summary, item, subfield.type);
        // A number of two digits shows its first.
        table.row(Cell<2>("%zu", static_cast<size_t>(i + 1)), ast_subfield_get_id(subfield.type),
                  ast_subfield_get_name(subfield.type), Cell<4>("%zu", static_cast<size_t>(subfield.size)),
                  subfield.present ? "1" : "0", summary);
    }
}

void write_subfield(ViewWriter &view, const Compound &compound, const ast_dataitem_t *item,
                    const ast_subfield_t &subfield, uint64_t number) {
    view.title("Subfield #", Cell<12>("%u", static_cast<unsigned>(number)), " - ",
               ast_subfield_get_name(subfield.type));
    view.bit_table(subfield.data, subfield.size);
    view.paragraph("");
    if (has_details(compound) && !view.is_full()) show_subfield(view, compound, item, subfield.type);
}

} // namespace

void ast_dataitem_subfields_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    if (!is_readable(item)) return;
    const ast_fspec_t primary = decode_fspec(item->data, item->size);
    if (!primary.valid) return;
    const uint64_t listed = listed_subfields(*item, primary);
    uint32_t present = 0;
    each_frn(primary, [&](uint32_t number) { return number <= listed && ++present != 0; });
    out.append("SUBFIELDS:");
    out.append_digits(present, 2);
    out.append("/");
    out.append_digits(static_cast<uint32_t>(listed), 2);
}

template <>
void ast::show_pieces<ast_dataitem_subfields_get_detail_html>(ViewWriter &view, const ast_dataitem_t *item) {
    const ast_subfields_t decoded = ast_dataitem_subfields_decode(item);
    if (!decoded.valid) return;
    view.title("Primary Subfield");
    write_table(view, item, decoded);
    const Compound *const compound = find_compound(item->type);
    for (uint64_t i = 0; compound && i < decoded.subfield_count; ++i)
        if (decoded.subfields[i].present) write_subfield(view, *compound, item, decoded.subfields[i], i + 1);
}

void ast_dataitem_subfields_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlView view(text, capacity);
    show_pieces<ast_dataitem_subfields_get_detail_html>(view, item);
}
