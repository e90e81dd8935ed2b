#include "detail.hpp"

#include <algorithm>
#include <utility>

namespace astdump {

namespace {

constexpr size_t kIndent = 14; // below the names of the items
constexpr size_t kIndentStep = 2;
constexpr size_t kGapChars = 2;

// Subfields without a view of their own have a title alone; the table of subfields names them, too.
void drop_lone_titles(std::vector<ViewPart> &parts) {
    const auto is_title = [](const ViewPart &part) { return part.kind == ViewPart::Kind::title; };
    for (size_t i = parts.size(); i-- > 0;)
        if (is_title(parts[i]) && (i + 1 == parts.size() || is_title(parts[i + 1])))
            parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(i));
}

// Subfields that are absent have no value, and rows without cells nothing at all.
void drop_empty_rows(ViewPart &table) {
    const auto existing = std::ranges::find(table.header, "Existing") - table.header.begin();
    std::erase_if(table.rows, [&](const ViewPart::Row &row) {
        return row.empty() || (existing < std::ssize(row) && row[static_cast<size_t>(existing)] == "0");
    });
}

void blank_missing_summaries(ViewPart &table) {
    for (ViewPart::Row &row : table.rows) std::ranges::replace(row, kNoSummary, "");
}

std::vector<size_t> column_widths(const ViewPart &table, bool headed) {
    std::vector<size_t> widths;
    const auto widen = [&](const ViewPart::Row &row) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    };
    if (headed) widen(table.header);
    for (const ViewPart::Row &row : table.rows) widen(row);
    return widths;
}

std::string row_text(const ViewPart::Row &row, const std::vector<size_t> &widths) {
    std::string line;
    for (size_t i = 0; i < row.size(); ++i) {
        line += row[i];
        line.append(widths[i] - row[i].size() + kGapChars, ' ');
    }
    line.resize(line.find_last_not_of(' ') + 1);
    return line;
}

} // namespace

void Detail::item(TextBuffer &out, const ast_dataitem_t &item) {
    below_title_ = false;
    std::vector<ViewPart> parts = read_view(views_.show(ast_dataitem_get_detail_html, item));
    drop_lone_titles(parts);
    for (ViewPart &part : parts) {
        switch (part.kind) {
        case ViewPart::Kind::title:
            title(out, part.text);
            break;
        case ViewPart::Kind::paragraph:
            line(out, part.text);
            break;
        case ViewPart::Kind::table:
            table(out, std::move(part));
            break;
        }
    }
}

void Detail::title(TextBuffer &out, const std::string &text) {
    below_title_ = false;
    line(out, style_.on(Color::heading) + text + style_.off());
    below_title_ = true;
}

// Columns of ranges, items and values explain themselves.
void Detail::table(TextBuffer &out, ViewPart table) const {
    drop_empty_rows(table);
    blank_missing_summaries(table);
    const bool headed = !table.header.empty() && table.header.back() != "Value" && !table.rows.empty();
    const std::vector<size_t> widths = column_widths(table, headed);
    if (headed) line(out, style_.on(Color::dim) + row_text(table.header, widths) + style_.off());
    for (const ViewPart::Row &row : table.rows) line(out, row_text(row, widths));
}

void Detail::line(TextBuffer &out, std::string_view text) const {
    out.pad(below_title_ ? kIndent + kIndentStep : kIndent);
    out.put(text);
    out.put('\n');
}

} // namespace astdump
