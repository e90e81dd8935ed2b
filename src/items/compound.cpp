#include "items/compound.hpp"

namespace ast {

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

} // namespace ast
