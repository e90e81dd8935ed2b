// Sizing one item: the step that every record decode repeats.
#pragma once

#include <algorithm>

#include "codec/category.hpp"

namespace ast {

// Octets known to follow an item, as far as one octet counts.
constexpr uint64_t kMaxFollowing = 255;

inline ast_dataitem_t decode_item(const uint8_t *data, uint64_t available, ast_dataitem_type_t type) {
    ast_dataitem_t item{};
    item.data = data;
    item.type = type;
    const ItemRow *const row = find_registered_item(type);
    if (!row || !data) return item;
    const uint64_t size = row->handlers.get_size(data, available);
    if (size == 0) return item;
    item.size = size;
    item.valid = true;
    item.following = static_cast<uint8_t>(size < available ? std::min(available - size, kMaxFollowing) : 0);
    return item;
}

// Whether the octets of an item may be read.
inline bool is_readable(const ast_dataitem_t *item) { return item && item->valid && item->data; }

} // namespace ast
