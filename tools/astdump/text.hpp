// Small texts that several outputs share.
#pragma once

#include <string>
#include <string_view>

#include "datagram.hpp"

namespace astdump {

// "1 block", "2 blocks".
std::string counted(uint64_t count, const char *noun);

// "2024-05-06 07:08:09.000012", in UTC.
std::string time_text(const Time &time);

// "10.0.0.1:4000", "[2001:db8::1]:4000".
std::string endpoint_text(const Endpoint &endpoint);

// Texts of more than `width` characters end in "...".
std::string cut(std::string text, size_t width);

// Items carry whatever octets were recorded as characters: all but printable ASCII becomes a dot, so that nothing
// reaches a terminal or a browser that acts on it.
std::string printable(std::string_view text);

} // namespace astdump
