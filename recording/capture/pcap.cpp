#include "capture/pcap.hpp"

#include <iterator>

#include "base/counted.hpp"

namespace ast::recording {

namespace {

struct Variant {
    uint32_t magic;
    uint32_t nanoseconds; // that a fraction of a second counts
    uint32_t header_octets;
};

// The last one adds an interface, a protocol and a type to every packet, as tcpdump did on some Linux of 1999.
constexpr Variant kVariants[] = {{0xA1B2C3D4, 1000, 16}, {0xA1B23C4D, 1, 16}, {0xA1B2CD34, 1000, 24}};

constexpr uint32_t kNanosecondsPerSecond = 1000000000;
constexpr size_t kMajor = 4, kMinor = 6, kLinkType = 20; // in the header of a file
constexpr uint32_t kLinkTypeBits = 0x03FFFFFF;           // the others say what checksum ends the frames
constexpr uint16_t kMajorVersion = 2;
constexpr uint16_t kMinorVersion = 4;

// Before these minor versions, the octets that a packet had always stand before those that are captured of it, and in
// some captures.
constexpr uint16_t kFirstSometimesSwapped = 3;
constexpr uint16_t kFirstUnswapped = 4;

const Variant *find_variant(Octets head, const ByteOrder &order) {
    if (head.size() < sizeof(uint32_t)) return nullptr;
    const auto found = std::ranges::find(kVariants, order.u32(head.data()), &Variant::magic);
    return found == std::end(kVariants) ? nullptr : found;
}

} // namespace

bool Pcap::begins(Octets head) { return find_variant(head, {false}) || find_variant(head, {true}); }

ByteOrder Pcap::order_of(Octets header) { return {.is_little_endian = !find_variant(header, {false})}; }

std::string Pcap::header_complaint(Octets header) {
    if (header.size() < kFileHeaderOctets)
        return "the header of the capture is cut off after " + counted(header.size(), "octet");
    const ByteOrder order = order_of(header);
    const uint16_t major = order.u16(&header[kMajor]);
    const uint16_t minor = order.u16(&header[kMinor]);
    if (major == kMajorVersion && minor <= kMinorVersion) return {};
    return "captures of pcap version " + std::to_string(major) + '.' + std::to_string(minor) + " are not supported";
}

Pcap::Pcap(Octets header) : order_(order_of(header)) {
    const Variant &variant = *find_variant(header, order_);
    header_octets_ = variant.header_octets;
    nanoseconds_ = variant.nanoseconds;
    fractions_ = kNanosecondsPerSecond / nanoseconds_;
    minor_version_ = order_.u16(&header[kMinor]);
    if (minor_version_ < kFirstUnswapped) least_unusual_octets_ = 0;
    link_type_ = order_.u32(&header[kLinkType]) & kLinkTypeBits;
}

// A fraction of more than a second may have been reckoned so; one of many seconds is damaged, and the second may be
// right.
void Pcap::carry(Time &time) const {
    const bool is_reckoned = time.nanoseconds - fractions_ < fractions_;
    time.nanoseconds = is_reckoned ? time.nanoseconds - fractions_ : 0;
    if (is_reckoned) ++time.seconds;
}

size_t Pcap::captured_octets(Octets rest) const {
    const uint32_t first = order_.u32(rest.data() + kCaptured);
    const uint32_t second = order_.u32(rest.data() + kOnTheWire);
    if (minor_version_ < kFirstSometimesSwapped) return second;
    return minor_version_ < kFirstUnswapped ? std::min(first, second) : first;
}

Piece::Kind Pcap::read_unusual(Octets rest, Piece &piece) const {
    const size_t captured = captured_octets(rest);
    if (captured > kMaxCapturedOctets) return Piece::Kind::damaged;
    const Piece::Kind kind = read(rest, captured, std::min(captured, kMostFrameOctets), piece);
    const bool is_long = kind == Piece::Kind::packet && piece.octets > rest.size();
    return is_long ? Piece::Kind::long_packet : kind;
}

std::string Pcap::complaint(Octets rest) const {
    return "a packet claims " + counted(captured_octets(rest), "octet") + ", more than any has";
}

bool Pcap::is_likely_header(Octets rest) const {
    if (rest.size() < header_octets_) return false;
    const uint32_t first = order_.u32(rest.data() + kCaptured);
    const uint32_t second = order_.u32(rest.data() + kOnTheWire);
    const bool is_part = minor_version_ < kFirstUnswapped || first <= second;
    return is_part && captured_octets(rest) <= kMaxCapturedOctets && order_.u32(rest.data() + kFraction) < fractions_;
}

// A packet leads to another one less than an hour later, or to the end.
bool Pcap::is_sound(Octets rest) const {
    constexpr uint32_t kMostSeconds = 3600;
    if (!is_likely_header(rest)) return false;
    const size_t captured = captured_octets(rest);
    if (captured == 0 || captured > rest.size() - header_octets_) return false;
    const Octets next = rest.subspan(header_octets_ + captured);
    if (next.empty()) return true;
    return is_likely_header(next) && order_.u32(next.data()) - order_.u32(rest.data()) < kMostSeconds;
}

} // namespace ast::recording
