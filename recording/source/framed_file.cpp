#include "source/framed_file.hpp"

#include <algorithm>

#include "base/time.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

constexpr size_t kMostFrameOctets = 2 * (kMaxBlockOctets + 1);
constexpr uint32_t kCentisecondsPerSecond = 100;
constexpr uint32_t kNanosecondsPerCentisecond = 10'000'000;

} // namespace

FramedFile::FramedFile(OctetStream &stream, const FramingKind &kind, const OctetRange &range)
    : stream_(stream), kind_(kind), range_(range), window_(stream), offset_(range.start()) {
    if (offset_ == 0) return;
    begin_days();
    stream_.go_to(offset_);
}

// Days are counted from the first frame of the file on, wherever its reading begins.
void FramedFile::begin_days() {
    const Octets head = stream_.peek(static_cast<size_t>(kind_.lead_octets) + kMostFrameOctets);
    const Framed first = kind_.find(head.subspan(lead_of(kind_, head)), storage_);
    if (first.state == Framed::State::frame) first_cs_ = first.centiseconds;
}

// What follows may still have a say in it only as long as that is not too much to wait for. Of text, a line that is too
// long is so from each of its characters on, as long as too many are left.
Framed FramedFile::frame_at(Octets rest) {
    const Framed framed = kind_.find(rest, storage_);
    if (framed.octets > kMostFrameOctets) {
        Framed other;
        if (kind_.is_text) other.octets = framed.octets - kMostFrameOctets;
        return other;
    }
    const bool is_open = framed.state == Framed::State::incomplete || framed.may_go_on;
    if (!is_open || is_read_) return framed;
    return rest.size() < kMostFrameOctets ? incomplete_frame() : Framed{};
}

// Whether what follows a frame that is bare may yet have a say in it; of what is not at rest, it may be long in coming.
bool FramedFile::has_to_wait(Octets rest) const {
    return kind_.is_bare && !is_read_ && stream_.is_at_rest() && rest.size() < kMostFrameOctets;
}

bool FramedFile::read(Chunk &chunk) {
    if (!is_read_ && window_.read(chunk)) return true;
    is_read_ = true;
    return false;
}

// A time that falls back by more than half a day is one of the next day.
Time FramedFile::time_of(uint32_t centiseconds) {
    constexpr uint32_t kHalfDay = 12 * 60 * 60 * kCentisecondsPerSecond;
    constexpr uint32_t kMinute = 60 * kCentisecondsPerSecond; // by which frames may be out of order
    if (first_cs_ && centiseconds + kMinute < *first_cs_) days_ = 1;
    first_cs_.reset();
    if (centiseconds + kHalfDay < last_centiseconds_) ++days_;
    last_centiseconds_ = centiseconds;
    return {days_ * kSecondsPerDay + centiseconds / kCentisecondsPerSecond,
            centiseconds % kCentisecondsPerSecond * kNanosecondsPerCentisecond};
}

void FramedFile::add(Chunk &chunk, const Framed &framed) {
    if (framed.blocks.empty()) return;
    const auto time = framed.centiseconds ? std::optional(time_of(*framed.centiseconds)) : std::nullopt;
    if (!range_.holds(offset_ + place_)) return;
    const bool is_unpacked =
        framed.blocks.data() >= storage_.data() && framed.blocks.data() < storage_.data() + storage_.size();
    Datagram datagram{.octets = is_unpacked ? chunk.keep_apart(framed.blocks) : framed.blocks,
                      .offset = offset_ + place_};
    if (!is_unpacked) datagram.offset = offset_ + static_cast<uint64_t>(framed.blocks.data() - chunk.octets().data());
    datagram.time = time;
    chunk.add(datagram);
}

void FramedFile::end_gap(Chunk &chunk) {
    if (gap_ && range_.holds(*gap_)) chunk.reports().skipped(*gap_, offset_ + place_ - *gap_, kind_.name);
    gap_.reset();
}

// False when the octets at hand do not tell what stands at the place, and when nobody waits for that any more.
bool FramedFile::step(Chunk &chunk, Patience &patience) {
    constexpr uint64_t kUsualOctets = 100; // that are looked at, at a place where no frame is
    const Octets rest = chunk.octets().subspan(place_);
    if (rest.empty() || is_behind_range()) return false;
    const Framed framed = frame_at(rest);
    if (framed.state == Framed::State::incomplete && !is_read_) return false;
    const bool is_frame = framed.state == Framed::State::frame && (!is_unsure_ || is_sure_frame(kind_, framed, rest));
    is_unsure_ = !is_frame;
    if (is_frame) {
        if (!framed.blocks.empty()) end_gap(chunk);
        add(chunk, framed);
        place_ += framed.octets;
    } else if (is_read_ && is_idle(kind_, rest)) {
        end_gap(chunk);
        place_ = chunk.octets().size();
    } else {
        if (!patience.lasts(kUsualOctets)) return false;
        if (!gap_) gap_ = offset_ + place_;
        place_ += octets_without_frame(framed, rest);
    }
    return true;
}

bool FramedFile::fill(Chunk &chunk) {
    place_ = 0;
    if (is_behind_range()) return false;
    window_.open(chunk);
    if (offset_ == 0) {
        while (chunk.octets().size() <= kind_.lead_octets && read(chunk)) continue;
        place_ = lead_of(kind_, chunk.octets());
        is_unsure_ = place_ < kind_.lead_octets;
    }
    Patience patience = chunk.patience();
    while (step(chunk, patience)) continue;
    // What is left over goes to the next chunk, where it has more room.
    while (place_ == 0 && !is_read_) {
        read(chunk);
        while (step(chunk, patience)) continue;
    }
    // What was about to be written when the user had seen enough is no damage.
    if (is_read_ && !stream_.cut_off()) end_gap(chunk);
    window_.leave(chunk, place_);
    offset_ += place_;
    return !is_read_ || !chunk.datagrams().empty() || !chunk.reports().empty();
}

} // namespace ast::recording
