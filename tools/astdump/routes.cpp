#include "routes.hpp"

#include <algorithm>
#include <cstring>

namespace astdump {

namespace {

uint16_t read_u16(RouteOctets octets, size_t offset) {
    return static_cast<uint16_t>(octets[offset] << 8 | octets[offset + 1]);
}

// Networks number their hosts and ports one after the other: the last octets differ most.
size_t hash(RouteOctets octets) {
    constexpr uint32_t kMultiplier = 0x9E3779B1;
    uint32_t words[3];
    std::memcpy(words, octets.data(), sizeof words);
    return ((words[0] * 5 ^ words[1] * 3 ^ words[2]) * kMultiplier) >> 26;
}

} // namespace

Endpoints read_endpoints(RouteOctets octets) {
    Endpoints endpoints{{{}, read_u16(octets, 8)}, {{}, read_u16(octets, 10)}};
    std::copy_n(&octets[0], 4, endpoints.source.address.octets.begin());
    std::copy_n(&octets[4], 4, endpoints.destination.address.octets.begin());
    return endpoints;
}

Datagram &Routes::datagram(RouteOctets octets) {
    Known &known = known_[hash(octets) % known_.size()];
    if (!std::ranges::equal(known.octets, octets)) {
        std::ranges::copy(octets, known.octets.begin());
        known.datagram.endpoints = read_endpoints(octets);
    }
    return known.datagram;
}

} // namespace astdump
