#include "core/number.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>

#include "core/digits.hpp"

namespace ast {

namespace {

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

// In base 10, of a number that takes more than 32 bits.
size_t write_long(char *text, uint64_t number, size_t least_digits) {
    constexpr uint32_t kHalf = kPowers[kMostDecimals];
    constexpr size_t kHalfDigits = kMostDecimals;
    const size_t above =
        write_digits(text, number / kHalf, 10, false, least_digits > kHalfDigits ? least_digits - kHalfDigits : 1);
    fill_digits(text + above, text + above + kHalfDigits, static_cast<uint32_t>(number % kHalf));
    return above + kHalfDigits;
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

size_t write_digits(char *text, uint64_t number, unsigned base, bool upper_case, size_t least_digits) {
    if (base == 10) {
        if (number > UINT32_MAX) return write_long(text, number, least_digits);
        const auto shorter = static_cast<uint32_t>(number);
        const size_t count = std::max<size_t>({count_digits(shorter), least_digits, 1});
        fill_digits(text, text + count, shorter);
        return count;
    }
    const size_t count = std::max<size_t>({base == 8 ? count_bits<3>(number) : count_bits<4>(number), least_digits, 1});
    if (base == 8)
        fill_bits<3>(text, text + count, number, upper_case);
    else
        fill_bits<4>(text, text + count, number, upper_case);
    return count;
}

// Most numbers are of usual size, the digits of others come one by one from exact integers; the rest is for the
// library.
size_t write_decimals(char *text, double magnitude, uint64_t decimals) {
    decimals = std::min(decimals, kMaxDecimals);
    if (Decimal usual; as_decimal(magnitude, static_cast<unsigned>(decimals), usual)) {
        const size_t count = usual.size();
        usual.write(text, text + count);
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
