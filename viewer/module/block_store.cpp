#include "module/block_store.hpp"

#include <algorithm>
#include <ast_recording.h>
#include <cstring>

namespace ast::viewer {

void BlockStore::begin_stretch(size_t input, const Known &known) {
    const bool is_alike =
        !stretches_.empty() && stretches_.back().input == input && !known.grows() && !stretches_.back().known.grows();
    if (is_alike) return;
    if (!stretches_.empty() && stretches_.back().first_block == size()) stretches_.pop_back();
    stretches_.push_back({.first_block = size(), .input = input, .known = known});
}

void BlockStore::add(const DecodedBlock &decoded, uint16_t file, uint8_t state, uint32_t first_row) {
    const Datagram &datagram = *decoded.datagram;
    const auto time_ns = datagram.time ? nanoseconds_of(*datagram.time) : std::nullopt;
    blocks_.push_back({.time_ns = time_ns.value_or(AST_TIME_UNKNOWN),
                       .datagram_offset = datagram.offset,
                       .offset = static_cast<uint32_t>(decoded.offset),
                       .place = keep(decoded.octets),
                       .number = static_cast<uint32_t>(decoded.number),
                       .packet = static_cast<uint32_t>(datagram.packet),
                       .first_row = first_row,
                       .file = file,
                       .route = route_of(datagram.endpoints),
                       .length = static_cast<uint16_t>(decoded.octets.size()),
                       .category = decoded.octets[0],
                       .state = state,
                       .fills_datagram = datagram.is_filled});
}

uint32_t BlockStore::keep(Octets octets) {
    if (kPieceOctets - used_ < octets.size()) {
        pieces_.push_back(std::make_unique_for_overwrite<uint8_t[]>(kPieceOctets));
        used_ = 0;
    }
    const size_t place = (pieces_.size() - 1) * kPieceOctets + used_;
    std::memcpy(pieces_.back().get() + used_, octets.data(), octets.size());
    used_ += octets.size();
    return static_cast<uint32_t>(place);
}

// The most recent first: there are few.
uint16_t BlockStore::route_of(const std::optional<Endpoints> &endpoints) {
    if (!endpoints) return 0;
    auto found = std::find(routes_.rbegin(), routes_.rend(), *endpoints);
    if (found != routes_.rend()) return static_cast<uint16_t>(routes_.rend() - found);
    constexpr size_t kMost = UINT16_MAX;
    if (routes_.size() == kMost) return 0;
    routes_.push_back(*endpoints);
    return static_cast<uint16_t>(routes_.size());
}

Octets BlockStore::octets(uint32_t block) const {
    const StoredBlock &stored = blocks_[block];
    return {pieces_[stored.place / kPieceOctets].get() + stored.place % kPieceOctets, stored.length};
}

const Stretch &BlockStore::stretch_of(uint32_t block) const {
    return *std::prev(std::ranges::upper_bound(stretches_, block, {}, &Stretch::first_block));
}

uint32_t BlockStore::block_of_row(uint32_t row) const {
    const auto behind = std::ranges::upper_bound(blocks_, row, {}, &StoredBlock::first_row);
    return static_cast<uint32_t>(behind - blocks_.begin() - 1);
}

const Endpoints *BlockStore::route(uint32_t block) const {
    const uint16_t route = blocks_[block].route;
    return route == 0 ? nullptr : &routes_[route - 1U];
}

const Datagram &BlockStore::datagram(uint32_t block) const {
    const StoredBlock &stored = blocks_[block];
    const Endpoints *const route = this->route(block);
    datagram_ = {.octets = octets(block),
                 .blocks = {},
                 .is_filled = stored.fills_datagram,
                 .packet = stored.packet,
                 .offset = stored.datagram_offset,
                 .time = {},
                 .endpoints = {}};
    if (stored.time_ns != AST_TIME_UNKNOWN) datagram_.time = from_nanoseconds(stored.time_ns);
    if (route) datagram_.endpoints = *route;
    return datagram_;
}

// What blocks before it in its stretch tell is learnt anew where it was learnt as they came.
void StoredDecoder::go_to(uint32_t block, std::span<const ast_site_t> given) {
    stretch_ = &store_.stretch_of(block);
    Known known = stretch_->known;
    for (const ast_site_t &site : given) known.sites.add(site);
    const bool grows = known.grows();
    decoder_.set_known(known, {});
    if (grows)
        for (uint32_t before = stretch_->first_block; before < block; ++before)
            decoder_.decode(store_.datagram(before), 0, 0, store_.octets(before));
}

DecodedBlock &StoredDecoder::decode(uint32_t block, std::span<const ast_site_t> given) {
    if (block != next_ || &store_.stretch_of(block) != stretch_) go_to(block, given);
    const StoredBlock &stored = store_[block];
    DecodedBlock &decoded = decoder_.decode(store_.datagram(block), stored.number, stored.offset, store_.octets(block));
    decoded.shown.set_all(decoded.block->record_count);
    next_ = block + 1;
    return decoded;
}

} // namespace ast::viewer
