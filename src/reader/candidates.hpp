// Which profiles a block of a category may have been written by.
#pragma once

#include <array>
#include <span>

#include "codec/category.hpp"

namespace ast::reader {

struct Candidate {
    const ast_uap_t *uap;
    uint8_t tier;          // a higher one is only taken when it fits more blocks than all of a lower one
    bool is_mixed = false; // each record tells its own profile; those that do not are read with this one
    const ast_uap_t *laid_out_as = nullptr; // another profile whose items are as long and as plausible, FRN by FRN,
    uint64_t but_for = 0;                   // but for these, as an FspecWord announces them
};

using Candidates = std::span<const Candidate>;

// The newest edition of each tier first.
inline constexpr Candidate kRegistered[] = {{&AST_UAP_STANDARD, 0}, {&AST_UAP_PUBLISHED, 1}};
inline constexpr Candidate kPublishedOnly[] = {{&AST_UAP_PUBLISHED, 0}, {&AST_UAP_PUBLISHED_OTHER, 0}};
inline constexpr Candidate kTargetReports[] = {{&AST_UAP_CAT001_PLOT, 0, true}, {&AST_UAP_STANDARD, 1},
                                               {&AST_UAP_CAT001_PLOT, 2},       {&AST_UAP_ASR10SS, 3},
                                               {&AST_UAP_ASR10SS_MK2, 3},       {&AST_UAP_MANAGAIR, 3}};
inline constexpr Candidate kServiceMessages[] = {{&AST_UAP_STANDARD, 0},
                                                 {&AST_UAP_PUBLISHED, 1},
                                                 {&AST_UAP_ASR10SS, 2},
                                                 {&AST_UAP_ASR10SS_MK2, 2},
                                                 {&AST_UAP_MANAGAIR, 2}};
// I021/271, which ends otherwise up to edition 2.1.
inline constexpr uint64_t kSurfaceCapabilities = UINT64_C(1) << bit_of_frn(37);
inline constexpr Candidate kAdsB[] = {{&AST_UAP_PUBLISHED, 0, false, &AST_UAP_CAT021_VER24},
                                      {&AST_UAP_CAT021_VER24, 0},
                                      {&AST_UAP_CAT021_VER21, 0, false, &AST_UAP_CAT021_VER24, kSurfaceCapabilities},
                                      {&AST_UAP_CAT021_VER026, 0},
                                      {&AST_UAP_CAT021_VER023, 0},
                                      {&AST_UAP_THALES, 1}};

// What a record has to have: one item of each group, whose bit stands at the numbers of its items.
using Mandatory = std::array<uint8_t, kItemNumbers>;
inline constexpr Mandatory kAdsBMandatory = [] {
    Mandatory groups{};
    groups[10] = 1;
    groups[40] = 2;
    groups[80] = groups[161] = 4;
    return groups;
}();

inline constexpr uint32_t kAllMandatory = 7;

struct CategoryCandidates {
    uint32_t category;
    Candidates candidates;
    const Mandatory *mandatory = nullptr;
    const ast_uap_t *standard = &AST_UAP_STANDARD; // what the standard profile leaves the category to
};

inline constexpr CategoryCandidates kByCategory[] = {
    {1, kTargetReports},
    {2, kServiceMessages},
    {21, kAdsB, &kAdsBMandatory, &AST_UAP_CAT021_VER026},
};

inline CategoryCandidates find_candidates(uint32_t category) {
    for (const CategoryCandidates &own : kByCategory)
        if (own.category == category) return own;
    const bool is_registered = find_category(category).number == category;
    if (is_registered) return {category, kRegistered};
    const bool has_other = ast_uap_max_frn_published(category) != ast_uap_max_frn_published_other(category);
    return {category, Candidates(kPublishedOnly, has_other ? 2 : 1)};
}

// The candidate that a profile is, what is mixed of several being a matter of the standard one; all of them where it is
// none.
inline Candidates forced(const CategoryCandidates &own, const ast_uap_t &uap) {
    const bool is_standard = uap.get_dataitem == AST_UAP_STANDARD.get_dataitem;
    const auto *const wanted = is_standard ? own.standard : &uap;
    for (const Candidate &candidate : own.candidates)
        if (candidate.is_mixed ? is_standard : candidate.uap->get_dataitem == wanted->get_dataitem)
            return {&candidate, 1};
    return own.candidates;
}

// Whether records that announce no more than this read as well by one of two as by the other.
inline bool are_alike(const Candidate &one, const Candidate &other, uint64_t announced) {
    const auto layout = [](const Candidate &each) { return each.laid_out_as ? each.laid_out_as : each.uap; };
    return &one == &other || (layout(one) == layout(other) && one.is_mixed == other.is_mixed &&
                              (announced & (one.but_for | other.but_for)) == 0);
}

// Those of a category that a reader chooses from.
inline CategoryCandidates candidates_for(const ast_reader_t *reader, uint32_t category) {
    CategoryCandidates own = find_candidates(category);
    if (reader && reader->forced) own.candidates = forced(own, *reader->forced);
    return own;
}

} // namespace ast::reader
