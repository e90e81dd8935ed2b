#include "ask/comparison.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <system_error>

#include "base/numbers.hpp"
#include "base/time.hpp"

namespace ast::recording {

namespace {

constexpr double kSacStep = 1000; // a data source is compared as SAC × 1000 + SIC
constexpr double kSecondsOfMinute = 60;

// The longer ones first.
constexpr struct {
    std::string_view sign;
    Operator means;
} kOperators[] = {
    {"!=", Operator::unequal}, {"<=", Operator::at_most}, {">=", Operator::at_least},
    {"=", Operator::equal},    {"<", Operator::less},     {">", Operator::more},
};

std::optional<double> digits_in(std::string_view text, int base) {
    uint64_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return static_cast<double>(number);
}

std::optional<double> finite(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    const auto number = read_number<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

// "12:00", "12:00:01.5".
std::optional<double> clock(std::string_view text) {
    double seconds = 0;
    double unit = kSecondsOfMinute * kSecondsOfMinute;
    for (int colons = 0; colons < 3; ++colons, unit /= kSecondsOfMinute) {
        const size_t colon = std::min(text.find(':'), text.size());
        const auto part = finite(text.substr(0, colon));
        if (!part || *part < 0 || (colons != 0 && *part >= kSecondsOfMinute)) return std::nullopt;
        seconds += *part * unit;
        if (colon == text.size()) return colons == 0 ? std::nullopt : std::optional(seconds);
        text.remove_prefix(colon + 1);
    }
    return std::nullopt;
}

// "25/12", "25012".
std::optional<double> source(std::string_view text) {
    const size_t slash = text.find('/');
    if (slash == std::string_view::npos) return digits_in(text, 10);
    const auto sac = read_number<uint8_t>(text.substr(0, slash));
    const auto sic = read_number<uint8_t>(text.substr(slash + 1));
    return sac && sic ? std::optional(*sac * kSacStep + *sic) : std::nullopt;
}

// "2014-02-25T12:43:47.5Z", also without the "Z", as seconds since 1970.
std::optional<double> moment(std::string_view text) {
    constexpr double kSecondsPerNanosecond = 1e-9;
    const auto read = read_moment(text);
    if (!read || !read->day) return std::nullopt;
    return static_cast<double>(*read->day * kSecondsPerDay + read->time.seconds) +
           read->time.nanoseconds * kSecondsPerNanosecond;
}

// Letters of ASCII alone, whatever the host's locale is.
char fold(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

// Goes back to the last "*", which takes one character more, where the text does not go on as the pattern does.
bool matches(std::string_view text, std::string_view pattern) {
    size_t at = 0;
    size_t p = 0;
    size_t star = std::string_view::npos;
    size_t resume = 0;
    while (at < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = at;
        } else if (p < pattern.size() && (pattern[p] == '?' || fold(pattern[p]) == fold(text[at]))) {
            ++p;
            ++at;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

} // namespace

std::optional<double> number_in(std::string_view text, Notation notation) {
    switch (notation) {
    case Notation::decimal:
        return finite(text);
    case Notation::octal:
        return digits_in(text, 8);
    case Notation::hexadecimal:
        return digits_in(text, 16);
    case Notation::clock:
        return clock(text);
    case Notation::source:
        return source(text);
    case Notation::moment:
        return moment(text);
    case Notation::text:
        break;
    }
    return std::nullopt;
}

Comparison::Comparison(std::string_view text) {
    if (text.empty()) return;
    const auto *const found =
        std::ranges::find_if(kOperators, [&](const auto &each) { return text.starts_with(each.sign); });
    if (found == std::end(kOperators))
        throw std::invalid_argument("'" + std::string(text) + "' does not begin with one of = != < <= > >=");
    operator_ = found->means;
    value_ = text.substr(found->sign.size());
    is_pattern_ = value_.find_first_of("*?") != std::string::npos;
    for (const Notation notation : {Notation::decimal, Notation::octal, Notation::hexadecimal, Notation::clock,
                                    Notation::source, Notation::moment})
        numbers_[static_cast<size_t>(notation)] = number_in(value_, notation);
}

bool Comparison::fits(Notation notation) const {
    if (!asks_for_value()) return true;
    if (notation == Notation::text) return !is_ordered() && !value_.empty();
    const bool is_digits =
        notation == Notation::octal || notation == Notation::hexadecimal || notation == Notation::source;
    return numbers_[static_cast<size_t>(notation)].has_value() || (is_digits && is_pattern_ && !is_ordered());
}

bool Comparison::meets(double number, double tolerance, Notation notation) const {
    const std::optional<double> &asked = numbers_[static_cast<size_t>(notation)];
    if (!asked) return false;
    const bool equal = number == *asked || std::abs(number - *asked) < tolerance;
    switch (operator_) {
    case Operator::exists:
        return true;
    case Operator::equal:
        return equal;
    case Operator::unequal:
        return !equal;
    case Operator::less:
        return !equal && number < *asked;
    case Operator::at_most:
        return equal || number < *asked;
    case Operator::more:
        return !equal && number > *asked;
    case Operator::at_least:
        return equal || number > *asked;
    }
    return false;
}

bool Comparison::meets_text(std::string_view text) const {
    return !is_ordered() && matches(text, value_) == (operator_ == Operator::equal);
}

bool Comparison::meets_any_text(std::initializer_list<std::string_view> texts) const {
    bool has_text = false;
    for (const std::string_view text : texts) {
        if (text.empty()) continue;
        has_text = true;
        if (meets_text(text) == (operator_ == Operator::equal)) return operator_ == Operator::equal;
    }
    return has_text && operator_ == Operator::unequal;
}

bool Comparison::meets_digits(std::string_view digits, Notation notation) const {
    if (is_pattern_) return meets_text(digits);
    const auto number = number_in(digits, notation);
    return number && meets(*number, 0, notation);
}

} // namespace ast::recording
