// Items that are one or two numbers of one scale.
#pragma once

#include "core/bits.hpp"
#include "items/frame.hpp"
#include "items/units.hpp"

namespace ast {

// A field of one or two octets, and its LSB as a fraction of its unit.
struct FieldScale {
    uint16_t octets;
    bool is_signed; // in two's complement
    unsigned numerator;
    unsigned denominator;

    constexpr double lsb() const { return static_cast<double>(numerator) / denominator; }
    constexpr unsigned width() const { return octets * 8U; }

    int32_t read(const uint8_t *field_octets) const {
        const uint32_t raw = field(field_octets, 1, width());
        return is_signed ? twos_complement(raw, width()) : static_cast<int32_t>(raw);
    }

    // Writes a raw value; false for one that does not fit.
    bool write(uint8_t *field_octets, int32_t raw) const {
        field_octets[0] = static_cast<uint8_t>(raw);
        if (octets == 2) write_u16(field_octets, static_cast<uint32_t>(raw));
        return is_signed ? fits_signed(raw, width()) : fits(raw, width());
    }

    int32_t raw_of(double value) const { return rounded_units(value / lsb()); }
};

// One field. Its encoder writes the value, rounded and stored back, or the raw one beside a value of 0.
template <ast_dataitem_type_t Type, FieldScale Field>
struct ScaledItem : Item<Type, ast_scaled_value_t, fixed<Field.octets>> {
    using Value = ast_scaled_value_t;

    static void read(Value &value, const uint8_t *octets) {
        value.raw = Field.read(octets);
        value.value = value.raw * Field.lsb();
    }

    static bool write(uint8_t *octets, Value &value) {
        if (value.value != 0) value.raw = Field.raw_of(value.value);
        return Field.write(octets, value.raw);
    }
};

// Two fields, written in the same way: the values when one of them is not 0.
template <ast_dataitem_type_t Type, FieldScale Field>
struct ScaledPairItem : Item<Type, ast_value_pair_t, fixed<2 * Field.octets>> {
    using Value = ast_value_pair_t;

    static void read(Value &pair, const uint8_t *octets) {
        pair = scaled_pair(Field.read(octets), Field.read(octets + Field.octets), Field.lsb());
    }

    static bool write(uint8_t *octets, Value &pair) {
        if (pair.value_1 != 0 || pair.value_2 != 0) {
            pair.raw_1 = Field.raw_of(pair.value_1);
            pair.raw_2 = Field.raw_of(pair.value_2);
        }
        return Field.write(octets, pair.raw_1) && Field.write(octets + Field.octets, pair.raw_2);
    }
};

} // namespace ast
