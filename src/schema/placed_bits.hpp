// Bits of a number where they stand in octets, to be written anew.
#pragma once

#include "schema/walk.hpp"

namespace ast::schema {

struct PlacedBits {
    uint64_t last_octet = 0;  // that holds some of them
    unsigned bits_behind = 0; // in that octet
    unsigned bits = 0;

    // Those in front of what is read next, in octets that begin at data.
    static PlacedBits before(const BitReader &bits, const uint8_t *data, unsigned count) {
        return {static_cast<uint64_t>(bits.octet_before() - data), bits.bits_behind(), count};
    }

    void write(uint8_t *octets, uint64_t raw) const {
        for (unsigned i = 0; i < bits; ++i) {
            const unsigned bit = bits_behind + i;
            uint8_t &octet = octets[last_octet - bit / 8];
            const auto mask = static_cast<uint8_t>(1U << bit % 8);
            octet = static_cast<uint8_t>((raw >> i & 1) != 0 ? octet | mask : octet & ~mask);
        }
    }
};

} // namespace ast::schema
