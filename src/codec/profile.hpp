// What a profile is: the layouts that it puts in place of those of another profile. src/cat defines them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "ast.h"
#include "codec/category.hpp"

namespace ast {

// One category's items by FRN, from FRN 1, as item numbers within the category.
struct Layout {
    const uint16_t *items = nullptr;
    uint32_t count = 0;
    uint32_t max_frn = 0;              // how far the encoder looks
    const char *reported_as = nullptr; // null: undefined FRNs pass in silence
    bool is_open = false;              // the FRNs behind the list are those of the base
    const ast_uap_t *asks = nullptr;   // another profile that answers in place of the list
    size_t edition = 0;                // the place of the list among those of the category
};

template <uint32_t Category, size_t Edition = 0>
constexpr Layout layout(const char *reported_as, size_t max_frn = kLayoutsOf<Category>[Edition].size()) {
    constexpr std::span<const uint16_t> kItems = kLayoutsOf<Category>[Edition];
    return {.items = kItems.data(),
            .count = static_cast<uint32_t>(kItems.size()),
            .max_frn = static_cast<uint32_t>(max_frn),
            .reported_as = reported_as,
            .edition = Edition};
}

template <uint32_t Category, size_t Edition>
constexpr Layout open_layout() {
    Layout open = layout<Category, Edition>(nullptr);
    open.is_open = true;
    return open;
}

constexpr Layout layout_of(const ast_uap_t &profile) { return {.asks = &profile}; }

struct Override {
    uint32_t category;
    Layout layout;
};

// For each category the place of its override, counted from 1; 0 for a category left to the base.
using OverridePlaces = std::array<uint8_t, kCategoryNumbers>;

template <size_t N>
constexpr OverridePlaces index_overrides(const Override (&overrides)[N]) {
    OverridePlaces places{};
    for (size_t i = 0; i < N; ++i) places[overrides[i].category] = static_cast<uint8_t>(i + 1);
    return places;
}

struct Profile {
    const char *name;
    const ast_uap_t *object;                   // as users name it
    decltype(ast_uap_t::get_dataitem) answers; // its exported function
    const ast_uap_t *base; // asked, as it is at that moment, for whatever is not overridden; null for none
    const Override *overrides;
    size_t count;
    OverridePlaces places;
};

// What the functions of a profile answer.
uint32_t max_frn(const Profile &profile, uint32_t category);
ast_dataitem_type_t find_announced(const Profile &profile, uint32_t category, uint32_t frn);

// What a profile answers for a category without being asked for each item: kNoSlots for a profile of the caller's, and
// where the answer is that of one, or of none.
const SlotsByBit *find_slots(const ast_uap_t &uap, const Category &own, uint32_t category);

// All profiles, in the order in which they are tried on a block of unknown origin.
constexpr size_t kProfileCount = 10;
extern const Profile *const kProfiles[kProfileCount];

} // namespace ast

// Defines a profile, its exported functions, and the exported object of them.
#define AST_DEFINE_PROFILE(profile, uap, profile_name, profile_base, profile_overrides, get_max_frn, get_dataitem)     \
    namespace {                                                                                                        \
    constexpr ast::Profile profile = {.name = profile_name,                                                            \
                                      .object = &uap,                                                                  \
                                      .answers = get_dataitem,                                                         \
                                      .base = profile_base,                                                            \
                                      .overrides = profile_overrides,                                                  \
                                      .count = std::size(profile_overrides),                                           \
                                      .places = ast::index_overrides(profile_overrides)};                              \
    }                                                                                                                  \
    uint32_t get_max_frn(uint32_t category) { return ast::max_frn(profile, category); }                                \
    ast_dataitem_type_t get_dataitem(uint32_t category, uint32_t frn) {                                                \
        return ast::find_announced(profile, category, frn);                                                            \
    }                                                                                                                  \
    ast_uap_t uap = {get_max_frn, get_dataitem};
