#include "items/compound.hpp"

namespace ast {

namespace {

// Hands the subfield of an item that a type asks for, where the item announces it, to `visit` with its handlers, which
// may be null.
template <typename Visit>
void with_subfield(const Compound &compound, const ast_dataitem_t *item, uint32_t subfield_type, Visit visit) {
    if (!is_readable(item) || item->type != compound.type) return;
    const ast_fspec_t primary = decode_fspec(item->data, item->size);
    if (!primary.valid) return;
    const uint32_t number = subfield_number(subfield_type);
    const SubfieldRow *const row = find_subfield(compound, number);
    const SubfieldHandlers *const handlers = row ? row->handlers : nullptr;
    const bool is_announced = number != 0 && announces(primary, number);
    const bool has_summary = handlers && handlers->summarize;
    if (is_announced || (!has_summary && compound.summarizes_unknown_subfields))
        visit(find_announced(compound, *item, primary, number), handlers);
}

} // namespace

void read_subfield_of(const Compound &compound, const ast_dataitem_t *item, uint32_t number, void *item_value) {
    // Most items are asked for some subfields that their primary subfield has no bit for, wherever it ends.
    const uint64_t octet = frn_octet(number);
    if (!is_readable(item) || octet >= item->size || (item->data[octet] & frn_mask(number)) == 0) return;
    const uint64_t length = fspec_length(item->data, item->size);
    const SubfieldRow *const row = find_subfield(compound, number);
    if (octet >= length || item->type != compound.type || !row || !row->handlers) return;
    const ast_fspec_t primary{.data = item->data, .length = length, .frn_count = length * kFrnsPerOctet};
    const uint64_t offset = summed_offset(compound, primary, number);
    const uint64_t size = row->size.kind == SizeRule::Kind::Fixed ? row->size.octets : 0;
    const bool is_known = offset != 0 && size != 0 && offset + size <= item->size;
    ast_subfield_t subfield{};
    if (is_known) {
        subfield.data = item->data + offset;
        subfield.size = size;
        subfield.type = AST_SUBFIELD_TYPE(item->type, number);
        subfield.present = subfield.valid = true;
    } else {
        subfield = find_announced(compound, *item, primary, number);
    }
    if (is_whole(subfield)) row->handlers->read(item_value, subfield);
}

void summarize_subfield(const Compound &compound, char *text, uint64_t capacity, const ast_dataitem_t *item,
                        uint32_t subfield_type) {
    TextWriter out(text, capacity);
    with_subfield(compound, item, subfield_type, [&](const ast_subfield_t &subfield, const SubfieldHandlers *handlers) {
        if (handlers && handlers->summarize)
            handlers->summarize(out, subfield);
        else
            out.append("NOT_IMPLEMENTED");
    });
}

void show_subfield(const Compound &compound, char *text, uint64_t capacity, const ast_dataitem_t *item,
                   uint32_t subfield_type) {
    HtmlWriter html(text, capacity);
    with_subfield(compound, item, subfield_type, [&](const ast_subfield_t &subfield, const SubfieldHandlers *handlers) {
        if (handlers && is_whole(subfield)) handlers->show(html, subfield, *item);
    });
}

} // namespace ast
