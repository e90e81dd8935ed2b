// What blocks tell of their sources, learnt where they are read, before they are decoded.
#pragma once

#include "block/edition_memory.hpp"
#include "block/site_memory.hpp"
#include "block/split_block.hpp"

namespace ast::recording {

// What is known of the sources of an input at one place of it.
struct Known {
    EditionMemory editions;
    SiteMemory sites;

    bool grows() const { return editions.grows() || sites.learns(); }
};

// Stations that are worked out from all that came up to a block, which they are known for, too.
struct SitesFrom {
    const uint8_t *block; // its octets
    SiteMemory sites;
};

class BlockLearner {
public:
    // Adds what a block tells, as reading it does where it is decoded.
    void learn(Known &known, Octets block) {
        if (known.sites.learns_from(block))
            split(known, block);
        else if (known.editions.grows())
            known.editions.learn(block);
    }

    // The same, and what the block holds.
    const SplitBlock &split(Known &known, Octets block) {
        block_.read(known.editions, block);
        if (known.sites.learns_from(block)) known.sites.learn(block_);
        return block_;
    }

private:
    SplitBlock block_;
};

} // namespace ast::recording
