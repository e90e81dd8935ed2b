// HTML from what may hold anything.
#pragma once

#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

// A text as HTML shows it.
std::string escape(std::string_view text);

// The markup at the start of a view of the library, if it is some that the library writes, to the letter; empty before
// anything else. What items carried as characters the library writes without escaping, so that all else is text.
std::string_view markup_at(std::string_view html);

// A text of a view of the library as HTML shows it: printable, and nothing for a summary that the library has not.
void put_shown(TextBuffer &out, std::string_view text);

// The same for what may hold markup of the library.
void put_shown_markup(TextBuffer &out, std::string_view html);

} // namespace ast::recording::astdump
