// Values of published fields as text.
#pragma once

#include <ast.h>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

// A value that has a number, with the decimals that the JSON of a record has: two more than tell its steps apart, or
// exactly where fewer are enough; halves are rounded away from zero.
void put_quantity(TextBuffer &out, const ast_field_value_t &value);

// As in the JSON of a record, characters without the blanks at their end; codes are numbers.
void put_value(TextBuffer &out, const ast_field_value_t &value);

// A path as options take it: "I040/RHO" of "I048/040/RHO".
void put_option_path(TextBuffer &out, std::string_view path);

// Texts and units of the documents in printable ASCII: "22.5deg", "m/s2".
void put_plain(TextBuffer &out, std::string_view text);

} // namespace ast::recording::astdump
