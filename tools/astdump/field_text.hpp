// Values of published fields as text.
#pragma once

#include "ast.h"
#include "text_buffer.hpp"

namespace astdump {

// As in the JSON of a record, characters without the blanks at their end; codes are numbers.
void put_value(TextBuffer &out, const ast_field_value_t &value);

// Texts and units of the documents in printable ASCII: "22.5deg", "m/s2".
void put_plain(TextBuffer &out, std::string_view text);

} // namespace astdump
