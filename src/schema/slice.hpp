// Pieces of texts. std::string_view::substr() would bring exceptions along, and with them the heap.
#pragma once

#include <string_view>

namespace ast::schema {

using Slice = std::string_view;

// What of so many characters from a place on is there.
constexpr Slice slice(Slice text, size_t from, size_t count = Slice::npos) {
    if (from >= text.size()) return {};
    const size_t left = text.size() - from;
    return {text.data() + from, count < left ? count : left};
}

} // namespace ast::schema
