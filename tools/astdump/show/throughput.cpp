#include "show/throughput.hpp"

#include <cstdio>
#include <stdexcept>
#include <utility>

#include "base/counted.hpp"
#include "base/time.hpp"
#include "show/terminal.hpp"
#include "write/output_file.hpp"

namespace ast::recording::astdump {

namespace {

constexpr auto kMetricsInterval = std::chrono::seconds(5);

// "2.5 blocks/s"
std::string rate_text(uint64_t count, double seconds, const char *noun) {
    char text[64];
    std::snprintf(text, sizeof text, "%.1f %s/s", static_cast<double>(count) / seconds, noun);
    return text;
}

} // namespace

Throughput::Throughput(const Form &form, const Send *send) : form_(form), send_(send) {
    if (send_) flow_.sent = told_.sent = send_->sent();
    if (form_.metrics.empty()) return;
    OutputFile file(form_.metrics, form_.inputs);
    file.write(metrics_text(flow_));
    file.replace();
}

void Throughput::count(const Tally &tally) {
    for (const auto &[category, counts] : tally.categories) flow_.categories[category] += counts;
    flow_.losses += tally.losses;
    refresh();
}

void Throughput::refresh() {
    const auto now = Clock::now();
    const bool is_line_due = form_.every.count() != 0 && now >= told_at_ + form_.every;
    const bool is_file_due = !form_.metrics.empty() && now >= written_at_ + kMetricsInterval;
    if (!is_line_due && !is_file_due) return;
    if (send_) flow_.sent = send_->sent();
    if (is_line_due) tell_lines(now);
    if (!is_file_due) return;
    written_at_ = now;
    write_metrics();
}

// One that cannot be written is told once, and ends nothing.
void Throughput::write_metrics() try {
    OutputFile file(form_.metrics, form_.inputs);
    file.write(metrics_text(flow_));
    file.replace();
    cannot_write_ = false;
} catch (const std::runtime_error &error) {
    if (!std::exchange(cannot_write_, true)) tell(error.what());
}

void Throughput::tell_lines(Clock::time_point now) {
    const double seconds = std::chrono::duration<double>(now - told_at_).count();
    tell(line(seconds));
    for (size_t i = 0; i < flow_.sent.size(); ++i) tell(sent_line(i, seconds));
    told_ = flow_;
    told_at_ = now;
}

// "2014-02-25 12:43:47.401501: category 034: 2.0 blocks/s, 2.0 records/s, 30.0 octets/s; category 048: ..."
std::string Throughput::line(double seconds) const {
    std::string text = time_text(now()) + ": ";
    bool is_any = false;
    for (size_t i = 0; i < flow_.categories.size(); ++i) {
        const Counts &counts = flow_.categories[i], &before = told_.categories[i];
        if (counts.blocks == 0) continue;
        char category[48];
        std::snprintf(category, sizeof category, "%scategory %03zu: ", is_any ? "; " : "", i);
        text += category + rate_text(counts.blocks - before.blocks, seconds, "blocks") + ", " +
                rate_text(counts.records - before.records, seconds, "records") + ", " +
                rate_text(counts.octets - before.octets, seconds, "octets");
        is_any = true;
    }
    if (!is_any) text += "nothing";
    if (flow_.losses.any_damage()) text += "; lost so far: " + flow_.losses.text();
    return text;
}

// "udp://127.0.0.1:8600: 20.0 datagrams/s, late by 0.080 ms in the median and 1.200 ms at most so far; 3 datagrams
// failed"
std::string Throughput::sent_line(size_t way, double seconds) const {
    const Sent &sent = flow_.sent[way].sent, &before = told_.sent[way].sent;
    std::string text = flow_.sent[way].url + ": " + rate_text(sent.datagrams - before.datagrams, seconds, "datagrams");
    if (sent.lateness.count() != 0) text += ", " + lateness_text(sent.lateness) + " so far";
    if (sent.failed != 0) text += "; " + counted(sent.failed, "datagram") + " failed so far";
    return text;
}

void Throughput::finish(uint64_t) {
    if (send_) flow_.sent = send_->sent();
    if (form_.every.count() != 0) tell_lines(Clock::now());
    if (!form_.metrics.empty()) write_metrics();
}

} // namespace ast::recording::astdump
