// What every source yields: octets that hold blocks back to back, and where they come from.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace astdump {

using Octets = std::span<const uint8_t>;

struct Time {
    int64_t seconds; // since 1970-01-01 00:00 UTC
    uint32_t nanoseconds;

    auto operator<=>(const Time &other) const = default;
};

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
};

struct Datagram {
    Octets octets;                  // good as long as the chunk that it lies in
    std::optional<uint64_t> blocks; // whole ones at their start, where they have been counted
    uint64_t packet = 0;            // number in its capture, counted from 1; 0 where there are no packets
    uint64_t offset = 0;            // of the first octet in its file, where there are no packets
    std::optional<uint64_t> unread; // octets of the file, from the first of these on, when no block can follow them
    std::optional<Time> time;
    std::optional<Endpoints> endpoints;
    bool is_told = false;              // it holds no blocks, which is reported elsewhere
    bool is_text = false;              // which is no block, whatever its first characters are
    const std::string *file = nullptr; // where several are merged, its name

    bool may_hold_blocks() const { return !is_told && !is_text; }
};

} // namespace astdump
