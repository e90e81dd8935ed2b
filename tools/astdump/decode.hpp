// Decodes blocks, each by what is known of its data source.
#pragma once

#include <optional>

#include "fault.hpp"
#include "filter.hpp"

namespace astdump {

struct DecodedBlock {
    const Datagram *datagram = nullptr;
    uint64_t number = 0; // in its file, counted from 1
    uint64_t offset = 0; // in its datagram, in octets
    Octets octets{};
    const Block *block = nullptr;
    std::optional<Fault> fault{}; // unless the block is valid
    RecordSet shown{};            // those of its records that are asked for
    bool is_cut = false;          // what follows these is not asked for
};

class Decoder {
public:
    // What is known in front of the next block.
    void set_editions(const Editions &editions) { editions_ = editions; }

    // The result points into the decoder and is good until the next call; no record is asked for yet. The
    // octets are one whole block.
    DecodedBlock decode(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
        block_.read(editions_, octets);
        DecodedBlock decoded{.datagram = &datagram, .number = number, .offset = offset, .octets = octets};
        decoded.block = &block_;
        if (!block_.valid) decoded.fault = find_fault(block_, datagram);
        return decoded;
    }

private:
    Editions editions_;
    Block block_;
};

} // namespace astdump
