// Which editions data sources send, and reading blocks by that.
#pragma once

#include "base/octets.hpp"
#include "block/profile_names.hpp"

namespace ast::recording {

// Some KB of values: what is known at one place of an input can be kept for when that place is decoded.
class EditionMemory {
public:
    // With a profile, the categories that it lays out are read by it.
    explicit EditionMemory(const ast_uap_info_t *forced = nullptr);

    // What a block tells of its source. Costs nothing for the categories whose editions are all alike.
    void learn(Octets block);

    // From now on reading a block tells nothing of those that follow, so that an edition does not change midway.
    void freeze() { grows_ = false; }
    bool grows() const { return grows_; }

    // Unless they are frozen, the block itself counts.
    bool split(ast_split_t &split, Octets block, ast_reader_result_t &result);

    // The same into a block of limited room, of which nothing is learnt. Whether it is valid.
    bool decode(ast_datablock_t &block, Octets octets);

    // Adds blocks to a census, up to one that has to be split to be counted, and returns their octets.
    uint64_t count(ast_census_t &census, Octets blocks) const;

    // Whether so many blocks have been seen of every source of which any was.
    bool have_seen(uint64_t blocks) const;

private:
    ast_reader_t reader_{};
    bool grows_ = true;
};

} // namespace ast::recording
