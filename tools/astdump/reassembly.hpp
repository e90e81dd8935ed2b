// Puts IP fragments back together, of either version, in bounded memory.
#pragma once

#include <list>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "datagram.hpp"

namespace astdump {

struct Fragment {
    std::string key; // what the fragments of one datagram share: addresses, protocol, identification
    uint64_t offset; // of its octets in the datagram
    bool more;       // others follow it
    Octets octets;
};

class Reassembler {
public:
    // The octets of the whole datagram when this fragment completes it. Pieces that overlap end their datagram, as
    // RFC 5722 wants it for IPv6; a repeated piece is passed over.
    std::optional<std::vector<uint8_t>> add(const Fragment &fragment);

    // Datagrams begun but not completed so far, those given up included.
    uint64_t incomplete() const { return given_up_ + open_.size(); }

private:
    struct Partial {
        std::string key;
        std::map<uint64_t, std::vector<uint8_t>> pieces; // by offset
        std::optional<uint64_t> total;                   // octets, once the last piece is here
        uint64_t received = 0;
    };
    using Partials = std::list<Partial>;

    Partial &find_or_open(const std::string &key);
    static bool insert(Partial &partial, const Fragment &fragment);
    static bool is_complete(const Partial &partial);

    Partials open_; // the oldest first
    uint64_t given_up_ = 0;
};

} // namespace astdump
