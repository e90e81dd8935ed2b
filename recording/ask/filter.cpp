#include "ask/filter.hpp"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "ask/answerer.hpp"

namespace ast::recording {

namespace {

// ---- Conditions on quantities ----

struct FormNotation {
    QuantityForm form;
    Notation notation;
    const char *description;
};

constexpr const char *kWord = "a word, to be compared by = and !=";

constexpr FormNotation kNotations[] = {
    {QuantityForm::decimal, Notation::decimal, "a number"},
    {QuantityForm::whole, Notation::decimal, "a whole number"},
    {QuantityForm::octal, Notation::octal, "octal digits"},
    {QuantityForm::hexadecimal, Notation::hexadecimal, "hexadecimal digits"},
    {QuantityForm::characters, Notation::text, kWord},
    {QuantityForm::word, Notation::text, kWord},
    {QuantityForm::flag, Notation::decimal, "0 or 1"},
    {QuantityForm::clock, Notation::clock, "hours, minutes and seconds, such as 12:00:01.5"},
    {QuantityForm::moment, Notation::moment, "a date and time, such as 2014-02-25T12:43:47Z"},
};

// Names whose values are also compared with the texts that the library has for them.
struct TextName {
    std::string_view name;
    Notation notation;
    uint32_t keyword;
    const char *description;
};

constexpr TextName kTexts[] = {
    {"sacsic", Notation::source, AST_KEYWORD_SACSIC, "SAC/SIC, such as 25/12, or as one number, 25012"},
    {"type", Notation::text, AST_KEYWORD_MSGTYPE, kWord},
    {"position", Notation::text, AST_KEYWORD_WGS84COORD, kWord},
    {"polar", Notation::text, AST_KEYWORD_POLARCOORD, kWord},
    {"heading", Notation::text, AST_KEYWORD_HEADING, kWord},
    {"velocity", Notation::text, AST_KEYWORD_CARTESIANVEL, kWord},
};

constexpr size_t kCodeTextRoom = 256;
constexpr size_t kKeywordRoom = 128; // more characters than the text of any keyword takes

std::string_view keyword_text(const ast_datarecord_t &record, uint32_t keyword, char (&text)[kKeywordRoom]) {
    return {text, static_cast<size_t>(
                      ast_datarecord_write_keyword(text, sizeof text, &record, keyword, AST_POSITION_DEGREES))};
}

std::string_view text_of(const Quantity &quantity, const ast_answers_t &answers, char (&text)[kQuantityRoom]) {
    CellWriter writer(text);
    quantity.write(writer, answers);
    return {text, writer.size()};
}

std::string code_text(const ast_field_value_t &value) {
    char text[kCodeTextRoom];
    ast_field_get_text(text, sizeof text, value.field, value.raw);
    return text;
}

// What the document of a category calls its message type.
std::string message_text(const ast_datarecord_t &record) {
    static const auto path = FieldPath::read("I000");
    std::string text;
    path->each_value(record, [&](const ast_field_value_t &value) { text = code_text(value); });
    return text;
}

bool is_present(Answerer &answerer, const QuantityCondition &condition) {
    const ast_answers_t &answers = answerer.answers();
    const auto is_in = [&](const Quantity *quantity) { return quantity->is_in(answers); };
    if (condition.asked.quantities.size() == 1) return is_in(condition.asked.quantities.front());
    return std::ranges::any_of(condition.asked.quantities, is_in) ||
           ast_datarecord_contain_keyword(&answerer.record(), *condition.keyword);
}

bool meets_source(const ast_answers_t &answers, const Comparison &comparison) {
    constexpr uint64_t kSource = AST_ANSWER_SAC | AST_ANSWER_SIC;
    if ((answers.present & kSource) != kSource) return false;
    char text[kQuantityRoom];
    CellWriter writer(text);
    writer.source(answers.sac, answers.sic);
    return comparison.meets_digits({text, writer.size()}, Notation::source);
}

bool meets_texts(Answerer &answerer, const QuantityCondition &condition, const Comparison &comparison) {
    char of_keyword[kKeywordRoom];
    char of_answer[kQuantityRoom];
    std::string_view answer;
    std::string message;
    const Quantity &first = *condition.asked.quantities.front();
    if (first.is_text() && first.is_in(answerer.answers())) answer = text_of(first, answerer.answers(), of_answer);
    if (!condition.keyword) return comparison.meets_any_text({answer});
    if (first.form == QuantityForm::word) message = message_text(answerer.record());
    const std::string_view keyword = keyword_text(answerer.record(), *condition.keyword, of_keyword);
    return comparison.meets_any_text({answer, short_type(answer), keyword, message, short_type(message)});
}

bool meets(Answerer &answerer, const QuantityCondition &condition, const Comparison &comparison) {
    if (!comparison.asks_for_value()) return is_present(answerer, condition);
    if (condition.notation == Notation::text) return meets_texts(answerer, condition, comparison);
    const ast_answers_t &answers = answerer.answers();
    if (condition.notation == Notation::source) return meets_source(answers, comparison);
    const Quantity &quantity = *condition.asked.quantities.front();
    if (!quantity.is_in(answers)) return false;
    if (quantity.is_text()) {
        char text[kQuantityRoom];
        return comparison.meets_digits(text_of(quantity, answers, text), condition.notation);
    }
    return comparison.meets(quantity.shown_number(answers), quantity.step() / 2, condition.notation);
}

// ---- Conditions on published fields ----

// How values of a field are compared.
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
    return takes_text(field) && comparison.meets_text(code_text(value));
}

bool meets(Answerer &answerer, const FieldPath &path, const Comparison &comparison) {
    const ast_datarecord_t &record = answerer.record();
    if (!comparison.asks_for_value()) return path.is_in(record);
    bool any = false;
    path.each_value(record, [&](const ast_field_value_t &value) { any = any || meets(value, comparison); });
    return any;
}

// ---- Reading ----

[[noreturn]] void refuse(const std::string &what) { throw std::invalid_argument("--where: " + what); }

Condition quantity_condition(const std::string &name, const Comparison &comparison) {
    QuantityName asked = find_quantities(name);
    if (asked.quantities.empty())
        refuse("'" + name + "' is none of " + quantity_names() + ", nor a path such as I070/MODE3A");
    const auto *const form = std::ranges::find(kNotations, asked.quantities.front()->form, &FormNotation::form);
    const auto *const text = std::ranges::find(kTexts, name, &TextName::name);
    const bool has_text = text != std::end(kTexts);
    const Notation notation = has_text ? text->notation : form->notation;
    if (!comparison.fits(notation))
        refuse("'" + comparison.value() + "' is no value of " + name + ", which is " +
               (has_text ? text->description : form->description));
    return {QuantityCondition{std::move(asked), notation, has_text ? std::optional(text->keyword) : std::nullopt},
            comparison,
            name,
            {}};
}

Condition path_condition(const std::string &name, const FieldPath &path, const Comparison &comparison) {
    if (comparison.asks_for_value() && path.fields().empty())
        refuse("'" + name + "' has no value of its own but holds fields that have");
    if (comparison.asks_for_value() &&
        std::ranges::none_of(path.fields(), [&](const ast_field_t &field) { return can_meet(field, comparison); }))
        refuse("'" + comparison.value() + "' is no value that " + name + " can be compared with");
    return {path, comparison, name, {}};
}

bool holds_what(Answerer &answerer, const Condition &condition) {
    if (const auto *const path = std::get_if<FieldPath>(&condition.what)) return path->is_in(answerer.record());
    return is_present(answerer, std::get<QuantityCondition>(condition.what));
}

// Whether a condition is about one category alone.
bool names_category(const Condition &condition) {
    const auto *const path = std::get_if<FieldPath>(&condition.what);
    return path && path->category();
}

} // namespace

Condition read_condition(const std::string &text) try {
    const size_t end = std::min(text.find_first_of("=<>!"), text.size());
    const std::string name = text.substr(0, end);
    const Comparison comparison(std::string_view(text).substr(end));
    const auto path = FieldPath::read(name);
    Condition condition = path ? path_condition(name, *path, comparison) : quantity_condition(name, comparison);
    condition.text = text;
    return condition;
} catch (const std::invalid_argument &error) {
    if (std::string_view(error.what()).starts_with("--where")) throw;
    refuse(error.what());
}

bool asks_position(const Condition &condition) {
    const auto *const quantity = std::get_if<QuantityCondition>(&condition.what);
    return quantity && quantity->asked.asks(AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE);
}

void select_records(DecodedBlock &decoded, const std::vector<Condition> &conditions) {
    const SplitBlock &block = *decoded.block;
    if (conditions.empty()) return decoded.shown.set_all(block.record_count);
    Answerer answerer(decoded);
    decoded.shown.set(block.record_count, [&](uint64_t i) {
        answerer.set_record(block.records[i]);
        return std::ranges::all_of(conditions, [&](const Condition &condition) {
            return std::visit([&](const auto &what) { return meets(answerer, what, condition.comparison); },
                              condition.what);
        });
    });
}

void ConditionCoverage::look(const DecodedBlock &decoded, const std::vector<Condition> &conditions) {
    const SplitBlock &block = *decoded.block;
    found_.resize(conditions.size());
    if (block.record_count == 0) return;
    seen_.set(block.category);
    Answerer answerer(decoded);
    for (size_t i = 0; i < conditions.size(); ++i) {
        if (found_[i].test(block.category)) continue;
        for (uint64_t r = 0; r < block.record_count && !found_[i].test(block.category); ++r) {
            answerer.set_record(block.records[r]);
            found_[i].set(block.category, holds_what(answerer, conditions[i]));
        }
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
