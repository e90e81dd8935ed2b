// The digits of numbers of usual size, for those who write them.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>

namespace ast {

inline constexpr auto kPairs = [] {
    std::array<char, 200> digits{};
    for (size_t i = 0; i < digits.size(); ++i) digits[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
    return digits;
}();

inline constexpr uint32_t kPowers[] = {1,       10,        100,        1000,        10'000,
                                       100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};
constexpr unsigned kMostDecimals = std::size(kPowers) - 1;

// In base 10; that of 0 is none.
inline unsigned count_digits(uint32_t number) {
    constexpr unsigned kNumerator = 1233; // over 4096, the logarithm of 2 to base 10
    const unsigned count = static_cast<unsigned>(std::bit_width(number)) * kNumerator >> 12;
    return count + (number >= kPowers[count] ? 1 : 0);
}

// Fills the place of a number from the end, with zeros before its digits. The compiler divides by a constant without
// dividing, faster still in 32 bits.
inline void fill_digits(char *begin, char *end, uint32_t number) {
    for (; end - begin >= 2; number /= 100) {
        end -= 2;
        std::memcpy(end, &kPairs[static_cast<size_t>(2 * (number % 100))], 2);
    }
    if (end != begin) *begin = static_cast<char>('0' + number % 10);
}

// The same for a number in base 8 or 16, of so many bits a digit.
template <unsigned Bits>
void fill_bits(char *begin, char *end, uint64_t number, bool upper_case) {
    const char *const symbols = upper_case ? "0123456789ABCDEF" : "0123456789abcdef";
    for (; end != begin; number >>= Bits) *--end = symbols[number & ((1U << Bits) - 1)];
}

template <unsigned Bits>
unsigned count_bits(uint64_t number) {
    return (static_cast<unsigned>(std::bit_width(number)) + Bits - 1) / Bits;
}

// A double as mantissa / 2^scale, when the fraction of that leaves room for a digit above it in 64 bits. False for
// numbers without a leading bit, too: zero, those next to it, infinity and NaN.
inline bool as_fraction(double magnitude, uint64_t &mantissa, int &scale) {
    constexpr int kMantissaBits = 53;
    constexpr int kMaxScale = 60;
    constexpr int kStoredBits = kMantissaBits - 1;
    constexpr int kExponentOfOne = 1023;
    static_assert(std::numeric_limits<double>::is_iec559);
    const auto octets = std::bit_cast<uint64_t>(magnitude);
    const auto exponent = static_cast<int>(octets >> kStoredBits);
    mantissa = (octets & ((UINT64_C(1) << kStoredBits) - 1)) | UINT64_C(1) << kStoredBits;
    scale = kExponentOfOne + kStoredBits - exponent;
    return scale >= 0 && scale <= kMaxScale;
}

// A number as integers: its whole part, and its decimals as a number of so many digits. It is rounded half to even on
// its exact value, as printf does.
struct Decimal {
    uint32_t whole;
    uint32_t fraction;
    unsigned decimals;

    size_t size() const { return std::max(count_digits(whole), 1U) + 1 + decimals; }

    // With zeros before its digits where the place is larger than it.
    [[gnu::always_inline]] void write(char *begin, char *end) const {
        char *const point = end - decimals - 1;
        fill_digits(begin, point, whole);
        *point = '.';
        fill_digits(point + 1, end, fraction);
    }
};

// False for numbers that are not of usual size, no decimals and more than nine. Inlined, for the sake of callers to
// whom the number of decimals is a constant.
[[gnu::always_inline]] inline bool as_decimal(double magnitude, unsigned decimals, Decimal &decimal) {
    constexpr int kUsualScale = 33; // of fractions that leave room for all decimals at once in 64 bits
    constexpr int kMostScale = 54;  // and for three of them
    uint64_t mantissa = 0;
    int scale = 0;
    if (decimals - 1 >= kMostDecimals) return false;
    if (magnitude != 0) {
        if (!as_fraction(magnitude, mantissa, scale)) return false;
        const int zeros = std::min(std::countr_zero(mantissa), scale);
        mantissa >>= zeros;
        scale -= zeros;
    }
    const uint64_t whole = mantissa >> scale;
    if (scale > kMostScale || whole >= kPowers[kMostDecimals]) return false;

    const uint64_t mask = (UINT64_C(1) << scale) - 1;
    uint64_t rest = mantissa & mask;
    uint32_t fraction = 0;
    const auto take = [&](unsigned count) {
        rest *= kPowers[count];
        fraction = fraction * kPowers[count] + static_cast<uint32_t>(rest >> scale);
        rest &= mask;
    };
    if (scale <= kUsualScale) [[likely]]
        take(decimals);
    else
        for (unsigned left = decimals; left != 0; left -= std::min(left, 3U)) take(std::min(left, 3U));
    const uint64_t half = scale ? UINT64_C(1) << (scale - 1) : UINT64_MAX;
    if (rest > half || (rest == half && fraction % 2 != 0)) ++fraction;
    const bool carries = fraction == kPowers[decimals];
    decimal = {static_cast<uint32_t>(whole) + carries, carries ? 0 : fraction, decimals};
    return true;
}

} // namespace ast
