#include "source/udp_source.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <net/if.h>
#include <netinet/in.h>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "base/interruption.hpp"
#include "source/network_interface.hpp"
#include "source/socket_endpoint.hpp"

namespace ast::recording {

namespace {

using asio::ip::udp;

constexpr size_t kMaxDatagramOctets = 65535;
constexpr int kReceiveBufferOctets = 8 * 1024 * 1024; // asked for; the system may grant less

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

template <typename Value>
void set_option(udp::socket &socket, int level, int name, const Value &value) {
    if (setsockopt(socket.native_handle(), level, name, &value, sizeof value) != 0) fail();
}

// An interface of 0 is the system's choice.
void join(udp::socket &socket, const udp::endpoint &group, unsigned interface) {
    group_req request{};
    request.gr_interface = interface;
    std::memcpy(&request.gr_group, group.data(), group.size());
    set_option(socket, group.address().is_v4() ? IPPROTO_IP : IPPROTO_IPV6, MCAST_JOIN_GROUP, request);
}

// Keeps out what other interfaces receive, also for the groups that other programs have joined there.
void bind_to_device(udp::socket &socket, unsigned interface) {
    char name[IF_NAMESIZE] = "";
    if (!if_indextoname(interface, name)) fail();
    set_option(socket, SOL_SOCKET, SO_BINDTODEVICE, name);
}

} // namespace

UdpSource::UdpSource(const std::vector<LiveUrl> &urls, const std::string &interface, Interruption &interruption,
                     const Announce &announce)
    : interruption_(interruption), buffer_(kMaxDatagramOctets) {
    const unsigned index = interface.empty() ? 0 : interface_index(interface);
    for (const LiveUrl &url : urls) listen(url, index);
    for (Socket &socket : sockets_) {
        descriptors_.push_back(socket.socket.native_handle());
        std::ostringstream text;
        text << socket.local;
        announce("listening on " + text.str());
    }
}

// A name may have addresses of both versions; this host need not.
void UdpSource::listen(const LiveUrl &url, unsigned interface) {
    const size_t before = sockets_.size();
    std::error_code failure;
    for (const udp::endpoint &endpoint : resolve<udp>(url, context_)) try {
            listen(endpoint, interface);
        } catch (const std::system_error &error) {
            failure = error.code();
        }
    if (sockets_.size() == before) throw std::system_error(failure, url.text);
}

void UdpSource::listen(udp::endpoint endpoint, unsigned interface) {
    const bool multicast = endpoint.address().is_multicast();
    const unsigned scope = give_scope(endpoint, interface);
    udp::socket socket(context_, endpoint.protocol());
    if (interface != 0) bind_to_device(socket, interface);
    if (multicast) socket.set_option(udp::socket::reuse_address(true));
    socket.set_option(udp::socket::receive_buffer_size(kReceiveBufferOctets));
    set_option(socket, SOL_SOCKET, SO_RXQ_OVFL, 1);
    socket.bind(endpoint);
    if (multicast) join(socket, endpoint, scope);
    const udp::endpoint local = socket.local_endpoint();
    sockets_.push_back({.socket = std::move(socket), .local = local});
}

bool UdpSource::fill(Chunk &chunk) {
    while (const auto ready = interruption_.for_any_input(descriptors_, next_)) {
        Socket &socket = sockets_[*ready];
        next_ = *ready + 1;
        const auto length = receive(socket, chunk.reports());
        if (!length) continue;
        chunk.add({.octets = chunk.keep(Octets(buffer_).first(*length)),
                   .packet = packet_,
                   .time = now(),
                   .endpoints = Endpoints{to_endpoint(sender_), to_endpoint(socket.local)}});
        return true;
    }
    return false;
}

// Nothing when there is no datagram after all, which happens when its checksum is wrong.
std::optional<size_t> UdpSource::receive(Socket &socket, Reports &reports) {
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof socket.dropped)];
    iovec buffer{.iov_base = buffer_.data(), .iov_len = buffer_.size()};
    msghdr message{.msg_name = sender_.data(),
                   .msg_namelen = static_cast<socklen_t>(sender_.capacity()),
                   .msg_iov = &buffer,
                   .msg_iovlen = 1,
                   .msg_control = control,
                   .msg_controllen = sizeof control,
                   .msg_flags = 0};
    const ssize_t length = recvmsg(socket.socket.native_handle(), &message, MSG_DONTWAIT);
    if (length < 0 && (errno == EAGAIN || errno == EINTR)) return std::nullopt;
    if (length < 0) fail();
    ++packet_;
    sender_.resize(message.msg_namelen);
    check(socket, message, reports);
    return static_cast<size_t>(length);
}

// What the system has lost: of this datagram, and others before it for which the receive buffer had no room.
void UdpSource::check(Socket &socket, const msghdr &message, Reports &reports) {
    if (message.msg_flags & MSG_TRUNC) reports.truncated({.octets = buffer_, .packet = packet_}, 0);
    const cmsghdr *const control = CMSG_FIRSTHDR(&message);
    if (!control || control->cmsg_level != SOL_SOCKET || control->cmsg_type != SO_RXQ_OVFL) return;
    uint32_t dropped = 0;
    std::memcpy(&dropped, CMSG_DATA(control), sizeof dropped);
    reports.dropped(dropped - socket.dropped);
    socket.dropped = dropped;
}

} // namespace ast::recording
