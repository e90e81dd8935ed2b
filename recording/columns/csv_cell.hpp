// Cells of comma-separated values, quoted as RFC 4180 describes, that no spreadsheet takes for a formula.
#pragma once

#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

// Makes a cell of the text that stands from `begin` on.
void finish_cell(TextBuffer &out, size_t begin);

void put_cell(TextBuffer &out, std::string_view text);

// In quotes, whatever it is.
void put_quoted_cell(TextBuffer &out, std::string_view text);

} // namespace ast::recording
