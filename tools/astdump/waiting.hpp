// Waiting for what has yet to arrive, until the user ends it.
#pragma once

#include <atomic>
#include <csignal>

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

    bool ended() const { return ended_; }

    // Ends the process by the signal that ended the waiting, for whoever started it to see.
    void pass_on() const;

private:
    bool is_ready(int descriptor, int limit_ms);

    int signals_;
    sigset_t blocked_before_;
    std::atomic<bool> ended_ = false;
};

} // namespace astdump
