#include "system/sockets.hpp"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/sock_diag.h>
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

template <typename Value>
Value value_of(const cmsghdr &control) {
    Value value;
    std::memcpy(&value, CMSG_DATA(&control), sizeof value);
    return value;
}

// What the system says beside the octets.
void read_controls(msghdr &message, Arrival &arrival) {
    constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;
    for (cmsghdr *control = CMSG_FIRSTHDR(&message); control; control = CMSG_NXTHDR(&message, control)) {
        if (control->cmsg_level != SOL_SOCKET) continue;
        if (control->cmsg_type == SO_RXQ_OVFL) arrival.dropped = value_of<uint32_t>(*control);
        if (control->cmsg_type != SCM_TIMESTAMPNS) continue;
        const auto time = value_of<timespec>(*control);
        arrival.came_ns = time.tv_sec * kNanosecondsPerSecond + time.tv_nsec;
    }
}

} // namespace

// Bound to the device, it does not hear groups either that other programs have joined elsewhere.
void prepare_to_receive(udp::socket &socket, unsigned interface) {
    char name[IF_NAMESIZE] = "";
    if (interface != 0 && !if_indextoname(interface, name)) throw std::system_error(last_failure());
    if (interface != 0) set_option(socket, SOL_SOCKET, SO_BINDTODEVICE, name);
    set_option(socket, SOL_SOCKET, SO_RXQ_OVFL, 1);
    set_option(socket, SOL_SOCKET, SO_TIMESTAMPNS, 1);
}

// Who may do so is not kept to what the system grants all. It says twice what it grants, for what it keeps beside it.
uint64_t ask_for_room(udp::socket &socket, int octets) {
    const int number = socket.native_handle();
    if (::setsockopt(number, SOL_SOCKET, SO_RCVBUFFORCE, &octets, sizeof octets) != 0)
        set_option(socket, SOL_SOCKET, SO_RCVBUF, octets);
    int granted = 0;
    socklen_t size = sizeof granted;
    ::getsockopt(number, SOL_SOCKET, SO_RCVBUF, &granted, &size);
    return static_cast<uint64_t>(granted) / 2;
}

std::string_view setting_of_room() { return "net.core.rmem_max"; }

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
size_t Arrivals::receive(udp::socket &socket) {
    struct Controls {
        alignas(cmsghdr) char octets[CMSG_SPACE(sizeof(uint32_t)) + CMSG_SPACE(sizeof(timespec))];
    };
    std::array<iovec, kMost> octets;
    std::array<Controls, kMost> controls;
    std::array<mmsghdr, kMost> messages{};
    for (size_t i = 0; i < kMost; ++i) {
        octets[i] = {.iov_base = room(i).data(), .iov_len = room(i).size()};
        messages[i].msg_hdr = {.msg_name = senders_[i].data(),
                               .msg_namelen = static_cast<socklen_t>(senders_[i].capacity()),
                               .msg_iov = &octets[i],
                               .msg_iovlen = 1,
                               .msg_control = controls[i].octets,
                               .msg_controllen = sizeof controls[i].octets,
                               .msg_flags = 0};
    }
    const int count = recvmmsg(socket.native_handle(), messages.data(), kMost, MSG_DONTWAIT, nullptr);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return 0;
    if (count < 0) throw std::system_error(last_failure());
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) {
        msghdr &message = messages[i].msg_hdr;
        arrivals_[i] = {.octets = room(i).first(messages[i].msg_len),
                        .is_cut = (message.msg_flags & MSG_TRUNC) != 0,
                        .came_ns = std::nullopt,
                        .dropped = std::nullopt};
        read_controls(message, arrivals_[i]);
        senders_[i].resize(message.msg_namelen);
    }
    return static_cast<size_t>(count);
}

std::optional<uint32_t> dropped_of(udp::socket &socket) {
    std::array<uint32_t, SK_MEMINFO_VARS> counts{};
    socklen_t size = sizeof counts;
    const bool is_told = ::getsockopt(socket.native_handle(), SOL_SOCKET, SO_MEMINFO, counts.data(), &size) == 0;
    return is_told && size == sizeof counts ? std::optional(counts[SK_MEMINFO_DROPS]) : std::nullopt;
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
