#include "datagram/payload.hpp"

#include "base/counted.hpp"
#include "framing/block_header.hpp"
#include "framing/framing.hpp"
#include "framing/soundness.hpp"

namespace ast::recording {

namespace {

// The blocks of ORADIS frames back to back, as datagrams of their own; false when the payload is anything else.
bool add_unwrapped(Chunk &chunk, const Datagram &datagram) {
    std::vector<uint8_t> storage;
    std::vector<Octets> blocks;
    for (Octets rest = datagram.octets; !rest.empty();) {
        const Framed framed = find_oradis(rest, storage);
        if (framed.state != Framed::State::frame) return false;
        blocks.push_back(framed.blocks);
        rest = rest.subspan(framed.octets);
    }
    for (const Octets octets : blocks) {
        Datagram part = datagram;
        part.octets = octets;
        part.offset = static_cast<uint64_t>(octets.data() - datagram.octets.data());
        chunk.add(part);
    }
    return true;
}

// Whether a block can be read in it, wherever it stands.
bool has_block(Octets payload, Patience &patience) {
    const Soundness soundness = check_blocks(payload, true, patience);
    const Octets blocks = payload.subspan(soundness.sound != 0 ? 0 : soundness.gap.value_or(payload.size()));
    if (!has_published_category(blocks)) return false;
    ast_reader_t reader{};
    return ast_reader_learn(&reader, blocks.data(), blocks.size(), nullptr);
}

bool is_filled_by_blocks(Octets payload) { return count_blocks(payload).octets == payload.size(); }

} // namespace

// Whether a datagram is told as other traffic; it goes on nevertheless, for whoever shows octets that are no blocks.
// One that is filled by blocks of a category that is not known may be neither damaged nor other traffic.
bool Payloads::is_foreign(Chunk &chunk, const Datagram &datagram) {
    Reports &reports = chunk.reports();
    Patience patience = chunk.patience();
    if (has_block(datagram.octets, patience)) {
        other_traffic_.blocks(datagram, reports);
        return false;
    }
    if (patience.is_over()) return true;
    if (is_filled_by_blocks(datagram.octets) && !other_traffic_.is_other(datagram, reports)) return false;
    if (!other_traffic_.no_blocks(datagram, reports)) return false;
    Datagram other = datagram;
    other.is_told = true;
    chunk.add(other);
    return true;
}

// What the capture has cut is nobody's other traffic: its blocks are read as far as they are there.
void Payloads::add(Chunk &chunk, const Datagram &datagram, bool is_truncated) {
    if (!chunk.is_wanted(datagram)) return;
    const bool is_chain = chain_of_blocks(datagram.octets) == datagram.octets.size();
    if (is_chain && !datagram.octets.empty()) other_traffic_.blocks(datagram, chunk.reports());
    if (!is_chain && !is_truncated && is_foreign(chunk, datagram)) return;
    if (is_chain) {
        if (is_truncated) chunk.reports().truncated(datagram, 0);
        return chunk.add(datagram);
    }
    if (!is_truncated && add_unwrapped(chunk, datagram)) return;
    Patience patience = chunk.patience();
    for (uint64_t place = 0; place < datagram.octets.size();) {
        const Soundness soundness = check_blocks(datagram.octets.subspan(place), true, patience);
        if (patience.is_over()) return;
        add_part(chunk, datagram, place, soundness.sound);
        place += soundness.sound;
        add_gap(chunk, datagram, place, soundness.gap.value_or(0), is_truncated);
        place += soundness.gap.value_or(0);
    }
}

// Octets that are no blocks. The last of what is cut go with the report of that.
void Payloads::add_gap(Chunk &chunk, const Datagram &datagram, uint64_t place, uint64_t octets, bool is_truncated) {
    const bool is_last = place + octets == datagram.octets.size();
    if (is_truncated && is_last) {
        chunk.reports().truncated(datagram, octets);
        Datagram rest = datagram;
        rest.is_told = true;
        return add_part(chunk, rest, place, octets);
    }
    if (is_trailer(datagram.octets, place, octets)) return add_trailer(chunk, datagram.octets.subspan(place));
    add_part(chunk, datagram, place, octets);
}

void Payloads::add_part(Chunk &chunk, const Datagram &datagram, uint64_t place, uint64_t octets) {
    if (octets == 0) return;
    Datagram part = datagram;
    part.octets = datagram.octets.subspan(place, octets);
    part.offset = place;
    chunk.add(part);
}

// A block that is cut short has a published category; octets of a recorder's own hardly begin with one.
bool Payloads::is_trailer(Octets payload, uint64_t place, uint64_t octets) {
    constexpr uint64_t kMostOctets = 64;
    const bool is_last = place != 0 && octets != 0 && place + octets == payload.size();
    return is_last && octets <= kMostOctets && !has_published_category(payload.subspan(place));
}

void Payloads::add_trailer(Chunk &chunk, Octets octets) {
    chunk.set_trailer(octets);
    ++trailers_;
    trailer_octets_ += octets.size();
}

bool Payloads::tell(Reports &reports) {
    const bool has_told = other_traffic_.tell(reports);
    if (trailers_ == 0) return has_told;
    reports.trailers(trailers_, trailer_octets_);
    trailers_ = 0;
    return true;
}

} // namespace ast::recording
