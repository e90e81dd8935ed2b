#include "sender.hpp"

#include <cstring>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <stdexcept>
#include <unistd.h>

namespace {

// Multicast leaves by the loopback interface.
void stay_on_this_host(int socket, int family) {
    const unsigned loopback = if_nametoindex("lo");
    if (family == AF_INET6) {
        setsockopt(socket, IPPROTO_IPV6, IPV6_MULTICAST_IF, &loopback, sizeof loopback);
        return;
    }
    ip_mreqn request{};
    request.imr_ifindex = static_cast<int>(loopback);
    setsockopt(socket, IPPROTO_IP, IP_MULTICAST_IF, &request, sizeof request);
}

} // namespace

bool has_ipv6() {
    sockaddr_in6 loopback{};
    loopback.sin6_family = AF_INET6;
    loopback.sin6_addr = in6addr_loopback;
    const int probe = socket(AF_INET6, SOCK_DGRAM, 0);
    const bool bound = bind(probe, reinterpret_cast<const sockaddr *>(&loopback), sizeof loopback) == 0;
    if (probe >= 0) close(probe);
    return bound;
}

Sender::Sender(const std::string &address, uint16_t port) {
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST;
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo *found = nullptr;
    if (getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &found) != 0)
        throw std::runtime_error("no address: " + address);
    length_ = found->ai_addrlen;
    std::memcpy(&destination_, found->ai_addr, length_);
    socket_ = socket(found->ai_family, SOCK_DGRAM, 0);
    stay_on_this_host(socket_, found->ai_family);
    freeaddrinfo(found);
}

Sender::~Sender() { close(socket_); }

void Sender::send(const std::string &octets) const {
    sendto(socket_, octets.data(), octets.size(), 0, reinterpret_cast<const sockaddr *>(&destination_), length_);
}
