#include "view/html.hpp"

#include <atomic>

namespace {

using namespace ast;

constexpr uint32_t kBordered = 1;

std::atomic<uint32_t> flavor{0};

// Whether the next data row is an even one. A table that is cut short leaves its parity to the next one, which clears
// it.
thread_local bool next_row_is_even = false;

void append_hex(TextWriter &out, uint8_t octet) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    const char text[] = {kDigits[octet >> 4], kDigits[octet & 0x0F]};
    out.append({text, sizeof text});
}

// A cell for each of the eight bits.
void append_bit_cells(TextWriter &out, std::string_view bits) {
    constexpr std::string_view kCell = "<td>0</td>";
    constexpr size_t kBitPlace = 4;
    char cells[kCell.size() * BinaryOctet::kChars];
    for (size_t i = 0; i < BinaryOctet::kChars; ++i) {
        char *const cell = cells + i * kCell.size();
        std::memcpy(cell, kCell.data(), kCell.size());
        cell[kBitPlace] = bits[i];
    }
    out.append({cells, sizeof cells});
}

} // namespace

namespace ast {

void HtmlWriter::title(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    append("<h4>");
    print_list(format, arguments);
    append("</h4>");
    va_end(arguments);
}

void HtmlWriter::paragraph(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    append("<p>");
    print_list(format, arguments);
    append("</p>");
    va_end(arguments);
}

void HtmlWriter::open_table(std::string_view css_class) {
    append("<table class=\"");
    append(css_class);
    append(flavor.load(std::memory_order_relaxed) == kBordered ? "\" border=\"1\" cellspacing=\"0\">" : "\">");
}

void HtmlWriter::table_begin() {
    open_table("detail_table");
    next_row_is_even = false;
}

void HtmlWriter::table_end() { append("</table><br/>"); }

void HtmlWriter::header_row(std::initializer_list<std::string_view> cells) {
    row_begin(true);
    for (const std::string_view content : cells) cell(true, content);
    row_end(true);
}

void HtmlWriter::row(std::initializer_list<std::string_view> cells) {
    row_begin(false);
    for (const std::string_view content : cells) cell(false, content);
    row_end(false);
}

void HtmlWriter::row_begin(bool is_header) {
    if (is_header) next_row_is_even = false;
    append(next_row_is_even ? "<tr class=\"even_row\">" : "<tr>");
}

void HtmlWriter::cell(bool is_header, std::string_view content) {
    if (is_header) {
        append("<th>");
        append(content);
        append("</th>");
    } else {
        append("<td>");
        append(content);
        append("</td>");
    }
}

void HtmlWriter::row_end(bool is_header) {
    append("</tr>");
    if (!is_header) next_row_is_even = !next_row_is_even;
}

void HtmlWriter::hex_table(const uint8_t *octets, uint64_t count) {
    constexpr uint64_t kOctetsPerRow = 16;
    if (!octets || count == 0) return;
    open_table("hex_table");
    append("<tr><th colspan=8 align=\"left\">Octet 1</th><th colspan=8 align=\"right\">Octet 16</th></tr>");
    for (uint64_t row = 0; row < count; row += kOctetsPerRow) {
        append("<tr>");
        for (uint64_t i = row; i < row + kOctetsPerRow; ++i) {
            append("<td>");
            if (i < count)
                append_hex(*this, octets[i]);
            else
                append("--");
            append("</td>");
        }
        append("</tr>");
    }
    append("</table>");
}

void HtmlWriter::bit_table(const uint8_t *octets, uint64_t count) {
    constexpr uint64_t kOctetsPerRow = 4;
    if (!octets || count == 0) return;
    open_table("bin_table");
    for (uint64_t row = 0; row < count; row += kOctetsPerRow) {
        append("<tr class=\"caption_row\">");
        for (uint64_t i = row; i < row + kOctetsPerRow; ++i) {
            append("<th colspan=8>Octet ");
            append_digits(static_cast<uint32_t>(i + 1), 1);
            append(" - ");
            if (i < count)
                append_hex(*this, octets[i]);
            else
                append("--");
            append("</th>");
        }
        append("</tr><tr class=\"data_row\">");
        for (uint64_t i = row; i < row + kOctetsPerRow; ++i)
            append_bit_cells(*this, i < count ? std::string_view(BinaryOctet(octets[i])) : "--------");
        append("</tr>");
    }
    append("</table>");
}

void HtmlWriter::map_link(uint32_t service, double latitude, double longitude) {
    char url[512];
    if (ast_map_get_link_url(url, sizeof url, service, latitude, longitude))
        print("<a href=\"%s\">%s</a>", url, ast_map_get_service_name(service));
}

} // namespace ast

// The writer under its exported names.

namespace {

AST_MEMBER_PRINTF(4, 0)
void write_element(char *text, uint64_t capacity, std::string_view tag, const char *format, va_list arguments) {
    HtmlWriter html(text, capacity);
    for (const std::string_view piece : {std::string_view("<"), tag, std::string_view(">")}) html.append(piece);
    html.print_foreign(format, arguments);
    for (const std::string_view piece : {std::string_view("</"), tag, std::string_view(">")}) html.append(piece);
}

} // namespace

void ast_html_set_flavor(uint32_t value) { flavor.store(value, std::memory_order_relaxed); }

void ast_html_gen_title_h4(char *text, uint64_t capacity, const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    write_element(text, capacity, "h4", format, arguments);
    va_end(arguments);
}

void ast_html_gen_para(char *text, uint64_t capacity, const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    write_element(text, capacity, "p", format, arguments);
    va_end(arguments);
}

void ast_html_gen_table_begin(char *text, uint64_t capacity) { HtmlWriter(text, capacity).table_begin(); }

void ast_html_gen_table_row(char *text, uint64_t capacity, int32_t header, ...) {
    HtmlWriter html(text, capacity);
    html.row_begin(header != 0);
    va_list cells;
    va_start(cells, header);
    for (;;) {
        const char *const content = va_arg(cells, const char *);
        if (content && content == std::string_view(AST_HTML_TABLE_END_OF_ROW)) break;
        html.cell(header != 0, content ? content : "");
    }
    va_end(cells);
    html.row_end(header != 0);
}

void ast_html_gen_table_end(char *text, uint64_t capacity) { HtmlWriter(text, capacity).table_end(); }

void ast_html_gen_hex_table(char *text, uint64_t capacity, const uint8_t *octets, uint64_t count) {
    HtmlWriter(text, capacity).hex_table(octets, count);
}

void ast_html_gen_bin_table(char *text, uint64_t capacity, const uint8_t *octets, uint64_t count) {
    HtmlWriter(text, capacity).bit_table(octets, count);
}

uint64_t ast_html_gen_location_map_link(char *text, uint64_t capacity, uint32_t service, double latitude,
                                        double longitude) {
    HtmlWriter html(text, capacity);
    html.map_link(service, latitude, longitude);
    return html.length();
}
