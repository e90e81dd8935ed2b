// Repetitive items: one octet, REP, says how many elements of one size follow it.
#pragma once

#include "items/frame.hpp"

namespace ast {

// Hands each element of an item and its octets to `read`, and says how many there are. False for an item that is not as
// long as its REP says, or that has more elements than there is room for.
template <typename I, typename Element, size_t N, typename Count, typename Read>
bool read_elements(Element (&elements)[N], Count &count, const ast_dataitem_t &item, Read read) {
    const uint64_t announced = item.data[0];
    if (item.size != 1 + I::kSize.octets * announced || announced > N) return false;
    for (uint64_t i = 0; i < announced; ++i) read(elements[i], item.data + 1 + I::kSize.octets * i);
    count = static_cast<Count>(announced);
    return true;
}

// The octets of an element in which a field of it stands, or all of them, where REP is octet 0.
template <typename I>
Cell<24> octets_label(uint32_t element, uint32_t first = 0, uint32_t count = I::kSize.octets) {
    const uint32_t start = 1 + I::kSize.octets * element + first;
    return Cell<24>("Octet[%u-%u]", start, start + count - 1);
}

} // namespace ast
