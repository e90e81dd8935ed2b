// From a captured frame to what it transports: a UDP datagram, a segment of TCP, or the content of an LLC frame.
#pragma once

#include <optional>
#include <vector>

#include "capture/reassembly.hpp"
#include "capture/routes.hpp"
#include "datagram/datagram.hpp"

namespace ast::recording {

// Where a segment stands in its stream.
struct TcpHeader {
    uint32_t sequence; // of its first octet, or of the SYN before that
    size_t length;     // of the payload as the packet says, of which less may have been captured
    bool syn;
    bool fin;
    bool rst;
};

struct Transported {
    Octets payload; // in the frame, or what is rebuilt
    bool truncated; // the payload is shorter than the header says
    std::optional<Endpoints> endpoints;
    std::optional<TcpHeader> tcp;
    std::vector<uint8_t> rebuilt; // from several frames, or by libtins
};

// A UDP datagram in one piece behind an IPv4 header without options, all of whose lengths agree.
class PlainDatagram {
public:
    PlainDatagram() = default;
    explicit PlainDatagram(Octets octets) : octets_(octets) {}

    explicit operator bool() const { return !octets_.empty(); } // whether it is one
    RouteOctets route() const { return octets_.first<kRouteOctets>(); }
    Octets payload() const { return octets_.subspan(kRouteOctets + kLengthAndChecksumOctets); }

private:
    static constexpr size_t kLengthAndChecksumOctets = 4;

    Octets octets_; // of the packet, from the addresses on
};

struct LinkLayer;

class Dissector {
public:
    // Takes a link type as libpcap numbers them. Throws std::runtime_error for one that cannot be dissected.
    explicit Dissector(int link_type);

    // Nothing for a frame that carries any other, which may be in order, too, but is left to dissect(). Throws as that.
    PlainDatagram find_plain(Octets frame) const;

    // Nothing for a frame that carries anything else or a fragment that does not complete its datagram. The time is
    // that of the frame. Throws std::runtime_error for a frame whose headers are cut short or contradict themselves;
    // but of TCP, most of which is other traffic, what is lost is missing in its stream.
    std::optional<Transported> dissect(Octets frame, const Time &time);

    uint64_t incomplete() const { return reassembler_.incomplete(); }

private:
    const LinkLayer &link_;
    Reassembler reassembler_;
};

} // namespace ast::recording
