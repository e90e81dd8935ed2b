#include "ask/filter.hpp"

#include <algorithm>

#include "base/counted.hpp"

namespace ast::recording {

namespace {

// Long expressions by how they begin.
std::string shortened(const std::string &text) {
    constexpr size_t kMost = 300;
    return text.size() <= kMost ? text : text.substr(0, kMost) + " ...";
}

} // namespace

void Filter::add(std::string_view expression) {
    std::vector<Condition> conditions = conditions_;
    expressions_.push_back(read_expression(expression, conditions));
    conditions_ = std::move(conditions);
    texts_.emplace_back(expression);
}

bool Filter::asks_position() const { return std::ranges::any_of(conditions_, &Condition::asks_position); }

bool Filter::meets(Answerer &answerer) const {
    return std::ranges::all_of(expressions_, [&](const Expression &each) { return each.meets(conditions_, answerer); });
}

std::vector<std::string> Filter::ambiguities(const CategorySet &categories) const {
    std::vector<std::string> all;
    for (const Condition &condition : conditions_) {
        std::string text = ambiguity(condition, categories);
        if (!text.empty() && std::ranges::count(all, text) == 0) all.push_back(std::move(text));
    }
    return all;
}

void select_records(DecodedBlock &decoded, const Filter &filter) {
    const SplitBlock &block = *decoded.block;
    if (filter.empty()) return decoded.shown.set_all(block.record_count);
    Answerer answerer(decoded);
    decoded.shown.set(block.record_count, [&](uint64_t i) {
        answerer.set_record(block.records[i]);
        return filter.meets(answerer);
    });
}

void FilterCoverage::look(const DecodedBlock &decoded, const Filter &filter) {
    const SplitBlock &block = *decoded.block;
    const auto &conditions = filter.conditions();
    found_.resize(conditions.size());
    records_ += block.record_count;
    any_met_ = any_met_ || decoded.shown.any();
    Answerer answerer(decoded);
    for (size_t i = 0; i < conditions.size(); ++i) {
        for (uint64_t r = 0; r < block.record_count && !found_[i]; ++r) {
            answerer.set_record(block.records[r]);
            found_[i] = conditions[i].is_in(answerer);
        }
    }
}

FilterCoverage FilterCoverage::take() {
    FilterCoverage taken = *this;
    records_ = 0;
    return taken;
}

FilterCoverage &FilterCoverage::operator|=(const FilterCoverage &other) {
    records_ += other.records_;
    any_met_ = any_met_ || other.any_met_;
    found_.resize(std::max(found_.size(), other.found_.size()));
    for (size_t i = 0; i < other.found_.size(); ++i) found_[i] = found_[i] || other.found_[i];
    return *this;
}

std::vector<std::string> FilterCoverage::complaints(const Filter &filter) const {
    if (filter.empty()) return {};
    std::string missing;
    for (size_t i = 0; i < found_.size(); ++i)
        if (!found_[i] && records_ != 0)
            missing.append(missing.empty() ? "" : ", ").append(filter.conditions()[i].name);
    if (any_met_) {
        if (missing.empty()) return {};
        return {"--where: no record has " + shortened(missing)};
    }
    std::string line = "no record meets";
    for (const std::string &text : filter.texts()) line.append(" --where '").append(shortened(text)).append("'");
    if (!missing.empty())
        line.append(": none of ").append(counted(records_, "record")).append(" has ").append(shortened(missing));
    if (records_ == 0) line.append(": there is none");
    return {line};
}

} // namespace ast::recording
