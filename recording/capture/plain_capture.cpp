#include "capture/plain_capture.hpp"

#include <algorithm>
#include <pcap/dlt.h>

namespace ast::recording {

namespace {

constexpr size_t kFileHeaderOctets = 24;
constexpr uint32_t kMicroseconds = 0xA1B2C3D4;
constexpr uint32_t kNanoseconds = 0xA1B23C4D;
constexpr uint32_t kVersion = 2 << 16 | 4; // in the order of a file with the most significant octet first
constexpr uint32_t kLinkTypes[] = {DLT_EN10MB, DLT_LINUX_SLL, DLT_LINUX_SLL2}; // in files as for libpcap itself
constexpr uint32_t kNanosecondsPerSecond = 1000000000;
constexpr uint32_t kMaxFrameOctets = 65536 + 128; // of IP with its link layer

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

// Whether the header is of the usual kind.
bool PlainCapture::read_header() {
    if (header_.size() < kFileHeaderOctets) return false;
    const uint8_t *const header = header_.data();
    const auto has_magic = [&] { return number(header) == kMicroseconds || number(header) == kNanoseconds; };
    little_endian_ = !has_magic();
    if (!has_magic()) return false;
    nanoseconds_ = number(header) == kMicroseconds ? 1000 : 1;
    fractions_ = kNanosecondsPerSecond / nanoseconds_;
    const uint32_t version = number(header + 4);
    if ((little_endian_ ? version << 16 | version >> 16 : version) != kVersion) return false;
    max_octets_ = std::min(number(header + 16), kMaxFrameOctets);
    const uint32_t link_type = number(header + 20);
    link_type_ = static_cast<int>(link_type);
    return max_octets_ != 0 && std::ranges::count(kLinkTypes, link_type) != 0;
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

void PlainCapture::give_up(OctetStream &stream) const {
    stream.put_back(window_.left_over());
    stream.put_back(header_);
}

} // namespace ast::recording
