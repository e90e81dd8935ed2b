// Published fields as columns, and all of an item as one, nested as the JSON of a record nests them.
#pragma once

#include <ast.h>
#include <string>
#include <vector>

#include "columns/column.hpp"

namespace ast::recording {

// The column of a field, without a name.
ColumnHead head_of(const ast_field_t &field);

// Makes a column fit another field, too.
void widen(ColumnHead &head, const ColumnHead &other);

// Puts a value of such a field into a row that has none.
void set_value(Column &column, uint64_t row, const ast_field_value_t &value);

class ItemFields {
public:
    // What the document describes as one item, in these types, all editions of it.
    explicit ItemFields(std::vector<ast_dataitem_type_t> types);

    const std::vector<ast_dataitem_type_t> &types() const { return types_; }
    const ColumnHead &head() const { return head_; }
    bool holds_any() const { return !leaves_.empty(); }

    // Puts what an item of such a type holds into a row.
    void set(Column &column, uint64_t row, const ast_dataitem_t &item, const ast_datarecord_t &record) const;

private:
    struct Leaf {
        std::string path;          // of a value behind its item: "[]/MCP_ALT"
        std::vector<uint16_t> way; // to its column, the place of a child each
    };
    class Filling;

    std::vector<ast_dataitem_type_t> types_;
    ColumnHead head_;
    std::vector<Leaf> leaves_; // as the document has them
};

// Of each item that an edition of a category describes, in the order of their numbers.
std::vector<ItemFields> items_of(uint32_t category);

} // namespace ast::recording
