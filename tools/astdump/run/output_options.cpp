#include "run/output_options.hpp"

#include <cmath>
#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>

#include "base/numbers.hpp"
#include "write/schedule.hpp"

namespace ast::recording::astdump {

namespace {

struct Unit {
    char letter;
    uint64_t factor;
};

constexpr Unit kThousands[] = {{'k', 1'000}, {'M', 1'000'000}, {'G', 1'000'000'000}};
constexpr Unit kSpans_s[] = {{'s', 1}, {'m', 60}, {'h', 3600}, {'d', 86400}};
constexpr uint64_t kMost = 1'000'000'000'000;

// A number above 0 in front of the letter of one of these units.
std::optional<uint64_t> read_in_units(std::string_view text, std::span<const Unit> units) {
    for (const Unit &unit : units) {
        if (!text.ends_with(unit.letter)) continue;
        const auto number = read_number<uint64_t>(text.substr(0, text.size() - 1));
        if (!number || *number == 0 || *number > kMost / unit.factor) return std::nullopt;
        return *number * unit.factor;
    }
    return std::nullopt;
}

[[noreturn]] void refuse(const std::string &text, const char *what) {
    throw std::invalid_argument('\'' + text + "' is " + what);
}

} // namespace

double read_speed(const std::string &text) {
    if (text == "max") return Pace::kUnlimited;
    const auto speed = read_number<double>(text);
    if (!speed || !(*speed > 0) || std::isinf(*speed)) refuse(text, "neither a number above 0 nor max");
    return *speed;
}

uint64_t read_rate(const std::string &text) {
    const auto scaled = read_in_units(text, kThousands);
    const auto rate = scaled ? scaled : read_number<uint64_t>(text);
    if (!rate || *rate == 0 || *rate > kMost) refuse(text, "no number of bits such as 500k or 100M");
    return *rate;
}

uint8_t read_ttl(const std::string &text) {
    const auto ttl = read_number<uint8_t>(text);
    if (!ttl || *ttl == 0) refuse(text, "no number from 1 to 255");
    return *ttl;
}

std::chrono::seconds read_interval(const std::string &text) {
    const auto seconds = read_in_units(text, kSpans_s);
    if (!seconds) refuse(text, "no time such as 10s or 1m");
    return std::chrono::seconds(*seconds);
}

std::optional<double> find_tolerance(std::string_view text) {
    constexpr double kMillisecondsPerSecond = 1000;
    const bool is_ms = text.ends_with("ms");
    const size_t unit = is_ms ? 2 : text.ends_with('s') ? 1 : 0;
    const auto number = read_number<double>(text.substr(0, text.size() - unit));
    if (unit == 0 || !number || !(*number >= 0) || std::isinf(*number)) return std::nullopt;
    return is_ms ? *number / kMillisecondsPerSecond : *number;
}

double read_tolerance(const std::string &text) {
    const auto tolerance_s = find_tolerance(text);
    if (!tolerance_s) refuse(text, "no time such as 0.1s or 100ms");
    return *tolerance_s;
}

Rotation read_rotation(const std::string &text) {
    if (const auto period_s = read_in_units(text, kSpans_s)) return {.period_s = static_cast<int64_t>(*period_s)};
    if (const auto octets = read_in_units(text, kThousands)) return {.octets = *octets};
    refuse(text, "neither a time such as 10m or 1h nor a number of octets such as 100M");
}

// Either bound may be left out, but not both.
OctetRange read_octet_range(const std::string &text) {
    const auto bound = [&](std::string_view number, uint64_t without) {
        if (number.empty()) return std::optional(without);
        const auto scaled = read_in_units(number, kThousands);
        return scaled ? scaled : read_number<uint64_t>(number);
    };
    constexpr OctetRange kAll;
    const size_t dash = text.find('-');
    if (dash == std::string::npos || text.size() == 1) refuse(text, "no range such as 1000000-2000000, 1M- or -1M");
    const auto begin = bound(std::string_view(text).substr(0, dash), kAll.begin);
    const auto end = bound(std::string_view(text).substr(dash + 1), kAll.end);
    if (!begin || !end) refuse(text, "no range such as 1000000-2000000, 1M- or -1M");
    if (*begin >= *end) refuse(text, "a range that ends where it begins, or before");
    return {.begin = *begin, .end = *end};
}

} // namespace ast::recording::astdump
