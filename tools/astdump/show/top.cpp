#include "show/top.hpp"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <utility>

#include "base/counted.hpp"
#include "base/interruption.hpp"
#include "base/time.hpp"

namespace ast::recording::astdump {

namespace {

constexpr auto kDrawInterval = std::chrono::seconds(1);
constexpr auto kPrintInterval = std::chrono::seconds(10);
constexpr size_t kDrawLooks = 5; // rates are those of five seconds, on which radars have something to say

constexpr TextTable::Column kColumns[] = {
    {.title = "Source"},
    {.title = "Cat"},
    {.title = "Profile", .spare = 1},
    {.title = "Blocks/s", .is_right_aligned = true, .spare = 2},
    {.title = "Records/s", .is_right_aligned = true},
    {.title = "Blocks", .is_right_aligned = true},
    {.title = "Records", .is_right_aligned = true},
    {.title = "Damaged", .is_right_aligned = true, .color = Color::fault},
    {.title = "Unsupported", .is_right_aligned = true},
    {.title = "Last UTC"},
};

std::string rate_text(double rate) {
    constexpr double kLong = 1000; // in which decimals do not matter
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", rate < kLong ? 1 : 0, rate);
    return text;
}

constexpr size_t kDateAndTime = 19; // characters of "2024-05-06 07:08:09"
constexpr size_t kDateAndBlank = 11;
constexpr size_t kTime = 8;

std::string whole_second_text(const Time &time) {
    return time_text(time).substr(0, is_in_calendar(time) ? kDateAndTime : std::string::npos);
}

std::string last_text(const SourceCounts &counts) {
    if (counts.received)
        return whole_second_text(*counts.received).substr(is_in_calendar(*counts.received) ? kDateAndBlank : 0);
    return std::string(counts.time_of_day).substr(0, kTime);
}

std::vector<std::string> cells(const SourceKey &key, const SourceCounts &counts, const std::optional<Rate> &rate) {
    char category[16] = "";
    if (counts.profile) std::snprintf(category, sizeof category, "%03u", key.second);
    return {key.first.empty() ? "-" : key.first,
            category,
            counts.profile ? profile_text(*counts.profile) : "",
            rate ? rate_text(rate->blocks) : "",
            rate ? rate_text(rate->records) : "",
            std::to_string(counts.blocks),
            std::to_string(counts.records),
            counts.damaged == 0 ? "" : std::to_string(counts.damaged),
            counts.unsupported == 0 ? "" : std::to_string(counts.unsupported),
            last_text(counts)};
}

} // namespace

void RecentRates::look(const Sources &sources, Clock::time_point now) {
    past_.push_back({now, sources});
    if (past_.size() > looks_) past_.pop_front();
}

std::optional<Rate> RecentRates::rate(const SourceKey &key, const SourceCounts &counts, Clock::time_point now) const {
    if (past_.empty() || now - past_.front().time < std::chrono::seconds(1)) return std::nullopt;
    const double seconds = std::chrono::duration<double>(now - past_.front().time).count();
    const auto found = past_.front().sources.find(key);
    const SourceCounts before = found == past_.front().sources.end() ? SourceCounts() : found->second;
    return Rate{static_cast<double>(counts.blocks - before.blocks) / seconds,
                static_cast<double>(counts.records - before.records) / seconds};
}

Top::Top(Output &out, const Form &form, const ReportLog &reports)
    : out_(out), form_(form), reports_(reports), drawing_(out), rates_(form.is_drawn ? kDrawLooks : 1) {}

void Top::file(const std::string &name) {
    name_ = files_++ == 0 ? name : name + " and " + counted(files_ - 1, "input") + " before it";
    if (span_) seconds_before_ += span_->seconds();
    span_.reset();
    if (form_.is_drawn) return refresh();
    rates_.look(sources_, Clock::now());
    next_ = Clock::now() + kPrintInterval;
}

void Top::take(std::string_view rendered) {
    add_rendered(sources_, span_, rendered);
    is_changed_ = is_changed_ || !rendered.empty();
    refresh();
}

// One table says that nothing comes any more; then nothing more is printed until something comes.
void Top::refresh() {
    const auto now = Clock::now();
    if (now < next_ || !(form_.is_drawn || form_.is_live)) return;
    next_ = now + (form_.is_drawn ? kDrawInterval : kPrintInterval);
    if (form_.is_drawn || is_changed_ || was_changed_) show();
    was_changed_ = std::exchange(is_changed_, false);
    rates_.look(sources_, now);
}

void Top::finish(uint64_t) {
    show();
    drawing_.leave();
}

void Top::show() {
    const auto size = screen_size(stdout);
    if (form_.is_drawn && size) return drawing_.draw(lines(size->columns, size->rows - 1));
    if (std::exchange(is_printed_, true)) out_.write("\n");
    out_.write(lines(columns(stdout), std::numeric_limits<size_t>::max()));
}

std::string Top::lines(size_t columns, size_t most_rows) const {
    const std::vector<std::string> totals = reports_.totals();
    const size_t other_rows = 4 + totals.size(); // the title, the headings, the sum, and what is left out
    const std::vector<SourceKey> shown = busiest(most_rows > other_rows ? most_rows - other_rows : 0);
    TextTable table(kColumns);
    for (const SourceKey &key : shown) table.row(cells(key, sources_.at(key), rate(key)));
    const auto [all, all_rate] = sum();
    table.row(cells({"all", 0}, all, all_rate));

    const Style style(form_.color);
    TextBuffer text;
    text.put(style.on(Color::heading));
    text.put(cut(title(), columns));
    text.put(style.off());
    text.put('\n');
    table.put(text, style, columns);
    if (shown.size() < sources_.size()) {
        text.put(counted(sources_.size() - shown.size(), "row") + " with fewer records left out");
        text.put('\n');
    }
    for (const std::string &total : totals) {
        text.put(style.on(Color::fault));
        text.put(cut(total, columns));
        text.put(style.off());
        text.put('\n');
    }
    return std::string(text.text());
}

std::string Top::title() const {
    if (form_.is_live) return name_ + "  " + whole_second_text(now()) + " UTC";
    if (!span_) return name_;
    return name_ + "  " + whole_second_text(span_->first) + " to " + whole_second_text(span_->last) + " UTC";
}

// In their order; where there are more than fit, those with the most records.
std::vector<SourceKey> Top::busiest(size_t most) const {
    std::vector<SourceKey> keys;
    for (const auto &[key, counts] : sources_) keys.push_back(key);
    if (keys.size() <= most) return keys;
    const auto records = [&](const SourceKey &key) { return sources_.at(key).records; };
    std::ranges::stable_sort(keys, std::greater(), records);
    keys.resize(most);
    std::ranges::sort(keys);
    return keys;
}

std::optional<Rate> Top::rate(const SourceKey &key) const {
    const SourceCounts &counts = sources_.at(key);
    if (form_.is_live) return rates_.rate(key, counts, Clock::now());
    const double seconds = seconds_before_ + (span_ ? span_->seconds() : 0);
    if (seconds <= 0) return std::nullopt;
    return Rate{static_cast<double>(counts.blocks) / seconds, static_cast<double>(counts.records) / seconds};
}

// Of all rows, also those that do not fit.
std::pair<SourceCounts, std::optional<Rate>> Top::sum() const {
    SourceCounts all;
    std::optional<Rate> all_rate;
    for (const auto &[key, counts] : sources_) {
        all += counts;
        const auto rate = this->rate(key);
        if (!rate) continue;
        if (!all_rate) all_rate.emplace();
        all_rate->blocks += rate->blocks;
        all_rate->records += rate->records;
    }
    all.profile.reset();
    all.time_of_day[0] = '\0'; // which does not tell the last one from those of the day before
    return {all, all_rate};
}

} // namespace ast::recording::astdump
