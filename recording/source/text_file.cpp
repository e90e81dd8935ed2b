#include "source/text_file.hpp"

#include <algorithm>
#include <utility>

#include "framing/block_header.hpp"
#include "framing/framing.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

constexpr size_t kMostPassageOctets = size_t{1} << 20;
constexpr size_t kMostLineCharacters = size_t{1} << 20;

// Of what dumps have the octets: of packets from IP on, or from the link layer on.
constexpr uint32_t kLinkTypes[] = {
    101, // raw IP
    1,   // Ethernet
    113, // Linux cooked
    276, // Linux cooked, version 2
    0,   // BSD loopback
};

// The category, if it is a single one.
std::optional<uint8_t> only_one(const CategorySet &categories) {
    if (categories.count() != 1) return {};
    uint8_t category = 0;
    while (!categories.test(category)) ++category;
    return category;
}

bool is_filled_by_blocks(Octets octets) { return chain_of_blocks(octets) == octets.size() && is_read_whole(octets); }

} // namespace

TextFile::TextFile(OctetStream &stream, const CategorySet &categories, const OctetRange &range)
    : stream_(stream), range_(range), category_(only_one(categories)) {}

// One that is open may have begun in the range, unless there is already one behind that.
bool TextFile::is_behind_range() const {
    if (!passages_.empty() && passages_.back().offset >= range_.end) return true;
    return !octets_.is_open() && offset_ >= range_.end;
}

// Up to the end of a line at least, or of the text. What is open is not kept waiting for the next line if it is whole.
bool TextFile::read() {
    constexpr size_t kReadOctets = size_t{64} * 1024;
    const size_t begin = line_.size();
    line_.resize(begin + kReadOctets);
    const size_t count = stream_.read(reinterpret_cast<uint8_t *>(line_.data()) + begin, kReadOctets);
    line_.resize(begin + count);
    size_t taken = 0;
    for (size_t end; (end = line_.find('\n', taken)) != std::string::npos; taken = end + 1)
        octets_.take_line(std::string_view(line_).substr(taken, end - taken), offset_ + taken, passages_);
    if (count == 0 || line_.size() - taken > kMostLineCharacters) {
        octets_.take_line(std::string_view(line_).substr(taken), offset_ + taken, passages_);
        taken = line_.size();
    }
    const bool is_more_to_come = count != 0 && (stream_.is_at_rest() || !octets_.is_open_whole());
    if (!is_more_to_come || octets_.open_octets() > kMostPassageOctets) octets_.end_passage(passages_);
    offset_ += taken;
    line_.erase(0, taken);
    return count != 0;
}

bool TextFile::fill(Chunk &chunk) {
    while (chunk.datagrams().empty() && !is_read_) {
        is_read_ = !read();
        is_read_ = is_read_ || is_behind_range();
        for (const Passage &passage : passages_)
            if (range_.holds(passage.offset)) take(passage, chunk);
        passages_.clear();
        if (is_read_) payloads_.tell(chunk.reports());
    }
    return !chunk.datagrams().empty() || !chunk.reports().empty();
}

void TextFile::take(const Passage &passage, Chunk &chunk) {
    const Octets octets = chunk.keep_apart(passage.octets);
    if (!is_filled_by_blocks(octets) && take_packet(octets, chunk)) return;
    const std::vector<uint8_t> block = block_of_record(octets);
    if (!block.empty()) return chunk.add({.octets = chunk.keep_apart(block), .offset = passage.offset});
    const bool is_blocks = chain_of_blocks(octets) != 0 || has_published_category(octets);
    if (is_blocks) return take_blocks(octets, passage.offset, chunk);
    if (passage.is_alone) chunk.add({.octets = octets, .offset = passage.offset, .is_no_block = true});
}

// What breaks off within a block is shown as far as it is there.
void TextFile::take_blocks(Octets octets, uint64_t offset, Chunk &chunk) {
    Patience patience = chunk.patience();
    while (!octets.empty() && !patience.is_over()) {
        const Soundness soundness = check_blocks(octets, true, patience);
        const uint64_t gap = soundness.gap.value_or(0);
        if (soundness.sound != 0) chunk.add({.octets = octets.first(soundness.sound), .offset = offset});
        if (gap != 0) chunk.add({.octets = octets.subspan(soundness.sound, gap), .offset = offset});
        octets = octets.subspan(soundness.sound + gap);
    }
}

bool TextFile::take_packet(Octets octets, Chunk &chunk) {
    for (const uint32_t link_type : kLinkTypes) try {
            dissector_.set_link_type(link_type);
            const auto found = dissector_.dissect(octets, {});
            if (!found || found->is_rebuilt) continue;
            const bool is_chain = chain_of_blocks(found->payload) == found->payload.size();
            if (found->payload.empty() || (!is_chain && !has_published_category(found->payload))) continue;
            Datagram datagram{.octets = found->payload, .packet = ++packets_, .endpoints = found->endpoints};
            payloads_.add(chunk, datagram, found->is_truncated);
            return true;
        } catch (const Undissected &) {
            continue;
        }
    return false;
}

// Empty where the octets are no records of the category that was given, or have a header.
std::vector<uint8_t> TextFile::block_of_record(Octets octets) const {
    if (!category_ || octets.size() > kMaxBlockOctets - kBlockHeaderOctets || is_filled_by_blocks(octets)) return {};
    std::vector<uint8_t> block(kBlockHeaderOctets, *category_);
    block.insert(block.end(), octets.begin(), octets.end());
    set_block_length(block);
    return is_read_whole(block) ? block : std::vector<uint8_t>();
}

namespace {

// Octets of whole blocks, and all that are taken for blocks.
using Shown = std::pair<uint64_t, uint64_t>;

Shown &operator+=(Shown &shown, Octets blocks) {
    shown.first += count_blocks(blocks).octets;
    shown.second += blocks.size();
    return shown;
}

Shown shown_by_passages(Octets text, const CategorySet &categories) {
    OctetStream stream(text, nullptr);
    TextFile file(stream, categories, {});
    Chunk chunk(text.size());
    Shown shown;
    while (file.fill(chunk)) {
        for (const Datagram &datagram : chunk.datagrams())
            if (datagram.may_hold_blocks()) shown += datagram.octets;
        chunk.clear();
    }
    return shown;
}

Shown shown_by_lines(Octets text) {
    std::vector<uint8_t> storage;
    Shown shown;
    while (!text.empty()) {
        const Framed line = find_hex(text, storage);
        if (line.state == Framed::State::frame) shown += line.blocks;
        text = text.subspan(std::max<uint64_t>(line.octets, 1));
    }
    return shown;
}

} // namespace

bool is_text_of_octets(Octets head, const CategorySet &categories) {
    return is_text(head) && shown_by_passages(head, categories) > shown_by_lines(head);
}

} // namespace ast::recording
