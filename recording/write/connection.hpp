// One connection and what waits for it.
#pragma once

#include <deque>
#include <vector>

#include "base/endpoint.hpp"
#include "base/octets.hpp"
#include "system/descriptor.hpp"
#include "write/outlet.hpp"

namespace ast::recording {

// Never waits. What the other side does not take as yet is kept, up to a limit; beyond that, whole datagrams are lost,
// so that it is always a stream of blocks.
class Connection {
public:
    // Owns the descriptor of a socket.
    Connection(system::Descriptor descriptor, const Endpoint &other);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    system::Descriptor descriptor() const { return descriptor_; }
    const Endpoint &other() const { return other_; }

    bool has_room(size_t octets) const;

    // Sends as much as can be of what waits, and then of this; nothing where it has failed. Whether it is sent, or
    // kept.
    bool offer(Octets datagram);
    size_t flush(); // octets
    bool waits() const { return !waiting_.empty(); }

    // What the other side sends counts for nothing, but that it has ended; told once more, that is a failure.
    void pass_over_input();
    bool has_input_ended() const { return has_input_ended_; }

    const std::error_code &failure() const { return failure_; }
    const Lost &lost() const { return lost_; }

    // What waits is lost.
    void give_up();

private:
    size_t send_some(Octets octets);

    system::Descriptor descriptor_;
    Endpoint other_;
    std::deque<std::vector<uint8_t>> waiting_; // datagrams
    size_t sent_of_first_ = 0;                 // octets
    size_t kept_octets_ = 0;
    bool has_input_ended_ = false;
    std::error_code failure_;
    Lost lost_;
};

// What is lost with a datagram.
Lost all_of(Octets datagram);

} // namespace ast::recording
