#include "base/category_set.hpp"

#include <algorithm>
#include <cstdint>

#include "base/numbers.hpp"

namespace ast::recording {

namespace {

// One entry of a list, "48" or "1-21".
bool add_range(CategorySet &categories, std::string_view entry) {
    const size_t dash = entry.find('-');
    const auto first = read_number<uint8_t>(entry.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : read_number<uint8_t>(entry.substr(dash + 1));
    if (!first || !last || *first > *last) return false;
    for (unsigned category = *first; category <= *last; ++category) categories.set(category);
    return true;
}

} // namespace

std::optional<CategorySet> read_categories(std::string_view list) {
    CategorySet categories;
    for (size_t at = 0; at <= list.size();) {
        const size_t comma = std::min(list.find(',', at), list.size());
        if (!add_range(categories, list.substr(at, comma - at))) return std::nullopt;
        at = comma + 1;
    }
    return categories;
}

} // namespace ast::recording
