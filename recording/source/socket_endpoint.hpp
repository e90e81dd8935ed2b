// Endpoints as sockets have them.
#pragma once

#include <algorithm>
#include <asio/io_context.hpp>
#include <asio/ip/address.hpp>
#include <asio/ip/basic_resolver.hpp>
#include <asio/ip/udp.hpp>
#include <string>
#include <vector>

#include "base/endpoint.hpp"
#include "source/live_url.hpp"

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

// Asks for all addresses of a host where it is a name. Throws std::system_error when it has none.
template <typename Protocol>
std::vector<typename Protocol::endpoint> resolve(const LiveUrl &url, asio::io_context &context) {
    std::error_code no_address;
    const auto address = asio::ip::make_address(url.host, no_address);
    if (!no_address) return {typename Protocol::endpoint(address, url.port)};
    asio::ip::basic_resolver<Protocol> resolver(context);
    std::vector<typename Protocol::endpoint> endpoints;
    for (const auto &entry : resolver.resolve(url.host, std::to_string(url.port)))
        endpoints.push_back(entry.endpoint());
    return endpoints;
}

// A link-local address of IPv6 is one of an interface, and is given it. The index of that; of others, that of the one
// that is given, 0 for the system's choice.
unsigned give_scope(asio::ip::udp::endpoint &endpoint, unsigned interface);

} // namespace ast::recording
