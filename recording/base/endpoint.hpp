// Addresses with ports, as packets, sockets and texts have them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

// Of either version, as it stands in a packet.
struct Address {
    std::array<uint8_t, 16> octets{}; // the first four of them for IPv4
    bool is_ipv6 = false;
    uint32_t scope = 0; // the interface of a link-local IPv6 address; 0 where that is not known

    bool operator==(const Address &other) const = default;
};

struct Endpoint {
    Address address;
    uint16_t port;

    bool operator==(const Endpoint &other) const = default;
};

struct Endpoints {
    Endpoint source;
    Endpoint destination;

    bool operator==(const Endpoints &other) const = default;
};

// "10.0.0.1", "2001:db8::1", "fe80::1%eth0"; nothing for any other text.
std::optional<Address> read_address(std::string_view text);

// "10.0.0.1:4000" or "[2001:db8::1]:4000"; nothing for any other text.
std::optional<Endpoint> read_endpoint(std::string_view text);

// The same.
void put_endpoint(TextBuffer &out, const Endpoint &endpoint);
std::string endpoint_text(const Endpoint &endpoint);

// "10.0.0.1:4000 > 239.1.1.1:8600", "[2001:db8::1]:4000 > [ff02::1]:8600".
void put_route(TextBuffer &out, const Endpoints &endpoints);
std::string route_text(const Endpoints &endpoints);

} // namespace ast::recording
