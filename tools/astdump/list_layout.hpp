// The columns of the list: which there are, how wide they are, and lines of them.
#pragma once

#include <array>
#include <string_view>

#include "text_buffer.hpp"

namespace astdump {

constexpr size_t kListColumns = 16;

// What a record has, by column; empty where it has nothing.
using ListValues = std::array<std::string_view, kListColumns>;

// In characters, at most 255.
using ListWidths = std::array<uint8_t, kListColumns>;

class ListLayout {
public:
    // No columns; never wider than so many characters, but for values that are wider than usual.
    explicit ListLayout(size_t limit) : limit_(limit) { prepare(); }

    // Those of the columns that fit, the most important ones first, for values as wide as these. A column of 0 has none.
    void choose(const ListWidths &values);

    // Those of another one, under the limit of this one.
    void set(const ListWidths &widths);

    // 0 for a column that is left out.
    const ListWidths &widths() const { return widths_; }

    // Makes room for values: wider columns, and those that fit and have not been there before. Returns whether there
    // was none.
    bool grow(const ListValues &values);

    void titles(TextBuffer &out) const;
    void line(TextBuffer &out, const ListValues &values) const;

    // The values of such a line, without its end.
    ListValues read(std::string_view line) const;

private:
    bool has_room_for(size_t column) const;
    void prepare();
    void put(TextBuffer &out, const ListValues &values) const;

    size_t limit_;
    ListWidths widths_{};
    ListWidths most_{}; // characters of a value that lines hold as they are
    std::array<size_t, kListColumns> places_{};
    size_t total_ = 0; // characters of a line, with a gap behind the last column
};

// All columns, as wide as they usually are.
ListWidths usual_list_widths();

// Makes each as wide as the value, if that is wider.
void widen(ListWidths &widths, const ListValues &values);

} // namespace astdump
