// Values of published fields as text.
#pragma once

#include "base/text_buffer.hpp"
#include <ast.h>

namespace ast::recording::astdump {

// As in the JSON of a record, characters without the blanks at their end; codes are numbers.
void put_value(TextBuffer &out, const ast_field_value_t &value);

// Texts and units of the documents in printable ASCII: "22.5deg", "m/s2".
void put_plain(TextBuffer &out, std::string_view text);

} // namespace ast::recording::astdump
