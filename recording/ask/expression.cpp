// The grammar. Words in quotes stand as they are, in small or capital letters; blanks may stand between all parts.
//
//     expression = all { "or" all }
//     all        = one { "and" one }
//     one        = "not" one | "(" expression ")" | condition
//     condition  = [ "exists" ] NAME
//                | NAME OPERATOR value                          OPERATOR: = != < <= > >=
//                | NAME [ "not" ] "in" "(" value { "," value } ")"
//                | "within" NUMBER UNIT "of" LATITUDE "," LONGITUDE
//                | "inside" FILE
//     value      = TEXT | TEXT ".." TEXT                        a range with = and != and in lists
//
// A NAME ends at a blank, a sign of an operator, a comma or a parenthesis. A TEXT or a FILE in single or double quotes
// ends there, with \ in front of what does not end it. Without quotes it goes on, over blanks and parentheses that are
// closed again, to "and", "or", a parenthesis that it has not opened, or the end; in a list, also to a comma. What
// stands behind = to the very end and is one of the texts of the field is that text, whatever words are in it.

#include "ask/expression.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "ask/units.hpp"
#include "base/letters.hpp"
#include "base/numbers.hpp"

namespace ast::recording {

namespace {

constexpr unsigned kMostLevels = 100; // of parentheses and "not"
constexpr std::string_view kOperatorSigns = "=<>!";
constexpr std::string_view kQuotes = "\"'";
constexpr std::string_view kRange = "..";

// The longer ones first.
constexpr struct {
    std::string_view sign;
    Operator means;
} kOperators[] = {
    {"!=", Operator::unequal}, {"<=", Operator::at_most}, {">=", Operator::at_least},
    {"=", Operator::equal},    {"<", Operator::less},     {">", Operator::more},
};

bool ends_name(char c) {
    return is_blank(c) || std::string_view("(),").find(c) != std::string_view::npos ||
           kOperatorSigns.find(c) != std::string_view::npos;
}

class Reader {
public:
    Reader(std::string_view text, std::vector<Condition> &conditions) : text_(text), conditions_(conditions) {}

    Expression all_of_it() {
        Expression result = expression(0);
        if (at_ < text_.size()) fail("expected 'and', 'or' or the end");
        return result;
    }

private:
    using Kind = Expression::Kind;

    [[noreturn]] void fail(const std::string &what) const {
        throw Mistake(what, {at_, std::min<size_t>(1, text_.size() - at_)});
    }

    std::string_view rest() const { return text_.substr(at_); }

    void skip_blanks() {
        while (at_ < text_.size() && is_blank(text_[at_])) ++at_;
    }

    bool takes(char wanted) {
        skip_blanks();
        if (!rest().starts_with(wanted)) return false;
        ++at_;
        return true;
    }

    // The name that begins at a place; empty for none.
    std::string_view name_at(size_t place) const {
        const std::string_view from = text_.substr(place);
        return from.substr(0, static_cast<size_t>(std::ranges::find_if(from, ends_name) - from.begin()));
    }

    bool takes_word(std::string_view wanted) {
        skip_blanks();
        if (!is_same_word(name_at(at_), wanted)) return false;
        at_ += wanted.size();
        return true;
    }

    // Whether a word is followed by another one, and by no operator: such a word is no name of a quantity.
    bool takes_word_of_condition(std::string_view wanted) {
        const size_t before = at_;
        if (takes_word(wanted)) {
            skip_blanks();
            if (at_ < text_.size() && kOperatorSigns.find(text_[at_]) == std::string_view::npos) return true;
        }
        at_ = before;
        return false;
    }

    // ---- What joins conditions ----

    template <typename Part>
    Expression joined(Kind kind, std::string_view word, Part part) {
        Expression first = part();
        if (!takes_word(word)) return first;
        Expression result{.kind = kind};
        result.parts.push_back(std::move(first));
        do result.parts.push_back(part());
        while (takes_word(word));
        return result;
    }

    Expression expression(unsigned level) {
        Expression result =
            joined(Kind::any, "or", [&] { return joined(Kind::all, "and", [&] { return one(level); }); });
        skip_blanks();
        return result;
    }

    Expression one(unsigned level) {
        if (level > kMostLevels) fail("nested too deep");
        if (takes_word("not")) {
            Expression result{.kind = Kind::none};
            result.parts.push_back(one(level + 1));
            return result;
        }
        if (takes('(')) {
            Expression result = expression(level + 1);
            if (!takes(')')) fail("expected 'and', 'or' or )");
            return result;
        }
        const size_t place = conditions_.size();
        conditions_.push_back(condition());
        return {.kind = Kind::condition, .condition = place};
    }

    // ---- One condition ----

    Condition condition() {
        if (takes_word_of_condition("within")) return within();
        if (takes_word_of_condition("inside")) return inside();
        if (takes_word_of_condition("exists")) return name_condition(name());
        const Word written = name();
        Condition result = name_condition(written);
        const auto means = compares();
        if (means) {
            set_value(result, written, *means);
            return result;
        }
        const size_t before = at_;
        const bool is_negated = takes_word("not");
        if (takes_word("in"))
            set_values(result, written, is_negated);
        else
            at_ = before;
        return result;
    }

    Word name() {
        skip_blanks();
        const std::string_view found = name_at(at_);
        if (found.empty()) fail("expected a condition, such as squawk=7700");
        const Word result{std::string(found), {at_, found.size()}};
        at_ += found.size();
        return result;
    }

    std::optional<Operator> compares() {
        skip_blanks();
        for (const auto &[sign, means] : kOperators) {
            if (!rest().starts_with(sign)) continue;
            at_ += sign.size();
            return means;
        }
        if (rest().starts_with('!'))
            throw Mistake('\'' + std::string(rest()) + "' does not begin with one of = != < <= > >=", {at_, 1});
        return std::nullopt;
    }

    // The one behind an operator.
    void set_value(Condition &condition, const Word &name, Operator means) {
        skip_blanks();
        const std::string_view all = trimmed(rest());
        const bool has_order = means > Operator::unequal;
        const bool is_all = !has_order && has_text(condition, all);
        WrittenValue written = is_all ? WrittenValue{{std::string(all), {at_, all.size()}}} : value(false);
        if (is_all) at_ = text_.size();
        if (has_order) written.ends.reset();
        recording::set_values(condition, name, {.means = means, .is_negated = false, .values = {std::move(written)}});
    }

    void set_values(Condition &condition, const Word &name, bool is_negated) {
        WrittenValues written{.means = Operator::equal, .is_negated = is_negated, .values = {}};
        if (!takes('(')) fail("expected (, and values behind it");
        do written.values.push_back(value(true));
        while (takes(','));
        if (!takes(')')) fail("expected , or )");
        recording::set_values(condition, name, written);
    }

    // ---- Values ----

    WrittenValue value(bool is_in_list) {
        skip_blanks();
        if (at_ < text_.size() && kQuotes.find(text_[at_]) != std::string_view::npos) return {quoted()};
        const Word whole = unquoted(is_in_list);
        const size_t dots = whole.text.find(kRange);
        if (dots == std::string::npos) return {whole};
        const auto part = [&](size_t from, size_t to) {
            const std::string_view all = std::string_view(whole.text).substr(from, to - from);
            const std::string_view text = trimmed(all);
            const auto before = static_cast<size_t>(text.data() - whole.text.data());
            return Word{std::string(text), {whole.place.at + (text.empty() ? from : before), text.size()}};
        };
        return {whole, std::pair(part(0, dots), part(dots + kRange.size(), whole.text.size()))};
    }

    Word quoted() {
        const size_t begin = at_;
        const char quote = text_[at_];
        Word result;
        for (++at_; at_ < text_.size() && text_[at_] != quote; ++at_) {
            if (text_[at_] == '\\' && at_ + 1 < text_.size()) ++at_;
            result.text += text_[at_];
        }
        if (at_ == text_.size()) throw Mistake("the quotes are not closed", {begin, 1});
        ++at_;
        result.place = {begin, at_ - begin};
        return result;
    }

    // Whether a word stands here that goes on with the expression.
    bool joins(size_t place) const {
        if (place == 0 || !is_blank(text_[place - 1])) return false;
        const std::string_view word = name_at(place);
        const size_t end = place + word.size();
        const bool is_whole = end == text_.size() || is_blank(text_[end]) || text_[end] == '(';
        return is_whole && (is_same_word(word, "and") || is_same_word(word, "or"));
    }

    Word unquoted(bool is_in_list) {
        skip_blanks();
        const size_t begin = at_;
        size_t open = 0;
        bool has_blank = false;
        for (; at_ < text_.size(); ++at_) {
            const char c = text_[at_];
            if (open == 0 && (c == ')' || (is_in_list ? c == ',' : joins(at_)))) break;
            if (c == '(') ++open;
            if (c == ')') --open;
            has_blank = has_blank || is_blank(c);
            if (has_blank && kOperatorSigns.find(c) != std::string_view::npos)
                fail("expected 'and' or 'or' in front of another condition; a text with blanks and signs stands in "
                     "quotes");
        }
        const std::string_view found = trimmed(text_.substr(begin, at_ - begin));
        return {std::string(found), {begin, found.size()}};
    }

    // ---- Places ----

    Condition within() {
        skip_blanks();
        const size_t begin = at_;
        const size_t end = std::min(find_word("of", begin), text_.size());
        const std::string_view distance = trimmed(text_.substr(begin, end - begin));
        const auto measure = read_measure(distance);
        const auto metres = measure ? unit_factor(measure->unit, "m") : std::nullopt;
        if (!metres || measure->number < 0)
            throw Mistake("expected a distance with its unit, such as 40nm, 75km or 500m", {begin, distance.size()});
        at_ = end;
        if (!takes_word("of")) fail("expected 'of', and latitude and longitude behind it, such as 48.35,11.79");
        const double latitude = degrees("latitude", 90);
        if (!takes(',')) fail("expected a comma, and the longitude");
        const double longitude = degrees("longitude", 180);
        return {PlaceCondition{Circle(latitude, longitude, measure->number * *metres)}, "position"};
    }

    size_t find_word(std::string_view wanted, size_t from) const {
        for (size_t place = from; place < text_.size(); ++place)
            if (is_blank(text_[place]) && is_same_word(name_at(place + 1), wanted)) return place;
        return text_.size();
    }

    double degrees(const std::string &what, double most) {
        skip_blanks();
        const std::string_view written = name_at(at_);
        const auto number = read_number<double>(written);
        if (!number || !(std::abs(*number) <= most))
            throw Mistake("expected the " + what + " in degrees, -" + std::to_string(static_cast<int>(most)) + " to " +
                              std::to_string(static_cast<int>(most)),
                          {at_, written.size()});
        at_ += written.size();
        return *number;
    }

    Condition inside() {
        const Word path = value(false).whole;
        if (path.text.empty()) fail("expected the name of a file of GeoJSON");
        try {
            return {PlaceCondition{std::make_shared<const Area>(Area::read_file(path.text))}, "position"};
        } catch (const std::invalid_argument &error) {
            throw Mistake(error.what(), path.place);
        }
    }

    std::string_view text_;
    std::vector<Condition> &conditions_;
    size_t at_ = 0;
};

} // namespace

bool Expression::meets(const std::vector<Condition> &conditions, Answerer &answerer) const {
    const auto is_met = [&](const Expression &part) { return part.meets(conditions, answerer); };
    switch (kind) {
    case Kind::all:
        return std::ranges::all_of(parts, is_met);
    case Kind::any:
        return std::ranges::any_of(parts, is_met);
    case Kind::none:
        return !is_met(parts.front());
    case Kind::condition:
        break;
    }
    return conditions[condition].meets(answerer);
}

Expression read_expression(std::string_view text, std::vector<Condition> &conditions) {
    return Reader(text, conditions).all_of_it();
}

std::string mistake_text(std::string_view expression, const Mistake &mistake) {
    const Stretch &place = mistake.place();
    const std::string before(characters(expression.substr(0, place.at)), ' ');
    const size_t marks = std::max<size_t>(1, characters(expression.substr(place.at, place.size)));
    return std::string(mistake.what()) + "\n  " + std::string(expression) + "\n  " + before + std::string(marks, '^');
}

} // namespace ast::recording
