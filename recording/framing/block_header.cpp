#include "framing/block_header.hpp"

namespace ast::recording {

void set_block_length(std::span<uint8_t> block) {
    block[1] = static_cast<uint8_t>(block.size() >> 8);
    block[2] = static_cast<uint8_t>(block.size());
}

Blocks count_blocks(Octets octets) {
    Blocks blocks{0, 0};
    for (;; ++blocks.count) {
        const Frame frame = frame_block(octets.subspan(blocks.octets));
        if (frame.framing != Framing::block) return blocks;
        blocks.octets += frame.length;
    }
}

} // namespace ast::recording
