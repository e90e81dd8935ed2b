#include "view/subfield_view.hpp"

#include "codec/fspec.hpp"
#include "codec/item.hpp"

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

void show_subfield(ViewWriter &view, const Compound &compound, const ast_dataitem_t *item, uint32_t subfield_type) {
    with_subfield(compound, item, subfield_type, [&](const ast_subfield_t &subfield, const SubfieldHandlers *handlers) {
        if (handlers && is_whole(subfield)) handlers->show(view, subfield, *item);
    });
}

} // namespace ast
