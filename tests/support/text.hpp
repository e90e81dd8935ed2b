// Texts that the library writes into a caller's buffer, and the texts that tests are written in.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
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

// The same for a view with arguments behind its text and capacity.
template <typename View, typename... Arguments>
std::string shown(View view, Arguments... arguments) {
    return written([&](char *text, uint64_t capacity) { view(text, capacity, arguments...); });
}

// Calls visit(entry) for each entry of "entry; entry; entry". Blanks and line ends before an entry are no part of it.
template <typename Visit>
void each_entry(std::string_view entries, Visit visit) {
    while (true) {
        const size_t start = entries.find_first_not_of(" \n");
        if (start == entries.npos) return;
        const size_t end = std::min(entries.find(';', start), entries.size());
        visit(entries.substr(start, end - start));
        entries.remove_prefix(std::min(end + 1, entries.size()));
    }
}

// Calls visit(given, expected) for each entry of "given = expected; given = expected"; there has to be one.
template <typename Visit>
void each_case(std::string_view cases, Visit visit) {
    EXPECT_NE(cases.find('='), cases.npos);
    each_entry(cases, [&](std::string_view entry) {
        const size_t sign = std::min(entry.find('='), entry.size() - 1);
        const std::string given(entry.substr(0, sign ? sign - 1 : 0));
        visit(given, std::string(entry.substr(std::min(sign + 2, entry.size()))));
    });
}

} // namespace ast_test
