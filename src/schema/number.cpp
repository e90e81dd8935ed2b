// Reading numbers, and writing those that are seldom met.

#include "schema/number.hpp"
#include "schema/slice.hpp"

namespace ast::schema {

namespace {

// Digits that are looked at, but for zeros in front, and decimals that are told apart.
constexpr int32_t kMaxDigits = 18;
constexpr uint64_t kOne = kPowersOfTen[kMaxDigits];

constexpr char kTooLarge[] = "does not fit its bits";
constexpr char kNoWholeNumber[] = "is no whole number";

// ones + fraction / kOne, the fraction never below zero.
struct Decimal {
    int64_t ones = 0;
    uint64_t fraction = 0;

    Decimal operator-() const { return fraction == 0 ? Decimal{-ones, 0} : Decimal{-ones - 1, kOne - fraction}; }
};

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

int32_t read_exponent(std::string_view text) {
    constexpr int32_t kHuge = 100000;
    const bool is_negative = text.starts_with('-');
    int32_t exponent = 0;
    for (const char c : text)
        if (is_digit(c) && exponent < kHuge) exponent = exponent * 10 + (c - '0');
    return is_negative ? -exponent : exponent;
}

// The last ones of the digits as decimals. Digits too far behind the point to be told count as little as can be.
Decimal with_decimals(uint64_t digits, int32_t decimals) {
    bool is_cut = false;
    for (; decimals > kMaxDigits && digits != 0; --decimals, digits /= 10) is_cut = is_cut || digits % 10 != 0;
    if (digits == 0) return {0, is_cut};
    const uint64_t one = kPowersOfTen[static_cast<size_t>(decimals)];
    return {static_cast<int64_t>(digits / one), digits % one * (kOne / one) | is_cut};
}

// A number that has the form that JSON wants; false for one that is too large for any field.
bool read_decimal(Decimal &number, std::string_view text) {
    uint64_t digits = 0;
    int32_t exponent = 0;
    bool is_fraction = false;
    const bool is_negative = text.starts_with('-');
    for (size_t i = is_negative; i < text.size(); ++i) {
        const char c = text[i];
        if (is_digit(c)) {
            const bool counts = digits < kOne / 10;
            if (counts) digits = digits * 10 + static_cast<uint64_t>(c - '0');
            exponent += int32_t{!counts} - int32_t{is_fraction};
        } else if (c == '.') {
            is_fraction = true;
        } else {
            exponent += read_exponent(slice(text, i + 1));
            break;
        }
    }
    if (digits == 0) return true;
    for (; exponent > 0 && digits < kOne / 10; --exponent) digits *= 10;
    if (exponent > 0) return false;
    number = exponent == 0 ? Decimal{static_cast<int64_t>(digits), 0} : with_decimals(digits, -exponent);
    if (is_negative) number = -number;
    return true;
}

// A quantity from zero on in steps, to the nearest one; false where it is too large for any field.
bool to_steps(uint64_t &steps, const Field &field, const Decimal &quantity) {
    constexpr uint64_t kHalf = kPowersOfTen[kMaxDigits / 2]; // of the digits, so that products fit
    const auto ones = static_cast<uint64_t>(quantity.ones);
    if (ones > (uint64_t{field.numerator} << 32) / field.denominator + 1) return false;
    const uint64_t low = quantity.fraction % kHalf * field.denominator;
    const uint64_t high = quantity.fraction / kHalf * field.denominator + low / kHalf;
    const uint64_t parts = ones * field.denominator + high / kHalf; // as many of which as numerator make a step
    const uint64_t fraction = high % kHalf * kHalf + low % kHalf;   // of a part
    steps = parts / field.numerator;
    steps += 2 * (parts % field.numerator) + (2 * fraction >= kOne) >= field.numerator;
    return true;
}

} // namespace

char *put_huge_number(char *out, uint64_t value) {
    return put_three(put_large_number(out, value / kThousand), value % kThousand);
}

double number_of(const Field &field, uint64_t raw) {
    const auto size = static_cast<double>(magnitude(field, raw));
    const double value = is_negative(field, raw) ? -size : size;
    return field.is_quantity() ? value * field.numerator / field.denominator + field.offset : value;
}

const char *read_value(uint64_t &raw, const Field &field, std::string_view number) {
    Decimal value;
    if (!read_decimal(value, number)) return kTooLarge;
    value.ones -= field.offset;
    const bool is_below_zero = value.ones < 0;
    if (is_below_zero) value = -value;
    auto size = static_cast<uint64_t>(value.ones);
    if (field.is_quantity() && !to_steps(size, field, value)) return kTooLarge;
    if (!field.is_quantity() && value.fraction != 0) return kNoWholeNumber;
    const bool is_signed = field.kind == Kind::Signed;
    const uint64_t behind = uint64_t{1} << (field.bits - is_signed);
    if (is_below_zero ? size > (is_signed ? behind : 0) : size >= behind) return kTooLarge;
    raw = (is_below_zero ? -size : size) & ((uint64_t{1} << field.bits) - 1);
    return nullptr;
}

} // namespace ast::schema
