// Raw concatenated blocks.
#pragma once

#include "base/octet_range.hpp"
#include "base/octet_stream.hpp"
#include "datagram/datagram_source.hpp"
#include "datagram/window.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

class RawFile : public DatagramSource {
public:
    RawFile(OctetStream &stream, const OctetRange &range);

    // Whole blocks as one datagram, and what lies between them as another, as far as they begin in the range.
    bool fill(Chunk &chunk) override;

private:
    bool read(Chunk &chunk);
    uint64_t begin(Chunk &chunk, Patience &patience);
    Soundness look(Octets octets, Patience &patience) const;
    Soundness look_on(Chunk &chunk, Patience &patience);
    bool is_enough(const Chunk &chunk, uint64_t place) const;
    uint64_t take(Chunk &chunk, uint64_t place, const Soundness &soundness);
    bool is_cut_off(Octets rest) const;
    void add(Chunk &chunk, Datagram datagram) const;
    void add_gap(Chunk &chunk, uint64_t place, uint64_t octets, bool is_beginning);

    OctetStream &stream_;
    OctetRange range_;
    Window window_;
    uint64_t offset_ = 0; // of the next chunk in the file
    bool is_read_ = false;
    bool is_lost_ = false; // in the midst of octets that are no blocks
};

} // namespace ast::recording
