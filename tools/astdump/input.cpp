#include "input.hpp"

#include <algorithm>
#include <array>

#include "capture.hpp"
#include "raw_file.hpp"

namespace astdump {

namespace {

using Magic = std::array<uint8_t, 4>;

// pcap in either byte order: microseconds, nanoseconds, and with extended packet headers.
constexpr Magic kPcapMagics[] = {
    {0xA1, 0xB2, 0xC3, 0xD4}, {0xD4, 0xC3, 0xB2, 0xA1}, {0xA1, 0xB2, 0x3C, 0x4D},
    {0x4D, 0x3C, 0xB2, 0xA1}, {0xA1, 0xB2, 0xCD, 0x34}, {0x34, 0xCD, 0xB2, 0xA1},
};

// pcapng: the type of the section header block, and after its length the byte-order magic. The type alone could be
// a category 010 block of 3341 octets.
constexpr Magic kSectionHeader = {0x0A, 0x0D, 0x0D, 0x0A};
constexpr Magic kByteOrders[] = {{0x1A, 0x2B, 0x3C, 0x4D}, {0x4D, 0x3C, 0x2B, 0x1A}};
constexpr size_t kByteOrderOffset = 8;

bool has_magic(Octets head, size_t offset, const Magic &magic) {
    return head.size() >= offset + magic.size() && std::ranges::equal(head.subspan(offset, magic.size()), magic);
}

bool is_capture(Octets head) {
    const auto one_of = [&](size_t offset, const auto &magics) {
        return std::ranges::any_of(magics, [&](const Magic &magic) { return has_magic(head, offset, magic); });
    };
    return one_of(0, kPcapMagics) || (has_magic(head, 0, kSectionHeader) && one_of(kByteOrderOffset, kByteOrders));
}

} // namespace

std::unique_ptr<Source> open_source(OctetStream &stream, Damage &damage) {
    if (is_capture(stream.peek(kByteOrderOffset + sizeof(Magic)))) return std::make_unique<Capture>(stream, damage);
    return std::make_unique<RawFile>(stream);
}

} // namespace astdump
