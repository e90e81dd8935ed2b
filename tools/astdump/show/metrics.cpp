#include "show/metrics.hpp"

#include <cstdio>

namespace ast::recording::astdump {

namespace {

constexpr double kNanosecondsPerS = 1e9;

struct CategoryMetric {
    const char *name;
    const char *help;
    uint64_t Counts::*count;
};

constexpr CategoryMetric kOfCategories[] = {
    {"astdump_blocks_total", "Blocks, by category.", &Counts::blocks},
    {"astdump_records_total", "Records, by category.", &Counts::records},
    {"astdump_octets_total", "Octets of blocks, by category.", &Counts::octets},
    {"astdump_damaged_blocks_total", "Blocks whose octets contradict themselves, by category.", &Counts::damaged},
    {"astdump_unsupported_blocks_total", "Blocks of no known edition, by category.", &Counts::unsupported},
};

struct LossMetric {
    const char *name;
    const char *help;
    uint64_t Losses::*count;
};

constexpr LossMetric kOfLosses[] = {
    {"astdump_dropped_datagrams_total", "Datagrams that came faster than they were taken.", &Losses::dropped},
    {"astdump_truncated_datagrams_total", "Datagrams of which only the first octets are there.", &Losses::truncated},
    {"astdump_incomplete_datagrams_total", "Datagrams of which fragments are missing.", &Losses::incomplete},
    {"astdump_missing_octets_total", "Octets of TCP streams that are missing.", &Losses::missing},
    {"astdump_skipped_octets_total", "Octets that are no blocks.", &Losses::skipped},
    {"astdump_other_datagrams_total", "Datagrams of other traffic.", &Losses::foreign},
};

struct SentMetric {
    const char *name;
    const char *help;
    const char *type;
    double (*value)(const Sent &sent);
};

constexpr SentMetric kOfSent[] = {
    {"astdump_sent_datagrams_total", "Datagrams that were sent.", "counter",
     [](const Sent &sent) { return static_cast<double>(sent.datagrams); }},
    {"astdump_sent_octets_total", "Octets of datagrams that were sent.", "counter",
     [](const Sent &sent) { return static_cast<double>(sent.octets); }},
    {"astdump_failed_datagrams_total", "Datagrams that were not sent, or that a slow client has lost.", "counter",
     [](const Sent &sent) { return static_cast<double>(sent.failed); }},
    {"astdump_late_median_seconds", "By how much datagrams were late, in the median.", "gauge",
     [](const Sent &sent) { return static_cast<double>(sent.lateness.median().count()) / kNanosecondsPerS; }},
    {"astdump_late_max_seconds", "By how much datagrams were late at most.", "gauge",
     [](const Sent &sent) { return static_cast<double>(sent.lateness.greatest().count()) / kNanosecondsPerS; }},
};

void put_head(std::string &text, const char *name, const char *help, const char *type) {
    text.append("# HELP ").append(name).append(" ").append(help).append("\n");
    text.append("# TYPE ").append(name).append(" ").append(type).append("\n");
}

std::string label_value(std::string_view value) {
    std::string escaped;
    for (const char c : value)
        if (c == '\n')
            escaped += "\\n";
        else
            escaped.append(c == '"' || c == '\\' ? "\\" : "").push_back(c);
    return escaped;
}

// A whole number keeps all of its digits.
std::string number_text(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

} // namespace

std::string metrics_text(const Flow &flow) {
    std::string text;
    for (const CategoryMetric &metric : kOfCategories) {
        put_head(text, metric.name, metric.help, "counter");
        for (size_t category = 0; category < flow.categories.size(); ++category) {
            const Counts &counts = flow.categories[category];
            if (counts.blocks == 0) continue;
            char label[48];
            std::snprintf(label, sizeof label, "{category=\"%03zu\"} ", category);
            text.append(metric.name).append(label).append(std::to_string(counts.*metric.count)).append("\n");
        }
    }
    for (const LossMetric &metric : kOfLosses) {
        put_head(text, metric.name, metric.help, "counter");
        text.append(metric.name).append(" ").append(std::to_string(flow.losses.*metric.count)).append("\n");
    }
    for (const SentMetric &metric : kOfSent) {
        if (flow.sent.empty()) break;
        put_head(text, metric.name, metric.help, metric.type);
        for (const SentTo &to : flow.sent)
            text.append(metric.name)
                .append("{destination=\"" + label_value(to.url) + "\"} ")
                .append(number_text(metric.value(to.sent)))
                .append("\n");
    }
    return text;
}

} // namespace ast::recording::astdump
