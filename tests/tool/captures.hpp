// Writes frames and captures, octet by octet.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

std::string be16(size_t value);
std::string be32(size_t value);

// UDP from port 4000 to 8600.
std::string udp(const std::string &payload);

// A segment of TCP from port 4000 to 8600.
constexpr unsigned kFin = 0x01, kSyn = 0x02, kRst = 0x04, kAck = 0x10;
std::string tcp(size_t sequence, const std::string &payload, unsigned flags = kAck);

// IP packets from 10.0.0.1 to 239.1.1.1, and from 2001:db8::1 to ff02::1. An offset, in octets, or `more` makes a
// fragment.
std::string ipv4(const std::string &udp, size_t offset = 0, bool more = false, size_t id = 7);
std::string ipv4_tcp(const std::string &tcp);
std::string ipv6(const std::string &udp);
std::string ipv6_tcp(const std::string &tcp);
std::string ipv6_fragment(const std::string &udp, size_t offset, bool more);

// Ethernet frames; `tags` are VLAN tags from their type on, each followed by the next type.
std::string ethernet(const std::string &ip, const std::string &tags = "");

// A capture with a packet every second from 2024-05-06 07:08:09.000012 on, or with all of them then.
std::string pcap(unsigned link_type, const std::vector<std::string> &frames, bool at_once = false);
std::string pcapng(unsigned link_type, const std::vector<std::string> &frames);

// A pcapng capture block by block, each in the byte order of its section.
class Pcapng {
public:
    Pcapng &section(bool is_big_endian);
    Pcapng &interface(unsigned link_type, const std::string &options = "", size_t most_octets = 0);
    Pcapng &packet(size_t interface, uint64_t time, const std::string &frame);
    Pcapng &old_packet(size_t interface, uint64_t time, const std::string &frame);
    Pcapng &simple_packet(const std::string &frame, size_t length);
    Pcapng &block(size_t type, std::string body);

    // Of an interface; the value in the byte order of its section.
    static std::string resolution(bool is_big_endian, unsigned value);
    static std::string offset(bool is_big_endian, uint64_t seconds);

    std::string octets;

private:
    std::string u16(size_t value) const;
    std::string u32(size_t value) const;
    std::string header(uint64_t time, const std::string &frame) const;

    bool is_big_endian_ = false;
};
