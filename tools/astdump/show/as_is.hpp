// Values passed on as their own octets, from threads that make them to the one that takes them.
#pragma once

#include <cstring>
#include <string_view>
#include <type_traits>

#include "base/text_buffer.hpp"

namespace ast::recording::astdump {

template <typename Value>
void put_as_is(TextBuffer &out, const Value &value) {
    static_assert(std::is_trivially_copyable_v<Value>);
    out.put({reinterpret_cast<const char *>(&value), sizeof value});
}

template <typename Value>
Value take_as_is(std::string_view &packed) {
    static_assert(std::is_trivially_copyable_v<Value>);
    Value value;
    std::memcpy(&value, packed.data(), sizeof value);
    packed.remove_prefix(sizeof value);
    return value;
}

} // namespace ast::recording::astdump
