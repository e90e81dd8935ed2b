// Conditions joined to an expression, as users write it.
#pragma once

#include <string_view>
#include <vector>

#include "ask/condition.hpp"

namespace ast::recording {

// One condition, or several and how they are joined.
struct Expression {
    enum class Kind { condition, all, any, none };

    Kind kind = Kind::condition;
    size_t condition = 0; // by its place among the conditions
    std::vector<Expression> parts{};

    bool meets(const std::vector<Condition> &conditions, Answerer &answerer) const;
};

// Adds the conditions of the expression to those that there are. Throws Mistake.
Expression read_expression(std::string_view text, std::vector<Condition> &conditions);

// "what is wrong", and below it the expression with the place marked.
std::string mistake_text(std::string_view expression, const Mistake &mistake);

} // namespace ast::recording
