#include "run.hpp"

#include <algorithm>
#include <cstdio>
#include <system_error>
#include <utility>

#include "text.hpp"

namespace astdump {

namespace {

// What comes bit by bit is shown bit by bit, and blocks are counted one after the other.
size_t threads_of(const Options &options) { return options.follow || options.count ? 1 : options.jobs; }

size_t chunk_octets_of(const Options &options, const Sinks &sinks) {
    if (options.chunk_octets) return *options.chunk_octets;
    size_t octets = size_t{256} * 1024;
    for (const auto &sink : sinks) octets = std::min(octets, sink->chunk_octets());
    return octets;
}

} // namespace

Run::Run(const Options &options, Sinks sinks, const Output &out, DamageLog &damage, Progress progress, Waiting *waiting)
    : options_(options),
      sinks_(std::move(sinks)),
      out_(out),
      damage_(damage),
      progress_(progress),
      waiting_(waiting),
      workers_(threads_of(options)) {}

Worker &Run::worker(size_t number) {
    auto &worker = workers_[number];
    if (!worker) worker.emplace(options_, sinks_);
    return *worker;
}

int Run::files() {
    Pipeline pipeline(*this, threads_of(options_), chunk_octets_of(options_, sinks_));
    for (const std::string &path : options_.files) {
        if (done()) break;
        try {
            file(path, pipeline);
        } catch (const std::system_error &error) {
            clear_line();
            std::fprintf(stderr, "astdump: %s: %s\n", path.c_str(), error.code().message().c_str());
            unreadable_ = true;
        }
        input_.reset();
    }
    clear_line();
    const bool is_cut = unreadable_ || out_.error() != 0;
    for (const auto &sink : sinks_)
        if (is_cut)
            sink->give_up();
        else
            sink->finish(octets_read_);
    if (unconverted_ != 0)
        std::fprintf(stderr, "astdump: %s that cannot be converted left out\n",
                     counted(unconverted_, "record").c_str());
    damage_.summary();
    if (unreadable_) return kExitUnusable;
    return damage_.any() ? kExitDamaged : kExitClean;
}

void Run::file(const std::string &path, Pipeline &pipeline) {
    name_ = path == "-" ? "standard input" : path;
    damage_.set_file(name_);
    input_.emplace(path, options_.interface, waiting_, options_.follow, options_.framing);
    for (const auto &sink : sinks_) {
        sink->file(name_);
        sink->framing(input_->framing());
        if (!input_->is_at_rest()) sink->live();
    }
    consumed_ = 0;
    if (!done()) pipeline.run();
    octets_read_ += consumed_;
}

bool Run::read(Chunk &chunk) { return input_->fill(chunk); }

void Run::render(Job &job, size_t number) {
    worker(number).render(job.chunk, expected_, most(), job.rendered);
    expected_ = job.rendered.profile_after;
}

// A chunk that was rendered from another profile than the blocks before it have led to is rendered again.
bool Run::write(Job &job, size_t number) {
    Rendered &rendered = job.rendered;
    if (rendered.profile_before != profile_) {
        worker(number).render(job.chunk, profile_, most(), rendered);
        expected_ = rendered.profile_after;
    }
    profile_ = rendered.profile_after;
    unconverted_ += rendered.unconverted;
    shown_ += rendered.shown;
    size_t taken = 0;
    for (const Report &report : rendered.damage.reports()) {
        if (!sinks_.empty()) sinks_.front()->take(rendered.texts.front().text().substr(taken, report.place - taken));
        if (!sinks_.empty()) sinks_.front()->flush();
        taken = report.place;
        damage_.show(report);
    }
    for (size_t i = 0; i < sinks_.size(); ++i) {
        sinks_[i]->take(rendered.texts[i].text().substr(i == 0 ? taken : 0));
        sinks_[i]->count(rendered.tally);
    }
    consumed_ = job.chunk.consumed;
    progress_.update(name_, consumed_, input_->size(), job.chunk.end_number - 1);
    return !done();
}

} // namespace astdump
