// Decodes blocks, each by the profile that fits it.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "fault.hpp"
#include "filter.hpp"
#include "profiles.hpp"

namespace astdump {

struct DecodedBlock {
    const Datagram *datagram;
    uint64_t number; // in its file, counted from 1
    uint64_t offset; // in its datagram, in octets
    Octets octets;
    const ast_datablock_t *block;
    std::string_view profile;
    std::optional<Fault> fault; // unless the block is valid
    RecordSet shown;            // those of its records that are asked for
};

class Decoder {
public:
    // With a profile, every block is decoded by it. With null the library chooses; where none fits, what got furthest
    // is kept. Takes over the library's log.
    explicit Decoder(const ast_uap_info_t *profile);

    // The result points into the decoder and is good until the next call; no record is asked for yet. The
    // octets are one whole block.
    DecodedBlock decode(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets);

private:
    Fault keep_furthest(Octets octets);

    const ast_uap_info_t *profile_;
    std::unique_ptr<ast_datablock_t> block_; // on the heap, being large
    std::unique_ptr<ast_datablock_t> attempt_;
};

} // namespace astdump
