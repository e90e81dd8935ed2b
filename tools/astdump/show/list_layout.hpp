// The columns of the list: which there are, how wide they are, and lines of them.
#pragma once

#include <array>
#include <cstring>
#include <span>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

constexpr size_t kListColumns = 17;

// What a record has, by column; empty where it has nothing.
using ListValues = std::array<std::string_view, kListColumns>;

// In characters, at most 255.
using ListWidths = std::array<uint8_t, kListColumns>;

// The columns that there are, and those, a bit each, that will not join them any more.
struct ListColumns {
    ListWidths widths;
    uint32_t left_out = 0;
};

class ListLayout {
public:
    // No columns; never wider than so many characters, but for values that are wider than usual.
    explicit ListLayout(size_t limit) : limit_(limit) { prepare(); }

    // Those of the columns that fit, the most important ones first, for values as wide as these. A column of 0 has
    // none.
    void choose(const ListWidths &values);

    // Those of another one, under the limit of this one.
    void set(const ListColumns &columns);

    // 0 for a column that is not there.
    const ListWidths &widths() const { return widths_; }

    // With those that there is no room for. As columns only join and widen, there will be none later, either.
    ListColumns columns() const { return {widths_, left_out_}; }

    // Makes room for values: wider columns, and those that fit, are not left out and have not been there before.
    void grow(const ListValues &values);

    // Where a column stands in a line; one of no width is left out as long as there are no values for it.
    struct Cell {
        uint8_t column;
        uint8_t width;
        bool right_aligned;
        size_t place;
    };
    std::span<const Cell> cells() const { return {cells_.data(), cell_count_}; }

    // Lets `write` write the value of each cell, given as (text, column), into a line, with room for so many characters
    // each; it returns how many it has written. False, and no line, when one does not fit.
    template <typename Write>
    bool put(TextBuffer &out, size_t room, Write write) const {
        const auto write_line = [&](char *line) -> size_t {
            std::memset(line, ' ', total_);
            size_t end = 0;
            for (const Cell &cell : cells()) {
                char *const text = line + cell.place;
                size_t size = write(text, cell.column);
                if (size > cell.width) return 0;
                if (cell.width == 0) continue;
                if (size == 0) {
                    size = cell.right_aligned ? cell.width : 1;
                    text[size - 1] = kNoValue;
                } else if (cell.right_aligned && size < cell.width) {
                    push(text, size, cell.width);
                    size = cell.width;
                }
                end = cell.place + size;
            }
            line[end++] = '\n';
            return end;
        };
        return out.put_with(total_ + room + kBlanks.size(), write_line) != 0;
    }

    void titles(TextBuffer &out) const;
    void line(TextBuffer &out, const ListValues &values) const;

    // The values of such a line, without its end.
    ListValues read(std::string_view line) const;

private:
    bool has_room_for(size_t column) const;
    void prepare();

    // To the right end of its column, behind which there are blanks yet.
    static void push(char *text, size_t size, size_t width) {
        char value[kBlanks.size()];
        if (width > sizeof value) return push_far(text, size, width);
        std::memcpy(value, text, sizeof value);
        std::memcpy(text, kBlanks.data(), sizeof value);
        std::memcpy(text + width - size, value, sizeof value);
    }
    static void push_far(char *text, size_t size, size_t width);

    static constexpr char kNoValue = '-';
    static constexpr std::string_view kBlanks = "                ";

    size_t limit_;
    ListWidths widths_{};
    uint32_t left_out_ = 0;
    ListWidths most_{}; // characters of a value that lines hold as they are
    std::array<size_t, kListColumns> places_{};
    std::array<Cell, kListColumns> cells_{}; // that values are asked for
    size_t cell_count_ = 0;
    size_t total_ = 0; // characters of a line, with a gap behind the last column
};

// The columns of any recording, as wide as they usually are.
ListWidths usual_list_widths();

// Makes each as wide as the value, if that is wider.
void widen(ListWidths &widths, const ListValues &values);

} // namespace ast::recording::astdump
