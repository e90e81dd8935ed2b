#include "write/schedule.hpp"

#include <algorithm>
#include <cmath>

namespace ast::recording {

namespace {

using std::chrono::nanoseconds;

// Of times that no clock had, the difference may be anything.
nanoseconds scaled(int64_t from_ns, int64_t to_ns, double speed) {
    constexpr double kMost_ns = 1e18; // some thirty years
    const double apart_ns = static_cast<double>(static_cast<long double>(to_ns) - static_cast<long double>(from_ns));
    return nanoseconds(static_cast<int64_t>(std::clamp(apart_ns / speed, 0.0, kMost_ns)));
}

} // namespace

Schedule::Clock::time_point Schedule::by_time(int64_t time_ns, Clock::time_point now) {
    if (!first_) first_ = {time_ns, std::max(last_, now)};
    return first_->due + scaled(first_->time_ns, time_ns, pace_.speed);
}

// What a sleep was too long is caught up with, but not what has been waited for otherwise.
Schedule::Clock::time_point Schedule::by_rate(size_t octets, Clock::time_point now) {
    constexpr auto kCaughtUp = std::chrono::milliseconds(5);
    constexpr double kBitsPerOctet = 8, kNanosecondsPerSecond = 1e9;
    const auto due = std::max(free_, now - kCaughtUp);
    const double takes_s = static_cast<double>(octets) * kBitsPerOctet / static_cast<double>(pace_.bits_per_s);
    free_ = due + nanoseconds(std::llround(takes_s * kNanosecondsPerSecond));
    return due;
}

Schedule::Due Schedule::next(std::optional<int64_t> time_ns, size_t octets) {
    const bool has_time = time_ns && !std::isinf(pace_.speed);
    if (!has_time && pace_.bits_per_s == 0) return {};
    const auto now = Clock::now();
    Due due;
    if (has_time) due.by_time = due.earliest = last_ = std::max(last_, by_time(*time_ns, now));
    if (pace_.bits_per_s != 0) due.earliest = std::max(by_rate(octets, now), due.earliest.value_or(now));
    return due;
}

} // namespace ast::recording
