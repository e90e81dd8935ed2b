// The TCP connections of a capture: the segments of each direction in their order, and the blocks in them.
#pragma once

#include <list>
#include <map>

#include "capture/dissect.hpp"
#include "capture/segment_order.hpp"
#include "datagram/block_stream.hpp"

namespace ast::recording {

class TcpStreams {
public:
    // Adds the blocks that a segment completes to a chunk, with the packet and time of the segment.
    void add(const Transported &segment, uint64_t packet, const Time &time, Chunk &chunk);

    // At the end of the capture: what still waited for a segment that is missing, and which streams were no blocks.
    void end(Chunk &chunk);

    // Tells those of other traffic so far.
    void tell(Chunk &chunk) const;

    // Where a capture is read from its midst: whether a segment has come whose stream has begun before that, which is
    // left out then.
    void take_no_rests() { takes_rests_ = false; }
    bool has_met_rest() const { return has_met_rest_; }

private:
    // One direction of a connection.
    struct Stream {
        Stream(const Datagram &first_stamp, uint32_t sequence, bool is_from_start);

        Datagram stamp; // what its blocks are given: route, packet and time
        uint32_t first; // sequence number
        SegmentOrder order;
        BlockStream blocks;
        std::optional<uint32_t> fin; // sequence number behind the last octet
        bool has_ended = false;
        Time gap_since{}; // when something first stood behind octets that are not there
        size_t held_octets = 0;

        void take(const TcpHeader &header, Octets octets, Chunk &chunk);
        void skip_to(uint32_t sequence, Chunk &chunk);
        void skip_gaps(Chunk &chunk);
        bool has_waited_enough() const;
        void end(bool is_cut, Chunk &chunk);
        size_t octets() const;
    };
    using Streams = std::list<Stream>;
    using Key = std::array<uint8_t, 36>; // of a route

    static Key key_of(const Endpoints &endpoints);
    Stream *find_or_open(const Transported &segment, const Datagram &stamp, Chunk &chunk);
    void close(Streams::iterator place, bool is_cut, Chunk &chunk);
    void end_by_reset(const Endpoints &endpoints, Chunk &chunk);
    void make_room(Chunk &chunk);
    bool is_rest(const Transported &segment) const;

    Streams streams_; // the one that was quiet for longest first
    std::map<Key, Streams::iterator> places_;
    size_t held_octets_ = 0;
    bool takes_rests_ = true;
    bool has_met_rest_ = false;
};

} // namespace ast::recording
