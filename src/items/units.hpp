// Physical values as the whole units that a field carries.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "ast.h"
#include "core/bits.hpp"

namespace ast {

constexpr double kFullCircleDeg = 360;
constexpr double kHalfCircleDeg = 180;
constexpr double kMetresPerNm = 1852;
constexpr double kMetresPerFoot = 0.3048;

// Resolutions that many items have. A level is in quarters of 100 ft.
constexpr double kLevelLsbFl = 0.25;
constexpr int32_t kLevelLsbFt = 25;
constexpr double kLevelLsbM = 7.62;
constexpr double kSpeedUnitsPerNmPerS = 1 << 14; // the fine one, 0.22 kt
constexpr double kFineSpeedLsbKt = 3600 / kSpeedUnitsPerNmPerS;
constexpr double kLowPositionUnits = 1 << 23; // per half circle
constexpr double kLowPositionLsbDeg = kHalfCircleDeg / kLowPositionUnits;

// A number of units cut off towards zero, as far as 32 bits reach; what is no number is the least.
inline int32_t whole_units(double units) {
    if (!(units > std::numeric_limits<int32_t>::min())) return std::numeric_limits<int32_t>::min();
    if (units >= std::numeric_limits<int32_t>::max()) return std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(units);
}

// The low 32 bits of a number of units, cut off towards zero; 0 for one that 32 bits do not hold.
inline uint32_t low_bits(double units) {
    return units > -2147483649.0 && units < 4294967296.0 ? static_cast<uint32_t>(static_cast<int64_t>(units)) : 0;
}

inline int32_t rounded_units(double units) { return whole_units(std::round(units)); }

// Whether a raw value fits an unsigned field of so many bits.
constexpr bool fits(int64_t raw, unsigned width) { return raw >= 0 && raw < INT64_C(1) << width; }

// The same for a field in two's complement.
constexpr bool fits_signed(int64_t raw, unsigned width) { return fits(raw + (INT64_C(1) << (width - 1)), width); }

// The same for one with a sign of some rule, as the encoders of positions and levels write it.
constexpr bool fits(int64_t raw, unsigned width, Sign sign) {
    if (sign == Sign::TwosComplement) return fits_signed(raw, width);
    if (sign == Sign::MagnitudeLessMaximum) return fits(raw < 0 ? -raw : raw, width - 1);
    return fits(raw, width);
}

// A flag of a caller's record, whatever its octet holds.
inline bool is_set(const bool &flag) { return reinterpret_cast<const unsigned char &>(flag) != 0; }

// A pair of fields of one scale.
inline ast_value_pair_t scaled_pair(int32_t raw_1, int32_t raw_2, double lsb) {
    return {.valid = true, .raw_1 = raw_1, .raw_2 = raw_2, .value_1 = raw_1 * lsb, .value_2 = raw_2 * lsb};
}

} // namespace ast
