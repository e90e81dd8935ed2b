// Texts in columns that are as wide as they need.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_buffer.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

class TextTable {
public:
    struct Column {
        std::string_view title;
        bool is_right_aligned = false;
        unsigned spare = 0;              // where room is scarce, the columns with the highest go first; 0 stays
        std::optional<Color> color = {}; // of its cells
    };
    explicit TextTable(std::span<const Column> columns) : columns_(columns) {}

    // As many cells as there are columns.
    void row(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    // Lines of no more than `width` characters. Columns that hold nothing are left out.
    void put(TextBuffer &out, Style style, size_t width) const;

private:
    std::vector<size_t> widths(size_t width) const;

    std::span<const Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

} // namespace ast::recording::astdump
