// Texts that the library writes into a caller's buffer.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ast_test {

// The whole text that write(text, capacity) writes, after it has been written at each capacity from 0 to two beyond it
// as well: each shorter text is its beginning, is terminated, and leaves the octet behind the buffer alone.
template <typename Write>
std::string written(Write write) {
    constexpr char kGuard = '\x7F';
    constexpr uint64_t kAmple = 65536;
    std::vector<char> whole(kAmple, kGuard);
    write(whole.data(), kAmple);
    const std::string text(whole.data(), strnlen(whole.data(), kAmple));
    EXPECT_LT(text.size(), kAmple);
    for (uint64_t capacity = 0; capacity <= text.size() + 2; ++capacity) {
        std::vector<char> cut(capacity + 1, kGuard);
        write(cut.data(), capacity);
        EXPECT_EQ(cut[capacity], kGuard) << "wrote behind capacity " << capacity;
        if (capacity == 0) continue;
        const uint64_t length = strnlen(cut.data(), capacity);
        EXPECT_LT(length, capacity) << "not terminated at capacity " << capacity;
        EXPECT_EQ(std::string(cut.data(), length), text.substr(0, capacity - 1)) << "at capacity " << capacity;
    }
    write(static_cast<char *>(nullptr), kAmple);
    return text;
}

} // namespace ast_test
