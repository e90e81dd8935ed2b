// Addresses with ports, as text and as a socket has them.
#pragma once

#include <asio/ip/udp.hpp>
#include <optional>
#include <string_view>

#include "datagram.hpp"

namespace astdump {

// "10.0.0.1:4000" or "[2001:db8::1]:4000"; nothing for any other text.
std::optional<asio::ip::udp::endpoint> read_endpoint(std::string_view text);

Endpoint to_endpoint(const asio::ip::address &address, uint16_t port);

// Of any protocol of asio.
template <typename SocketEndpoint>
Endpoint to_endpoint(const SocketEndpoint &endpoint) {
    return to_endpoint(endpoint.address(), endpoint.port());
}

} // namespace astdump
