// The pieces of HTML that all detail views are made of, on the bounded text writer.
#pragma once

#include <initializer_list>

#include "core/text.hpp"

namespace ast {

class HtmlWriter : public TextWriter {
public:
    using TextWriter::TextWriter;

    void title(const char *format, ...) AST_MEMBER_PRINTF(2, 3);
    void paragraph(const char *format, ...) AST_MEMBER_PRINTF(2, 3);

    void table_begin();
    void table_end();
    void header_row(std::initializer_list<std::string_view> cells);
    void row(std::initializer_list<std::string_view> cells);

    // A row in pieces, for cells that come one by one.
    void row_begin(bool is_header);
    void cell(bool is_header, std::string_view content);
    void row_end(bool is_header);

    void hex_table(const uint8_t *octets, uint64_t count);
    void bit_table(const uint8_t *octets, uint64_t count);

    // Nothing when the service has no link.
    void map_link(uint32_t service, double latitude, double longitude);

private:
    void open_table(std::string_view css_class);
    template <bool is_header>
    void whole_row(std::initializer_list<std::string_view> cells);
};

// A detail view's table: begins with its header row, takes data rows, and ends with its life.
class DetailTable {
public:
    template <typename... Cells>
    explicit DetailTable(HtmlWriter &html, const Cells &...cells) : html_(html) {
        html_.table_begin();
        html_.header_row({std::string_view(cells)...});
    }
    ~DetailTable() { html_.table_end(); }
    DetailTable(const DetailTable &) = delete;
    DetailTable &operator=(const DetailTable &) = delete;

    template <typename... Cells>
    void row(const Cells &...cells) {
        html_.row({std::string_view(cells)...});
    }

private:
    HtmlWriter &html_;
};

} // namespace ast
