#include "core/number.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

namespace ast {

namespace {

// A double as mantissa / 2^scale, when the fraction of that leaves room for a digit above it in 64 bits.
constexpr int kMantissaBits = 53;
constexpr int kMaxScale = 60;

static_assert(std::numeric_limits<double>::is_iec559);

// False for numbers without a leading bit, too: zero, those next to it, infinity and NaN.
bool as_fraction(double magnitude, uint64_t &mantissa, int &scale) {
    constexpr int kStoredBits = kMantissaBits - 1;
    constexpr int kExponentOfOne = 1023;
    const auto octets = std::bit_cast<uint64_t>(magnitude);
    const auto exponent = static_cast<int>(octets >> kStoredBits);
    mantissa = (octets & ((UINT64_C(1) << kStoredBits) - 1)) | UINT64_C(1) << kStoredBits;
    scale = kExponentOfOne + kStoredBits - exponent;
    return scale >= 0 && scale <= kMaxScale;
}

// Adds one to the last place of a number of digits with at most one point; the text has room for one digit more.
size_t round_up(char *text, size_t count) {
    size_t i = count;
    while (i > 0) {
        char &digit = text[--i];
        if (digit == '.') continue;
        if (digit != '9') {
            ++digit;
            return count;
        }
        digit = '0';
    }
    std::copy_backward(text, text + count, text + count + 1);
    text[0] = '1';
    return count + 1;
}

// The compiler divides by a constant without dividing, faster still in 32 bits.
template <unsigned Base>
char *write_before(char *end, uint64_t number, const char *symbols) {
    for (; number > UINT32_MAX; number /= Base) *--end = symbols[number % Base];
    auto rest = static_cast<uint32_t>(number);
    do {
        *--end = symbols[rest % Base];
        rest /= Base;
    } while (rest != 0);
    return end;
}

constexpr bool is_digit(char character) { return character >= '0' && character <= '9'; }

// Appends digits to a number, and counts those that did not fit into `dropped` and all of them as the result.
int append_digits(const char *&text, uint64_t &number, int &dropped) {
    constexpr uint64_t kRoom = UINT64_MAX / 10 - 1;
    int count = 0;
    for (; is_digit(*text); ++text, ++count) {
        if (number > kRoom)
            ++dropped;
        else
            number = number * 10 + static_cast<uint64_t>(*text - '0');
    }
    return count;
}

// The power of ten behind a number, such as e-3; nothing is taken where there is none.
int parse_exponent(const char *&text) {
    constexpr uint64_t kLargest = 9999;
    if (*text != 'e' && *text != 'E') return 0;
    const char *rest = text + 1;
    const bool is_negative = *rest == '-';
    if (*rest == '-' || *rest == '+') ++rest;
    uint64_t exponent = 0;
    int dropped = 0;
    if (append_digits(rest, exponent, dropped) == 0) return 0;
    text = rest;
    const auto magnitude = static_cast<int>(std::min(exponent, kLargest));
    return is_negative ? -magnitude : magnitude;
}

} // namespace

char *write_decimals_before(char *end, double magnitude, unsigned decimals) {
    static constexpr uint32_t kPowers[] = {1, 10, 100, 1000, 10'000, 100'000, 1'000'000};
    uint64_t mantissa = 0;
    int scale = 0;
    if (magnitude != 0 && !as_fraction(magnitude, mantissa, scale)) return nullptr;
    uint64_t whole = mantissa >> scale;
    uint64_t fraction = mantissa & ((UINT64_C(1) << scale) - 1);
    if (decimals == 0 || decimals >= std::size(kPowers) || fraction > UINT64_MAX / kPowers[decimals]) return nullptr;

    const uint64_t product = fraction * kPowers[decimals];
    fraction = product >> scale;
    const uint64_t rest = product & ((UINT64_C(1) << scale) - 1);
    const uint64_t half = scale ? UINT64_C(1) << (scale - 1) : UINT64_MAX;
    if (rest > half || (rest == half && fraction % 2 != 0)) ++fraction;
    if (fraction == kPowers[decimals]) {
        fraction = 0;
        ++whole;
    }
    auto digits = static_cast<uint32_t>(fraction);
    for (unsigned i = 0; i < decimals; ++i, digits /= 10) *--end = static_cast<char>('0' + digits % 10);
    *--end = '.';
    return write_digits_before(end, whole, 10, false);
}

char *write_digits_before(char *end, uint64_t number, unsigned base, bool upper_case) {
    const char *const symbols = upper_case ? "0123456789ABCDEF" : "0123456789abcdef";
    if (base == 10) return write_before<10>(end, number, symbols);
    return base == 8 ? write_before<8>(end, number, symbols) : write_before<16>(end, number, symbols);
}

size_t write_digits(char *text, uint64_t number, unsigned base, bool upper_case) {
    char digits[kIntegerChars];
    char *const end = std::end(digits);
    const char *const begin = write_digits_before(end, number, base, upper_case);
    std::copy(begin, static_cast<const char *>(end), text);
    return static_cast<size_t>(end - begin);
}

// Most numbers are of moderate size, and their digits come one by one from exact integers; the rest is for the library.
size_t write_decimals(char *text, double magnitude, uint64_t decimals) {
    decimals = std::min(decimals, kMaxDecimals);
    char usual[2 * kIntegerChars];
    if (const char *const begin = write_decimals_before(std::end(usual), magnitude, static_cast<unsigned>(decimals))) {
        const auto count = static_cast<size_t>(std::end(usual) - begin);
        std::memcpy(text, begin, count);
        return count;
    }
    uint64_t mantissa = 0;
    int scale = 0;
    if (magnitude != 0 && !as_fraction(magnitude, mantissa, scale)) {
        const auto end =
            std::to_chars(text, text + kNumberChars, magnitude, std::chars_format::fixed, static_cast<int>(decimals));
        return static_cast<size_t>(end.ptr - text);
    }
    uint64_t fraction = mantissa & ((UINT64_C(1) << scale) - 1);
    size_t count = write_digits(text, mantissa >> scale, 10, false);
    if (decimals != 0) text[count++] = '.';
    char last = text[count - (decimals != 0 ? 2 : 1)];
    for (uint64_t i = 0; i < decimals; ++i) {
        fraction *= 10;
        text[count++] = last = static_cast<char>('0' + (fraction >> scale));
        fraction &= (UINT64_C(1) << scale) - 1;
    }
    const uint64_t half = scale ? UINT64_C(1) << (scale - 1) : UINT64_MAX;
    const bool last_is_odd = (last - '0') % 2 != 0;
    return fraction > half || (fraction == half && last_is_odd) ? round_up(text, count) : count;
}

double parse_decimal(const char *text) {
    text += std::strspn(text, " \t\n\v\f\r");
    const bool is_negative = *text == '-';
    if (*text == '-' || *text == '+') ++text;
    uint64_t digits = 0;
    int dropped = 0;
    append_digits(text, digits, dropped);
    int power = dropped;
    if (*text == '.') {
        int dropped_decimals = 0;
        const int decimals = append_digits(++text, digits, dropped_decimals);
        power -= decimals - dropped_decimals;
    }
    power += parse_exponent(text);
    const auto number = static_cast<double>(digits);
    const double value = power < 0 ? number / std::pow(10.0, -power) : number * std::pow(10.0, power);
    return is_negative ? -value : value;
}

} // namespace ast
