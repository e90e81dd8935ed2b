#include "report/distribution.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace ast::recording::astdump {

namespace {

constexpr size_t kMostValues = 65'536;
constexpr double kSteps = 8192; // of mantissas, which are half of that and up

} // namespace

// Behind a sign, what is greater is further from 0.
bool Distribution::Step::operator<(const Step &other) const {
    if (is_negative != other.is_negative) return is_negative;
    const auto size = std::tie(exponent, mantissa), other_size = std::tie(other.exponent, other.mantissa);
    return is_negative ? other_size < size : size < other_size;
}

Distribution::Step Distribution::step_of(double value) {
    constexpr int kNothing = -1100; // below the exponents of all others
    if (value == 0) return {.is_negative = false, .exponent = kNothing, .mantissa = 0};
    int exponent = 0;
    const double mantissa = std::frexp(std::abs(value), &exponent);
    return {value < 0, exponent, static_cast<int>(mantissa * kSteps)};
}

double Distribution::value_of(const Step &step) {
    const double size = std::ldexp(step.mantissa / kSteps, step.exponent);
    return step.is_negative ? -size : size;
}

void Distribution::add(double value) {
    least_ = count_ == 0 ? value : std::min(least_, value);
    greatest_ = count_ == 0 ? value : std::max(greatest_, value);
    sum_ += value;
    ++count_;
    if (steps_.empty() && values_.size() == kMostValues) count_by_steps();
    if (!steps_.empty()) {
        ++steps_[step_of(value)];
        return;
    }
    is_sorted_ = is_sorted_ && (values_.empty() || values_.back() <= value);
    values_.push_back(value);
}

void Distribution::count_by_steps() {
    for (const double value : values_) ++steps_[step_of(value)];
    values_ = {};
}

void Distribution::sort() const {
    if (!is_sorted_) std::ranges::sort(values_);
    is_sorted_ = true;
}

double Distribution::percentile(double percent) const {
    if (count_ == 0) return 0;
    const double wanted = std::ceil(static_cast<double>(count_) * percent / 100);
    const auto rank = std::clamp<uint64_t>(static_cast<uint64_t>(wanted), 1, count_);
    if (steps_.empty()) {
        sort();
        return values_[static_cast<size_t>(rank - 1)];
    }
    uint64_t before = 0;
    for (const auto &[step, count] : steps_)
        if ((before += count) >= rank) return std::clamp(value_of(step), least_, greatest_);
    return greatest_;
}

std::vector<uint64_t> Distribution::parts(double low, double high, size_t count) const {
    std::vector<uint64_t> parts(count);
    const auto add = [&](double value, uint64_t times) {
        if (!(value >= low && value <= high)) return;
        const double place = (value - low) / (high - low) * static_cast<double>(count);
        parts[std::min(count - 1, static_cast<size_t>(place))] += times;
    };
    if (!(high > low) || count == 0) return parts;
    for (const double value : values_) add(value, 1);
    for (const auto &[step, times] : steps_) add(value_of(step), times);
    return parts;
}

} // namespace ast::recording::astdump
