// pcap: a header that is good for the whole capture, and packets with a header each.
#pragma once

#include "capture/byte_order.hpp"
#include "capture/packet_reader.hpp"

namespace ast::recording {

class Pcap {
public:
    static constexpr const char *kFraming = "pcap";
    static constexpr const char *kPiece = "packet";
    static constexpr size_t kAlignment = 1;
    static constexpr size_t kShift = 4; // times and lengths make sense in each other's places, too, packet by packet
    static constexpr size_t kDoubtOctets = 2048;
    static constexpr size_t kMagicOctets = 4;
    static constexpr size_t kFileHeaderOctets = 24;

    // Whether a capture begins so: in either byte order, with times in microseconds or nanoseconds.
    static bool begins(Octets head);

    // Why a file that begins so cannot be read; empty if it can.
    static std::string header_complaint(Octets header);

    // Takes the header of a file.
    explicit Pcap(Octets header);

    uint32_t link_type() const { return link_type_; }

    Piece::Kind read(Octets rest, Piece &piece) const {
        if (rest.size() < header_octets_) return Piece::Kind::part;
        const size_t captured = order_.u32(rest.data() + kCaptured);
        if (captured >= least_unusual_octets_) [[unlikely]]
            return read_unusual(rest, piece);
        return read(rest, captured, captured, piece);
    }

    static bool is_doubtful(Octets) { return false; }
    void take(Octets) {}
    std::string complaint(Octets rest) const;
    bool is_sound(Octets rest) const;

private:
    static constexpr size_t kFraction = 4, kCaptured = 8, kOnTheWire = 12; // behind the seconds

    // What stands behind the octets that are looked at is passed over.
    Piece::Kind read(Octets rest, size_t captured, size_t looked_at, Piece &piece) const {
        if (looked_at > rest.size() - header_octets_) return Piece::Kind::part;
        piece.octets = header_octets_ + captured;
        piece.packet.time = time(rest.data());
        piece.packet.link_type = link_type_;
        piece.packet.frame = rest.subspan(header_octets_, looked_at);
        return Piece::Kind::packet;
    }

    Piece::Kind read_unusual(Octets rest, Piece &piece) const;
    size_t captured_octets(Octets rest) const;

    Time time(const uint8_t *header) const {
        Time time{order_.u32(header), order_.u32(header + kFraction)};
        if (time.nanoseconds >= fractions_) [[unlikely]]
            carry(time);
        time.nanoseconds *= nanoseconds_;
        return time;
    }

    void carry(Time &time) const;
    static ByteOrder order_of(Octets header);
    bool is_likely_header(Octets rest) const;

    ByteOrder order_;
    uint32_t header_octets_ = 16; // of a packet
    uint32_t nanoseconds_ = 1000; // that a fraction of a second counts
    uint32_t fractions_ = 0;      // in a second
    uint16_t minor_version_ = 0;
    size_t least_unusual_octets_ = kMostFrameOctets + 1; // of a packet, read with more care
    uint32_t link_type_ = 0;
};

} // namespace ast::recording
