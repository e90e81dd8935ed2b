#include "show/list_layout.hpp"

#include <algorithm>

namespace ast::recording::astdump {

namespace {

constexpr size_t kGap = 2;
constexpr uint8_t kAnyWidth = UINT8_MAX;

struct Column {
    std::string_view title;
    uint8_t width; // usually
    bool right_aligned = false;
};

constexpr std::array<Column, kListColumns> kColumns = {{
    {"Time", 12},
    {"SAC/SIC", 7},
    {"Cat", 3},
    {"Octets", 6, true},
    {"Type", 6},
    {"Track", 5, true},
    {"Squawk", 6},
    {"Callsign", 8},
    {"ICAO", 6},
    {"Height ft", 9, true},
    {"Selected ft", 11, true},
    {"Position", 21},
    {"Speed kt", 8, true},
    {"Heading", 17},
    {"ft/min", 8, true},
    {"Velocity m/s", 12},
    {"File", 0}, // where several are merged
}};

// The most important first: when, what, who and where fit into 80 characters.
constexpr std::array<uint8_t, kListColumns> kByImportance = {0, 2, 5, 6, 7, 9, 11, 1, 8, 4, 12, 13, 14, 10, 3, 15, 16};

// Without the blanks that fill a cell; a value may begin with one of its own.
std::string_view value_in(std::string_view cell, bool is_right_aligned) {
    const size_t first = cell.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    if (is_right_aligned) cell.remove_prefix(first);
    return cell.substr(0, cell.find_last_not_of(' ') + 1);
}

} // namespace

ListWidths usual_list_widths() {
    ListWidths widths;
    std::ranges::transform(kColumns, widths.begin(), &Column::width);
    return widths;
}

void widen(ListWidths &widths, const ListValues &values) {
    for (size_t i = 0; i < kListColumns; ++i)
        widths[i] = std::max(widths[i], static_cast<uint8_t>(std::min<size_t>(values[i].size(), kAnyWidth)));
}

void ListLayout::choose(const ListWidths &values) {
    set({});
    for (const uint8_t i : kByImportance) {
        if (values[i] == 0 || !has_room_for(i)) continue;
        widths_[i] = std::max(values[i], kColumns[i].width);
        prepare();
    }
}

void ListLayout::set(const ListColumns &columns) {
    widths_ = columns.widths;
    left_out_ = columns.left_out;
    prepare();
}

bool ListLayout::has_room_for(size_t column) const { return total_ + kColumns[column].width <= limit_; }

void ListLayout::prepare() {
    total_ = 0;
    for (size_t i = 0; i < kListColumns; ++i) {
        places_[i] = total_;
        if (widths_[i] != 0) total_ += widths_[i] + kGap;
    }
    cell_count_ = 0;
    for (uint8_t i = 0; i < kListColumns; ++i) {
        if (widths_[i] == 0 && !has_room_for(i)) left_out_ |= UINT32_C(1) << i;
        const bool is_left_out = (left_out_ >> i & 1) != 0;
        most_[i] = is_left_out ? kAnyWidth : widths_[i];
        if (!is_left_out) cells_[cell_count_++] = {i, widths_[i], kColumns[i].right_aligned, places_[i]};
    }
}

void ListLayout::grow(const ListValues &values) {
    for (size_t i = 0; i < kListColumns; ++i) {
        if (values[i].size() <= most_[i]) continue;
        const size_t least = widths_[i] != 0 ? widths_[i] : kColumns[i].width;
        widths_[i] = static_cast<uint8_t>(std::clamp<size_t>(values[i].size(), least, kAnyWidth));
        prepare();
    }
}

void ListLayout::titles(TextBuffer &out) const {
    ListValues titles;
    std::ranges::transform(kColumns, titles.begin(), &Column::title);
    line(out, titles);
}

void ListLayout::line(TextBuffer &out, const ListValues &values) const {
    put(out, 0, [&](char *text, size_t column) { return values[column].copy(text, widths_[column]); });
}

void ListLayout::push_far(char *text, size_t size, size_t width) {
    std::memmove(text + width - size, text, size);
    std::memset(text, ' ', width - size);
}

ListValues ListLayout::read(std::string_view line) const {
    ListValues values;
    for (size_t i = 0; i < kListColumns; ++i) {
        if (widths_[i] == 0 || places_[i] >= line.size()) continue;
        values[i] = value_in(line.substr(places_[i], widths_[i]), kColumns[i].right_aligned);
        if (values[i] == std::string_view(&kNoValue, 1)) values[i] = {};
    }
    return values;
}

} // namespace ast::recording::astdump
