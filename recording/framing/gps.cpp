// Recordings of 2,200 octets of header, which are filled with one value, and then blocks with ten octets of the
// recorder behind each. What the ten octets mean is not known: the first four are those of the whole recording, the
// last but one counts upwards.

#include "framing/block_header.hpp"
#include "framing/framing.hpp"

namespace ast::recording {

Framed find_gps(Octets rest, std::vector<uint8_t> &) {
    constexpr uint64_t kTrailerOctets = 10;
    const Frame frame = frame_block(rest);
    if (frame.framing == Framing::short_length) return {};
    if (frame.framing != Framing::block || rest.size() < frame.length + kTrailerOctets) return incomplete_frame();
    return frame_of(frame.length + kTrailerOctets, rest.first(frame.length));
}

} // namespace ast::recording
