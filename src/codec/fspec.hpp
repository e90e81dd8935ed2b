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

// How many octets of these are an FSPEC; 0 when its end is not among them.
inline uint64_t fspec_length(const uint8_t *data, uint64_t available) {
    for (uint64_t length = 0; length < available;)
        if (!has_fx(data[length++])) return length;
    return 0;
}

// An FSPEC of at most eight octets as one word: FRN 1 at bit 0 and eight bits to an octet, of which the highest, where
// FX was, is always 0. No octets: it is longer than that, or than what is available.
struct FspecWord {
    uint64_t announced = 0;
    uint64_t octets = 0;
};

constexpr unsigned kFspecWordFrns = 8 * kFrnsPerOctet;

// The bit of an FRN in such a word, and the FRN of a bit.
constexpr unsigned bit_of_frn(uint32_t frn) { return frn - 1 + (frn - 1) / kFrnsPerOctet; }
constexpr uint32_t frn_of_bit(unsigned bit) { return bit + 1 - bit / 8; }

// The octets of such an FSPEC as they stand, the first one lowest.
struct FspecOctets {
    uint64_t word = 0;
    uint64_t count = 0;
};

constexpr uint64_t kFxOfAll = 0x0101010101010101;

inline FspecOctets read_fspec_octets(const uint8_t *data, uint64_t available) {
    const uint64_t word = read_first_lowest(data, available);
    const uint64_t ends = ~word & kFxOfAll;
    const uint64_t end = ends & (0 - ends); // the FX bit of the last octet
    const uint64_t count = static_cast<uint64_t>(std::countr_zero(end)) / 8 + 1;
    if (end == 0 || count > available) return {};
    return {word & ((end << 8) - 1), count};
}

constexpr uint64_t announced_by(uint64_t fspec_octets) { return mirror_octets(fspec_octets) & ~(kFxOfAll << 7); }

inline FspecWord read_fspec_word(const uint8_t *data, uint64_t available) {
    const FspecOctets fspec = read_fspec_octets(data, available);
    return {announced_by(fspec.word), fspec.count};
}

// The presence bit of an FRN inside its octet.
constexpr uint8_t frn_mask(uint32_t frn) { return static_cast<uint8_t>(0x80 >> ((frn - 1) % kFrnsPerOctet)); }

constexpr uint64_t frn_octet(uint32_t frn) { return (frn - 1) / kFrnsPerOctet; }

// Whether a valid FSPEC announces an FRN, which counts from 1.
inline bool announces(const ast_fspec_t &fspec, uint32_t frn) {
    return frn <= fspec.frn_count && (fspec.data[frn_octet(frn)] & frn_mask(frn)) != 0;
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
