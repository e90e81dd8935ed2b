// How many there are over the time, in a few parts of equal length.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

namespace ast::recording::astdump {

// Parts of a second, which become twice as long whenever there are more than 64 of them.
class RateCurve {
public:
    void add(double time_s) {
        if (!first_s_) first_s_ = std::floor(time_s);
        if (time_s < *first_s_) return; // a few that come in another order
        while ((time_s - *first_s_) / part_s_ >= kMostParts) widen();
        const auto part = static_cast<size_t>((time_s - *first_s_) / part_s_);
        if (part >= counts_.size()) counts_.resize(part + 1);
        ++counts_[part];
    }

    double part_s() const { return part_s_; }
    const std::vector<uint64_t> &counts() const { return counts_; }

private:
    static constexpr double kMostParts = 64;

    void widen() {
        for (size_t i = 0; i < counts_.size(); ++i)
            if (i % 2 == 0)
                counts_[i / 2] = counts_[i];
            else
                counts_[i / 2] += counts_[i];
        counts_.resize((counts_.size() + 1) / 2);
        part_s_ *= 2;
    }

    std::optional<double> first_s_;
    double part_s_ = 1;
    std::vector<uint64_t> counts_;
};

} // namespace ast::recording::astdump
