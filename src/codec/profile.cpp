// User Application Profiles: which item each FRN of a category announces.

#include "codec/profile.hpp"

#include <algorithm>

#include "core/profile_name.hpp"

namespace ast {

namespace {

const Layout *find_layout(const Profile &profile, uint32_t category) {
    const size_t place = category < profile.places.size() ? profile.places[category] : 0;
    return place ? &profile.overrides[place - 1].layout : nullptr;
}

// What the base of a profile answers; a profile without one knows no other category.
ast_dataitem_type_t ask_base(const Profile &profile, uint32_t category, uint32_t frn) {
    if (profile.base) return ast_uap_get_dataitem(profile.base, category, frn);
    ast_log(AST_LOG_CRITICAL, "UAP STD: Unknown category %d", static_cast<int>(category));
    return AST_DATAITEM_NONE;
}

const Profile *find_profile(const ast_uap_t &uap) {
    const auto answers_for = [&](const Profile *profile) { return profile->answers == uap.get_dataitem; };
    const auto *const found = std::find_if(std::begin(kProfiles), std::end(kProfiles), answers_for);
    return found == std::end(kProfiles) ? nullptr : *found;
}

ast_dataitem_type_t undefined_item(const Layout &layout, uint32_t frn) {
    if (frn != 0 && layout.reported_as)
        ast_log(AST_LOG_CRITICAL, "UAP %s: Undefined FRN %d", layout.reported_as, static_cast<int>(frn));
    return AST_DATAITEM_NONE;
}

} // namespace

const char *exported_profile_name(const ast_uap_t &uap) {
    const Profile *const profile = find_profile(uap);
    return profile ? profile->name : nullptr;
}

uint32_t max_frn(const Profile &profile, uint32_t category) {
    const Layout *const layout = find_layout(profile, category);
    if (!layout) return profile.base ? ast_uap_max_frn(profile.base, category) : 0;
    return layout->asks ? ast_uap_max_frn(layout->asks, category) : layout->max_frn;
}

// Asked once for each item of a record, so the common answer comes first and calls nothing.
ast_dataitem_type_t find_announced(const Profile &profile, uint32_t category, uint32_t frn) {
    const Layout *const layout = find_layout(profile, category);
    if (!layout) return ask_base(profile, category, frn);
    const uint16_t item = frn - 1 < layout->count ? layout->items[frn - 1] : kSpareFrn;
    if (item < kItemNumbers) [[likely]]
        return AST_DATAITEM_TYPE(category, item);
    if (layout->asks) return ast_uap_get_dataitem(layout->asks, category, frn);
    const bool is_listed = frn - 1 < layout->count; // FRN 0 is not
    if (item == kFrnOfBase || (layout->is_open && !is_listed)) return ask_base(profile, category, frn);
    return is_listed ? AST_DATAITEM_NONE : undefined_item(*layout, frn);
}

// The objects that others ask are looked at now, as they would be when asked. One that is made to ask itself has no
// answer.
const SlotsByBit *find_slots(const ast_uap_t &uap, const Category &own, uint32_t category) {
    const ast_uap_t *asked = &uap;
    for (size_t i = 0; asked && i < kProfileCount; ++i) {
        const Profile *const profile = find_profile(*asked);
        if (!profile) return &kNoSlots;
        const Layout *const layout = find_layout(*profile, category);
        if (layout && !layout->asks) return own.slots + layout->edition;
        asked = layout ? layout->asks : profile->base;
    }
    return &kNoSlots;
}

} // namespace ast

using namespace ast;

uint32_t ast_uap_max_frn(const ast_uap_t *uap, uint32_t category) {
    return uap && uap->max_frn ? uap->max_frn(category) : 0;
}

ast_dataitem_type_t ast_uap_get_dataitem(const ast_uap_t *uap, uint32_t category, uint32_t frn) {
    return uap && uap->get_dataitem ? uap->get_dataitem(category, frn) : AST_DATAITEM_NONE;
}

uint64_t ast_uap_get_number() { return kProfileCount; }

ast_uap_info_t ast_uap_get_info(uint64_t index) {
    ast_uap_info_t info{};
    if (index >= kProfileCount) return info;
    const Profile &profile = *kProfiles[index];
    info.name = profile.name;
    info.uap = profile.object;
    // The standard profile varies nothing: it is what the others vary.
    if (profile.base) info.override_count = std::min<uint64_t>(profile.count, AST_UAP_MAX_OVERRIDES);
    for (uint64_t i = 0; i < info.override_count; ++i) info.overrides[i] = profile.overrides[i].category;
    info.valid = true;
    return info;
}
