// Octets in their order, blocks back to back: one direction of a TCP connection, if it is one of ASTERIX at all.
#pragma once

#include <optional>
#include <vector>

#include "datagram/chunk.hpp"
#include "framing/block_header.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

class BlockStream {
public:
    // Whether the octets begin where the connection did; elsewhere they may begin within a block.
    explicit BlockStream(bool is_from_start) : is_from_start_(is_from_start) {}

    // Adds the blocks that octets complete to a chunk, as one datagram like `stamp`, and what is none between them as
    // another. Until a chain of blocks shows what the stream is, it holds them back.
    void add(Octets octets, const Datagram &stamp, Chunk &chunk);

    // Goes on behind octets that are missing.
    void skip(uint64_t octets, const Datagram &stamp, Chunk &chunk);

    // At the end of the stream, or, `is_cut`, where only the capture ends.
    void end(bool is_cut, const Datagram &stamp, Chunk &chunk);

    bool holds_blocks() const { return state_ == State::blocks || state_ == State::searching; }
    bool is_other() const { return state_ == State::other; }
    size_t held_octets() const { return pending_.capacity(); }

private:
    enum class State {
        unknown,
        blocks,
        searching, // for blocks, behind a gap
        other,     // than a stream of blocks
    };

    void flush(bool is_end, const Datagram &stamp, Chunk &chunk);
    void recognise(bool is_end, const Datagram &stamp, Chunk &chunk);
    void search(bool is_end, const Datagram &stamp, Chunk &chunk);
    struct Chain;
    Chain chain_in(Octets head);
    std::optional<size_t> look_for_chain(Octets octets, uint64_t blocks, bool is_end, Patience &patience);
    void take_blocks(bool is_end, const Datagram &stamp, Chunk &chunk);
    uint64_t gap_at(Octets rest, const Soundness &soundness, Patience &patience);
    void emit(Octets octets, uint64_t place, const Datagram &stamp, Chunk &chunk) const;
    static void note(const Datagram &stamp, const char *what, uint64_t octets, Chunk &chunk);
    void drop(uint64_t octets);

    State state_ = State::unknown;
    bool is_from_start_;
    bool is_cut_ = false; // at the end, which is that of the capture alone
    std::vector<uint8_t> pending_;
    uint64_t offset_ = 0;  // of these in the stream
    Blocks chain_{0, 0};   // at their beginning, as far as it is known
    size_t next_look_ = 0; // how many there are to be before it is worth while to look through them again
};

} // namespace ast::recording
