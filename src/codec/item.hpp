// Sizing one item: the step that every record decode repeats.
#pragma once

#include <algorithm>

#include "codec/category.hpp"

namespace ast {

// Octets known to follow an item, as far as one octet counts.
constexpr uint64_t kMaxFollowing = 255;

// The size of the item at data by the rule of its row; 0 when there is none, which is reported.
inline uint64_t item_size(const ItemRow &row, ast_dataitem_type_t type, const uint8_t *data, uint64_t available) {
    const SizeRule &rule = row.handlers.size;
    if (rule.kind == SizeRule::Kind::Fixed) [[likely]]
        return available >= rule.octets ? rule.octets : 0;
    if (rule.kind == SizeRule::Kind::None) report_unsupported(type);
    return item_size(rule, data, available);
}

// An item that could be sized, and the octets left behind it.
inline ast_dataitem_t sized_item(const uint8_t *data, uint64_t size, ast_dataitem_type_t type, uint64_t left_behind) {
    return {.data = data,
            .size = size,
            .type = type,
            .valid = true,
            .following = static_cast<uint8_t>(std::min(left_behind, kMaxFollowing))};
}

// Whether the octets of an item may be read.
inline bool is_readable(const ast_dataitem_t *item) { return item && item->valid && item->data; }

} // namespace ast
