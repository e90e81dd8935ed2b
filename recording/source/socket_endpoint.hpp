// Endpoints as sockets have them.
#pragma once

#include <algorithm>
#include <asio/ip/address.hpp>

#include "base/endpoint.hpp"

namespace ast::recording {

// Of any protocol of asio.
template <typename SocketEndpoint>
Endpoint to_endpoint(const SocketEndpoint &endpoint) {
    const asio::ip::address address = endpoint.address();
    Endpoint to{.address = {.is_ipv6 = address.is_v6()}, .port = endpoint.port()};
    if (to.address.is_ipv6) {
        std::ranges::copy(address.to_v6().to_bytes(), to.address.octets.begin());
        to.address.scope = static_cast<uint32_t>(address.to_v6().scope_id());
    } else {
        std::ranges::copy(address.to_v4().to_bytes(), to.address.octets.begin());
    }
    return to;
}

} // namespace ast::recording
