// How late things are: the median and the greatest, in a memory that does not grow.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>

namespace ast::recording {

// Counts by steps of a thirty-second of the next lower power of two, so that a median is known to 3 %.
class Lateness {
public:
    void add(std::chrono::nanoseconds late);

    uint64_t count() const { return count_; }
    std::chrono::nanoseconds median() const;
    std::chrono::nanoseconds greatest() const { return greatest_; }

private:
    static constexpr unsigned kStepBits = 5;
    static constexpr size_t kStepsOfADoubling = size_t{1} << kStepBits;

    static size_t step_of(uint64_t value);
    static uint64_t begin_of(size_t step);

    std::array<uint64_t, (64 - kStepBits + 1) * kStepsOfADoubling> counts_{};
    uint64_t count_ = 0;
    std::chrono::nanoseconds greatest_{0};
};

} // namespace ast::recording
