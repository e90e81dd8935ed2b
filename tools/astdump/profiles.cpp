#include "profiles.hpp"

#include <algorithm>
#include <iterator>

namespace astdump {

namespace {

constexpr Profile kProfiles[] = {
    {"standard", &AST_UAP_STANDARD, {}},
    {"cat001-plot", &AST_UAP_CAT001_PLOT, {1}},
    {"cat021-0.23", &AST_UAP_CAT021_VER023, {21}},
    {"cat021-0.26", &AST_UAP_CAT021_VER026, {21}},
    {"cat021-2.1", &AST_UAP_CAT021_VER21, {21}},
    {"cat021-2.4", &AST_UAP_CAT021_VER24, {21}},
    {"asr10ss", &AST_UAP_ASR10SS, {1, 2}},
    {"asr10ss-mk2", &AST_UAP_ASR10SS_MK2, {1, 2}},
    {"thales", &AST_UAP_THALES, {21}},
    {"managair", &AST_UAP_MANAGAIR, {1, 2}},
};

} // namespace

std::span<const Profile> profiles() { return kProfiles; }

const Profile *find_profile(std::string_view name) {
    const auto found = std::ranges::find(kProfiles, name, &Profile::name);
    return found == std::end(kProfiles) ? nullptr : found;
}

std::string_view profile_name(const ast_uap_t &uap, uint32_t category) {
    const auto found = std::ranges::find_if(kProfiles, [&](const Profile &profile) {
        return profile.uap->get_dataitem == uap.get_dataitem && std::ranges::count(profile.overrides, category);
    });
    return found == std::end(kProfiles) ? kProfiles[0].name : found->name;
}

} // namespace astdump
