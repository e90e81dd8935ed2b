// Which records of a block are wanted.
#pragma once

#include <bitset>
#include <optional>
#include <string>
#include <vector>

#include "ast.h"

namespace astdump {

// What a record must hold: a quantity, of any value or of the one given.
struct Condition {
    uint32_t keyword;
    std::optional<std::string> value;
};

// "NAME" or "NAME=VALUE". Throws std::invalid_argument for an unknown name and for a value that none can have.
Condition read_condition(const std::string &text);

using RecordSet = std::bitset<AST_DATABLOCK_MAX_RECORDS>;

// The records, by index, that meet all conditions; all records when there is none.
RecordSet select_records(const ast_datablock_t &block, const std::vector<Condition> &conditions);

} // namespace astdump
