// Which datagrams of a capture are other traffic, told by what else is sent to their destination.
#pragma once

#include <array>
#include <map>
#include <tuple>

#include "datagram/report.hpp"

namespace ast::recording {

class OtherTraffic {
public:
    // A datagram with blocks.
    void blocks(const Datagram &datagram, Reports &reports);

    // A datagram without any. True when it is, or may turn out to be, other traffic, and is left to be told here: as
    // soon as its destination has shown what it is for, and else at the end.
    bool no_blocks(const Datagram &datagram, Reports &reports);

    // Whether it is known that no blocks are sent there.
    bool is_other(const Datagram &datagram, Reports &reports) { return find(datagram, reports).is_other; }

    // What is left at the end; false when nothing is.
    bool tell(Reports &reports);

private:
    struct Destination {
        uint64_t with = 0;       // datagrams
        uint64_t without = 0;    // blocks
        uint64_t broken_off = 0; // of these, how many may be blocks that break off
        uint64_t nearly_whole = 0;
        bool is_damaged = false; // blocks that break off are sent there
        bool is_other = false;
        Reports as_damage; // of what has been sent there while that was unknown
        Reports as_other;

        bool has_blocks() const;
        bool is_open() const { return is_other || !as_other.empty(); } // to be judged again
        void settle(bool as_blocks, Reports &reports);
        void judge(Reports &reports);
    };
    struct Recent {
        Endpoint to{};
        Destination *destination = nullptr;
    };
    using Key = std::tuple<bool, std::array<uint8_t, 16>, uint16_t>; // is_ipv6, address and port

    Destination &find(const Datagram &datagram, Reports &reports);
    Destination &open(const Endpoint &to, Reports &reports);

    std::map<Key, Destination> destinations_;
    std::array<Recent, 64> recent_; // each in the one place that its port and address give it
};

} // namespace ast::recording
