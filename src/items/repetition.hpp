// Items of elements of one size behind their count.
#pragma once

#include "items/frame.hpp"

namespace ast {

// Whether the octets of an item are as many as its count says.
inline bool is_whole_repetition(const ast_dataitem_t &item, const SizeRule &repetitive) {
    return item.size == 1 + uint64_t{repetitive.octets} * item.data[0];
}

// Calls visit(place, octets) for each element, its place counted from 0; for none where the octets are not as many as
// the count says, which it returns.
template <typename Visit>
bool each_element(const ast_dataitem_t &item, const SizeRule &repetitive, Visit visit) {
    if (!is_whole_repetition(item, repetitive)) return false;
    for (uint32_t place = 0; place < item.data[0]; ++place) visit(place, item.data + 1 + place * repetitive.octets);
    return true;
}

} // namespace ast
