// Raw concatenated blocks, read through a sliding buffer so that the size of the file does not matter.
#pragma once

#include <vector>

#include "input.hpp"

namespace astdump {

class RawFile : public Source {
public:
    explicit RawFile(OctetStream &stream);

    // One block, or, where no block can be framed, all that the buffer holds; nothing is read behind that.
    std::optional<Datagram> next() override;

private:
    Octets window() const { return Octets(buffer_).subspan(begin_, end_ - begin_); }
    void fill();
    Datagram last_one(Octets rest) const;

    OctetStream &stream_;
    std::vector<uint8_t> buffer_;
    size_t begin_ = 0;
    size_t end_ = 0;
    uint64_t offset_ = 0; // of the window in the file
    bool ended_ = false;
};

} // namespace astdump
