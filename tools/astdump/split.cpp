#include "split.hpp"

namespace astdump {

Blocks count_blocks(Octets octets) {
    Blocks blocks{0, 0};
    for (;; ++blocks.count) {
        const Frame frame = frame_block(octets.subspan(blocks.octets));
        if (frame.framing != Framing::block) return blocks;
        blocks.octets += frame.length;
    }
}

} // namespace astdump
