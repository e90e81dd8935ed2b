#include "datagram/chunk.hpp"

#include <algorithm>

#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

// What may be read beyond the limit: a block, or a packet with one, with headers of any length.
constexpr size_t kMargin = 2 * (kMaxBlockOctets + 1);

} // namespace

Chunk::Chunk(size_t octets)
    : limit_(octets), capacity_(octets + kMargin), storage_(std::make_unique_for_overwrite<uint8_t[]>(capacity_)) {}

void Chunk::clear() {
    read_ = used_ = 0;
    kept_.clear();
    forget();
    consumed = 0;
    filter_ = nullptr;
    interruption_ = nullptr;
}

void Chunk::forget() {
    datagrams_.clear();
    reports_.clear();
    met_any_ = false;
}

Octets Chunk::keep(Octets octets) {
    if (octets.size() > room().size()) return kept_.emplace_back(octets.begin(), octets.end());
    uint8_t *const copy = room().data();
    std::copy(octets.begin(), octets.end(), copy);
    used_ += octets.size();
    return {copy, octets.size()};
}

Octets Chunk::keep_apart(Octets octets) {
    kept_.emplace_back(octets.begin(), octets.end());
    return kept_.back();
}

// Reports stay between the datagrams that they stood between.
void Chunk::leave_out() {
    if (!filter_) return;
    auto report = reports_.list().begin();
    size_t left = 0;
    for (size_t i = 0; i < datagrams_.size(); ++i) {
        for (; report != reports_.list().end() && report->place <= i; ++report) report->place = left;
        if (filter_->passes(datagrams_[i])) datagrams_[left++] = datagrams_[i];
    }
    for (; report != reports_.list().end(); ++report) report->place = left;
    datagrams_.resize(left);
    reports_.place = left;
}

void Chunk::number_blocks(uint64_t first) {
    first_number = end_number = first;
    for (Datagram &datagram : datagrams_) {
        if (!datagram.may_hold_blocks()) continue;
        if (!datagram.blocks) {
            const Blocks blocks = count_blocks(datagram.octets);
            datagram.blocks = blocks.count;
            datagram.is_filled = blocks.octets == datagram.octets.size();
        }
        end_number += *datagram.blocks;
    }
}

void Chunk::stamp(const Time &time, const Endpoints &endpoints) {
    for (Datagram &datagram : datagrams_) {
        datagram.time = time;
        datagram.endpoints = endpoints;
    }
}

} // namespace ast::recording
