// Octets in a text: pasted, quoted, dumped, with words around them.
#pragma once

#include <string>
#include <vector>

#include "base/category_set.hpp"
#include "base/octet_range.hpp"
#include "base/octet_stream.hpp"
#include "capture/dissect.hpp"
#include "datagram/datagram_source.hpp"
#include "datagram/payload.hpp"
#include "framing/text_octets.hpp"

namespace ast::recording {

class TextFile : public DatagramSource {
public:
    // Of a single category, records may stand without the header of a block.
    TextFile(OctetStream &stream, const CategorySet &categories, const OctetRange &range);

    // A datagram for each passage of the text that begins in the range: blocks, or a packet that brought some, of which
    // a dump has all octets. Digits that are neither are reported where they stand for themselves.
    // Whatever the range, reading begins where the text does: only the beginning of a dump tells what belongs together.
    bool fill(Chunk &chunk) override;

private:
    bool read();
    bool is_behind_range() const;
    void take(const Passage &passage, Chunk &chunk);
    bool take_packet(Octets octets, Chunk &chunk);
    void take_blocks(Octets octets, uint64_t offset, Chunk &chunk);
    std::vector<uint8_t> block_of_record(Octets octets) const;

    OctetStream &stream_;
    OctetRange range_;
    std::optional<uint8_t> category_; // of records without a header
    TextOctets octets_;
    std::string line_;    // read but not taken
    uint64_t offset_ = 0; // where it begins
    std::vector<Passage> passages_;
    Dissector dissector_;
    Payloads payloads_;
    uint64_t packets_ = 0;
    bool is_read_ = false;
};

// Whether the beginning of a text shows more of blocks in its passages than in lines of nothing but digits.
bool is_text_of_octets(Octets head, const CategorySet &categories);

} // namespace ast::recording
