// Decodes blocks, each by what is known of the data sources.
#pragma once

#include <optional>
#include <span>

#include "block/block_learner.hpp"
#include "block/fault.hpp"
#include "block/record_set.hpp"

namespace ast::recording {

struct DecodedBlock {
    const Datagram *datagram = nullptr;
    uint64_t number = 0; // in its file, counted from 1
    uint64_t offset = 0; // in its datagram, in octets
    Octets octets{};
    const SplitBlock *block = nullptr;
    const SiteMemory *sites = nullptr;
    std::optional<Fault> fault{}; // unless the block is valid
    RecordSet shown{};            // those of its records that are asked for
    bool is_cut = false;          // what follows these is not asked for
};

class Decoder {
public:
    // What is known in front of the next block, and what from later ones on, for as long as these are decoded.
    void set_known(const Known &known, std::span<const SitesFrom> later) {
        known_ = known;
        later_ = later;
    }

    const EditionMemory &editions() const { return known_.editions; }

    // The result is good until the next call; which records are asked for is left to the caller. The octets are one
    // whole block.
    DecodedBlock &decode(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
        block_.read(known_.editions, octets);
        if (known_.sites.learns_from(octets)) known_.sites.learn(block_);
        take_worked_out(octets);
        decoded_.datagram = &datagram;
        decoded_.number = number;
        decoded_.offset = offset;
        decoded_.octets = octets;
        decoded_.block = &block_;
        decoded_.sites = &known_.sites;
        decoded_.fault.reset();
        decoded_.is_cut = false;
        if (!block_.valid) decoded_.fault = find_fault(block_, datagram);
        return decoded_;
    }

    // A block that is not asked for tells where its source stands all the same.
    void pass(Octets octets) {
        if (known_.sites.learns_from(octets)) {
            block_.read(known_.editions, octets);
            known_.sites.learn(block_);
        }
        take_worked_out(octets);
    }

private:
    void take_worked_out(Octets octets) {
        if (later_.empty() || later_.front().block != octets.data()) return;
        known_.sites = later_.front().sites;
        later_ = later_.subspan(1);
    }

    Known known_;
    std::span<const SitesFrom> later_;
    SplitBlock block_;
    DecodedBlock decoded_;
};

} // namespace ast::recording
