// A part of a file: what begins in it is read.
#pragma once

#include <algorithm>
#include <cstdint>

namespace ast::recording {

struct OctetRange {
    // Chains of lengths fall together quickly, wherever a reader begins to follow them: so much in front of the range,
    // many times what a block or a packet may have, it knows in time where they begin. Fragments that lie further
    // apart are not put together.
    static constexpr uint64_t kUsualLeadOctets = uint64_t{4} * 1024 * 1024;

    uint64_t begin = 0;
    uint64_t end = UINT64_MAX; // behind the last octet
    uint64_t lead_octets = kUsualLeadOctets;

    bool is_part() const { return begin != 0 || end != UINT64_MAX; }
    bool holds(uint64_t offset) const { return begin <= offset && offset < end; }

    // Where reading begins.
    uint64_t start() const { return begin - std::min(begin, lead_octets); }
};

} // namespace ast::recording
