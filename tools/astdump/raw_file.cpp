#include "raw_file.hpp"

#include <algorithm>

#include "split.hpp"

namespace astdump {

namespace {

bool needs_more(Framing framing) { return framing == Framing::short_header || framing == Framing::past_end; }

} // namespace

// No more octets mend a LEN that does not count the header.
bool RawFile::fill(Chunk &chunk) {
    if (ended_) return false;
    window_.open(chunk);
    Frame first = frame_block(chunk.octets());
    while (needs_more(first.framing) && window_.read(chunk)) first = frame_block(chunk.octets());
    const Octets octets = chunk.octets();
    const uint64_t whole = count_blocks(octets).octets;
    if (whole != 0) {
        chunk.add({.octets = octets.first(whole), .offset = offset_});
        window_.leave(chunk, whole);
        offset_ += whole;
        return true;
    }
    ended_ = true;
    // A block that was about to be written when the user had seen enough is no damage.
    if (octets.empty() || (stream_.cut_off() && needs_more(first.framing))) return false;
    chunk.add(last_one(octets));
    return true;
}

Datagram RawFile::last_one(Octets rest) const {
    Datagram datagram{.octets = rest, .offset = offset_};
    if (stream_.size()) datagram.unread = std::max(*stream_.size(), offset_ + rest.size()) - offset_;
    return datagram;
}

} // namespace astdump
