#include "write/packets.hpp"

#include <cstring>
#include <stdexcept>
#include <vector>

#include <pcap/pcap.h>
#include <tins/ethernetII.h>
#include <tins/ip.h>
#include <tins/ipv6.h>
#include <tins/rawpdu.h>
#include <tins/udp.h>

namespace ast::recording {

namespace {

constexpr uint32_t kMicrosecondsMagic = 0xA1B2C3D4;
constexpr uint32_t kNanosecondsPerMicrosecond = 1000;
constexpr bpf_u_int32 kMaxFrameOctets = 262144; // the usual limit

constexpr uint16_t kPort = 8600;
constexpr Address kSource{.octets = {192, 0, 2, 1}};
constexpr Address kDestination{.octets = {233, 252, 0, 1}};
constexpr Endpoints kUnknown{{kSource, kPort}, {kDestination, kPort}};

// Locally administered.
const Tins::HWAddress<6> kSender("02:00:00:00:00:01");
const Tins::HWAddress<6> kReceiver("02:00:00:00:00:02");

// Captures have the byte order of whoever writes them.
template <typename Header>
void put_header(std::string &out, const Header &header) {
    out.append(reinterpret_cast<const char *>(&header), sizeof header);
}

struct PacketHeader {
    uint32_t seconds;
    uint32_t microseconds;
    uint32_t octets;
    uint32_t octets_on_the_wire;
};

// Groups have addresses of their own.
Tins::HWAddress<6> link_address(const Address &destination) {
    const auto &octets = destination.octets;
    if (destination.is_ipv6) {
        if (octets[0] != 0xFF) return kReceiver;
        const uint8_t group[] = {0x33, 0x33, octets[12], octets[13], octets[14], octets[15]};
        return Tins::HWAddress<6>(group);
    }
    if (octets[0] < 224 || octets[0] > 239) return kReceiver;
    const uint8_t group[] = {0x01, 0x00, 0x5E, static_cast<uint8_t>(octets[1] & 0x7F), octets[2], octets[3]};
    return Tins::HWAddress<6>(group);
}

Tins::IPv4Address ipv4_address(const Address &address) {
    uint32_t octets = 0;
    std::memcpy(&octets, address.octets.data(), sizeof octets);
    return Tins::IPv4Address(octets);
}

Tins::IPv6Address ipv6_address(const Address &address) { return Tins::IPv6Address(address.octets.data()); }

std::vector<uint8_t> frame(const Endpoints &endpoints, Octets payload) {
    const auto &[source, destination] = endpoints;
    const Tins::EthernetII link(link_address(destination.address), kSender);
    const auto udp =
        Tins::UDP(destination.port, source.port) / Tins::RawPDU(payload.data(), static_cast<uint32_t>(payload.size()));
    if (destination.address.is_ipv6)
        return (link / Tins::IPv6(ipv6_address(destination.address), ipv6_address(source.address)) / udp).serialize();
    return (link / Tins::IP(ipv4_address(destination.address), ipv4_address(source.address)) / udp).serialize();
}

} // namespace

std::string pcap_header() {
    std::string header;
    put_header(header, pcap_file_header{.magic = kMicrosecondsMagic,
                                        .version_major = PCAP_VERSION_MAJOR,
                                        .version_minor = PCAP_VERSION_MINOR,
                                        .thiszone = 0,
                                        .sigfigs = 0,
                                        .snaplen = kMaxFrameOctets,
                                        .linktype = DLT_EN10MB});
    return header;
}

void put_packet(TextBuffer &out, const Datagram &datagram, Octets payload) {
    if (payload.size() > kMaxPayloadOctets)
        throw std::runtime_error("a block of " + std::to_string(payload.size()) + " octets fits no datagram of UDP");
    const std::vector<uint8_t> octets = frame(datagram.endpoints.value_or(kUnknown), payload);
    const Time time = datagram.time.value_or(Time{0, 0});
    const auto size = static_cast<uint32_t>(octets.size());
    std::string header;
    put_header(header, PacketHeader{static_cast<uint32_t>(time.seconds), time.nanoseconds / kNanosecondsPerMicrosecond,
                                    size, size});
    out.put(header);
    out.put({reinterpret_cast<const char *>(octets.data()), octets.size()});
}

} // namespace ast::recording
