// Numbers that users write.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace ast::recording {

// Nothing unless all of the text is one decimal number that the type can hold.
template <typename Number>
std::optional<Number> read_number(std::string_view text) {
    Number number{};
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

} // namespace ast::recording
