// What a table of records has: its columns, and what each is filled from.
#pragma once

#include <string_view>
#include <variant>
#include <vector>

#include "ask/field_path.hpp"
#include "ask/quantities.hpp"
#include "base/category_set.hpp"
#include "columns/column_head.hpp"
#include "columns/item_fields.hpp"

namespace ast::recording {

// What stands beside a record.
enum class Beside : uint8_t {
    file,     // that it is in
    block,    // number of its block
    record,   // number in that
    received, // when
};

// An answer, times a factor.
struct QuantityColumn {
    const Quantity *quantity;
    double factor = 1;
    bool has_small_letters = false; // in digits
};

// Values of published fields: all of a record as a list, or its first.
struct PathColumn {
    FieldPath path;
    bool is_list;
};

struct Table {
    std::vector<ColumnHead> heads;
    std::vector<std::variant<Beside, QuantityColumn, PathColumn, ItemFields>> sources; // of each

    bool asks_position() const;
    bool is_of_records() const { return !sources.empty(); } // and not of reports
};

// As users ask for it: a list of names and paths, in which "common" stands for all quantities; "all", or
// "reports"; and whose names they want, "traffic", or none for those of their own. Fields are those of `categories`,
// and "all" is of the only one. Throws std::invalid_argument.
Table read_table(std::string_view columns, std::string_view names, const CategorySet &categories);

} // namespace ast::recording
