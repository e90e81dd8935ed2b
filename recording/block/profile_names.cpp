#include "block/profile_names.hpp"

#include <algorithm>
#include <vector>

namespace ast::recording {

namespace {

ast_uap_info_t newest(const char *name, const ast_uap_t &uap) {
    return {.valid = true, .name = name, .uap = &uap, .override_count = 0, .overrides = {}};
}

const std::vector<ast_uap_info_t> &list() {
    static const std::vector<ast_uap_info_t> profiles = [] {
        std::vector<ast_uap_info_t> all;
        for (uint64_t i = 0; i < ast_uap_get_number(); ++i) all.push_back(ast_uap_get_info(i));
        all.push_back(newest("published", AST_UAP_PUBLISHED));
        all.push_back(newest("published-other", AST_UAP_PUBLISHED_OTHER));
        return all;
    }();
    return profiles;
}

} // namespace

void put_profile(TextBuffer &out, const Profile &profile) {
    out.put(profile.name);
    if (std::string_view(profile.name).starts_with("published") && *profile.edition) {
        out.put(' ');
        out.put(profile.edition);
    }
    if (profile.ambiguous) out.put(" (ambiguous)");
}

std::string profile_text(const Profile &profile) {
    TextBuffer text;
    put_profile(text, profile);
    return std::string(text.text());
}

std::span<const ast_uap_info_t> profiles() { return list(); }

const ast_uap_info_t *find_profile(std::string_view name) {
    const auto found = std::ranges::find(list(), name, &ast_uap_info_t::name);
    return found == list().end() ? nullptr : &*found;
}

std::string_view profile_name(const ast_uap_t &uap, uint32_t category) {
    const auto found = std::ranges::find_if(list(), [&](const ast_uap_info_t &profile) {
        const std::span overrides(profile.overrides, static_cast<size_t>(profile.override_count));
        return profile.uap->get_dataitem == uap.get_dataitem && std::ranges::count(overrides, category);
    });
    return found == list().end() ? list().front().name : found->name;
}

} // namespace ast::recording
