// Reading and writing the bits and octets of ASTERIX fields, all big-endian. Octets count from 1 and bits from 8 (most
// significant) down to 1, as the category documents do. No other folder shifts and masks by hand where one of these
// says it.
#pragma once

#include <cstdint>

namespace ast {

inline uint32_t read_u16(const uint8_t *octets) {
    return uint32_t{octets[0]} << 8 | octets[1];
}

inline void write_u16(uint8_t *octets, uint32_t value) {
    octets[0] = static_cast<uint8_t>(value >> 8);
    octets[1] = static_cast<uint8_t>(value);
}

// One bit of one octet: bit(octet, 8) is the most significant.
constexpr bool bit(uint8_t octet, unsigned number) {
    return (octet >> (number - 1) & 1) != 0;
}

// Bit 1 of an octet is its field extension indicator: another octet of the same field follows.
constexpr bool has_fx(uint8_t octet) {
    return bit(octet, 1);
}

constexpr uint8_t kFx = 0x01;

// How many bits of an octet are set: the sums of two, of four, of all eight. Without a population count instruction,
// which a portable build cannot count on, the library call would cost more.
constexpr unsigned bits_set(unsigned octet) {
    octet -= octet >> 1 & 0x55;
    octet = (octet & 0x33) + (octet >> 2 & 0x33);
    return (octet + (octet >> 4)) & 0x0F;
}

// The low `width` bits of a raw field as a two's complement number.
constexpr int32_t twos_complement(uint32_t raw, unsigned width) {
    const unsigned unused = 32 - width;
    return static_cast<int32_t>(raw << unused) >> unused;
}

} // namespace ast
