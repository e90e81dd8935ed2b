// The library's views as whole texts, however long.
#pragma once

#include <string>
#include <string_view>

#include <ast.h>

namespace ast::recording::astdump {

// What the library writes as the summary of an item or subfield that it has none for.
constexpr std::string_view kNoSummary = "NOT_IMPLEMENTED";

class Views {
public:
    // What a view of the library writes of a thing; good until the next call. Views cut their text at the capacity, so
    // one that fills it is asked again with more.
    template <typename View, typename Thing>
    std::string_view show(View view, const Thing &thing) {
        for (;; buffer_.resize(2 * buffer_.size())) {
            view(buffer_.data(), buffer_.size(), &thing);
            const std::string_view text = buffer_.c_str();
            if (text.size() + 1 < buffer_.size()) return text;
        }
    }

    // The summary of an item; empty where the library has none. Good until the next call, and not made printable yet.
    std::string_view summary(const ast_dataitem_t &item);

private:
    std::string buffer_ = std::string(4096, '\0');
};

} // namespace ast::recording::astdump
