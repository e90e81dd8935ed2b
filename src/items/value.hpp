// The frames that all item decoders and encoders share: what may be read, and what may be written.
#pragma once

#include "codec/item.hpp"

namespace ast {

// Whether an item can be decoded as a layout of exactly `size` octets.
inline bool holds(const ast_dataitem_t *item, uint64_t size) { return is_readable(item) && item->size == size; }

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
