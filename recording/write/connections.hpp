// Connections that all get the same blocks, served by a thread beside the one that sends.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

#include "base/interruption.hpp"
#include "write/connection.hpp"

namespace ast::recording {

class Connections {
public:
    // A server that ends its side has gone; a client may have nothing to say.
    enum class Role { server, client };

    explicit Connections(Role role) : role_(role) {}
    Connections(const Connections &) = delete;
    Connections &operator=(const Connections &) = delete;

    void add(system::Descriptor descriptor, const Endpoint &other, bool is_told = true);
    size_t count() const;

    // Sends to all of them. Why not to one, or why there is none; none where nobody has asked for anything.
    std::error_code send(Octets octets);

    // Waits until each has room for so many octets, or all have sent what waits, up to an interruption, and for one
    // that takes nothing at all no more than a second.
    void wait_for_room(size_t octets, Interruption &interruption);
    void wait_for_all(Interruption &interruption);

    // What is left is lost.
    void close();

    // For the thread that serves: waits until something can be sent, or the listener, if there is one, has a client,
    // and tells which it was, until it is told to end.
    enum class Turn { end, served, client };
    Turn serve(system::Descriptor listener);
    void end();

    void tell(const OutletEvent &event);
    std::vector<OutletEvent> take_events();

private:
    using Clock = std::chrono::steady_clock;

    void put(const OutletEvent &event);
    void sweep();
    template <typename Done>
    void wait(Done done, Interruption &interruption);

    const Role role_;
    system::Event wake_; // set when there is something new to wait for
    mutable std::mutex mutex_;
    std::condition_variable moved_;
    std::vector<std::unique_ptr<Connection>> list_;
    std::vector<OutletEvent> events_;
    uint64_t moves_ = 0;            // of what waits, in octets, and of connections
    std::optional<uint64_t> stuck_; // the moves at which a wait was in vain
    Lost lost_meanwhile_;           // without a connection
    std::error_code failure_;       // of the last that has gone
    bool ended_ = false;
};

} // namespace ast::recording
