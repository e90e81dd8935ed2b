#include "datagram/block_stream.hpp"

#include <algorithm>
#include <optional>

#include "base/counted.hpp"
#include "base/endpoint.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

// Blocks in a row that are no accident. In so few octets as are looked through, text, in which a LEN is at least
// 0x2020, never has that many.
constexpr uint64_t kSureBlocks = 4;
constexpr size_t kSearchedOctets = kSureBlocks * 0x2020;

// Behind a gap it is known that blocks are to come.
constexpr uint64_t kSureBlocksAgain = 2;

// Where a LEN is wrong, this is waited for before it is said.
constexpr size_t kMostOctets = 2 * (kMaxBlockOctets + 1);

} // namespace

// A chain of blocks, and whether the octets behind it may begin another one.
struct BlockStream::Chain {
    uint64_t blocks = 0;
    bool is_exact = false;
    bool may_go_on = false;
};

// At the beginning of what is pending, of which octets there were before are not gone through again.
BlockStream::Chain BlockStream::chain_in(Octets head) {
    const Octets rest = head.subspan(chain_.octets);
    const uint64_t more = chain_of_blocks(rest);
    chain_.count += count_blocks(rest.first(more)).count;
    chain_.octets += more;
    return {.blocks = chain_.count,
            .is_exact = chain_.octets != 0 && chain_.octets == head.size(),
            .may_go_on = may_begin_block(head.subspan(chain_.octets))};
}

void BlockStream::add(Octets octets, const Datagram &stamp, Chunk &chunk) {
    if (state_ == State::other) return;
    pending_.insert(pending_.end(), octets.begin(), octets.end());
    flush(false, stamp, chunk);
}

void BlockStream::skip(uint64_t octets, const Datagram &stamp, Chunk &chunk) {
    if (state_ == State::unknown) recognise(true, stamp, chunk);
    if (holds_blocks()) {
        flush(true, stamp, chunk);
        chunk.reports().missing(stamp.packet, *stamp.endpoints, octets);
        state_ = State::searching;
    }
    drop(pending_.size());
    offset_ += octets;
    is_from_start_ = false;
}

void BlockStream::end(bool is_cut, const Datagram &stamp, Chunk &chunk) {
    is_cut_ = is_cut;
    if (state_ == State::unknown) recognise(true, stamp, chunk);
    if (state_ == State::unknown && !pending_.empty()) state_ = State::other;
    flush(true, stamp, chunk);
    drop(pending_.size());
}

void BlockStream::flush(bool is_end, const Datagram &stamp, Chunk &chunk) {
    if (state_ == State::unknown) recognise(is_end, stamp, chunk);
    if (state_ == State::searching) search(is_end, stamp, chunk);
    if (state_ == State::blocks) take_blocks(is_end, stamp, chunk);
}

// A segment that ends with a block says more than a block in the midst of one.
void BlockStream::recognise(bool is_end, const Datagram &stamp, Chunk &chunk) {
    if (pending_.empty()) return;
    const size_t most = is_from_start_ ? kMostOctets : kSearchedOctets;
    const Octets head = Octets(pending_).first(std::min(pending_.size(), most));
    const Chain chain = chain_in(head);
    Patience patience = chunk.patience();
    uint64_t needed = kSureBlocks;
    if (is_from_start_ && (is_end || pending_.size() > most)) needed = 2;
    if (chain.is_exact) needed = is_from_start_ || is_end ? 1 : 2;
    if (chain.may_go_on && chain.blocks >= needed) {
        state_ = State::blocks;
    } else if (const auto place = is_from_start_ ? std::nullopt : look_for_chain(head, kSureBlocks, is_end, patience)) {
        note(stamp, "begins", *place, chunk);
        drop(*place);
        state_ = State::blocks;
    } else if (pending_.size() > most || (is_from_start_ && !chain.may_go_on)) {
        state_ = State::other;
        pending_ = {};
    }
}

void BlockStream::search(bool is_end, const Datagram &stamp, Chunk &chunk) {
    if (pending_.empty()) return;
    const Chain chain = chain_in(pending_);
    Patience patience = chunk.patience();
    std::optional<size_t> place;
    if (chain.may_go_on && chain.blocks >= (chain.is_exact || is_end ? 1 : kSureBlocksAgain)) place = 0;
    if (!place) place = look_for_chain(pending_, kSureBlocksAgain, is_end, patience);
    if (patience.is_over()) return;
    if (place) state_ = State::blocks;
    if (!place && is_end) place = pending_.size();
    if (!place && pending_.size() > kMostOctets) place = pending_.size() / 2;
    if (place.value_or(0) == 0) return;
    chunk.reports().fragment(stamp.packet, *stamp.endpoints, *place);
    drop(*place);
}

// The first place behind the beginning from which so many blocks run as far as the octets go. It is worth another look
// only when an eighth of them is new.
std::optional<size_t> BlockStream::look_for_chain(Octets octets, uint64_t blocks, bool is_end, Patience &patience) {
    if (!is_end && octets.size() < next_look_) return std::nullopt;
    next_look_ = octets.size() + octets.size() / 8;
    return find_chain(octets, blocks, patience);
}

void BlockStream::take_blocks(bool is_end, const Datagram &stamp, Chunk &chunk) {
    uint64_t taken = 0;
    Patience patience = chunk.patience();
    while (taken < pending_.size() && (is_end || pending_.size() >= next_look_)) {
        const Octets rest = Octets(pending_).subspan(taken);
        const Soundness soundness = check_blocks(rest, is_end, patience);
        if (patience.is_over()) break;
        const uint64_t gap = soundness.gap          ? *soundness.gap
                             : soundness.sound == 0 ? gap_at(rest, soundness, patience)
                                                    : 0;
        if (soundness.sound == 0 && gap == 0) break;
        emit(rest.first(soundness.sound), taken, stamp, chunk);
        taken += soundness.sound;
        const Octets behind = rest.subspan(soundness.sound, gap);
        if (is_cut_ && gap == rest.size() - soundness.sound && may_begin_block(behind))
            note(stamp, "ends", gap, chunk);
        else
            emit(behind, taken, stamp, chunk);
        taken += gap;
    }
    drop(taken);
}

// A place where blocks run again is not waited for longer than it takes to find one.
uint64_t BlockStream::gap_at(Octets rest, const Soundness &soundness, Patience &patience) {
    if (may_begin_block(rest)) return 0;
    if (const auto place = look_for_chain(rest, kSureBlocksAgain, false, patience)) return *place;
    return rest.size() > kMostOctets ? std::max<uint64_t>(soundness.no_blocks, 1) : 0;
}

void BlockStream::emit(Octets octets, uint64_t place, const Datagram &stamp, Chunk &chunk) const {
    if (octets.empty()) return;
    Datagram datagram = stamp;
    datagram.octets = chunk.keep(octets);
    datagram.offset = offset_ + place;
    chunk.add(datagram);
}

// Where a capture was started or stopped is no damage.
void BlockStream::note(const Datagram &stamp, const char *what, uint64_t octets, Chunk &chunk) {
    if (octets == 0) return;
    chunk.reports().note("TCP " + route_text(*stamp.endpoints) + ": the capture " + what +
                         " within a block, of which it has " + counted(octets, "octet"));
}

void BlockStream::drop(uint64_t octets) {
    if (octets == 0) return;
    pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(octets));
    offset_ += octets;
    chain_ = {0, 0};
    next_look_ = 0;
}

} // namespace ast::recording
