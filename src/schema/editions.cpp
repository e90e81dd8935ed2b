// All editions, and the profiles of the newest ones.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

constexpr const Edition *kNewest[] = {
    &kCat001, &kCat002, &kCat004, &kCat007, &kCat008, &kCat009, &kCat010, &kCat011, &kCat015,
    &kCat016, &kCat017, &kCat018, &kCat019, &kCat020, &kCat021, &kCat023, &kCat025, &kCat032,
    &kCat034, &kCat048, &kCat062, &kCat063, &kCat065, &kCat150, &kCat205, &kCat240, &kCat247,
};

constexpr uint32_t kNewestCategories[] = {
    1, 2, 4, 7, 8, 9, 10, 11, 15, 16, 17, 18, 19, 20, 21, 23, 25, 32, 34, 48, 62, 63, 65, 150, 205, 240, 247,
};

constexpr uint32_t kCategoryNumbers = 256;

// The place of a category's edition, counted from 1.
constexpr auto kPlaces = [] {
    std::array<uint8_t, kCategoryNumbers> places{};
    static_assert(std::size(kNewest) == std::size(kNewestCategories));
    for (size_t i = 0; i < std::size(kNewest); ++i) places[kNewestCategories[i]] = static_cast<uint8_t>(i + 1);
    return places;
}();

// Category 021 changed its layouts under one number more than once, so there the profile of the record counts.
constexpr uint32_t kAdsB = 21;
constexpr const Edition *kAdsBEditions[] = {&kCat021Ed026, &kCat021Ed023, &kCat021Ed21, &kCat021Ed24, &kCat021};

const Edition &ads_b_edition(const ast_uap_t &uap) {
    if (uap.get_dataitem == ast_uap_get_dataitem_cat021_ver24) return kCat021Ed24;
    if (uap.get_dataitem == ast_uap_get_dataitem_cat021_ver21) return kCat021Ed21;
    if (uap.get_dataitem == ast_uap_get_dataitem_cat021_ver023) return kCat021Ed023;
    if (uap.get_dataitem == ast_uap_get_dataitem_published) return kCat021;
    if (uap.get_dataitem == ast_uap_get_dataitem_published_other) return kCat021;
    return kCat021Ed026; // which the standard profile means, too
}

// Layouts of single radars mix editions: an item that is not in the likeliest one is looked for in all.
Found find_ads_b_item(uint32_t number, const ast_uap_t &uap) {
    if (const Found found = found_in(ads_b_edition(uap), number); found.field) return found;
    for (const Edition *edition : kAdsBEditions)
        if (const Found found = found_in(*edition, number); found.field) return found;
    return {};
}

constexpr ast_dataitem_type_t kNumbers = AST_DATAITEM_TYPE(1, 0);

ast_dataitem_type_t announced(uint32_t category, const Profile &profile, uint32_t frn) {
    const uint16_t number = profile.at(frn);
    return number == kSpare ? AST_DATAITEM_NONE : AST_DATAITEM_TYPE(category, number);
}

const Profile &other_profile(const Edition &edition) {
    return edition.other_profile.count != 0 ? edition.other_profile : edition.profile;
}

} // namespace

const Edition *newest_edition(uint32_t category) {
    const uint8_t place = category < kCategoryNumbers ? kPlaces[category] : uint8_t{0};
    return place == 0 ? nullptr : kNewest[place - 1];
}

const Edition *find_edition(uint32_t category, const ast_uap_t &uap) {
    return category == kAdsB ? &ads_b_edition(uap) : newest_edition(category);
}

Found find_with_writer(ast_dataitem_type_t type, const ast_uap_t &uap) {
    const uint32_t category = type / kNumbers;
    if (category == kAdsB) [[unlikely]]
        return find_ads_b_item(type % kNumbers, uap);
    const Edition *const edition = newest_edition(category);
    return edition ? found_in(*edition, type % kNumbers) : Found{};
}

} // namespace ast::schema

using namespace ast::schema;

uint32_t ast_uap_max_frn_published(uint32_t category) {
    const Edition *const edition = newest_edition(category);
    return edition ? edition->profile.count : 0;
}

uint32_t ast_uap_max_frn_published_other(uint32_t category) {
    const Edition *const edition = newest_edition(category);
    return edition ? other_profile(*edition).count : 0;
}

ast_dataitem_type_t ast_uap_get_dataitem_published(uint32_t category, uint32_t frn) {
    const Edition *const edition = newest_edition(category);
    return edition ? announced(category, edition->profile, frn) : AST_DATAITEM_NONE;
}

ast_dataitem_type_t ast_uap_get_dataitem_published_other(uint32_t category, uint32_t frn) {
    const Edition *const edition = newest_edition(category);
    return edition ? announced(category, other_profile(*edition), frn) : AST_DATAITEM_NONE;
}

ast_uap_t AST_UAP_PUBLISHED = {ast_uap_max_frn_published, ast_uap_get_dataitem_published};
ast_uap_t AST_UAP_PUBLISHED_OTHER = {ast_uap_max_frn_published_other, ast_uap_get_dataitem_published_other};
