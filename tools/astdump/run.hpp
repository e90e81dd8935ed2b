// From files to sinks.
#pragma once

#include <limits>

#include "damage_log.hpp"
#include "input.hpp"
#include "output.hpp"
#include "pipeline.hpp"
#include "terminal.hpp"
#include "worker.hpp"

namespace astdump {

class Run : private Steps {
public:
    // `waiting` is null where no user can end the run.
    Run(const Options &options, Sinks sinks, const Output &out, DamageLog &damage, Progress progress, Waiting *waiting);

    // Reads all files and returns the exit status.
    int files();

private:
    // What may still be shown: blocks, or lines of records.
    uint64_t most() const { return options_.count ? *options_.count - shown_ : std::numeric_limits<uint64_t>::max(); }

    // Nobody has to see what is written to files.
    bool is_unseen() const { return out_.error() != 0 && !options_.writes_files(); }
    bool has_enough() const { return most() == 0 || is_unseen(); }
    bool done() const { return has_enough() || (waiting_ && waiting_->ended()); }
    void file(const std::string &path, Pipeline &pipeline);
    void merged(Pipeline &pipeline);
    std::unique_ptr<Input> open(const std::string &path, const DatagramChoice &choice);
    void start_file(const std::string &name, const Input &input);
    void read_input(Pipeline &pipeline);
    template <typename Read>
    void attempt(const std::string &name, Read read);
    void finish();
    void tell_what_is_left_out() const;
    bool read(Chunk &chunk) override;
    void render(Job &job, size_t worker) override;
    bool write(Job &job) override;
    Worker &worker(size_t number);

    const Options &options_;
    Sinks sinks_;
    const Output &out_;
    DamageLog &damage_;
    Progress progress_;
    Waiting *waiting_;
    std::vector<std::optional<Worker>> workers_; // made when their threads have something to do
    uint64_t shown_ = 0;                         // as the first sink counts
    Asked asked_;
    uint64_t unconverted_ = 0; // records
    uint64_t octets_read_ = 0; // of the files before this one
    bool unreadable_ = false;

    // The file at hand.
    std::unique_ptr<Input> input_;
    std::string name_;
    uint64_t consumed_ = 0;
    Editions editions_; // in front of what is read next
};

} // namespace astdump
