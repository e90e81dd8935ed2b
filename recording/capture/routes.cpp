#include "capture/routes.hpp"

#include <algorithm>
#include <cstring>

namespace ast::recording {

namespace {

// Networks number their hosts and ports one after the other, so that few octets differ: the highest bits of a product
// depend on all of them.
size_t hash(RouteOctets octets) {
    constexpr uint32_t kMultiplier = 0x9E3779B1;
    constexpr uint32_t kOtherBits = 26;
    uint32_t words[3];
    std::memcpy(words, octets.data(), sizeof words);
    return ((words[0] * 5 ^ words[1] * 3 ^ words[2]) * kMultiplier) >> kOtherBits;
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

} // namespace ast::recording
