// HDLC frames, as asynchronous lines carry them: octets between flags 7E, in which 7D announces that the next octet was
// sent with bit 6 inverted. Inside stand an address, a control octet, blocks, and a frame check sequence: the CRC of
// ISO/IEC 13239 (X.25), low octet first.

#include <algorithm>

#include "framing/framing.hpp"

namespace ast::recording {

namespace {

constexpr uint8_t kFlag = 0x7E;
constexpr uint8_t kEscape = 0x7D;
constexpr uint8_t kInversion = 0x20;
constexpr uint64_t kHeaderOctets = 2;
constexpr uint64_t kCheckOctets = 2;

// The check over octets and their check sequence comes out as this when nothing was changed on the way.
constexpr uint32_t kGoodCheck = 0xF0B8;

uint32_t check(Octets octets) {
    constexpr uint32_t kPolynomial = 0x8408; // reflected
    uint32_t remainder = 0xFFFF;
    for (const uint8_t octet : octets) {
        remainder ^= octet;
        for (int bit = 0; bit < 8; ++bit) remainder = remainder >> 1 ^ ((remainder & 1) != 0 ? kPolynomial : 0);
    }
    return remainder;
}

void unescape(Octets sent, std::vector<uint8_t> &storage) {
    storage.clear();
    bool inverts = false;
    for (const uint8_t octet : sent) {
        if (octet == kEscape && !inverts) {
            inverts = true;
            continue;
        }
        storage.push_back(inverts ? static_cast<uint8_t>(octet ^ kInversion) : octet);
        inverts = false;
    }
}

} // namespace

// Flags stand before and behind a frame; of several in a row, all but the last stand by themselves. The one behind a
// frame may be that before the next, and is left to it.
Framed find_hdlc(Octets rest, std::vector<uint8_t> &storage) {
    if (rest.empty()) return incomplete_frame();
    if (rest[0] != kFlag) return {};
    const auto first = std::ranges::find_if(rest, [](uint8_t octet) { return octet != kFlag; });
    const auto flags = static_cast<uint64_t>(first - rest.begin());
    if (flags > 1) return frame_without_blocks(flags - 1);
    const auto last = std::find(first, rest.end(), kFlag);
    if (last == rest.end()) return incomplete_frame();
    unescape(Octets(first, last), storage);
    const Octets content = storage;
    if (content.size() <= kHeaderOctets + kCheckOctets || check(content) != kGoodCheck) return {};
    return frame_of(static_cast<uint64_t>(last - rest.begin()),
                    content.subspan(kHeaderOctets, content.size() - kHeaderOctets - kCheckOctets));
}

} // namespace ast::recording
