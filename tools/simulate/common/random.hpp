// Random numbers that are the same everywhere: the standard fixes what the engine yields, but not what its own
// distributions make of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace simulation {

class Random {
public:
    explicit Random(uint64_t seed) : engine_(seed) {}

    // 0 to bound - 1. The lowest 2^64 % bound values are drawn again, so that all results are equally likely.
    uint64_t below(uint64_t bound) {
        const uint64_t rejected = (0 - bound) % bound;
        uint64_t drawn = engine_();
        while (drawn < rejected) drawn = engine_();
        return drawn % bound;
    }

    double between(double lowest, double highest) { return lowest + (highest - lowest) * unit(); }

    bool chance(double probability) { return unit() < probability; }

    // A measuring error: within ±limit, small ones likelier than large ones.
    double error(double limit) {
        const double first = unit();
        return limit * (first - unit());
    }

    template <typename Value, size_t N>
    const Value &pick(const Value (&values)[N]) {
        return values[below(N)];
    }

private:
    // 0 to less than 1, in steps of 2^-53.
    double unit() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }

    std::mt19937_64 engine_;
};

} // namespace simulation
