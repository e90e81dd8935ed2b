// Quantities and numbers as decimal digits, exactly both ways: what is printed reads back to the same bits.
#pragma once

#include <concepts>
#include <cstring>
#include <string_view>
#include <utility>

#include "schema/field.hpp"

namespace ast::schema {

// Room for any number of 64 bits, with a sign and a point.
constexpr unsigned kNumberRoom = 24;

constexpr char digit(uint64_t value) { return static_cast<char>('0' + value); }

constexpr unsigned kThousand = 1000;

// Characters of a few, and how many of them count.
template <size_t Room>
struct Chars {
    char text[Room] = {};
    uint8_t count = 0;
};

// "0", "1" ... "999".
inline constexpr auto kWholes = [] {
    std::array<Chars<3>, kThousand> all{};
    for (unsigned i = 0; i < kThousand; ++i) {
        auto &[text, count] = all[i];
        if (i >= 100) text[count++] = digit(i / 100);
        if (i >= 10) text[count++] = digit(i / 10 % 10);
        text[count++] = digit(i % 10);
    }
    return all;
}();

// ".000", ".001" ... ".999", of which the zeros at the end do not count, nor a point alone.
inline constexpr auto kFractions = [] {
    std::array<Chars<7>, kThousand> all{};
    for (unsigned i = 0; i < kThousand; ++i)
        all[i] = {{'.', digit(i / 100), digit(i / 10 % 10), digit(i % 10)},
                  static_cast<uint8_t>(i == 0         ? 0
                                       : i % 100 == 0 ? 2
                                       : i % 10 == 0  ? 3
                                                      : 4)};
    return all;
}();

// 1, 10, 100 ...
inline constexpr auto kPowersOfTen = [] {
    std::array<uint64_t, 20> powers{1};
    for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}();

// Below a thousand; two more characters may be written.
[[gnu::always_inline]] inline char *put_below_thousand(char *out, uint64_t value) {
    const Chars<3> &digits = kWholes[static_cast<size_t>(value)];
    std::memcpy(out, &digits, sizeof digits);
    return out + digits.count;
}

// Three digits; one more character is written.
inline char *put_three(char *out, uint64_t value) {
    std::memcpy(out, kFractions[static_cast<size_t>(value)].text + 1, 4);
    return out + 3;
}

char *put_huge_number(char *out, uint64_t value);

// From a thousand on.
[[gnu::noinline]] inline char *put_large_number(char *out, uint64_t value) {
    if (value >= kThousand * kThousand) [[unlikely]]
        return put_huge_number(out, value);
    const auto number = static_cast<uint32_t>(value);
    const uint32_t thousands = number / kThousand;
    return put_three(put_below_thousand(out, thousands), number - thousands * kThousand);
}

[[gnu::always_inline]] inline char *put_number(char *out, uint64_t value) {
    return value < kThousand ? put_below_thousand(out, value) : put_large_number(out, value);
}

// The decimals of a quantity in threes, and a point in front of them; nothing where all of them are 0.
template <unsigned Threes, std::unsigned_integral Number>
[[gnu::always_inline]] inline char *put_fraction(char *out, Number fraction) {
    if constexpr (Threes == 1) {
        const Chars<7> &decimals = kFractions[static_cast<size_t>(fraction)];
        std::memcpy(out, decimals.text, 4);
        return out + decimals.count;
    } else {
        constexpr auto kOne = static_cast<Number>(kPowersOfTen[3 * (Threes - 1)]);
        const Number first = fraction / kOne;
        const Number rest = fraction - first * kOne;
        if (rest == 0) return put_fraction<1>(out, first);
        char *const end = put_fraction<Threes - 1>(out + 3, rest);
        std::memcpy(out, kFractions[static_cast<size_t>(first)].text, 4); // its last digit upon the point of the rest
        return end;
    }
}

// A number whose last digits stand behind the point. Those of 32 bits are cheaper to divide.
template <unsigned Decimals, std::unsigned_integral Number>
[[gnu::always_inline]] inline char *put_quantity(char *out, Number value) {
    if constexpr (Decimals == 0) {
        return put_number(out, value);
    } else {
        constexpr unsigned kThrees = (Decimals + 2) / 3;
        constexpr auto kOne = static_cast<Number>(kPowersOfTen[Decimals]);
        constexpr auto kZerosLacking = static_cast<Number>(kPowersOfTen[3 * kThrees - Decimals]);
        const Number whole = value / kOne;
        const Number fraction = value - whole * kOne;
        return put_fraction<kThrees>(put_number(out, whole), static_cast<Number>(fraction * kZerosLacking));
    }
}

// The same where the number of decimals is a variable.
inline constexpr auto kPutQuantity = []<size_t... Decimals>(std::index_sequence<Decimals...>) {
    return std::array{+[](char *out, uint64_t value) { return put_quantity<Decimals>(out, value); }...};
}
(std::make_index_sequence<kMaxDecimals + 1>());

// The magnitude of a raw number below zero in two's complement.
[[gnu::always_inline]] constexpr bool is_negative(const Field &field, uint64_t raw) {
    return field.kind == Kind::Signed && (raw >> (field.bits - 1) & 1) != 0;
}
[[gnu::always_inline]] constexpr uint64_t magnitude(const Field &field, uint64_t raw) {
    return is_negative(field, raw) ? (uint64_t{1} << field.bits) - raw : raw;
}

// In units of the last decimal shown, rounded half up.
[[gnu::always_inline]] constexpr uint64_t in_decimals(const Field &field, uint64_t raw) {
    return (raw * field.factor + (uint64_t{1} << field.shift >> 1)) >> field.shift;
}

// A number or quantity of a field, its decimals by a function for so many of them.
template <typename PutDecimals>
[[gnu::always_inline]] inline char *put_value_by(char *out, const Field &field, uint64_t raw,
                                                 PutDecimals put_decimals) {
    const uint64_t size = magnitude(field, raw);
    if (field.kind == Kind::Signed) {
        *out = '-';
        out += is_negative(field, raw);
    }
    if (!field.is_quantity()) return put_number(out, size);
    if (field.offset == 0) [[likely]]
        return put_decimals(out, in_decimals(field, size));
    const int64_t value = static_cast<int64_t>(in_decimals(field, size)) +
                          field.offset * static_cast<int64_t>(kPowersOfTen[field.decimals]);
    *out = '-';
    out += value < 0;
    return put_decimals(out, static_cast<uint64_t>(value < 0 ? -value : value));
}
inline char *put_value(char *out, const Field &field, uint64_t raw) {
    return put_value_by(out, field, raw, kPutQuantity[field.decimals]);
}

// The same as a floating-point number.
double number_of(const Field &field, uint64_t raw);

// What a JSON number is as the raw number of a field, to the nearest step; what is wrong otherwise, else null.
const char *read_value(uint64_t &raw, const Field &field, std::string_view number);

} // namespace ast::schema
