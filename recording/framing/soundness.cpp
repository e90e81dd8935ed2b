#include "framing/soundness.hpp"

#include <algorithm>
#include <array>
#include <ast.h>
#include <cstring>
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

// Text whose first characters, a blank is category 032, pass for the header of a block. No text has a control character
// where most blocks have the higher octet of their LEN.
bool is_text_block(Octets block) {
    constexpr size_t kHeadOctets = 64;
    return block[1] >= '\t' && is_text(block.first(std::min(block.size(), kHeadOctets)));
}

// The length of a block at the beginning of octets, 0 when there is none.
uint64_t block_at(Octets octets) {
    const Frame frame = frame_block(octets);
    if (frame.framing != Framing::block || !kIsPublished[frame.category]) return 0;
    if (is_text_block(octets.first(frame.length))) return 0;
    const Octets records = octets.subspan(kBlockHeaderOctets, frame.length - kBlockHeaderOctets);
    return has_fspec(records) ? frame.length : 0;
}

struct Search {
    uint64_t place = 0; // where blocks run again, or, if that is not found, up to where they do not
    bool is_found = false;
};

bool is_read_whole(Octets octets) {
    ast_reader_t reader{};
    return ast_reader_learn(&reader, octets.data(), octets.size(), nullptr);
}

// The first place after `from` at which blocks run again: two of them, or one that ends where the octets do. What looks
// like a block may by chance lead into the midst of true ones: one within it whose records fill it is preferred.
Search next_blocks(Octets octets, uint64_t from, bool is_end, Patience &patience) {
    Search first;
    uint64_t end = octets.size(); // of the block that was found first
    for (uint64_t place = from + 1; place < end && patience.lasts(1); ++place) {
        const Octets rest = octets.subspan(place);
        const uint64_t length = block_at(rest);
        const Octets behind = rest.subspan(length);
        const bool runs_on = length != 0 && (behind.empty() ? is_end : block_at(behind) != 0);
        if (runs_on && patience.lasts(length) && is_read_whole(rest)) return {.place = place, .is_found = true};
        if (first.is_found) continue;
        if (!runs_on && !is_end && may_begin_block(behind)) return {.place = place};
        if (runs_on) first = {.place = place, .is_found = true};
        if (runs_on) end = place + length;
    }
    return first.is_found ? first : Search{.place = octets.size()};
}

// Whether a block that is none of the published ones still stands among others.
bool is_in_line(Octets behind, const Frame &frame, bool is_end) {
    if (behind.empty()) return is_end;
    return behind[0] == frame.category || block_at(behind) != 0;
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
    std::vector<uint64_t> chain; // where its blocks begin
    for (uint64_t place = 1; place < octets.size() && patience.lasts(1); ++place) {
        chain.clear();
        uint64_t end = place;
        while (!leads_nowhere[end]) {
            const uint64_t length = block_at(octets.subspan(end));
            if (length == 0) break;
            chain.push_back(end);
            end += length;
        }
        if (!leads_nowhere[end] && may_begin_block(octets.subspan(end))) {
            if (chain.size() >= blocks) return place;
            continue;
        }
        for (const uint64_t begin : chain) leads_nowhere[begin] = true;
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

Soundness check_blocks(Octets octets, bool is_end, Patience &patience) {
    Soundness result;
    while (result.sound < octets.size()) {
        const Octets rest = octets.subspan(result.sound);
        const Frame frame = frame_block(rest);
        if (frame.framing == Framing::block) {
            const Octets behind = rest.subspan(frame.length);
            if (block_at(rest) != 0 || (!is_text_block(rest) && is_in_line(behind, frame, is_end))) {
                ++result.blocks;
                result.last = result.sound;
                result.sound += frame.length;
                continue;
            }
            if (!is_end && may_begin_block(behind)) return result;
        } else if (frame.framing != Framing::short_length && !is_end) {
            // What is no beginning of a block, either, may be where a wrong LEN has led.
            if (!has_published_category(rest) && rest[0] != octets[result.last]) result.take_back_last();
            return result;
        }
        const bool is_sure = result.sound != 0 && is_read_whole(octets.subspan(result.last));
        const uint64_t from = is_sure ? result.sound - 1 : result.last;
        const Search next = next_blocks(octets, from, is_end, patience);
        if (patience.is_over()) return result;
        if (next.is_found && next.place < result.sound) result.take_back_last();
        if (next.is_found || is_end)
            result.gap = next.place - result.sound;
        else if (next.place > result.sound)
            result.no_blocks = next.place - result.sound;
        return result;
    }
    return result;
}

} // namespace ast::recording
