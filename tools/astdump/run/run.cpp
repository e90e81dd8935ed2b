#include "run/run.hpp"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "base/counted.hpp"
#include "base/printable.hpp"
#include "show/places_text.hpp"

namespace ast::recording::astdump {

namespace {

struct RenderJob : Job {
    using Job::Job;
    Rendered rendered;
};

bool is_waited_for(const std::string &file) {
    std::error_code unknown;
    return !std::filesystem::is_regular_file(file, unknown);
}

// --follow, --count, --top, --shift and --dedup take one thread: what they show must appear as its blocks arrive,
// blocks that count are counted one after the other, the first time is that of the first block, and the table is drawn
// anew between them. What is due by the clock is done by whoever waits for input, who is to be the one that takes it.
size_t threads_of(const Options &options) {
    const bool is_timed = options.goes_by_clock() && std::ranges::any_of(options.files, is_waited_for);
    const bool is_in_order =
        options.follow || options.count || options.top || options.shifts || options.dedup_window_ns;
    return is_in_order || is_timed ? 1 : options.threads;
}

size_t chunk_octets_of(const Options &options, const Sinks &sinks) {
    if (options.chunk_octets) return *options.chunk_octets;
    size_t octets = size_t{256} * 1024;
    for (const auto &sink : sinks) octets = std::min(octets, sink->chunk_octets());
    return octets;
}

constexpr const char *kGiven = "octets given"; // as octets of the command line are called

// What inputs are shown as.
std::vector<Origin> origins_of(const Options &options) {
    std::vector<Origin> origins;
    for (const std::string &path : options.files)
        origins.push_back({.path = path, .name = path == "-" ? "standard input" : readable(path), .octets = {}});
    for (const std::string &text : options.hex)
        origins.push_back({.path = kGiven, .name = kGiven, .octets = octets_of(text), .framing = find_framing("text")});
    return origins;
}

} // namespace

Run::Run(const Options &options, Sinks sinks, const Output &out, ReportLog &reports, Progress progress,
         Interruption *interruption)
    : options_(options),
      sinks_(std::move(sinks)),
      out_(out),
      reports_(reports),
      progress_(progress),
      interruption_(interruption),
      inputs_(origins_of(options), options, interruption, *this),
      workers_(threads_of(options)) {
    if (interruption && options.sends()) interruption->meanwhile([this] { show_progress(); });
    ast_log_handler_reg(nullptr); // attempts with a profile that does not fit write messages, too
}

Worker &Run::worker(size_t number) {
    auto &worker = workers_[number];
    if (!worker) worker.emplace(options_, sinks_);
    return *worker;
}

int Run::files() {
    for (const std::string &text : options_.where.ambiguities(options_.categories))
        tell("--where: " + text + "; with a category in front, as in I048/140, it is that of one");
    Pipeline pipeline(*this, threads_of(options_), chunk_octets_of(options_, sinks_));
    for (pass_ = 0; pass_ < options_.passes && !done(); ++pass_) {
        const uint64_t shown_before = shown_;
        inputs_.restart();
        while (!done() && inputs_.open_next()) inputs_.attempt([&] { read_input(pipeline); });
        inputs_.close();
        if (unreadable_ || shown_ == shown_before) break; // the next would be no better
    }
    clear_line();
    finish();
    if (unreadable_) return kExitUnusable;
    const bool has_any =
        std::ranges::any_of(sinks_, [](const auto &sink) { return sink->has_lost_any() || sink->has_found_any(); });
    return reports_.any_damage() || is_implausible_ || has_any ? kExitDamaged : kExitClean;
}

// What is not read is left out; the rest of the run goes on.
void Run::failed(const InputFailure &failure) {
    reports_.end_file();
    tell((failure.path.empty() ? "--merge" : failure.path) + ": " + failure.reason);
    unreadable_ = true;
}

void Run::opened(const std::string &name, const Input &input) {
    for (const auto &sink : sinks_) {
        sink->file(name);
        sink->framing(input.framing());
        if (input.is_live()) sink->live();
    }
}

void Run::read_input(Pipeline &pipeline) {
    is_live_ = inputs_.input().is_live() && !options_.merge;
    reports_.set_file(inputs_.name(), is_live_);
    consumed_ = last_block_ = 0;
    is_reading_ = true;
    if (!done()) pipeline.run();
    is_reading_ = false;
    octets_read_ += consumed_;
    if (!sinks_.empty()) sinks_.front()->flush();
    reports_.end_file();
    tell_what_cannot_be();
    tell_places();
}

void Run::show_progress() {
    if (!is_reading_ || !progress_.is_due()) return;
    std::string more;
    for (const auto &sink : sinks_)
        if (more.empty()) more = sink->progress();
    progress_.show(inputs_.name(), consumed_, inputs_.input().size(), last_block_, more);
}

// From where what was measured is placed. Of a single source, what is shown tells that.
void Run::tell_places() const {
    if (!options_.locates || pass_ != 0) return;
    const PlaceCounts counts = inputs_.places();
    if (counts.sources() > 1) reports_.tell_of_file(places_text(counts));
    if (!options_.verbose) return;
    for (const ast_site_t &site : inputs_.worked_out()) reports_.tell_of_file(estimate_text(site));
}

// Once for each source.
void Run::tell_what_cannot_be() {
    for (const auto &[source, judgement] : judgements_) {
        if (!judgement.is_implausible()) continue;
        is_implausible_ = true;
        if (pass_ != 0) continue;
        reports_.tell_of_file(judgement_text(source, judgement));
        for (const auto &sink : sinks_) sink->doubt(source, judgement);
    }
    judgements_.clear();
}

std::string Run::place() const { return inputs_.name() + ", behind block " + std::to_string(last_block_); }

void Run::finish() {
    for (const auto &sink : sinks_)
        if (is_broken_off())
            sink->break_off();
        else if (unreadable_)
            sink->give_up();
        else
            sink->finish(octets_read_);
    tell_what_is_left_out();
    reports_.summary();
}

void Run::tell_what_is_left_out() const {
    if (unconverted_ != 0) tell(counted(unconverted_, "record") + " that cannot be converted left out");
    for (const std::string &complaint : coverage_.complaints(options_.where)) tell(complaint);
    if (const std::string text = repeats_.text(); !text.empty()) tell("--dedup: " + text);
    for (const std::string &complaint : options_.settings.complaints(settings_)) tell(complaint);
}

std::unique_ptr<Job> Run::make_job(size_t chunk_octets) { return std::make_unique<RenderJob>(chunk_octets); }

void Run::work(Job &job, size_t number) { worker(number).render(job, most(), static_cast<RenderJob &>(job).rendered); }

// With reports at their places.
void Run::take_first(const Rendered &rendered) {
    size_t taken = 0;
    for (const Report &report : rendered.reports.list()) {
        if (!sinks_.empty()) sinks_.front()->take(rendered.texts.front().text().substr(taken, report.place - taken));
        if (!sinks_.empty() && reports_.shows_each()) sinks_.front()->flush();
        taken = report.place;
        for (const auto &sink : sinks_) sink->report(report);
        if (pass_ == 0) reports_.show(report);
    }
    if (!sinks_.empty()) sinks_.front()->take(rendered.texts.front().text().substr(taken));
}

// What has been shown has been written to files before, whatever ends the run.
bool Run::take(Job &job) {
    const Rendered &rendered = static_cast<const RenderJob &>(job).rendered;
    unconverted_ += rendered.unconverted;
    shown_ += rendered.shown;
    coverage_ |= rendered.coverage;
    settings_ += rendered.settings;
    repeats_ += rendered.repeats;
    for (const auto &[source, judgement] : rendered.judgements) judgements_[source] += judgement;
    for (size_t i = 0; i < sinks_.size(); ++i) sinks_[i]->count(rendered.tally);
    for (size_t i = 1; i < sinks_.size(); ++i) sinks_[i]->take(rendered.texts[i].text());
    take_first(rendered);
    consumed_ = job.chunk.consumed;
    last_block_ = job.chunk.end_number - 1;
    show_progress();
    return !has_enough() && !is_broken_off(); // what comes live has still to say what it holds back
}

} // namespace ast::recording::astdump
