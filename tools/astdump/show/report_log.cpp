#include "show/report_log.hpp"

#include <algorithm>

#include "base/counted.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

// What has happened once is told as it is.
std::string ReportLog::text_of(const Group &group) {
    const ReportWords &first = group.first;
    if (group.reports == 1) return first.text;
    std::string text = std::string(kind_word(group.kind)) + ": " + first.cause;
    if (!first.noun.empty()) text += ": " + counted(group.count, first.noun);
    if (!first.example.empty()) text += ", the first at " + first.example;
    return text;
}

void ReportLog::set_file(const std::string &name, bool is_live) {
    file_ = name;
    is_live_ = is_live;
}

// Datagrams are dropped when there is no time to spare, so that this is left to the summary.
void ReportLog::show(const Report &report) {
    losses_.add(report);
    if (report.data.reason == AST_REASON_DROPPED) return;
    if (each_ || report.data.kind == AST_REPORT_NOTE)
        line(report.file ? *report.file : file_, words_of(report.facts()).text);
    else
        collect(report);
}

void ReportLog::collect(const Report &report) {
    const std::string &file = report.file ? *report.file : file_;
    const bool is_ordered = report.data.reason != AST_REASON_OTHER_DATAGRAM;
    const uint64_t packet = is_ordered ? 0 : report.data.packet;
    const ReportWords words = words_of(report.facts());
    const auto [place, is_new] = places_.try_emplace({file, report.data.kind, words.cause}, groups_.size());
    if (is_new) {
        groups_.push_back({.first = words, .kind = report.data.kind, .packet = packet, .file = file});
        if (is_live_) line(file, words.text);
    }
    Group &group = groups_[place->second];
    if (packet < group.packet) {
        group.first = words;
        group.packet = packet;
    }
    ++group.reports;
    group.count += words.count;
}

// What was shown at once is shown again only where there is more of it.
void ReportLog::end_file() {
    std::ranges::stable_sort(groups_, {}, [](const Group &group) { return std::tie(group.file, group.kind); });
    for (const Group &group : groups_)
        if (!is_live_ || group.reports > 1) line(group.file, text_of(group));
    groups_.clear();
    places_.clear();
}

void ReportLog::line(const std::string &file, const std::string &text) const {
    tell(file + ": " + text, Style(color_));
}

std::vector<std::string> ReportLog::totals() const {
    std::vector<std::string> totals;
    if (any_damage()) totals.push_back("lost: " + losses_.text());
    if (losses_.unsupported != 0) totals.push_back("not supported: " + counted(losses_.unsupported, "block"));
    if (const std::string foreign = losses_.foreign_text(); !foreign.empty())
        totals.push_back("not ASTERIX: " + foreign);
    return totals;
}

void ReportLog::summary() const {
    for (const std::string &total : totals()) tell(total, Style(color_));
}

} // namespace ast::recording::astdump
