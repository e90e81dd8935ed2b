// Replies of two octets: codes of four octal digits, which are three flags and twelve bits for the digits; and Mode C
// levels, which are two flags and fourteen bits.
#pragma once

#include "core/bits.hpp"
#include "items/units.hpp"
#include "view/view_writer.hpp"

namespace ast {

inline constexpr char kNotValidated[] = " NOT_VALIDATED";
inline constexpr char kGarbled[] = " GARBLED";
inline constexpr char kSmoothed[] = " SMOOTHED";

// The rows in which detail views show the flags, the third one under its own name, and the digits.
inline void write_code_flags(DetailTable &table, bool not_validated, bool garbled, const char *third, bool third_flag) {
    table.row("Bit[0]", "NOT_VALIDATED", Cell<2>("%d", not_validated));
    table.row("Bit[1]", "GARBLED", Cell<2>("%d", garbled));
    table.row("Bit[2]", third, Cell<2>("%d", third_flag));
    table.row("Bit[3]", "SPARE", "0");
}

inline void write_code_digits(DetailTable &table, uint32_t code) {
    table.row("Bit[4-6]", "CODE-A", Cell<2>("%o", bits(code, 12, 10)));
    table.row("Bit[7-9]", "CODE-B", Cell<2>("%o", bits(code, 9, 7)));
    table.row("Bit[10-12]", "CODE-C", Cell<2>("%o", bits(code, 6, 4)));
    table.row("Bit[13-15]", "CODE-D", Cell<2>("%o", bits(code, 3, 1)));
}

inline void summarize_level(TextWriter &out, int32_t quarter_levels, bool not_validated, bool garbled) {
    constexpr int32_t kUnitsPerLevel = 4;
    out.print("MODE_C:%04d%s%s", quarter_levels / kUnitsPerLevel, shown_if(not_validated, kNotValidated),
              shown_if(garbled, kGarbled));
}

inline void write_level(DetailTable &table, int32_t quarter_levels, bool not_validated, bool garbled) {
    constexpr char kBits[] = "Bit[2-15]";
    table.row("Bit[0]", "NOT_VALIDATED", Cell<10>("%d", not_validated));
    table.row("Bit[1]", "GARBLED", Cell<10>("%d", garbled));
    table.row(kBits, "FLIGHT_LEVEL (LSB=1/4FL)", Cell<10>("%d", quarter_levels));
    table.row(kBits, "FLIGHT_LEVEL (LSB=FL)", Cell<10>("%.2f", quarter_levels * kLevelLsbFl));
    table.row(kBits, "FLIGHT_LEVEL (LSB=FT)", Cell<10>("%.2f", static_cast<double>(quarter_levels * kLevelLsbFt)));
    table.row(kBits, "FLIGHT_LEVEL (LSB=M)", Cell<10>("%.2f", quarter_levels * kLevelLsbM));
}

// Writes the low twelve bits of a code behind its flags; refuses one that is negative as a signed number.
inline bool write_code(uint8_t *octets, uint32_t code, bool not_validated, bool garbled, bool third_flag) {
    write_u16(octets, code);
    octets[0] = static_cast<uint8_t>(placed(not_validated, 8) | placed(garbled, 7) | placed(third_flag, 6) |
                                     placed(octets[0], 4, 1));
    return code <= INT32_MAX;
}

} // namespace ast
