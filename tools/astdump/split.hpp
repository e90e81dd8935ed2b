// Splits octets into blocks by their headers: CAT in one octet, LEN of the whole block in two.
#pragma once

#include "datagram.hpp"

namespace astdump {

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
Frame frame_block(Octets octets);

} // namespace astdump
