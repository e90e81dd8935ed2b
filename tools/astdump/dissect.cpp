#include "dissect.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <pcap/pcap.h>
#include <stdexcept>
#include <tins/ip.h>
#include <tins/ipv6.h>
#include <tins/rawpdu.h>
#include <tins/udp.h>

namespace astdump {

struct LinkLayer {
    int type;
    size_t header_octets;
    std::optional<size_t> ethertype_offset; // nothing where an IP header must follow
};

namespace {

constexpr LinkLayer kLinkLayers[] = {
    {DLT_EN10MB, 14, 12},        {DLT_LINUX_SLL, 16, 14},    {DLT_LINUX_SLL2, 20, 0},     {DLT_NULL, 4, std::nullopt},
    {DLT_LOOP, 4, std::nullopt}, {DLT_RAW, 0, std::nullopt}, {DLT_IPV4, 0, std::nullopt}, {DLT_IPV6, 0, std::nullopt},
};

constexpr uint16_t kEthertypeIpv4 = 0x0800;
constexpr uint16_t kEthertypeIpv6 = 0x86DD;
constexpr uint16_t kVlanTags[] = {0x8100, 0x88A8, 0x9100};
constexpr size_t kVlanTagOctets = 4;
constexpr uint8_t kUdp = 17;
constexpr size_t kUdpHeaderOctets = 8;
constexpr size_t kIpv6HeaderOctets = 40;
constexpr uint64_t kFragmentUnitOctets = 8;

std::string link_type_name(int type) {
    const char *const name = pcap_datalink_val_to_name(type);
    return name ? name : std::to_string(type);
}

const LinkLayer &find_link_layer(int type) {
    const auto found = std::ranges::find(kLinkLayers, type, &LinkLayer::type);
    if (found == std::end(kLinkLayers))
        throw std::runtime_error("captures of link type " + link_type_name(type) + " are not supported");
    return *found;
}

Octets behind(Octets octets, size_t count) {
    if (octets.size() < count) throw std::runtime_error("link header cut short");
    return octets.subspan(count);
}

uint16_t read_u16(Octets octets, size_t offset) {
    return static_cast<uint16_t>(octets[offset] << 8 | octets[offset + 1]);
}

// The IP packet of a frame; empty when it carries something else.
Octets strip_link_layer(const LinkLayer &link, Octets frame) {
    Octets rest = behind(frame, link.header_octets);
    if (!link.ethertype_offset) return rest;
    uint16_t ethertype = read_u16(frame, *link.ethertype_offset);
    while (std::ranges::count(kVlanTags, ethertype)) {
        const Octets tag = rest;
        rest = behind(rest, kVlanTagOctets);
        ethertype = read_u16(tag, 2);
    }
    return ethertype == kEthertypeIpv4 || ethertype == kEthertypeIpv6 ? rest : Octets();
}

// Whether a packet may hold UDP, directly or behind IPv6 extension headers. Others are not worth dissecting, nor
// reporting when that fails.
bool may_hold_udp(Octets packet, int version) {
    constexpr uint8_t kIpv6Before[] = {Tins::IPv6::HOP_BY_HOP, Tins::IPv6::DESTINATION_ROUTING_OPTIONS,
                                       Tins::IPv6::ROUTING, Tins::IPv6::FRAGMENT};
    const size_t protocol_offset = version == 4 ? 9 : 6;
    if (packet.size() <= protocol_offset) return true;
    const uint8_t protocol = packet[protocol_offset];
    return protocol == kUdp || (version == 6 && std::ranges::count(kIpv6Before, protocol));
}

// The octets of a layer that libtins did not parse further.
Octets raw_octets(const Tins::PDU &layer) {
    const auto *const raw = layer.find_pdu<Tins::RawPDU>();
    return raw ? Octets(raw->payload()) : Octets();
}

std::string fragment_key(const std::string &source, const std::string &destination, uint8_t protocol, uint32_t id) {
    return source + ' ' + destination + ' ' + std::to_string(protocol) + ' ' + std::to_string(id);
}

std::optional<Fragment> udp_fragment(const Tins::IP &ip, Octets) {
    if (!ip.is_fragmented() || ip.protocol() != kUdp) return std::nullopt;
    return Fragment{.key = fragment_key(ip.src_addr().to_string(), ip.dst_addr().to_string(), kUdp, ip.id()),
                    .offset = ip.fragment_offset() * kFragmentUnitOctets,
                    .more = (ip.flags() & Tins::IP::MORE_FRAGMENTS) != 0,
                    .octets = raw_octets(ip)};
}

// The fragment header is an extension header; libtins gives its octets from the third on, so that the protocol, its
// first octet, is looked up in the packet.
std::optional<Fragment> udp_fragment(const Tins::IPv6 &ip, Octets packet) {
    constexpr size_t kOmittedOctets = 2;
    constexpr size_t kFragmentHeaderOctets = 8;
    size_t position = kIpv6HeaderOctets;
    for (const auto &header : ip.headers()) {
        const Octets octets(header.data_ptr(), header.data_size());
        if (header.option() != Tins::IPv6::FRAGMENT) {
            position += octets.size() + kOmittedOctets;
            continue;
        }
        if (octets.size() + kOmittedOctets != kFragmentHeaderOctets || packet[position] != kUdp) return std::nullopt;
        const uint16_t place = read_u16(octets, 0); // offset in bits 16-4, bit 1 for more to follow
        const uint32_t id = static_cast<uint32_t>(read_u16(octets, 2)) << 16 | read_u16(octets, 4);
        return Fragment{.key = fragment_key(ip.src_addr().to_string(), ip.dst_addr().to_string(), kUdp, id),
                        .offset = (place >> 3) * kFragmentUnitOctets,
                        .more = (place & 1) != 0,
                        .octets = raw_octets(ip)};
    }
    return std::nullopt;
}

// A UDP datagram in one piece behind an IPv4 header without options, all of whose lengths agree: nothing for any other,
// which may be in order, too, but is left to libtins.
std::optional<UdpDatagram> open_in_place(Octets packet) {
    constexpr size_t kHeaderOctets = 20;
    constexpr uint8_t kVersion4WithoutOptions = 0x45;
    constexpr uint16_t kFragmented = 0x3FFF; // an offset, or more to follow
    constexpr size_t kLength = 2, kFragmentation = 6, kProtocol = 9, kSource = 12, kDestination = 16;
    if (packet.size() < kHeaderOctets + kUdpHeaderOctets || packet[0] != kVersion4WithoutOptions) return std::nullopt;
    const size_t length = read_u16(packet, kLength);
    if (length < kHeaderOctets + kUdpHeaderOctets || length > packet.size()) return std::nullopt;
    if (packet[kProtocol] != kUdp || (read_u16(packet, kFragmentation) & kFragmented) != 0) return std::nullopt;
    const Octets udp = packet.subspan(kHeaderOctets, length - kHeaderOctets);
    const size_t udp_length = read_u16(udp, 4);
    if (udp_length < kUdpHeaderOctets || udp_length > udp.size()) return std::nullopt;
    UdpDatagram datagram{.payload = udp.subspan(kUdpHeaderOctets, udp_length - kUdpHeaderOctets),
                         .truncated = false,
                         .endpoints = {{{}, read_u16(udp, 0)}, {{}, read_u16(udp, 2)}},
                         .rebuilt = {}};
    std::copy_n(&packet[kSource], 4, datagram.endpoints.source.address.octets.begin());
    std::copy_n(&packet[kDestination], 4, datagram.endpoints.destination.address.octets.begin());
    return datagram;
}

Address to_address(const Tins::IPv4Address &from) {
    Address address;
    const uint32_t octets = from; // as in the packet
    std::memcpy(address.octets.data(), &octets, sizeof octets);
    return address;
}

Address to_address(const Tins::IPv6Address &from) {
    Address address{.is_ipv6 = true};
    std::copy(from.begin(), from.end(), address.octets.begin());
    return address;
}

template <typename Ip>
UdpDatagram read_udp(const Ip &ip, const Tins::UDP &udp) {
    const Octets behind_header = raw_octets(udp);
    const size_t length = std::max<size_t>(udp.length(), kUdpHeaderOctets) - kUdpHeaderOctets;
    const Octets payload = behind_header.first(std::min(length, behind_header.size()));
    UdpDatagram datagram{
        .payload = {},
        .truncated = payload.size() < length,
        .endpoints = {{to_address(ip.src_addr()), udp.sport()}, {to_address(ip.dst_addr()), udp.dport()}},
        .rebuilt = {payload.begin(), payload.end()}};
    datagram.payload = datagram.rebuilt;
    return datagram;
}

template <typename Ip>
std::optional<UdpDatagram> open_packet(Octets packet, Reassembler &reassembler) {
    const Ip ip(packet.data(), static_cast<uint32_t>(packet.size()));
    if (const auto *const udp = ip.template find_pdu<Tins::UDP>()) return read_udp(ip, *udp);
    const auto fragment = udp_fragment(ip, packet);
    if (!fragment) return std::nullopt;
    const auto whole = reassembler.add(*fragment);
    if (!whole) return std::nullopt;
    return read_udp(ip, Tins::UDP(whole->data(), static_cast<uint32_t>(whole->size())));
}

} // namespace

Dissector::Dissector(int link_type) : link_(find_link_layer(link_type)) {}

std::optional<UdpDatagram> Dissector::dissect(Octets frame) {
    const Octets packet = strip_link_layer(link_, frame);
    if (auto datagram = open_in_place(packet)) return datagram;
    const int version = packet.empty() ? 0 : packet[0] >> 4;
    if ((version != 4 && version != 6) || !may_hold_udp(packet, version)) return std::nullopt;
    return version == 4 ? open_packet<Tins::IP>(packet, reassembler_) : open_packet<Tins::IPv6>(packet, reassembler_);
}

} // namespace astdump
