// From a captured frame to the UDP datagram in it.
#pragma once

#include <optional>
#include <vector>

#include "datagram.hpp"
#include "reassembly.hpp"

namespace astdump {

struct UdpDatagram {
    Octets payload; // in the frame, or what is rebuilt
    bool truncated; // the payload is shorter than the header says
    Endpoints endpoints;
    std::vector<uint8_t> rebuilt; // from several frames, or by libtins
};

struct LinkLayer;

class Dissector {
public:
    // Takes a link type as libpcap numbers them. Throws std::runtime_error for one that cannot be dissected.
    explicit Dissector(int link_type);

    // Nothing for a frame that carries no UDP or a fragment that does not complete its datagram.
    // Throws std::runtime_error for a frame whose headers are cut short or contradict themselves.
    std::optional<UdpDatagram> dissect(Octets frame);

    uint64_t incomplete() const { return reassembler_.incomplete(); }

private:
    const LinkLayer &link_;
    Reassembler reassembler_;
};

} // namespace astdump
