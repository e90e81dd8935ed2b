// IEEE 802.3 frames: destination and source address of six octets each, a length of two octets, and a logical link
// header of three (destination and source service access point, control), which the length counts; then blocks. Short
// frames are filled up to 46 octets behind the length.

#include <algorithm>

#include "framing/framing.hpp"

namespace ast::recording {

Framed find_mac_llc(Octets rest, std::vector<uint8_t> &) {
    constexpr uint64_t kHeaderOctets = 14;
    constexpr uint64_t kLinkHeaderOctets = 3;
    constexpr uint64_t kMaxLength = 1500; // above, the two octets are a type
    constexpr uint64_t kLeastContent = 46;
    if (rest.size() < kHeaderOctets) return incomplete_frame();
    const uint64_t length = uint64_t{rest[12]} << 8 | rest[13];
    if (length <= kLinkHeaderOctets || length > kMaxLength) return {};
    if (rest.size() < kHeaderOctets + length) return incomplete_frame();
    const Octets blocks = rest.subspan(kHeaderOctets + kLinkHeaderOctets, length - kLinkHeaderOctets);
    const uint64_t filled = std::min<uint64_t>(kHeaderOctets + std::max(length, kLeastContent), rest.size());
    const Octets fill = rest.subspan(kHeaderOctets + length, filled - kHeaderOctets - length);
    const bool is_filled = std::ranges::all_of(fill, [](uint8_t octet) { return octet == 0; });
    Framed framed = frame_of(is_filled ? filled : kHeaderOctets + length, blocks);
    framed.may_go_on =
        is_filled && filled == rest.size() && fill.size() < kLeastContent - std::min(length, kLeastContent);
    return framed;
}

} // namespace ast::recording
