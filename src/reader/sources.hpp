// What a reader knows of data sources, and which candidates it tries on a block for that.
#pragma once

#include <bit>

#include "reader/candidates.hpp"

namespace ast::reader {

using Source = ast_reader_source_t;
using Mask = uint32_t; // of candidates, the first one in bit 0

constexpr Mask bit_of(size_t candidate) { return Mask{1} << candidate; }
constexpr Mask all_of(size_t count) { return bit_of(count) - 1; }

constexpr size_t first_of(Mask mask) { return static_cast<size_t>(std::countr_zero(mask)); }

template <typename Visitor>
void each(Mask mask, Visitor visit) {
    for (; mask != 0; mask &= mask - 1) visit(first_of(mask));
}

// Those of a mask by which records that announce no more than this read as by the first of them.
inline Mask alike_first(const Candidates &candidates, Mask mask, uint64_t announced) {
    Mask alike = 0;
    each(mask,
         [&](size_t i) { alike |= are_alike(candidates[first_of(mask)], candidates[i], announced) ? bit_of(i) : 0; });
    return alike;
}

inline bool are_one_kind(const Candidates &candidates, Mask mask, uint64_t announced = UINT64_MAX) {
    return alike_first(candidates, mask, announced) == mask;
}

struct Block {
    const uint8_t *data;
    uint64_t available;
    uint64_t length; // from LEN, at least that of a header and at most what is available

    uint32_t category() const { return data[0]; }
};

// The source of a block of its category, as a number that is not 0.
uint32_t key_of(const Block &block);

// Those that nothing puts behind another one but their order, as a source has kept them.
Mask leading_of(const Source &source);
void set_leading(Source &source, Mask leading);

// The place of a source, null where it is not known.
Source *find_source(ast_reader_t &reader, uint32_t key);

// A place for one that is not known, that of the one not seen for the longest time where all are taken.
Source &add_source(ast_reader_t &reader, uint32_t key);

// What a frozen reader knows of the source of a block, or else of the one of its category that most is known of. Null
// for a category of which no source is known.
const Source *find_known(const ast_reader_t &reader, const Block &block);

// The source that speaks for all those of a category which send what it does: there is no place for more, and what is
// known of it decides. Null where it does not.
Source *find_spokesman(ast_reader_t &reader, const Candidates &candidates, uint32_t category);

// One more block that a profile fitted.
void count_block(ast_reader_t &reader, Source &source);

// Those that nothing puts behind another one but their order.
Mask leaders(const Source &source, const Candidates &candidates, Mask among);

// Whether those that lead have fitted every block, and no other one has.
bool is_sure(const Source &source, const Candidates &candidates);

// Of a source that is sure, those that have fitted none of its blocks.
Mask hopeless(const Source &source, const Candidates &candidates);

// Those that are tried first, and whether no other comes into question while the first of them fits.
struct Trial {
    Mask tried;
    bool is_settled;
};

Trial first_tried(const Source &source, const Candidates &candidates, bool learns);

} // namespace ast::reader
