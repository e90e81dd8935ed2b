// A recording as a program holds it.
#pragma once

#include <array>
#include <memory>
#include <thread>

#include "api/block_job.hpp"
#include "api/handover.hpp"
#include "api/open_options.hpp"
#include "block/decoded_block.hpp"
#include "source/input_sequence.hpp"

namespace ast::recording {

class Recording final : private Steps, private InputObserver {
public:
    // Throws CannotOpen, and what the system has against it.
    Recording(std::vector<Origin> origins, const ReadOptions &read, const ast_recording_options_t &options);
    ~Recording() override;

    // As ast_recording_next_within, with a negative limit for none.
    bool next(ast_recording_block_t &block, int limit_ms);
    bool get_record(uint64_t index, ast_datarecord_t &record);
    bool decode(ast_datablock_t &block);

    // The block that the last call handed over, split; what is asked for of it, and where it was sent from, is left to
    // the caller.
    DecodedBlock split_block();
    uint32_t get_state(ast_recording_state_t &state) const;
    void interrupt() noexcept { interruption_.interrupt(); }

private:
    // Where it is read: on a thread of its own, or by the caller.
    void read_all();
    bool read_on(int limit_ms);
    void pull();
    bool hand(const Delivery &delivery);

    // On the caller's side.
    void receive(const Opened &opened);
    void receive(const Told &told);
    void receive(const Filled &filled);
    void receive(const End &);
    bool next_of_job(ast_recording_block_t &block);
    void end_job();
    EditionMemory &editions_of_last();
    const SplitBlock &split_last();
    void tell(const Report &report, const char *file);
    void fill(ast_recording_block_t &block, const HandedBlock &from) const;
    bool end(uint32_t phase);
    void fail(uint32_t code, std::string_view text);

    std::unique_ptr<Job> make_job(size_t chunk_octets) override { return std::make_unique<BlockJob>(chunk_octets); }
    bool read(Job &job) override;
    void work(Job &job, size_t worker) override;
    bool take(Job &job) override;

    void opened(const std::string &name, const Input &input) override;
    void failed(const InputFailure &failure) override;
    void announced(const std::string &what) override;

    ReadOptions read_options_;
    ast_recording_report_function_t report_;
    void *context_;
    Interruption interruption_;
    InputSequence inputs_;
    std::vector<std::unique_ptr<BlockReader>> readers_; // of each worker, made when it has something to do
    std::unique_ptr<BlockJob> own_job_;                 // where the caller reads
    bool is_open_ = false;                              // an input, where the caller reads
    bool is_threaded_;
    bool has_thread_ = false;    // which runs
    uint64_t next_datagram_ = 1; // of the input at hand

    // What the caller has been given.
    const BlockJob *job_ = nullptr; // that he is in
    bool holds_delivery_ = false;   // which belongs to the thread
    size_t next_block_ = 0;
    size_t next_report_ = 0;
    const HandedBlock *last_ = nullptr;
    std::unique_ptr<SplitBlock> split_; // of this one, where its records are asked for
    bool is_split_ = false;
    EditionMemory editions_; // in front of it, where its records are asked for
    bool grows_ = false;     // that memory, as it was
    size_t learnt_ = 0;      // blocks of the job
    uint32_t phase_ = AST_RECORDING_READING;
    Opened input_;
    bool has_input_ = false;
    uint64_t consumed_ = 0;    // octets of the input at hand
    uint64_t octets_read_ = 0; // of those before it
    uint64_t blocks_ = 0;
    std::array<uint64_t, AST_REPORT_KINDS> reports_{};
    ast_recording_error_t error_{};
    bool is_opening_ = true; // what fails then is said by whoever opens it

    Handover handover_;
    std::thread thread_;
};

} // namespace ast::recording
