// What the payload of a datagram holds: blocks, blocks that a recorder has wrapped, and octets behind them.
#pragma once

#include "datagram/chunk.hpp"
#include "datagram/other_traffic.hpp"

namespace ast::recording {

class Payloads {
public:
    // Adds the blocks of a datagram to a chunk; what is no block stays with them, so that it is reported, but for
    // octets that a recorder puts behind the last one, which are counted. Of a truncated one not all octets are there.
    void add(Chunk &chunk, const Datagram &datagram, bool is_truncated);

    // Tells once what was counted, and what is left to be told; false when there is nothing.
    bool tell(Reports &reports);

private:
    bool is_foreign(Chunk &chunk, const Datagram &datagram);
    static void add_part(Chunk &chunk, const Datagram &datagram, uint64_t place, uint64_t octets);
    static bool is_trailer(Octets payload, uint64_t place, uint64_t octets);
    void add_gap(Chunk &chunk, const Datagram &datagram, uint64_t place, uint64_t octets, bool is_truncated);
    void add_trailer(Chunk &chunk, Octets octets);

    OtherTraffic other_traffic_;
    uint64_t trailers_ = 0; // datagrams
    uint64_t trailer_octets_ = 0;
};

} // namespace ast::recording
