// Quantities and numbers as decimal digits, exactly both ways: what is printed reads back to the same bits.
#pragma once

#include <bit>
#include <concepts>
#include <cstring>
#include <string_view>

#include "schema/field.hpp"

namespace ast::schema {

// Room for any number of 64 bits, with a sign and a point.
constexpr unsigned kNumberRoom = 24;

constexpr char digit(uint64_t value) { return static_cast<char>('0' + value); }

// "00", "01" ... "99".
inline constexpr auto kDigitPairs = [] {
    std::array<char, 200> pairs{};
    for (size_t i = 0; i < 100; ++i) pairs[2 * i] = digit(i / 10), pairs[2 * i + 1] = digit(i % 10);
    return pairs;
}();

// 1, 10, 100 ...
inline constexpr auto kPowersOfTen = [] {
    std::array<uint64_t, 20> powers{1};
    for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

// Of a number that is not 0.
constexpr unsigned count_digits(uint64_t value) {
    constexpr unsigned kLogOfTwo = 1233; // a decimal logarithm, in 4096ths: near enough up to 64 bits
    const unsigned digits = static_cast<unsigned>(std::bit_width(value)) * kLogOfTwo >> 12;
    return digits + (value >= kPowersOfTen[digits]);
}

// So many digits of a number in front of a place, which moves there; returns what is left of the number.
template <std::unsigned_integral Number>
inline Number put_digits_before(char *&end, Number value, unsigned digits) {
    for (; digits >= 2; digits -= 2, value /= 100)
        std::memcpy(end -= 2, &kDigitPairs[static_cast<size_t>(2 * (value % 100))], 2);
    if (digits == 0) return value;
    *--end = digit(value % 10);
    return value / 10;
}

// A number that is not 0, with its last digits behind the point, zeros at the end left out there.
template <std::unsigned_integral Number>
inline char *put_digits(char *out, Number value, unsigned decimals) {
    while (decimals != 0 && value % 10 == 0) value /= 10, --decimals;
    unsigned digits = count_digits(value);
    if (digits <= decimals) digits = decimals + 1;
    char *const end = out + digits + (decimals != 0);
    char *at = end;
    if (decimals != 0) {
        value = put_digits_before(at, value, decimals);
        *--at = '.';
    }
    put_digits_before(at, value, digits - decimals);
    return end;
}

inline char *put_decimal(char *out, uint64_t value, unsigned decimals) {
    if (value == 0) {
        *out = '0';
        return out + 1;
    }
    if (value > UINT32_MAX) [[unlikely]] // division is dearer
        return put_digits(out, value, decimals);
    return put_digits(out, static_cast<uint32_t>(value), decimals);
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
    const int64_t value = static_cast<int64_t>(in_decimals(field, size)) +
                          field.offset * static_cast<int64_t>(kPowersOfTen[field.decimals]);
    *out = '-';
    out += value < 0;
    return put_decimal(out, static_cast<uint64_t>(value < 0 ? -value : value), field.decimals);
}

// The same as a floating-point number.
double number_of(const Field &field, uint64_t raw);

// What a JSON number is as the raw number of a field, to the nearest step; what is wrong otherwise, else null.
const char *read_value(uint64_t &raw, const Field &field, std::string_view number);

} // namespace ast::schema
