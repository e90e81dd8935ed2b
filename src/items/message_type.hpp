// What a category says of its message types: one octet, whose values it names. As the shared decoder does, it takes
// items of any type.
#pragma once

#include "items/items.hpp"

namespace ast {

template <ast_dataitem_type_t Type>
struct MessageType : Item<Type, ast_uint_value_t, items::message_type.size> {
    static bool accepts(const ast_dataitem_t &item) { return item.size == MessageType::kSize.octets; }
    static constexpr Row<ast_uint_value_t> kRows[] = {{&ast_uint_value_t::value, 8}};
};

// The words of a message type in the order of the types; a type beyond them is undefined.
template <uint64_t N>
void write_message_type(TextWriter &out, const char *const (&words)[N], uint64_t type) {
    out.append("MSG_TYPE:");
    out.append(text_of(words, type, "UNDEFINED"));
}

} // namespace ast
