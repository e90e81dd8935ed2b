// Reading numbers.

#include "schema/number.hpp"
#include "schema/slice.hpp"

namespace ast::schema {

namespace {

// Wide enough for 18 digits times the denominator of any step, and for as many digits behind the point.
__extension__ using Wide = __int128;

constexpr unsigned kMaxDigits = 18;
constexpr int32_t kMaxDecimals = 24; // smaller numbers round to 0 in any unit

constexpr char kTooLarge[] = "does not fit its bits";
constexpr char kNoWholeNumber[] = "is no whole number";

// digits × 10^exponent, less what 18 digits cannot tell.
struct Decimal {
    uint64_t digits = 0;
    int32_t exponent = 0;
    bool is_negative = false;
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

// A number that has the form that JSON wants.
Decimal read_decimal(std::string_view text) {
    Decimal number;
    unsigned digits = 0;
    bool is_fraction = false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '-') number.is_negative = true;
        if (c == '.') is_fraction = true;
        if (c == 'e' || c == 'E') {
            number.exponent += read_exponent(slice(text, i + 1));
            break;
        }
        if (!is_digit(c)) continue;
        if (digits < kMaxDigits) {
            number.digits = number.digits * 10 + static_cast<uint64_t>(c - '0');
            digits += number.digits != 0;
            number.exponent -= is_fraction;
        } else {
            number.exponent += !is_fraction;
        }
    }
    if (number.digits == 0) number.exponent = 0;
    return number;
}

// To a whole number of digits and an exponent from -kMaxDecimals to 0; false where it is too large for any field.
bool normalize(Decimal &number) {
    for (; number.exponent > 0; --number.exponent) {
        if (number.digits > UINT64_MAX / 100) return false;
        number.digits *= 10;
    }
    if (number.exponent < -kMaxDecimals - static_cast<int32_t>(kMaxDigits)) number = {};
    for (; number.exponent < -kMaxDecimals; ++number.exponent) number.digits /= 10;
    while (number.exponent < 0 && number.digits % 10 == 0 && number.digits != 0) number.digits /= 10, ++number.exponent;
    return true;
}

Wide wide_power_of_ten(int32_t exponent) {
    Wide power = 1;
    while (exponent-- > 0) power *= 10;
    return power;
}

Wide rounded(Wide numerator, Wide denominator) {
    const Wide half = denominator / 2;
    return numerator < 0 ? -((-numerator + half) / denominator) : (numerator + half) / denominator;
}

} // namespace

double number_of(const Field &field, uint64_t raw) {
    const auto size = static_cast<double>(magnitude(field, raw));
    const double value = is_negative(field, raw) ? -size : size;
    return field.is_quantity() ? value * field.numerator / field.denominator + field.offset : value;
}

const char *read_value(uint64_t &raw, const Field &field, std::string_view number) {
    Decimal decimal = read_decimal(number);
    if (!normalize(decimal)) return kTooLarge;
    Wide value = decimal.is_negative ? -Wide{decimal.digits} : Wide{decimal.digits};
    const Wide ones = wide_power_of_ten(-decimal.exponent);
    if (field.is_quantity())
        value = rounded((value - field.offset * ones) * field.denominator, ones * field.numerator);
    else if (value % ones != 0)
        return kNoWholeNumber;
    else
        value /= ones;
    const Wide least = field.kind == Kind::Signed ? -(Wide{1} << (field.bits - 1)) : Wide{0};
    const Wide behind = field.kind == Kind::Signed ? Wide{1} << (field.bits - 1) : Wide{1} << field.bits;
    if (value < least || value >= behind) return kTooLarge;
    raw = static_cast<uint64_t>(value) & ((uint64_t{1} << field.bits) - 1);
    return nullptr;
}

} // namespace ast::schema
