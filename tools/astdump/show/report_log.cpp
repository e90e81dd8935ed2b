#include "show/report_log.hpp"

#include <algorithm>

#include "base/counted.hpp"
#include "show/terminal.hpp"

namespace ast::recording::astdump {

namespace {

// Where reports do not come in the order of packets, the packet that says which one is the first.
uint64_t packet_of(const Report &report) {
    return report.data.reason == AST_REASON_OTHER_DATAGRAM ? report.data.packet : 0;
}

} // namespace

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

// Damage comes by the hundred thousand: words are made of the first of a cause alone.
void ReportLog::collect(const Report &report) {
    const std::string &file = report.file ? *report.file : file_;
    const auto &data = report.data;
    const auto known = causes_.find(CauseView{file, data.kind, data.reason, data.category, report.detail});
    Group &group = groups_[known != causes_.end() ? known->second : new_cause(report, file)];
    const uint64_t packet = packet_of(report);
    if (packet < group.packet) {
        group.first = words_of(report.facts());
        group.packet = packet;
    }
    ++group.reports;
    group.count += count_of(data);
}

// Several causes may be one in words.
size_t ReportLog::new_cause(const Report &report, const std::string &file) {
    const auto &data = report.data;
    const ReportWords words = words_of(report.facts());
    const auto [place, is_new] = places_.try_emplace({file, data.kind, words.cause}, groups_.size());
    causes_.try_emplace({file, data.kind, data.reason, data.category, report.detail}, place->second);
    if (is_new) {
        groups_.push_back({.first = words, .kind = data.kind, .packet = packet_of(report), .file = file});
        if (is_live_) line(file, words.text);
    }
    return place->second;
}

// What was shown at once is shown again only where there is more of it.
void ReportLog::end_file() {
    std::ranges::stable_sort(groups_, {}, [](const Group &group) { return std::tie(group.file, group.kind); });
    for (const Group &group : groups_)
        if (!is_live_ || group.reports > 1) line(group.file, text_of(group));
    groups_.clear();
    places_.clear();
    causes_.clear();
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
