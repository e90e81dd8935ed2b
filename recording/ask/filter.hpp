// Which records of a block are wanted, and which conditions no record of a category can meet.
#pragma once

#include <algorithm>
#include <bitset>
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

// Which categories have what conditions ask for, so that a condition that none of their records can meet is told.
class ConditionCoverage {
public:
    // Looks at the records of a block, until its category has shown everything.
    void look(const SplitBlock &block, const std::vector<Condition> &conditions);

    ConditionCoverage &operator|=(const ConditionCoverage &other);

    // "--where squawk=7700: no record of category 034 has squawk"; a line for each condition that leaves out whole
    // categories.
    std::vector<std::string> complaints(const std::vector<Condition> &conditions) const;

private:
    using Categories = std::bitset<256>;

    Categories seen_;
    std::vector<Categories> found_; // by condition
};

} // namespace ast::recording
