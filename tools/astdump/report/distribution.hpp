// How values are spread: least, greatest, mean and percentiles, in a memory that does not grow without end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace ast::recording::astdump {

// Keeps the first 65,536 values, so that percentiles are exact as long as there are no more; beyond, it counts them by
// steps of 1/4096 of the next lower power of two, which tells each to 0.025 %.
class Distribution {
public:
    void add(double value);

    uint64_t count() const { return count_; }

    // 0 where there are none.
    double least() const { return least_; }
    double greatest() const { return greatest_; }
    double mean() const { return count_ == 0 ? 0 : sum_ / static_cast<double>(count_); }

    // The least value that so many percent of all do not exceed (the nearest rank).
    double percentile(double percent) const;
    double median() const { return percentile(50); }

    // How many values there are in each of so many equal parts of the range from `low` to `high`; those outside are
    // left out, `high` itself is in the last.
    std::vector<uint64_t> parts(double low, double high, size_t count) const;

private:
    struct Step {
        bool is_negative;
        int exponent;
        int mantissa;

        bool operator<(const Step &other) const;
    };

    static Step step_of(double value);
    static double value_of(const Step &step);
    void count_by_steps();
    void sort() const;

    uint64_t count_ = 0;
    double least_ = 0;
    double greatest_ = 0;
    double sum_ = 0;
    mutable std::vector<double> values_; // until there are too many
    mutable bool is_sorted_ = true;
    std::map<Step, uint64_t> steps_; // from then on
};

} // namespace ast::recording::astdump
