// Decodes blocks, each by the profile that fits it.
#pragma once

#include <memory>
#include <optional>

#include "fault.hpp"
#include "filter.hpp"
#include "profiles.hpp"

namespace astdump {

struct DecodedBlock {
    const Datagram *datagram = nullptr;
    uint64_t number = 0; // in its file, counted from 1
    uint64_t offset = 0; // in its datagram, in octets
    Octets octets{};
    const ast_datablock_t *block = nullptr;
    std::optional<Fault> fault{}; // unless the block is valid
    RecordSet shown{};            // those of its records that are asked for
    bool is_cut = false;          // what follows these is not asked for
};

class Decoder {
public:
    // With a profile, every block is decoded by it. With null the one that fits is looked for; where none fits, what
    // got furthest is kept. Takes over the library's log.
    explicit Decoder(const ast_uap_info_t *profile);

    // The result points into the decoder and is good until the next call; no record is asked for yet. The
    // octets are one whole block.
    DecodedBlock decode(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets);

    // The profile that is tried first: the one that the last block was decoded by. Blocks that fit several profiles
    // depend on it, and so on the blocks before them.
    const ast_uap_t *current() const { return current_; }
    void set_current(const ast_uap_t *profile) { current_ = profile; }

private:
    bool decode_by(const ast_uap_t &profile, Octets octets);
    void look_for_profile(Octets octets);
    Fault keep_furthest(Octets octets);

    const ast_uap_info_t *profile_;
    const ast_uap_t *current_ = &AST_UAP_STANDARD;
    std::unique_ptr<ast_datablock_t> block_; // on the heap, being large
    std::unique_ptr<ast_datablock_t> attempt_;
};

} // namespace astdump
