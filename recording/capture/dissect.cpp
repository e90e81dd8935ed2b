#include "capture/dissect.hpp"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <pcap/pcap.h>
#include <stdexcept>
#include <tins/ip.h>
#include <tins/ipv6.h>
#include <tins/rawpdu.h>
#include <tins/tcp.h>
#include <tins/udp.h>

#include "framing/soundness.hpp"

namespace ast::recording {

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
constexpr uint16_t kMaxLlcLength = 1500; // where Ethernet has a type, a number up to this is a length
constexpr uint16_t kCookedLlc = 4;       // what Linux cooked captures have in its place
constexpr size_t kLlcHeaderOctets = 3;
constexpr uint8_t kTcp = 6;
constexpr uint8_t kUdp = 17;
constexpr size_t kUdpHeaderOctets = 8;
constexpr size_t kIpv4HeaderOctets = 20;
constexpr size_t kIpv4RouteOffset = 12; // of the addresses, with the ports behind them
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

// What a frame carries behind its link layer.
struct Content {
    uint16_t type; // or length, as Ethernet has it
    Octets octets;
};

inline Content strip_link_layer(const LinkLayer &link, Octets frame) {
    Octets rest = behind(frame, link.header_octets);
    if (!link.ethertype_offset) return {kEthertypeIpv4, rest};
    uint16_t type = read_u16(frame, *link.ethertype_offset);
    while (std::ranges::count(kVlanTags, type)) {
        const Octets tag = rest;
        rest = behind(rest, kVlanTagOctets);
        type = read_u16(tag, 2);
    }
    return {type, rest};
}

bool is_ip(uint16_t type) { return type == kEthertypeIpv4 || type == kEthertypeIpv6; }

// Blocks in an LLC frame. Most of these frames are talk among bridges, so that only what begins with a block counts.
std::optional<Transported> open_llc(const LinkLayer &link, const Content &content) {
    const bool has_length = link.type == DLT_EN10MB && content.type <= kMaxLlcLength;
    if (!has_length && (link.type == DLT_EN10MB || content.type != kCookedLlc)) return std::nullopt;
    const size_t length = has_length ? content.type : content.octets.size();
    const Octets captured = content.octets.first(std::min(length, content.octets.size()));
    if (captured.size() <= kLlcHeaderOctets) return std::nullopt;
    const Octets payload = captured.subspan(kLlcHeaderOctets);
    if (chain_of_blocks(payload) == 0) return std::nullopt;
    return Transported{.payload = payload,
                       .truncated = captured.size() < length,
                       .endpoints = std::nullopt,
                       .tcp = std::nullopt,
                       .rebuilt = {}};
}

bool is_transport(uint8_t protocol) { return protocol == kUdp || protocol == kTcp; }

// What follows the first IP header; nothing when that is cut short.
std::optional<uint8_t> first_protocol(Octets packet, int version) {
    const size_t offset = version == 4 ? 9 : 6;
    if (packet.size() <= offset) return std::nullopt;
    return packet[offset];
}

// Whether a packet may hold UDP or TCP, directly or behind IPv6 extension headers. Others are not worth dissecting, nor
// reporting when that fails.
bool is_worth_dissecting(Octets packet, int version) {
    constexpr uint8_t kIpv6Before[] = {Tins::IPv6::HOP_BY_HOP, Tins::IPv6::DESTINATION_ROUTING_OPTIONS,
                                       Tins::IPv6::ROUTING, Tins::IPv6::FRAGMENT};
    const auto protocol = first_protocol(packet, version);
    return !protocol || is_transport(*protocol) || (version == 6 && std::ranges::count(kIpv6Before, *protocol));
}

// The octets of a layer that libtins did not parse further.
Octets raw_octets(const Tins::PDU &layer) {
    const auto *const raw = layer.find_pdu<Tins::RawPDU>();
    return raw ? Octets(raw->payload()) : Octets();
}

std::string fragment_key(const std::string &source, const std::string &destination, uint8_t protocol, uint32_t id) {
    return source + ' ' + destination + ' ' + std::to_string(protocol) + ' ' + std::to_string(id);
}

// A fragment, and the protocol that the whole datagram has.
struct Piece {
    Fragment fragment;
    uint8_t protocol;
};

std::optional<Piece> find_piece(const Tins::IP &ip, Octets) {
    if (!ip.is_fragmented() || !is_transport(ip.protocol())) return std::nullopt;
    const std::string key = fragment_key(ip.src_addr().to_string(), ip.dst_addr().to_string(), ip.protocol(), ip.id());
    return Piece{{.key = key,
                  .offset = ip.fragment_offset() * kFragmentUnitOctets,
                  .more = (ip.flags() & Tins::IP::MORE_FRAGMENTS) != 0,
                  .octets = raw_octets(ip)},
                 ip.protocol()};
}

// The fragment header is an extension header; libtins gives its octets from the third on, so that the protocol, its
// first octet, is looked up in the packet.
std::optional<Piece> find_piece(const Tins::IPv6 &ip, Octets packet) {
    constexpr size_t kOmittedOctets = 2;
    constexpr size_t kFragmentHeaderOctets = 8;
    size_t position = kIpv6HeaderOctets;
    for (const auto &header : ip.headers()) {
        const Octets octets(header.data_ptr(), header.data_size());
        if (header.option() != Tins::IPv6::FRAGMENT) {
            position += octets.size() + kOmittedOctets;
            continue;
        }
        const uint8_t protocol = packet[position];
        if (octets.size() + kOmittedOctets != kFragmentHeaderOctets || !is_transport(protocol)) return std::nullopt;
        const uint16_t place = read_u16(octets, 0); // offset in bits 16-4, bit 1 for more to follow
        const uint32_t id = static_cast<uint32_t>(read_u16(octets, 2)) << 16 | read_u16(octets, 4);
        const std::string key = fragment_key(ip.src_addr().to_string(), ip.dst_addr().to_string(), protocol, id);
        return Piece{{.key = key,
                      .offset = (place >> 3) * kFragmentUnitOctets,
                      .more = (place & 1) != 0,
                      .octets = raw_octets(ip)},
                     protocol};
    }
    return std::nullopt;
}

// An IPv4 packet without options and in one piece, up to the end that it says; empty for any other.
Octets plain_ipv4(Octets packet, uint8_t protocol) {
    constexpr uint8_t kVersion4WithoutOptions = 0x45;
    constexpr uint16_t kFragmented = 0x3FFF; // an offset, or more to follow
    constexpr size_t kLength = 2, kFragmentation = 6, kProtocol = 9;
    if (packet.size() < kIpv4HeaderOctets || packet[0] != kVersion4WithoutOptions) return {};
    if (packet[kProtocol] != protocol || (read_u16(packet, kFragmentation) & kFragmented) != 0) return {};
    const size_t length = read_u16(packet, kLength);
    return length <= packet.size() ? packet.first(length) : Octets();
}

PlainDatagram open_udp_in_place(Octets packet) {
    constexpr size_t kUdpLength = 24;
    const Octets whole = plain_ipv4(packet, kUdp);
    if (whole.size() < kIpv4HeaderOctets + kUdpHeaderOctets) return {};
    const size_t udp_length = read_u16(whole, kUdpLength);
    if (udp_length < kUdpHeaderOctets || udp_length > whole.size() - kIpv4HeaderOctets) return {};
    return PlainDatagram(whole.first(kIpv4HeaderOctets + udp_length).subspan(kIpv4RouteOffset));
}

// A segment of TCP, too, if it has no options but, as most have, its time.
std::optional<Transported> open_tcp_in_place(Octets packet) {
    constexpr size_t kHeaderOctets = 20, kTimeOctets = 12;
    constexpr size_t kSequence = 4, kHeaderWords = 12, kFlags = 13;
    constexpr uint8_t kFin = 0x01, kSyn = 0x02, kRst = 0x04;
    constexpr uint8_t kTime[] = {1, 1, 8, 10}; // two octets that say nothing, and the kind and length of the option
    const Octets whole = plain_ipv4(packet, kTcp);
    if (whole.size() < kIpv4HeaderOctets + kHeaderOctets) return std::nullopt;
    const Octets segment = whole.subspan(kIpv4HeaderOctets);
    const size_t header_octets = size_t{4} * (segment[kHeaderWords] >> 4);
    const Octets options = segment.subspan(kHeaderOctets);
    const bool has_time = header_octets == kHeaderOctets + kTimeOctets && options.size() >= kTimeOctets &&
                          std::ranges::equal(options.first<4>(), kTime);
    if (header_octets != kHeaderOctets && !has_time) return std::nullopt;
    const Octets payload = segment.subspan(header_octets);
    const uint8_t flags = segment[kFlags];
    return Transported{.payload = payload,
                       .truncated = false,
                       .endpoints = read_endpoints(whole.subspan<kIpv4RouteOffset, kRouteOctets>()),
                       .tcp = TcpHeader{.sequence = static_cast<uint32_t>(read_u16(segment, kSequence)) << 16 |
                                                    read_u16(segment, kSequence + 2),
                                        .length = payload.size(),
                                        .syn = (flags & kSyn) != 0,
                                        .fin = (flags & kFin) != 0,
                                        .rst = (flags & kRst) != 0},
                       .rebuilt = {}};
}

// UDP over IPv6 without extension headers.
std::optional<Transported> open_ipv6_in_place(Octets packet) {
    constexpr size_t kLength = 4, kProtocol = 6, kSource = 8, kDestination = 24, kUdpLength = 44;
    if (packet.size() < kIpv6HeaderOctets + kUdpHeaderOctets || packet[kProtocol] != kUdp) return std::nullopt;
    const size_t length = read_u16(packet, kLength);
    const size_t udp_length = read_u16(packet, kUdpLength);
    const bool is_whole = udp_length <= length && length <= packet.size() - kIpv6HeaderOctets;
    if (udp_length < kUdpHeaderOctets || !is_whole) return std::nullopt;
    const Octets udp = packet.subspan(kIpv6HeaderOctets, udp_length);
    Endpoints endpoints{{{.is_ipv6 = true}, read_u16(udp, 0)}, {{.is_ipv6 = true}, read_u16(udp, 2)}};
    std::ranges::copy(packet.subspan(kSource, 16), endpoints.source.address.octets.begin());
    std::ranges::copy(packet.subspan(kDestination, 16), endpoints.destination.address.octets.begin());
    return Transported{.payload = udp.subspan(kUdpHeaderOctets),
                       .truncated = false,
                       .endpoints = endpoints,
                       .tcp = std::nullopt,
                       .rebuilt = {}};
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

// What is captured of a payload, `length` octets of which are said to be there.
template <typename Ip, typename Layer>
Transported read_transport(const Ip &ip, const Layer &layer, size_t length) {
    const Octets captured = raw_octets(layer);
    const Octets payload = captured.first(std::min(length, captured.size()));
    Transported transported{
        .payload = {},
        .truncated = payload.size() < length,
        .endpoints = Endpoints{{to_address(ip.src_addr()), layer.sport()}, {to_address(ip.dst_addr()), layer.dport()}},
        .tcp = std::nullopt,
        .rebuilt = {payload.begin(), payload.end()}};
    transported.payload = transported.rebuilt;
    return transported;
}

template <typename Ip>
Transported read_udp(const Ip &ip, const Tins::UDP &udp) {
    return read_transport(ip, udp, std::max<size_t>(udp.length(), kUdpHeaderOctets) - kUdpHeaderOctets);
}

// `octets` are those of the segment with its header, as IP says; 0 where a network card has left that open.
template <typename Ip>
Transported read_tcp(const Ip &ip, const Tins::TCP &tcp, size_t octets) {
    const size_t length = octets == 0 ? raw_octets(tcp).size() : octets - std::min<size_t>(tcp.header_size(), octets);
    Transported transported = read_transport(ip, tcp, length);
    transported.tcp = TcpHeader{.sequence = tcp.seq(),
                                .length = length,
                                .syn = (tcp.flags() & Tins::TCP::SYN) != 0,
                                .fin = (tcp.flags() & Tins::TCP::FIN) != 0,
                                .rst = (tcp.flags() & Tins::TCP::RST) != 0};
    return transported;
}

// Octets behind the IP headers, as they say; 0 where they leave it open.
size_t content_octets(const Tins::IP &ip) { return ip.tot_len() - std::min<size_t>(ip.header_size(), ip.tot_len()); }

size_t content_octets(const Tins::IPv6 &ip) {
    const size_t extensions = ip.header_size() - kIpv6HeaderOctets;
    return ip.payload_length() - std::min<size_t>(extensions, ip.payload_length());
}

template <typename Ip>
std::optional<Transported> open_packet(Octets packet, const Time &time, Reassembler &reassembler) {
    const Ip ip(packet.data(), static_cast<uint32_t>(packet.size()));
    if (const auto *const udp = ip.template find_pdu<Tins::UDP>()) return read_udp(ip, *udp);
    if (const auto *const tcp = ip.template find_pdu<Tins::TCP>()) return read_tcp(ip, *tcp, content_octets(ip));
    const auto piece = find_piece(ip, packet);
    if (!piece) return std::nullopt;
    const auto whole = reassembler.add(piece->fragment, time);
    if (!whole) return std::nullopt;
    const auto octets = static_cast<uint32_t>(whole->size());
    if (piece->protocol == kTcp) return read_tcp(ip, Tins::TCP(whole->data(), octets), octets);
    return read_udp(ip, Tins::UDP(whole->data(), octets));
}

} // namespace

Dissector::Dissector(int link_type) : link_(find_link_layer(link_type)) {}

PlainDatagram Dissector::find_plain(Octets frame) const {
    const Content content = strip_link_layer(link_, frame);
    return is_ip(content.type) ? open_udp_in_place(content.octets) : PlainDatagram();
}

std::optional<Transported> Dissector::dissect(Octets frame, const Time &time) {
    const Content content = strip_link_layer(link_, frame);
    if (!is_ip(content.type)) return open_llc(link_, content);
    const Octets packet = content.octets;
    const int version = packet.empty() ? 0 : packet[0] >> 4;
    if ((version != 4 && version != 6) || !is_worth_dissecting(packet, version)) return std::nullopt;
    if (auto plain = version == 4 ? open_tcp_in_place(packet) : open_ipv6_in_place(packet)) return plain;
    try {
        return version == 4 ? open_packet<Tins::IP>(packet, time, reassembler_)
                            : open_packet<Tins::IPv6>(packet, time, reassembler_);
    } catch (const std::runtime_error &) {
        if (first_protocol(packet, version) == kTcp) return std::nullopt;
        throw;
    }
}

} // namespace ast::recording
