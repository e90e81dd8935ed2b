#include "framed_file.hpp"

#include <algorithm>

#include "moment.hpp"

namespace astdump {

namespace {

constexpr uint32_t kCentisecondsPerSecond = 100;
constexpr uint32_t kNanosecondsPerCentisecond = 10'000'000;

} // namespace

// A line of text may go on behind the octets at hand, a frame of octets may not.
Framed FramedFile::frame_at(Octets octets, uint64_t place) {
    const Octets rest = octets.subspan(place);
    const bool may_go_on = kind_.is_text && !is_read_;
    if (may_go_on && std::ranges::find(rest, uint8_t{'\n'}) == rest.end()) return incomplete_frame();
    const Framed framed = kind_.find(rest, storage_);
    return may_go_on && framed.octets == rest.size() ? incomplete_frame() : framed;
}

bool FramedFile::read(Chunk &chunk) {
    if (!is_read_ && window_.read(chunk)) return true;
    is_read_ = true;
    return false;
}

// The next place at which there is a frame; the end where there is none.
uint64_t FramedFile::next_frame(Octets octets, uint64_t from) {
    for (uint64_t place = from + 1; place < octets.size(); ++place)
        if (frame_at(octets, place).state == Framed::State::frame) return place;
    return octets.size();
}

// A time that falls back by more than half a day is one of the next day.
Time FramedFile::time_of(uint32_t centiseconds) {
    constexpr uint32_t kHalfDay = 12 * 60 * 60 * kCentisecondsPerSecond;
    if (centiseconds + kHalfDay < last_centiseconds_) ++days_;
    last_centiseconds_ = centiseconds;
    return {days_ * kSecondsPerDay + centiseconds / kCentisecondsPerSecond,
            centiseconds % kCentisecondsPerSecond * kNanosecondsPerCentisecond};
}

void FramedFile::add(Chunk &chunk, uint64_t place, const Framed &framed) {
    const bool is_unpacked =
        framed.blocks.data() >= storage_.data() && framed.blocks.data() < storage_.data() + storage_.size();
    Datagram datagram{.octets = is_unpacked ? chunk.keep_apart(framed.blocks) : framed.blocks,
                      .offset = offset_ + place};
    if (!is_unpacked) datagram.offset = offset_ + static_cast<uint64_t>(framed.blocks.data() - chunk.octets().data());
    if (const auto time = framed.centiseconds) datagram.time = time_of(*time);
    chunk.add(datagram);
}

bool FramedFile::fill(Chunk &chunk) {
    window_.open(chunk);
    uint64_t place = 0;
    if (offset_ == 0) {
        while (chunk.octets().size() <= kind_.lead_octets && read(chunk)) {
        }
        place = std::min<uint64_t>(kind_.lead_octets, chunk.octets().size());
    }
    while (place < chunk.octets().size() || (chunk.datagrams().empty() && read(chunk))) {
        const Framed framed = frame_at(chunk.octets(), place);
        if (framed.state == Framed::State::frame) {
            add(chunk, place, framed);
            place += framed.octets;
            continue;
        }
        if (framed.state == Framed::State::incomplete && !is_read_) {
            if (!chunk.datagrams().empty()) break;
            read(chunk);
            continue;
        }
        const uint64_t next = next_frame(chunk.octets(), place);
        // What was about to be written when the user had seen enough is no damage.
        if (!stream_.cut_off()) chunk.damage().skipped(offset_ + place, next - place, kind_.name);
        place = next;
    }
    window_.leave(chunk, place);
    offset_ += place;
    return !chunk.datagrams().empty() || !chunk.damage().reports().empty();
}

} // namespace astdump
