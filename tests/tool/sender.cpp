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

Server::Server(bool ipv6) : listener_(socket(ipv6 ? AF_INET6 : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_storage address{};
    address.ss_family = ipv6 ? AF_INET6 : AF_INET;
    if (ipv6)
        reinterpret_cast<sockaddr_in6 *>(&address)->sin6_addr = in6addr_loopback;
    else
        reinterpret_cast<sockaddr_in *>(&address)->sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener_, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 || listen(listener_, 1) != 0)
        throw std::runtime_error("no port to listen to");
}

Server::~Server() {
    close();
    ::close(listener_);
}

uint16_t Server::port() const {
    sockaddr_in6 address{}; // the port is at the same place in either version
    socklen_t length = sizeof address;
    getsockname(listener_, reinterpret_cast<sockaddr *>(&address), &length);
    return ntohs(address.sin6_port);
}

void Server::accept() { connection_ = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC); }

void Server::send(const std::string &octets) const { ::send(connection_, octets.data(), octets.size(), MSG_NOSIGNAL); }

std::string Server::read(size_t count) const {
    std::string octets(count, '\0');
    const ssize_t size = recv(connection_, octets.data(), count, MSG_WAITALL);
    octets.resize(size < 0 ? 0 : static_cast<size_t>(size));
    return octets;
}

void Server::close() {
    if (connection_ >= 0) ::close(connection_);
    connection_ = -1;
}

void Server::reset() {
    const linger at_once{.l_onoff = 1, .l_linger = 0};
    setsockopt(connection_, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
    close();
}
