// Which profiles a block of a category may have been written by.
#pragma once

#include <span>

#include "codec/category.hpp"

namespace ast::reader {

struct Candidate {
    const ast_uap_t *uap;
    uint8_t tier;          // a higher one is only taken when it fits more blocks than all of a lower one
    bool is_mixed = false; // each record tells its own profile; those that do not are read with this one
    const ast_uap_t *laid_out_as = nullptr; // another profile with the same items by FRN, which need not be asked
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
inline constexpr Candidate kAdsB[] = {{&AST_UAP_PUBLISHED, 0, false, &AST_UAP_CAT021_VER24},
                                      {&AST_UAP_CAT021_VER24, 0},
                                      {&AST_UAP_CAT021_VER21, 0},
                                      {&AST_UAP_CAT021_VER026, 0},
                                      {&AST_UAP_CAT021_VER023, 0},
                                      {&AST_UAP_THALES, 1}};

// What a record has to have: one item of each row.
struct Mandatory {
    uint16_t items[2];
};
inline constexpr Mandatory kAdsBMandatory[] = {{{10, 10}}, {{40, 40}}, {{80, 161}}};

struct CategoryCandidates {
    uint32_t category;
    Candidates candidates;
    std::span<const Mandatory> mandatory{};
    const ast_uap_t *standard = &AST_UAP_STANDARD; // what the standard profile leaves the category to
};

inline constexpr CategoryCandidates kByCategory[] = {
    {1, kTargetReports},
    {2, kServiceMessages},
    {21, kAdsB, kAdsBMandatory, &AST_UAP_CAT021_VER026},
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

// Those of a category that a reader chooses from.
inline CategoryCandidates candidates_for(const ast_reader_t *reader, uint32_t category) {
    CategoryCandidates own = find_candidates(category);
    if (reader && reader->forced) own.candidates = forced(own, *reader->forced);
    return own;
}

} // namespace ast::reader
