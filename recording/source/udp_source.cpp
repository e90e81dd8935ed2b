#include "source/udp_source.hpp"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "base/interruption.hpp"
#include "source/live_source.hpp"
#include "source/network_interface.hpp"
#include "source/socket_endpoint.hpp"

namespace ast::recording {

namespace {

using asio::ip::udp;

constexpr int kRoomOctets = 8 * 1024 * 1024; // asked for; the system may grant less

Time time_of(int64_t since_1970_ns) {
    constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;
    return {since_1970_ns / kNanosecondsPerSecond, static_cast<uint32_t>(since_1970_ns % kNanosecondsPerSecond)};
}

// "room for 208 KiB that have yet to be read, of 8192 KiB asked for: net.core.rmem_max".
std::string room_text(uint64_t granted_octets) {
    constexpr uint64_t kKib = 1024;
    const std::string setting(system::setting_of_room());
    return "room for " + std::to_string(granted_octets / kKib) + " KiB that have yet to be read, of " +
           std::to_string(kRoomOctets / kKib) + " KiB asked for" +
           (setting.empty() ? "" : ": set " + setting + " to " + std::to_string(kRoomOctets));
}

} // namespace

UdpSource::UdpSource(const std::vector<LiveUrl> &urls, const std::string &interface, Interruption &interruption,
                     const Announce &announce)
    : interruption_(interruption) {
    const unsigned index = interface.empty() ? 0 : interface_index(interface);
    for (const LiveUrl &url : urls) listen(url, index);
    for (Socket &socket : sockets_) {
        descriptors_.push_back(system::socket_descriptor(socket.socket.native_handle()));
        std::ostringstream text;
        text << socket.local;
        announce("listening on " + text.str());
    }
    const uint64_t least = std::ranges::min_element(sockets_, {}, &Socket::room_octets)->room_octets;
    if (least < kRoomOctets) announce(room_text(least));
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
    const uint64_t room_octets = system::ask_for_room(socket, kRoomOctets);
    socket.bind(system::bound_to_hear(endpoint));
    if (multicast) system::join(socket, endpoint, scope);
    udp::endpoint local = socket.local_endpoint();
    if (multicast) local.address(endpoint.address());
    sockets_.push_back({.socket = std::move(socket), .local = local, .room_octets = room_octets});
}

bool UdpSource::fill(Chunk &chunk) {
    while (const auto ready = interruption_.for_any_input(descriptors_, next_)) {
        next_ = *ready + 1;
        receive(sockets_[*ready], chunk);
        if (!chunk.datagrams().empty()) return true;
    }
    if (!std::exchange(has_ended_, true)) end(chunk);
    return !chunk.datagrams().empty();
}

// How much room it has made, an octet for each datagram at least.
uint64_t UdpSource::receive(Socket &socket, Chunk &chunk) {
    const size_t count = arrivals_.receive(socket.socket);
    uint64_t octets = count;
    for (size_t i = 0; i < count; ++i) {
        octets += arrivals_[i].octets.size();
        add(socket, arrivals_[i], arrivals_.sender(i), chunk);
        take_dropped(socket, arrivals_[i].dropped, chunk.reports());
    }
    return octets;
}

void UdpSource::add(const Socket &socket, const system::Arrival &arrival, const udp::endpoint &sender, Chunk &chunk) {
    const Datagram datagram{.octets = chunk.keep(arrival.octets),
                            .packet = ++packet_,
                            .time = arrival.came_ns ? time_of(*arrival.came_ns) : now(),
                            .endpoints = Endpoints{to_endpoint(sender), to_endpoint(socket.local)}};
    if (arrival.is_cut) chunk.reports().truncated(datagram, 0);
    chunk.add(datagram);
}

// Those for which the receive buffer had no room.
void UdpSource::take_dropped(Socket &socket, std::optional<uint32_t> dropped, Reports &reports) {
    if (!dropped || *dropped == socket.dropped) return;
    reports.dropped(*dropped - socket.dropped);
    socket.dropped = *dropped;
}

// What waits has been received, too, and what was dropped behind it nobody else tells of.
void UdpSource::end(Chunk &chunk) {
    for (Socket &socket : sockets_) {
        uint64_t left = 2 * socket.room_octets; // as many may wait, and no more are taken, however much comes meanwhile
        for (uint64_t taken = left; taken != 0 && left != 0; left -= std::min(left, taken))
            taken = receive(socket, chunk);
        take_dropped(socket, system::dropped_of(socket.socket), chunk.reports());
    }
}

std::unique_ptr<DatagramSource> listen_to(const std::vector<LiveUrl> &urls, const std::string &interface,
                                          Interruption &interruption, const Announce &announce) {
    return std::make_unique<UdpSource>(urls, interface, interruption, announce);
}

} // namespace ast::recording
