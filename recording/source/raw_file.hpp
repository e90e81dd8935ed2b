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
    Soundness look(Octets octets, Patience &patience) const;
    static Soundness give_up(Octets octets, Patience &patience);
    Soundness look_on(Chunk &chunk, Patience &patience);
    bool is_enough(const Chunk &chunk, uint64_t place) const;
    uint64_t take(Chunk &chunk, uint64_t place, const Soundness &soundness);
    bool is_cut_off(Octets rest) const;
    void add_gap(Chunk &chunk, uint64_t place, uint64_t octets);

    OctetStream &stream_;
    Window window_;
    uint64_t offset_ = 0; // of the next chunk in the file
    bool is_read_ = false;
};

} // namespace ast::recording
