// The published values of an item as texts, for what the library has no view of.
#pragma once

#include <string>
#include <vector>

#include "reading.hpp"
#include "text_buffer.hpp"

namespace astdump {

class ItemValues {
public:
    // Takes the values of an item; none where no document describes it.
    void read(const ast_dataitem_t &item, const Reading &reading);

    // Of the values below a path such as "I048/130/SRL", which is that of the item or begins with it: one line,
    // "SPD:450 HDG:290". Flags that are clear are left out, and what would make the line too long.
    std::string summary(std::string_view below) const;

    // The same as a table in the library's markup; empty without values.
    std::string table(std::string_view below) const;

private:
    struct Value {
        std::string path;  // as the library writes it
        std::string title; // in the document's words
        std::string text;  // "45.5 NM", "5 Single ModeS Roll-Call"
        std::string brief; // "45.5", "5", behind its name
        std::string alone; // "45.5 NM", without one
        bool is_clear;     // a flag that is not set
    };

    static void take(void *context, const ast_field_value_t *value);

    std::vector<Value> values_;
};

// The name of an item type: where the library knows none, the title that a document gives it.
std::string item_name(ast_dataitem_type_t type, const ast_uap_t &uap);

} // namespace astdump
