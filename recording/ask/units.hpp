// Units that users write behind numbers, "3000m", and those that fields and quantities have.
#pragma once

#include <optional>
#include <string_view>

namespace ast::recording {

constexpr double kMetresPerNm = 1852;

// What a number of the one unit is to be multiplied with to be one of the other: 100 from "FL" to "ft". Nothing where
// they do not measure the same, or are not known and not the same; small and capital letters do not matter.
std::optional<double> unit_factor(std::string_view from, std::string_view to);

// Whether any unit is called that.
bool is_unit(std::string_view name);

// A number with its unit behind it, blanks in between or not.
struct Measure {
    double number;
    std::string_view unit; // a part of the text; empty for none
};

// Nothing for a text that does not begin with a number, or goes on with none of the characters that a unit begins with.
std::optional<Measure> read_measure(std::string_view text);

} // namespace ast::recording
