// What tells blocks from other octets.
#pragma once

#include <cstdint>
#include <optional>

#include "base/octets.hpp"
#include "base/patience.hpp"

namespace ast::recording {

// The octets of blocks back to back at the beginning of others: each with a LEN that fits, a published category, and an
// FSPEC that ends within it.
uint64_t chain_of_blocks(Octets octets);

// The first place behind the beginning from which at least so many blocks run as far as the octets go, or up to what
// may begin another one.
std::optional<uint64_t> find_chain(Octets octets, uint64_t blocks, Patience &patience);

bool has_published_category(Octets block);

// Whether any edition of a category can be read.
bool is_known_category(uint32_t category);

// Whether octets, none included, may turn out to be a block once more of them are there.
bool may_begin_block(Octets octets);

// How much of octets hangs together as blocks, and what lies behind that before blocks run again.
struct Soundness {
    uint64_t sound = 0;          // octets of blocks
    uint64_t blocks = 0;         // that they are
    uint64_t last = 0;           // where the last of these begins
    std::optional<uint64_t> gap; // octets behind them that are none; nothing where there are too few to tell
    uint64_t no_blocks = 0;      // of those too few, how many begin none, whatever follows

    // Where it is sound after all only up to the last block.
    void take_back_last() {
        blocks -= sound > last;
        sound = last;
    }
};

// Looks through octets that are to be blocks back to back. A LEN that is wrong shows where it leads: then the block
// that has it is no longer sound, unless its records fill it. Blocks that have no published category are sound where
// the blocks around them are. Without patience for a search there is no gap, whatever follows.
Soundness check_blocks(Octets octets, bool is_end, Patience &patience);

} // namespace ast::recording
