// Which item of which category answers what.
#pragma once

#include "reader/answer_fields.hpp"

namespace ast::reader {

struct AnswerTable {
    uint32_t type = 0;               // of its records, unless an item says so
    uint32_t item_count = 0;         // one above the highest item number
    const uint8_t *places = nullptr; // of an item number in reads
    const Read *reads = nullptr;     // the first one for items without an answer
};

// The table of a category, of the editions that a profile is for; null for a category that is not published.
const AnswerTable *find_answers(uint32_t category, const ast_uap_t &uap);

} // namespace ast::reader
