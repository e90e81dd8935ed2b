// When datagrams of a recording are due, if it is played.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

namespace ast::recording {

struct Pace {
    static constexpr double kUnlimited = std::numeric_limits<double>::infinity();

    double speed = 1;        // of the recording's time against that of the clock
    uint64_t bits_per_s = 0; // of what datagrams hold, at most; 0 for any
};

class Schedule {
public:
    using Clock = std::chrono::steady_clock;

    explicit Schedule(const Pace &pace) : pace_(pace) {}

    struct Due {
        std::optional<Clock::time_point> by_time; // against which it is late; nothing when it may go at any time
        std::optional<Clock::time_point> earliest;
    };

    // The next datagram, of so many octets. One that stands behind another goes behind it, whatever its time.
    Due next(std::optional<int64_t> time_ns, size_t octets);

    // The next datagram with a time is as the first: due at once, and those behind it by their times against its own.
    void restart() { first_.reset(); }

private:
    struct First {
        int64_t time_ns;
        Clock::time_point due;
    };

    Clock::time_point by_time(int64_t time_ns, Clock::time_point now);
    Clock::time_point by_rate(size_t octets, Clock::time_point now);

    Pace pace_;
    std::optional<First> first_;
    Clock::time_point last_{}; // by its time
    Clock::time_point free_{}; // of what has been sent, as far as the rate goes
};

} // namespace ast::recording
