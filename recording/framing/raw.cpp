// Blocks back to back: every block is a frame.

#include "framing/block_header.hpp"
#include "framing/framing.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

Framed find_raw(Octets rest, std::vector<uint8_t> &) {
    const Frame frame = frame_block(rest);
    if (frame.framing == Framing::short_length) return {};
    if (frame.framing != Framing::block)
        return rest.empty() || has_published_category(rest) ? incomplete_frame() : Framed{};
    return frame_of(frame.length, rest.first(frame.length));
}

} // namespace ast::recording
