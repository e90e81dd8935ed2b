#include <algorithm>
#include <cmath>
#include <iterator>

#include "report/writers.hpp"
#include "show/text_table.hpp"

namespace ast::recording::astdump {

namespace {

constexpr size_t kIndent = 4;

// What is not there has no bar; the least that is there has the lowest.
void put_bars(TextBuffer &out, const Chart &chart) {
    static constexpr std::string_view kBars[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
    constexpr auto kHighest = static_cast<double>(std::size(kBars));
    for (const double value : chart.values) {
        const double height = chart.highest > 0 ? value / chart.highest * kHighest : 0;
        const auto bar = static_cast<size_t>(std::clamp(std::ceil(height), 0.0, kHighest));
        out.put(bar == 0 ? " " : kBars[bar - 1]);
    }
}

void put_chart(TextBuffer &out, const Chart &chart) {
    out.pad(kIndent);
    out.put(chart.title);
    out.put(", to ");
    out.put(number_cell(chart.highest, 0).text);
    out.put('\n');
    out.pad(kIndent);
    put_bars(out, chart);
    out.put('\n');
}

// "records 12, first 12:00:00.000, ..."
void put_figures(TextBuffer &out, const std::vector<Figure> &figures, size_t width) {
    size_t used = 0;
    for (const Figure &figure : figures) {
        std::string text = std::string(figure.title) + ' ' + (figure.value.text.empty() ? "-" : figure.value.text);
        if (!figure.unit.empty()) text += ' ' + std::string(figure.unit);
        if (&figure != &figures.back()) text += ',';
        const bool goes_on = used != 0 && used + 1 + text.size() <= width;
        if (used != 0 && !goes_on) out.put('\n');
        out.pad(goes_on ? 1 : kIndent);
        out.put(text);
        used = (goes_on ? used + 1 : kIndent) + text.size();
    }
    if (used != 0) out.put('\n');
}

void put_table(TextBuffer &out, const Table &table, Style style, size_t width) {
    std::vector<TextTable::Column> columns;
    for (size_t i = 0; i < table.columns.size(); ++i) {
        const bool is_number = std::ranges::any_of(table.rows, [&](const auto &row) { return row[i].is_number; });
        columns.push_back({.title = table.columns[i].title, .is_right_aligned = is_number});
    }
    TextTable shown(columns);
    for (const auto &row : table.rows) {
        std::vector<std::string> cells;
        for (const Cell &cell : row) cells.push_back(cell.text);
        shown.row(std::move(cells));
    }
    TextBuffer lines;
    shown.put(lines, style, width - kIndent);
    for (std::string_view left = lines.text(); !left.empty();) {
        const size_t end = left.find('\n') + 1;
        out.pad(kIndent);
        out.put(left.substr(0, end));
        left.remove_prefix(end);
    }
}

void put_heading(TextBuffer &out, std::string_view text, Style style) {
    out.put(style.on(Color::heading));
    out.put(text);
    out.put(style.off());
    out.put('\n');
}

} // namespace

void put_text(TextBuffer &out, const SourceReport &report, Style style, size_t width) {
    put_heading(out, (report.source.empty() ? "" : report.source + ' ') + report.family, style);
    for (const Section &section : report.sections) {
        out.put("  ");
        put_heading(out, section.title, style);
        put_figures(out, section.figures, width);
        for (const Chart &chart : section.charts) put_chart(out, chart);
        for (const Table &table : section.tables) put_table(out, table, style, width);
    }
}

} // namespace ast::recording::astdump
