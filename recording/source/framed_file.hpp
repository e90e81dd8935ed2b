// Files whose blocks a recorder has wrapped.
#pragma once

#include "base/octet_range.hpp"
#include "base/octet_stream.hpp"
#include "datagram/datagram_source.hpp"
#include "datagram/window.hpp"
#include "framing/framing.hpp"

namespace ast::recording {

class FramedFile : public DatagramSource {
public:
    FramedFile(OctetStream &stream, const FramingKind &kind, const OctetRange &range);

    // The blocks of each frame that begins in the range as a datagram.
    bool fill(Chunk &chunk) override;

private:
    Framed frame_at(Octets rest);
    bool has_to_wait(Octets rest) const;
    bool read(Chunk &chunk);
    bool step(Chunk &chunk, Patience &patience);
    Time time_of(uint32_t centiseconds);
    void begin_days();
    bool is_behind_range() const { return !gap_ && offset_ + place_ >= range_.end; }
    void add(Chunk &chunk, const Framed &framed);
    void end_gap(Chunk &chunk);

    OctetStream &stream_;
    const FramingKind &kind_;
    OctetRange range_;
    Window window_;
    std::vector<uint8_t> storage_;
    uint64_t offset_ = 0; // of the next chunk in the file
    uint64_t place_ = 0;  // in the chunk
    bool is_read_ = false;
    bool is_unsure_ = true;       // whether frames stand where they seem to: at the start, and behind what is none
    std::optional<uint64_t> gap_; // where octets began that are no frame
    uint32_t last_centiseconds_ = 0;
    int64_t days_ = 0;                 // since the first frame
    std::optional<uint32_t> first_cs_; // the time of that, until one behind it shows whether the days are the same
};

} // namespace ast::recording
