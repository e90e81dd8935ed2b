// Blocks whose records choose their profiles one by one.
#pragma once

#include "codec/category.hpp"

namespace ast {

constexpr uint64_t kMaxBlockOctets = 65535;

// Decodes a block of a category each of whose records may have a profile of its own.
void decode_mixed(ast_datablock_t &block, const uint8_t *data, uint64_t available, const Category &category);

} // namespace ast
