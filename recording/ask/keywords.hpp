// The common quantities of records, under the names that the command line knows them by.
#pragma once

#include <ast.h>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

// One of AST_KEYWORD_...; nothing for an unknown name.
std::optional<uint32_t> find_keyword(std::string_view name);

// All names, "sacsic, time, ...".
std::string keyword_names();

// A record's value as text without blanks around it; empty when it has none. Good until the next call of the thread.
std::string_view keyword_text(const ast_datarecord_t &record, uint32_t keyword);

// Puts it, and returns whether there is one.
bool put_keyword(TextBuffer &out, const ast_datarecord_t &record, uint32_t keyword);

} // namespace ast::recording
