// Values that users ask for, and how those of records compare with them.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace ast::recording {

enum class Operator { exists, equal, unequal, less, at_most, more, at_least };

// How a value is written.
enum class Notation { text, decimal, octal, hexadecimal, clock, source, moment };

class Comparison {
public:
    // Takes "", or an operator with the value behind it, "=KLM*" or ">=350". Throws std::invalid_argument for an
    // operator that there is not, and one without a value.
    explicit Comparison(std::string_view text);

    bool asks_for_value() const { return operator_ != Operator::exists; }
    const std::string &value() const { return value_; }

    // Whether values of that notation can be compared.
    bool fits(Notation notation) const;

    // A number equals those that are less than the tolerance away.
    bool meets(double number, double tolerance, Notation notation = Notation::decimal) const;

    // Whether any of the texts, or with != none of them. No text meets nothing.
    bool meets_any_text(std::initializer_list<std::string_view> texts) const;

    // "*" in what is asked for stands for any characters, "?" for one; letters of either case are the same.
    bool meets_text(std::string_view text) const;

    // Digits of octal or hexadecimal notation, or "025/012", by their number, but for wildcards.
    bool meets_digits(std::string_view digits, Notation notation) const;

private:
    bool is_ordered() const { return operator_ > Operator::unequal; }

    Operator operator_ = Operator::exists;
    std::string value_;
    bool is_pattern_ = false;
    std::optional<double> numbers_[7]; // by notation
};

// The number that a text gives in a notation; nothing for none, and for text.
std::optional<double> number_in(std::string_view text, Notation notation);

} // namespace ast::recording
