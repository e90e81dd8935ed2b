#include "ask/condition.hpp"

#include <array>
#include <cmath>
#include <iterator>

#include "ask/field_values.hpp"
#include "ask/suggestion.hpp"
#include "ask/units.hpp"
#include "base/letters.hpp"
#include "base/nearest.hpp"

namespace ast::recording {

namespace {

// ---- Quantities ----

struct FormNotation {
    QuantityForm form;
    Notation notation;
    const char *description;
};

constexpr FormNotation kNotations[] = {
    {QuantityForm::decimal, Notation::decimal, "a number"},
    {QuantityForm::whole, Notation::decimal, "a whole number"},
    {QuantityForm::octal, Notation::octal, "octal digits, 0000 to 7777"},
    {QuantityForm::hexadecimal, Notation::hexadecimal, "hexadecimal digits, 000000 to FFFFFF"},
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

const FieldPath &message_type() {
    static const auto path = FieldPath::read("I000");
    return *path;
}

// What the document of a category calls its message type.
std::string_view message_text(const ast_datarecord_t &record, char (&text)[kCodeTextRoom]) {
    text[0] = '\0';
    message_type().each_value(record,
                              [&](const ast_field_value_t &value) { code_text(*value.field, value.raw, text); });
    return text;
}

bool is_in(const QuantityCondition &condition, Answerer &answerer) {
    const ast_answers_t &answers = answerer.answers();
    const auto has = [&](const Quantity *quantity) { return quantity->is_in(answers); };
    if (condition.asked.quantities.size() == 1) return has(condition.asked.quantities.front());
    return std::ranges::any_of(condition.asked.quantities, has) ||
           ast_datarecord_contain_keyword(&answerer.record(), *condition.keyword);
}

bool meets_source(const ast_answers_t &answers, const Values &values) {
    constexpr uint64_t kSource = AST_ANSWER_SAC | AST_ANSWER_SIC;
    if ((answers.present & kSource) != kSource) return false;
    char text[kQuantityRoom];
    CellWriter writer(text);
    writer.source(answers.sac, answers.sic);
    return values.meet([&](const Value &value) {
        return value.comparison.meets_digits({text, writer.size()}, Notation::source);
    });
}

bool meets_texts(const QuantityCondition &condition, Answerer &answerer) {
    char of_keyword[kKeywordRoom];
    char of_answer[kQuantityRoom];
    char of_message[kCodeTextRoom];
    std::string_view answer, keyword, message;
    const Quantity &first = *condition.asked.quantities.front();
    if (first.is_text() && first.is_in(answerer.answers())) answer = text_of(first, answerer.answers(), of_answer);
    if (condition.keyword) keyword = keyword_text(answerer.record(), *condition.keyword, of_keyword);
    if (first.form == QuantityForm::word) message = message_text(answerer.record(), of_message);
    if (answer.empty() && keyword.empty() && message.empty()) return false;
    return condition.values.meet([&](const Value &value) {
        return value.comparison.meets_any_text({answer, short_type(answer), keyword, message, short_type(message)});
    });
}

bool meets(const QuantityCondition &condition, Answerer &answerer) {
    if (condition.values.any()) return is_in(condition, answerer);
    if (condition.notation == Notation::text) return meets_texts(condition, answerer);
    const ast_answers_t &answers = answerer.answers();
    if (condition.notation == Notation::source) return meets_source(answers, condition.values);
    const Quantity &quantity = *condition.asked.quantities.front();
    if (!quantity.is_in(answers)) return false;
    if (quantity.is_text()) {
        char text[kQuantityRoom];
        const std::string_view digits = text_of(quantity, answers, text);
        return condition.values.meet(
            [&](const Value &value) { return value.comparison.meets_digits(digits, condition.notation); });
    }
    const double number = quantity.shown_number(answers);
    const double tolerance = quantity.step() / 2;
    if (condition.notation != Notation::decimal)
        return condition.values.meet(
            [&](const Value &value) { return value.comparison.meets(number, tolerance, condition.notation); });
    return condition.values.meet(
        [&](const Value &value) { return value.comparison.meets_measure(number, tolerance, quantity.unit); });
}

// ---- Published fields ----

// By its number, digits or characters, and not by the text of a code.
bool fits(const Comparison &comparison, const ast_field_t &field) {
    return comparison.fits(notation_of(field), field.unit) || (takes_clock(field) && comparison.fits(Notation::clock));
}

// Values of a quantity stand for what lies half a step around them.
double tolerance_of(const ast_field_t &field) {
    const bool is_whole = field.numerator == field.denominator;
    return is_whole ? 0 : static_cast<double>(field.numerator) / static_cast<double>(field.denominator) / 2;
}

bool meets_code(const Value &asked, const ast_field_value_t &value) {
    for (const Value::Codes &known : asked.codes)
        if (known.texts == value.field->texts)
            return value.raw < known.codes.size() && known.codes.test(static_cast<size_t>(value.raw));
    char text[kCodeTextRoom];
    return asked.comparison.meets_text(code_text(*value.field, value.raw, text));
}

bool meets(const Value &asked, const ast_field_value_t &value) {
    const ast_field_t &field = *value.field;
    const Comparison &comparison = asked.comparison;
    const Notation notation = notation_of(field);
    std::string_view text = value.text;
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (notation == Notation::text) return comparison.meets_text(text);
    if (notation != Notation::decimal) return comparison.meets_digits(text, notation);
    const double number = value.has_number ? value.number : static_cast<double>(value.raw);
    if (comparison.fits(Notation::decimal, field.unit))
        return comparison.meets_measure(number, tolerance_of(field), field.unit);
    if (takes_clock(field)) return comparison.meets(number, tolerance_of(field), Notation::clock);
    return takes_text(field) && meets_code(asked, value);
}

bool is_in(const FieldCondition &condition, Answerer &answerer) { return condition.path.is_in(answerer.record()); }

bool meets(const FieldCondition &condition, Answerer &answerer) {
    if (condition.values.any()) return is_in(condition, answerer);
    bool any = false;
    condition.path.each_value(answerer.record(), [&](const ast_field_value_t &value) {
        any = any || condition.values.meet([&](const Value &asked) { return meets(asked, value); });
    });
    return any;
}

// ---- Places ----

constexpr uint64_t kPosition = AST_ANSWER_LATITUDE | AST_ANSWER_LONGITUDE;

bool is_in(const PlaceCondition &, Answerer &answerer) { return (answerer.answers().present & kPosition) == kPosition; }

bool meets(const PlaceCondition &condition, Answerer &answerer) {
    if (!is_in(condition, answerer)) return false;
    const ast_answers_t &answers = answerer.answers();
    if (const auto *const circle = std::get_if<Circle>(&condition.where))
        return circle->contains(answers.latitude_deg, answers.longitude_deg);
    return std::get<std::shared_ptr<const Area>>(condition.where)
        ->contains(answers.latitude_deg, answers.longitude_deg);
}

// ---- Reading ----

std::string in_quotes(const std::string &text) { return '\'' + text + '\''; }

struct QuantityRange {
    std::string_view name;
    Range range;
};

constexpr QuantityRange kRanges[] = {
    {"category", {0, 255}},    {"sac", {0, 255}},       {"sic", {0, 255}},          {"squawk", {0, 07777}},
    {"icao24", {0, 0xFFFFFF}}, {"latitude", {-90, 90}}, {"longitude", {-180, 180}}, {"spi", {0, 1}},
    {"emergency", {0, 1}},     {"on_ground", {0, 1}},   {"simulated", {0, 1}},
};

// Both ends of a range that goes down lead over midnight, or over the north.
bool find_wrap(const Comparison &first, const Comparison &last, Notation notation, std::string_view unit,
               const WrittenValue &written) {
    const auto &from = first.number(notation);
    const auto &to = last.number(notation);
    if (!from || !to || *from <= *to) return false;
    if (notation == Notation::clock || unit_factor(unit, "deg")) return true;
    throw Mistake("the range ends before it begins", written.whole.place);
}

// Reads what is written as one value, or as both ends of a range where these can be compared by size.
template <typename Check>
Span read_span(const WrittenValue &written, Operator means, bool is_range, Check check) {
    if (!is_range) {
        Comparison comparison(means, written.whole.text);
        check(comparison, written.whole);
        return {.first = {std::move(comparison)}};
    }
    const auto &[low, high] = *written.ends;
    Comparison first(Operator::at_least, low.text);
    Comparison last(Operator::at_most, high.text);
    if (first.unit().empty() && !last.unit().empty() && first.number(Notation::decimal)) first.set_unit(last.unit());
    check(first, low);
    check(last, high);
    return {.first = {std::move(first)}, .last = {{std::move(last)}}};
}

Condition quantity_condition(const Word &name) {
    QuantityName asked = find_quantities(name.text);
    if (asked.quantities.empty())
        throw Mistake(in_quotes(name.text) + " is no quantity, nor a path such as I070/MODE3A" + suggestion(name.text),
                      name.place);
    const auto *const form = std::ranges::find(kNotations, asked.quantities.front()->form, &FormNotation::form);
    const auto *const text = std::ranges::find(kTexts, name.text, &TextName::name);
    const bool has_text = text != std::end(kTexts);
    if (asked.quantities.front()->form == QuantityForm::word) message_type(); // or a record would have it found
    return {QuantityCondition{.asked = std::move(asked),
                              .notation = has_text ? text->notation : form->notation,
                              .keyword = has_text ? std::optional(text->keyword) : std::nullopt},
            name.text};
}

void set_values(QuantityCondition &condition, const Word &name, const WrittenValues &written) {
    const Quantity &quantity = *condition.asked.quantities.front();
    const Notation notation = condition.notation;
    const bool is_number = notation == Notation::decimal;
    const auto *const text = std::ranges::find(kTexts, name.text, &TextName::name);
    const auto *const form = std::ranges::find(kNotations, quantity.form, &FormNotation::form);
    const auto *const range = std::ranges::find(kRanges, quantity.name, &QuantityRange::name);
    const bool has_text = text != std::end(kTexts);
    const std::string description =
        has_text ? text->description : with_unit(form->description, is_number ? quantity.unit : "");
    const auto check = [&](const Comparison &comparison, const Word &value) {
        if (!comparison.fits(notation, quantity.unit))
            throw Mistake(in_quotes(value.text) + " is no value of " + name.text + ", which is " + description,
                          value.place);
        const auto &number = comparison.number(notation);
        const bool is_limited = range != std::end(kRanges) && !has_text && written.means == Operator::equal;
        if (is_limited && number && !range->range.has(*number))
            throw Mistake(in_quotes(value.text) + " is no value of " + name.text + ", which is " +
                              (is_number ? range->range.text() : description),
                          value.place);
    };
    for (const WrittenValue &each : written.values) {
        const bool is_range = each.ends && notation != Notation::text;
        condition.values.is_negated = written.is_negated || (is_range && written.means == Operator::unequal);
        Span span = read_span(each, written.means, is_range, check);
        if (span.last)
            span.wraps = find_wrap(span.first.comparison, span.last->comparison, notation, quantity.unit, each);
        condition.values.spans.push_back(std::move(span));
    }
}

// ---- Texts of codes ----

constexpr size_t kCodes = 256; // of eight bits, as many as any field of codes has

bool is_text_of_any(const FieldPath &path, const Comparison &comparison) {
    bool any = false;
    for (const ast_field_t &field : path.fields())
        each_code_text(field, [&](uint64_t, std::string_view text) { any = any || is_like(text, comparison.value()); });
    return any;
}

// The codes that a text stands for. One that is none of them by itself stands for those that have it within. Throws for
// a text that no code has.
std::vector<Value::Codes> find_codes(const FieldPath &path, Operator means, const Word &name, const Word &value) {
    Comparison comparison(means, value.text);
    if (!is_text_of_any(path, comparison)) comparison = Comparison(means, '*' + value.text + '*');
    if (!is_text_of_any(path, comparison))
        throw Mistake(in_quotes(value.text) + " is no text of " + name.text + texts_of(path), value.place);
    std::vector<Value::Codes> all;
    for (const ast_field_t &field : path.fields()) {
        if (!takes_text(field)) continue;
        Value::Codes codes{.texts = field.texts, .codes = {}};
        char text[kCodeTextRoom];
        for (size_t code = 0; code < kCodes; ++code)
            codes.codes.set(code, comparison.meets_text(code_text(field, code, text)));
        all.push_back(codes);
    }
    return all;
}

void check_range(const FieldPath &path, const Comparison &comparison, const Word &name, const Word &value) {
    std::optional<Range> widest;
    for (const ast_field_t &field : path.fields()) {
        if (!fits(comparison, field)) continue;
        const Notation notation = notation_of(field);
        const auto &number = comparison.number(notation);
        const auto range = range_of(field);
        if (!number || !range || range->has(*number)) return;
        if (notation != Notation::decimal) return; // digits show by their number how many there can be
        if (!widest || range->most > widest->most) widest = range;
    }
    if (widest)
        throw Mistake(in_quotes(value.text) + " is no value of " + name.text + ", which is " + widest->text(),
                      value.place);
}

void set_values(FieldCondition &condition, const Word &name, const WrittenValues &written) {
    const FieldPath &path = condition.path;
    if (path.fields().empty())
        throw Mistake(in_quotes(name.text) + " has no value of its own but holds fields that have", name.place);
    const auto fits_any = [&](const Comparison &comparison) {
        return std::ranges::any_of(path.fields(), [&](const ast_field_t &field) { return fits(comparison, field); });
    };
    const bool has_codes = std::ranges::any_of(path.fields(), takes_text);
    for (const WrittenValue &each : written.values) {
        bool is_text = false;
        const auto check = [&](const Comparison &comparison, const Word &value) {
            is_text = has_codes && comparison.fits(Notation::text) && !fits_any(comparison);
            if (is_text) return;
            if (!fits_any(comparison))
                throw Mistake(in_quotes(value.text) + " is no value that " + name.text +
                                  " can be compared with: it is " + description_of(path),
                              value.place);
            if (written.means == Operator::equal) check_range(path, comparison, name, value);
        };
        const bool is_range = each.ends && fits_any(Comparison(Operator::at_least, each.ends->first.text));
        condition.values.is_negated = written.is_negated || (is_range && written.means == Operator::unequal);
        Span span = read_span(each, written.means, is_range, check);
        if (is_text) span.first.codes = find_codes(path, written.means, name, each.whole);
        if (span.last) {
            const Notation notation =
                span.first.comparison.number(Notation::clock) ? Notation::clock : notation_of(path.fields().front());
            span.wraps =
                find_wrap(span.first.comparison, span.last->comparison, notation, path.fields().front().unit, each);
        }
        condition.values.spans.push_back(std::move(span));
    }
}

// "Time of Day (s)"; fields without a title have one all the same, by their unit.
std::string meaning_text(const ast_field_t &field) {
    const std::string title = field.title;
    const std::string unit = *field.unit ? field.unit : "without unit";
    if (title.empty()) return unit;
    return *field.unit ? title + " (" + unit + ')' : title;
}

void set_values(PlaceCondition &, const Word &, const WrittenValues &) {}

} // namespace

bool Condition::asks_position() const {
    const auto *const quantity = std::get_if<QuantityCondition>(&what);
    return quantity ? quantity->asked.asks(kPosition) : std::holds_alternative<PlaceCondition>(what);
}

bool Condition::meets(Answerer &answerer) const {
    return std::visit([&](const auto &each) { return recording::meets(each, answerer); }, what);
}

bool Condition::is_in(Answerer &answerer) const {
    return std::visit([&](const auto &each) { return recording::is_in(each, answerer); }, what);
}

Condition name_condition(const Word &name) try {
    if (auto path = FieldPath::read(name.text)) return {FieldCondition{.path = std::move(*path)}, name.text};
    return quantity_condition(name);
} catch (const Mistake &) {
    throw;
} catch (const std::invalid_argument &error) {
    throw Mistake(error.what() + suggestion(name.text), name.place);
}

void set_values(Condition &condition, const Word &name, const WrittenValues &values) {
    std::visit([&](auto &what) { set_values(what, name, values); }, condition.what);
}

bool has_text(const Condition &condition, std::string_view text) {
    const auto *const field = std::get_if<FieldCondition>(&condition.what);
    bool any = false;
    if (!field || text.find(' ') == std::string_view::npos) return any; // one word has no other meaning
    for (const ast_field_t &each : field->path.fields())
        each_code_text(each, [&](uint64_t, std::string_view known) { any = any || is_same_word(known, text); });
    return any;
}

std::string ambiguity(const Condition &condition, const std::bitset<256> &categories) {
    const auto *const field = std::get_if<FieldCondition>(&condition.what);
    if (!field || field->path.category() || field->values.any()) return {};
    struct Meaning {
        const ast_field_t *field;
        std::string categories;
    };
    std::vector<Meaning> meanings;
    std::bitset<256> known;
    const auto &fields = field->path.fields();
    const Comparison &comparison = field->values.spans.front().first.comparison;
    for (size_t i = 0; i < fields.size(); ++i) {
        const uint8_t category = field->path.categories_of_fields()[i];
        const bool is_asked = categories.test(category) && !known.test(category);
        if (!is_asked || !(fits(comparison, fields[i]) || !field->values.spans.front().first.codes.empty())) continue;
        known.set(category);
        const auto same = std::ranges::find_if(meanings, [&](const Meaning &meaning) {
            return std::string_view(meaning.field->unit) == fields[i].unit &&
                   notation_of(*meaning.field) == notation_of(fields[i]);
        });
        char number[kQuantityRoom];
        CellWriter writer(number);
        writer.digits(category, 3);
        const std::string name(number, writer.size());
        if (same == meanings.end())
            meanings.push_back({&fields[i], name});
        else
            same->categories += ", " + name;
    }
    if (meanings.size() < 2) return {};
    std::string text;
    for (const Meaning &meaning : meanings)
        text += (text.empty() ? condition.name + " is " : "; ") + meaning_text(*meaning.field) + " in " +
                meaning.categories;
    return text;
}

} // namespace ast::recording
