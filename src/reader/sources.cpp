#include "reader/sources.hpp"

#include <tuple>

#include "codec/block.hpp"
#include "schema/edition.hpp"

namespace ast::reader {

namespace {

constexpr unsigned kCategoryBits = 8;
constexpr unsigned kSourceBits = 16;

// While a source is new, every candidate is tried on its blocks.
constexpr uint64_t kNewBlocks = 256;

// After so many, what has fitted none of them is taken to fit no other, as long as what has fitted all of them does.
constexpr uint64_t kTrialBlocks = 8;

uint32_t category_of(uint32_t key) { return key >> kSourceBits & all_of(kCategoryBits); }

// ---- What a place keeps ----

// Beside what leads in it, a place keeps in the same word how sources are found: numbers of places, from 1. Places
// whose sources have the same hash are a chain.
enum class Octet : unsigned {
    Leading,
    First,     // of the sources that have this place for a hash
    Next,      // behind the source here
    MostKnown, // of the categories that have this place for a hash, that of one of them
};

constexpr unsigned kOctetBits = 8;
static_assert(AST_READER_CANDIDATES <= kOctetBits);

constexpr unsigned shift_of(Octet which) { return kOctetBits * static_cast<unsigned>(which); }
uint32_t octet(const Source &source, Octet which) { return source.leading >> shift_of(which) & all_of(kOctetBits); }
void set_octet(Source &source, Octet which, uint32_t value) {
    source.leading = (source.leading & ~(all_of(kOctetBits) << shift_of(which))) | value << shift_of(which);
}

// What does not depend on the source that has the place.
uint32_t kept_by_place(const Source &source) {
    const auto kept = [&](Octet which) { return octet(source, which) << shift_of(which); };
    return kept(Octet::First) | kept(Octet::MostKnown);
}

size_t hash_of(uint32_t key) {
    constexpr uint32_t kGoldenRatio = 0x9E3779B9;
    constexpr unsigned kPlaceBits = 6;
    static_assert(1U << kPlaceBits == AST_READER_SOURCES);
    return key * kGoldenRatio >> (32 - kPlaceBits);
}

uint32_t number_of(const ast_reader_t &reader, const Source &source) {
    return static_cast<uint32_t>(&source - reader.sources) + 1;
}

// Of the source of a key, 0 where it is not known.
uint32_t find_number(const ast_reader_t &reader, uint32_t key) {
    uint32_t number = octet(reader.sources[hash_of(key)], Octet::First);
    while (number != 0 && reader.sources[number - 1].key != key)
        number = octet(reader.sources[number - 1], Octet::Next);
    return number;
}

Source &seen(ast_reader_t &reader, Source &source) {
    reader.latest = number_of(reader, source) - 1;
    source.last_seen = reader.clock;
    return source;
}

void link(ast_reader_t &reader, Source &source) {
    Source &head = reader.sources[hash_of(source.key)];
    set_octet(source, Octet::Next, octet(head, Octet::First));
    set_octet(head, Octet::First, number_of(reader, source));
}

// ---- The source that most is known of ----

// Its number; 0 where that is not kept.
uint32_t kept_most_known(const ast_reader_t &reader, uint32_t category) {
    const uint32_t number = octet(reader.sources[category % AST_READER_SOURCES], Octet::MostKnown);
    return number != 0 && category_of(reader.sources[number - 1].key) == category ? number : 0;
}

void keep_most_known(ast_reader_t &reader, uint32_t category, uint32_t number) {
    set_octet(reader.sources[category % AST_READER_SOURCES], Octet::MostKnown, number);
}

// The first place of those with the most blocks that a profile fitted, 0 where none did.
uint32_t most_known(const ast_reader_t &reader, uint32_t category) {
    const Source *most = nullptr;
    for (const Source &source : reader.sources) {
        if (source.key == 0) break; // the places are taken in their order
        if (category_of(source.key) == category && source.blocks > (most ? most->blocks : 0)) most = &source;
    }
    return most ? number_of(reader, *most) : 0;
}

uint32_t find_most_known(const ast_reader_t &reader, uint32_t category) {
    const uint32_t kept = kept_most_known(reader, category);
    return kept ? kept : most_known(reader, category);
}

void remove(ast_reader_t &reader, const Source &source) {
    const uint32_t category = category_of(source.key);
    const uint32_t number = number_of(reader, source);
    if (kept_most_known(reader, category) == number) keep_most_known(reader, category, 0);
    Source *before = &reader.sources[hash_of(source.key)];
    Octet link = Octet::First;
    for (; octet(*before, link) != number; link = Octet::Next) before = &reader.sources[octet(*before, link) - 1];
    set_octet(*before, link, octet(source, Octet::Next));
}

// Of all sources of a category in which these lead.
uint64_t blocks_led_by(const ast_reader_t &reader, uint32_t category, Mask leading) {
    uint64_t blocks = 0;
    for (const Source &source : reader.sources)
        if (category_of(source.key) == category && octet(source, Octet::Leading) == leading) blocks += source.blocks;
    return blocks;
}

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
    const schema::Edition *const edition = schema::newest_edition(category);
    const bool is_first = edition && edition->profile.at(1) == kDataSource;
    if (!is_first || place + 2 > block.length) return key;
    return kHasSource ^ key ^ read_u16(block.data + place);
}

// ---- Places ----

Mask leading_of(const Source &source) { return octet(source, Octet::Leading); }
void set_leading(Source &source, Mask leading) { set_octet(source, Octet::Leading, leading); }

Source *find_source(ast_reader_t &reader, uint32_t key) {
    ++reader.clock;
    const uint32_t number = find_number(reader, key);
    return number ? &seen(reader, reader.sources[number - 1]) : nullptr;
}

Source &add_source(ast_reader_t &reader, uint32_t key) {
    Source *oldest = reader.sources;
    for (Source &source : reader.sources)
        if (source.last_seen < oldest->last_seen) oldest = &source;
    if (oldest->key != 0) remove(reader, *oldest);
    *oldest = {.key = key, .leading = kept_by_place(*oldest)};
    link(reader, *oldest);
    return seen(reader, *oldest);
}

const Source *find_known(const ast_reader_t &reader, const Block &block) {
    if (reader.sources[0].key == 0) return nullptr;
    const uint32_t own = find_number(reader, key_of(block));
    const uint32_t known = own ? own : find_most_known(reader, block.category());
    return known ? &reader.sources[known - 1] : nullptr;
}

Source *find_spokesman(ast_reader_t &reader, const Candidates &candidates, uint32_t category) {
    const bool is_full = reader.sources[AST_READER_SOURCES - 1].key != 0;
    const uint32_t known = is_full ? find_most_known(reader, category) : 0;
    if (known == 0) return nullptr;
    Source &source = reader.sources[known - 1];
    const Mask leading = leading_of(source);
    const auto is_settled = [&] {
        return are_one_kind(candidates, leading) && blocks_led_by(reader, category, leading) >= kTrialBlocks;
    };
    const bool speaks = (leading & bit_of(0)) != 0 || is_settled();
    return speaks ? &seen(reader, source) : nullptr;
}

void count_block(ast_reader_t &reader, Source &source) {
    ++source.blocks;
    const uint32_t category = category_of(source.key);
    const uint32_t number = number_of(reader, source);
    const uint32_t kept = kept_most_known(reader, category);
    if (kept == number) return;
    const uint64_t most = kept ? reader.sources[kept - 1].blocks : 0;
    if (kept == 0)
        keep_most_known(reader, category, most_known(reader, category));
    else if (source.blocks > most || (source.blocks == most && number < kept))
        keep_most_known(reader, category, number);
}

// ---- Candidates ----

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

bool is_sure(const Source &source, const Candidates &candidates) {
    const Mask leading = leading_of(source);
    bool is_sure = source.blocks >= kTrialBlocks;
    for (size_t i = 0; i < candidates.size(); ++i)
        is_sure = is_sure && (source.misses[i] == 0) == ((leading & bit_of(i)) != 0);
    return is_sure;
}

Mask hopeless(const Source &source, const Candidates &candidates) {
    Mask hopeless = 0;
    for (size_t i = 0; i < candidates.size(); ++i) hopeless |= source.misses[i] == source.blocks ? bit_of(i) : 0;
    return hopeless;
}

Trial first_tried(const Source &source, const Candidates &candidates, bool learns) {
    const Mask all = all_of(candidates.size());
    if (learns && source.blocks < kNewBlocks) return {all, false};
    const bool has_rival = candidates.size() > 1 && candidates[0].tier == candidates[1].tier;
    if (source.blocks == 0 && !has_rival) return {bit_of(0), true};
    const Mask leading = source.blocks == 0 ? leaders(source, candidates, all) : leading_of(source);
    return {leading, are_one_kind(candidates, leading) || (!learns && source.blocks != 0)};
}

} // namespace ast::reader
