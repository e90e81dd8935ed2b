#include "write/block_rewriter.hpp"

#include "framing/block_header.hpp"

namespace ast::recording {

// What a source sends may fit another edition once it has another name.
void BlockRewriter::decode_again(DecodedBlock &decoded, const EditionMemory &editions) {
    const Profile profile = decoded.block->profile;
    EditionMemory known = editions; // the block has told already what it tells of its source
    known.freeze();
    block_.read(known, octets_);
    if (block_.profile != profile) {
        EditionMemory forced(find_profile(profile.name));
        block_.read(forced, octets_);
        block_.profile = profile;
    }
    decoded.octets = octets_;
    decoded.block = &block_;
}

void BlockRewriter::keep_records(DecodedBlock &decoded, const EditionMemory &editions) {
    if (!decoded.fault) return;
    octets_.resize(static_cast<size_t>(decoded.block->records.octets_of(decoded.block->record_count)));
    set_block_length(octets_);
    decode_again(decoded, editions);
    decoded.fault.reset();
}

} // namespace ast::recording
