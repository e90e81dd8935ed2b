#include "captures.hpp"

#include "command.hpp"

namespace {

constexpr size_t kFirstSecond = 1714979289;
constexpr size_t kMicroseconds = 12;

std::string reversed(const std::string &octets) { return {octets.rbegin(), octets.rend()}; }

std::string padded(std::string octets) {
    octets.resize((octets.size() + 3) / 4 * 4);
    return octets;
}

std::string ethertype(const std::string &ip) { return hex(ip[0] == 0x45 ? "0800" : "86DD"); }

std::string ipv6_header(size_t length, const std::string &next_header) {
    return hex("60000000") + be16(length) + next_header + hex("40") + hex("20010DB8 00000000 00000000 00000001") +
           hex("FF020000 00000000 00000000 00000001");
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
    Pcapng file;
    file.section(false).interface(link_type);
    for (size_t i = 0; i < frames.size(); ++i) file.packet(0, (kFirstSecond + i) * 1000000 + kMicroseconds, frames[i]);
    return file.octets;
}

std::string Pcapng::u16(size_t value) const { return is_big_endian_ ? be16(value) : reversed(be16(value)); }

std::string Pcapng::u32(size_t value) const { return is_big_endian_ ? be32(value) : reversed(be32(value)); }

// The type, and the length before and behind what the block holds.
Pcapng &Pcapng::block(size_t type, std::string body) {
    body = padded(std::move(body));
    const std::string length = u32(body.size() + 12);
    octets += u32(type) + length + body + length;
    return *this;
}

Pcapng &Pcapng::section(bool is_big_endian) {
    is_big_endian_ = is_big_endian;
    return block(0x0A0D0D0A, u32(0x1A2B3C4D) + u16(1) + u16(0) + std::string(8, '\xFF'));
}

Pcapng &Pcapng::interface(unsigned link_type, const std::string &options, size_t most_octets) {
    return block(1, u16(link_type) + u16(0) + u32(most_octets) + options);
}

std::string Pcapng::header(uint64_t time, const std::string &frame) const {
    return u32(time >> 32) + u32(time & 0xFFFFFFFF) + u32(frame.size()) + u32(frame.size());
}

Pcapng &Pcapng::packet(size_t interface, uint64_t time, const std::string &frame) {
    return block(6, u32(interface) + header(time, frame) + padded(frame));
}

Pcapng &Pcapng::old_packet(size_t interface, uint64_t time, const std::string &frame) {
    return block(2, u16(interface) + u16(0xFFFF) + header(time, frame) + padded(frame));
}

Pcapng &Pcapng::simple_packet(const std::string &frame, size_t length) { return block(3, u32(length) + frame); }

std::string Pcapng::resolution(bool is_big_endian, unsigned value) {
    return hex(is_big_endian ? "0009 0001" : "0900 0100") + padded(std::string(1, static_cast<char>(value)));
}

std::string Pcapng::offset(bool is_big_endian, uint64_t seconds) {
    const std::string value = be32(seconds >> 32) + be32(seconds & 0xFFFFFFFF);
    return hex(is_big_endian ? "000E 0008" : "0E00 0800") + (is_big_endian ? value : reversed(value));
}
