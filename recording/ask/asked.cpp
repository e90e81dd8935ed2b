#include "ask/asked.hpp"

#include <algorithm>
#include <cstdio>

namespace ast::recording {

void Asked::look(const SplitBlock &block, const std::vector<Condition> &conditions) {
    found_.resize(conditions.size());
    if (block.record_count == 0) return;
    seen_.set(block.category);
    for (size_t i = 0; i < conditions.size(); ++i) {
        if (found_[i].test(block.category)) continue;
        for (uint64_t r = 0; r < block.record_count && !found_[i].test(block.category); ++r)
            found_[i].set(block.category, holds_what(block.records[r], conditions[i]));
    }
}

Asked &Asked::operator|=(const Asked &other) {
    seen_ |= other.seen_;
    found_.resize(std::max(found_.size(), other.found_.size()));
    for (size_t i = 0; i < other.found_.size(); ++i) found_[i] |= other.found_[i];
    return *this;
}

std::vector<std::string> Asked::complaints(const std::vector<Condition> &conditions) const {
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
