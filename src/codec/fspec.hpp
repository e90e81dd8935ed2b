// Walking the bits of an FSPEC or primary subfield.
#pragma once

#include <bit>

#include "ast.h"
#include "core/bits.hpp"

namespace ast {

constexpr unsigned kFrnsPerOctet = 7;

// Decodes an FSPEC where it stands; ast_fspec_decode for the codec's own loops.
inline ast_fspec_t decode_fspec(const uint8_t *data, uint64_t available) {
    ast_fspec_t fspec{};
    fspec.data = data;
    if (!data) return fspec;

    uint64_t length = 0;
    uint64_t item_count = 0;
    do {
        if (length == available) return fspec;
        item_count += bits_set(data[length] & ~uint32_t{kFx});
    } while (has_fx(data[length++]));

    fspec.length = length;
    fspec.frn_count = length * kFrnsPerOctet;
    fspec.item_count = item_count;
    fspec.valid = item_count > 0 || ast_library_test_option(AST_OPTION_ALLOW_EMPTY_FSPEC);
    return fspec;
}

// Visits the FRN of each set presence bit, in order, for as long as the visitor returns true. Tells whether it always
// did.
template <typename Visitor>
bool each_frn(const ast_fspec_t &fspec, Visitor visit) {
    uint32_t first_frn = 1;
    for (uint64_t i = 0; i < fspec.length; ++i, first_frn += kFrnsPerOctet) {
        // The octet moved to the top of a word, so that the most significant bit that is set is the next FRN.
        uint32_t bits = static_cast<uint32_t>(fspec.data[i] & ~kFx) << 24;
        while (bits) {
            const auto place = static_cast<uint32_t>(std::countl_zero(bits));
            if (!visit(first_frn + place)) return false;
            bits &= ~(UINT32_C(0x80000000) >> place);
        }
    }
    return true;
}

} // namespace ast
