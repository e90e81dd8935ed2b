// Characters in UTF-8.
#pragma once

#include <cstdint>

#include "schema/slice.hpp"

namespace ast::schema {

// The octets of the character at the front of a text; 0 for what is none, is longer than it need be, or ends too early.
constexpr size_t utf8_octets(Slice text) {
    const auto octet = [&](size_t i) { return i < text.size() ? static_cast<uint8_t>(text[i]) : uint8_t{0}; };
    const uint8_t first = octet(0);
    if (first < 0x80) return 1;
    const size_t octets = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4) return 0;
    for (size_t i = 1; i < octets; ++i)
        if ((octet(i) & 0xC0) != 0x80) return 0;
    const bool is_overlong = (first == 0xE0 && octet(1) < 0xA0) || (first == 0xF0 && octet(1) < 0x90);
    const bool is_no_character = (first == 0xED && octet(1) >= 0xA0) || (first == 0xF4 && octet(1) >= 0x90);
    return is_overlong || is_no_character ? 0 : octets;
}

} // namespace ast::schema
