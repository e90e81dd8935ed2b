// Sends datagrams, each when it is due.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/interruption.hpp"
#include "base/time.hpp"
#include "write/lateness.hpp"
#include "write/open_outlet.hpp"
#include "write/schedule.hpp"

namespace ast::recording {

struct SendOptions {
    OutletForm form;
    Pace pace;
};

// What has become of datagrams.
struct Sent {
    uint64_t datagrams = 0;
    uint64_t octets = 0;
    uint64_t failed = 0;     // datagrams
    std::error_code failure; // the first that there was
    Lateness lateness;       // of those that were due at a time
};

class Sender {
public:
    // Throws what open_outlet does.
    Sender(const std::string &url, const SendOptions &options, Interruption &interruption)
        : outlet_(open_outlet(url, options.form, interruption)), schedule_(options.pace), interruption_(interruption) {}

    // Waits until it is due, if it has a time, and sends it; what may go at any time waits for a connection that is
    // slow. Whether it has been sent: not after an interruption.
    bool send(Octets octets, std::optional<int64_t> time_ns);

    // Waits until it would be due, at most so long; whether it is. Changes nothing.
    bool wait_for(size_t octets, std::optional<int64_t> time_ns, std::chrono::milliseconds limit);

    // What has just been received goes on at once, and is late by what that has taken.
    bool relay(Octets octets, const std::optional<Time> &received);

    // Waits for what is on its way over connections; nothing is sent from then on.
    void finish() { outlet_->finish(); }

    std::vector<OutletEvent> take_events() { return outlet_->take_events(); }

    void restart() { schedule_.restart(); }
    const Sent &sent() const { return sent_; }

private:
    bool deliver(Octets octets, bool may_wait);

    std::unique_ptr<Outlet> outlet_;
    Schedule schedule_;
    Interruption &interruption_;
    Sent sent_;
};

} // namespace ast::recording
