// All that the documents of the categories describe, for those who look for its names.
#pragma once

#include <ast.h>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ast::recording {

// Whether a field carries a value, and not just others.
inline bool has_value(const ast_field_t &field) {
    return field.kind < AST_FIELD_REGISTER || field.kind == AST_FIELD_EXPLICIT;
}

// Calls take(field, path) for the fields of an item type as a profile has them, and for those of Mode S registers
// behind the path of the field that holds one: "I048/250[]/MCP_ALT". Both are good for that call.
using TakeField = std::function<void(const ast_field_t &field, std::string_view path)>;
void describe_fields(ast_dataitem_type_t type, const ast_uap_t &uap, const TakeField &take);

struct PublishedField {
    std::string path; // as conditions have it: "I048/250/MCP_ALT", every element of a list being meant
    bool is_list;
    ast_field_t field; // less its path
};

// Every field that carries a value and every item, of all editions, each path once, in the order of categories.
std::vector<PublishedField> published_fields();

} // namespace ast::recording
