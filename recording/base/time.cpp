#include "base/time.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <limits>
#include <string>

#include "base/numbers.hpp"
#include "system/calendar.hpp"

namespace ast::recording {

namespace {

constexpr size_t kDateCharacters = 10;

// A number of so many digits at a place, if that is what stands there.
std::optional<int> digits_at(std::string_view text, size_t place, size_t digits) {
    if (text.size() < place + digits) return std::nullopt;
    return read_number<uint16_t>(text.substr(place, digits));
}

// "2014-02-25"
std::optional<int64_t> read_day(std::string_view text) {
    using namespace std::chrono;
    const auto y = digits_at(text, 0, 4), m = digits_at(text, 5, 2), d = digits_at(text, 8, 2);
    if (!y || !m || !d || text[4] != '-' || text[7] != '-') return std::nullopt;
    const year_month_day date(year(*y), month(static_cast<unsigned>(*m)), day(static_cast<unsigned>(*d)));
    if (!date.ok()) return std::nullopt;
    return sys_days(date).time_since_epoch().count();
}

// ".401501" of a second, or nothing at all.
std::optional<uint32_t> read_fraction(std::string_view text) {
    constexpr size_t kMostDigits = 9;
    if (text.empty()) return 0;
    const std::string_view digits = text.substr(1);
    if (text[0] != '.' || digits.empty() || digits.size() > kMostDigits) return std::nullopt;
    auto number = read_number<uint32_t>(digits);
    for (size_t i = digits.size(); number && i < kMostDigits; ++i) *number *= 10;
    return number;
}

// "12:43" or "12:43:47.401501"
std::optional<Time> read_time_of_day(std::string_view text) {
    constexpr size_t kMinuteEnd = 5, kSecondEnd = 8;
    const auto hour = digits_at(text, 0, 2), minute = digits_at(text, 3, 2);
    if (!hour || !minute || text[2] != ':') return std::nullopt;
    const bool has_seconds = text.size() > kMinuteEnd;
    const auto second = has_seconds ? digits_at(text, kMinuteEnd + 1, 2) : std::optional(0);
    if (!second || (has_seconds && text[kMinuteEnd] != ':')) return std::nullopt;
    const auto nanoseconds = read_fraction(text.substr(std::min(kSecondEnd, text.size())));
    if (!nanoseconds || *hour > 23 || *minute > 59 || *second > 60) return std::nullopt;
    return Time{(int64_t{*hour} * 60 + *minute) * 60 + *second, *nanoseconds};
}

} // namespace

std::optional<Moment> read_moment(std::string_view text) {
    if (text.ends_with('Z')) text.remove_suffix(1);
    Moment moment{};
    if (text.size() > kDateCharacters && (text[kDateCharacters] == 'T' || text[kDateCharacters] == ' ')) {
        moment.day = read_day(text);
        if (!moment.day) return std::nullopt;
        text.remove_prefix(kDateCharacters + 1);
    }
    const auto time = read_time_of_day(text);
    if (!time) return std::nullopt;
    moment.time = *time;
    return moment;
}

bool is_in_calendar(const Time &time) {
    using namespace std::chrono;
    constexpr int64_t kFirst = sys_seconds(sys_days(year(1900) / 1 / 1)).time_since_epoch().count();
    constexpr int64_t kEnd = sys_seconds(sys_days(year(9999) / 12 / 31)).time_since_epoch().count() + kSecondsPerDay;
    return kFirst <= time.seconds && time.seconds < kEnd;
}

namespace {

constexpr uint32_t kNanosecondsPerSecond = 1'000'000'000;

// So long before 1970 instead of behind it, and the other way round; nanoseconds count forwards in both.
Time negative(const Time &time) {
    if (time.nanoseconds == 0) return {std::max(-std::numeric_limits<int64_t>::max(), time.seconds) * -1, 0};
    return {-1 - time.seconds, kNanosecondsPerSecond - time.nanoseconds};
}

// "253402300800.000000"
std::optional<Time> read_seconds(std::string_view text) {
    const bool is_negative = text.starts_with('-');
    if (is_negative) text.remove_prefix(1);
    const size_t point = std::min(text.find('.'), text.size());
    const auto seconds = read_number<uint64_t>(text.substr(0, point));
    const auto nanoseconds = read_fraction(text.substr(point));
    if (!seconds || !nanoseconds || *seconds > uint64_t{std::numeric_limits<int64_t>::max()}) return std::nullopt;
    Time time{static_cast<int64_t>(*seconds), *nanoseconds};
    if (is_negative) time = negative(time);
    if (is_in_calendar(time)) return std::nullopt;
    return time;
}

} // namespace

std::optional<Time> read_time(std::string_view text) {
    constexpr size_t kFewestCharacters = 20;
    if (const auto time = read_seconds(text)) return time;
    if (text.size() < kFewestCharacters || text[kDateCharacters] != 'T' || !text.ends_with('Z')) return std::nullopt;
    const auto moment = read_moment(text);
    if (!moment || !moment->day) return std::nullopt;
    return Time{*moment->day * kSecondsPerDay + moment->time.seconds, moment->time.nanoseconds};
}

Time now() {
    using namespace std::chrono;
    const auto since_1970 = system_clock::now().time_since_epoch();
    const auto whole = duration_cast<seconds>(since_1970);
    return {whole.count(), static_cast<uint32_t>(duration_cast<nanoseconds>(since_1970 - whole).count())};
}

namespace {

// Datagrams come in their order, and what they hold is some seconds old: most share their second with others.
const std::string &second_text(std::time_t seconds) {
    struct Second {
        std::optional<std::time_t> seconds;
        std::string text;
    };
    thread_local std::array<Second, 16> known;
    Second &second = known[static_cast<size_t>(seconds) % known.size()];
    std::string &last = second.text;
    if (seconds == second.seconds) return last;
    second.seconds = seconds;
    if (!is_in_calendar({seconds, 0})) return last = std::to_string(seconds);
    const std::tm utc = system::calendar_of(seconds);
    char text[32];
    return last.assign(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &utc));
}

} // namespace

void put_time(TextBuffer &out, const Time &time) {
    const bool is_negative = time.seconds < 0 && !is_in_calendar(time);
    const Time shown = is_negative ? negative(time) : time;
    out.put(is_negative ? "-" + std::to_string(shown.seconds) : second_text(static_cast<time_t>(shown.seconds)));
    out.put('.');
    if (shown.nanoseconds % 1000 == 0)
        out.number(shown.nanoseconds / 1000, 6, '0');
    else
        out.number(shown.nanoseconds, 9, '0');
}

void put_iso_time(TextBuffer &out, const Time &time) {
    const size_t begin = out.size();
    put_time(out, time);
    if (!is_in_calendar(time)) return;
    out.set(begin + kDateCharacters, 'T');
    out.put('Z');
}

std::string time_text(const Time &time) {
    TextBuffer text;
    put_time(text, time);
    return std::string(text.text());
}

} // namespace ast::recording
