// How long the items are that a reader reads.
#pragma once

#include "codec/category.hpp"

namespace ast::reader {

// The size of an item as registered where that holds and the document does not disagree, else as published. 0 when the
// octets do not hold all of it.
uint64_t size_item(const ItemRow &row, ast_dataitem_type_t type, const ast_uap_t &uap, const uint8_t *data,
                   uint64_t left);

} // namespace ast::reader
