// What the list shows of a record, by column.
#pragma once

#include <ast.h>
#include <string>

namespace ast::recording::astdump {

// Keywords that records of a category may have, for what is no answer.
struct ListedKeywords {
    bool level = false;    // also one that is garbled or not validated
    bool velocity = false; // by its components
};
ListedKeywords listed_keywords_of(uint32_t category);

struct ListedRecord {
    const ast_datarecord_t *record = nullptr;
    const ast_answers_t *answers = nullptr; // of it, located
    ListedKeywords keywords{};
    const std::string *file = nullptr; // that it comes from, where several are merged; else null
};

constexpr size_t kListValueRoom = 128; // more characters than any value takes

// Writes a value, and nothing behind it, and returns of how many characters it is: 0 where the record
// has none.
size_t write_list_value(char *text, const ListedRecord &record, size_t column);

} // namespace ast::recording::astdump
