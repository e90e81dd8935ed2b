// Words: what a blank or the end of a text ends.
#pragma once

namespace ast {

// Blank and NUL differ in one bit only.
constexpr bool ends_word(char character) { return (character & 0xDF) == 0; }

} // namespace ast
