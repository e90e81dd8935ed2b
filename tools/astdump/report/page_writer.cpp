#include <algorithm>

#include "report/writers.hpp"
#include "show/markup.hpp"

namespace ast::recording::astdump {

namespace {

// The policy lets nothing be loaded and no script run.
constexpr std::string_view kHead = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="referrer" content="no-referrer">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<title>Surveillance report</title>
<style>
:root { color-scheme: light dark; --text: #1c2430; --muted: #667085; --page: #f4f6f9; --card: #fff; --line: #dfe3e8;
    --bar: #175cd3; }
@media (prefers-color-scheme: dark) {
    :root { --text: #e4e8ee; --muted: #98a2b3; --page: #0f1319; --card: #181d25; --line: #2b3440; --bar: #84adff; }
}
body { max-width: 1000px; margin: 0 auto; padding: 20px; background: var(--page); color: var(--text);
    font: 14px/1.5 system-ui, sans-serif; }
h1 { font-size: 20px; }
h2 { font-size: 17px; margin: 28px 0 8px; }
h3 { font-size: 14px; margin: 0 0 8px; }
section { background: var(--card); border: 1px solid var(--line); border-radius: 8px; padding: 12px 16px;
    margin: 0 0 12px; overflow-x: auto; }
dl { display: flex; flex-wrap: wrap; gap: 8px 28px; margin: 0 0 8px; }
dt { color: var(--muted); font-size: 12px; }
dd { margin: 0; font-weight: 600; font-variant-numeric: tabular-nums; }
table { border-collapse: collapse; margin: 8px 0; }
th, td { padding: 2px 16px 2px 0; text-align: left; border-bottom: 1px solid var(--line); }
th { color: var(--muted); font-weight: normal; }
.n { text-align: right; font-variant-numeric: tabular-nums; }
figure { margin: 8px 0; }
figcaption { color: var(--muted); font-size: 12px; }
svg { display: block; width: 100%; max-width: 640px; height: 64px; fill: var(--bar);
    border-bottom: 1px solid var(--line); }
</style>
</head>
<body>
<h1>Surveillance report</h1>
)html";

void put_figures(TextBuffer &out, const std::vector<Figure> &figures) {
    if (figures.empty()) return;
    out.put("<dl>\n");
    for (const Figure &figure : figures) {
        out.put("<div><dt>" + escape(figure.title) + "</dt><dd>");
        out.put(figure.value.text.empty() ? "-" : escape(figure.value.text));
        if (!figure.unit.empty()) out.put(' ' + escape(figure.unit));
        out.put("</dd></div>\n");
    }
    out.put("</dl>\n");
}

// In a frame of 100 units of height, and of ten for each bar.
void put_chart(TextBuffer &out, const Chart &chart) {
    constexpr size_t kWidth = 10;
    constexpr double kHeight = 100;
    const std::string title = escape(chart.title) + ", to " + number_cell(chart.highest, 0).text;
    out.put("<figure><figcaption>" + title + "</figcaption>\n<svg viewBox=\"0 0 " +
            std::to_string(chart.values.size() * kWidth) +
            " 100\" preserveAspectRatio=\"none\" role=\"img\" "
            "aria-label=\"" +
            title + "\">");
    for (size_t i = 0; i < chart.values.size(); ++i) {
        const double height = chart.highest > 0 ? std::min(1.0, chart.values[i] / chart.highest) * kHeight : 0;
        if (!(height > 0)) continue;
        out.put("<rect x=\"" + std::to_string(i * kWidth + 1) + "\" y=\"" + number_cell(kHeight - height, 1).text +
                "\" width=\"8\" height=\"" + number_cell(height, 1).text + "\"><title>" +
                number_cell(chart.values[i], 2).text + "</title></rect>");
    }
    out.put("</svg></figure>\n");
}

void put_table(TextBuffer &out, const Table &table) {
    if (table.rows.empty()) return;
    const auto cell = [&](std::string_view tag, std::string_view text, bool is_number) {
        out.put('<');
        out.put(tag);
        out.put(is_number ? " class=\"n\">" : ">");
        out.put(escape(text));
        out.put("</");
        out.put(tag.substr(0, tag.find(' ')));
        out.put('>');
    };
    out.put("<table>\n<tr>");
    for (size_t i = 0; i < table.columns.size(); ++i)
        cell("th scope=\"col\"", table.columns[i].title, table.rows.front()[i].is_number);
    for (const auto &row : table.rows) {
        out.put("</tr>\n<tr>");
        for (const Cell &each : row) cell("td", each.text, each.is_number);
    }
    out.put("</tr>\n</table>\n");
}

} // namespace

void put_page(TextBuffer &out, std::span<const SourceReport> reports, std::span<const std::string> files) {
    out.put(kHead);
    for (const std::string &file : files) out.put("<p>" + escape(file) + "</p>\n");
    for (const SourceReport &report : reports) {
        out.put("<h2>" + escape((report.source.empty() ? "" : report.source + ' ') + report.family) + "</h2>\n");
        for (const Section &section : report.sections) {
            out.put("<section>\n<h3>" + escape(section.title) + "</h3>\n");
            put_figures(out, section.figures);
            for (const Chart &chart : section.charts) put_chart(out, chart);
            for (const Table &table : section.tables) put_table(out, table);
            out.put("</section>\n");
        }
    }
    out.put("</body></html>\n");
}

} // namespace ast::recording::astdump
