// Datagrams with the endpoints of packets, made once for the few routes that most packets take.
#pragma once

#include "datagram/datagram.hpp"

namespace ast::recording {

// Addresses and ports over IPv4, as they follow each other in a packet without options.
constexpr size_t kRouteOctets = 12;
using RouteOctets = std::span<const uint8_t, kRouteOctets>;

Endpoints read_endpoints(RouteOctets octets);

class Routes {
public:
    // A datagram that has taken the route, whose octets, packet and time are to be set. Good until the next call.
    Datagram &datagram(RouteOctets octets);

private:
    struct Known {
        std::array<uint8_t, kRouteOctets> octets{};
        Datagram datagram{.endpoints = Endpoints{}};
    };

    std::array<Known, 64> known_; // each in the one place that its octets give it
};

} // namespace ast::recording
