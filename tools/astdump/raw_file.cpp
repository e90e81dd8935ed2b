#include "raw_file.hpp"

#include <algorithm>

#include "split.hpp"

namespace astdump {

namespace {

constexpr size_t kBufferOctets = size_t{256} * 1024;
static_assert(kBufferOctets > kMaxBlockOctets);

bool needs_more(Framing framing) { return framing == Framing::short_header || framing == Framing::past_end; }

} // namespace

RawFile::RawFile(OctetStream &stream) : stream_(stream), buffer_(kBufferOctets) {}

// Moves what is left to the front and reads until the block there is whole, which any length allows, or the stream
// ends. No more octets mend a LEN that does not count the header.
void RawFile::fill() {
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
              buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
    end_ -= begin_;
    begin_ = 0;
    while (end_ < kMaxBlockOctets && needs_more(frame_block(window()).framing)) {
        const size_t got = stream_.read(buffer_.data() + end_, buffer_.size() - end_);
        if (got == 0) return;
        end_ += got;
    }
}

Datagram RawFile::last_one(Octets rest) const {
    Datagram datagram{.octets = rest, .offset = offset_};
    if (stream_.size()) datagram.unread = std::max(*stream_.size(), offset_ + rest.size()) - offset_;
    return datagram;
}

std::optional<Datagram> RawFile::next() {
    if (ended_) return std::nullopt;
    if (frame_block(window()).framing != Framing::block) fill();
    const Octets rest = window();
    const Frame frame = frame_block(rest);
    if (frame.framing != Framing::block) {
        ended_ = true;
        // A block that was about to be written when the user had seen enough is no damage.
        if (stream_.cut_off() && needs_more(frame.framing)) return std::nullopt;
        return rest.empty() ? std::nullopt : std::optional(last_one(rest));
    }
    const Datagram datagram{.octets = rest.first(frame.length), .offset = offset_};
    begin_ += frame.length;
    offset_ += frame.length;
    return datagram;
}

} // namespace astdump
