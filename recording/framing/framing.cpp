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
    {"gps", "2,200 octets of header, then blocks with ten octets behind each", 2200, find_gps, {}, false, true},
    {"oradis", "six octets of length and time before the blocks", 0, find_oradis},
    {"hdlc", "HDLC frames between flags 7E", 0, find_hdlc, 0x7E},
    {"mac-llc", "IEEE 802.3 frames with a logical link header", 0, find_mac_llc},
    {"hex", "hexadecimal text, a block or datagram a line", 0, find_hex, {}, true},
    {"text", "octets in a text: dumps, quotes, programs", 0, nullptr, {}, true},
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
    const uint64_t lead = lead_of(kind, head);
    if (lead < kind.lead_octets) return reach;
    std::vector<uint8_t> storage;
    uint64_t place = lead;
    bool is_read = false; // the first frame, which is not there by chance then
    while (reach.frames < kEnough && place < head.size()) {
        const Framed found = kind.find(head.subspan(place), storage);
        if (is_whole_file && is_idle(kind, head.subspan(place))) break;
        if ((found.state == Framed::State::incomplete || found.may_go_on) && !is_whole_file) break;
        if (found.state != Framed::State::frame) return reach;
        if (reach.frames == 0) is_read = !found.blocks.empty() && is_read_whole(found.blocks);
        if (!found.blocks.empty()) ++reach.frames;
        place += found.octets;
        reach.octets = place;
    }
    const bool is_most = (reach.octets - lead) * 2 >= head.size() - lead;
    reach.to_the_end = reach.frames == kEnough || (reach.frames != 0 && place == head.size()) || (is_read && is_most);
    return reach;
}

// How much of the beginning of a file is explained, and what of it lies behind where that begins.
struct Explained {
    uint64_t octets = 0;
    uint64_t of = 0;

    void add(uint64_t more, uint64_t at_hand) {
        if (octets == 0) of = at_hand;
        octets += more;
    }
};

// By frames of one framing, wherever the first of them stands.
Explained explained_by(const FramingKind &kind, Octets head) {
    std::vector<uint8_t> storage;
    Explained explained;
    bool is_behind_frame = false;
    for (uint64_t place = lead_of(kind, head); place < head.size();) {
        const Octets rest = head.subspan(place);
        const Framed found = kind.find(rest, storage);
        is_behind_frame = found.state == Framed::State::frame && (is_behind_frame || is_sure_frame(kind, found, rest));
        if (is_behind_frame && (!kind.is_bare || is_read_whole(found.blocks))) explained.add(found.octets, rest.size());
        place += is_behind_frame ? found.octets : octets_without_frame(found, rest);
    }
    return explained;
}

// By blocks that run for themselves.
Explained explained_by_blocks(Octets head, bool is_whole_file) {
    Patience patience(nullptr);
    Explained explained;
    for (uint64_t place = 0;;) {
        const Octets rest = head.subspan(place);
        const auto sure = find_sure_blocks(rest, is_whole_file, patience);
        if (!sure) return explained;
        const uint64_t octets = chain_of_blocks(rest.subspan(*sure));
        explained.add(octets, rest.size() - *sure);
        place += *sure + octets;
    }
}

bool may_be(const FramingKind &kind, Octets head) { return kind.find && kind.is_text == is_text(head); }

} // namespace

uint64_t lead_of(const FramingKind &kind, Octets head) {
    if (head.size() < kind.lead_octets) return 0;
    const Octets lead = head.first(kind.lead_octets);
    return std::ranges::all_of(lead, [&](uint8_t octet) { return octet == lead[0]; }) ? lead.size() : 0;
}

uint64_t octets_without_frame(const Framed &found, Octets rest) {
    return found.state == Framed::State::frame ? 1 : std::clamp<uint64_t>(found.octets, 1, rest.size());
}

namespace {

// Whether so many frames more, or none up to the end, stand behind one.
bool is_followed(const FramingKind &kind, const Framed &frame, Octets rest, int frames) {
    std::vector<uint8_t> storage;
    Framed next = frame;
    for (; frames != 0; --frames) {
        rest = rest.subspan(next.octets);
        if (rest.empty()) return true;
        next = kind.find(rest, storage);
        if (next.state != Framed::State::frame) return false;
    }
    return true;
}

bool is_read_frame(const FramingKind &kind, const Framed &frame, Octets rest) {
    return frame.state == Framed::State::frame && is_read_whole(frame.blocks) && is_followed(kind, frame, rest, 1);
}

} // namespace

bool is_sure_frame(const FramingKind &kind, const Framed &frame, Octets rest) {
    constexpr int kMany = 16;
    if (!kind.is_bare || is_read_frame(kind, frame, rest)) return true;
    if (!is_followed(kind, frame, rest, kMany)) return false;
    std::vector<uint8_t> storage;
    for (uint64_t place = 1; place < frame.octets; ++place) {
        const Octets inside = rest.subspan(place);
        if (is_read_frame(kind, kind.find(inside, storage), inside)) return false;
    }
    return true;
}

std::span<const FramingKind> framings() { return kFramings; }

const FramingKind *find_framing(std::string_view name) {
    const auto found = std::ranges::find(kFramings, name, &FramingKind::name);
    return found == std::end(kFramings) ? nullptr : found;
}

namespace {

const FramingKind *recognise_damaged(Octets head, bool is_whole_file) {
    const FramingKind *best = nullptr;
    uint64_t most = 0;
    for (const FramingKind &kind : kFramings) {
        if (!may_be(kind, head)) continue;
        const bool is_raw = kind.find == find_raw;
        const Explained explained = is_raw ? explained_by_blocks(head, is_whole_file) : explained_by(kind, head);
        if (explained.octets <= most || explained.octets * 2 < explained.of) continue;
        best = &kind;
        most = explained.octets;
    }
    return best;
}

} // namespace

const FramingKind *recognise_framing(Octets head, bool is_whole_file) {
    const FramingKind *best = nullptr;
    Reach longest;
    for (const FramingKind &kind : kFramings) {
        if (!may_be(kind, head)) continue;
        const Reach reach = reach_of(kind, head, is_whole_file);
        const bool is_longer = reach.to_the_end && !longest.to_the_end;
        const bool is_as_good = reach.to_the_end == longest.to_the_end;
        if (reach.frames == 0 || !(is_longer || (is_as_good && reach.frames > longest.frames))) continue;
        best = &kind;
        longest = reach;
    }
    return longest.to_the_end ? best : recognise_damaged(head, is_whole_file);
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
