// Decoded blocks with other octets in the same places.
#pragma once

#include <vector>

#include "block/decoded_block.hpp"

namespace ast::recording {

class BlockRewriter {
public:
    // Replaces a block by one for whose records write(record, index, octets) has written into a copy of its octets, of
    // which these are the record's own. Sizes and fields stay as they are, and so does what the block is read by. The
    // result is good until the next call.
    template <typename Write>
    void rewrite(DecodedBlock &decoded, const EditionMemory &editions, Write write) {
        octets_.assign(decoded.octets.begin(), decoded.octets.end());
        for (uint64_t i = 0; i < decoded.block->record_count; ++i) {
            const ast_datarecord_t &record = decoded.block->records[i];
            write(record, i, &octets_[static_cast<size_t>(record.data - decoded.octets.data())]);
        }
        decode_again(decoded, editions);
    }

    // Leaves out of a block that has just been rewritten what breaks it.
    void keep_records(DecodedBlock &decoded, const EditionMemory &editions);

private:
    void decode_again(DecodedBlock &decoded, const EditionMemory &editions);

    std::vector<uint8_t> octets_;
    SplitBlock block_;
};

} // namespace ast::recording
