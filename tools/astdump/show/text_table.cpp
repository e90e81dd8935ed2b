#include "show/text_table.hpp"

#include <algorithm>
#include <numeric>

namespace ast::recording::astdump {

namespace {

constexpr size_t kGap = 2;

// What the columns take that are not left out, which have a width.
size_t width_of(const std::vector<size_t> &widths) {
    const size_t characters = std::accumulate(widths.begin(), widths.end(), size_t{0});
    const auto shown = widths.size() - static_cast<size_t>(std::ranges::count(widths, size_t{0}));
    return characters + (shown == 0 ? 0 : (shown - 1) * kGap);
}

} // namespace

// Of each column, 0 for those that are left out.
std::vector<size_t> TextTable::widths(size_t width) const {
    std::vector<size_t> widths(columns_.size());
    for (const auto &row : rows_)
        for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    for (size_t i = 0; i < widths.size(); ++i)
        if (widths[i] != 0) widths[i] = std::max(widths[i], columns_[i].title.size());
    while (width_of(widths) > width) {
        size_t first = 0;
        for (size_t i = 1; i < widths.size(); ++i)
            if (widths[first] == 0 || (widths[i] != 0 && columns_[i].spare > columns_[first].spare)) first = i;
        if (widths[first] == 0 || columns_[first].spare == 0) break;
        widths[first] = 0;
    }
    return widths;
}

void TextTable::put(TextBuffer &out, Style style, size_t width) const {
    const std::vector<size_t> widths = this->widths(width);
    const auto line = [&](const auto &text_of, const auto &color_of) {
        size_t room = width;
        for (size_t i = 0; i < columns_.size(); ++i) {
            if (widths[i] == 0) continue;
            const size_t gap = room == width ? 0 : kGap;
            if (room <= gap) break;
            const std::string_view text = std::string_view(text_of(i)).substr(0, room - gap);
            const size_t blanks = std::min(widths[i], room - gap) - text.size();
            const std::optional<Color> color = color_of(i);
            out.pad(gap + (columns_[i].is_right_aligned ? blanks : 0));
            if (color) out.put(style.on(*color));
            out.put(text);
            if (color) out.put(style.off());
            if (!columns_[i].is_right_aligned) out.pad(blanks);
            room -= gap + text.size() + blanks;
        }
        out.trim(0);
        out.put('\n');
    };
    line([&](size_t i) { return columns_[i].title; }, [](size_t) { return std::optional(Color::heading); });
    for (const auto &row : rows_)
        line([&](size_t i) -> std::string_view { return row[i]; }, [&](size_t i) { return columns_[i].color; });
}

} // namespace ast::recording::astdump
