// What a run could not read or decode, in numbers.
#pragma once

#include <cstdint>
#include <string>

#include "datagram/report.hpp"

namespace ast::recording {

struct Losses {
    uint64_t truncated = 0;   // datagrams
    uint64_t dropped = 0;     // datagrams
    uint64_t undissected = 0; // packets
    uint64_t incomplete = 0;  // datagrams with fragments missing
    uint64_t missing = 0;     // octets of TCP streams
    uint64_t invalid = 0;     // blocks
    uint64_t skipped = 0;     // octets
    uint64_t unread_lines = 0;
    uint64_t unfinished = 0; // inputs that are not read to their end

    // What is no damage.
    uint64_t unsupported = 0; // blocks of a category, edition or item that is not known
    uint64_t foreign = 0;     // datagrams of other traffic
    uint64_t foreign_streams = 0;

    void add(const Report &report);
    Losses &operator+=(const Losses &other);
    bool operator==(const Losses &other) const = default;

    bool any_damage() const;

    // "1 datagram truncated, 16 octets skipped"; empty when nothing is damaged.
    std::string text() const;

    // "3 datagrams, 2 TCP streams" of other traffic; empty when there is none.
    std::string foreign_text() const;
};

} // namespace ast::recording
