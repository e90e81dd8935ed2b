// "Final" recordings. A frame is
//     octets 1-2   its length, all of it counted
//     octet 3      an error code
//     octet 4      board and line
//     octet 5      the day of the recording
//     octets 6-8   the time since midnight, in 1/100 s
//     then blocks, and four octets A5.

#include <algorithm>

#include "framing/framing.hpp"

namespace ast::recording {

Framed find_final(Octets rest, std::vector<uint8_t> &) {
    constexpr uint64_t kHeaderOctets = 8;
    constexpr uint64_t kTrailerOctets = 4;
    constexpr uint8_t kTrailer = 0xA5;
    constexpr uint32_t kCentisecondsPerDay = 8640000;
    if (rest.size() < kHeaderOctets) return incomplete_frame();
    const uint64_t length = uint64_t{rest[0]} << 8 | rest[1];
    const uint32_t time = uint32_t{rest[5]} << 16 | uint32_t{rest[6]} << 8 | rest[7];
    if (length <= kHeaderOctets + kTrailerOctets || time >= kCentisecondsPerDay) return {};
    if (rest.size() < length) return incomplete_frame();
    const Octets trailer = rest.subspan(length - kTrailerOctets, kTrailerOctets);
    if (!std::ranges::all_of(trailer, [](uint8_t octet) { return octet == kTrailer; })) return {};
    return frame_of(length, rest.subspan(kHeaderOctets, length - kHeaderOctets - kTrailerOctets), time);
}

} // namespace ast::recording
