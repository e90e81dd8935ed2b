// Which datagrams of a capture are other traffic: those of endpoints that no blocks are sent to.
#pragma once

#include <map>
#include <tuple>
#include <vector>

#include "damage.hpp"

namespace astdump {

class Traffic {
public:
    // Blocks came in a datagram: what else is sent to its destination is meant to be blocks, too.
    void blocks(const Datagram &datagram, Damage &damage);

    // A datagram without any. True when it is, or may turn out to be, other traffic, and is left to be told here: as
    // soon as the destination has shown what it is, or as what it is at the end.
    bool no_blocks(const Datagram &datagram, Damage &damage);

    // What is left at the end; false when nothing is.
    bool tell(Damage &damage);

private:
    enum class State { unknown, blocks, other };
    struct Destination {
        State state = State::unknown;
        Damage as_damage; // of what has been sent there while that was unknown
        Damage as_other;
    };
    using Key = std::tuple<bool, std::array<uint8_t, 16>, uint16_t>; // is_ipv6, address and port

    static Key key_of(const Datagram &datagram);
    Destination &find(const Datagram &datagram, Damage &damage);
    static void settle(Destination &destination, State state, Damage &damage);

    std::map<Key, Destination> destinations_;
    std::optional<Endpoint> last_; // that blocks were sent to
};

} // namespace astdump
