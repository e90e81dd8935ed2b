// A report as it is shown, whatever it is written as: sections with figures, tables and charts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ast::recording::astdump {

// Empty where there is none.
struct Cell {
    std::string text{};
    bool is_number = false;
};

// Of so many decimals; a number that is none is left out.
Cell number_cell(double value, unsigned decimals);
Cell count_cell(uint64_t count);
Cell text_cell(std::string_view text);

struct Figure {
    std::string_view key; // in JSON, with its unit
    std::string_view title;
    std::string_view unit;
    Cell value;
};

struct Column {
    std::string_view key;
    std::string_view title;
};

struct Table {
    std::string_view key;
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows;
};

// Bars of equal width.
struct Chart {
    std::string_view key; // empty for what tables have, too
    std::string title;    // with what it is drawn over
    std::vector<double> values;
    double highest = 0; // the top of the chart
};

struct Section {
    std::string_view key;
    std::string_view title;
    std::vector<Figure> figures{};
    std::vector<Chart> charts{};
    std::vector<Table> tables{};
};

struct SourceReport {
    std::string source; // "025/012", empty where it is not sent
    std::string family; // "radar"
    std::vector<Section> sections;
};

} // namespace ast::recording::astdump
