// The blocks that have been read: their octets, and what they are decoded by once more.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "block/decoded_block.hpp"

namespace ast::viewer {

using namespace recording;

// What is kept of a block beside its octets.
struct StoredBlock {
    int64_t time_ns;          // AST_TIME_UNKNOWN for none
    uint64_t datagram_offset; // in its file
    uint32_t offset;          // in its datagram
    uint32_t place;           // of its octets
    uint32_t number;          // in its file
    uint32_t packet;          // 0 where there are none
    uint32_t first_row;
    uint16_t file;  // place among the paths
    uint16_t route; // from 1; 0 for none
    uint16_t length;
    uint8_t category;
    uint8_t state;       // AST_BLOCK_...
    bool fills_datagram; // the datagram is whole blocks to its end
};

// Blocks that are read by the same knowledge of their sources.
struct Stretch {
    uint32_t first_block;
    size_t input; // place of what is read
    Known known;
};

class BlockStore {
public:
    // What follows is read by this.
    void begin_stretch(size_t input, const Known &known);

    void add(const DecodedBlock &decoded, uint16_t file, uint8_t state, uint32_t first_row);

    uint32_t size() const { return static_cast<uint32_t>(blocks_.size()); }
    const StoredBlock &operator[](uint32_t block) const { return blocks_[block]; }
    Octets octets(uint32_t block) const;
    const Stretch &stretch_of(uint32_t block) const;

    // The block of a row, of which there are some.
    uint32_t block_of_row(uint32_t row) const;

    // As it came. Good until the next call.
    const Datagram &datagram(uint32_t block) const;
    const Endpoints *route(uint32_t block) const;

    uint64_t octets_held() const { return pieces_.size() * kPieceOctets + blocks_.size() * sizeof(StoredBlock); }

private:
    static constexpr size_t kPieceOctets = size_t{1} << 20;

    uint32_t keep(Octets octets);
    uint16_t route_of(const std::optional<Endpoints> &endpoints);

    std::vector<std::unique_ptr<uint8_t[]>> pieces_;
    size_t used_ = kPieceOctets; // of the last one
    std::deque<StoredBlock> blocks_;
    std::deque<Stretch> stretches_;
    std::vector<Endpoints> routes_;
    mutable Datagram datagram_;
};

// Decodes stored blocks, as they were decoded at first.
class StoredDecoder {
public:
    explicit StoredDecoder(const BlockStore &store) : store_(store) {}

    // All records are shown. Good until the next call. Blocks in turn are the fastest.
    DecodedBlock &decode(uint32_t block, std::span<const ast_site_t> given);

    // What is known of sites has changed.
    void forget() { next_ = kNone; }

private:
    static constexpr uint32_t kNone = UINT32_MAX;

    void go_to(uint32_t block, std::span<const ast_site_t> given);

    const BlockStore &store_;
    Decoder decoder_;
    const Stretch *stretch_ = nullptr;
    uint32_t next_ = kNone; // block
};

} // namespace ast::viewer
