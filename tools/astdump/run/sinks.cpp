#include "run/sinks.hpp"

#include <limits>
#include <memory>
#include <stdexcept>

#include "compare/diff.hpp"
#include "page/page.hpp"
#include "report/performance.hpp"
#include "show/csv.hpp"
#include "show/json_lines.hpp"
#include "show/listing.hpp"
#include "show/record_list.hpp"
#include "show/rotating_file.hpp"
#include "show/send.hpp"
#include "show/stats.hpp"
#include "show/terminal.hpp"
#include "show/throughput.hpp"
#include "show/top.hpp"
#include "show/write_file.hpp"
#include "show/write_table.hpp"
#include "source/live_url.hpp"

namespace ast::recording::astdump {

namespace {

// Datagrams leave as they came.
bool chooses_all(const Options &options) {
    return options.keeps_remainders() && options.convert.none() && options.categories.all() && !options.count;
}

JsonForm json_form(const Options &options) {
    return {.texts = options.texts, .name_files = options.files.size() > 1, .remainders = options.keeps_remainders()};
}

std::unique_ptr<Top> make_top(const Options &options, Output &out, const ReportLog &reports,
                              Interruption &interruption) {
    const Top::Form form{
        .color = use_color(options, stdout), .is_drawn = has_cursor(stdout), .is_live = options.follow};
    auto top = std::make_unique<Top>(out, form, reports);
    interruption.meanwhile([&top = *top] { top.refresh(); });
    return top;
}

// What is not shown on a terminal takes lines of any length.
RecordList::Form list_form(const Options &options) {
    constexpr size_t kAnyLength = std::numeric_limits<size_t>::max();
    return {.columns = is_terminal(stdout) ? columns(stdout) : kAnyLength,
            .color = use_color(options, stdout),
            .name_files = options.files.size() > 1 && !options.merge};
}

Performance::Form report_form(const Options &options) {
    return {.json = options.json,
            .color = use_color(options, stdout),
            .columns = columns(stdout),
            .page = options.html,
            .inputs = options.files};
}

Page::Form page_form(const Options &options) { return {.remainders = options.keeps_remainders()}; }

// Where anything is sent, what does that.
const Send *add_outputs(Sinks &sinks, const Options &options, Interruption &interruption) {
    std::vector<Destination> destinations;
    for (const std::string &url : options.listens) destinations.push_back({url, true});
    for (const std::string &write : options.writes)
        if (is_live(write))
            destinations.push_back({write, false});
        else if (find_table_format(write))
            sinks.push_back(std::make_unique<WriteTable>(write, options.files, options.table, options.partition));
        else if (options.rotation.is_any())
            sinks.push_back(std::make_unique<RotatingFile>(write, options.files, options.rotation, json_form(options)));
        else
            sinks.push_back(std::make_unique<WriteFile>(write, options.files, json_form(options)));
    if (destinations.empty()) return nullptr;
    auto send = std::make_unique<Send>(destinations, options.send, options.files, chooses_all(options), interruption);
    const Send *const made = send.get();
    interruption.meanwhile([&send = *send] { send.tell_events(); });
    sinks.push_back(std::move(send));
    return made;
}

void add_throughput(Sinks &sinks, const Options &options, const Send *send, Interruption &interruption) {
    if (options.stats_every.count() == 0 && options.metrics.empty()) return;
    const Throughput::Form form{.every = options.stats_every, .metrics = options.metrics, .inputs = options.files};
    auto throughput = std::make_unique<Throughput>(form, send);
    interruption.meanwhile([&throughput = *throughput] { throughput.refresh(); });
    sinks.push_back(std::move(throughput));
}

} // namespace

bool use_color(const Options &options, std::FILE *file) {
    return options.color == "always" || (options.color == "auto" && takes_color(file));
}

Sinks make_sinks(const Options &options, Output &out, const ReportLog &reports, Interruption &interruption) {
    if (options.arrow && is_terminal(stdout))
        throw std::runtime_error("--arrow is for a file or a pipe, not a terminal");
    Sinks sinks;
    const bool color = use_color(options, stdout);
    if (options.diff)
        sinks.push_back(std::make_unique<Diff>(out, Diff::Form{options.diff_within_s, options.json}));
    else if (options.report)
        sinks.push_back(std::make_unique<Performance>(out, report_form(options)));
    else if (options.top)
        sinks.push_back(make_top(options, out, reports, interruption));
    else if (options.stats)
        sinks.push_back(std::make_unique<Stats>(out, color));
    else if (options.json)
        sinks.push_back(std::make_unique<JsonLines>(out, json_form(options)));
    else if (options.arrow)
        sinks.push_back(std::make_unique<WriteTable>(out, options.table));
    else if (options.csv)
        sinks.push_back(std::make_unique<Csv>(out, *options.csv, options.files.size() > 1, options.merge));
    else if (options.list)
        sinks.push_back(std::make_unique<RecordList>(out, list_form(options)));
    else if (!options.quiet && !options.writes_files())
        sinks.push_back(std::make_unique<Listing>(out, Listing::Form{columns(stdout), color,
                                                                     options.files.size() > 1 && !options.merge,
                                                                     options.detail, is_terminal(stdout)}));
    if (options.follow && !options.report && !options.top && !options.stats && !options.json && !options.csv &&
        !options.arrow)
        sinks.push_back(std::make_unique<Stats>(out, color));
    if (!options.html.empty() && !options.report)
        sinks.push_back(std::make_unique<Page>(options.html, options.files, page_form(options)));
    const Send *const send = add_outputs(sinks, options, interruption);
    add_throughput(sinks, options, send, interruption);
    return sinks;
}

} // namespace ast::recording::astdump
