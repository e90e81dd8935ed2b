// Decodes blocks, each by what is known of its data source.
#pragma once

#include <optional>

#include "block/fault.hpp"
#include "block/record_set.hpp"

namespace ast::recording {

struct DecodedBlock {
    const Datagram *datagram = nullptr;
    uint64_t number = 0; // in its file, counted from 1
    uint64_t offset = 0; // in its datagram, in octets
    Octets octets{};
    const SplitBlock *block = nullptr;
    std::optional<Fault> fault{}; // unless the block is valid
    RecordSet shown{};            // those of its records that are asked for
    bool is_cut = false;          // what follows these is not asked for
};

class Decoder {
public:
    // What is known in front of the next block.
    void set_editions(const EditionMemory &editions) { editions_ = editions; }

    const EditionMemory &editions() const { return editions_; }

    // The result is good until the next call; which records are asked for is left to the caller. The octets are one
    // whole block.
    DecodedBlock &decode(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
        block_.read(editions_, octets);
        decoded_.datagram = &datagram;
        decoded_.number = number;
        decoded_.offset = offset;
        decoded_.octets = octets;
        decoded_.block = &block_;
        decoded_.fault.reset();
        decoded_.is_cut = false;
        if (!block_.valid) decoded_.fault = find_fault(block_, datagram);
        return decoded_;
    }

private:
    EditionMemory editions_;
    SplitBlock block_;
    DecodedBlock decoded_;
};

} // namespace ast::recording
