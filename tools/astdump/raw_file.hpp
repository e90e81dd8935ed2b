// Raw concatenated blocks.
#pragma once

#include "input.hpp"
#include "window.hpp"

namespace astdump {

class RawFile : public Source {
public:
    explicit RawFile(OctetStream &stream) : stream_(stream), window_(stream) {}

    // Whole blocks as one datagram, or, where no block can be framed, all that has been read; nothing is read behind
    // that.
    bool fill(Chunk &chunk) override;

private:
    Datagram last_one(Octets rest) const;

    OctetStream &stream_;
    Window window_;
    uint64_t offset_ = 0; // of the next chunk in the file
    bool ended_ = false;
};

} // namespace astdump
