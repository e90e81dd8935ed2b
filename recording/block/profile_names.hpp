// The library's profiles under the names that the command line knows them by.
#pragma once

#include <ast.h>
#include <span>
#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

// What a block was read by, in the library's words: the name of a profile and the edition that it means. Nothing for a
// category that nobody has published.
struct Profile {
    const char *name = "";
    const char *edition = "";
    bool ambiguous = false; // other editions fit as well

    bool operator==(const Profile &) const = default;
};

// "cat021-2.1", and with its edition what means another one in each category: "published 2.6".
void put_profile(TextBuffer &out, const Profile &profile);
std::string profile_text(const Profile &profile);

// All exported profiles, in the order in which the library tries them; those of the newest editions last.
std::span<const ast_uap_info_t> profiles();

// Null for an unknown name.
const ast_uap_info_t *find_profile(std::string_view name);

// What a block or record of a category was decoded by: "standard" also where a variant leaves the category to it.
std::string_view profile_name(const ast_uap_t &uap, uint32_t category);

} // namespace ast::recording
