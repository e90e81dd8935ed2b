// The names that conditions and columns know: quantities and published fields.
#pragma once

#include <string>
#include <string_view>

namespace ast::recording::astdump {

// Those whose path or title is of the pattern, in which "*" stands for any characters and "?" for one, or has it within
// where it has neither; all for "". As a table, a line each, or as an object of JSON each. Empty where there is none.
std::string field_list(std::string_view pattern, bool as_json);

} // namespace ast::recording::astdump
