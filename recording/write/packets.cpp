#include "write/packets.hpp"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ast::recording {

namespace {

constexpr uint32_t kNanosecondsPerMicrosecond = 1000;
constexpr uint16_t kPort = 8600;
constexpr Address kSource{.octets = {192, 0, 2, 1}};
constexpr Address kDestination{.octets = {233, 252, 0, 1}};
constexpr Endpoints kUnknown{{kSource, kPort}, {kDestination, kPort}};

using LinkAddress = std::array<uint8_t, 6>;

// Locally administered.
constexpr LinkAddress kSender = {2, 0, 0, 0, 0, 1};
constexpr LinkAddress kReceiver = {2, 0, 0, 0, 0, 2};

constexpr uint16_t kEthertypeIpv4 = 0x0800;
constexpr uint16_t kEthertypeIpv6 = 0x86DD;
constexpr size_t kLeastFrameOctets = 60;
constexpr uint8_t kUdp = 17;
constexpr size_t kUdpHeaderOctets = 8;
constexpr size_t kUdpChecksumOffset = 6;
constexpr size_t kIpv4HeaderOctets = 20;
constexpr size_t kIpv4ChecksumOffset = 10;
constexpr uint8_t kIpv4TimeToLive = 128;
constexpr uint16_t kIpv4Id = 1;

// Captures have the byte order of whoever writes them.
struct FileHeader {
    uint32_t magic = 0xA1B2C3D4; // for times in microseconds
    uint16_t major_version = 2;
    uint16_t minor_version = 4;
    uint32_t reserved[2] = {};
    uint32_t most_octets = 262144; // of a packet; the usual limit
    uint32_t link_type = 1;        // Ethernet
};

struct PacketHeader {
    uint32_t seconds;
    uint32_t microseconds;
    uint32_t octets;
    uint32_t octets_on_the_wire;
};

template <typename Header>
std::string_view as_text(const Header &header) {
    return {reinterpret_cast<const char *>(&header), sizeof header};
}

class Frame {
public:
    std::string_view text() const { return octets_; }
    Octets from(size_t begin) const {
        return Octets(reinterpret_cast<const uint8_t *>(octets_.data()), octets_.size()).subspan(begin);
    }
    size_t size() const { return octets_.size(); }

    void put(Octets octets) { octets_.append(octets.begin(), octets.end()); }
    void put(uint8_t octet) { octets_ += static_cast<char>(octet); }
    void put_u16(size_t value) {
        put(static_cast<uint8_t>(value >> 8));
        put(static_cast<uint8_t>(value));
    }
    void put(const Address &address) { put(Octets(address.octets).first(address.is_ipv6 ? 16 : 4)); }
    void set_u16(size_t place, uint16_t value) {
        octets_[place] = static_cast<char>(value >> 8);
        octets_[place + 1] = static_cast<char>(value);
    }
    void pad(size_t octets) { octets_.resize(std::max(octets_.size(), octets)); }

private:
    std::string octets_;
};

// Of 16-bit numbers, in ones' complement, as the checksums of IP and UDP have it.
uint32_t sum(Octets octets) {
    uint32_t sum = 0;
    for (size_t i = 0; i + 1 < octets.size(); i += 2) sum += read_u16(octets, i);
    return sum + (octets.size() % 2 == 0 ? 0 : uint32_t{octets.back()} << 8);
}

uint16_t checksum(uint32_t sum) {
    while (sum > 0xFFFF) sum = (sum & 0xFFFF) + (sum >> 16);
    return static_cast<uint16_t>(~sum);
}

// Groups have addresses of their own.
LinkAddress link_address(const Address &destination) {
    const auto &octets = destination.octets;
    if (destination.is_ipv6) {
        if (octets[0] != 0xFF) return kReceiver;
        return {0x33, 0x33, octets[12], octets[13], octets[14], octets[15]};
    }
    if (octets[0] < 224 || octets[0] > 239) return kReceiver;
    return {0x01, 0x00, 0x5E, static_cast<uint8_t>(octets[1] & 0x7F), octets[2], octets[3]};
}

void put_ipv4(Frame &frame, const Endpoints &endpoints, size_t content_octets) {
    constexpr uint8_t kWithoutOptions = 0x45;
    const size_t begin = frame.size();
    frame.put(kWithoutOptions);
    frame.put(uint8_t{0});
    frame.put_u16(kIpv4HeaderOctets + content_octets);
    frame.put_u16(kIpv4Id);
    frame.put_u16(0);
    frame.put(kIpv4TimeToLive);
    frame.put(kUdp);
    frame.put_u16(0);
    frame.put(endpoints.source.address);
    frame.put(endpoints.destination.address);
    frame.set_u16(begin + kIpv4ChecksumOffset, checksum(sum(frame.from(begin))));
}

void put_ipv6(Frame &frame, const Endpoints &endpoints, size_t content_octets) {
    constexpr uint8_t kVersion6 = 0x60;
    for (const uint8_t octet : {kVersion6, uint8_t{0}, uint8_t{0}, uint8_t{0}}) frame.put(octet);
    frame.put_u16(content_octets);
    frame.put(kUdp);
    frame.put(uint8_t{0}); // goes no further
    frame.put(endpoints.source.address);
    frame.put(endpoints.destination.address);
}

// Its checksum also covers the addresses, the protocol and the length. One of 0 would say that there is none.
void put_udp(Frame &frame, const Endpoints &endpoints, Octets payload) {
    const size_t begin = frame.size();
    const size_t octets = kUdpHeaderOctets + payload.size();
    frame.put_u16(endpoints.source.port);
    frame.put_u16(endpoints.destination.port);
    frame.put_u16(octets);
    frame.put_u16(0);
    frame.put(payload);
    const uint32_t pseudo_header = sum(endpoints.source.address.octets) + sum(endpoints.destination.address.octets) +
                                   kUdp + static_cast<uint32_t>(octets);
    const uint16_t found = checksum(pseudo_header + sum(frame.from(begin)));
    frame.set_u16(begin + kUdpChecksumOffset, found == 0 ? 0xFFFF : found);
}

Frame make_frame(const Endpoints &endpoints, Octets payload) {
    const Address &destination = endpoints.destination.address;
    Frame frame;
    frame.put(link_address(destination));
    frame.put(kSender);
    frame.put_u16(destination.is_ipv6 ? kEthertypeIpv6 : kEthertypeIpv4);
    (destination.is_ipv6 ? put_ipv6 : put_ipv4)(frame, endpoints, kUdpHeaderOctets + payload.size());
    put_udp(frame, endpoints, payload);
    frame.pad(kLeastFrameOctets);
    return frame;
}

} // namespace

std::string pcap_header() { return std::string(as_text(FileHeader())); }

void put_packet(TextBuffer &out, const Datagram &datagram, Octets payload) {
    if (payload.size() > kMaxPayloadOctets)
        throw std::runtime_error("a block of " + std::to_string(payload.size()) + " octets fits no datagram of UDP");
    const Frame frame = make_frame(datagram.endpoints.value_or(kUnknown), payload);
    const Time time = datagram.time.value_or(Time{0, 0});
    if (time.seconds < 0 || time.seconds > std::numeric_limits<uint32_t>::max())
        throw std::runtime_error("a time of " + time_text(time) +
                                 " fits no capture, which counts 32 bits of seconds from 1970");
    const auto size = static_cast<uint32_t>(frame.size());
    out.put(as_text(
        PacketHeader{static_cast<uint32_t>(time.seconds), time.nanoseconds / kNanosecondsPerMicrosecond, size, size}));
    out.put(frame.text());
}

} // namespace ast::recording
