#include "ask/formula.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "ask/field_values.hpp"
#include "ask/units.hpp"
#include "base/letters.hpp"
#include "base/time.hpp"

namespace ast::recording {

namespace {

constexpr unsigned kMostLevels = 100; // of parentheses and signs
constexpr unsigned kBitsOfOctet = 8;
constexpr unsigned kBitsOfCharacter = 6;
constexpr char kNumber = '0';
constexpr char kPath = 'I';

bool is_part_of_name(char c) { return is_digit(c) || is_letter(c) || c == '_' || c == '[' || c == ']'; }

// Digits of octal or hexadecimal notation, as many as there are bits for.
std::optional<uint64_t> digits_in(std::string_view text, int base) {
    uint64_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

bool fits_bits(uint64_t raw, unsigned bits) { return bits >= 64 || raw >> bits == 0; }

uint64_t icao_code(char character) {
    constexpr uint64_t kBlank = 32;
    return character == ' ' ? kBlank : static_cast<uint64_t>(ast_ansi_to_icao(character));
}

// Blanks fill the rest.
std::optional<uint64_t> characters_for(const ast_field_t &field, std::string_view text) {
    const bool is_icao = field.kind == AST_FIELD_ICAO;
    const unsigned bits = is_icao ? kBitsOfCharacter : kBitsOfOctet;
    const size_t count = field.bits / bits;
    if (field.bits > 64 || text.size() > count) return std::nullopt;
    uint64_t raw = 0;
    for (size_t i = 0; i < count; ++i) {
        const char character = i < text.size() ? to_capital(text[i]) : ' ';
        const uint64_t code = is_icao ? icao_code(character) : static_cast<uint8_t>(character);
        if (character < ' ' || character > '~' || (is_icao && code == 0)) return std::nullopt;
        raw = raw << bits | code;
    }
    return raw;
}

std::optional<uint64_t> code_for(const ast_field_t &field, std::string_view text) {
    std::optional<uint64_t> found;
    each_code_text(field, [&](uint64_t code, std::string_view known) {
        if (!found && is_same_word(known, text)) found = code;
    });
    return found;
}

// A time of day that leads over midnight, of the fields that hold a whole one.
uint64_t wrapped(const ast_field_t &field, double steps) {
    const double day = static_cast<double>(kSecondsPerDay) * static_cast<double>(field.denominator) /
                       static_cast<double>(field.numerator);
    return static_cast<uint64_t>(steps - std::floor(steps / day) * day);
}

bool holds_day(const ast_field_t &field) {
    constexpr uint32_t kBits = 24;
    return takes_clock(field) && field.kind == AST_FIELD_UNSIGNED && field.bits == kBits;
}

std::optional<uint64_t> number_bits(const ast_field_t &field, double number, bool wraps) {
    const bool is_quantity = field.numerator != 0;
    const double step = is_quantity ? static_cast<double>(field.numerator) / static_cast<double>(field.denominator) : 1;
    const double steps = std::round((number - field.offset) / step);
    const bool is_whole = is_quantity || number == std::floor(number);
    const auto range = range_of(field);
    if (!std::isfinite(steps) || !is_whole || !range) return std::nullopt;
    if (wraps && holds_day(field)) return wrapped(field, steps);
    if (!range->has(steps * step + field.offset)) return std::nullopt;
    const auto raw = static_cast<uint64_t>(static_cast<int64_t>(steps));
    return raw & ((uint64_t{1} << field.bits) - 1);
}

} // namespace

// formula = product { ("+" | "-") product }; product = part { ("*" | "/") part };
// part = "-" part | "(" formula ")" | PATH | NUMBER
struct Formula::Reader {
    Formula &made;
    std::string_view text;
    size_t at = 0;
    unsigned level = 0;

    using Made = std::unique_ptr<Node>;

    [[noreturn]] void fail(const std::string &what) const {
        throw Mistake(what, {at, std::min<size_t>(1, text.size() - at)});
    }
    char next() {
        while (at < text.size() && is_blank(text[at])) ++at;
        return at < text.size() ? text[at] : '\0';
    }

    Made all() {
        Made result = sum();
        if (next() != '\0') fail("expected + - * / or the end");
        return result;
    }
    Made joined(char one, char other, Made (Reader::*operand)()) {
        Made left = (this->*operand)();
        for (char sign = next(); sign == one || sign == other; sign = next()) {
            ++at;
            Made both = std::make_unique<Node>(Node{.sign = sign});
            both->left = std::move(left);
            both->right = (this->*operand)();
            left = std::move(both);
        }
        return left;
    }
    Made sum() { return joined('+', '-', &Reader::product); }
    Made product() { return joined('*', '/', &Reader::part); }
    Made part() {
        if (++level > kMostLevels) fail("nested too deep");
        Made result = any_part();
        --level;
        return result;
    }
    Made any_part() {
        const char first = next();
        if (first == '(') {
            ++at;
            Made result = sum();
            if (next() != ')') fail("expected + - * / or )");
            ++at;
            return result;
        }
        if (first == '-') {
            ++at;
            Made result = std::make_unique<Node>(Node{.sign = '~'});
            result->left = part();
            return result;
        }
        Made path = this->path();
        return path ? std::move(path) : number();
    }
    Made path() {
        size_t end = at;
        while (end < text.size() && (is_part_of_name(text[end]) || text[end] == '/')) ++end;
        const std::string_view name = text.substr(at, end - at);
        if (!FieldPath::has_form(name)) return nullptr;
        std::optional<FieldPath> found;
        try {
            found = FieldPath::read(name);
        } catch (const std::invalid_argument &error) {
            throw Mistake(error.what(), {at, name.size()});
        }
        at = end;
        made.paths_.push_back(std::move(*found));
        return std::make_unique<Node>(Node{.sign = kPath, .number = made.paths_.size() - 1});
    }
    // Digits with colons in a time, letters in hexadecimal ones, and a unit, in which there may be a slash.
    Made number() {
        size_t end = at;
        while (end < text.size() && (is_part_of_name(text[end]) || text[end] == '.' || text[end] == ':')) ++end;
        const auto measure = read_measure(text.substr(at, end - at));
        const size_t unit = measure ? end - measure->unit.size() : end;
        for (size_t longer = std::min(unit + kLongestUnit, text.size()); longer > end; --longer)
            if (unit < end && is_unit(text.substr(unit, longer - unit))) end = longer;
        const Comparison &written = made.numbers_.emplace_back(Operator::equal, text.substr(at, end - at));
        const bool is_number = is_unit(written.unit()) || std::ranges::any_of(kNumbers, [&](Notation notation) {
                                   return written.number(notation).has_value();
                               });
        if (!is_number) fail("expected a number, or a path such as I140");
        at = end;
        return std::make_unique<Node>(Node{.sign = kNumber, .number = made.numbers_.size() - 1});
    }
    static constexpr size_t kLongestUnit = 6; // "ft/min"
    static constexpr Notation kNumbers[] = {Notation::decimal, Notation::octal, Notation::hexadecimal, Notation::clock};
};

Formula::Formula(std::string_view text) : text_(trimmed(text)) {
    const bool is_quoted =
        text_.size() >= 2 && (text_.front() == '"' || text_.front() == '\'') && text_.front() == text_.back();
    if (text_.empty()) throw Mistake("expected a value", {0, 1});
    if (is_quoted) {
        text_ = text_.substr(1, text_.size() - 2);
        return;
    }
    try {
        root_ = Reader{*this, text_}.all();
    } catch (const Mistake &mistake) {
        mistake_ = mistake;
        paths_.clear();
    }
}

std::optional<double> Formula::value_of(const Node &node, const ast_field_t &field,
                                        const ast_datarecord_t &record) const {
    if (node.sign == kNumber) {
        const Comparison &written = numbers_[node.number];
        const Notation notation = notation_of(field);
        const auto number =
            notation == Notation::decimal ? written.number_in_unit(field.unit) : written.number(notation);
        return !number && takes_clock(field) ? written.number(Notation::clock) : number;
    }
    if (node.sign == kPath) {
        std::optional<double> first;
        paths_[node.number].each_value(record, [&](const ast_field_value_t &value) {
            if (!first) first = value.has_number ? value.number : static_cast<double>(value.raw);
        });
        return first;
    }
    const auto left = value_of(*node.left, field, record);
    if (node.sign == '~') return left ? std::optional(-*left) : left;
    const auto right = value_of(*node.right, field, record);
    if (!left || !right) return std::nullopt;
    switch (node.sign) {
    case '+':
        return *left + *right;
    case '-':
        return *left - *right;
    case '*':
        return *left * *right;
    default:
        return *left / *right; // by 0 it is no number that fits
    }
}

FieldBits Formula::bits_for(const ast_field_t &field, const ast_datarecord_t &record) const {
    using Outcome = FieldBits::Outcome;
    const auto made = [&](const std::optional<uint64_t> &raw) {
        return raw && fits_bits(*raw, field.bits) ? FieldBits{Outcome::fits, *raw} : FieldBits{Outcome::unfit, 0};
    };
    const Notation notation = notation_of(field);
    if (notation == Notation::text) return made(characters_for(field, text_));
    if (takes_text(field))
        if (const auto code = code_for(field, text_)) return made(code);
    if (!root_) return {};
    if (root_->sign == kNumber && notation != Notation::decimal)
        return made(digits_in(text_, notation == Notation::octal ? 8 : 16));
    const auto number = value_of(*root_, field, record);
    if (!number) return {is_constant() ? Outcome::unfit : Outcome::unknown, 0};
    return made(number_bits(field, *number, !is_constant()));
}

} // namespace ast::recording
