// Waiting for what has yet to arrive, until the user ends it.
#pragma once

#include <atomic>
#include <csignal>
#include <functional>
#include <optional>
#include <poll.h>
#include <span>
#include <utility>
#include <vector>

#include "datagram.hpp"

namespace astdump {

// The time by the clock of this host.
Time now();

class Waiting {
public:
    // From now on SIGINT and SIGTERM end the waiting, not the process.
    Waiting();
    ~Waiting();
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

    // Each waits, and returns false when the user has ended it: until a descriptor can be read or written, and for a
    // moment, in which a file may grow.
    bool for_input(int descriptor);
    bool for_output(int descriptor);
    bool for_growth();

    // The place of a descriptor that can be read, the one at `first` before others; nothing when the user has ended it.
    std::optional<size_t> for_any_input(std::span<const int> descriptors, size_t first);

    // Whether a descriptor can be read within a time.
    bool has_input(int descriptor, int limit_ms);

    // Has something done now and then while it waits.
    void meanwhile(std::function<void()> what) { meanwhile_ = std::move(what); }

    bool ended() const { return ended_; }

    // Ends the process by the signal that ended the waiting, for whoever started it to see.
    void pass_on() const;

private:
    bool is_ready(std::span<pollfd> files, int limit_ms);
    bool is_ready(int descriptor, short event, int limit_ms);

    int signals_;
    sigset_t blocked_before_;
    std::function<void()> meanwhile_; // empty for nothing
    std::atomic<bool> ended_ = false;
};

} // namespace astdump
