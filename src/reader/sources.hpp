// What a reader knows of data sources, and which candidates it tries on a block for that.
#pragma once

#include <bit>

#include "reader/candidates.hpp"

namespace ast::reader {

using Source = ast_reader_source_t;
using Mask = uint32_t; // of candidates, the first one in bit 0

constexpr Mask bit_of(size_t candidate) { return Mask{1} << candidate; }
constexpr Mask all_of(size_t count) { return bit_of(count) - 1; }

template <typename Visitor>
void each(Mask mask, Visitor visit) {
    for (; mask != 0; mask &= mask - 1) visit(static_cast<size_t>(std::countr_zero(mask)));
}

struct Block {
    const uint8_t *data;
    uint64_t available;
    uint64_t length; // from LEN, at least that of a header and at most what is available

    uint32_t category() const { return data[0]; }
};

// The source of a block of its category, as a number that is not 0.
uint32_t key_of(const Block &block);

// The place of a source, new or that of the one not seen for the longest time unless it is known.
Source &find_source(ast_reader_t &reader, uint32_t key);

// What a frozen reader knows of the source of a block, or else of the one of its category that most is known of. Null
// for a category of which no source is known.
const Source *find_known(const ast_reader_t &reader, const Block &block);

// Those that nothing puts behind another one but their order.
Mask leaders(const Source &source, const Candidates &candidates, Mask among);

// Those that are tried first, and whether no other comes into question while the first of them fits.
struct Trial {
    Mask tried;
    bool is_settled;
};

Trial first_tried(const Source &source, const Candidates &candidates, bool learns);

} // namespace ast::reader
