// Quantities and numbers as decimal digits, exactly both ways: what is printed reads back to the same bits.
#pragma once

#include <cstring>
#include <string_view>

#include "schema/field.hpp"

namespace ast::schema {

// Room for any number of 64 bits.
constexpr unsigned kNumberChars = 24;

// What a number may take while it is put together: two copies, a sign and a point.
constexpr unsigned kNumberRoom = 2 * kNumberChars + 2;

constexpr char digit(uint64_t value) { return static_cast<char>('0' + value); }

// "00", "01" ... "99".
inline constexpr auto kDigitPairs = [] {
    std::array<char, 200> pairs{};
    for (size_t i = 0; i < 100; ++i) pairs[2 * i] = digit(i / 10), pairs[2 * i + 1] = digit(i % 10);
    return pairs;
}();

// The digits of a number in front of a place; returns the first.
inline char *put_digits_before(char *end, uint64_t value) {
    for (; value >= 100; value /= 100) std::memcpy(end -= 2, &kDigitPairs[2 * (value % 100)], 2);
    if (value < 10) {
        *--end = digit(value);
        return end;
    }
    std::memcpy(end -= 2, &kDigitPairs[2 * value], 2);
    return end;
}

// A number with its last digits behind the point, zeros at the end left out. Writes somewhat more than the number at
// out, and returns its end.
inline char *put_decimal(char *out, uint64_t value, unsigned decimals) {
    char digits[2 * kNumberChars]; // as much behind the number, so that copies are of a fixed size
    char *const end = digits + kNumberChars;
    std::memset(digits, '0', kNumberChars);
    char *first = put_digits_before(end, value);
    char *const point = end - decimals;
    if (first >= point) first = point - 1;
    std::memcpy(out, first, kNumberChars);
    out += point - first;
    if (decimals == 0) return out;
    *out = '.';
    std::memcpy(out + 1, point, kNumberChars);
    out += decimals + 1;
    while (out[-1] == '0') --out;
    return out - (out[-1] == '.');
}

inline char *put_number(char *out, uint64_t value) {
    if (value >= 10) return put_decimal(out, value, 0);
    *out = digit(value);
    return out + 1;
}

// The magnitude of a raw number below zero in two's complement.
constexpr bool is_negative(const Field &field, uint64_t raw) {
    return field.kind == Kind::Signed && (raw >> (field.bits - 1) & 1) != 0;
}
constexpr uint64_t magnitude(const Field &field, uint64_t raw) {
    return is_negative(field, raw) ? (uint64_t{1} << field.bits) - raw : raw;
}

// In units of the last decimal shown, rounded half up.
constexpr uint64_t in_decimals(const Field &field, uint64_t raw) {
    return (raw * field.factor + (uint64_t{1} << field.shift >> 1)) >> field.shift;
}

constexpr int64_t power_of_ten(unsigned exponent) {
    int64_t power = 1;
    while (exponent-- != 0) power *= 10;
    return power;
}

// A number or quantity of a field.
inline char *put_value(char *out, const Field &field, uint64_t raw) {
    if (field.kind == Kind::Unsigned && field.is_quantity() && field.offset == 0)
        return put_decimal(out, in_decimals(field, raw), field.decimals);
    const uint64_t size = magnitude(field, raw);
    *out = '-';
    out += is_negative(field, raw);
    if (!field.is_quantity()) return put_number(out, size);
    if (field.offset == 0) [[likely]]
        return put_decimal(out, in_decimals(field, size), field.decimals);
    const int64_t value = static_cast<int64_t>(in_decimals(field, size)) + field.offset * power_of_ten(field.decimals);
    *out = '-';
    out += value < 0;
    return put_decimal(out, static_cast<uint64_t>(value < 0 ? -value : value), field.decimals);
}

// The same as a floating-point number.
double number_of(const Field &field, uint64_t raw);

// What a JSON number is as the raw number of a field, to the nearest step; what is wrong otherwise, else null.
const char *read_value(uint64_t &raw, const Field &field, std::string_view number);

} // namespace ast::schema
