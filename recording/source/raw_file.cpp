#include "source/raw_file.hpp"

#include <algorithm>

#include "base/printable.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

bool needs_more(Framing framing) { return framing == Framing::short_header || framing == Framing::past_end; }

} // namespace

// The first block has to be whole before anything can be said; no more octets mend a LEN that does not count the
// header. Behind that, a place where blocks break off is passed over to the next one where they run again.
bool RawFile::fill(Chunk &chunk) {
    window_.open(chunk);
    while (stream_.is_at_rest() && !chunk.is_full() && read(chunk)) continue; // as far as the end, if that is near
    Frame first = frame_block(chunk.octets());
    while (needs_more(first.framing) && read(chunk)) first = frame_block(chunk.octets());
    Soundness soundness = look(chunk);
    while (soundness.sound == 0 && !soundness.gap && read(chunk)) soundness = look(chunk);
    if (soundness.sound == 0 && !soundness.gap) soundness = is_read_ ? look(chunk) : give_up(chunk);
    const Octets octets = chunk.octets();
    if (soundness.sound != 0)
        chunk.add({.octets = octets.first(soundness.sound), .blocks = soundness.blocks, .offset = offset_});
    uint64_t taken = soundness.sound;
    if (soundness.gap && !is_cut_off(octets.subspan(taken))) add_gap(chunk, taken, *soundness.gap);
    taken += soundness.gap.value_or(0);
    window_.leave(chunk, taken);
    offset_ += taken;
    return !chunk.datagrams().empty();
}

// The last block waits for what follows it, which may show that its LEN is wrong; but not where that has yet to be
// sent.
Soundness RawFile::look(const Chunk &chunk) const {
    Soundness soundness = check_blocks(chunk.octets(), is_read_);
    if (!is_read_ && !soundness.gap && stream_.is_at_rest()) soundness.take_back_last();
    return soundness;
}

// Where a chunk has no room for as many octets as it takes to tell where blocks run again.
Soundness RawFile::give_up(const Chunk &chunk) {
    Soundness soundness = check_blocks(chunk.octets(), false);
    if (soundness.sound == 0) soundness.gap = std::max<uint64_t>(soundness.no_blocks, 1);
    return soundness;
}

bool RawFile::read(Chunk &chunk) {
    if (is_read_ || chunk.room().empty()) return false;
    is_read_ = !window_.read(chunk);
    return !is_read_;
}

// A block that was about to be written when the user had seen enough is no damage.
bool RawFile::is_cut_off(Octets rest) const { return stream_.cut_off() && needs_more(frame_block(rest).framing); }

// As a datagram of its own, which starts with no whole block.
void RawFile::add_gap(Chunk &chunk, uint64_t place, uint64_t octets) {
    const Octets unread = chunk.octets().subspan(place, octets);
    chunk.add({.octets = unread, .offset = offset_ + place, .unread = octets, .is_text = is_text(unread)});
}

} // namespace ast::recording
