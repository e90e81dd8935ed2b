// Which records of a block are wanted.
#pragma once

#include <bitset>
#include <string>
#include <variant>
#include <vector>

#include "ast.h"
#include "comparison.hpp"
#include "field_path.hpp"

namespace astdump {

// What a record must hold: a quantity by its keyword or a published field, of any value or of those given.
struct Condition {
    std::variant<uint32_t, FieldPath> what;
    Comparison comparison;
};

// "NAME" or "NAME=VALUE", with any of the operators. Throws std::invalid_argument for an unknown name and for a value
// that none can have.
Condition read_condition(const std::string &text);

using RecordSet = std::bitset<AST_DATABLOCK_MAX_RECORDS>;

// The records, by index, that meet all conditions; all records when there is none.
RecordSet select_records(const ast_datablock_t &block, const std::vector<Condition> &conditions);

} // namespace astdump
