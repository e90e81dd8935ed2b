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

std::string cells_of(std::string_view row) {
    std::string cells;
    const bool is_header = row.find("<th>") != row.npos;
    each_between(row, is_header ? "<th>" : "<td>", is_header ? "</th>" : "</td>",
                 [&](std::string_view cell) { cells += "|" + without_markup(cell); });
    return cells.substr(std::min<size_t>(1, cells.size()));
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
    return shown(ast_dataitem_get_summary, static_cast<const ast_dataitem_t *>(item));
}

std::string detail_of(ast_dataitem_type_t type, std::string_view hex) {
    const Item item(type, hex);
    return text_from(ast_dataitem_get_detail_html, static_cast<const ast_dataitem_t *>(item));
}

std::string subfield_summary_of(uint32_t subfield_type, std::string_view hex) {
    const Item item(subfield_type / 1000, hex);
    return shown(ast_subfield_get_summary, static_cast<const ast_dataitem_t *>(item), subfield_type);
}

std::string subfield_detail_of(uint32_t subfield_type, std::string_view hex) {
    const Item item(subfield_type / 1000, hex);
    return shown(ast_subfield_get_detail_html, static_cast<const ast_dataitem_t *>(item), subfield_type);
}

std::vector<std::string> rows_of(std::string_view html) {
    std::vector<std::string> rows;
    each_between(html, "<table class=\"detail_table\"", "</table>", [&](std::string_view table) {
        each_between(table, "<tr", "</tr>", [&](std::string_view row) { rows.push_back(cells_of(row)); });
    });
    return rows;
}

std::string table_of(std::string_view html) {
    std::string table;
    for (const std::string &row : rows_of(html)) table += (table.empty() ? "" : "; ") + row;
    return table;
}

std::string values_of(std::string_view html) {
    std::string values;
    const auto rows = rows_of(html);
    for (size_t i = 1; i < rows.size(); ++i) values += (i == 1 ? "" : "|") + rows[i].substr(rows[i].rfind('|') + 1);
    return values;
}

void expect_summaries(ast_dataitem_type_t type, std::string_view cases) {
    each_case(cases, [&](const std::string &hex, const std::string &summary) {
        EXPECT_EQ(summary_of(type, hex), summary) << type << ": " << hex;
    });
}

void expect_subfield_summaries(uint32_t subfield_type, std::string_view cases) {
    each_case(cases, [&](const std::string &hex, const std::string &summary) {
        EXPECT_EQ(subfield_summary_of(subfield_type, hex), summary) << subfield_type << ": " << hex;
    });
}

void expect_table(ast_dataitem_type_t type, std::string_view hex, const char *table) {
    EXPECT_EQ(table_of(detail_of(type, hex)), table) << type << ": " << hex;
}

void expect_values(ast_dataitem_type_t type, std::string_view cases) {
    each_case(cases, [&](const std::string &hex, const std::string &values) {
        EXPECT_EQ(values_of(detail_of(type, hex)), values) << type << ": " << hex;
    });
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
