// The library's profiles under the names that the command line knows them by.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ast.h"

namespace astdump {

struct Profile {
    std::string_view name;
    const ast_uap_t *uap;
    uint32_t overrides[2]; // categories for which it differs from the standard profile; 0 for none
};

// All exported profiles, in the order in which the library tries them.
std::span<const Profile> profiles();

// Null for an unknown name.
const Profile *find_profile(std::string_view name);

// What a block or record of a category was decoded by: "standard" also where a variant leaves the category to it.
std::string_view profile_name(const ast_uap_t &uap, uint32_t category);

} // namespace astdump
