// What the rows of subfields bring along, and the views made of it.
#pragma once

#include "codec/category.hpp"
#include "view/view_writer.hpp"

namespace ast {

struct SubfieldHandlers {
    void (*read)(void *item_value, const ast_subfield_t &subfield);
    void (*summarize)(TextWriter &out, const ast_subfield_t &subfield); // null: not implemented
    void (*show)(ViewWriter &view, const ast_subfield_t &subfield, const ast_dataitem_t &item);
};

// A subfield whose octets are all there.
inline bool is_whole(const ast_subfield_t &subfield) { return subfield.present && subfield.size > 0; }

// Whether there are detail views of subfields.
inline bool has_details(const Compound &compound) { return compound.func.get_detail_html && compound.shows_subfields; }

void summarize_subfield(const Compound &compound, char *text, uint64_t capacity, const ast_dataitem_t *item,
                        uint32_t subfield_type);
void show_subfield(ViewWriter &view, const Compound &compound, const ast_dataitem_t *item, uint32_t subfield_type);

} // namespace ast
