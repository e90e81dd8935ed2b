// Waiting for what has yet to arrive, until the user ends it.
#pragma once

namespace astdump {

class Waiting {
public:
    // From now on SIGINT and SIGTERM end the waiting, not the process.
    Waiting();
    ~Waiting();
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

    // Each waits, after a flush of standard output so that what has come so far is seen, and returns false when the
    // user has ended it: until a descriptor can be read, and for a moment, in which a file may grow.
    bool for_input(int descriptor);
    bool for_growth();

    bool ended() const { return ended_; }

private:
    bool is_ready(int descriptor, int limit_ms);

    int signals_;
    bool ended_ = false;
};

} // namespace astdump
