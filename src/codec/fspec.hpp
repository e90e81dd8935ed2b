// Walking the bits of a field specification or primary subfield.
#pragma once

#include <bit>

#include "ast.h"
#include "core/bits.hpp"

namespace ast {

constexpr unsigned kFrnsPerOctet = 7;

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
