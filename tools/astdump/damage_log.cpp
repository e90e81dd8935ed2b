#include "damage_log.hpp"

#include <algorithm>

#include "terminal.hpp"
#include "text.hpp"

namespace astdump {

namespace {

constexpr const char *kKinds[] = {"damaged: ", "not supported: ", "not ASTERIX: ", ""};

} // namespace

// What has happened once is told as it is.
std::string DamageLog::text_of(const Group &group) {
    const Report &first = group.first;
    if (group.reports == 1) return first.text;
    std::string text = kKinds[static_cast<size_t>(first.kind)] + first.reason;
    if (first.noun) text += ": " + counted(group.count, first.noun);
    if (!first.example.empty()) text += ", the first at " + first.example;
    return text;
}

void DamageLog::set_file(const std::string &name, bool is_live) {
    file_ = name;
    is_live_ = is_live;
}

void DamageLog::show(const Report &report) {
    losses_ += report.losses;
    if (report.text.empty()) return;
    if (each_ || report.kind == Kind::note)
        line(report.file ? *report.file : file_, report.text);
    else
        collect(report);
}

void DamageLog::collect(const Report &report) {
    const std::string &file = report.file ? *report.file : file_;
    const auto [place, is_new] = places_.try_emplace({file, report.kind, report.reason}, groups_.size());
    if (is_new) {
        groups_.push_back({.first = report, .file = file});
        if (is_live_) line(file, report.text);
    }
    Group &group = groups_[place->second];
    if (report.packet < group.first.packet) group.first = report;
    ++group.reports;
    group.count += report.count;
}

// What was shown at once is shown again only where there is more of it.
void DamageLog::end_file() {
    std::ranges::stable_sort(groups_, {}, [](const Group &group) { return std::tie(group.file, group.first.kind); });
    for (const Group &group : groups_)
        if (!is_live_ || group.reports > 1) line(group.file, text_of(group));
    groups_.clear();
    places_.clear();
}

void DamageLog::line(const std::string &file, const std::string &text) const {
    tell(file + ": " + text, Style(color_));
}

std::vector<std::string> DamageLog::totals() const {
    std::vector<std::string> totals;
    if (any_damage()) totals.push_back("lost: " + losses_.text());
    if (losses_.unsupported != 0) totals.push_back("not supported: " + counted(losses_.unsupported, "block"));
    if (const std::string foreign = losses_.foreign_text(); !foreign.empty())
        totals.push_back("not ASTERIX: " + foreign);
    return totals;
}

void DamageLog::summary() const {
    for (const std::string &total : totals()) tell(total, Style(color_));
}

} // namespace astdump
