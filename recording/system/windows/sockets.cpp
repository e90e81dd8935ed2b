#include "system/sockets.hpp"

#include <asio/ip/multicast.hpp>
#include <winsock2.h>
#include <ws2tcpip.h>

#include "system/windows/last_failure.hpp"

namespace ast::recording::system {

namespace {

using asio::ip::tcp;
using asio::ip::udp;

// In place of an address of IPv4, one of 0.0.0.0/8 is the number of an interface.
asio::ip::address_v4 as_address(unsigned interface) { return asio::ip::address_v4(interface); }

SOCKET handle_of(Descriptor connection) { return static_cast<SOCKET>(connection.number); }

void set_waiting(SOCKET socket, bool waits) {
    u_long without = waits ? 0 : 1;
    ioctlsocket(socket, static_cast<long>(FIONBIO), &without);
}

int sent(SOCKET socket, std::span<const uint8_t> octets) {
    return ::send(socket, reinterpret_cast<const char *>(octets.data()), static_cast<int>(octets.size()), 0);
}

} // namespace

// None of it can be had.
void prepare_to_receive(udp::socket &, unsigned) {}
std::optional<uint32_t> dropped_of(udp::socket &) { return std::nullopt; }

uint64_t ask_for_room(udp::socket &socket, int octets) {
    socket.set_option(udp::socket::receive_buffer_size(octets));
    udp::socket::receive_buffer_size granted;
    socket.get_option(granted);
    return static_cast<uint64_t>(granted.value());
}

std::string_view setting_of_room() { return {}; }

// No group can be bound to.
udp::endpoint bound_to_hear(const udp::endpoint &endpoint) {
    if (!endpoint.address().is_multicast()) return endpoint;
    return udp::endpoint(endpoint.protocol(), endpoint.port());
}

void join(udp::socket &socket, const udp::endpoint &group, unsigned interface) {
    if (group.address().is_v4())
        socket.set_option(asio::ip::multicast::join_group(group.address().to_v4(), as_address(interface)));
    else
        socket.set_option(asio::ip::multicast::join_group(group.address().to_v6(), interface));
}

void send_groups_by(udp::socket &socket, bool is_ipv6, unsigned interface) {
    if (is_ipv6)
        socket.set_option(asio::ip::multicast::outbound_interface(interface));
    else
        socket.set_option(asio::ip::multicast::outbound_interface(as_address(interface)));
}

// Refusals are those of what has been sent.
size_t Arrivals::receive(udp::socket &socket) {
    set_waiting(socket.native_handle(), false);
    for (size_t count = 0; count < kMost; ++count) {
        udp::endpoint &sender = senders_[count];
        auto size = static_cast<int>(sender.capacity());
        const int length = ::recvfrom(socket.native_handle(), reinterpret_cast<char *>(room(count).data()),
                                      static_cast<int>(kRoomOctets), 0, sender.data(), &size);
        const int error = length < 0 ? WSAGetLastError() : 0;
        if (error == WSAEWOULDBLOCK || error == WSAECONNRESET) return count;
        if (error != 0 && error != WSAEMSGSIZE) throw std::system_error(socket_failure());
        sender.resize(static_cast<size_t>(size));
        const size_t octets = error == 0 ? static_cast<size_t>(length) : kRoomOctets;
        arrivals_[count] = {.octets = room(count).first(octets),
                            .is_cut = error != 0,
                            .came_ns = std::nullopt,
                            .dropped = std::nullopt};
    }
    return kMost;
}

std::error_code send(udp::socket &socket, std::span<const uint8_t> datagram) {
    return sent(socket.native_handle(), datagram) >= 0 ? std::error_code() : socket_failure();
}

Descriptor open_connection(const tcp::endpoint &endpoint) {
    const SOCKET socket = ::socket(endpoint.protocol().family(), SOCK_STREAM, IPPROTO_TCP);
    if (socket == INVALID_SOCKET) throw std::system_error(socket_failure());
    return socket_descriptor(socket);
}

// The system says that the call would wait.
std::error_code begin_to_connect(Descriptor connection, const tcp::endpoint &endpoint) {
    set_waiting(handle_of(connection), false);
    if (::connect(handle_of(connection), endpoint.data(), static_cast<int>(endpoint.size())) == 0) return {};
    if (WSAGetLastError() == WSAEWOULDBLOCK) return std::make_error_code(std::errc::operation_in_progress);
    return socket_failure();
}

std::error_code connect_failure(Descriptor connection) {
    int error = 0;
    int size = sizeof error;
    getsockopt(handle_of(connection), SOL_SOCKET, SO_ERROR, reinterpret_cast<char *>(&error), &size);
    return {error, std::system_category()};
}

tcp::endpoint endpoint_of(Descriptor connection) {
    tcp::endpoint endpoint;
    auto size = static_cast<int>(endpoint.capacity());
    if (getsockname(handle_of(connection), endpoint.data(), &size) == 0) endpoint.resize(static_cast<size_t>(size));
    return endpoint;
}

// What Asio has accepted belongs to it for good.
Descriptor accept(tcp::acceptor &listener, tcp::endpoint &other, std::error_code &failure) {
    auto size = static_cast<int>(other.capacity());
    const SOCKET socket = ::accept(listener.native_handle(), other.data(), &size);
    if (socket == INVALID_SOCKET) {
        failure = socket_failure();
        return {};
    }
    other.resize(static_cast<size_t>(size));
    return socket_descriptor(socket);
}

// From then on, no call on it waits.
void prepare_to_send(Descriptor connection, int room_octets) {
    const int on = 1;
    const SOCKET socket = handle_of(connection);
    set_waiting(socket, false);
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char *>(&on), sizeof on);
    ::setsockopt(socket, SOL_SOCKET, SO_SNDBUF, reinterpret_cast<const char *>(&room_octets), sizeof room_octets);
}

std::optional<size_t> receive(Descriptor connection, std::span<uint8_t> octets, std::error_code &failure) {
    const int count =
        ::recv(handle_of(connection), reinterpret_cast<char *>(octets.data()), static_cast<int>(octets.size()), 0);
    if (count >= 0) return static_cast<size_t>(count);
    if (WSAGetLastError() != WSAEWOULDBLOCK) failure = socket_failure();
    return std::nullopt;
}

std::error_code send(Descriptor connection, std::span<const uint8_t> &octets) {
    const int count = sent(handle_of(connection), octets);
    if (count >= 0) octets = octets.subspan(static_cast<size_t>(count));
    if (count >= 0) return {};
    const std::error_code failure = socket_failure();
    return failure.value() == WSAEWOULDBLOCK ? std::make_error_code(std::errc::operation_would_block) : failure;
}

} // namespace ast::recording::system
