// Items as a user meets them: octets in, texts and table cells out, and values back into octets. The octets are written
// as hexadecimal text.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ast.h"
#include "support/text.hpp"

namespace ast_test {

// An item over octets of its own, valid and of exactly their size whatever its type says.
class Item {
public:
    Item(ast_dataitem_type_t type, std::string_view hex);
    Item(ast_dataitem_type_t type, std::vector<uint8_t> octets);
    Item(const Item &) = delete;
    Item &operator=(const Item &) = delete;

    operator const ast_dataitem_t *() const { return &item_; }

private:
    std::vector<uint8_t> octets_;
    ast_dataitem_t item_;
};

// What any of the exported text functions writes in one call with ample room.
template <typename Write, typename... Arguments>
std::string text_from(Write write, Arguments... arguments) {
    static thread_local char text[1 << 20];
    write(text, sizeof text, arguments...);
    return text;
}

std::string summary_of(ast_dataitem_type_t type, std::string_view hex);
std::string detail_of(ast_dataitem_type_t type, std::string_view hex);
std::string subfield_summary_of(uint32_t subfield_type, std::string_view hex);
std::string subfield_detail_of(uint32_t subfield_type, std::string_view hex);

// The rows of all detail tables of a view, header rows included: the texts of their cells without markup, with "|"
// between them. Tables of bits and of hexadecimal digits are left out.
std::vector<std::string> rows_of(std::string_view html);

// All rows with "; " between them, and the last cells alone of all rows but the first with "|" between them.
std::string table_of(std::string_view html);
std::string values_of(std::string_view html);

// The cases of a type are "octets = summary" with "; " between them.
void expect_summaries(ast_dataitem_type_t type, std::string_view cases);
void expect_subfield_summaries(uint32_t subfield_type, std::string_view cases);
void expect_table(ast_dataitem_type_t type, std::string_view hex, const char *table);
// "octets = values" in the same way.
void expect_values(ast_dataitem_type_t type, std::string_view cases);

// Encodes a value as an item type; `octets` null: it is refused and the buffer stays as it was.
void expect_encodes(const char *name, ast_dataitem_type_t type, void *value, const char *octets);

template <typename Value>
struct EncodeCase {
    const char *name;
    Value value;
    const char *octets; // null: refused
};

template <typename Value, size_t N>
void expect_encodes(ast_dataitem_type_t type, const EncodeCase<Value> (&cases)[N]) {
    for (EncodeCase<Value> one : cases) expect_encodes(one.name, type, &one.value, one.octets);
}

} // namespace ast_test
