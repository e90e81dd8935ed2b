#include "write/sender.hpp"

#include <algorithm>

namespace ast::recording {

bool Sender::deliver(Octets octets, bool may_wait) {
    const std::error_code failure = outlet_->send(octets, may_wait);
    if (failure == std::errc::operation_canceled) return false;
    if (failure) {
        ++sent_.failed;
        if (!sent_.failure) sent_.failure = failure;
        return false;
    }
    ++sent_.datagrams;
    sent_.octets += octets.size();
    return true;
}

bool Sender::send(Octets octets, std::optional<int64_t> time_ns) {
    const Schedule::Due due = schedule_.next(time_ns, octets.size());
    if (due.earliest ? !interruption_.until(*due.earliest) : interruption_.ended()) return false;
    if (due.by_time) sent_.lateness.add(Schedule::Clock::now() - *due.by_time);
    return deliver(octets, !due.by_time);
}

bool Sender::wait_for(size_t octets, std::optional<int64_t> time_ns, std::chrono::milliseconds limit) {
    Schedule ahead = schedule_;
    const auto earliest = ahead.next(time_ns, octets).earliest;
    if (!earliest) return !interruption_.ended();
    return interruption_.until(std::min(*earliest, Schedule::Clock::now() + limit)) &&
           *earliest <= Schedule::Clock::now();
}

bool Sender::relay(Octets octets, const std::optional<Time> &received) {
    const bool is_sent = deliver(octets, false);
    const auto received_ns = received ? nanoseconds_of(*received) : std::nullopt;
    const auto now_ns = nanoseconds_of(now());
    if (received_ns && now_ns) sent_.lateness.add(std::chrono::nanoseconds(*now_ns - *received_ns));
    return is_sent;
}

} // namespace ast::recording
