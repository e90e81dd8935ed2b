// Waiting for what has yet to arrive, until the user ends it.
#pragma once

#include <atomic>
#include <csignal>
#include <functional>
#include <utility>

namespace astdump {

class Waiting {
public:
    // From now on SIGINT and SIGTERM end the waiting, not the process.
    Waiting();
    ~Waiting();
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

    // Each waits, and returns false when the user has ended it: until a descriptor can be read, and for a moment, in
    // which a file may grow.
    bool for_input(int descriptor);
    bool for_growth();

    // Has something done now and then while it waits.
    void meanwhile(std::function<void()> what) { meanwhile_ = std::move(what); }

    bool ended() const { return ended_; }

    // Ends the process by the signal that ended the waiting, for whoever started it to see.
    void pass_on() const;

private:
    bool is_ready(int descriptor, int limit_ms);

    int signals_;
    sigset_t blocked_before_;
    std::function<void()> meanwhile_; // empty for nothing
    std::atomic<bool> ended_ = false;
};

} // namespace astdump
