#include "source/raw_file.hpp"

#include <algorithm>

#include "base/printable.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

bool needs_more(Framing framing) { return framing == Framing::short_header || framing == Framing::past_end; }

} // namespace

RawFile::RawFile(OctetStream &stream, const OctetRange &range)
    : stream_(stream), range_(range), window_(stream), offset_(range.start()), is_lost_(offset_ != 0) {
    if (is_lost_) stream_.go_to(offset_);
}

// Steps behind the first one are taken where they need no more octets than there are, wherever a chunk ends: a file
// with many gaps would be copied for each of them otherwise.
bool RawFile::fill(Chunk &chunk) {
    if (offset_ >= range_.end) return false;
    window_.open(chunk);
    Patience patience = chunk.patience();
    while (stream_.is_at_rest() && !chunk.is_full() && read(chunk)) continue; // as far as the end, if that is near
    uint64_t taken = begin(chunk, patience);
    if (taken == 0) taken = take(chunk, 0, look_on(chunk, patience));
    for (uint64_t step = taken; step != 0 && is_enough(chunk, taken); taken += step)
        step = take(chunk, taken, look(chunk.octets().subspan(taken), patience));
    window_.leave(chunk, taken);
    offset_ += taken;
    return taken != 0;
}

// A file that was cut off at its beginning may begin in the midst of a block, and so may what follows octets that are
// none, as far as these go. Returns what of it is left over. Of what is at rest, as much is looked at wherever a chunk
// ends.
uint64_t RawFile::begin(Chunk &chunk, Patience &patience) {
    constexpr size_t kHeadOctets = kMaxBlockOctets + 1;
    if (offset_ != 0 && !is_lost_) return 0;
    is_lost_ = false;
    if (stream_.is_at_rest())
        while (chunk.octets().size() <= kHeadOctets && read(chunk)) continue;
    while (needs_more(frame_block(chunk.octets()).framing) && read(chunk)) continue;
    const Octets head = chunk.octets().first(std::min(chunk.octets().size(), kHeadOctets));
    const uint64_t rest = first_block(head, is_read_ && head.size() == chunk.octets().size(), patience);
    if (rest != 0) add_gap(chunk, 0, rest, true);
    return rest;
}

// The first block has to be whole before anything can be said; no more octets mend a LEN that does not count the
// header. Behind that, a place where blocks break off is passed over to the next one where they run again.
Soundness RawFile::look_on(Chunk &chunk, Patience &patience) {
    Frame first = frame_block(chunk.octets());
    while (needs_more(first.framing) && read(chunk)) first = frame_block(chunk.octets());
    Soundness soundness = look(chunk.octets(), patience);
    while (soundness.sound == 0 && !soundness.gap && read(chunk)) {
        while (stream_.is_at_rest() && read(chunk)) continue; // it is one search more at most
        soundness = look(chunk.octets(), patience);
    }
    if (soundness.sound != 0 || soundness.gap) return soundness;
    if (is_read_) return look(chunk.octets(), patience);
    // The chunk has no room for as many octets as it takes to tell where blocks run again.
    is_lost_ = !patience.is_over();
    if (is_lost_) soundness.gap = std::max<uint64_t>(soundness.no_blocks, 1);
    return soundness;
}

// Whether what stands at a place would be looked at as it is, if a chunk began there.
bool RawFile::is_enough(const Chunk &chunk, uint64_t place) const {
    const Octets rest = chunk.octets().subspan(place);
    if (is_read_ || rest.empty()) return !rest.empty();
    return (!stream_.is_at_rest() || rest.size() >= chunk.limit()) && !needs_more(frame_block(rest).framing);
}

// The octets that are taken with that.
uint64_t RawFile::take(Chunk &chunk, uint64_t place, const Soundness &soundness) {
    const Octets octets = chunk.octets().subspan(place);
    if (soundness.sound != 0)
        add(chunk, {.octets = octets.first(soundness.sound),
                    .blocks = soundness.blocks,
                    .is_filled = true,
                    .offset = offset_ + place});
    if (!soundness.gap) return soundness.sound;
    if (!is_cut_off(octets.subspan(soundness.sound))) add_gap(chunk, place + soundness.sound, *soundness.gap, false);
    return soundness.sound + *soundness.gap;
}

// The last block waits for what follows it, which may show that its LEN is wrong; but not where that has yet to be
// sent.
Soundness RawFile::look(Octets octets, Patience &patience) const {
    Soundness soundness = check_blocks(octets, is_read_, patience);
    if (!is_read_ && !soundness.gap && stream_.is_at_rest()) soundness.take_back_last();
    return soundness;
}

bool RawFile::read(Chunk &chunk) {
    if (is_read_ || chunk.room().empty()) return false;
    is_read_ = !window_.read(chunk);
    return !is_read_;
}

// A block that was about to be written when the user had seen enough is no damage.
bool RawFile::is_cut_off(Octets rest) const { return stream_.cut_off() && needs_more(frame_block(rest).framing); }

// Where blocks break off, octets that are none may begin with one that is damaged, which stands for itself; or be
// filled by such.
void RawFile::add_gap(Chunk &chunk, uint64_t place, uint64_t octets, bool is_beginning) {
    const Octets gap = chunk.octets().subspan(place, octets);
    const Frame first = frame_block(gap);
    uint64_t damaged = 0;
    if (!is_beginning && first.framing == Framing::block && !is_text(gap))
        damaged = !is_lost_ && count_blocks(gap).octets == gap.size() ? gap.size() : first.length;
    if (damaged != 0) add(chunk, {.octets = gap.first(damaged), .offset = offset_ + place});
    const Octets rest = gap.subspan(damaged);
    if (!rest.empty()) add(chunk, {.octets = rest, .offset = offset_ + place + damaged, .is_no_block = true});
}

// Of blocks that are whole, those that begin in the range.
void RawFile::add(Chunk &chunk, Datagram datagram) const {
    const uint64_t end = datagram.offset + datagram.octets.size();
    if (datagram.is_filled && (datagram.offset < range_.begin || end > range_.end)) {
        uint64_t begin = 0, taken = 0;
        each_block(datagram.octets, [&](Octets block) {
            const auto place = static_cast<uint64_t>(block.data() - datagram.octets.data());
            if (datagram.offset + place < range_.begin) begin = place + block.size();
            if (datagram.offset + place < range_.end) taken = place + block.size();
        });
        if (begin >= taken) return;
        datagram = {.octets = datagram.octets.subspan(begin, taken - begin), .offset = datagram.offset + begin};
    }
    if (range_.holds(datagram.offset)) chunk.add(datagram);
}

} // namespace ast::recording
