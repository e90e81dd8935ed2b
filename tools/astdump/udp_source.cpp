#include "udp_source.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <net/if.h>
#include <netinet/in.h>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "endpoint.hpp"
#include "network_interface.hpp"
#include "terminal.hpp"
#include "waiting.hpp"

namespace astdump {

namespace {

using asio::ip::udp;

constexpr std::string_view kScheme = "udp://";
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

Time now() {
    using namespace std::chrono;
    const auto since_1970 = system_clock::now().time_since_epoch();
    const auto whole = duration_cast<seconds>(since_1970);
    return {whole.count(), static_cast<uint32_t>(duration_cast<nanoseconds>(since_1970 - whole).count())};
}

} // namespace

std::optional<udp::endpoint> read_udp_url(const std::string &text) {
    if (!text.starts_with(kScheme)) return std::nullopt;
    const std::string rest = text.substr(kScheme.size());
    const auto endpoint = read_endpoint(rest);
    if (!endpoint)
        throw std::invalid_argument('\'' + text + "' is neither udp://ADDRESS:PORT nor udp://[ADDRESS]:PORT");
    return endpoint;
}

UdpSource::UdpSource(udp::endpoint endpoint, const std::string &interface, Waiting &waiting)
    : waiting_(waiting), socket_(context_), buffer_(kMaxDatagramOctets) {
    listen(endpoint, interface.empty() ? 0 : interface_index(interface));
    std::ostringstream text;
    text << local_;
    tell("listening on " + text.str());
}

void UdpSource::listen(udp::endpoint endpoint, unsigned interface) {
    const bool multicast = endpoint.address().is_multicast();
    if (interface != 0 && endpoint.address().is_v6()) {
        auto address = endpoint.address().to_v6();
        if (address.is_link_local() || address.is_multicast_link_local()) address.scope_id(interface);
        endpoint.address(address);
    }
    socket_.open(endpoint.protocol());
    if (interface != 0) bind_to_device(socket_, interface);
    if (multicast) socket_.set_option(udp::socket::reuse_address(true));
    socket_.set_option(udp::socket::receive_buffer_size(kReceiveBufferOctets));
    set_option(socket_, SOL_SOCKET, SO_RXQ_OVFL, 1);
    socket_.bind(endpoint);
    if (multicast) join(socket_, endpoint, interface);
    local_ = socket_.local_endpoint();
}

bool UdpSource::fill(Chunk &chunk) {
    while (waiting_.for_input(socket_.native_handle()))
        if (const auto length = receive(chunk.damage())) {
            chunk.add({.octets = chunk.keep(Octets(buffer_).first(*length)),
                       .packet = packet_,
                       .time = now(),
                       .endpoints = Endpoints{to_endpoint(sender_), to_endpoint(local_)}});
            return true;
        }
    return false;
}

// Nothing when there is no datagram after all, which happens when its checksum is wrong.
std::optional<size_t> UdpSource::receive(Damage &damage) {
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof dropped_)];
    iovec buffer{.iov_base = buffer_.data(), .iov_len = buffer_.size()};
    msghdr message{.msg_name = sender_.data(),
                   .msg_namelen = static_cast<socklen_t>(sender_.capacity()),
                   .msg_iov = &buffer,
                   .msg_iovlen = 1,
                   .msg_control = control,
                   .msg_controllen = sizeof control,
                   .msg_flags = 0};
    const ssize_t length = recvmsg(socket_.native_handle(), &message, MSG_DONTWAIT);
    if (length < 0 && (errno == EAGAIN || errno == EINTR)) return std::nullopt;
    if (length < 0) fail();
    ++packet_;
    sender_.resize(message.msg_namelen);
    check(message, damage);
    return static_cast<size_t>(length);
}

// What the system has lost: of this datagram, and others before it for which the receive buffer had no room.
void UdpSource::check(const msghdr &message, Damage &damage) {
    if (message.msg_flags & MSG_TRUNC) damage.truncated(packet_, buffer_.size());
    const cmsghdr *const control = CMSG_FIRSTHDR(&message);
    if (!control || control->cmsg_level != SOL_SOCKET || control->cmsg_type != SO_RXQ_OVFL) return;
    uint32_t dropped = 0;
    std::memcpy(&dropped, CMSG_DATA(control), sizeof dropped);
    damage.dropped(dropped - dropped_);
    dropped_ = dropped;
}

} // namespace astdump
