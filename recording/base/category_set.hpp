// Categories, as users list them.
#pragma once

#include <bitset>
#include <optional>
#include <string_view>

namespace ast::recording {

using CategorySet = std::bitset<256>;

// "34,48" or "1-21,240". Nothing unless every number is a category, 0 to 255.
std::optional<CategorySet> read_categories(std::string_view list);

} // namespace ast::recording
