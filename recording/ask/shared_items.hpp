// Data source, time and message type of a record by the items that nearly all categories share.
#pragma once

#include <ast.h>

#include "base/text_buffer.hpp"

namespace ast::recording {

// Whether a keyword is one of AST_KEYWORD_SACSIC, _TIMEOFDAY and _MSGTYPE.
constexpr bool is_shared(uint32_t keyword) { return keyword <= AST_KEYWORD_MSGTYPE; }

// Puts the value of such a keyword as the published reading of the record's items has it, and returns whether there is
// one. For categories whose records the library has no accessors for.
bool put_shared_item(TextBuffer &out, const ast_datarecord_t &record, uint32_t keyword);

} // namespace ast::recording
