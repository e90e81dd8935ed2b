// Where datagrams leave this host.
#pragma once

#include <cstdint>
#include <memory>
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

    // Sends one datagram. Why it has not been sent; none when it has.
    virtual std::error_code send(Octets octets) = 0;
};

// "udp://HOST:PORT". Throws NoDestination for any other text, and for broadcast and unspecified addresses, and
// std::system_error.
std::unique_ptr<Outlet> open_outlet(const std::string &url, const OutletForm &form);

// Whether what is sent to an address is received from an input, which may be several addresses, or a file.
bool is_heard_by(const std::string &url, const std::string &input);

} // namespace ast::recording
