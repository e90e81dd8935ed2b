#include "ask/units.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/letters.hpp"
#include "base/numbers.hpp"

namespace ast::recording {

namespace {

enum class Dimension { length, speed, acceleration, angle, duration, pressure };

constexpr double kMetresPerFoot = 0.3048;
constexpr double kFeetPerLevel = 100;
constexpr double kSecondsPerMinute = 60;
constexpr double kSecondsPerHour = 3600;

struct Unit {
    std::string_view name;
    Dimension dimension;
    double size; // in metres, seconds, degrees, hectopascals and what follows from these
};

constexpr Unit kUnits[] = {
    {"m", Dimension::length, 1},
    {"km", Dimension::length, 1000},
    {"ft", Dimension::length, kMetresPerFoot},
    {"FL", Dimension::length, kFeetPerLevel *kMetresPerFoot},
    {"NM", Dimension::length, kMetresPerNm},
    {"m/s", Dimension::speed, 1},
    {"km/h", Dimension::speed, 1000 / kSecondsPerHour},
    {"kt", Dimension::speed, kMetresPerNm / kSecondsPerHour},
    {"NM/s", Dimension::speed, kMetresPerNm},
    {"ft/min", Dimension::speed, kMetresPerFoot / kSecondsPerMinute},
    {"m/s\xC2\xB2", Dimension::acceleration, 1},
    {"m/s2", Dimension::acceleration, 1},
    {"\xC2\xB0", Dimension::angle, 1},
    {"deg", Dimension::angle, 1},
    {"s", Dimension::duration, 1},
    {"ms", Dimension::duration, 0.001},
    {"min", Dimension::duration, kSecondsPerMinute},
    {"h", Dimension::duration, kSecondsPerHour},
    {"hPa", Dimension::pressure, 1},
    {"mb", Dimension::pressure, 1},
};

const Unit *find_unit(std::string_view name) {
    const auto *const found =
        std::ranges::find_if(kUnits, [&](const Unit &unit) { return is_same_word(unit.name, name); });
    return found == std::end(kUnits) ? nullptr : found;
}

bool begins_unit(char c) {
    return to_small(c) != c || to_capital(c) != c || static_cast<unsigned char>(c) > 0x7F || c == '%';
}

} // namespace

bool is_unit(std::string_view name) { return find_unit(name) != nullptr; }

std::optional<double> unit_factor(std::string_view from, std::string_view to) {
    if (is_same_word(from, to)) return 1;
    const Unit *const known = find_unit(from);
    const Unit *const wanted = find_unit(to);
    if (!known || !wanted || known->dimension != wanted->dimension) return std::nullopt;
    return known->size / wanted->size;
}

std::optional<Measure> read_measure(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    std::string_view digits = text.substr(0, text.find_first_not_of("-.0123456789"));
    const std::string_view unit = trimmed(text.substr(digits.size()));
    const auto number = read_number<double>(digits);
    if (!number || !std::isfinite(*number) || (!unit.empty() && !begins_unit(unit.front()))) return std::nullopt;
    return Measure{*number, unit};
}

} // namespace ast::recording
