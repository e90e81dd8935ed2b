// Which categories have what the conditions ask for, so that a condition that none of their records can meet is told.
#pragma once

#include <bitset>
#include <string>
#include <vector>

#include "ask/filter.hpp"

namespace ast::recording {

class Asked {
public:
    // Looks at the records of a block, until its category has shown everything.
    void look(const SplitBlock &block, const std::vector<Condition> &conditions);

    Asked &operator|=(const Asked &other);

    // "--where squawk=7700: no record of category 034 has squawk"; a line for each condition that leaves out whole
    // categories.
    std::vector<std::string> complaints(const std::vector<Condition> &conditions) const;

private:
    using Categories = std::bitset<256>;

    Categories seen_;
    std::vector<Categories> found_; // by condition
};

} // namespace ast::recording
