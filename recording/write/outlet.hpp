// Where what is sent leaves this host.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>

#include "base/octets.hpp"

namespace ast::recording {

// An address that nothing is sent to; what() says which, and why.
class NoDestination : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct OutletForm {
    std::string interface;        // that multicast leaves by, by name or address; empty for the system's choice
    std::optional<uint8_t> ttl{}; // routers on the way; 1 for multicast, and for anything else as many as usual
};

class Outlet {
public:
    virtual ~Outlet() = default;

    // Sends one datagram, or its blocks over a connection. Why it has not been sent; none when it has.
    virtual std::error_code send(Octets octets) = 0;
};

} // namespace ast::recording
