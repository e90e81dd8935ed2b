#include "split.hpp"

namespace astdump {

Frame frame_block(Octets octets) {
    if (octets.size() < kBlockHeaderOctets) return {Framing::short_header, 0, 0};
    const uint64_t length = static_cast<uint64_t>(octets[1]) << 8 | octets[2];
    if (length < kBlockHeaderOctets) return {Framing::short_length, octets[0], length};
    return {length <= octets.size() ? Framing::block : Framing::past_end, octets[0], length};
}

} // namespace astdump
