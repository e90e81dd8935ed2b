// The frames that all item decoders and encoders share: what may be read, and what may be written.
#pragma once

#include "codec/item.hpp"

namespace ast {

// Whether an item can be decoded as a layout of exactly `size` octets.
inline bool holds(const ast_dataitem_t *item, uint64_t size) { return is_readable(item) && item->size == size; }

// The same for items of one type alone; the size is left to the item's size rule where none is given.
inline bool holds_type(const ast_dataitem_t *item, ast_dataitem_type_t type) {
    return is_readable(item) && item->type == type && item->size > 0;
}

inline bool holds_type(const ast_dataitem_t *item, ast_dataitem_type_t type, uint64_t size) {
    return holds_type(item, type) && item->size == size;
}

// Whether an item announces a subfield.
inline bool has_subfield(const ast_subfields_t &subfields, uint32_t subfield_type) {
    return ast_fspec_is_set(&subfields.primary, subfield_number(subfield_type));
}

// The octets of a subfield by its number, or null when it is absent or not of that size.
inline const uint8_t *subfield_octets(const ast_subfields_t &subfields, uint32_t number, uint64_t size) {
    if (number == 0 || number > subfields.subfield_count) return nullptr;
    const ast_subfield_t &subfield = subfields.subfields[number - 1];
    return subfield.present && subfield.size == size ? subfield.data : nullptr;
}

// Opens an encoder: describes in result what is to be written and returns the value record to write it from, or null
// when nothing may be written. written() closes it.
template <typename Value>
Value *open_encode(ast_dataitem_t *result, const uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source,
                   uint64_t size) {
    if (!result) return nullptr;
    *result = {};
    result->data = buffer;
    if (!source) return nullptr;
    result->type = source->type;
    result->size = size;
    auto *const value = static_cast<Value *>(source->value);
    return value && value->valid && buffer && length >= size ? value : nullptr;
}

// A number of units as the octets of a field carry it, cut off towards zero. Anything outside 32 bits is 0.
inline uint32_t to_raw(double units) {
    return units > -2147483649.0 && units < 4294967296.0 ? static_cast<uint32_t>(static_cast<int64_t>(units)) : 0;
}

inline void written(ast_dataitem_t *result) { result->valid = true; }

} // namespace ast
