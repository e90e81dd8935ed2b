// Where what is sent leaves this host.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "base/endpoint.hpp"
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
    bool listens = false;         // to clients that connect, each of which gets all from then on
};

// What the other side of a connection has not got.
struct Lost {
    uint64_t blocks = 0;
    uint64_t octets = 0;

    Lost &operator+=(const Lost &other) {
        blocks += other.blocks;
        octets += other.octets;
        return *this;
    }
};

// What has become of a connection.
struct OutletEvent {
    enum class Kind {
        listening, // at this endpoint
        connected, // a client; or the server once more, which has lost so much in between
        slow,      // it takes less than is sent, and has begun to lose
        gone,      // having lost so much in all
    };
    Kind kind;
    Endpoint endpoint; // of the other side
    Lost lost{};
    std::error_code failure{}; // why it is gone; none where this side has closed it
};

class Outlet {
public:
    virtual ~Outlet() = default;

    // Sends one datagram, or its blocks over connections; these are waited for only if `may_wait`, and then not for
    // ever. Why it has not been sent; none when it has.
    virtual std::error_code send(Octets octets, bool may_wait) = 0;

    // Waits for what is on its way, as long as that moves; nothing is sent behind it.
    virtual void finish() {}

    // What has happened since the last time.
    virtual std::vector<OutletEvent> take_events() { return {}; }
};

} // namespace ast::recording
