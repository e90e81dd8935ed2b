#include "ask/filter.hpp"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <stdexcept>

#include "ask/keywords.hpp"

namespace ast::recording {

namespace {

constexpr double kFeetOfFlightLevel = 100;

// The keywords whose values are more than a text.
struct Quantity {
    uint32_t keyword;
    Notation notation;
    const char *description;
};

constexpr Quantity kQuantities[] = {
    {AST_KEYWORD_SACSIC, Notation::source, "SAC/SIC, such as 25/12, or as one number, 25012"},
    {AST_KEYWORD_TIMEOFDAY, Notation::clock, "hours, minutes and seconds, such as 12:00:01.5"},
    {AST_KEYWORD_TRACKNUM, Notation::decimal, "a decimal number"},
    {AST_KEYWORD_SQUAWK, Notation::octal, "octal digits"},
    {AST_KEYWORD_FLIGHTLEVEL, Notation::decimal, "hundreds of feet"},
    {AST_KEYWORD_SELALTITUDE, Notation::decimal, "feet"},
    {AST_KEYWORD_ICAOADDR, Notation::hexadecimal, "hexadecimal digits"},
    {AST_KEYWORD_SPEED, Notation::decimal, "knots"},
    {AST_KEYWORD_VRATE, Notation::decimal, "feet per minute"},
};
constexpr Quantity kWord = {0, Notation::text, "a word, to be compared by = and !="};

const Quantity &quantity_of(uint32_t keyword) {
    const auto *const found = std::ranges::find(kQuantities, keyword, &Quantity::keyword);
    return found == std::end(kQuantities) ? kWord : *found;
}

// ---- Conditions on keywords ----

bool is_present(const ast_datarecord_t &record, uint32_t keyword) {
    return ast_datarecord_contain_keyword(&record, keyword) || !keyword_text(record, keyword).empty();
}

// What is known of a code stands behind its digits.
std::string_view octal_digits(std::string_view text) { return text.substr(0, text.find_first_not_of("01234567")); }

bool meets(const ast_datarecord_t &record, uint32_t keyword, const Comparison &comparison) {
    if (!comparison.asks_for_value()) return is_present(record, keyword);
    if (keyword == AST_KEYWORD_FLIGHTLEVEL) {
        const ast_quantity_t level = ast_datarecord_get_flightlevel(&record);
        return level.valid && comparison.meets(level.value / kFeetOfFlightLevel, 0);
    }
    std::string_view text = keyword_text(record, keyword);
    if (keyword == AST_KEYWORD_SQUAWK) text = octal_digits(text);
    if (text.empty()) return false;
    const Notation notation = quantity_of(keyword).notation;
    return notation == Notation::text ? comparison.meets_text(text) : comparison.meets_digits(text, notation);
}

// ---- Conditions on published fields ----

// How values of a field are compared. A raw field of 24 bits or more is octets.
constexpr uint32_t kOctetsBits = 24;

Notation notation_of(const ast_field_t &field) {
    switch (field.kind) {
    case AST_FIELD_OCTAL:
        return Notation::octal;
    case AST_FIELD_RAW:
        return field.bits >= kOctetsBits ? Notation::hexadecimal : Notation::decimal;
    case AST_FIELD_ASCII:
    case AST_FIELD_ICAO:
    case AST_FIELD_EXPLICIT:
        return Notation::text;
    default:
        return Notation::decimal;
    }
}

// A field of so many seconds takes a time of day, and a code its text.
bool takes_clock(const ast_field_t &field) { return std::string_view(field.unit) == "s"; }
bool takes_text(const ast_field_t &field) { return field.kind == AST_FIELD_CODE; }

bool can_meet(const ast_field_t &field, const Comparison &comparison) {
    return comparison.fits(notation_of(field)) || (takes_clock(field) && comparison.fits(Notation::clock)) ||
           (takes_text(field) && comparison.fits(Notation::text));
}

// Values of a quantity stand for what lies half a step around them.
double tolerance_of(const ast_field_t &field) {
    const bool is_whole = field.numerator == field.denominator;
    return is_whole ? 0 : static_cast<double>(field.numerator) / static_cast<double>(field.denominator) / 2;
}

bool meets(const ast_field_value_t &value, const Comparison &comparison) {
    const ast_field_t &field = *value.field;
    const Notation notation = notation_of(field);
    std::string_view text = value.text;
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (notation == Notation::text) return comparison.meets_text(text);
    if (notation != Notation::decimal) return comparison.meets_digits(text, notation);
    const double number = value.has_number ? value.number : static_cast<double>(value.raw);
    if (comparison.fits(Notation::decimal)) return comparison.meets(number, tolerance_of(field));
    if (takes_clock(field)) return comparison.meets(number, tolerance_of(field), Notation::clock);
    return takes_text(field) && comparison.meets_text(text);
}

bool meets(const ast_datarecord_t &record, const FieldPath &path, const Comparison &comparison) {
    if (!comparison.asks_for_value()) return path.is_in(record);
    bool any = false;
    path.each_value(record, [&](const ast_field_value_t &value) { any = any || meets(value, comparison); });
    return any;
}

// ---- Reading ----

[[noreturn]] void refuse(const std::string &what) { throw std::invalid_argument("--where: " + what); }

Condition keyword_condition(const std::string &name, const Comparison &comparison) {
    const auto keyword = find_keyword(name);
    if (!keyword) refuse("'" + name + "' is none of " + keyword_names() + ", nor a path such as I070/MODE3A");
    const Quantity &quantity = quantity_of(*keyword);
    if (!comparison.fits(quantity.notation))
        refuse("'" + comparison.value() + "' is no value of " + name + ", which is " + quantity.description);
    return {*keyword, comparison, name, {}};
}

Condition path_condition(const std::string &name, const FieldPath &path, const Comparison &comparison) {
    if (comparison.asks_for_value() && path.fields().empty())
        refuse("'" + name + "' has no value of its own but holds fields that have");
    if (comparison.asks_for_value() &&
        std::ranges::none_of(path.fields(), [&](const ast_field_t &field) { return can_meet(field, comparison); }))
        refuse("'" + comparison.value() + "' is no value that " + name + " can be compared with");
    return {path, comparison, name, {}};
}

} // namespace

Condition read_condition(const std::string &text) try {
    const size_t end = std::min(text.find_first_of("=<>!"), text.size());
    const std::string name = text.substr(0, end);
    const Comparison comparison(std::string_view(text).substr(end));
    const auto path = FieldPath::read(name);
    Condition condition = path ? path_condition(name, *path, comparison) : keyword_condition(name, comparison);
    condition.text = text;
    return condition;
} catch (const std::invalid_argument &error) {
    if (std::string_view(error.what()).starts_with("--where")) throw;
    refuse(error.what());
}

bool holds_what(const ast_datarecord_t &record, const Condition &condition) {
    if (const auto *const path = std::get_if<FieldPath>(&condition.what)) return path->is_in(record);
    return is_present(record, std::get<uint32_t>(condition.what));
}

bool names_category(const Condition &condition) {
    const auto *const path = std::get_if<FieldPath>(&condition.what);
    return path && path->category();
}

void select_records(RecordSet &selected, const SplitBlock &block, const std::vector<Condition> &conditions) {
    if (conditions.empty()) return selected.set_all(block.record_count);
    selected.set(block.record_count, [&](uint64_t i) {
        return std::ranges::all_of(conditions, [&](const Condition &condition) {
            return std::visit([&](const auto &what) { return meets(block.records[i], what, condition.comparison); },
                              condition.what);
        });
    });
}

void ConditionCoverage::look(const SplitBlock &block, const std::vector<Condition> &conditions) {
    found_.resize(conditions.size());
    if (block.record_count == 0) return;
    seen_.set(block.category);
    for (size_t i = 0; i < conditions.size(); ++i) {
        if (found_[i].test(block.category)) continue;
        for (uint64_t r = 0; r < block.record_count && !found_[i].test(block.category); ++r)
            found_[i].set(block.category, holds_what(block.records[r], conditions[i]));
    }
}

ConditionCoverage &ConditionCoverage::operator|=(const ConditionCoverage &other) {
    seen_ |= other.seen_;
    found_.resize(std::max(found_.size(), other.found_.size()));
    for (size_t i = 0; i < other.found_.size(); ++i) found_[i] |= other.found_[i];
    return *this;
}

std::vector<std::string> ConditionCoverage::complaints(const std::vector<Condition> &conditions) const {
    std::vector<std::string> lines;
    for (size_t i = 0; i < found_.size(); ++i) {
        if (names_category(conditions[i])) continue;
        std::string categories;
        for (unsigned category = 0; category < seen_.size(); ++category) {
            if (!seen_.test(category) || found_[i].test(category)) continue;
            char number[8];
            std::snprintf(number, sizeof number, "%03u", category);
            categories.append(categories.empty() ? "" : ", ").append(number);
        }
        if (!categories.empty())
            lines.push_back("--where " + conditions[i].text + ": no record of category " + categories + " has " +
                            conditions[i].name);
    }
    return lines;
}

} // namespace ast::recording
