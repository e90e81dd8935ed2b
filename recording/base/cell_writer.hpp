// Short texts, written where there is room for them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ast::recording {

constexpr uint64_t power_of_10(unsigned exponent) { return exponent == 0 ? 1 : 10 * power_of_10(exponent - 1); }

// One piece behind the other, without a terminator.
class CellWriter {
public:
    explicit CellWriter(char *text) : begin_(text), at_(text) {}

    size_t size() const { return static_cast<size_t>(at_ - begin_); }

    void put(char character) { *at_++ = character; }
    void put(std::string_view piece) {
        std::memcpy(at_, piece.data(), piece.size());
        at_ += piece.size();
    }

    // All digits of the least ones.
    template <unsigned kBase = 10>
    void digits(uint64_t number, unsigned least) {
        unsigned count = 1;
        for (uint64_t rest = number; rest >= kBase; rest /= kBase) ++count;
        count = std::max(count, least);
        for (char *digit = at_ + count; digit != at_; number /= kBase) *--digit = "0123456789ABCDEF"[number % kBase];
        at_ += count;
    }

    // As printf shows it with so many decimals, and zeros before it up to so many characters.
    template <unsigned kDecimals>
    void decimal(double value, unsigned width, bool plus = false) {
        constexpr uint64_t kOne = power_of_10(kDecimals);
        const auto scaled = static_cast<uint64_t>(std::lrint(std::abs(value) * static_cast<double>(kOne)));
        const bool is_signed = plus || (value < 0 && scaled != 0);
        if (is_signed) put(value < 0 && scaled != 0 ? '-' : '+');
        constexpr unsigned kBehind = kDecimals == 0 ? 0 : kDecimals + 1;
        const unsigned before = kBehind + (is_signed ? 1 : 0);
        digits(scaled / kOne, width > before ? width - before : 1);
        if constexpr (kDecimals != 0) {
            put('.');
            digits(scaled % kOne, kDecimals);
        }
    }

    // With so many decimals at most, none of them a zero at the end. Halves are rounded to even digits, or away from 0.
    void shortest(double value, unsigned decimals, bool halves_away = false) {
        uint64_t one = power_of_10(decimals);
        const double steps = std::abs(value) * static_cast<double>(one);
        auto scaled = static_cast<uint64_t>(halves_away ? std::llround(steps) : std::llrint(steps));
        if (value < 0 && scaled != 0) put('-');
        digits(scaled / one, 1);
        scaled %= one;
        if (scaled == 0) return;
        for (; scaled % 10 == 0; scaled /= 10) --decimals;
        put('.');
        digits(scaled, decimals);
    }

    // "025/012".
    void source(uint64_t sac, uint64_t sic) {
        digits(sac, 3);
        put('/');
        digits(sic, 3);
    }

    // "12:00:01.500"; what is not a whole millisecond is cut off.
    void clock(double seconds) {
        constexpr double kMillisecondsPerSecond = 1000;
        const auto milliseconds = static_cast<uint64_t>(seconds * kMillisecondsPerSecond);
        digits(milliseconds / 3'600'000, 2);
        put(':');
        digits(milliseconds / 60'000 % 60, 2);
        put(':');
        digits(milliseconds / 1000 % 60, 2);
        put('.');
        digits(milliseconds % 1000, 3);
    }

private:
    char *begin_;
    char *at_;
};

} // namespace ast::recording
