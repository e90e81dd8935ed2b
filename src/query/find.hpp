// Looking an item up in a record.
#pragma once

#include <algorithm>
#include <iterator>

#include "ast.h"

namespace ast {

// The first item of a type in a valid record, or null.
inline const ast_dataitem_t *first_item(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    if (!record || !record->valid) return nullptr;
    const uint64_t count = std::min<uint64_t>(record->item_count, std::size(record->items));
    for (uint64_t i = 0; i < count; ++i)
        if (record->items[i].type == type) return &record->items[i];
    return nullptr;
}

} // namespace ast
