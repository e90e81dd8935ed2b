// HTML from what may hold anything.
#pragma once

#include <string>
#include <string_view>

namespace ast::recording::astdump {

// A text as HTML shows it.
std::string escape(std::string_view text);

} // namespace ast::recording::astdump
