// Octets as the category documents print them.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"

namespace ast_test {

// "30 00 03" as octets. Their storage ends where they end, so that a sanitizer sees every read beyond them.
inline std::vector<uint8_t> octets(std::string_view hex) {
    std::vector<uint8_t> result;
    result.reserve((hex.size() + 1) / 3);
    for (size_t i = 0; i < hex.size(); i += 3) {
        const uint32_t high = ast_hex_to_int(hex[i]);
        const uint32_t low = i + 1 < hex.size() ? ast_hex_to_int(hex[i + 1]) : UINT32_MAX;
        if (high > 15 || low > 15 || (i + 2 < hex.size() && hex[i + 2] != ' ')) {
            ADD_FAILURE() << "not octets: " << hex;
            return {};
        }
        result.push_back(static_cast<uint8_t>(high << 4 | low));
    }
    return result;
}

// The same octets a number of times over.
inline std::vector<uint8_t> repeated(std::string_view hex, uint64_t times) {
    const std::vector<uint8_t> once = octets(hex);
    std::vector<uint8_t> result;
    result.reserve(once.size() * times);
    for (uint64_t i = 0; i < times; ++i) result.insert(result.end(), once.begin(), once.end());
    return result;
}

// A block of the category around its records, with the LEN that fits.
inline std::vector<uint8_t> block_of(uint8_t category, const std::vector<uint8_t> &records) {
    const uint64_t length = records.size() + 3;
    std::vector<uint8_t> result;
    result.reserve(length);
    result = {category, static_cast<uint8_t>(length >> 8), static_cast<uint8_t>(length)};
    result.insert(result.end(), records.begin(), records.end());
    return result;
}

} // namespace ast_test
