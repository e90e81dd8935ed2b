#include "ask/comparison.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

#include "ask/units.hpp"
#include "base/letters.hpp"
#include "base/numbers.hpp"
#include "base/time.hpp"

namespace ast::recording {

namespace {

constexpr double kSacStep = 1000; // a data source is compared as SAC × 1000 + SIC
constexpr double kSecondsOfMinute = 60;

std::optional<double> digits_in(std::string_view text, int base) {
    uint64_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return static_cast<double>(number);
}

std::optional<double> finite(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    const auto number = read_number<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

// "12:00", "12:00:01.5".
std::optional<double> clock(std::string_view text) {
    double seconds = 0;
    double unit = kSecondsOfMinute * kSecondsOfMinute;
    for (int colons = 0; colons < 3; ++colons, unit /= kSecondsOfMinute) {
        const size_t colon = std::min(text.find(':'), text.size());
        const auto part = finite(text.substr(0, colon));
        if (!part || *part < 0 || (colons != 0 && *part >= kSecondsOfMinute)) return std::nullopt;
        seconds += *part * unit;
        if (colon == text.size()) return colons == 0 ? std::nullopt : std::optional(seconds);
        text.remove_prefix(colon + 1);
    }
    return std::nullopt;
}

// "25/12", "25012".
std::optional<double> source(std::string_view text) {
    const size_t slash = text.find('/');
    if (slash == std::string_view::npos) return digits_in(text, 10);
    const auto sac = read_number<uint8_t>(text.substr(0, slash));
    const auto sic = read_number<uint8_t>(text.substr(slash + 1));
    return sac && sic ? std::optional(*sac * kSacStep + *sic) : std::nullopt;
}

// "2014-02-25T12:43:47.5Z", also without the "Z", as seconds since 1970.
std::optional<double> moment(std::string_view text) {
    constexpr double kSecondsPerNanosecond = 1e-9;
    const auto read = read_moment(text);
    if (!read || !read->day) return std::nullopt;
    return static_cast<double>(*read->day * kSecondsPerDay + read->time.seconds) +
           read->time.nanoseconds * kSecondsPerNanosecond;
}

} // namespace

std::optional<double> number_in(std::string_view text, Notation notation) {
    switch (notation) {
    case Notation::decimal:
        return finite(text);
    case Notation::octal:
        return digits_in(text, 8);
    case Notation::hexadecimal:
        return digits_in(text, 16);
    case Notation::clock:
        return clock(text);
    case Notation::source:
        return source(text);
    case Notation::moment:
        return moment(text);
    case Notation::text:
        break;
    }
    return std::nullopt;
}

Comparison::Comparison(Operator means, std::string_view value)
    : operator_(means), value_(value), is_pattern_(value.find_first_of("*?") != std::string_view::npos) {
    for (const Notation notation : {Notation::decimal, Notation::octal, Notation::hexadecimal, Notation::clock,
                                    Notation::source, Notation::moment})
        numbers_[static_cast<size_t>(notation)] = number_in(value_, notation);
    const auto measure = number(Notation::decimal) ? std::nullopt : read_measure(value_); // "1e5" has no unit
    if (!measure || measure->unit.empty()) return;
    measured_ = measure->number;
    unit_ = measure->unit;
}

void Comparison::set_unit(std::string_view unit) {
    measured_ = std::exchange(numbers_[static_cast<size_t>(Notation::decimal)], std::nullopt);
    unit_ = unit;
}

bool Comparison::fits(Notation notation, std::string_view unit) const {
    if (notation == Notation::text) return !is_ordered() && !value_.empty();
    if (notation == Notation::decimal && measured_) return unit_factor(unit, unit_).has_value();
    const bool is_digits =
        notation == Notation::octal || notation == Notation::hexadecimal || notation == Notation::source;
    return number(notation).has_value() || (is_digits && is_pattern_ && !is_ordered());
}

std::optional<double> Comparison::number_in_unit(std::string_view unit) const {
    const auto factor = measured_ ? unit_factor(unit_, unit) : std::nullopt;
    return factor ? std::optional(*measured_ * *factor) : number(Notation::decimal);
}

bool Comparison::compare(double number, double asked, double tolerance) const {
    const bool equal = number == asked || std::abs(number - asked) < tolerance;
    switch (operator_) {
    case Operator::equal:
        return equal;
    case Operator::unequal:
        return !equal;
    case Operator::less:
        return !equal && number < asked;
    case Operator::at_most:
        return equal || number < asked;
    case Operator::more:
        return !equal && number > asked;
    case Operator::at_least:
        return equal || number > asked;
    }
    return false;
}

bool Comparison::meets(double number, double tolerance, Notation notation) const {
    const std::optional<double> &asked = this->number(notation);
    return asked && compare(number, *asked, tolerance);
}

bool Comparison::meets_measure(double number, double tolerance, std::string_view unit) const {
    if (!measured_) return meets(number, tolerance);
    const auto factor = unit_factor(unit, unit_);
    return factor && compare(number * *factor, *measured_, tolerance * *factor);
}

bool Comparison::meets_text(std::string_view text) const {
    return !is_ordered() && is_like(text, value_) == (operator_ == Operator::equal);
}

bool Comparison::meets_any_text(std::initializer_list<std::string_view> texts) const {
    bool has_text = false;
    for (const std::string_view text : texts) {
        if (text.empty()) continue;
        has_text = true;
        if (meets_text(text) == (operator_ == Operator::equal)) return operator_ == Operator::equal;
    }
    return has_text && operator_ == Operator::unequal;
}

bool Comparison::meets_digits(std::string_view digits, Notation notation) const {
    if (is_pattern_) return meets_text(digits);
    const auto number = number_in(digits, notation);
    return number && meets(*number, 0, notation);
}

} // namespace ast::recording
