// Reading blocks whose edition nobody tells: what fits the source of a block is found out and kept in mind.

#include <algorithm>
#include <bit>
#include <tuple>
#include <utility>

#include "codec/block.hpp"
#include "reader/candidates.hpp"
#include "reader/plausibility.hpp"

namespace {

using namespace ast;
using namespace ast::reader;

using Source = ast_reader_source_t;
using Mask = uint32_t; // of candidates, the first one in bit 0

// While a source is new, every candidate is tried on its blocks, and its records are judged.
constexpr uint64_t kNewBlocks = 256;
constexpr uint32_t kJudgedRecords = 1000;

constexpr Mask bit_of(size_t candidate) { return Mask{1} << candidate; }
constexpr Mask all_of(size_t count) { return bit_of(count) - 1; }

template <typename Visitor>
void each(Mask mask, Visitor visit) {
    for (; mask != 0; mask &= mask - 1) visit(static_cast<size_t>(std::countr_zero(mask)));
}

// ---- Sizing items ----

// Whether the registered layout of an item may be older than what is sent: chains that go on, and subfields.
bool may_be_newer(const SizeRule &rule, const uint8_t *data, uint64_t left) {
    if (rule.kind == SizeRule::Kind::Extended) return plain_extended_size(data, left, rule.octets) == 0;
    return rule.kind == SizeRule::Kind::Subfields;
}

// Whether an item ends with its last part, whatever the last bit of that says.
bool ends_without_fx(const schema::Field *item) {
    const schema::Field *last = item + 1;
    while (schema::behind(last) != schema::behind(item)) last = schema::behind(last);
    return item->kind == schema::Kind::Extended && schema::fx_bits(*last) == 0;
}

// As published, but for a chain that the octets do not hold to its end.
uint64_t published_size(const schema::Field *item, ast_dataitem_type_t type, const ast_uap_t &uap, const uint8_t *data,
                        uint64_t left) {
    const uint64_t size = ast_dataitem_get_published_size(data, left, type, uap);
    const bool is_chain = item->kind == schema::Kind::Extended || item->kind == schema::Kind::Chained;
    const bool goes_on = size != 0 && is_chain && has_fx(data[size - 1]);
    return goes_on && !ends_without_fx(item) ? 0 : size;
}

// As registered where that holds and the document does not disagree, else as published.
uint64_t size_item(const ItemRow &row, ast_dataitem_type_t type, const ast_uap_t &uap, const uint8_t *data,
                   uint64_t left) {
    const SizeRule &rule = row.handlers.size;
    if (type == AST_DATAITEM_NONE || left == 0) return 0;
    const schema::Field *const item = schema::find_item(type, uap);
    if (item && may_be_newer(rule, data, left)) return published_size(item, type, uap, data, left);
    if (const uint64_t size = item && rule.is_disputed ? published_size(item, type, uap, data, left) : 0) return size;
    const uint64_t size = item_size(rule, data, left);
    if (size != 0 && size <= left) return size;
    return item ? published_size(item, type, uap, data, left) : 0;
}

// Calls `read` with what the records of a block are read by, in the words of codec/block.hpp.
template <typename Read>
auto with_choice(const Candidate &candidate, uint32_t category, Read read) {
    if (!candidate.is_mixed) {
        Reading reading(category, candidate.laid_out_as ? *candidate.laid_out_as : *candidate.uap, size_item);
        reading.uap = candidate.uap;
        return read(std::as_const(reading));
    }
    return read(ChosenByRecord(find_category(category), candidate.uap, size_item));
}

// ---- Looking at a block ----

struct Block {
    const uint8_t *data;
    uint64_t available;
    uint64_t length;
    CategoryCandidates own;
};

// Why and where reading a block ended.
struct Place {
    uint32_t reason = AST_SPLIT_WHOLE;
    uint64_t end = 0;
    uint32_t frn = 0;
    ast_dataitem_type_t type = AST_DATAITEM_NONE;
};

// A store of which nothing is left but where it ended and, when somebody asks, how plausible it was.
class Look {
public:
    Look(const Block &block, const ast_uap_t &uap, bool judges) : block_(block), uap_(uap), judges_(judges) {}

    static uint64_t room() { return UINT32_MAX; }
    static int next() { return 0; }
    static void take(int) {}
    void put(int &, const uint8_t *data, uint64_t size, ast_dataitem_type_t type, uint64_t) {
        if (!judges_) return;
        flaws_ += flaws_of(uap_, type, data, size);
        // A layout of its own stands for the item whose place it takes.
        const uint16_t variant_of = find_item(type).variant_of;
        const uint16_t number = variant_of ? variant_of : item_number(type);
        for (size_t i = 0; i < block_.own.mandatory.size(); ++i)
            for (const uint16_t item : block_.own.mandatory[i].items) found_ |= item == number ? 1U << i : 0;
    }
    void break_off(uint32_t reason, const uint8_t *at, uint32_t frn, ast_dataitem_type_t type) {
        // What the registry knows by name alone has its published size.
        const bool is_cut = reason == AST_SPLIT_UNSUPPORTED && schema::find_item(type, uap_);
        place_ = {is_cut ? AST_SPLIT_ITEM_CUT : reason, static_cast<uint64_t>(at - block_.data), frn, type};
    }
    void end_record() {
        ++records_;
        flaws_ += static_cast<uint32_t>(block_.own.mandatory.size()) - static_cast<uint32_t>(std::popcount(found_));
        found_ = 0;
    }

    // The walk is over, at an offset that is that of the fault unless it was told before.
    void end_block(uint64_t offset) {
        if (!is_whole()) return;
        place_.end = offset;
        if (offset > block_.length) place_.reason = AST_SPLIT_OVERRUN;
    }

    bool is_whole() const { return place_.reason == AST_SPLIT_WHOLE; }
    const Place &place() const { return place_; }
    uint32_t flaws() const { return flaws_; }
    uint32_t records() const { return records_; }

private:
    Place place_;
    uint32_t records_ = 0;
    const Block &block_;
    const ast_uap_t &uap_;
    bool judges_;
    uint32_t flaws_ = 0;
    uint32_t found_ = 0; // of the mandatory items of this record
};

template <typename Choose>
void look_by(Look &look, const Block &block, Choose choose) {
    const auto take = [&](const uint8_t *data, uint64_t left, const Reading &reading) {
        const uint64_t octets = read_record(reading, data, left, look).octets;
        if (octets != 0) look.end_record();
        return octets;
    };
    look.end_block(walk_records(block.data, block.length, std::min(block.available, kMaxAvailable), choose, take));
}

Look look_at(const Block &block, const Candidate &by, bool judges = false) {
    Look look(block, *by.uap, judges);
    with_choice(by, block.own.category, [&](const auto &choice) { look_by(look, block, chooser(choice)); });
    return look;
}

Mask fitting(const Block &block, Mask among) {
    Mask fits = 0;
    each(among, [&](size_t i) { fits |= look_at(block, block.own.candidates[i]).is_whole() ? bit_of(i) : 0; });
    return fits;
}

size_t furthest(const Block &block, Mask among) {
    size_t best = 0;
    uint64_t end = 0;
    each(among, [&](size_t i) {
        const Look look = look_at(block, block.own.candidates[i]);
        if (look.place().end <= end) return;
        end = look.place().end;
        best = i;
    });
    return best;
}

// ---- What is known of a source ----

constexpr unsigned kCategoryBits = 8;
constexpr unsigned kSourceBits = 16;

uint32_t category_of(uint32_t key) { return key >> kSourceBits & all_of(kCategoryBits); }

// The data source of the first record, where FRN 1 announces it as it does in almost every category.
uint32_t key_of(const Block &block) {
    constexpr uint32_t kDataSource = 10;
    constexpr uint32_t kKnown = UINT32_C(1) << 31; // so that no key is 0
    constexpr uint32_t kHasSource = UINT32_C(1) << (kSourceBits + kCategoryBits);
    const uint32_t category = block.own.category;
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

// What a frozen reader knows of the source of a block, or else of the one of its category that most is known of.
const Source *find_known(const ast_reader_t &reader, const Block &block) {
    const Source *known = nullptr;
    if (reader.sources[0].key == 0) return known;
    const uint32_t key = key_of(block);
    for (const Source &source : reader.sources) {
        if (source.key == key) return &source;
        if (source.key == 0) break; // the places are taken in their order
        const bool is_of_category = category_of(source.key) == category_of(key);
        if (is_of_category && source.blocks > (known ? known->blocks : 0)) known = &source;
    }
    return known;
}

// Those that nothing puts behind another one but their order.
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

// Those of the lowest tier.
Mask lowest_tier(const Candidates &candidates, Mask among) {
    Mask lowest = 0;
    each(among, [&](size_t i) {
        if (candidates[i].tier == candidates[static_cast<size_t>(std::countr_zero(among))].tier) lowest |= bit_of(i);
    });
    return lowest;
}

// Whether there was something to judge.
bool judge(Source &source, const Block &block, Mask fits) {
    const Mask rivals = lowest_tier(block.own.candidates, fits);
    if (source.judged >= kJudgedRecords || std::has_single_bit(rivals)) return false;
    uint32_t records = 0;
    each(rivals, [&](size_t i) {
        const Look look = look_at(block, block.own.candidates[i], true);
        source.flaws[i] += look.flaws();
        records = look.records();
    });
    source.judged += records;
    return true;
}

// Those that are tried first, and whether no other comes into question while the first of them fits.
struct Trial {
    Mask tried;
    bool is_settled;
};

Trial first_tried(const Source &source, const Block &block, bool learns) {
    const Candidates &candidates = block.own.candidates;
    const Mask all = all_of(candidates.size());
    if (learns && source.blocks < kNewBlocks) return {all, false};
    const bool has_rival = candidates.size() > 1 && candidates[0].tier == candidates[1].tier;
    if (source.blocks == 0 && !has_rival) return {bit_of(0), true};
    const Mask leading = source.blocks == 0 ? leaders(source, candidates, all) : source.leading;
    return {leading, std::has_single_bit(leading) || (!learns && source.blocks != 0)};
}

// Which candidates fit a block, told to its source.
Mask learn(Source &source, const Block &block, Mask tried) {
    const Mask all = all_of(block.own.candidates.size());
    Mask fits = fitting(block, tried);
    if (fits == 0 && tried != all) {
        fits = fitting(block, all & ~tried);
        tried = all;
    }
    if (fits == 0) return 0;
    each(tried & ~fits, [&](size_t i) { ++source.misses[i]; });
    const bool is_judged = judge(source, block, fits);
    if (source.blocks++ == 0 || is_judged || fits != tried) source.leading = leaders(source, block.own.candidates, all);
    return fits;
}

// ---- Reading a block ----

struct Choice {
    size_t candidate;
    bool is_ambiguous;
};

Choice choose(const Source &source, const Block &block, Mask fits) {
    const Mask all = all_of(block.own.candidates.size());
    if (fits == 0 && source.blocks == 0) return {furthest(block, all), false};
    const Mask leading = leaders(source, block.own.candidates, fits ? fits : all);
    return {static_cast<size_t>(std::countr_zero(leading)), !std::has_single_bit(leading)};
}

void set_place(ast_reader_result_t &result, const Place &place) {
    result.reason = place.reason;
    result.end = place.end;
    result.broken_frn = place.frn;
    result.broken_type = place.type;
}

void set_profile(ast_reader_result_t &result, const Candidate &candidate) {
    // What is mixed of several profiles is a matter of the standard one.
    const ast_uap_t &uap = candidate.is_mixed ? AST_UAP_STANDARD : *candidate.uap;
    const schema::Edition *const edition = schema::find_edition(result.category, uap);
    result.uap = &uap;
    result.profile = schema::profile_name(uap);
    result.edition = edition ? edition->number : "";
}

bool learns_by_reading(const ast_reader_t *reader) { return !reader || !reader->frozen; }

// Reads a block into what `read(candidate, category)` fills, which tells whether it became valid.
template <typename Read>
bool read_block(ast_reader_t *reader, bool learns, const uint8_t *data, uint64_t available, ast_reader_result_t &result,
                Read read) {
    static constexpr Candidate kStandard{&AST_UAP_STANDARD, 0};
    const bool has_header = data && available >= kBlockHeaderOctets;
    result = {};
    result.reason = has_header ? AST_SPLIT_LENGTH : AST_SPLIT_NO_HEADER;
    result.category = has_header ? data[0] : 0;
    result.length = has_header ? read_u16(data + 1) : 0;
    result.end = has_header ? kBlockHeaderOctets : 0;
    if (result.length < kBlockHeaderOctets || result.length > available) {
        set_profile(result, kStandard);
        read(kStandard, result.category); // so that nothing of an earlier block is left
        return false;
    }

    Block block{data, available, result.length, find_candidates(result.category)};
    if (reader && reader->forced) block.own.candidates = forced(block.own, *reader->forced);
    Source own{};
    if (reader && !learns)
        if (const Source *const known = find_known(*reader, block)) own = *known;
    Source &source = reader && learns ? find_source(*reader, key_of(block)) : own;
    const auto [tried, is_settled] = first_tried(source, block, learns);
    const auto is_read_with = [&](const Choice &choice) {
        const Candidate &candidate = block.own.candidates[choice.candidate];
        set_profile(result, candidate);
        result.ambiguous = choice.is_ambiguous;
        result.end = result.length;
        result.valid = read(candidate, result.category);
        result.reason = result.valid ? AST_SPLIT_WHOLE : AST_SPLIT_NO_ROOM;
        return result.valid;
    };
    const Choice first{static_cast<size_t>(std::countr_zero(tried)), !std::has_single_bit(tried)};
    if (is_settled && is_read_with(first)) return true;

    const Mask fits = learn(source, block, tried);
    const Choice choice = choose(source, block, fits);
    is_read_with(choice);
    if (fits != 0) return result.valid;
    set_place(result, look_at(block, block.own.candidates[choice.candidate]).place());
    return result.valid = false;
}

// A result for those who do not ask for one.
class Answer {
public:
    explicit Answer(ast_reader_result_t *result) : result_(result ? result : &own_) {}
    ast_reader_result_t &operator*() { return *result_; }

private:
    ast_reader_result_t own_{};
    ast_reader_result_t *result_;
};

} // namespace

void ast_reader_init(ast_reader_t *reader) {
    if (reader) *reader = {};
}

bool ast_reader_decode(ast_reader_t *reader, ast_datablock_t *block, const uint8_t *data, uint64_t available,
                       ast_reader_result_t *result) {
    if (!block) return ast_reader_learn(reader, data, available, result);
    Answer answer(result);
    const bool is_valid = read_block(reader, learns_by_reading(reader), data, available, *answer,
                                     [&](const Candidate &candidate, uint32_t category) {
                                         with_choice(candidate, category, [&](const auto &choice) {
                                             decode_block(*block, data, available, choice);
                                         });
                                         return block->valid;
                                     });
    if ((*answer).reason == AST_SPLIT_NO_ROOM) {
        const ast_datarecord_t *const last = block->record_count ? &block->records[block->record_count - 1] : nullptr;
        (*answer).end = last ? static_cast<uint64_t>(last->data - data) + last->size : kBlockHeaderOctets;
    }
    return is_valid;
}

bool ast_reader_split(ast_reader_t *reader, ast_split_t *split, const uint8_t *data, uint64_t available,
                      ast_reader_result_t *result) {
    if (!split) return ast_reader_learn(reader, data, available, result);
    Answer answer(result);
    const bool is_valid = read_block(reader, learns_by_reading(reader), data, available, *answer,
                                     [&](const Candidate &candidate, uint32_t category) {
                                         return with_choice(candidate, category, [&](const auto &choice) {
                                             return split_block(*split, data, available, choice);
                                         });
                                     });
    if ((*answer).reason == AST_SPLIT_NO_ROOM) (*answer).end = split->end;
    return is_valid;
}

bool ast_reader_learn(ast_reader_t *reader, const uint8_t *data, uint64_t available, ast_reader_result_t *result) {
    Answer answer(result);
    return read_block(reader, true, data, available, *answer, [&](const Candidate &candidate, uint32_t category) {
        const Block block{data, available, (*answer).length, find_candidates(category)};
        return (*answer).length <= available && look_at(block, candidate).is_whole();
    });
}
