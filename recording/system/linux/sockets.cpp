#include "system/sockets.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <net/if.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace ast::recording::system {

namespace {

using asio::ip::tcp;
using asio::ip::udp;

std::error_code last_failure() { return {errno, std::generic_category()}; }

int number_of(Descriptor connection) { return static_cast<int>(connection.number); }

void set_waiting(int socket, bool waits) {
    const int flags = ::fcntl(socket, F_GETFL);
    ::fcntl(socket, F_SETFL, waits ? flags & ~O_NONBLOCK : flags | O_NONBLOCK);
}

template <typename Value>
void set_option(udp::socket &socket, int level, int name, const Value &value) {
    if (setsockopt(socket.native_handle(), level, name, &value, sizeof value) != 0)
        throw std::system_error(last_failure());
}

std::optional<uint32_t> dropped_before(msghdr &message) {
    const cmsghdr *const control = CMSG_FIRSTHDR(&message);
    if (!control || control->cmsg_level != SOL_SOCKET || control->cmsg_type != SO_RXQ_OVFL) return std::nullopt;
    uint32_t dropped = 0;
    std::memcpy(&dropped, CMSG_DATA(control), sizeof dropped);
    return dropped;
}

} // namespace

// Bound to the device, it does not hear groups either that other programs have joined elsewhere.
void prepare_to_receive(udp::socket &socket, unsigned interface) {
    char name[IF_NAMESIZE] = "";
    if (interface != 0 && !if_indextoname(interface, name)) throw std::system_error(last_failure());
    if (interface != 0) set_option(socket, SOL_SOCKET, SO_BINDTODEVICE, name);
    set_option(socket, SOL_SOCKET, SO_RXQ_OVFL, 1);
}

udp::endpoint bound_to_hear(const udp::endpoint &endpoint) { return endpoint; }

void join(udp::socket &socket, const udp::endpoint &group, unsigned interface) {
    group_req request{};
    request.gr_interface = interface;
    std::memcpy(&request.gr_group, group.data(), group.size());
    set_option(socket, group.address().is_v4() ? IPPROTO_IP : IPPROTO_IPV6, MCAST_JOIN_GROUP, request);
}

void send_groups_by(udp::socket &socket, bool is_ipv6, unsigned interface) {
    if (is_ipv6) return set_option(socket, IPPROTO_IPV6, IPV6_MULTICAST_IF, interface);
    ip_mreqn request{};
    request.imr_ifindex = static_cast<int>(interface);
    set_option(socket, IPPROTO_IP, IP_MULTICAST_IF, request);
}

// There is none after all when its checksum is wrong.
std::optional<Received> receive(udp::socket &socket, std::span<uint8_t> buffer, udp::endpoint &sender) {
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(uint32_t))];
    iovec octets{.iov_base = buffer.data(), .iov_len = buffer.size()};
    msghdr message{.msg_name = sender.data(),
                   .msg_namelen = static_cast<socklen_t>(sender.capacity()),
                   .msg_iov = &octets,
                   .msg_iovlen = 1,
                   .msg_control = control,
                   .msg_controllen = sizeof control,
                   .msg_flags = 0};
    const ssize_t length = recvmsg(socket.native_handle(), &message, MSG_DONTWAIT);
    if (length < 0 && (errno == EAGAIN || errno == EINTR)) return std::nullopt;
    if (length < 0) throw std::system_error(last_failure());
    sender.resize(message.msg_namelen);
    return Received{.octets = static_cast<size_t>(length),
                    .is_cut = (message.msg_flags & MSG_TRUNC) != 0,
                    .dropped = dropped_before(message)};
}

std::error_code send(udp::socket &socket, std::span<const uint8_t> datagram) {
    for (;;) {
        if (::send(socket.native_handle(), datagram.data(), datagram.size(), MSG_NOSIGNAL) >= 0) return {};
        if (errno != EINTR) return last_failure();
    }
}

Descriptor open_connection(const tcp::endpoint &endpoint) {
    const int socket = ::socket(endpoint.protocol().family(), SOCK_STREAM, IPPROTO_TCP);
    if (socket < 0) throw std::system_error(last_failure());
    return socket_descriptor(socket);
}

std::error_code begin_to_connect(Descriptor connection, const tcp::endpoint &endpoint) {
    const int socket = number_of(connection);
    const auto size = static_cast<socklen_t>(endpoint.size());
    set_waiting(socket, false);
    const bool has_failed = ::connect(socket, endpoint.data(), size) != 0;
    const std::error_code failure = has_failed ? last_failure() : std::error_code();
    if (failure != std::errc::operation_in_progress) set_waiting(socket, true);
    return failure;
}

std::error_code connect_failure(Descriptor connection) {
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(number_of(connection), SOL_SOCKET, SO_ERROR, &error, &size);
    set_waiting(number_of(connection), true);
    return {error, std::generic_category()};
}

Descriptor accept(tcp::acceptor &listener, tcp::endpoint &other, std::error_code &failure) {
    tcp::socket socket = listener.accept(other, failure);
    return failure ? Descriptor() : socket_descriptor(socket.release());
}

void prepare_to_send(Descriptor connection, int room_octets) {
    constexpr int kOn = 1;
    ::setsockopt(number_of(connection), IPPROTO_TCP, TCP_NODELAY, &kOn, sizeof kOn);
    ::setsockopt(number_of(connection), SOL_SOCKET, SO_SNDBUF, &room_octets, sizeof room_octets);
}

std::optional<size_t> receive(Descriptor connection, std::span<uint8_t> octets, std::error_code &failure) {
    const ssize_t count = ::recv(number_of(connection), octets.data(), octets.size(), MSG_DONTWAIT);
    if (count >= 0) return static_cast<size_t>(count);
    if (errno != EAGAIN && errno != EINTR) failure = last_failure();
    return std::nullopt;
}

tcp::endpoint endpoint_of(Descriptor connection) {
    tcp::endpoint endpoint;
    auto size = static_cast<socklen_t>(endpoint.capacity());
    if (getsockname(number_of(connection), endpoint.data(), &size) == 0) endpoint.resize(size);
    return endpoint;
}

std::error_code send(Descriptor connection, std::span<const uint8_t> &octets) {
    const int flags = MSG_NOSIGNAL | MSG_DONTWAIT;
    const ssize_t count = ::send(number_of(connection), octets.data(), octets.size(), flags);
    if (count >= 0) octets = octets.subspan(static_cast<size_t>(count));
    if (count >= 0 || errno == EINTR) return {};
    return last_failure();
}

} // namespace ast::recording::system
