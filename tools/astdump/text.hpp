// Small texts that several outputs share.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "text_buffer.hpp"

namespace astdump {

// "1 block", "2 blocks".
std::string counted(uint64_t count, const char *noun);

// "2024-05-06 07:08:09.000012", in UTC.
void put_time(TextBuffer &out, const Time &time);

// "10.0.0.1:4000", "[2001:db8::1]:4000".
void put_endpoint(TextBuffer &out, const Endpoint &endpoint);

// "10.0.0.1:4000 > 239.1.1.1:8600", "[2001:db8::1]:4000 > [ff02::1]:8600".
void put_route(TextBuffer &out, const Endpoints &endpoints);
std::string route_text(const Endpoints &endpoints);

// Texts of more than `width` characters end in "...".
std::string cut(std::string text, size_t width);

// "1 block", as above.
void put_counted(TextBuffer &out, uint64_t count, std::string_view noun);

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

} // namespace astdump
