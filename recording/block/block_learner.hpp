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

class BlockLearner {
public:
    // Adds what a block tells, as reading it does where it is decoded.
    void learn(Known &known, Octets block) {
        if (known.sites.learns_from(block)) {
            block_.read(known.editions, block);
            known.sites.learn(block_);
        } else if (known.editions.grows()) {
            known.editions.learn(block);
        }
    }

private:
    SplitBlock block_;
};

} // namespace ast::recording
