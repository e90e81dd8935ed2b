#include "reader/sources.hpp"

#include <tuple>

#include "codec/block.hpp"

namespace ast::reader {

namespace {

constexpr unsigned kCategoryBits = 8;
constexpr unsigned kSourceBits = 16;

// While a source is new, every candidate is tried on its blocks.
constexpr uint64_t kNewBlocks = 256;

uint32_t category_of(uint32_t key) { return key >> kSourceBits & all_of(kCategoryBits); }

} // namespace

// The data source of the first record, where FRN 1 announces it as it does in almost every category.
uint32_t key_of(const Block &block) {
    constexpr uint32_t kDataSource = 10;
    constexpr uint32_t kKnown = UINT32_C(1) << 31; // so that no key is 0
    constexpr uint32_t kHasSource = UINT32_C(1) << (kSourceBits + kCategoryBits);
    const uint32_t category = block.category();
    const uint32_t key = kKnown | category << kSourceBits;
    uint64_t place = kBlockHeaderOctets;
    if (block.length == place || !bit(block.data[place], 8)) return key;
    while (place < block.length && has_fx(block.data[place])) ++place;
    ++place; // behind the FSPEC
    const bool is_first = ast_uap_get_dataitem_published(category, 1) == AST_DATAITEM_TYPE(category, kDataSource);
    if (!is_first || place + 2 > block.length) return key;
    return kHasSource ^ key ^ read_u16(block.data + place);
}

Source &find_source(ast_reader_t &reader, uint32_t key) {
    ++reader.clock;
    Source *oldest = reader.sources;
    Source &latest = reader.sources[reader.latest % AST_READER_SOURCES];
    if (latest.key == key) {
        latest.last_seen = reader.clock;
        return latest;
    }
    for (Source &source : reader.sources) {
        if (source.key == key || source.last_seen < oldest->last_seen) oldest = &source;
        if (source.key == key) break;
    }
    if (oldest->key != key) *oldest = {.key = key};
    oldest->last_seen = reader.clock;
    reader.latest = static_cast<uint64_t>(oldest - reader.sources);
    return *oldest;
}

const Source *find_known(const ast_reader_t &reader, const Block &block) {
    const Source *known = nullptr;
    uint32_t key = 0;
    for (const Source &source : reader.sources) {
        if (source.key == 0) break; // the places are taken in their order
        if (category_of(source.key) != block.category()) continue;
        if (key == 0) key = key_of(block);
        if (source.key == key) return &source;
        if (source.blocks > (known ? known->blocks : 0)) known = &source;
    }
    return known;
}

Mask leaders(const Source &source, const Candidates &candidates, Mask among) {
    const auto rank = [&](size_t i) { return std::tuple(source.misses[i], candidates[i].tier, source.flaws[i]); };
    Mask leading = 0;
    each(among, [&](size_t i) {
        const auto first = static_cast<size_t>(std::countr_zero(leading));
        if (leading == 0 || rank(i) < rank(first))
            leading = bit_of(i);
        else if (rank(i) == rank(first))
            leading |= bit_of(i);
    });
    return leading;
}

Trial first_tried(const Source &source, const Candidates &candidates, bool learns) {
    const Mask all = all_of(candidates.size());
    if (learns && source.blocks < kNewBlocks) return {all, false};
    const bool has_rival = candidates.size() > 1 && candidates[0].tier == candidates[1].tier;
    if (source.blocks == 0 && !has_rival) return {bit_of(0), true};
    const Mask leading = source.blocks == 0 ? leaders(source, candidates, all) : source.leading;
    return {leading, std::has_single_bit(leading) || (!learns && source.blocks != 0)};
}

} // namespace ast::reader
