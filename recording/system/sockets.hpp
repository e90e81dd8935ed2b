// What sockets do beyond what Asio offers, or otherwise than it does: without waiting, and with interfaces by number.
#pragma once

#include <array>
#include <asio/ip/tcp.hpp>
#include <asio/ip/udp.hpp>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>

#include "system/descriptor.hpp"

namespace ast::recording::system {

// ---- Datagrams ----

// Before a socket is bound: what other interfaces receive is kept out of it, where the system can do that, unless the
// interface is 0; the datagrams that the system has no room for are counted, and the time at which one comes is kept,
// if it does that. Throws std::system_error.
void prepare_to_receive(asio::ip::udp::socket &socket, unsigned interface);

// Asks for room for so many octets that have yet to be taken, and returns what is granted.
uint64_t ask_for_room(asio::ip::udp::socket &socket, int octets);

// What a user has to set for more of it; empty where that is not known.
std::string_view setting_of_room();

// What is bound to hear an address or a group.
asio::ip::udp::endpoint bound_to_hear(const asio::ip::udp::endpoint &endpoint);

// Lets a socket hear a group on an interface, and has what it sends to groups of a version leave by one; 0 is the
// system's choice. Both throw std::system_error.
void join(asio::ip::udp::socket &socket, const asio::ip::udp::endpoint &group, unsigned interface);
void send_groups_by(asio::ip::udp::socket &socket, bool is_ipv6, unsigned interface);

struct Arrival {
    std::span<const uint8_t> octets;
    bool is_cut;                     // for want of room
    std::optional<int64_t> came_ns;  // since 1970
    std::optional<uint32_t> dropped; // by the system since the socket was opened, as far as it counts
};

// Datagrams that have come, taken together.
class Arrivals {
public:
    // Those that wait, without waiting for more; how many they are. What was taken before is gone. Throws
    // std::system_error.
    size_t receive(asio::ip::udp::socket &socket);

    const Arrival &operator[](size_t place) const { return arrivals_[place]; }
    const asio::ip::udp::endpoint &sender(size_t place) const { return senders_[place]; }

private:
    static constexpr size_t kMost = 32;
    static constexpr size_t kRoomOctets = 65536; // of one

    std::span<uint8_t> room(size_t place) { return {&storage_[place * kRoomOctets], kRoomOctets}; }

    std::unique_ptr<uint8_t[]> storage_ = std::make_unique_for_overwrite<uint8_t[]>(kMost * kRoomOctets);
    std::array<Arrival, kMost> arrivals_{};
    std::array<asio::ip::udp::endpoint, kMost> senders_;
};

// Those that the system has dropped since the socket was opened; nothing where it does not count them.
std::optional<uint32_t> dropped_of(asio::ip::udp::socket &socket);

// Sends one, waiting for room.
std::error_code send(asio::ip::udp::socket &socket, std::span<const uint8_t> datagram);

// ---- Connections ----

// A socket to connect to an address by. Throws std::system_error.
Descriptor open_connection(const asio::ip::tcp::endpoint &endpoint);

// Begins to connect; std::errc::operation_in_progress when the socket can be written once that has succeeded, or
// failed, of which connect_failure() then tells.
std::error_code begin_to_connect(Descriptor connection, const asio::ip::tcp::endpoint &endpoint);
std::error_code connect_failure(Descriptor connection);

// Of this side.
asio::ip::tcp::endpoint endpoint_of(Descriptor connection);

// Takes a client that has come.
Descriptor accept(asio::ip::tcp::acceptor &listener, asio::ip::tcp::endpoint &other, std::error_code &failure);

// Before anything is sent: it goes at once, and does not wait for more to fill a packet; so many octets are asked for
// as the room for what the other side has yet to take.
void prepare_to_send(Descriptor connection, int room_octets);

// What has come, without waiting, up to so many octets; 0 at the end. Nothing when there is none, or a failure.
std::optional<size_t> receive(Descriptor connection, std::span<uint8_t> octets, std::error_code &failure);

// Sends what there is room for at once, and takes that off the octets. The failure is std::errc::operation_would_block
// where there is none.
std::error_code send(Descriptor connection, std::span<const uint8_t> &octets);

} // namespace ast::recording::system
