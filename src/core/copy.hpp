// Copying pieces of text, most of which are short.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ast {

// By words that overlap, of which there is at least one.
template <typename Word>
void copy_ends(char *to, const char *from, size_t count) {
    Word first;
    Word last;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + count - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + count - sizeof last, &last, sizeof last);
}

// Copies characters, and returns where the next ones go. Most pieces are copied faster than they are handed to another
// function.
inline char *copy_text(char *to, const char *from, size_t count) {
    using TwoWords = std::array<uint64_t, 2>;
    if (count > 2 * sizeof(TwoWords)) {
        std::memcpy(to, from, count);
    } else if (count >= sizeof(TwoWords)) {
        copy_ends<TwoWords>(to, from, count);
    } else if (count >= sizeof(uint64_t)) {
        copy_ends<uint64_t>(to, from, count);
    } else if (count >= sizeof(uint32_t)) {
        copy_ends<uint32_t>(to, from, count);
    } else {
        for (size_t i = 0; i < count; ++i) to[i] = from[i];
    }
    return to + count;
}

} // namespace ast
