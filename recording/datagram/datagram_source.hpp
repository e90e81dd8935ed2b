// What datagrams come from.
#pragma once

#include <string>

#include "datagram/chunk.hpp"

namespace ast::recording {

class DatagramSource {
public:
    virtual ~DatagramSource() = default;

    // Fills an empty chunk with what comes next, without waiting for more once there is something in it; false at the
    // end. What cannot be read is told to the reports of the chunk; reading goes on behind it where it can.
    virtual bool fill(Chunk &chunk) = 0;

    // What there is none of where it has yielded nothing.
    virtual std::string nothing() const { return "blocks"; }
};

} // namespace ast::recording
