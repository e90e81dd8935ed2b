// What the records of a block are read by once a candidate is chosen.
#pragma once

#include "codec/block.hpp"
#include "reader/candidates.hpp"
#include "reader/item_sizes.hpp"
#include "schema/edition.hpp"
#include "schema/texts.hpp"

namespace ast::reader {

// Of one that is not mixed.
inline Reading reading_of(const Candidate &candidate, uint32_t category) {
    const bool is_laid_out_as = candidate.laid_out_as && candidate.but_for == 0;
    Reading reading(category, is_laid_out_as ? *candidate.laid_out_as : *candidate.uap, size_item);
    reading.uap = candidate.uap;
    return reading;
}

// Calls `read` with what the records of a block are read by, in the words of codec/block.hpp.
template <typename Read>
auto with_choice(const Candidate &candidate, uint32_t category, Read read) {
    if (!candidate.is_mixed) return read(reading_of(candidate, category));
    return read(ChosenByRecord(find_category(category), candidate.uap, size_item));
}

// What a candidate is called.
struct Description {
    const ast_uap_t *uap;
    const char *profile;
    const char *edition; // the published one that it means, "" for none
};

inline Description description_of(const Candidate &candidate, uint32_t category) {
    // What is mixed of several profiles is a matter of the standard one.
    const ast_uap_t &uap = candidate.is_mixed ? AST_UAP_STANDARD : *candidate.uap;
    const schema::Edition *const edition = schema::find_edition(category, uap);
    return {&uap, schema::profile_name(uap), edition ? edition->number : ""};
}

} // namespace ast::reader
