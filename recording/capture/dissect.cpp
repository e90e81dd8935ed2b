#include "capture/dissect.hpp"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "framing/soundness.hpp"

namespace ast::recording {

constexpr size_t kIpv4AddressOctets = 4;
constexpr size_t kIpv6AddressOctets = 16;

struct LinkLayer {
    uint32_t type;
    size_t header_octets;
    size_t ethertype_offset; // kNone where an IP header must follow
};

// What IP headers say of what is behind them.
struct IpContent {
    struct Piece {
        uint32_t id;
        uint64_t offset;
        bool more;
    };
    Octets source; // addresses
    Octets destination;
    uint8_t protocol;
    Octets octets;              // as many as are captured
    size_t length;              // as many as there were
    std::optional<Piece> piece; // nothing for all of it

    bool is_ipv6() const { return source.size() == kIpv6AddressOctets; }
};

namespace {

constexpr size_t kNone = SIZE_MAX;
constexpr uint32_t kEthernet = 1;
constexpr LinkLayer kLinkLayers[] = {
    {kEthernet, 14, 12}, // then Linux cooked, of either version, which has a type like Ethernet
    {113, 16, 14},       {276, 20, 0},
    {0, 4, kNone},       {108, 4, kNone}, // loopback: the family of addresses, as the system numbers it
    {12, 0, kNone},      {101, 0, kNone}, // IP of any version
    {228, 0, kNone},     {229, 0, kNone}, // and of one
};

// Others that are met with, as tcpdump calls them.
struct LinkTypeName {
    uint32_t type;
    const char *name;
};
constexpr LinkTypeName kLinkTypeNames[] = {
    {6, "IEEE802"},
    {8, "SLIP"},
    {9, "PPP"},
    {10, "FDDI"},
    {50, "PPP_SERIAL"},
    {51, "PPP_ETHER"},
    {100, "ATM_RFC1483"},
    {104, "C_HDLC"},
    {105, "IEEE802_11"},
    {107, "FRELAY"},
    {117, "PFLOG"},
    {119, "PRISM_HEADER"},
    {127, "IEEE802_11_RADIO"},
    {187, "BLUETOOTH_HCI_H4"},
    {189, "USB_LINUX"},
    {192, "PPI"},
    {195, "IEEE802_15_4"},
    {219, "MPLS"},
    {220, "USB_LINUX_MMAPPED"},
    {227, "CAN_SOCKETCAN"},
    {239, "NFLOG"},
    {249, "USBPCAP"},
    {253, "NETLINK"},
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
constexpr size_t kTcpHeaderOctets = 20;
constexpr size_t kIpv4HeaderOctets = 20;
constexpr size_t kIpv4RouteOffset = 12; // of the addresses, with the ports behind them
constexpr size_t kIpv6HeaderOctets = 40;
constexpr uint64_t kFragmentUnitOctets = 8;
constexpr uint8_t kIpv6Fragment = 44;
constexpr size_t kIpv6FragmentOctets = 8;

// The second octet tells how many units follow the first eight octets.
struct ExtensionHeader {
    uint8_t protocol;
    size_t unit_octets;
};
constexpr ExtensionHeader kIpv6Extensions[] = {
    {0, 8},  // hop-by-hop options
    {43, 8}, // routing
    {51, 4}, // authentication
    {60, 8}, // destination options
};

const LinkLayer *find_link_layer(uint32_t type) {
    const auto found = std::ranges::find(kLinkLayers, type, &LinkLayer::type);
    return found == std::end(kLinkLayers) ? nullptr : found;
}

const ExtensionHeader *find_extension(uint8_t protocol) {
    const auto found = std::ranges::find(kIpv6Extensions, protocol, &ExtensionHeader::protocol);
    return found == std::end(kIpv6Extensions) ? nullptr : found;
}

Octets behind(Octets octets, size_t count) {
    if (octets.size() < count) throw Undissected("link header cut short");
    return octets.subspan(count);
}

// What a frame carries behind its link layer.
struct Content {
    uint16_t type; // or length, as Ethernet has it
    Octets octets;
};

inline Content strip_link_layer(const LinkLayer &link, Octets frame) {
    Octets rest = behind(frame, link.header_octets);
    if (link.ethertype_offset == kNone) return {kEthertypeIpv4, rest};
    uint16_t type = read_u16(frame, link.ethertype_offset);
    while (type != kEthertypeIpv4 && std::ranges::count(kVlanTags, type) != 0) {
        const Octets tag = rest;
        rest = behind(rest, kVlanTagOctets);
        type = read_u16(tag, 2);
    }
    return {type, rest};
}

bool is_ip(uint16_t type) { return type == kEthertypeIpv4 || type == kEthertypeIpv6; }

// Blocks in an LLC frame. Most of these frames are talk among bridges, so that only what begins with a block counts.
std::optional<Transported> open_llc(const LinkLayer &link, const Content &content) {
    const bool has_length = link.type == kEthernet && content.type <= kMaxLlcLength;
    if (!has_length && (link.type == kEthernet || content.type != kCookedLlc)) return std::nullopt;
    const size_t length = has_length ? content.type : content.octets.size();
    const Octets captured = content.octets.first(std::min(length, content.octets.size()));
    if (captured.size() <= kLlcHeaderOctets) return std::nullopt;
    const Octets payload = captured.subspan(kLlcHeaderOctets);
    if (chain_of_blocks(payload) == 0) return std::nullopt;
    return Transported{
        .payload = payload, .is_truncated = captured.size() < length, .endpoints = std::nullopt, .tcp = std::nullopt};
}

uint32_t read_u32(Octets octets, size_t offset) {
    return static_cast<uint32_t>(read_u16(octets, offset)) << 16 | read_u16(octets, offset + 2);
}

bool is_transport(uint8_t protocol) { return protocol == kUdp || protocol == kTcp; }

// Whether UDP or TCP may follow, directly or behind IPv6 extension headers. What else there is, is not worth
// dissecting, nor reporting when that fails.
bool leads_to_transport(uint8_t protocol, bool is_ipv6) {
    return is_transport(protocol) || (is_ipv6 && (protocol == kIpv6Fragment || find_extension(protocol)));
}

// What follows the first IP header; nothing when that is cut short.
std::optional<uint8_t> first_protocol(Octets packet, bool is_ipv6) {
    const size_t offset = is_ipv6 ? 6 : 9;
    if (packet.size() <= offset) return std::nullopt;
    return packet[offset];
}

// Of `length` octets, which are to be there, those that are.
void set_content(IpContent &content, Octets captured, size_t length) {
    content.length = length;
    content.octets = captured.first(std::min(length, captured.size()));
}

// Network cards that cut large packets into segments themselves are given them without a length.
IpContent read_ipv4(Octets packet) {
    constexpr size_t kLength = 2, kId = 4, kFragmentation = 6, kProtocol = 9, kSource = 12, kDestination = 16;
    constexpr uint16_t kMore = 0x2000, kOffset = 0x1FFF;
    const size_t header_octets = packet.empty() ? 0 : size_t{4} * (packet[0] & 0x0F);
    if (packet.size() < std::max(header_octets, kIpv4HeaderOctets)) throw Undissected("IPv4 header cut short");
    if (header_octets < kIpv4HeaderOctets)
        throw Undissected("IPv4 header of " + std::to_string(header_octets) + " octets");
    IpContent content{};
    content.source = packet.subspan(kSource, kIpv4AddressOctets);
    content.destination = packet.subspan(kDestination, kIpv4AddressOctets);
    content.protocol = packet[kProtocol];
    const size_t length = read_u16(packet, kLength);
    set_content(content, packet.subspan(header_octets),
                (length < header_octets ? packet.size() : length) - header_octets);
    const uint16_t fragmentation = read_u16(packet, kFragmentation);
    if ((fragmentation & (kMore | kOffset)) != 0)
        content.piece = {read_u16(packet, kId), (fragmentation & kOffset) * kFragmentUnitOctets,
                         (fragmentation & kMore) != 0};
    return content;
}

// Goes behind a header among those that IPv6 chains; the first octet of each tells the next.
void pass_header(IpContent &content, size_t octets) {
    if (content.octets.size() < octets) throw Undissected("IPv6 extension header cut short");
    content.protocol = content.octets[0];
    content.octets = content.octets.subspan(octets);
    content.length -= octets;
}

void pass_extensions(IpContent &content) {
    constexpr size_t kFirstOctets = 8;
    while (const ExtensionHeader *const header = find_extension(content.protocol)) {
        const size_t units = content.octets.size() < kFirstOctets ? 0 : content.octets[1];
        pass_header(content, kFirstOctets + units * header->unit_octets);
    }
}

void pass_fragment_header(IpContent &content) {
    constexpr size_t kPlace = 2, kId = 4; // the offset in bits 16-4 of the place, bit 1 for more to follow
    const Octets header = content.octets;
    pass_header(content, kIpv6FragmentOctets);
    const uint16_t place = read_u16(header, kPlace);
    content.piece = {read_u32(header, kId), (place >> 3) * kFragmentUnitOctets, (place & 1) != 0};
}

IpContent read_ipv6(Octets packet) {
    constexpr size_t kLength = 4, kProtocol = 6, kSource = 8, kDestination = 24;
    if (packet.size() < kIpv6HeaderOctets) throw Undissected("IPv6 header cut short");
    IpContent content{};
    content.source = packet.subspan(kSource, kIpv6AddressOctets);
    content.destination = packet.subspan(kDestination, kIpv6AddressOctets);
    content.protocol = packet[kProtocol];
    const size_t length = read_u16(packet, kLength);
    set_content(content, packet.subspan(kIpv6HeaderOctets), length == 0 ? packet.size() - kIpv6HeaderOctets : length);
    if (is_transport(content.protocol)) return content;
    pass_extensions(content);
    if (content.protocol == kIpv6Fragment) pass_fragment_header(content);
    return content;
}

void set(Endpoint &endpoint, Octets address, uint16_t port) {
    const auto begin = endpoint.address.octets.begin();
    endpoint.address.is_ipv6 = address.size() == kIpv6AddressOctets;
    if (endpoint.address.is_ipv6)
        std::copy_n(address.data(), kIpv6AddressOctets, begin);
    else
        std::copy_n(address.data(), kIpv4AddressOctets, begin);
    endpoint.port = port;
}

// `length` octets of the payload are said to be there; where IP knows of no more than there are, the capture has cut
// nothing. What is returned is made where the caller wants it: it is large.
std::optional<Transported> transported(const IpContent &content, size_t header_octets, size_t length) {
    const Octets captured = content.octets.subspan(header_octets);
    std::optional<Transported> found(std::in_place);
    found->payload = captured.first(std::min(length, captured.size()));
    found->is_truncated = captured.size() < length && content.octets.size() < content.length;
    Endpoints &endpoints = found->endpoints.emplace();
    set(endpoints.source, content.source, read_u16(content.octets, 0));
    set(endpoints.destination, content.destination, read_u16(content.octets, 2));
    return found;
}

std::optional<Transported> read_udp(const IpContent &content) {
    constexpr size_t kLength = 4;
    if (content.octets.size() < kUdpHeaderOctets) throw Undissected("UDP header cut short");
    const size_t length = read_u16(content.octets, kLength);
    if (length < kUdpHeaderOctets) throw Undissected("UDP length below that of its header");
    return transported(content, kUdpHeaderOctets, length - kUdpHeaderOctets);
}

std::optional<Transported> read_tcp(const IpContent &content) {
    constexpr size_t kSequence = 4, kHeaderWords = 12, kFlags = 13;
    constexpr uint8_t kFin = 0x01, kSyn = 0x02, kRst = 0x04;
    const Octets segment = content.octets;
    if (segment.size() < kTcpHeaderOctets) return std::nullopt;
    const size_t header_octets = size_t{4} * (segment[kHeaderWords] >> 4);
    if (header_octets < kTcpHeaderOctets || header_octets > segment.size()) return std::nullopt;
    const size_t length = content.length - header_octets;
    const uint8_t flags = segment[kFlags];
    auto found = transported(content, header_octets, length);
    found->tcp = TcpHeader{.sequence = read_u32(segment, kSequence),
                           .length = length,
                           .syn = (flags & kSyn) != 0,
                           .fin = (flags & kFin) != 0,
                           .rst = (flags & kRst) != 0};
    return found;
}

std::optional<Transported> read_transport(const IpContent &content) {
    if (content.protocol == kUdp) return read_udp(content);
    if (content.protocol == kTcp) return read_tcp(content);
    return std::nullopt;
}

// What the fragments of one datagram share, of either version.
std::string fragment_key(const IpContent &content) {
    std::string key;
    for (const Octets address : {content.source, content.destination}) key.append(address.begin(), address.end());
    key += static_cast<char>(content.protocol);
    return key + std::to_string(content.piece->id);
}

PlainDatagram open_udp_in_place(Octets packet) {
    constexpr uint8_t kVersion4WithoutOptions = 0x45;
    constexpr uint16_t kFragmented = 0x3FFF; // an offset, or more to follow
    constexpr size_t kLength = 2, kFragmentation = 6, kProtocol = 9, kUdpLength = 24;
    if (packet.size() < kIpv4HeaderOctets + kUdpHeaderOctets || packet[0] != kVersion4WithoutOptions) return {};
    if (packet[kProtocol] != kUdp || (read_u16(packet, kFragmentation) & kFragmented) != 0) return {};
    const size_t length = read_u16(packet, kLength);
    const size_t udp_length = read_u16(packet, kUdpLength);
    const bool is_whole = length <= packet.size() && udp_length + kIpv4HeaderOctets <= length;
    if (udp_length < kUdpHeaderOctets || !is_whole) return {};
    return PlainDatagram(packet.first(kIpv4HeaderOctets + udp_length).subspan(kIpv4RouteOffset));
}

} // namespace

std::string link_type_complaint(uint32_t link_type) {
    if (find_link_layer(link_type)) return {};
    const auto found = std::ranges::find(kLinkTypeNames, link_type, &LinkTypeName::type);
    const std::string name = found == std::end(kLinkTypeNames) ? std::to_string(link_type) : found->name;
    return "link type " + name + " are not supported";
}

Dissector::Dissector() : link_(kLinkLayers), link_type_(link_->type) {}

void Dissector::change_link_type(uint32_t link_type) {
    const LinkLayer *const link = find_link_layer(link_type);
    if (!link) throw Undissected("frames of " + link_type_complaint(link_type));
    link_ = link;
    link_type_ = link_type;
}

PlainDatagram Dissector::find_plain(Octets frame) const {
    const Content content = strip_link_layer(*link_, frame);
    return content.type == kEthertypeIpv4 ? open_udp_in_place(content.octets) : PlainDatagram();
}

std::optional<Transported> Dissector::dissect(Octets frame, const Time &time) {
    const Content content = strip_link_layer(*link_, frame);
    if (!is_ip(content.type)) return open_llc(*link_, content);
    const Octets packet = content.octets;
    const int version = packet.empty() ? 0 : packet[0] >> 4;
    if (version != 4 && version != 6) return std::nullopt;
    const bool is_ipv6 = version == 6;
    const auto protocol = first_protocol(packet, is_ipv6);
    if (protocol && !leads_to_transport(*protocol, is_ipv6)) return std::nullopt;
    try {
        IpContent packet_content = is_ipv6 ? read_ipv6(packet) : read_ipv4(packet);
        return packet_content.piece ? open_piece(packet_content, time) : read_transport(packet_content);
    } catch (const Undissected &) {
        if (protocol == kTcp) return std::nullopt;
        throw;
    }
}

std::optional<Transported> Dissector::open_piece(IpContent &content, const Time &time) {
    if (!reassemble(content, time)) return std::nullopt;
    auto found = read_transport(content);
    if (found) found->is_rebuilt = true;
    return found;
}

// False until the piece completes the datagram.
bool Dissector::reassemble(IpContent &content, const Time &time) {
    const bool is_ipv6 = content.is_ipv6();
    if (!leads_to_transport(content.protocol, is_ipv6)) return false;
    auto whole = reassembler_.add({.key = fragment_key(content),
                                   .offset = content.piece->offset,
                                   .more = content.piece->more,
                                   .octets = content.octets},
                                  time);
    if (!whole) return false;
    rebuilt_ = std::move(*whole);
    content.octets = rebuilt_;
    content.length = rebuilt_.size();
    if (is_ipv6) pass_extensions(content);
    return true;
}

} // namespace ast::recording
