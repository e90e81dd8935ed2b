// Adding items that the library has no encoder for to records that it encoded, and packing records into blocks.
#pragma once

#include <ast.h>
#include <cstdint>
#include <vector>

namespace simulation {

using Octets = std::vector<uint8_t>;

// A copy of an encoded record with one item more, which it must not have yet. Throws std::invalid_argument for a
// damaged record or an item that the standard profile of the category does not list.
Octets with_item(const Octets &record, uint32_t category, ast_dataitem_type_t type, const Octets &item);

// The records in blocks of one category, in their order, as few as the limits of records and octets allow.
std::vector<Octets> pack_blocks(uint8_t category, const std::vector<Octets> &records, uint64_t most_octets);

} // namespace simulation
