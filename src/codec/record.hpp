// Decoding a record in place.
#pragma once

#include "ast.h"

namespace ast {

// Decodes into a record that is all zero. One that does not come out valid has to be cleared before it is used again.
void decode_record(ast_datarecord_t &record, const uint8_t *data, uint64_t available, uint32_t category,
                   const ast_uap_t &uap);

} // namespace ast
