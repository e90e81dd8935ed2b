// A recording as if it were made now.
#pragma once

#include <optional>

#include "ask/answerer.hpp"
#include "block/decoded_block.hpp"
#include "write/block_rewriter.hpp"

namespace ast::recording {

// Moves all times by whole seconds, so that fractions stay: those in records by what brings the first time of day to
// now, those of reception by what brings the first of these to now. Blocks come in their order.
class TimeShift {
public:
    // What comes next is the first.
    void restart() { *this = TimeShift(); }

    // Replaces a block by one with its times moved. The result is good until the next call.
    void move(DecodedBlock &decoded, const EditionMemory &editions);

    // The same for the time of reception.
    const Datagram &move(const Datagram &datagram);

private:
    int64_t recorded_s(const ast_datarecord_t &record, const std::optional<Time> &received);

    std::optional<int64_t> last_s_;      // when the last record with a time of day was made
    std::optional<int64_t> seconds_;     // that records are moved by
    std::optional<int64_t> reception_s_; // that times of reception are
    Answerer answerer_;
    Datagram datagram_;
    BlockRewriter rewriter_;
};

} // namespace ast::recording
