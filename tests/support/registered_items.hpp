// Every registered item and a sample of it, found by asking the library.
#pragma once

#include <cstdint>
#include <vector>

#include "ast.h"
#include "support/octets.hpp"

namespace ast_test {

struct RegisteredItem {
    ast_dataitem_type_t type;
    std::vector<uint8_t> sample; // extended items are as long as they may be, compound items have all their subfields
    bool is_extended;
    bool is_lenient; // sized without a look at what is available
};

// The octets that an item takes of a beginning that zeros follow.
inline std::vector<uint8_t> filled(ast_dataitem_type_t type, std::vector<uint8_t> beginning) {
    beginning.resize(600);
    beginning.resize(std::min<uint64_t>(ast_dataitem_get_size(beginning.data(), beginning.size(), type), 600));
    return beginning;
}

// A chain of octets as long as an extended item may be, up to some more than the longest known.
inline std::vector<uint8_t> longest_chain(ast_dataitem_type_t type) {
    std::vector<uint8_t> longest;
    for (uint64_t length = 1; length < 40; ++length) {
        auto chain = repeated("01", length);
        chain.back() = 0;
        if (filled(type, chain) == chain) longest = chain;
    }
    return longest;
}

// A primary subfield with every bit that the item defines.
inline std::vector<uint8_t> full_primary(uint64_t subfields) {
    std::vector<uint8_t> primary((subfields + 6) / 7, 0x01);
    primary.back() = 0;
    for (uint32_t number = 1; number <= subfields; ++number)
        ast_fspec_set(primary.data(), primary.size(), number, true);
    return primary;
}

inline RegisteredItem registered_item(ast_dataitem_type_t type) {
    const std::vector<uint8_t> lone_octet = octets("05");
    const bool is_lenient = ast_dataitem_get_size(lone_octet.data(), 1, type) > 1;
    const auto chain = longest_chain(type);
    const auto counted = filled(type, octets("02")); // two elements of a repetitive item
    if (chain.size() > 1 && counted.size() == 1) return {type, chain, true, false};
    const uint64_t subfields = ast_dataitem_subfields_get_number(type);
    if (subfields != 0) return {type, filled(type, full_primary(subfields)), false, false};
    return {type, is_lenient ? filled(type, lone_octet) : counted, false, is_lenient};
}

inline const std::vector<RegisteredItem> &registered_items() {
    static const auto items = [] {
        ast_log_handler_reg(nullptr);
        std::vector<RegisteredItem> result;
        for (uint32_t type = 0; type < 256000; ++type)
            if (ast_dataitem_get_func(type).get_size) result.push_back(registered_item(type));
        ast_log_handler_reg(ast_log_stdout);
        return result;
    }();
    return items;
}

} // namespace ast_test
