// From files to sinks.
#pragma once

#include <limits>
#include <optional>

#include "run/options.hpp"
#include "run/worker.hpp"
#include "show/report_log.hpp"
#include "show/terminal.hpp"
#include "source/input_sequence.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

class Run : private Steps, private InputObserver {
public:
    // `interruption` is null where no user can end the run.
    Run(const Options &options, Sinks sinks, const Output &out, ReportLog &reports, Progress progress,
        Interruption *interruption);

    // Reads all files and returns the exit status.
    int files();

    // How far it has got: "a.pcap, behind block 12".
    std::string place() const;

private:
    // What may still be shown: blocks, or lines of records.
    uint64_t most() const { return options_.count ? *options_.count - shown_ : std::numeric_limits<uint64_t>::max(); }

    // Nobody has to see what is written to files.
    bool is_unseen() const { return out_.error() != 0 && !options_.writes_files(); }
    bool has_enough() const { return most() == 0 || is_unseen(); }
    bool done() const { return has_enough() || (interruption_ && interruption_->ended()); }

    // What comes as it is sent is whole wherever the user ends it.
    bool is_broken_off() const { return interruption_ && interruption_->ended() && !is_live_; }
    void read_input(Pipeline &pipeline);
    void show_progress();
    void finish();
    void tell_what_is_left_out() const;
    void tell_what_cannot_be();
    void tell_places() const;

    std::unique_ptr<Job> make_job(size_t chunk_octets) override;
    bool read(Job &job) override { return inputs_.fill(job); }
    void work(Job &job, size_t worker) override;
    bool take(Job &job) override;
    void take_first(const Rendered &rendered);
    Worker &worker(size_t number);

    void opened(const std::string &name, const Input &input) override;
    void failed(const InputFailure &failure) override;
    void announced(const std::string &what) override { tell(what); }

    const Options &options_;
    Sinks sinks_;
    const Output &out_;
    ReportLog &reports_;
    Progress progress_;
    Interruption *interruption_;
    InputSequence inputs_;
    std::vector<std::optional<Worker>> workers_; // made when their threads have something to do
    uint64_t pass_ = 0;                          // over all inputs; what the first has told holds for all
    uint64_t shown_ = 0;                         // as the first sink counts
    FilterCoverage coverage_;
    SettingCounts settings_;
    RepeatCounts repeats_;
    Judgements judgements_;       // of the input at hand
    bool is_implausible_ = false; // any source of any input
    uint64_t unconverted_ = 0;    // records
    uint64_t octets_read_ = 0;    // of the files before this one
    uint64_t consumed_ = 0;       // of this one
    uint64_t last_block_ = 0;     // that has been taken
    bool is_reading_ = false;
    bool is_live_ = false; // the input at hand, or the last one
    bool unreadable_ = false;
};

} // namespace ast::recording::astdump
