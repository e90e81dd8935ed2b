// Which records of a block are wanted.
#pragma once

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include "ask/comparison.hpp"
#include "ask/field_path.hpp"
#include "block/record_set.hpp"
#include "block/split_block.hpp"

namespace ast::recording {

// What a record must hold: a quantity by its keyword or a published field, of any value or of those given.
struct Condition {
    std::variant<uint32_t, FieldPath> what;
    Comparison comparison;
    std::string name;
    std::string text; // all of it
};

// "NAME" or "NAME=VALUE", with any of the operators. Throws std::invalid_argument for an unknown name and for a value
// that none can have.
Condition read_condition(const std::string &text);

// Whether a record has what a condition asks for, whatever its value is.
bool holds_what(const ast_datarecord_t &record, const Condition &condition);

// Whether a condition is about one category alone.
bool names_category(const Condition &condition);

// Sets the records that meet all conditions; all records when there is none.
void select_records(RecordSet &selected, const SplitBlock &block, const std::vector<Condition> &conditions);

} // namespace ast::recording
