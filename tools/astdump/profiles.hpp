// The library's profiles under the names that the command line knows them by.
#pragma once

#include <span>
#include <string_view>

#include "ast.h"

namespace astdump {

// All exported profiles, in the order in which the library tries them.
std::span<const ast_uap_info_t> profiles();

// Null for an unknown name.
const ast_uap_info_t *find_profile(std::string_view name);

// What a block or record of a category was decoded by: "standard" also where a variant leaves the category to it.
std::string_view profile_name(const ast_uap_t &uap, uint32_t category);

} // namespace astdump
