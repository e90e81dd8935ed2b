// Replies of two octets: codes of four octal digits, which are three flags and twelve bits for the digits; and Mode C
// levels, which are two flags and fourteen bits.
#pragma once

#include "core/bits.hpp"
#include "items/rows.hpp"

namespace ast {

inline constexpr char kNotValidated[] = " NOT_VALIDATED";
inline constexpr char kGarbled[] = " GARBLED";
inline constexpr char kSmoothed[] = " SMOOTHED";

// The row of the twelve bits, which shows their four digits.
template <typename Value>
constexpr Row<Value> code_row(uint32_t Value::*code) {
    return {code, 12, "CODE", kOctalDigits};
}

inline void summarize_level(TextWriter &out, int32_t quarter_levels, bool not_validated, bool garbled) {
    constexpr int32_t kUnitsPerLevel = 4;
    out.print("MODE_C:%04d%s%s", quarter_levels / kUnitsPerLevel, shown_if(not_validated, kNotValidated),
              shown_if(garbled, kGarbled));
}

// The row of the fourteen bits, as they are sent and in three units. Feet below -100,000 show one decimal only, for
// want of room; viewers know them so.
template <typename Value>
constexpr Row<Value> level_row(int32_t Value::*level) {
    return {level,
            {14, Sign::TwosComplement},
            "FLIGHT_LEVEL (LSB=1/4FL)",
            {kLevelLsbFl, "FLIGHT_LEVEL (LSB=FL)"},
            {kLevelLsbFt, "FLIGHT_LEVEL (LSB=FT)", 2, 10},
            {kLevelLsbM, "FLIGHT_LEVEL (LSB=M)"}};
}

// Writes the low twelve bits of a code behind its flags; refuses one that is negative as a signed number.
inline bool write_code(uint8_t *octets, uint32_t code, bool not_validated, bool garbled, bool third_flag) {
    write_u16(octets, code);
    octets[0] = static_cast<uint8_t>(placed(not_validated, 8) | placed(garbled, 7) | placed(third_flag, 6) |
                                     placed(octets[0], 4, 1));
    return code <= INT32_MAX;
}

} // namespace ast
