// pcap captures read in place, as long as nothing about them is odd.
#pragma once

#include <optional>

#include "datagram/window.hpp"

namespace ast::recording {

struct Packet {
    Time time;
    Octets frame;
};

class PlainCapture {
public:
    // Looks at the header of the file and takes it, unless it is one that is left to libpcap.
    static std::optional<PlainCapture> open(OctetStream &stream);

    int link_type() const { return link_type_; }

    // Starts on an empty chunk; false when no whole packet follows.
    bool open(Chunk &chunk);

    // The next packet of the chunk, or nothing when no other one is whole, or when it is an odd one.
    std::optional<Packet> next(const Chunk &chunk) {
        const auto found = packet(chunk.octets().subspan(position_));
        if (found) position_ += kPacketHeaderOctets + found->frame.size();
        return found;
    }

    // Leaves the rest for the next chunk.
    void close(const Chunk &chunk) { window_.leave(chunk, position_); }

    // Puts back what has not been taken, behind the header of the file.
    void give_up(OctetStream &stream) const;

private:
    explicit PlainCapture(OctetStream &stream) : window_(stream) {}

    static constexpr size_t kPacketHeaderOctets = 16;

    bool read_header();

    uint32_t number(const uint8_t *octets) const {
        const auto join = [octets](int first, int second, int third, int fourth) {
            return uint32_t{octets[first]} << 24 | uint32_t{octets[second]} << 16 | uint32_t{octets[third]} << 8 |
                   octets[fourth];
        };
        return little_endian_ ? join(3, 2, 1, 0) : join(0, 1, 2, 3);
    }

    std::optional<Packet> packet(Octets rest) const {
        constexpr uint32_t kMaxSeconds = 0x7FFFFFFF;
        if (rest.size() < kPacketHeaderOctets) return std::nullopt;
        const uint32_t seconds = number(rest.data());
        const uint32_t fraction = number(rest.data() + 4);
        const uint32_t octets = number(rest.data() + 8);
        const bool odd = octets > max_octets_ || seconds > kMaxSeconds || fraction >= fractions_;
        if (odd || octets > rest.size() - kPacketHeaderOctets) return std::nullopt;
        return Packet{{seconds, fraction * nanoseconds_}, rest.subspan(kPacketHeaderOctets, octets)};
    }

    Window window_;
    std::vector<uint8_t> header_; // of the file
    bool little_endian_ = false;
    uint32_t nanoseconds_ = 0; // that a fraction of a second counts
    uint32_t fractions_ = 0;   // in a second
    uint32_t max_octets_ = 0;  // of a packet
    int link_type_ = 0;
    size_t position_ = 0; // in the chunk
};

} // namespace ast::recording
