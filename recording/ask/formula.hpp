// Values that users give to fields: "99", "I140+3600", "DLH4AB".
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ask/comparison.hpp"
#include "ask/field_path.hpp"
#include "ask/mistake.hpp"

namespace ast::recording {

// What a formula came to as the bits of a field.
struct FieldBits {
    enum class Outcome { fits, unfit, unknown }; // unknown: the record lacks what it is worked out from

    Outcome outcome = Outcome::unfit;
    uint64_t raw = 0;
};

class Formula {
public:
    // Numbers with their units, as times "12:00", and in the digits that the field is written in; paths of fields with
    // a number; + - * / and parentheses. A slash that has a path in front belongs to that, but for one behind a blank.
    // Or characters, or a text of a code, with quotes around it or not. Throws Mistake for what is none of these.
    explicit Formula(std::string_view text);

    FieldBits bits_for(const ast_field_t &field, const ast_datarecord_t &record) const;

    // Whether all records have the same value.
    bool is_constant() const { return paths_.empty(); }

    // For one that is no text: what is wrong with it as a number, and where.
    const std::optional<Mistake> &mistake() const { return mistake_; }

private:
    struct Reader;

    // A number, a path, or two parts and what joins them.
    struct Node {
        char sign = 0;
        size_t number = 0; // its place among these, or among the paths
        std::unique_ptr<Node> left{}, right{};
    };

    std::optional<double> value_of(const Node &node, const ast_field_t &field, const ast_datarecord_t &record) const;

    std::string text_;
    std::shared_ptr<const Node> root_; // null for a text
    std::vector<Comparison> numbers_;
    std::vector<FieldPath> paths_;
    std::optional<Mistake> mistake_;
};

} // namespace ast::recording
