#include "system/calendar.hpp"

#include <chrono>

namespace ast::recording::system {

// The C library's own calendar begins in 1970 and ends in the year 3000.
std::tm calendar_of(int64_t seconds) {
    using namespace std::chrono;
    constexpr int64_t kSecondsPerDay = 86400;
    constexpr int64_t kMostDays = 10'000'000; // which the years of the calendar hold
    if (seconds / kSecondsPerDay > kMostDays || seconds / kSecondsPerDay < -kMostDays) return {};
    const sys_seconds time{std::chrono::seconds(seconds)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    std::tm utc{};
    utc.tm_year = static_cast<int>(date.year()) - 1900;
    utc.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    utc.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    utc.tm_hour = static_cast<int>(clock.hours().count());
    utc.tm_min = static_cast<int>(clock.minutes().count());
    utc.tm_sec = static_cast<int>(clock.seconds().count());
    utc.tm_wday = static_cast<int>(weekday(day).c_encoding());
    utc.tm_yday = static_cast<int>((day - sys_days(date.year() / January / 1)).count());
    return utc;
}

} // namespace ast::recording::system
