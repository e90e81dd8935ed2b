#include "captures.hpp"

#include "command.hpp"

namespace {

constexpr size_t kFirstSecond = 1714979289;
constexpr size_t kMicroseconds = 12;

std::string le32(size_t value) {
    const std::string big = be32(value);
    return {big.rbegin(), big.rend()};
}

std::string padded(std::string octets) {
    octets.resize((octets.size() + 3) / 4 * 4);
    return octets;
}

std::string ethertype(const std::string &ip) { return hex(ip[0] == 0x45 ? "0800" : "86DD"); }

std::string ipv6_header(size_t length, const std::string &next_header) {
    return hex("60000000") + be16(length) + next_header + hex("40") + hex("20010DB8 00000000 00000000 00000001") +
           hex("FF020000 00000000 00000000 00000001");
}

// A pcapng block: its type, and its length before and behind what it holds.
std::string section(size_t type, const std::string &body) {
    const std::string length = le32(body.size() + 12);
    return le32(type) + length + body + length;
}

} // namespace

std::string be16(size_t value) { return {static_cast<char>(value >> 8), static_cast<char>(value)}; }

std::string be32(size_t value) { return be16(value >> 16) + be16(value & 0xFFFF); }

std::string udp(const std::string &payload) {
    return be16(4000) + be16(8600) + be16(payload.size() + 8) + be16(0) + payload;
}

std::string tcp(size_t sequence, const std::string &payload, unsigned flags) {
    return be16(4000) + be16(8600) + be32(sequence) + be32(0) + hex("50") + static_cast<char>(flags) +
           hex("0400 0000 0000") + payload;
}

std::string ipv4(const std::string &udp, size_t offset, bool more, size_t id) {
    return hex("4500") + be16(udp.size() + 20) + be16(id) + be16(offset / 8 | (more ? 0x2000 : 0)) + hex("4011 0000") +
           hex("0A000001 EF010101") + udp;
}

std::string ipv4_tcp(const std::string &tcp) {
    std::string packet = ipv4(tcp);
    packet[9] = 6;
    return packet;
}

std::string ipv6_tcp(const std::string &tcp) { return ipv6_header(tcp.size(), hex("06")) + tcp; }

std::string ipv6(const std::string &udp) { return ipv6_header(udp.size(), hex("11")) + udp; }

// A hop-by-hop options header stands before the fragment header.
std::string ipv6_fragment(const std::string &udp, size_t offset, bool more) {
    return ipv6_header(udp.size() + 16, hex("00")) + hex("2C00 0104 00000000") + hex("1100") +
           be16(offset | (more ? 1 : 0)) + be32(99) + udp;
}

std::string ethernet(const std::string &ip, const std::string &tags) {
    return hex("01005E010101 020000000001") + tags + ethertype(ip) + ip;
}

std::string pcap(unsigned link_type, const std::vector<std::string> &frames, bool at_once) {
    std::string file = hex("A1B2C3D4 0002 0004 00000000 00000000 00040000") + be32(link_type);
    for (size_t i = 0; i < frames.size(); ++i)
        file += be32(kFirstSecond + (at_once ? 0 : i)) + be32(kMicroseconds) + be32(frames[i].size()) +
                be32(frames[i].size()) + frames[i];
    return file;
}

std::string pcapng(unsigned link_type, const std::vector<std::string> &frames) {
    std::string file = section(0x0A0D0D0A, le32(0x1A2B3C4D) + le32(1) + std::string(8, '\xFF'));
    file += section(1, le32(link_type) + le32(0));
    for (size_t i = 0; i < frames.size(); ++i) {
        const size_t microseconds = (kFirstSecond + i) * 1000000 + kMicroseconds;
        file += section(6, le32(0) + le32(microseconds >> 32) + le32(microseconds & 0xFFFFFFFF) +
                               le32(frames[i].size()) + le32(frames[i].size()) + padded(frames[i]));
    }
    return file;
}
