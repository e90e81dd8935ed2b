#include "framing/soundness.hpp"

#include <algorithm>
#include <array>
#include <ast.h>
#include <cstring>
#include <memory>
#include <vector>

#include "base/printable.hpp"
#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

constexpr auto kIsPublished = [] {
    std::array<bool, 256> is_published{};
    for (const int category : {1,  2,  3,  4,  7,  8,  9,  10, 11, 15, 16, 17, 18, 19,  20,  21,
                               23, 24, 25, 30, 31, 32, 33, 34, 48, 61, 62, 63, 65, 205, 240, 247})
        is_published[static_cast<size_t>(category)] = true;
    return is_published;
}();

// Whether a block's first FSPEC announces something and ends within it. Octets that all have FX are passed over eight
// at a time: where these are no blocks, there may be many of them, at every place that is looked at.
bool has_fspec(Octets records) {
    constexpr uint8_t kFx = 0x01;
    constexpr uint64_t kFxOfAll = 0x0101010101010101;
    bool announces = false;
    for (; records.size() >= sizeof(uint64_t); records = records.subspan(sizeof(uint64_t))) {
        uint64_t octets;
        std::memcpy(&octets, records.data(), sizeof octets);
        const bool is_last = (octets & kFxOfAll) != kFxOfAll;
        if (is_last && (announces || (records[0] & ~kFx) != 0)) return true;
        if (is_last) break;
        announces = announces || octets != kFxOfAll;
    }
    for (const uint8_t octet : records) {
        announces = announces || (octet & ~kFx) != 0;
        if ((octet & kFx) == 0) return announces;
    }
    return false;
}

constexpr size_t kTextOctets = 64; // that text is told by

// Octets, looked at from place to place, of which many may be text.
class TextRuns {
public:
    explicit TextRuns(Octets octets) : octets_(octets) {}

    // Whether what begins at a place, none before the last one, is text as far as it would have to be for a block that
    // is there not to be one.
    bool is_text_from(uint64_t place) {
        for (end_ = std::max(end_, place); end_ < octets_.size() && is_character(octets_[end_]);) ++end_;
        return end_ - place >= kTextOctets;
    }

private:
    static bool is_character(uint8_t octet) {
        return (octet >= ' ' && octet <= '~') || (octet >= '\t' && octet <= '\r');
    }

    Octets octets_;
    uint64_t end_ = 0; // of the text
};

// Text whose first characters, a blank is category 032, pass for the header of a block. No text has a control character
// where most blocks have the higher octet of their LEN.
bool is_text_block(Octets block) {
    return block[1] >= '\t' && is_text(block.first(std::min(block.size(), kTextOctets)));
}

// The length of a block at the beginning of octets, 0 when there is none.
uint64_t block_at(Octets octets) {
    if (octets.empty() || !kIsPublished[octets[0]]) return 0;
    const Frame frame = frame_block(octets);
    if (frame.framing != Framing::block || is_text_block(octets.first(frame.length))) return 0;
    const Octets records = octets.subspan(kBlockHeaderOctets, frame.length - kBlockHeaderOctets);
    return has_fspec(records) ? frame.length : 0;
}

} // namespace

namespace {

// The profile that a block of each category was read with last, which most that follow are read with, too: that is much
// faster than to try all of them.
class LastProfiles {
public:
    bool read(Octets block) {
        reader_.forced = profiles_[block[0]];
        return reader_.forced && ast_reader_count(&reader_, &census_, block.data(), block.size()) == block.size();
    }
    void keep(uint32_t category, const ast_uap_t *profile) {
        ast_census_clear(&census_); // which may have been full
        profiles_[category] = profile;
    }

private:
    ast_reader_t reader_{.forced = nullptr, .frozen = true, .clock = 0, .latest = 0, .sources = {}};
    std::array<const ast_uap_t *, 256> profiles_{};
    ast_census_t census_{};
};

LastProfiles &last_profiles() {
    thread_local const auto last = std::make_unique<LastProfiles>();
    return *last;
}

// The same as is_read_whole, of blocks whose profile needs no search.
bool is_read_as_last(Octets octets) {
    const Frame frame = frame_block(octets);
    return frame.framing == Framing::block && last_profiles().read(octets.first(frame.length));
}

} // namespace

bool is_read_whole(Octets octets) {
    if (is_read_as_last(octets)) return true;
    const Frame frame = frame_block(octets);
    if (frame.framing != Framing::block) return false;
    const Octets block = octets.first(frame.length);
    if (!ast_reader_learn(nullptr, block.data(), block.size(), nullptr)) return false;
    ast_reader_result_t result;
    ast_reader_learn(nullptr, block.data(), block.size(), &result);
    last_profiles().keep(frame.category, result.uap);
    return true;
}

namespace {

// Asked at every place that is looked at: a published category, and an FSPEC that announces an item or goes on.
bool may_be_header(Octets octets, uint64_t place) {
    return kIsPublished[octets[place]] &&
           (octets.size() - place <= kBlockHeaderOctets || octets[place + kBlockHeaderOctets] != 0);
}

// How surely blocks run from a place on.
enum class Run {
    none,
    open,  // as far as the octets go, too few to tell
    loose, // two of them, by their headers, or one that ends where the octets do
    sure,  // and each is read whole
};

struct RunAt {
    Run run = Run::none;
    uint64_t octets = 0; // of these blocks
};

// By headers alone: never sure.
RunAt header_run_at(Octets octets, bool is_end) {
    const uint64_t first = block_at(octets);
    if (first == 0) return {!is_end && may_begin_block(octets) ? Run::open : Run::none, 0};
    const Octets behind = octets.subspan(first);
    const uint64_t second = block_at(behind);
    if (second == 0 && !(behind.empty() && is_end))
        return {!is_end && may_begin_block(behind) ? Run::open : Run::none, 0};
    return {Run::loose, first + second};
}

// Whether each block of a run, one or two, is read whole.
template <typename IsRead>
bool reads_run(Octets run, IsRead is_read) {
    const Octets behind = run.subspan(frame_block(run).length);
    return is_read(run) && (behind.empty() || is_read(behind));
}

// Finds out from which places blocks run, none before the last one asked for. What looks like blocks among true ones
// mostly runs over the beginning of one of these; to try all profiles on it takes far longer than to see that blocks of
// a known profile begin there.
class Runs {
public:
    Runs(Octets octets, bool is_end, Patience &patience) : octets_(octets), is_end_(is_end), patience_(patience) {}

    RunAt at(uint64_t place) {
        RunAt found = header_run_at(octets_.subspan(place), is_end_);
        if (found.run != Run::loose || !patience_.lasts(found.octets)) return found;
        const Octets run = octets_.subspan(place, found.octets);
        const bool is_sure =
            reads_run(run, is_read_as_last) || (!runs_over_known(place, found.octets) && reads_run(run, is_read_whole));
        if (is_sure) found.run = Run::sure;
        return found;
    }

private:
    bool runs_over_known(uint64_t place, uint64_t octets) {
        find_known(place + 1, place + octets);
        const uint64_t second = place + frame_block(octets_.subspan(place)).length;
        return is_known_ && known_ < place + octets && known_ != second;
    }

    void find_known(uint64_t from, uint64_t to) {
        if (known_ >= from && is_known_) return;
        is_known_ = false;
        for (known_ = std::max(known_, from); known_ < to && patience_.lasts(1); ++known_) {
            if (!may_be_header(octets_, known_)) continue;
            const RunAt found = header_run_at(octets_.subspan(known_), is_end_);
            if (found.run != Run::loose) continue;
            is_known_ = reads_run(octets_.subspan(known_, found.octets), is_read_as_last);
            if (is_known_) break;
        }
    }

    Octets octets_;
    bool is_end_;
    Patience &patience_;
    uint64_t known_ = 0;    // up to here no blocks of known profiles begin,
    bool is_known_ = false; // but here
};

struct Search {
    uint64_t place = 0; // where blocks run again, or, if that is not found, up to where they do not
    bool is_found = false;
};

// The first place after `from` at which blocks run again. What looks like blocks may by chance lead into the midst of
// true ones: a place behind it or within it from which blocks surely run is preferred.
Search next_blocks(Octets octets, uint64_t from, bool is_end, Patience &patience) {
    Search first;
    TextRuns text(octets);
    Runs runs(octets, is_end, patience);
    uint64_t end = octets.size(); // of the blocks that were found first
    for (uint64_t place = from + 1; place < end && patience.lasts(1); ++place) {
        if (!may_be_header(octets, place)) continue;
        if (text.is_text_from(place) && frame_block(octets.subspan(place)).framing == Framing::block) continue;
        const RunAt found = runs.at(place);
        if (found.run == Run::sure) return {.place = place, .is_found = true};
        if (first.is_found || first.place != 0 || found.run == Run::none) continue;
        first = {.place = place, .is_found = found.run == Run::loose};
        if (first.is_found) end = place + found.octets;
    }
    return first.place != 0 ? first : Search{.place = octets.size()};
}

} // namespace

std::optional<uint64_t> find_sure_blocks(Octets octets, bool is_end, Patience &patience, uint64_t places) {
    TextRuns text(octets);
    Runs runs(octets, is_end, patience);
    for (uint64_t place = 0; place < std::min<uint64_t>(octets.size(), places) && patience.lasts(1); ++place) {
        if (!may_be_header(octets, place) || text.is_text_from(place)) continue;
        if (runs.at(place).run == Run::sure) return place;
    }
    return std::nullopt;
}

namespace {

// Whether a block that begins like none of the published ones still stands among others: before one of these that is
// read whole, or, when nothing is known of its category, in a row of its own.
bool is_in_line(Octets behind, const Frame &frame, bool is_end) {
    if (behind.empty()) return is_end;
    if (behind[0] == frame.category) return !kIsPublished[frame.category];
    return block_at(behind) != 0 && is_read_whole(behind);
}

// Whether a block is there by its header. A wrong LEN may by chance lead to where others stand: from one that is long,
// or of a category that nothing is known of, none may run within it.
bool is_sound_block(Octets rest, const Frame &frame, bool is_end, Patience &patience) {
    constexpr uint64_t kLongOctets = 2048;
    if (block_at(rest) != 0) {
        if (frame.length < kLongOctets || is_read_whole(rest)) return true;
    } else if (is_text_block(rest.first(frame.length)) || !is_in_line(rest.subspan(frame.length), frame, is_end)) {
        return false;
    }
    return !find_sure_blocks(rest.subspan(1), is_end, patience, frame.length - 1);
}

// Where the last blocks of a run begin: a few of them.
class LastBlocks {
public:
    void add(uint64_t place) {
        places_[next_++ % places_.size()] = place;
        size_ = std::min(size_ + 1, places_.size());
    }
    bool empty() const { return size_ == 0; }
    uint64_t last() const { return places_[(next_ - 1) % places_.size()]; }
    void take_back() {
        --next_;
        --size_;
    }

private:
    std::array<uint64_t, 16> places_{};
    size_t next_ = 0;
    size_t size_ = 0;
};

// Where a run of blocks is in doubt when it breaks off at `end`: behind the last one that is read whole. Where none is,
// their edition may not be known, and it is the last one alone that may have led astray.
uint64_t doubtful_from(Octets octets, LastBlocks blocks, uint64_t end) {
    if (blocks.empty()) return end;
    const uint64_t last = blocks.last();
    for (uint64_t from = end; !blocks.empty(); blocks.take_back()) {
        if (is_read_whole(octets.subspan(blocks.last()))) return from == end ? end - 1 : from;
        from = blocks.last();
    }
    return last;
}

} // namespace

uint64_t chain_of_blocks(Octets octets) {
    uint64_t place = 0;
    while (place < octets.size()) {
        const uint64_t length = block_at(octets.subspan(place));
        if (length == 0) break;
        place += length;
    }
    return place;
}

// A chain that leads to octets which begin no block does so from each of its blocks: none of them is walked twice.
std::optional<uint64_t> find_chain(Octets octets, uint64_t blocks, Patience &patience) {
    std::vector<bool> leads_nowhere(octets.size() + 1);
    std::vector<size_t> chain; // where its blocks begin
    for (size_t place = 1; place < octets.size() && patience.lasts(1); ++place) {
        chain.clear();
        size_t end = place;
        while (!leads_nowhere[end]) {
            const auto length = static_cast<size_t>(block_at(octets.subspan(end)));
            if (length == 0) break;
            chain.push_back(end);
            end += length;
        }
        if (!leads_nowhere[end] && may_begin_block(octets.subspan(end))) {
            if (chain.size() >= blocks) return place;
            continue;
        }
        for (const size_t begin : chain) leads_nowhere[begin] = true;
    }
    return std::nullopt;
}

bool has_published_category(Octets block) { return !block.empty() && kIsPublished[block[0]]; }

bool is_known_category(uint32_t category) {
    return ast_uap_max_frn_published(category) != 0 || ast_uap_max_frn_standard(category) != 0;
}

bool may_begin_block(Octets octets) {
    const Framing framing = frame_block(octets).framing;
    return octets.empty() ||
           (kIsPublished[octets[0]] && (framing == Framing::short_header || framing == Framing::past_end));
}

uint64_t first_block(Octets octets, bool is_end, Patience &patience) {
    const std::optional<uint64_t> sure = find_sure_blocks(octets, is_end, patience);
    for (uint64_t led_to = 0; led_to < sure.value_or(0);) {
        const Octets rest = octets.subspan(led_to);
        const uint64_t length = block_at(rest);
        if (length == 0 || rest[0] != octets[*sure]) return *sure;
        if (is_read_whole(rest)) return 0;
        led_to += length;
        if (led_to == sure) return 0;
    }
    return sure.value_or(0);
}

Soundness check_blocks(Octets octets, bool is_end, Patience &patience) {
    Soundness result;
    LastBlocks blocks;
    while (result.sound < octets.size()) {
        const Octets rest = octets.subspan(result.sound);
        const Frame frame = frame_block(rest);
        if (frame.framing == Framing::block) {
            if (is_sound_block(rest, frame, is_end, patience)) {
                ++result.blocks;
                result.last = result.sound;
                blocks.add(result.sound);
                result.sound += frame.length;
                continue;
            }
            if (!is_end && may_begin_block(rest.subspan(frame.length))) return result;
        } else if (frame.framing != Framing::short_length && !is_end) {
            // What is no beginning of a block, either, may be where a wrong LEN has led.
            if (!has_published_category(rest) && rest[0] != octets[result.last]) result.take_back_last();
            return result;
        }
        const Search next = next_blocks(octets, doubtful_from(octets, blocks, result.sound), is_end, patience);
        if (patience.is_over()) return result;
        for (; next.is_found && next.place < result.sound && !blocks.empty(); blocks.take_back()) {
            result.sound = blocks.last();
            --result.blocks;
        }
        if (next.is_found || is_end)
            result.gap = next.place - result.sound;
        else if (next.place > result.sound)
            result.no_blocks = next.place - result.sound;
        return result;
    }
    return result;
}

} // namespace ast::recording
