// Times, by the clock of whoever recorded them, and as users and files write them.
#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "base/text_buffer.hpp"

namespace ast::recording {

struct Time {
    int64_t seconds; // since 1970-01-01 00:00 UTC
    uint32_t nanoseconds;

    auto operator<=>(const Time &other) const = default;
};

// By the clock of this host.
Time now();

constexpr int64_t kSecondsPerDay = 86400;

// Recorders that give times of day but no date begin at 1970-01-01 here, and go on from there.
constexpr bool has_date(const Time &time) { return time.seconds >= 365 * kSecondsPerDay; }

// Since 1970-01-01 00:00 UTC; nothing for a time too far from it.
constexpr std::optional<int64_t> nanoseconds_of(const Time &time) {
    constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;
    constexpr int64_t kMostSeconds = std::numeric_limits<int64_t>::max() / kNanosecondsPerSecond - 1;
    if (time.seconds > kMostSeconds || time.seconds < -kMostSeconds) return std::nullopt;
    return time.seconds * kNanosecondsPerSecond + time.nanoseconds;
}

constexpr Time from_nanoseconds(int64_t time_ns) {
    constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;
    const int64_t fraction = time_ns % kNanosecondsPerSecond;
    const int64_t seconds = time_ns / kNanosecondsPerSecond;
    if (fraction < 0) return {seconds - 1, static_cast<uint32_t>(fraction + kNanosecondsPerSecond)};
    return {seconds, static_cast<uint32_t>(fraction)};
}

struct Moment {
    std::optional<int64_t> day; // since 1970-01-01; nothing for a time of any day
    Time time;                  // since midnight
};

// "2014-02-25T12:43:47.401501Z", with a blank in place of the T, without the Z, the fraction and the seconds, and
// without the date; in UTC.
std::optional<Moment> read_moment(std::string_view text);

// Whether a calendar with four digits for the year, from 1900 on, has it. Times that it has not are no clock's, and are
// shown as seconds since 1970: "253402300800.000000".
bool is_in_calendar(const Time &time);

// The same with date, T, seconds and Z, or such seconds: the form that JSON has.
std::optional<Time> read_time(std::string_view text);

// "2024-05-06 07:08:09.000012", in UTC.
void put_time(TextBuffer &out, const Time &time);
std::string time_text(const Time &time);

// "2024-05-06T07:08:09.000012Z", or seconds as above.
void put_iso_time(TextBuffer &out, const Time &time);

} // namespace ast::recording
