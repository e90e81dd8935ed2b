// Files whose blocks a recorder has wrapped.
#pragma once

#include "framing/framing.hpp"
#include "input.hpp"
#include "window.hpp"

namespace astdump {

class FramedFile : public Source {
public:
    FramedFile(OctetStream &stream, const FramingKind &kind) : stream_(stream), kind_(kind), window_(stream) {}

    // The blocks of each frame as a datagram.
    bool fill(Chunk &chunk) override;

private:
    Framed frame_at(Octets octets, uint64_t place);
    bool read(Chunk &chunk);
    uint64_t next_frame(Octets octets, uint64_t from);
    Time time_of(uint32_t centiseconds);
    void add(Chunk &chunk, uint64_t place, const Framed &framed);

    OctetStream &stream_;
    const FramingKind &kind_;
    Window window_;
    std::vector<uint8_t> storage_;
    uint64_t offset_ = 0; // of the next chunk in the file
    bool is_read_ = false;
    uint32_t last_centiseconds_ = 0;
    int64_t days_ = 0; // since the first frame
};

} // namespace astdump
