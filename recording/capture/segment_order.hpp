// Sets the segments of one direction of a TCP connection in order.
#pragma once

#include <map>
#include <vector>

#include "datagram/datagram.hpp"

namespace ast::recording {

// From one sequence number to another; they start again behind the last one.
inline int32_t distance(uint32_t from, uint32_t to) { return static_cast<int32_t>(to - from); }

class SegmentOrder {
public:
    explicit SegmentOrder(uint32_t first) : next_(first) {}

    // The sequence number of the octet that comes next.
    uint32_t next() const { return next_; }

    // Gives the octets that are in order now, good until the next call; those behind a gap wait for what is missing. Of
    // octets that come twice, those count that came to be in order first. A segment lies no further than 2^30 away.
    Octets add(uint32_t sequence, Octets octets);

    // Goes on at a sequence number further ahead, and gives what has waited there.
    Octets skip_to(uint32_t sequence);

    bool is_waiting() const { return !waiting_.empty(); }
    uint32_t first_waiting() const { return waiting_.begin()->first; }
    size_t waiting_segments() const { return waiting_.size(); }
    size_t waiting_octets() const { return waiting_octets_; }
    size_t held_octets() const { return waiting_octets_ + ready_.capacity(); }

private:
    struct Before {
        bool operator()(uint32_t one, uint32_t other) const { return distance(one, other) > 0; }
    };

    void keep(uint32_t sequence, Octets octets);
    void release();

    uint32_t next_;
    std::map<uint32_t, std::vector<uint8_t>, Before> waiting_; // none of which begins where the next octet comes
    size_t waiting_octets_ = 0;
    std::vector<uint8_t> ready_;
};

} // namespace ast::recording
