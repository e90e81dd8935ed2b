// Moving the times of a record.

#include <algorithm>
#include <iterator>

#include "core/limits.hpp"
#include "schema/placed_bits.hpp"
#include "schema/texts.hpp"

namespace ast::schema {

namespace {

struct NamedField {
    uint32_t category;
    std::string_view name;
};

// What is sent like a time of day, and is a duration.
constexpr NamedField kDurations[] = {{4, "TC"}, {4, "TCA"}, {4, "CD"}, {4, "TT1"}, {4, "TT2"}};

// The lower 16 bits of a time of day.
constexpr NamedField kTruncated[] = {{1, "I141"}, {48, "TIMEOFDAYSCN"}};

template <size_t N>
constexpr bool is_one_of(const NamedField (&fields)[N], uint32_t category, std::string_view name) {
    return std::any_of(fields, fields + N,
                       [&](const NamedField &field) { return field.category == category && field.name == name; });
}

constexpr auto kDay = static_cast<int64_t>(kDayS);
constexpr int64_t kHour = 3600;
constexpr int64_t kMinute = 60;

constexpr int64_t floor_div(int64_t value, int64_t by) { return value / by - (value % by < 0 ? 1 : 0); }
constexpr int64_t modulo(int64_t value, int64_t by) { return value - floor_div(value, by) * by; }

// Digits of a date of the Gregorian calendar, by days since 1970-01-01.
struct Date {
    int64_t year, month, day;
};
constexpr Date date_of(int64_t days) {
    constexpr int64_t kDaysOf400Years = 146097, kDaysTo1970 = 719468; // since 0000-03-01
    const int64_t era = floor_div(days + kDaysTo1970, kDaysOf400Years);
    const int64_t of_era = days + kDaysTo1970 - era * kDaysOf400Years;
    const int64_t years = (of_era - of_era / 1460 + of_era / 36524 - of_era / 146096) / 365;
    const int64_t of_year = of_era - (365 * years + years / 4 - years / 100);
    const int64_t month = (5 * of_year + 2) / 153; // from March
    return {era * 400 + years + (month >= 10 ? 1 : 0), month < 10 ? month + 3 : month - 9,
            of_year - (153 * month + 2) / 5 + 1};
}

class TimeMover {
public:
    TimeMover(uint8_t *octets, const ast_datarecord_t &record, int64_t recorded_s, int64_t seconds)
        : octets_(octets),
          data_(record.data),
          category_(record.category),
          recorded_s_(recorded_s),
          moved_s_(recorded_s + seconds),
          seconds_(seconds) {}

    uint64_t moved() const { return moved_; }

    void ends_at(const BitReader &bits) { here_ = PlacedBits::before(bits, data_, 0); }
    void open(const Field &) {}
    void close(const Field &) {}
    void element() {}
    void open_register(const Field &, uint32_t, uint64_t) {}
    void value(const Field &field, uint64_t raw) {
        const std::string_view name = field.name();
        if (is_time_of_day(field))
            time_of_day(field, raw);
        else if (is_one_of(kTruncated, category_, name))
            truncated(raw);
        else if (name == "DAY" && field.kind == Kind::Code)
            day_ = place(field, raw);
        else if (name == "HOR")
            hours_ = place(field, raw);
        else if (name == "MIN" && hours_.is_known())
            minutes_ = place(field, raw);
        else if (name == "AVS")
            has_seconds_ = raw == 0;
        else if (name == "SEC" && minutes_.is_known())
            clock_time(place(field, raw));
        else if (category_ == 48 && is_digit_of_date(name))
            date_digit(field, name);
    }
    void octets(const Field &field, const uint8_t *data, uint64_t count) {
        const auto at = static_cast<uint64_t>(data - data_);
        if (category_ != 150 || count != 2) return;
        if (field.name() == "HH") hours_at_ = at;
        if (field.name() == "MM") written_time(hours_at_, at);
    }

private:
    // A number in the octets.
    struct Place {
        PlacedBits at;
        uint64_t raw = 0;
        bool is_known() const { return at.bits != 0; }
    };

    PlacedBits here(unsigned bits) const { return {here_.last_octet, here_.bits_behind, bits}; }
    Place place(const Field &field, uint64_t raw) const { return {here(field.bits), raw}; }

    bool is_time_of_day(const Field &field) const {
        constexpr unsigned kBits = 24;
        return field.bits == kBits && field.is_quantity() && field.meaning == std::string_view("s") &&
               field.kind == Kind::Unsigned && !is_one_of(kDurations, category_, field.name());
    }

    void write(const Place &place, uint64_t raw) const { place.at.write(octets_, raw); }

    // What is no time of day stays what it is.
    void time_of_day(const Field &field, uint64_t raw) {
        const auto steps_per_s = static_cast<int64_t>(field.denominator / field.numerator);
        const int64_t day = kDay * steps_per_s;
        const auto steps = static_cast<int64_t>(raw);
        if (steps >= day) return;
        write(place(field, raw), static_cast<uint64_t>(modulo(steps + modulo(seconds_, kDay) * steps_per_s, day)));
        ++moved_;
    }

    // The time of day with these lower bits that is nearest to when it was recorded.
    void truncated(uint64_t raw) {
        constexpr int64_t kStepsPerS = 128, kPeriod = 1 << 16, kDaySteps = kDay * kStepsPerS;
        const int64_t about = modulo(recorded_s_, kDay) * kStepsPerS;
        const auto distance = [&](int64_t steps) {
            const int64_t apart = modulo(steps - about, kDaySteps);
            return std::min(apart, kDaySteps - apart);
        };
        auto nearest = static_cast<int64_t>(raw);
        for (int64_t steps = nearest; steps < kDaySteps; steps += kPeriod)
            if (distance(steps) < distance(nearest)) nearest = steps;
        const int64_t to = modulo(nearest + modulo(seconds_, kDay) * kStepsPerS, kDaySteps);
        here(16).write(octets_, static_cast<uint64_t>(modulo(to, kPeriod)));
        ++moved_;
    }

    // Today, yesterday and tomorrow, from 0 on.
    void clock_time(const Place &seconds) {
        constexpr int64_t kDaysOn[] = {0, -1, 1};
        constexpr int64_t kHoursOfDay = 24;
        if (day_.raw < std::size(kDaysOn) && hours_.raw < kHoursOfDay && minutes_.raw < kMinute) {
            const int64_t then =
                (floor_div(recorded_s_, kDay) + kDaysOn[day_.raw]) * kDay + static_cast<int64_t>(hours_.raw) * kHour +
                static_cast<int64_t>(minutes_.raw) * kMinute + (has_seconds_ ? static_cast<int64_t>(seconds.raw) : 0);
            const int64_t to = then + seconds_ + (has_seconds_ ? 0 : kMinute / 2);
            const int64_t day = std::clamp<int64_t>(floor_div(to, kDay) - floor_div(moved_s_, kDay), -1, 1);
            const int64_t of_day = modulo(to, kDay);
            write(day_, day == 0 ? 0 : day < 0 ? 1 : 2);
            write(hours_, static_cast<uint64_t>(of_day / kHour));
            write(minutes_, static_cast<uint64_t>(of_day % kHour / kMinute));
            if (has_seconds_) write(seconds, static_cast<uint64_t>(of_day % kMinute));
            ++moved_;
        }
        hours_ = minutes_ = day_ = {};
    }

    // Hours and minutes in two characters each.
    void written_time(uint64_t hours, uint64_t minutes) {
        const auto number = [&](uint64_t at) {
            const int tens = data_[at] - '0', ones = data_[at + 1] - '0';
            return tens < 0 || tens > 9 || ones < 0 || ones > 9 ? -1 : 10 * tens + ones;
        };
        const auto put = [&](uint64_t at, int64_t value) {
            octets_[at] = static_cast<uint8_t>('0' + value / 10);
            octets_[at + 1] = static_cast<uint8_t>('0' + value % 10);
        };
        if (number(hours) < 0 || number(minutes) < 0 || number(hours) >= 24 || number(minutes) >= kMinute) return;
        const int64_t to = modulo(number(hours) * kHour + number(minutes) * kMinute + seconds_ + kMinute / 2, kDay);
        put(hours, to / kHour);
        put(minutes, to % kHour / kMinute);
        ++moved_;
    }

    static bool is_digit_of_date(std::string_view name) {
        return name == "Y1" || name == "Y2" || name == "Y3" || name == "Y4" || name == "M1" || name == "M2" ||
               name == "D1" || name == "D2";
    }

    // The date of the record becomes that of the time that it is moved to.
    void date_digit(const Field &field, std::string_view name) {
        const Date date = date_of(floor_div(moved_s_, kDay));
        int64_t number = name[0] == 'Y' ? date.year : name[0] == 'M' ? date.month : date.day;
        for (int left = (name[0] == 'Y' ? '4' : '2') - name[1]; left > 0; --left) number /= 10;
        write(place(field, 0), static_cast<uint64_t>(modulo(number, 10)));
        if (name == "D2") ++moved_;
    }

    uint8_t *octets_;
    const uint8_t *data_;
    uint32_t category_;
    int64_t recorded_s_;
    int64_t moved_s_;
    int64_t seconds_;
    uint64_t moved_ = 0;
    PlacedBits here_;
    Place day_, hours_, minutes_;
    bool has_seconds_ = true;
    uint64_t hours_at_ = 0;
};

} // namespace

} // namespace ast::schema

using namespace ast::schema;

uint64_t ast_datarecord_move_times(uint8_t *octets, const ast_datarecord_t *record, int64_t recorded_s,
                                   int64_t seconds) {
    if (!octets || !record || !record->valid) return 0;
    TimeMover mover(octets, *record, recorded_s, seconds);
    const Context context{record->uap, record->category, 0};
    for (uint64_t i = 0; i < record->item_count; ++i) {
        const ast_dataitem_t &item = record->items[i];
        const Field *const field = find_item(item.type, record->uap);
        if (!item.valid || !field) continue;
        Walk<TimeMover>(BitReader(item.data, item.size, item.following), mover, context).field(field);
    }
    return mover.moved();
}
