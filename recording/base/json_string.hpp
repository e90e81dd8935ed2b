// Strings of JSON.
#pragma once

#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

// Of printable text, in its quotes.
inline void put_json_string(TextBuffer &out, std::string_view text) {
    out.put('"');
    for (const char c : text) {
        if (c == '"' || c == '\\') out.put('\\');
        out.put(c);
    }
    out.put('"');
}

} // namespace ast::recording
