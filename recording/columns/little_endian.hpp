// Values as files have them, the least significant octet first, whatever the machine does.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace ast::recording {

inline std::string_view as_text(const void *octets, size_t count) { return {static_cast<const char *>(octets), count}; }

// Turns values of so many octets each, where the machine has them the other way round.
inline void turn(char *values, size_t octets, size_t width) {
    if constexpr (std::endian::native == std::endian::big)
        for (char *value = values; width > 1 && value < values + octets; value += width)
            std::reverse(value, value + width);
}

template <typename Value>
void put_little(std::string &out, Value value) {
    static_assert(std::is_arithmetic_v<Value>);
    out.append(reinterpret_cast<const char *>(&value), sizeof value);
    turn(out.data() + out.size() - sizeof value, sizeof value, sizeof value);
}

inline void put_little(std::string &out, std::string_view values, size_t width) {
    out += values;
    turn(out.data() + out.size() - values.size(), values.size(), width);
}

} // namespace ast::recording
