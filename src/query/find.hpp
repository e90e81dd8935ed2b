// Looking an item up in a record.
#pragma once

#include <algorithm>
#include <iterator>

#include "ast.h"

namespace ast {

// The first item of a type in a valid record, or null.
inline const ast_dataitem_t *first_item(const ast_datarecord_t *record, ast_dataitem_type_t type) {
    if (!record || !record->valid) return nullptr;
    constexpr size_t kStep = 4; // compared before the end is: records are asked for many items that they do not have
    const ast_dataitem_t *item = record->items;
    size_t left = static_cast<size_t>(std::min<uint64_t>(record->item_count, std::size(record->items)));
    for (; left >= kStep; left -= kStep, item += kStep) {
        if (item[0].type == type) return item;
        if (item[1].type == type) return item + 1;
        if (item[2].type == type) return item + 2;
        if (item[3].type == type) return item + 3;
    }
    for (; left != 0; --left, ++item)
        if (item->type == type) return item;
    return nullptr;
}

} // namespace ast
