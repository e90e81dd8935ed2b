// What one thread needs to render chunks, and what becomes of them.
#pragma once

#include <memory>
#include <vector>

#include "ask/filter.hpp"
#include "ask/source_judge.hpp"
#include "base/text_buffer.hpp"
#include "datagram/report.hpp"
#include "run/options.hpp"
#include "show/counts.hpp"
#include "show/sink.hpp"
#include "source/pipeline.hpp"
#include "write/block_converter.hpp"
#include "write/repeats.hpp"
#include "write/settings.hpp"
#include "write/time_shift.hpp"

namespace ast::recording::astdump {

using Sinks = std::vector<std::unique_ptr<Sink>>;

// What becomes of a chunk.
struct Rendered {
    std::vector<TextBuffer> texts; // by sink
    Reports reports;               // the place of a report is in the text of the first sink
    Tally tally;
    uint64_t unconverted = 0; // records that are left out
    uint64_t shown = 0;       // as the first sink counts
    FilterCoverage coverage;
    SettingCounts settings;
    RepeatCounts repeats;
    Judgements judgements;
};

class Worker {
public:
    Worker(const Options &options, const Sinks &sinks);

    // Decodes the blocks of a chunk and lets the sinks show those that are asked for, at most so many of what the first
    // one shows.
    void render(const Job &job, uint64_t most, Rendered &rendered);

private:
    struct Walk;

    // Whether that is all that becomes of the blocks of a chunk that have no fault.
    bool only_counts(const Chunk &chunk) const { return only_counts_ && chunk.first_number > kJudgedBlocks; }
    Blocks count(Octets blocks, Rendered &rendered);
    void no_block(const Datagram &datagram, uint64_t offset, const Frame &frame, Rendered &rendered);
    void show_part(const Datagram &datagram, uint64_t offset, uint64_t announced, Rendered &rendered);
    void block(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets, uint64_t most,
               Rendered &rendered);
    void change(DecodedBlock &decoded, const Datagram &datagram);
    uint64_t cut(DecodedBlock &decoded, uint64_t most) const;
    void show_converted(DecodedBlock decoded, uint64_t most, Rendered &rendered);
    void show(DecodedBlock &decoded, uint64_t most, Rendered &rendered);

    const Options &options_;
    Decoder decoder_;
    std::optional<TimeShift> shift_;
    BlockRewriter rewriter_;
    Answerer answerer_;
    BlockRewriter anonymous_;
    SettingCounts settings_;
    std::optional<Repeats> repeats_;
    RepeatCounts repeat_counts_;
    BlockConverter converter_;
    std::vector<uint8_t> part_; // of a block
    Counter counter_;
    FilterCoverage coverage_;                          // of all that has been decoded here
    const Sink *first_ = nullptr;                      // whose count counts
    bool counts_ = false;                              // whether any sink wants that
    bool only_counts_ = false;                         // whether that is all that becomes of a block without a fault
    std::vector<std::unique_ptr<Renderer>> renderers_; // null for a sink without one
};

} // namespace ast::recording::astdump
