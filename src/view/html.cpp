#include "view/html.hpp"

#include <array>
#include <atomic>

#include "core/copy.hpp"

namespace {

using namespace ast;

constexpr uint32_t kBordered = 1;

std::atomic<uint32_t> flavor{0};

// Whether the next data row is an even one. A table that is cut short leaves its parity to the next one, which clears
// it.
thread_local bool next_row_is_even = false;

constexpr std::string_view kRowEnd = "</tr>";
constexpr std::string_view kOddRow = "<tr>";
constexpr std::string_view kEvenRow = "<tr class=\"even_row\">";

struct CellTags {
    std::string_view begin;
    std::string_view end;
};
constexpr CellTags kHeaderCell = {"<th>", "</th>"};
constexpr CellTags kDataCell = {"<td>", "</td>"};
[[gnu::always_inline]] inline char *put(char *to, std::string_view piece) {
    return copy_text(to, piece.data(), piece.size());
}

constexpr char kHexDigits[] = "0123456789ABCDEF";

void append_hex(TextWriter &out, uint8_t octet) {
    const char text[] = {kHexDigits[octet >> 4], kHexDigits[octet & 0x0F]};
    out.append({text, sizeof text});
}

// What is to be filled in: the octet behind its number in a caption, and the bits of the octets of a row.
constexpr std::string_view kCaptionEnd = " - --</th>";
constexpr size_t kOctetPlace = 3;
constexpr std::string_view kBitCell = "<td>-</td>";
constexpr size_t kBitPlace = 4;
constexpr uint64_t kOctetsPerBitRow = 4;
constexpr auto kBitCells = [] {
    std::array<char, kOctetsPerBitRow * BinaryOctet::kChars * kBitCell.size()> cells{};
    for (size_t i = 0; i < cells.size(); ++i) cells[i] = kBitCell[i % kBitCell.size()];
    return cells;
}();

std::string_view as_view(const ViewText &text) { return {text.text, text.size}; }

// Of a text writer, which it is for those who ask how full it is.
HtmlWriter &writer(void *text) { return *static_cast<HtmlWriter *>(static_cast<TextWriter *>(text)); }

void append_caption_end(TextWriter &out, uint8_t octet) {
    char end[kCaptionEnd.size()];
    std::memcpy(end, kCaptionEnd.data(), sizeof end);
    end[kOctetPlace] = kHexDigits[octet >> 4];
    end[kOctetPlace + 1] = kHexDigits[octet & 0x0F];
    out.append({end, sizeof end});
}

// A cell for each bit of the octets, as many as there are of a row.
void append_bit_cells(TextWriter &out, const uint8_t *octets, uint64_t count) {
    auto cells = kBitCells;
    for (size_t bit = 0; bit < std::min(count, kOctetsPerBitRow) * 8; ++bit)
        cells[bit * kBitCell.size() + kBitPlace] = (octets[bit / 8] << bit % 8 & 0x80) != 0 ? '1' : '0';
    out.append({cells.data(), cells.size()});
}

} // namespace

namespace ast {

void HtmlWriter::title(Texts pieces) {
    append("<h4>");
    append_texts(pieces);
    append("</h4>");
}

void HtmlWriter::paragraph(Texts pieces) {
    append("<p>");
    append_texts(pieces);
    append("</p>");
}

void HtmlWriter::append_texts(Texts texts) {
    for (const ViewText &text : texts) {
        if (text.kind == AST_DETAIL_PLAIN) [[likely]] {
            append(as_view(text));
            continue;
        }
        const bool is_strong = text.kind == AST_DETAIL_STRONG;
        append(shown_if(is_strong, "<b>"));
        append_received(*this, as_view(text));
        append(shown_if(is_strong, "</b>"));
    }
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

// Most rows fit, and are written without that there is asked for room for each piece.
template <bool is_header>
void HtmlWriter::whole_row(Texts cells) {
    static constexpr CellTags kTags = is_header ? kHeaderCell : kDataCell;
    size_t most = kEvenRow.size() + kRowEnd.size() + cells.size() * (kTags.begin.size() + kTags.end.size());
    uint32_t kinds = AST_DETAIL_PLAIN;
    for (const ViewText &content : cells) {
        most += content.size;
        kinds |= content.kind;
    }
    const auto put_row = [&](char *to) {
        to = put(to, !is_header && next_row_is_even ? kEvenRow : kOddRow);
        for (const ViewText &content : cells) to = put(put(put(to, kTags.begin), as_view(content)), kTags.end);
        return put(to, kRowEnd);
    };
    if (kinds == AST_DETAIL_PLAIN && append_at_once(most, put_row)) {
        next_row_is_even = !is_header && !next_row_is_even;
    } else {
        row_begin(is_header);
        for (const ViewText &content : cells) cell(is_header, content);
        row_end(is_header);
    }
}

void HtmlWriter::row_begin(bool is_header) {
    if (is_header) next_row_is_even = false;
    append(next_row_is_even ? kEvenRow : kOddRow);
}

void HtmlWriter::cell(bool is_header, const ViewText &content) {
    append(is_header ? "<th>" : "<td>");
    append_texts({&content, 1});
    append(is_header ? "</th>" : "</td>");
}

void HtmlWriter::row_end(bool is_header) {
    append(kRowEnd);
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
    if (!octets || count == 0) return;
    open_table("bin_table");
    for (uint64_t row = 0; row < count; row += kOctetsPerBitRow) {
        append("<tr class=\"caption_row\">");
        for (uint64_t i = row; i < row + kOctetsPerBitRow; ++i) {
            append("<th colspan=8>Octet ");
            append_digits(static_cast<uint32_t>(i + 1), 1);
            if (i < count)
                append_caption_end(*this, octets[i]);
            else
                append(kCaptionEnd);
        }
        append("</tr><tr class=\"data_row\">");
        append_bit_cells(*this, octets + row, count - row);
        append("</tr>");
    }
    append("</table>");
}

void HtmlWriter::link_row(Texts cells, const ast_detail_link_t &to) {
    row_begin(false);
    for (const ViewText &content : cells) cell(false, content);
    append("<td>");
    link(to);
    append("</td>");
    row_end(false);
}

void HtmlWriter::link(const ast_detail_link_t &link) {
    append("<a href=\"");
    append(link.url);
    append("\">");
    append(link.title);
    append("</a>");
}

static std::span<const ViewText> of(const ViewText *texts, uint64_t count) {
    return {texts, static_cast<size_t>(count)};
}

const ast_details_visitor_t HtmlView::kVisitor = {
    .title = [](void *html, const ViewText *pieces, uint64_t count) { writer(html).title(of(pieces, count)); },
    .paragraph = [](void *html, const ViewText *pieces, uint64_t count) { writer(html).paragraph(of(pieces, count)); },
    .table_begin =
        [](void *html, const ViewText *header, uint64_t count) {
            writer(html).table_begin();
            writer(html).header_row(of(header, count));
        },
    .row = [](void *html, const ViewText *cells, uint64_t count) { writer(html).row(of(cells, count)); },
    .link_row = [](void *html, const ViewText *cells, uint64_t count,
                   const ast_detail_link_t *link) { writer(html).link_row(of(cells, count), *link); },
    .table_end = [](void *html) { writer(html).table_end(); },
    .bits = [](void *html, const uint8_t *octets, uint64_t count) { writer(html).bit_table(octets, count); },
};

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
        html.cell(header != 0, view_text(content ? content : ""));
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
    char url[512];
    if (ast_map_get_link_url(url, sizeof url, service, latitude, longitude))
        html.link({service, latitude, longitude, ast_map_get_service_name(service), url});
    return html.length();
}
