// Numbers as digits, whatever the host's locale is.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ast {

// Room for any double with kMaxDecimals decimals.
constexpr size_t kNumberChars = 352;
constexpr uint64_t kMaxDecimals = 32;

// Room for any integer, in base 8.
constexpr size_t kIntegerChars = 22;

// Write the digits of a number at text, without a terminator, and return how many characters they are. The base is 8,
// 10 or 16; zeros stand before fewer digits than asked for. A double is rounded half to even on its exact value, as
// printf does; one that is no number is "inf" or "nan".
size_t write_digits(char *text, uint64_t number, unsigned base, bool upper_case, size_t least_digits = 1);
size_t write_decimals(char *text, double magnitude, uint64_t decimals);

// Reads a decimal number after blanks and an optional sign, with a point and a power of ten where there are any, up to
// the first character that does not belong to it; 0 for none. Exact as far as 15 digits.
double parse_decimal(const char *text);

} // namespace ast
