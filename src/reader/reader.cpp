// Reading blocks whose edition nobody tells: what fits the source of a block is found out and kept in mind.

#include <algorithm>

#include "reader/choice.hpp"
#include "reader/plausibility.hpp"
#include "reader/sources.hpp"

namespace {

using namespace ast;
using namespace ast::reader;

constexpr uint32_t kJudgedRecords = 1000; // of a new source

// ---- Looking at a block ----

struct CandidateBlock : Block {
    CategoryCandidates own;
};

// Why and where reading a block ended.
struct Place {
    uint32_t reason = AST_SPLIT_WHOLE;
    uint64_t end = 0;
    uint32_t frn = 0;
    ast_dataitem_type_t type = AST_DATAITEM_NONE;
};

// A store of which nothing is left but where it ended.
class Look {
public:
    Look(const CandidateBlock &block, const ast_uap_t &uap) : block_(block), uap_(uap) {}

    static uint64_t room() { return UINT32_MAX; }
    static int next() { return 0; }
    static void take(int) {}
    static void put(int, const uint8_t *, uint64_t, ast_dataitem_type_t, uint64_t) {}
    void break_off(uint32_t reason, const uint8_t *at, uint32_t frn, ast_dataitem_type_t type) {
        // What the registry knows by name alone has its published size.
        const bool is_cut = reason == AST_SPLIT_UNSUPPORTED && schema::find_item(type, uap_);
        place_ = {is_cut ? AST_SPLIT_ITEM_CUT : reason, static_cast<uint64_t>(at - block_.data), frn, type};
    }
    // Whether the record that begins here is to be read.
    bool begin_record(const Reading &, const uint8_t *data, uint64_t left) {
        add_announced(read_fspec_word(data, left));
        return true;
    }
    static void end_record() {}

    // The walk is over, at an offset that is that of the fault unless it was told before.
    void end_block(uint64_t offset) {
        if (!is_whole()) return;
        place_.end = offset;
        if (offset > block_.length) place_.reason = AST_SPLIT_OVERRUN;
    }

    bool is_whole() const { return place_.reason == AST_SPLIT_WHOLE; }
    const Place &place() const { return place_; }
    uint64_t announced() const { return announced_; } // by any of the records

protected:
    void add_announced(const FspecWord &fspec) { announced_ |= fspec.octets == 0 ? UINT64_MAX : fspec.announced; }

    const CandidateBlock &block_;
    const ast_uap_t &uap_;

private:
    Place place_;
    uint64_t announced_ = 0;
};

// One that only keeps whether the block is whole, and need not read a record that announces what there is not.
class QuickLook : public Look {
public:
    using Look::Look;

    bool begin_record(const Reading &reading, const uint8_t *data, uint64_t left) {
        const FspecWord fspec = read_fspec_word(data, left);
        add_announced(fspec);
        const SlotsByBit &slots = *reading.slots;
        const bool knows_all = &slots != &kNoSlots && !slots.is_open;
        if (!knows_all || (fspec.announced & slots.unknown) == 0) return true;
        break_off(AST_SPLIT_NO_ITEM, data, 0, AST_DATAITEM_NONE);
        return false;
    }
};

// One that keeps how plausible it was, too.
class JudgingLook : public Look {
public:
    JudgingLook(const CandidateBlock &block, const ast_uap_t &uap)
        : Look(block, uap),
          edition_(schema::find_edition(block.category(), uap)),
          own_(find_category(block.category())) {}

    void put(int, const uint8_t *data, uint64_t size, ast_dataitem_type_t type, uint64_t) {
        flaws_ += flaws_of(edition_, uap_, type, data, size);
        if (mandatory_) found_ |= (*mandatory_)[kept_number(item_number(type))];
    }
    void end_record() {
        ++records_;
        if (mandatory_) flaws_ += static_cast<uint32_t>(std::popcount(kAllMandatory & ~found_));
        found_ = 0;
    }

    uint32_t flaws() const { return flaws_; }
    uint32_t records() const { return records_; }

private:
    // The item whose place one with a layout of its own takes.
    uint16_t kept_number(uint16_t number) const {
        constexpr uint16_t kOwnLayouts = 900;
        const uint16_t variant_of = number < kOwnLayouts ? uint16_t{0} : find_item(own_, number).variant_of;
        return variant_of ? variant_of : number;
    }

    const schema::Edition *edition_;
    const Category &own_;
    const Mandatory *mandatory_ = block_.own.mandatory;
    uint32_t records_ = 0;
    uint32_t flaws_ = 0;
    uint32_t found_ = 0; // of the mandatory groups of this record
};

template <typename Store, typename Choose>
void look_by(Store &look, const CandidateBlock &block, Choose choose) {
    const auto take = [&](const uint8_t *data, uint64_t left, const Reading &reading) {
        if (!look.begin_record(reading, data, left)) return uint64_t{0};
        const uint64_t octets = read_record(reading, data, left, look).octets;
        if (octets != 0) look.end_record();
        return octets;
    };
    look.end_block(walk_records(block.data, block.length, std::min(block.available, kMaxAvailable), choose, take));
}

template <typename Store = Look>
Store look_at(const CandidateBlock &block, const Candidate &by) {
    Store look(block, *by.uap);
    with_choice(by, block.category(), [&](const auto &choice) { look_by(look, block, chooser(choice)); });
    return look;
}

// Looks once for all those by which the block reads alike: `visit(look, they)`.
template <typename Store = Look, typename Visitor>
void each_look(const CandidateBlock &block, Mask among, Visitor visit) {
    const Candidates &candidates = block.own.candidates;
    while (among != 0) {
        const Store look = look_at<Store>(block, candidates[first_of(among)]);
        const Mask alike = alike_first(candidates, among, look.announced());
        visit(look, alike);
        among &= ~alike;
    }
}

struct Fitting {
    Mask fits = 0;
    uint64_t announced = 0; // by the records
};

Fitting fitting(const CandidateBlock &block, Mask among) {
    Fitting found;
    each_look<QuickLook>(block, among, [&](const QuickLook &look, Mask alike) {
        found.fits |= look.is_whole() ? alike : 0;
        found.announced |= look.announced();
    });
    return found;
}

size_t furthest(const CandidateBlock &block, Mask among) {
    size_t best = 0;
    uint64_t end = 0;
    each_look(block, among, [&](const Look &look, Mask alike) {
        if (look.place().end <= end) return;
        end = look.place().end;
        best = first_of(alike);
    });
    return best;
}

// Those of the lowest tier.
Mask lowest_tier(const Candidates &candidates, Mask among) {
    Mask lowest = 0;
    each(among, [&](size_t i) {
        if (candidates[i].tier == candidates[first_of(among)].tier) lowest |= bit_of(i);
    });
    return lowest;
}

// Whether there was something to judge.
bool judge(Source &source, const CandidateBlock &block, Mask fits) {
    const Mask rivals = lowest_tier(block.own.candidates, fits);
    if (source.judged >= kJudgedRecords || std::has_single_bit(rivals)) return false;
    uint32_t records = 0;
    each_look<JudgingLook>(block, rivals, [&](const JudgingLook &look, Mask alike) {
        each(alike, [&](size_t i) { source.flaws[i] += look.flaws(); });
        records = look.records();
    });
    source.judged += records;
    return true;
}

// Which candidates fit a block, told to its source. Once that is sure, others are not tried while what leads fits, and
// it is not judged, which would tell nothing of them.
Mask learn(Source &source, const CandidateBlock &block, Mask tried) {
    const Candidates &candidates = block.own.candidates;
    const Mask all = all_of(candidates.size());
    const bool sure = is_sure(source, candidates);
    const Mask needless = sure ? tried & hopeless(source, candidates) : 0;
    const Fitting first = fitting(block, tried & ~needless);
    Mask fits = first.fits;
    const bool is_as_before = sure && fits == leading_of(source) && are_one_kind(candidates, fits, first.announced);
    if (!is_as_before && needless != 0) fits |= fitting(block, needless).fits;
    if (fits == 0 && tried != all) {
        fits = fitting(block, all & ~tried).fits;
        tried = all;
    }
    if (fits == 0) return 0;
    each(tried & ~fits, [&](size_t i) { ++source.misses[i]; });
    const bool is_judged = !is_as_before && judge(source, block, fits);
    if (source.blocks == 0 || is_judged || (!is_as_before && fits != tried))
        set_leading(source, leaders(source, candidates, all));
    return fits;
}

// ---- Reading a block ----

struct Choice {
    size_t candidate;
    bool is_ambiguous;
};

Choice choose(const Source &source, const CandidateBlock &block, Mask fits) {
    const Mask all = all_of(block.own.candidates.size());
    if (fits == 0 && source.blocks == 0) return {furthest(block, all), false};
    const bool is_as_before = fits != 0 && fits == leading_of(source);
    const Mask leading = is_as_before ? fits : leaders(source, block.own.candidates, fits ? fits : all);
    return {first_of(leading), !std::has_single_bit(leading)};
}

void set_place(ast_reader_result_t &result, const Place &place) {
    result.reason = place.reason;
    result.end = place.end;
    result.broken_frn = place.frn;
    result.broken_type = place.type;
}

void describe(ast_reader_result_t &result, const Candidate &candidate) {
    const Description description = description_of(candidate, result.category);
    result.uap = description.uap;
    result.profile = description.profile;
    result.edition = description.edition;
}

bool learns_by_reading(const ast_reader_t *reader) { return !reader || !reader->frozen; }

// Whether a block is read by what speaks for its category, as it is once nothing is learnt any more.
bool is_spoken_for(const Source *spokesman, const CandidateBlock &block) {
    return spokesman && look_at<QuickLook>(block, block.own.candidates[first_of(leading_of(*spokesman))]).is_whole();
}

struct OwnSource {
    Source *source;
    bool is_spoken_for = false;
};

// The place of the source that a block tells something of.
OwnSource learning_source(ast_reader_t &reader, const CandidateBlock &block) {
    const uint32_t key = key_of(block);
    if (Source *const known = find_source(reader, key)) return {known};
    Source *const spokesman = find_spokesman(reader, block.own.candidates, block.category());
    if (is_spoken_for(spokesman, block)) return {spokesman, true};
    return {&add_source(reader, key)};
}

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
        describe(result, kStandard);
        read(kStandard, result.category); // so that nothing of an earlier block is left
        return false;
    }

    const CandidateBlock block{{data, available, result.length}, candidates_for(reader, result.category)};
    const Source *const known = reader && !learns ? find_known(*reader, block) : nullptr;
    Source unshared = known ? *known : Source{};
    const OwnSource own = reader && learns ? learning_source(*reader, block) : OwnSource{&unshared};
    Source &source = *own.source;
    const auto count = [&] { reader &&learns ? count_block(*reader, source) : static_cast<void>(++source.blocks); };
    const Trial trial =
        own.is_spoken_for ? Trial{leading_of(source), true} : first_tried(source, block.own.candidates, learns);
    const auto is_read_with = [&](const Choice &choice) {
        const Candidate &candidate = block.own.candidates[choice.candidate];
        describe(result, candidate);
        result.ambiguous = choice.is_ambiguous;
        result.end = result.length;
        result.valid = read(candidate, result.category);
        result.reason = result.valid ? AST_SPLIT_WHOLE : AST_SPLIT_NO_ROOM;
        return result.valid;
    };
    const Choice first{first_of(trial.tried), !std::has_single_bit(trial.tried)};
    if (trial.is_settled && is_read_with(first)) {
        count();
        return true;
    }

    const Mask fits = learn(source, block, trial.tried);
    if (fits != 0) count();
    const Choice choice = choose(source, block, fits);
    is_read_with(choice);
    if (fits != 0) return result.valid;
    set_place(result, look_at(block, block.own.candidates[choice.candidate]).place());
    return result.valid = false;
}

// Whether a block is all that is known of its source again.
bool is_as_before(const Source &source, const CandidateBlock &block) {
    const Candidates &candidates = block.own.candidates;
    if (!is_sure(source, candidates)) return false;
    const Mask leading = leading_of(source);
    const auto look = look_at<QuickLook>(block, candidates[first_of(leading)]);
    return look.is_whole() && are_one_kind(candidates, leading, look.announced());
}

// Whether any profile fits a block, told to its source where there is a reader.
bool learn_block(ast_reader_t *reader, const uint8_t *data, uint64_t available) {
    if (!data || available < kBlockHeaderOctets) return false;
    const CandidateBlock block{{data, available, read_u16(data + 1)}, candidates_for(reader, data[0])};
    if (block.length < kBlockHeaderOctets || block.length > available) return false;
    const Candidates &candidates = block.own.candidates;
    if (!reader) return fitting(block, all_of(candidates.size())).fits != 0;
    const OwnSource own = learning_source(*reader, block);
    Source &source = *own.source;
    const auto fits = [&] {
        const auto [tried, is_settled] = first_tried(source, candidates, true);
        if (is_settled && look_at<QuickLook>(block, candidates[first_of(tried)]).is_whole()) return true;
        return learn(source, block, tried) != 0;
    };
    const bool is_whole = own.is_spoken_for || is_as_before(source, block) || fits();
    if (is_whole) count_block(*reader, source);
    return is_whole;
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
    if (!result) return learn_block(reader, data, available);
    return read_block(reader, true, data, available, *result, [&](const Candidate &candidate, uint32_t category) {
        const CandidateBlock block{{data, available, result->length}, find_candidates(category)};
        const bool is_whole = block.length >= kBlockHeaderOctets && block.length <= available;
        return is_whole && look_at(block, candidate).is_whole();
    });
}
