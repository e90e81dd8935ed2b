// Where live data come from, as users write it.
#pragma once

#include <asio/ip/address.hpp>
#include <asio/ip/basic_resolver.hpp>
#include <string>
#include <vector>

namespace ast::recording {

// "udp://HOST:PORT" or "tcp://HOST:PORT". A host is a name, an IPv4 address, or an IPv6 address in brackets.
struct LiveUrl {
    bool is_tcp;
    std::string host; // without brackets
    uint16_t port;
    std::string text; // as it was written
};

bool is_live(const std::string &text);

// Several are set apart by blanks. Throws std::invalid_argument for what is_live, but none.
std::vector<LiveUrl> read_live_urls(const std::string &text);

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

} // namespace ast::recording
