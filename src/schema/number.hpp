// Quantities and numbers as decimal digits, exactly both ways: what is printed reads back to the same bits.
#pragma once

#include <concepts>
#include <cstring>
#include <string_view>

#include "schema/field.hpp"

namespace ast::schema {

// Room for any number of 64 bits, with a sign and a point.
constexpr unsigned kNumberRoom = 24;

constexpr char digit(uint64_t value) { return static_cast<char>('0' + value); }

// "000", "001" ... "999". Behind each stand in one octet how many zeros it has in front of its last digit, and how many
// digits it has without the zeros at its end.
constexpr unsigned kThousand = 1000;
inline constexpr auto kThrees = [] {
    std::array<char, size_t{4} * (kThousand + 1)> all{};
    for (unsigned i = 0; i < kThousand; ++i) {
        const unsigned in_front = i < 10 ? 2 : i < 100 ? 1 : 0;
        const unsigned kept = i == 0 ? 0 : i % 100 == 0 ? 1 : i % 10 == 0 ? 2 : 3;
        all[4 * i] = digit(i / 100);
        all[4 * i + 1] = digit(i / 10 % 10);
        all[4 * i + 2] = digit(i % 10);
        all[4 * i + 3] = static_cast<char>(kept << 2 | in_front);
    }
    return all;
}();

// 1, 10, 100 ...
inline constexpr auto kPowersOfTen = [] {
    std::array<uint64_t, 20> powers{1};
    for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

inline const char *three_digits(uint64_t value) { return &kThrees[4 * static_cast<size_t>(value)]; }

// Three digits; one more character is written.
inline char *put_three(char *out, uint64_t value) {
    std::memcpy(out, three_digits(value), 4);
    return out + 3;
}

// Without the zeros in front.
inline char *put_below_thousand(char *out, uint64_t value) {
    const char *const digits = three_digits(value);
    const unsigned zeros = static_cast<uint8_t>(digits[3]) & 3;
    std::memcpy(out, digits + zeros, 4);
    return out + (3 - zeros);
}

[[gnu::noinline]] inline char *put_large_number(char *out, uint64_t value) {
    const uint64_t thousands = value / kThousand;
    out = thousands < kThousand ? put_below_thousand(out, thousands) : put_large_number(out, thousands);
    return put_three(out, value % kThousand);
}

inline char *put_number(char *out, uint64_t value) {
    return value < kThousand ? put_below_thousand(out, value) : put_large_number(out, value);
}

// Digits behind a point, of which one is not 0, in threes and without the zeros at the end.
template <unsigned Threes>
inline char *put_fraction(char *out, uint64_t fraction) {
    if constexpr (Threes == 1) {
        put_three(out, fraction);
        return out + (static_cast<uint8_t>(three_digits(fraction)[3]) >> 2);
    } else {
        constexpr uint64_t kRest = kPowersOfTen[3 * (Threes - 1)];
        if (fraction % kRest == 0) return put_fraction<1>(out, fraction / kRest);
        return put_fraction<Threes - 1>(put_three(out, fraction / kRest), fraction % kRest);
    }
}

// A number whose last digits stand behind the point. Those of 32 bits are cheaper to divide.
template <unsigned Threes, std::unsigned_integral Number>
inline char *put_quantity(char *out, Number value) {
    if constexpr (Threes == 0) {
        return put_number(out, value);
    } else {
        constexpr auto kOne = static_cast<Number>(kPowersOfTen[3 * Threes]);
        const Number whole = value / kOne;
        const Number fraction = value - whole * kOne;
        out = put_number(out, whole);
        if (fraction == 0) return out;
        *out = '.';
        return put_fraction<Threes>(out + 1, fraction);
    }
}

// How many zeros a quantity lacks to have its decimals in threes.
constexpr unsigned zeros_lacking(unsigned decimals) { return (3 - decimals % 3) % 3; }

inline char *put_decimal(char *out, uint64_t value, unsigned decimals) {
    value *= kPowersOfTen[zeros_lacking(decimals)];
    switch ((decimals + 2) / 3) {
    case 0:
        return put_quantity<0>(out, value);
    case 1:
        return put_quantity<1>(out, value);
    case 2:
        return put_quantity<2>(out, value);
    case 3:
        return put_quantity<3>(out, value);
    default:
        return put_quantity<4>(out, value);
    }
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
