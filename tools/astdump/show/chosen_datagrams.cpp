#include "show/chosen_datagrams.hpp"

#include <algorithm>

#include "framing/block_header.hpp"
#include "write/packets.hpp"

namespace ast::recording::astdump {

Octets ChosenBlock::of(const DecodedBlock &decoded) {
    const SplitBlock &block = *decoded.block;
    const bool is_whole = remainders_ || (!decoded.fault && decoded.shown.count() == block.record_count);
    if (is_whole) return decoded.octets;
    octets_.assign(kBlockHeaderOctets, static_cast<uint8_t>(block.category));
    for (uint64_t i = 0; i < block.record_count; ++i) {
        const ast_datarecord_t &record = block.records[i];
        if (decoded.shown[i]) octets_.insert(octets_.end(), record.data, record.data + record.size);
    }
    set_block_length(octets_);
    return octets_;
}

void DatagramRenderer::begin(const Datagram &datagram, size_t octets, TextBuffer &out) {
    const bool fits = payload_.size() + octets + datagram.trailer.size() <= kMaxPayloadOctets;
    if (!datagram.is_same_as(datagram_) || !fits) put_collected(out);
    datagram_ = datagram;
}

void DatagramRenderer::block(const DecodedBlock &decoded, TextBuffer &out) {
    const Octets octets = chosen_.of(decoded);
    begin(*decoded.datagram, octets.size(), out);
    payload_.insert(payload_.end(), octets.begin(), octets.end());
}

void DatagramRenderer::no_block(const Datagram &datagram, uint64_t offset, const std::string &, TextBuffer &out) {
    const bool is_datagram = datagram.packet != 0 || datagram.together != 0;
    if (behind_ != Behind::everything || !is_datagram || !datagram.may_hold_blocks()) return;
    const Octets octets = datagram.octets.subspan(offset);
    begin(datagram, octets.size(), out);
    payload_.insert(payload_.end(), octets.begin(), octets.end());
}

void DatagramRenderer::end(TextBuffer &out) { put_collected(out); }

// What a recorder has put behind the last block stays where all in front of it does.
void DatagramRenderer::put_collected(TextBuffer &out) {
    if (!datagram_.trailer.empty() && std::ranges::equal(payload_, datagram_.octets))
        payload_.insert(payload_.end(), datagram_.trailer.begin(), datagram_.trailer.end());
    if (!payload_.empty()) put(out, datagram_, payload_);
    payload_.clear();
    datagram_ = {};
}

} // namespace ast::recording::astdump
