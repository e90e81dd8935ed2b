#include "run.hpp"

#include <algorithm>
#include <system_error>
#include <utility>

#include "merged_source.hpp"
#include "split.hpp"
#include "text.hpp"

namespace astdump {

namespace {

// What comes bit by bit is shown bit by bit, blocks are counted one after the other, and a table is drawn anew between
// them.
size_t threads_of(const Options &options) { return options.follow || options.count || options.top ? 1 : options.jobs; }

size_t chunk_octets_of(const Options &options, const Sinks &sinks) {
    if (options.chunk_octets) return *options.chunk_octets;
    size_t octets = size_t{256} * 1024;
    for (const auto &sink : sinks) octets = std::min(octets, sink->chunk_octets());
    return octets;
}

// Under which it is shown.
std::string name_of(const std::string &path) { return path == "-" ? "standard input" : readable(path); }

} // namespace

Run::Run(const Options &options, Sinks sinks, const Output &out, DamageLog &damage, Progress progress, Waiting *waiting)
    : options_(options),
      sinks_(std::move(sinks)),
      out_(out),
      damage_(damage),
      progress_(progress),
      waiting_(waiting),
      workers_(threads_of(options)) {
    ast_log_handler_reg(nullptr); // attempts with a profile that does not fit write messages, too
}

Worker &Run::worker(size_t number) {
    auto &worker = workers_[number];
    if (!worker) worker.emplace(options_, sinks_);
    return *worker;
}

// Reads what it can; the rest of the run goes on.
template <typename Read>
void Run::attempt(const std::string &name, Read read) {
    const auto give_up = [&](const std::string &reason) {
        damage_.end_file();
        tell(name + ": " + reason);
        unreadable_ = true;
    };
    try {
        read();
    } catch (const std::system_error &error) {
        give_up(error.code().message());
    } catch (const UnreadableInput &error) {
        give_up(error.what());
    }
}

int Run::files() {
    Pipeline pipeline(*this, threads_of(options_), chunk_octets_of(options_, sinks_));
    if (options_.merge)
        attempt("--merge", [&] { merged(pipeline); });
    else
        for (const std::string &path : options_.files)
            if (!done()) attempt(path, [&] { file(path, pipeline); });
    input_.reset();
    clear_line();
    finish();
    if (unreadable_) return kExitUnusable;
    return damage_.any_damage() ? kExitDamaged : kExitClean;
}

void Run::finish() {
    for (const auto &sink : sinks_)
        if (unreadable_)
            sink->give_up();
        else
            sink->finish(octets_read_);
    tell_what_is_left_out();
    damage_.summary();
}

void Run::tell_what_is_left_out() const {
    if (unconverted_ != 0) tell(counted(unconverted_, "record") + " that cannot be converted left out");
    for (const std::string &complaint : asked_.complaints(options_.where)) tell(complaint);
}

std::unique_ptr<Input> Run::open(const std::string &path, const DatagramChoice &choice) {
    return std::make_unique<Input>(path, options_.interface, waiting_, options_.follow, options_.framing, choice);
}

void Run::start_file(const std::string &name, const Input &input) {
    for (const auto &sink : sinks_) {
        sink->file(name);
        sink->framing(input.framing());
        if (input.is_live()) sink->live();
    }
}

void Run::read_input(Pipeline &pipeline) {
    consumed_ = 0;
    if (!done()) pipeline.run();
    octets_read_ += consumed_;
    if (!sinks_.empty()) sinks_.front()->flush();
    damage_.end_file();
}

void Run::file(const std::string &path, Pipeline &pipeline) {
    name_ = name_of(path);
    editions_ = look_through({&path, 1}, options_);
    input_ = open(path, options_.datagrams);
    damage_.set_file(name_, input_->is_live());
    start_file(name_, *input_);
    read_input(pipeline);
}

// What is not there is left out, as it is where files are read one after the other.
void Run::merged(Pipeline &pipeline) {
    editions_ = look_through(options_.files, options_);
    auto source = std::make_unique<MergedSource>();
    for (const std::string &path : options_.files)
        attempt(path, [&] {
            auto input = open(path, {});
            const std::string name = name_of(path);
            start_file(name, *input);
            source->add(name, std::move(input));
        });
    name_ = counted(options_.files.size(), "file");
    damage_.set_file(name_, false);
    input_ = std::make_unique<Input>(std::move(source), options_.datagrams);
    read_input(pipeline);
}

// What cannot be looked through beforehand is learnt from in its order, here as where it is decoded.
bool Run::read(Chunk &chunk) {
    const bool is_filled = input_->fill(chunk);
    chunk.editions = editions_;
    if (!editions_.grows()) return is_filled;
    for (const Datagram &datagram : chunk.datagrams())
        if (datagram.may_hold_blocks())
            each_block(datagram.octets, [&](Octets block) {
                if (options_.categories.test(block[0])) editions_.learn(block);
            });
    return is_filled;
}

void Run::render(Job &job, size_t number) { worker(number).render(job.chunk, most(), job.rendered); }

bool Run::write(Job &job) {
    const Rendered &rendered = job.rendered;
    unconverted_ += rendered.unconverted;
    shown_ += rendered.shown;
    asked_ |= rendered.asked;
    size_t taken = 0;
    for (const Report &report : rendered.damage.reports()) {
        if (!sinks_.empty()) sinks_.front()->take(rendered.texts.front().text().substr(taken, report.place - taken));
        if (!sinks_.empty() && damage_.shows_each()) sinks_.front()->flush();
        taken = report.place;
        damage_.show(report);
    }
    for (size_t i = 0; i < sinks_.size(); ++i) {
        sinks_[i]->take(rendered.texts[i].text().substr(i == 0 ? taken : 0));
        sinks_[i]->count(rendered.tally);
    }
    consumed_ = job.chunk.consumed;
    progress_.update(name_, consumed_, input_->size(), job.chunk.end_number - 1);
    return !has_enough(); // an input that the user has ended has still to say what it holds back
}

} // namespace astdump
