// Values that users ask for, and how those of records compare with them.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace ast::recording {

enum class Operator { equal, unequal, less, at_most, more, at_least };

// How a value is written.
enum class Notation { text, decimal, octal, hexadecimal, clock, source, moment };

class Comparison {
public:
    Comparison(Operator means, std::string_view value);

    const std::string &value() const { return value_; }
    bool is_ordered() const { return operator_ > Operator::unequal; }
    bool is_pattern() const { return is_pattern_; }

    // Of the value, where it is one in that notation; as a decimal number, without a unit.
    const std::optional<double> &number(Notation notation) const { return numbers_[static_cast<size_t>(notation)]; }

    // The unit that is written behind the number, "" for none; or was to be, as behind the other end of a range.
    const std::string &unit() const { return unit_; }
    void set_unit(std::string_view unit);

    // The decimal number in that unit, whatever unit is written; nothing for a unit that measures something else.
    std::optional<double> number_in_unit(std::string_view unit) const;

    // Whether values of that notation can be compared, numbers being of that unit.
    bool fits(Notation notation, std::string_view unit = {}) const;

    // A number equals those that are less than the tolerance away.
    bool meets(double number, double tolerance, Notation notation = Notation::decimal) const;

    // The same of a number of some unit, which is compared in the one that is written, if any is.
    bool meets_measure(double number, double tolerance, std::string_view unit) const;

    // Whether any of the texts, or with != none of them. No text meets nothing.
    bool meets_any_text(std::initializer_list<std::string_view> texts) const;

    // "*" in what is asked for stands for any characters, "?" for one; letters of either case are the same.
    bool meets_text(std::string_view text) const;

    // Digits of octal or hexadecimal notation, or "025/012", by their number, but for wildcards.
    bool meets_digits(std::string_view digits, Notation notation) const;

private:
    bool compare(double number, double asked, double tolerance) const;

    Operator operator_;
    std::string value_;
    bool is_pattern_;
    std::optional<double> numbers_[7]; // by notation
    std::optional<double> measured_;   // with the unit
    std::string unit_;
};

// The number that a text gives in a notation; nothing for none, and for text.
std::optional<double> number_in(std::string_view text, Notation notation);

} // namespace ast::recording
