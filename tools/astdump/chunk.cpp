#include "chunk.hpp"

#include <algorithm>

#include "split.hpp"

namespace astdump {

namespace {

// What may be read beyond the limit: a block, or a packet with one, with headers of any length.
constexpr size_t kMargin = 2 * (kMaxBlockOctets + 1);

} // namespace

Chunk::Chunk(size_t octets)
    : limit_(octets), capacity_(octets + kMargin), storage_(std::make_unique_for_overwrite<uint8_t[]>(capacity_)) {}

void Chunk::clear() {
    read_ = used_ = 0;
    kept_.clear();
    datagrams_.clear();
    damage_.clear();
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

void Chunk::add(const Datagram &datagram) {
    datagrams_.push_back(datagram);
    damage_.place = datagrams_.size();
}

void Chunk::stamp(const Time &time, const Endpoints &endpoints) {
    for (Datagram &datagram : datagrams_) {
        datagram.time = time;
        datagram.endpoints = endpoints;
    }
}

} // namespace astdump
