// What a column is called and what it holds, whatever its values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ast::recording {

enum class ColumnType : uint8_t {
    boolean,
    int32,
    int64,
    float64,
    time,      // nanoseconds since 1970, in UTC
    text,      // the place of each value in a dictionary
    structure, // of its children
    list,      // of its only child
};

// How values are written where a table is text.
enum class CellForm : uint8_t {
    plain,
    quoted,    // texts that may be digits
    published, // numbers, halves of the last decimal rounded away from 0
    clock,     // a time of day
};

struct ColumnHead {
    std::string name;
    ColumnType type;
    std::string unit{};
    std::string title{};
    std::string codes{}; // what numbers stand for, as JSON: {"0":"Tail wind"}
    CellForm form = CellForm::plain;
    unsigned decimals = 0; // at most, of a cell
    std::vector<ColumnHead> children{};
};

// What is told of a column beside its type: keys and texts.
std::vector<std::pair<std::string_view, std::string_view>> told_of(const ColumnHead &head);

// Octets of a value; 0 for what has none, or only bits. Of a list, those of the place where a row ends in its child.
constexpr size_t width_of(ColumnType type) {
    switch (type) {
    case ColumnType::int32:
    case ColumnType::text:
    case ColumnType::list:
        return sizeof(int32_t);
    case ColumnType::int64:
    case ColumnType::float64:
    case ColumnType::time:
        return sizeof(int64_t);
    default:
        return 0;
    }
}

} // namespace ast::recording
