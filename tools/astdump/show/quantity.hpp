// Quantities and numbers of published fields, with the decimals that the JSON of a record has.
#pragma once

#include "base/text_buffer.hpp"
#include <ast.h>

namespace ast::recording::astdump {

// A value that has a number. A quantity is shown with as many decimals as tell each step from the next, exactly where
// two more decimals make it exact; halves are rounded away from zero.
void put_quantity(TextBuffer &out, const ast_field_value_t &value);

} // namespace ast::recording::astdump
