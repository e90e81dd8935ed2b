// From a captured frame to what it transports: a UDP datagram, a segment of TCP, or the content of an LLC frame.
#pragma once

#include <optional>
#include <stdexcept>
#include <vector>

#include "capture/reassembly.hpp"
#include "capture/routes.hpp"
#include "datagram/datagram.hpp"

namespace ast::recording {

// A frame whose headers are cut short or contradict themselves, or one of an unknown kind; what() says which.
class Undissected : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Where a segment stands in its stream.
struct TcpHeader {
    uint32_t sequence; // of its first octet, or of the SYN before that
    size_t length;     // of the payload as the packet says, of which less may have been captured
    bool syn;
    bool fin;
    bool rst;
};

struct Transported {
    Octets payload;            // in the frame, or what is rebuilt
    bool is_truncated = false; // the payload is shorter than the header says
    bool is_rebuilt = false;   // from several frames, so that the payload is good until the next one only
    std::optional<Endpoints> endpoints;
    std::optional<TcpHeader> tcp;
};

// A UDP datagram in one piece behind an IPv4 header without options, all of whose lengths agree.
class PlainDatagram {
public:
    PlainDatagram() = default;
    explicit PlainDatagram(Octets octets) : octets_(octets) {}

    explicit operator bool() const { return !octets_.empty(); } // whether it is one
    RouteOctets route() const { return Octets::Span(octets_).first<kRouteOctets>(); }
    Octets payload() const { return octets_.subspan(kRouteOctets + kLengthAndChecksumOctets); }

private:
    static constexpr size_t kLengthAndChecksumOctets = 4;

    Octets octets_; // of the packet, from the addresses on
};

// Why frames of a link type, as capture files number them, cannot be dissected, behind "captures of"; empty if they
// can.
std::string link_type_complaint(uint32_t link_type);

struct LinkLayer;
struct IpContent;

class Dissector {
public:
    Dissector();

    // Of which link type frames are from now on. This and the others throw Undissected.
    void set_link_type(uint32_t link_type) {
        if (link_type != link_type_) change_link_type(link_type);
    }

    // Nothing for a frame that carries any other, which may be in order, too, but is left to dissect().
    PlainDatagram find_plain(Octets frame) const;

    // Nothing for a frame that carries anything else or a fragment that does not complete its datagram. The time is
    // that of the frame. Of TCP, most of which is other traffic, what is lost is missing in its stream.
    std::optional<Transported> dissect(Octets frame, const Time &time);

    uint64_t incomplete() const { return reassembler_.incomplete(); }
    void count_incomplete(bool counts) { reassembler_.count_incomplete(counts); }

private:
    void change_link_type(uint32_t link_type);
    std::optional<Transported> open_piece(IpContent &content, const Time &time);
    bool reassemble(IpContent &content, const Time &time);

    const LinkLayer *link_;
    uint32_t link_type_;
    Reassembler reassembler_;
    std::vector<uint8_t> rebuilt_;
};

} // namespace ast::recording
