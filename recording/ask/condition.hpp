// What a record must hold: a quantity or a published field, of any value or of those given, or a place.
#pragma once

#include <algorithm>
#include <bitset>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "ask/answerer.hpp"
#include "ask/area.hpp"
#include "ask/comparison.hpp"
#include "ask/field_path.hpp"
#include "ask/mistake.hpp"
#include "ask/quantities.hpp"

namespace ast::recording {

// A value that is asked for, or an end of a range of them.
struct Value {
    Comparison comparison;

    // Where it is a text: the codes that it is the text of, for fields with those texts, as the library has them.
    struct Codes {
        const char *texts;
        std::bitset<256> codes;
    };
    std::vector<Codes> codes{};
};

// One value or a range.
struct Span {
    Value first;
    std::optional<Value> last{};
    bool wraps = false; // from 23:00 to 01:00, from 350 to 10 degrees
};

// Those that are asked for; none where any value will do.
struct Values {
    std::vector<Span> spans{};
    bool is_negated = false; // none of these

    bool any() const { return spans.empty(); }

    // Whether a value is one of these, of which meets(value) tells whether it is as one end says.
    template <typename Meets>
    bool meet(Meets meets) const {
        const bool is_one = std::ranges::any_of(spans, [&](const Span &span) {
            const bool first = meets(span.first);
            if (!span.last || first == span.wraps) return first;
            return static_cast<bool>(meets(*span.last));
        });
        return is_one != is_negated;
    }
};

// A quantity, or several that one name stands for, and how their values are compared.
struct QuantityCondition {
    QuantityName asked;
    Notation notation;
    std::optional<uint32_t> keyword; // AST_KEYWORD_..., whose text may be asked for, too
    Values values{};
};

struct FieldCondition {
    FieldPath path;
    Values values{};
};

struct PlaceCondition {
    std::variant<Circle, std::shared_ptr<const Area>> where;
};

struct Condition {
    std::variant<QuantityCondition, FieldCondition, PlaceCondition> what;
    std::string name; // as it is written

    bool asks_position() const;
    bool meets(Answerer &answerer) const;

    // Whether a record has what is asked for, whatever its value.
    bool is_in(Answerer &answerer) const;
};

// A part of an expression; a text in quotes stands without them.
struct Word {
    std::string text;
    Stretch place{};
};

// The values of a list, or the one behind an operator: both ends of each where it is a range.
struct WrittenValue {
    Word whole; // "100..200"
    std::optional<std::pair<Word, Word>> ends{};
};

struct WrittenValues {
    Operator means = Operator::equal; // of each
    bool is_negated = false;
    std::vector<WrittenValue> values{};
};

// Conditions on a quantity or field of that name. Those with values take what name_condition made. All throw Mistake:
// for an unknown name, and for values that none can have.
Condition name_condition(const Word &name);
void set_values(Condition &condition, const Word &name, const WrittenValues &values);

// Whether a text is all of one of those that a code of the field has.
bool has_text(const Condition &condition, std::string_view text);

// "I140 is Time of Day (s) in 020, 048; Geometric Height (ft) in 021"; empty where what is asked for is the same in all
// of these categories that have it.
std::string ambiguity(const Condition &condition, const std::bitset<256> &categories);

} // namespace ast::recording
