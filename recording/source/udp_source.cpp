#include "source/udp_source.hpp"

#include <algorithm>
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

} // namespace

UdpSource::UdpSource(const std::vector<LiveUrl> &urls, const std::string &interface, Interruption &interruption,
                     const Announce &announce)
    : interruption_(interruption), buffer_(kMaxDatagramOctets) {
    const unsigned index = interface.empty() ? 0 : interface_index(interface);
    for (const LiveUrl &url : urls) listen(url, index);
    for (Socket &socket : sockets_) {
        descriptors_.push_back(system::socket_descriptor(socket.socket.native_handle()));
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
    system::prepare_to_receive(socket, interface);
    if (multicast) socket.set_option(udp::socket::reuse_address(true));
    socket.set_option(udp::socket::receive_buffer_size(kReceiveBufferOctets));
    socket.bind(system::bound_to_hear(endpoint));
    if (multicast) system::join(socket, endpoint, scope);
    udp::endpoint local = socket.local_endpoint();
    if (multicast) local.address(endpoint.address());
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

// Nothing when there is no datagram after all.
std::optional<size_t> UdpSource::receive(Socket &socket, Reports &reports) {
    const auto received = system::receive(socket.socket, buffer_, sender_);
    if (!received) return std::nullopt;
    ++packet_;
    check(socket, *received, reports);
    return received->octets;
}

// What the system has lost: of this datagram, and others before it for which the receive buffer had no room.
void UdpSource::check(Socket &socket, const system::Received &received, Reports &reports) {
    if (received.is_cut) reports.truncated({.octets = buffer_, .packet = packet_}, 0);
    if (!received.dropped) return;
    reports.dropped(*received.dropped - socket.dropped);
    socket.dropped = *received.dropped;
}

} // namespace ast::recording
