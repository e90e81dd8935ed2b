// Items that are one or two numbers of one scale.
#pragma once

#include "core/bits.hpp"
#include "items/frame.hpp"
#include "items/units.hpp"

namespace ast {

// How a field carries a quantity: its bits, its sign rule, and its LSB as a fraction of its unit.
struct FieldScale {
    unsigned width;
    Sign sign;
    uint32_t over;
    uint32_t under;

    constexpr double lsb() const { return static_cast<double>(over) / under; }
    constexpr uint16_t octets() const { return static_cast<uint16_t>(width / 8); }

    // The number as sent, so many bits behind the first one.
    constexpr int32_t read(const uint8_t *field_octets, unsigned behind = 0) const {
        return signed_number(field(field_octets, behind + 1, behind + width), width, sign);
    }
    // The same in its unit.
    constexpr double value(int32_t raw) const { return static_cast<double>(raw) * over / under; }

    // Writes the raw value of a field of one or two octets; false for one that does not fit.
    bool write(uint8_t *field_octets, int32_t raw) const {
        field_octets[0] = static_cast<uint8_t>(raw);
        if (octets() == 2) write_u16(field_octets, static_cast<uint32_t>(raw));
        return fits(raw, width, sign);
    }

    int32_t raw_of(double value) const { return rounded_units(value / lsb()); }
};

constexpr FieldScale number(unsigned width, uint32_t over, uint32_t under) { return {width, Sign::None, over, under}; }
constexpr FieldScale signed_number(unsigned width, uint32_t over, uint32_t under) {
    return {width, Sign::TwosComplement, over, under};
}

// One field. Its encoder writes the value, rounded and stored back, or the raw one beside a value of 0.
template <ast_dataitem_type_t Type, FieldScale Field>
struct ScaledItem : Item<Type, ast_scaled_value_t, fixed<Field.octets()>> {
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
struct ScaledPairItem : Item<Type, ast_value_pair_t, fixed<2 * Field.octets()>> {
    using Value = ast_value_pair_t;

    static void read(Value &pair, const uint8_t *octets) {
        pair = scaled_pair(Field.read(octets), Field.read(octets + Field.octets()), Field.lsb());
    }

    static bool write(uint8_t *octets, Value &pair) {
        if (pair.value_1 != 0 || pair.value_2 != 0) {
            pair.raw_1 = Field.raw_of(pair.value_1);
            pair.raw_2 = Field.raw_of(pair.value_2);
        }
        return Field.write(octets, pair.raw_1) && Field.write(octets + Field.octets(), pair.raw_2);
    }
};

} // namespace ast
