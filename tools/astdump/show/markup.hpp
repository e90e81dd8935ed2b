// HTML from what may hold anything.
#pragma once

#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

// A text as HTML shows it.
std::string escape(std::string_view text);

// A text of a view of the library as HTML shows it: printable, and nothing for a summary that the library has not.
void put_shown(TextBuffer &out, std::string_view text);

} // namespace ast::recording::astdump
