// Reads a stream into chunks in place: what is not whole at the end of one stands at the start of the next.
#pragma once

#include <vector>

#include "base/octet_stream.hpp"
#include "datagram/chunk.hpp"

namespace ast::recording {

class Window {
public:
    explicit Window(OctetStream &stream) : stream_(stream) {}

    // Starts on an empty chunk with what the last one has left over.
    void open(Chunk &chunk);

    // Reads on behind the octets of the chunk, as far as it has room; false at the end of the stream.
    bool read(Chunk &chunk);

    // Leaves the octets of the chunk from `begin` on to the next one.
    void leave(const Chunk &chunk, uint64_t begin);

    Octets left_over() const { return left_over_; }

private:
    OctetStream &stream_;
    std::vector<uint8_t> left_over_;
};

} // namespace ast::recording
