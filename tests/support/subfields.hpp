// Subfields of compound items as a user meets them.
#pragma once

#include "support/items.hpp"
#include "support/text.hpp"

namespace ast_test {

inline std::string subfield_summary_of(uint32_t subfield_type, std::string_view hex) {
    const Item item(subfield_type / 1000, hex);
    return written(
        [&](char *text, uint64_t capacity) { ast_subfield_get_summary(text, capacity, item, subfield_type); });
}

inline std::string subfield_detail_of(uint32_t subfield_type, std::string_view hex) {
    const Item item(subfield_type / 1000, hex);
    return written(
        [&](char *text, uint64_t capacity) { ast_subfield_get_detail_html(text, capacity, item, subfield_type); });
}

} // namespace ast_test
