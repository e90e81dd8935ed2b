// Which records of a block are wanted, and which conditions no record of a category can meet.
#pragma once

#include <algorithm>
#include <bitset>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "ask/comparison.hpp"
#include "ask/field_path.hpp"
#include "ask/quantities.hpp"
#include "block/decoded_block.hpp"

namespace ast::recording {

// A quantity, or several that one name stands for, and how their values are compared.
struct QuantityCondition {
    QuantityName asked;
    Notation notation;
    std::optional<uint32_t> keyword; // AST_KEYWORD_..., whose text may be asked for, too
};

// What a record must hold: a quantity or a published field, of any value or of those given.
struct Condition {
    std::variant<QuantityCondition, FieldPath> what;
    Comparison comparison;
    std::string name;
    std::string text; // all of it
};

// "NAME" or "NAME=VALUE", with any of the operators. Throws std::invalid_argument for an unknown name and for a value
// that none can have.
Condition read_condition(const std::string &text);

// Whether it needs to be known where on the earth targets are.
bool asks_position(const Condition &condition);

// Sets those records of a block that meet all conditions as shown; all records when there is none.
void select_records(DecodedBlock &decoded, const std::vector<Condition> &conditions);

// Which categories have what conditions ask for, so that a condition that none of their records can meet is told.
class ConditionCoverage {
public:
    // Looks at the records of a block, until its category has shown everything.
    void look(const DecodedBlock &decoded, const std::vector<Condition> &conditions);

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
