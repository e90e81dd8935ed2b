#include "plain_capture.hpp"

#include <algorithm>

namespace astdump {

namespace {

constexpr size_t kFileHeaderOctets = 24;
constexpr size_t kPacketHeaderOctets = 16;
constexpr uint32_t kMicroseconds = 0xA1B2C3D4;
constexpr uint32_t kNanoseconds = 0xA1B23C4D;
constexpr uint32_t kVersion = 2 << 16 | 4; // in the order of a file with the most significant octet first
constexpr uint32_t kMaxLinkType = 0xFFFF;  // above it, flags
constexpr uint32_t kMaxSeconds = 0x7FFFFFFF;
constexpr uint32_t kNanosecondsPerSecond = 1000000000;
constexpr uint32_t kMaxFrameOctets = 65536 + 128; // of IP with its link layer

uint32_t read_u32(const uint8_t *octets, bool little_endian) {
    uint32_t number = 0;
    for (size_t i = 0; i < 4; ++i) number = number << 8 | octets[little_endian ? 3 - i : i];
    return number;
}

} // namespace

std::optional<PlainCapture> PlainCapture::open(OctetStream &stream) {
    PlainCapture capture(stream);
    const Octets header = stream.peek(kFileHeaderOctets);
    capture.header_.assign(header.begin(), header.end());
    if (!capture.read_header()) return std::nullopt;
    std::vector<uint8_t> taken(header.size());
    stream.read(taken.data(), taken.size());
    return capture;
}

uint32_t PlainCapture::number(const uint8_t *octets) const { return read_u32(octets, little_endian_); }

// Whether the header is of the usual kind.
bool PlainCapture::read_header() {
    if (header_.size() < kFileHeaderOctets) return false;
    const uint8_t *const header = header_.data();
    const uint32_t magic = read_u32(header, false);
    little_endian_ = magic != kMicroseconds && magic != kNanoseconds;
    nanoseconds_ = number(header) == kMicroseconds ? 1000 : 1;
    if (number(header) != kMicroseconds && number(header) != kNanoseconds) return false;
    const uint32_t version = number(header + 4);
    if ((little_endian_ ? version << 16 | version >> 16 : version) != kVersion) return false;
    max_octets_ = std::min(number(header + 16), kMaxFrameOctets);
    const uint32_t link_type = number(header + 20);
    link_type_ = static_cast<int>(link_type);
    return max_octets_ != 0 && link_type <= kMaxLinkType;
}

bool PlainCapture::open(Chunk &chunk) {
    position_ = 0;
    window_.open(chunk);
    while (!packet(chunk.octets())) {
        const Octets octets = chunk.octets();
        const bool odd = octets.size() >= kPacketHeaderOctets + max_octets_;
        if (!odd && window_.read(chunk)) continue;
        window_.leave(chunk, 0);
        return false;
    }
    return true;
}

std::optional<Packet> PlainCapture::next(const Chunk &chunk) {
    auto found = packet(chunk.octets().subspan(position_));
    if (found) position_ += kPacketHeaderOctets + found->frame.size();
    return found;
}

std::optional<Packet> PlainCapture::packet(Octets rest) const {
    if (rest.size() < kPacketHeaderOctets) return std::nullopt;
    const uint32_t seconds = number(rest.data());
    const uint32_t fraction = number(rest.data() + 4);
    const uint32_t octets = number(rest.data() + 8);
    const bool odd = octets > max_octets_ || seconds > kMaxSeconds || fraction >= kNanosecondsPerSecond / nanoseconds_;
    if (odd || octets > rest.size() - kPacketHeaderOctets) return std::nullopt;
    return Packet{{seconds, fraction * nanoseconds_}, rest.subspan(kPacketHeaderOctets, octets)};
}

void PlainCapture::give_up(OctetStream &stream) const {
    stream.put_back(window_.left_over());
    stream.put_back(header_);
}

} // namespace astdump
