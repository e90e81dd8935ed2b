#include "support/items.hpp"

#include "support/octets.hpp"
#include "support/text.hpp"

namespace ast_test {

namespace {

// The text of a cell: what stands outside of its tags.
std::string without_markup(std::string_view html) {
    std::string text;
    bool is_tag = false;
    for (const char character : html) {
        if (character == '<') is_tag = true;
        if (!is_tag) text += character;
        if (character == '>') is_tag = false;
    }
    return text;
}

// Calls visit(content) for what stands between each `open` and the next `close`.
template <typename Visit>
void each_between(std::string_view text, std::string_view open, std::string_view close, Visit visit) {
    for (size_t from = text.find(open); from != text.npos; from = text.find(open, from)) {
        from += open.size();
        const size_t to = text.find(close, from);
        visit(text.substr(from, to - from));
    }
}

Row cells_of(std::string_view row) {
    Row cells;
    const bool is_header = row.find("<th>") != row.npos;
    each_between(row, is_header ? "<th>" : "<td>", is_header ? "</th>" : "</td>",
                 [&](std::string_view cell) { cells.push_back(without_markup(cell)); });
    return cells;
}

} // namespace

Item::Item(ast_dataitem_type_t type, std::string_view hex) : Item(type, octets(hex)) {}

Item::Item(ast_dataitem_type_t type, std::vector<uint8_t> content) : octets_(std::move(content)), item_{} {
    item_.data = octets_.data();
    item_.size = octets_.size();
    item_.type = type;
    item_.valid = true;
}

std::string summary_of(ast_dataitem_type_t type, std::string_view hex) {
    const Item item(type, hex);
    return written([&](char *text, uint64_t capacity) { ast_dataitem_get_summary(text, capacity, item); });
}

std::string detail_of(ast_dataitem_type_t type, std::string_view hex) {
    const Item item(type, hex);
    return text_from(ast_dataitem_get_detail_html, static_cast<const ast_dataitem_t *>(item));
}

std::vector<Row> rows_of(std::string_view html) {
    std::vector<Row> rows;
    each_between(html, "<table class=\"detail_table\"", "</table>", [&](std::string_view table) {
        each_between(table, "<tr", "</tr>", [&](std::string_view row) { rows.push_back(cells_of(row)); });
    });
    return rows;
}

void expect_summaries(ast_dataitem_type_t type, std::span<const SummaryCase> cases) {
    for (const SummaryCase &one : cases) EXPECT_EQ(summary_of(type, one.octets), one.summary) << one.name;
}

void expect_detail_rows(ast_dataitem_type_t type, std::string_view hex, const std::vector<Row> &rows) {
    EXPECT_EQ(rows_of(detail_of(type, hex)), rows) << type << ": " << hex;
}

void expect_encodes(const char *name, ast_dataitem_type_t type, void *value, const char *expected) {
    constexpr uint8_t kUntouched = 0xA5;
    std::vector<uint8_t> buffer(16, kUntouched);
    const ast_dataitem_src_t source{type, value};
    const ast_dataitem_t result = ast_dataitem_encode(buffer.data(), buffer.size(), &source);
    std::vector<uint8_t> left = octets(expected ? expected : "");
    left.resize(buffer.size(), kUntouched);
    EXPECT_EQ(buffer, left) << name;
    EXPECT_EQ(result.valid, expected != nullptr) << name;
    if (!expected) return;
    EXPECT_EQ(result.size, octets(expected).size()) << name;
    EXPECT_EQ(result.type, type) << name;
    EXPECT_EQ(result.data, buffer.data()) << name;
}

} // namespace ast_test
