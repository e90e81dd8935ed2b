// Raw concatenated blocks.
#pragma once

#include "base/octet_stream.hpp"
#include "datagram/datagram_source.hpp"
#include "datagram/window.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

class RawFile : public DatagramSource {
public:
    explicit RawFile(OctetStream &stream) : stream_(stream), window_(stream) {}

    // Whole blocks as one datagram, and what lies between them as another.
    bool fill(Chunk &chunk) override;

private:
    bool read(Chunk &chunk);
    Soundness look(const Chunk &chunk) const;
    static Soundness give_up(const Chunk &chunk);
    bool is_cut_off(Octets rest) const;
    void add_gap(Chunk &chunk, uint64_t place, uint64_t octets);

    OctetStream &stream_;
    Window window_;
    uint64_t offset_ = 0; // of the next chunk in the file
    bool is_read_ = false;
};

} // namespace ast::recording
