// Packets of a capture in pcap form, with times in microseconds, of Ethernet.
#pragma once

#include <string>

#include "base/text_buffer.hpp"
#include "datagram/datagram.hpp"

namespace ast::recording {

// The most that a datagram of UDP over IPv4 holds.
constexpr size_t kMaxPayloadOctets = 65535 - 20 - 8;

std::string pcap_header();

// A packet with the time and endpoints of a datagram, and another payload. What is not known is 1970-01-01 00:00, and
// 192.0.2.1:8600 > 233.252.0.1:8600. Throws std::runtime_error for a payload that no datagram holds.
void put_packet(TextBuffer &out, const Datagram &datagram, Octets payload);

} // namespace ast::recording
