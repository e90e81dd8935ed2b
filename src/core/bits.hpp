// Reading and writing the bits and octets of ASTERIX fields, all big-endian. Octets count from 1 and bits from 8 (most
// significant) down to 1, as the category documents do. No other folder shifts and masks by hand where one of these
// says it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ast {

inline uint32_t read_u16(const uint8_t *octets) { return uint32_t{octets[0]} << 8 | octets[1]; }
inline uint32_t read_u24(const uint8_t *octets) { return read_u16(octets) << 8 | octets[2]; }
inline uint32_t read_u32(const uint8_t *octets) { return read_u16(octets) << 16 | read_u16(octets + 2); }
inline uint64_t read_u64(const uint8_t *octets) { return uint64_t{read_u32(octets)} << 32 | read_u32(octets + 4); }

// Up to eight octets as one number, the first of them lowest; those that are not available read as 0.
inline uint64_t read_first_lowest(const uint8_t *octets, uint64_t available) {
    const auto placed_octet = [octets](unsigned i) { return uint64_t{octets[i]} << 8 * i; };
    if (available >= 8) [[likely]] // compilers make one load of this, but not of a loop
        return placed_octet(0) | placed_octet(1) | placed_octet(2) | placed_octet(3) | placed_octet(4) |
               placed_octet(5) | placed_octet(6) | placed_octet(7);
    uint64_t word = 0;
    for (unsigned i = 0; i < available; ++i) word |= placed_octet(i);
    return word;
}

// Each octet of a number with its bits in the opposite order.
constexpr uint64_t mirror_octets(uint64_t word) {
    word = (word >> 4 & 0x0F0F0F0F0F0F0F0F) | (word & 0x0F0F0F0F0F0F0F0F) << 4;
    word = (word >> 2 & 0x3333333333333333) | (word & 0x3333333333333333) << 2;
    return (word >> 1 & 0x5555555555555555) | (word & 0x5555555555555555) << 1;
}

inline void write_u16(uint8_t *octets, uint32_t value) {
    octets[0] = static_cast<uint8_t>(value >> 8);
    octets[1] = static_cast<uint8_t>(value);
}

inline void write_u24(uint8_t *octets, uint32_t value) {
    octets[0] = static_cast<uint8_t>(value >> 16);
    write_u16(octets + 1, value);
}

inline void write_u32(uint8_t *octets, uint32_t value) {
    write_u16(octets, value >> 16);
    write_u16(octets + 2, value);
}

// Copies octets; none where there are none to copy, whatever the pointers are.
inline void copy_octets(uint8_t *to, const uint8_t *from, uint64_t count) {
    if (count != 0) std::memcpy(to, from, static_cast<size_t>(count));
}

// One bit of one octet: bit(octet, 8) is the most significant.
constexpr bool bit(uint8_t octet, unsigned number) { return (octet >> (number - 1) & 1) != 0; }

// The bits `from` down to `to` of an octet, or of a number, as a number: bits(octet, 8, 6) is the three most
// significant of an octet.
constexpr uint32_t bits(uint32_t number, unsigned from, unsigned to) {
    return number >> (to - 1) & ((UINT32_C(1) << (from - to + 1)) - 1);
}

// A field that may cross octets, by bits counted from 1 at the most significant bit of the first octet, as Mode S
// registers number them: field(octets, 9, 14) is the upper six bits of the second octet. At most 32 bits.
constexpr uint32_t field(const uint8_t *octets, unsigned first, unsigned last) {
    uint64_t value = 0;
    for (unsigned octet = (first - 1) / 8; octet <= (last - 1) / 8; ++octet) value = value << 8 | octets[octet];
    const unsigned width = last - first + 1;
    return static_cast<uint32_t>(value >> (7 - (last - 1) % 8) & ((UINT64_C(1) << width) - 1));
}

// A number at its place in an octet that is put together: placed(2, 8, 6) is 2 in the three most significant bits.
constexpr uint8_t placed(uint32_t value, unsigned from, unsigned to) {
    return static_cast<uint8_t>((value & ((UINT32_C(1) << (from - to + 1)) - 1)) << (to - 1));
}

constexpr uint8_t placed(bool value, unsigned number) { return placed(uint32_t{value}, number, number); }

// Bit 1 of an octet is its field extension indicator: another octet of the same field follows.
constexpr bool has_fx(uint8_t octet) { return bit(octet, 1); }

constexpr uint8_t kFx = 0x01;

// Chains so many octets, and returns how many they are.
inline uint64_t chain(uint8_t *octets, uint64_t count) {
    for (uint64_t i = 0; i + 1 < count; ++i) octets[i] |= kFx;
    return count;
}

// Chains the octets up to the last one that holds something, and returns how many they are: at least one, of `count`.
inline uint64_t chain_to_last(uint8_t *octets, uint64_t count) {
    while (count > 1 && octets[count - 1] == 0) --count;
    return chain(octets, count);
}

// How many bits of an octet are set: the sums of two, of four, of all eight. Without a population count instruction,
// which a portable build cannot count on, the library call would cost more.
constexpr unsigned bits_set(unsigned octet) {
    octet -= octet >> 1 & 0x55;
    octet = (octet & 0x33) + (octet >> 2 & 0x33);
    return (octet + (octet >> 4)) & 0x0F;
}

// ---- Sign rules: how the low `width` bits of a raw field read as a signed number, and how one is written ----

// Two's complement.
constexpr int32_t twos_complement(uint32_t raw, unsigned width) {
    const unsigned unused = 32 - width;
    return static_cast<int32_t>(raw << unused) >> unused;
}

inline int32_t read_i16(const uint8_t *octets) { return twos_complement(read_u16(octets), 16); }
inline int32_t read_i24(const uint8_t *octets) { return twos_complement(read_u24(octets), 24); }
inline int32_t read_i32(const uint8_t *octets) { return static_cast<int32_t>(read_u32(octets)); }

// The magnitude when the sign bit is clear; the magnitude less its maximum when it is set, so that all ones read as 0.
// This is one more than two's complement.
constexpr int32_t magnitude_less_maximum(uint32_t raw, unsigned width) {
    const uint32_t sign = UINT32_C(1) << (width - 1);
    const uint32_t maximum = sign - 1;
    const auto magnitude = static_cast<int32_t>(raw & maximum);
    return raw & sign ? magnitude - static_cast<int32_t>(maximum) : magnitude;
}

enum class Sign : uint8_t { None, TwosComplement, MagnitudeLessMaximum };

constexpr int32_t signed_number(uint32_t raw, unsigned width, Sign sign) {
    if (sign == Sign::TwosComplement) return twos_complement(raw, width);
    if (sign == Sign::MagnitudeLessMaximum) return magnitude_less_maximum(raw, width);
    return static_cast<int32_t>(raw);
}

// Encoders of some positions and levels write a negative number as 2^width - 1 + value, the one's complement of its
// magnitude. It reads back one lower than it was written; receivers are tuned to these octets.
constexpr uint32_t one_below_when_negative(int32_t value) {
    return static_cast<uint32_t>(value) - (value < 0 ? 1U : 0U);
}

} // namespace ast
