// From files to sinks.
#pragma once

#include <limits>

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
    // Blocks that may still be shown.
    uint64_t most() const { return options_.count ? *options_.count - shown_ : std::numeric_limits<uint64_t>::max(); }
    bool done() const { return most() == 0 || out_.error() != 0 || (waiting_ && waiting_->ended()); }
    void file(const std::string &path, Pipeline &pipeline);
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
    uint64_t shown_ = 0;                         // blocks
    uint64_t unconverted_ = 0;                   // records
    uint64_t octets_read_ = 0;                   // of the files before this one
    bool unreadable_ = false;

    // The file at hand.
    std::optional<Input> input_;
    std::string name_;
    uint64_t consumed_ = 0;
    Editions editions_; // in front of what is read next
};

} // namespace astdump
