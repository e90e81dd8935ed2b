// Numbers that users write.
#pragma once

#include <cctype>
#include <charconv>
#include <locale>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace ast::recording {

// Nothing unless all of the text is one decimal number that the type can hold.
template <typename Number>
std::optional<Number> read_number(std::string_view text) {
    Number number{};
#ifndef __cpp_lib_to_chars // of the standard library, which then reads none with a point
    if constexpr (std::is_floating_point_v<Number>) {
        std::istringstream stream{std::string(text)};
        stream.imbue(std::locale::classic());
        const bool begins = !text.empty() && text[0] != '+' && !std::isspace(static_cast<unsigned char>(text[0]));
        if (!begins || !(stream >> number) || stream.peek() != std::istringstream::traits_type::eof())
            return std::nullopt;
        return number;
    } else
#endif
    {
        const char *const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number);
        if (error != std::errc() || stop != end) return std::nullopt;
        return number;
    }
}

} // namespace ast::recording
