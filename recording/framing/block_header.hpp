// Splits octets into blocks by their headers: CAT in one octet, LEN of the whole block in two.
#pragma once

#include "base/octets.hpp"

namespace ast::recording {

constexpr uint64_t kBlockHeaderOctets = 3;
constexpr uint64_t kMaxBlockOctets = 65535;

enum class Framing {
    block,        // a whole block
    short_header, // fewer octets than a header has
    short_length, // LEN does not even count the header
    past_end,     // LEN runs past the octets at hand
};

struct Frame {
    Framing framing;
    uint32_t category; // 0 for a short header, as is the length
    uint64_t length;   // LEN, in octets
};

// What stands at the start of the octets.
inline Frame frame_block(Octets octets) {
    if (octets.size() < kBlockHeaderOctets) return {Framing::short_header, 0, 0};
    const uint64_t length = static_cast<uint64_t>(octets[1]) << 8 | octets[2];
    if (length < kBlockHeaderOctets) return {Framing::short_length, octets[0], length};
    return {length <= octets.size() ? Framing::block : Framing::past_end, octets[0], length};
}

// Writes the LEN of a block, which counts its header.
void set_block_length(std::span<uint8_t> block);

// The whole blocks at the start of the octets.
struct Blocks {
    uint64_t count;
    uint64_t octets;
};
Blocks count_blocks(Octets octets);

// Calls take(block) for each of these.
template <typename Take>
void each_block(Octets octets, Take take) {
    for (;;) {
        const Frame frame = frame_block(octets);
        if (frame.framing != Framing::block) return;
        take(octets.first(frame.length));
        octets = octets.subspan(frame.length);
    }
}

} // namespace ast::recording
