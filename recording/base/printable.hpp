// What may be shown of what has been recorded.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

// Items carry whatever octets were recorded as characters: all but printable ASCII becomes a dot, so that nothing
// reaches a terminal or a browser that acts on it.
std::string printable(std::string_view text);
void make_printable(std::span<char> text);
void put_printable(TextBuffer &out, std::string_view text);

// Names of files and what messages quote may hold any character of UTF-8; those that a terminal acts on or does not
// show, and octets that are no character, become dots.
std::string readable(std::string_view text);

// Whether octets are more likely text than anything else: printable ASCII and white space, with few other characters.
bool is_text(std::span<const uint8_t> octets);

} // namespace ast::recording
