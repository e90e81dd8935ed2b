// Which records of a block are wanted, and what is worth saying of what was asked for.
#pragma once

#include <bitset>
#include <string>
#include <string_view>
#include <vector>

#include "ask/expression.hpp"
#include "base/category_set.hpp"
#include "block/decoded_block.hpp"

namespace ast::recording {

// Expressions that records must all meet. Read once; several threads may ask the same one.
class Filter {
public:
    // Throws Mistake, and stays as it is.
    void add(std::string_view expression);

    // Whether nothing is asked for.
    bool empty() const { return expressions_.empty(); }

    // Whether it needs to be known where on the earth targets are.
    bool asks_position() const;

    bool meets(Answerer &answerer) const;

    const std::vector<Condition> &conditions() const { return conditions_; }
    const std::vector<std::string> &texts() const { return texts_; }

    // What is asked for under one name that means different quantities in these categories, a line for each.
    std::vector<std::string> ambiguities(const CategorySet &categories) const;

private:
    std::vector<Condition> conditions_; // of all expressions
    std::vector<Expression> expressions_;
    std::vector<std::string> texts_; // of these
};

// Sets those records of a block that meet a filter as shown; all records when it asks for nothing.
void select_records(DecodedBlock &decoded, const Filter &filter);

// Whether records have what a filter asks for, whatever its value, and how many meet it: where nothing comes out, that
// tells why.
class FilterCoverage {
public:
    // Looks at the records of a block of which those that meet the filter are set.
    void look(const DecodedBlock &decoded, const Filter &filter);

    // What has been seen since the last call, and all that has been found.
    FilterCoverage take();
    FilterCoverage &operator|=(const FilterCoverage &other);

    // "no record meets --where squawk=7700: none of 20 has squawk", or what none has although records meet the rest.
    std::vector<std::string> complaints(const Filter &filter) const;

private:
    uint64_t records_ = 0;
    bool any_met_ = false;
    std::vector<bool> found_; // by condition
};

} // namespace ast::recording
