// ORADIS headers, mostly before the blocks of a datagram: the length of header and blocks in two octets, and a time of
// four octets whose unit is the recorder's own.

#include "framing/framing.hpp"

namespace ast::recording {

Framed find_oradis(Octets rest, std::vector<uint8_t> &) {
    constexpr uint64_t kHeaderOctets = 6;
    if (rest.size() < kHeaderOctets) return incomplete_frame();
    const uint64_t length = uint64_t{rest[0]} << 8 | rest[1];
    if (length <= kHeaderOctets) return {};
    if (rest.size() < length) return incomplete_frame();
    return frame_of(length, rest.subspan(kHeaderOctets, length - kHeaderOctets));
}

} // namespace ast::recording
