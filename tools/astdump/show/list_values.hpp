// What the list shows of a record, by column.
#pragma once

#include <ast.h>
#include <string>

namespace ast::recording::astdump {

struct ListedRecord {
    const ast_datarecord_t *record = nullptr;
    ast_answers_t answers{};           // of it, located
    bool has_velocity = false;         // whether records of its category may have one by components
    const std::string *file = nullptr; // that it comes from, where several are merged; else null
};

bool has_velocity(uint32_t category);

constexpr size_t kListValueRoom = 128; // more characters than any value takes

// Writes a value, and nothing behind it, and returns of how many characters it is: 0 where the record
// has none.
size_t write_list_value(char *text, const ListedRecord &record, size_t column);

} // namespace ast::recording::astdump
