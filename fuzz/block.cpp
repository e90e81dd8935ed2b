// Blocks under every profile. The input is the octets of a block.

#include "harness.hpp"
#include "records.hpp"

namespace ast_fuzz {

namespace {

void check_modified(const ast_datablock_t &block) {
    static ast_datablock_t modified; // large
    constexpr ast_dataitem_src_list_t kNothing{};
    std::vector<uint8_t> buffer = buffer_of(block.length + 1);
    modified = ast_datablock_modify(buffer.data(), buffer.size(), &block, &kNothing);
    require(modified.valid && modified.length == block.length && same_octets(buffer.data(), block.data, block.length),
            "a block is modified where nothing was to be");
    require_untouched_behind(buffer, block.length);
    std::vector<uint8_t> small = buffer_of(block.length - 1);
    modified = ast_datablock_modify(small.data(), small.size(), &block, &kNothing);
    require(!modified.valid, "a modified block fits a buffer too small for it");
}

// Whatever the octets are, a record is appended to what they say is a block, or nothing is changed.
void check_appending(Octets octets) {
    const std::vector<uint8_t> before(octets.begin(), octets.end());
    std::vector<uint8_t> buffer = before;
    const uint64_t size = buffer.size() / 2;
    const uint64_t length = ast_datablock_append(buffer.data(), buffer.size(), before.data(), size);
    if (length == 0) {
        require(buffer == before, "a block is changed though nothing is appended");
        return;
    }
    require(size > 0 && length <= buffer.size() && length == (uint64_t{buffer[1]} << 8 | buffer[2]),
            "LEN is not what a block with an appended record has");
    require(same_octets(buffer.data() + length - size, before.data(), size), "another record is appended");
}

void check_block(const ast_datablock_t &block, Octets octets) {
    check_records(block, octets);
    if (block.valid) check_joining(block);
    if (block.valid && block.record_count > 0) check_modified(block);
}

// A block that is decoded into again and again is as a fresh one, as far as its counts reach.
void check_reused(const ast_datablock_t &fresh, Octets octets, const ast_uap_t &uap) {
    static ast_datablock_t reused; // large
    ast_datablock_decode_into(&reused, octets.data(), octets.size(), uap);
    require(reused.valid == fresh.valid && reused.length == fresh.length && reused.record_count == fresh.record_count,
            "a block comes out differently in one that was used before");
    for (uint64_t i = 0; i < fresh.record_count; ++i)
        require(reused.records[i].data == fresh.records[i].data && reused.records[i].size == fresh.records[i].size &&
                    reused.records[i].item_count == fresh.records[i].item_count &&
                    reused.records[i].valid == fresh.records[i].valid,
                "something of a block stays in the next one");
}

void check_every_profile(Octets octets) {
    static ast_datablock_t block; // large
    bool fits = false;
    for (const ast_uap_t *uap : profiles()) {
        block = ast_datablock_decode(octets.data(), octets.size(), *uap);
        check_block(block, octets);
        check_reused(block, octets, *uap);
        fits = fits || block.valid;
    }
    block = ast_datablock_001_mixuap_decode(octets.data(), octets.size());
    check_block(block, octets);
    const bool is_mix = block.valid && block.category == 1;
    block = ast_datablock_smart_decode(octets.data(), octets.size());
    check_block(block, octets);
    require(block.valid == (fits || is_mix), "the choice of a profile misses one that fits, or makes one up");
}

} // namespace

void run(Input input) {
    check_appending(input.rest());
    check_every_profile(input.rest());
    ast_library_set_option(AST_OPTION_ALLOW_EMPTY_FSPEC | AST_OPTION_INVERT_062_LONGITUDE);
    check_every_profile(input.rest());
    ast_library_reset_option();
}

} // namespace ast_fuzz
