// What every source yields: octets that hold blocks back to back, and where they come from.
#pragma once

#include <optional>
#include <string>

#include "base/endpoint.hpp"
#include "base/octets.hpp"
#include "base/printable.hpp"
#include "base/time.hpp"

namespace ast::recording {

struct Datagram {
    Octets octets;                  // good as long as the chunk that it lies in
    std::optional<uint64_t> blocks; // whole ones at their start, where they have been counted
    bool is_filled = false;         // by these, to the last octet
    uint64_t packet = 0;            // number in its capture, counted from 1; 0 where there are no packets
    uint64_t offset = 0;            // of the first octet in its file, where there are no packets
    std::optional<Time> time;
    std::optional<Endpoints> endpoints;
    bool is_told = false;              // it holds no blocks, which is reported elsewhere
    bool is_text = false;              // which is no block, whatever its first characters are
    const std::string *file = nullptr; // where several are merged, its name

    uint64_t together = 0; // where there are no packets, the number of what came in one datagram; 0 where none is known
    Octets trailer{};      // behind the last block, of a recorder's own

    bool may_hold_blocks() const { return !is_told && !is_text; }

    // Whether blocks of both came in one datagram or packet.
    bool is_same_as(const Datagram &other) const {
        const bool is_known = packet != 0 || together != 0;
        return is_known && packet == other.packet && together == other.together && file == other.file;
    }
};

} // namespace ast::recording
