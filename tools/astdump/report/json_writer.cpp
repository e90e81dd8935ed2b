#include "base/json_string.hpp"
#include "report/writers.hpp"

namespace ast::recording::astdump {

namespace {

void put_value(TextBuffer &out, const Cell &cell) {
    if (cell.text.empty())
        out.put("null");
    else if (cell.is_number)
        out.put(cell.text);
    else
        put_json_string(out, cell.text);
}

// The name of a member, behind a comma unless it is the first.
void put_name(TextBuffer &out, std::string_view name) {
    if (!out.text().ends_with('{')) out.put(',');
    put_json_string(out, name);
    out.put(':');
}

void put_table(TextBuffer &out, const Table &table) {
    put_name(out, table.key);
    out.put('[');
    for (const auto &row : table.rows) {
        if (&row != &table.rows.front()) out.put(',');
        out.put('{');
        for (size_t i = 0; i < row.size(); ++i) {
            put_name(out, table.columns[i].key);
            put_value(out, row[i]);
        }
        out.put('}');
    }
    out.put(']');
}

void put_chart(TextBuffer &out, const Chart &chart) {
    if (chart.key.empty()) return;
    put_name(out, chart.key);
    out.put('[');
    for (const double &value : chart.values) {
        if (&value != &chart.values.front()) out.put(',');
        out.put(number_cell(value, 0).text);
    }
    out.put(']');
}

} // namespace

void put_json(TextBuffer &out, const SourceReport &report) {
    out.put('{');
    put_name(out, "source");
    put_value(out, {report.source, false});
    put_name(out, "family");
    put_value(out, {report.family, false});
    for (const Section &section : report.sections) {
        put_name(out, section.key);
        out.put('{');
        for (const Figure &figure : section.figures) {
            put_name(out, figure.key);
            put_value(out, figure.value);
        }
        for (const Chart &chart : section.charts) put_chart(out, chart);
        for (const Table &table : section.tables) put_table(out, table);
        out.put('}');
    }
    out.put("}\n");
}

} // namespace ast::recording::astdump
