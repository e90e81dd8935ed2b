// Characters: letters of ASCII, whatever the host's locale is.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ast::recording {

constexpr char to_small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char to_capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }
constexpr bool is_hexadecimal(char c) { return is_digit(c) || (to_small(c) >= 'a' && to_small(c) <= 'f'); }
constexpr bool is_letter(char c) { return to_small(c) >= 'a' && to_small(c) <= 'z'; }
constexpr bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

constexpr std::string_view without_blanks_behind(std::string_view text) {
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

constexpr std::string_view trimmed(std::string_view text) {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    return without_blanks_behind(text);
}

// Those of UTF-8, of which each octet but the first is of the form 10xxxxxx.
constexpr size_t characters(std::string_view text) {
    return static_cast<size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

// Whether they are the same but for small and capital letters.
constexpr bool is_same_word(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, to_small, to_small);
}

// Whether the text is of the pattern, in which "*" stands for any characters and "?" for one; letters of either case
// are the same.
bool is_like(std::string_view text, std::string_view pattern);

} // namespace ast::recording
