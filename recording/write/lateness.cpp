#include "write/lateness.hpp"

#include <algorithm>
#include <bit>

namespace ast::recording {

// The first steps are of one each; from there on, each doubling has as many.
size_t Lateness::step_of(uint64_t value) {
    if (value < kStepsOfADoubling) return static_cast<size_t>(value);
    const auto shift = static_cast<unsigned>(std::bit_width(value)) - 1 - kStepBits;
    return (shift + 1) * kStepsOfADoubling + static_cast<size_t>(value >> shift) - kStepsOfADoubling;
}

uint64_t Lateness::begin_of(size_t step) {
    if (step < kStepsOfADoubling) return step;
    const size_t shift = step / kStepsOfADoubling - 1;
    return (step % kStepsOfADoubling + kStepsOfADoubling) << shift;
}

// Too early, which only a clock that is set can make of anything, is not late.
void Lateness::add(std::chrono::nanoseconds late) {
    late = std::max(late, std::chrono::nanoseconds::zero());
    greatest_ = std::max(greatest_, late);
    ++count_;
    ++counts_[step_of(static_cast<uint64_t>(late.count()))];
}

std::chrono::nanoseconds Lateness::median() const {
    uint64_t before = 0;
    size_t step = 0;
    while (step < counts_.size() && (before += counts_[step]) * 2 < count_) ++step;
    return std::chrono::nanoseconds(count_ == 0 ? 0 : begin_of(step));
}

} // namespace ast::recording
