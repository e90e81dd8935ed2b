#include "framing/framing.hpp"

#include <algorithm>
#include <iterator>

#include "base/printable.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

bool is_idle(const FramingKind &kind, Octets rest) {
    return kind.idle && std::ranges::all_of(rest, [&](uint8_t octet) { return octet == *kind.idle; });
}

namespace {

constexpr FramingKind kFramings[] = {
    {"raw", "blocks back to back", 0, find_raw},
    {"final", "frames of a length, a line, a day and a time, blocks, and four octets A5", 0, find_final},
    {"gps", "2,200 octets of header, then blocks with ten octets behind each", 2200, find_gps},
    {"oradis", "six octets of length and time before the blocks", 0, find_oradis},
    {"hdlc", "HDLC frames between flags 7E", 0, find_hdlc, 0x7E},
    {"mac-llc", "IEEE 802.3 frames with a logical link header", 0, find_mac_llc},
    {"hex", "hexadecimal text, a block or datagram a line", 0, find_hex, {}, true},
    {"json", "records as JSON, an object a line", 0, nullptr, {}, true},
};

// How far the frames of one framing reach into the beginning of a file, and how many they are.
struct Reach {
    uint64_t frames = 0;
    uint64_t octets = 0;
    bool to_the_end = false;
};

Reach reach_of(const FramingKind &kind, Octets head, bool is_whole_file) {
    constexpr uint64_t kEnough = 16;
    Reach reach;
    if (!kind.find || kind.lead_octets >= head.size() || kind.is_text != is_text(head)) return reach;
    std::vector<uint8_t> storage;
    uint64_t place = kind.lead_octets;
    while (reach.frames < kEnough && place < head.size()) {
        const Framed found = kind.find(head.subspan(place), storage);
        if (is_whole_file && is_idle(kind, head.subspan(place))) break;
        if ((found.state == Framed::State::incomplete || found.may_go_on) && !is_whole_file) break;
        if (found.state != Framed::State::frame) return reach;
        if (!found.blocks.empty()) ++reach.frames;
        place += found.octets;
        reach.octets = place;
    }
    reach.to_the_end = reach.frames != 0;
    return reach;
}

} // namespace

std::span<const FramingKind> framings() { return kFramings; }

const FramingKind *find_framing(std::string_view name) {
    const auto found = std::ranges::find(kFramings, name, &FramingKind::name);
    return found == std::end(kFramings) ? nullptr : found;
}

const FramingKind *recognise_framing(Octets head, bool is_whole_file) {
    const FramingKind *best = nullptr;
    Reach longest;
    for (const FramingKind &kind : kFramings) {
        const Reach reach = reach_of(kind, head, is_whole_file);
        const bool is_longer = reach.to_the_end && !longest.to_the_end;
        const bool is_as_good = reach.to_the_end == longest.to_the_end;
        if (reach.frames == 0 || !(is_longer || (is_as_good && reach.frames > longest.frames))) continue;
        best = &kind;
        longest = reach;
    }
    return best;
}

const FramingKind *recognise_wrapper(Octets datagram) {
    if (chain_of_blocks(datagram) == datagram.size()) return &kFramings[0];
    std::vector<uint8_t> storage;
    const FramingKind *const oradis = find_framing("oradis");
    const Framed found = oradis->find(datagram, storage);
    return found.state == Framed::State::frame ? oradis : nullptr;
}

Framed frame_of(uint64_t octets, Octets blocks, std::optional<uint32_t> centiseconds) {
    if (blocks.empty() || chain_of_blocks(blocks) != blocks.size()) return {};
    return {.state = Framed::State::frame, .octets = octets, .blocks = blocks, .centiseconds = centiseconds};
}

} // namespace ast::recording
