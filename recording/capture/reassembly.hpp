// Puts IP fragments back together, of either version, in bounded memory.
#pragma once

#include <list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "datagram/datagram.hpp"

namespace ast::recording {

struct Fragment {
    std::string key; // what the fragments of one datagram share: addresses, protocol, identification
    uint64_t offset; // of its octets in the datagram
    bool more;       // others follow it
    Octets octets;
};

class Reassembler {
public:
    // The octets of the whole datagram when this fragment completes it. Pieces that overlap end their datagram, as
    // RFC 5722 wants it for IPv6; a repeated piece is passed over, also when its datagram has been completed. Another
    // piece at the same place is of another datagram whose sender has come back to the identification, as is any piece
    // after half a minute.
    std::optional<std::vector<uint8_t>> add(const Fragment &fragment, const Time &time);

    // Datagrams begun but not completed so far, those given up included, as far as they began while these count.
    uint64_t incomplete() const;
    void count_incomplete(bool counts) { counts_incomplete_ = counts; }

private:
    struct Partial {
        std::string key;
        Time since;                                      // when its first piece came
        std::map<uint64_t, std::vector<uint8_t>> pieces; // by offset
        std::optional<uint64_t> total;                   // octets, once the last piece is here
        uint64_t received = 0;
        bool is_counted = true;         // if it turns out to be incomplete
        bool is_lost = false;           // what comes of it now is passed over
        std::vector<size_t> repeatable; // hashes of the pieces of the datagram that was completed before
        bool is_repeated = true;        // all pieces are such
    };
    using Partials = std::list<Partial>;

    Partial &find_or_open(const Fragment &fragment, const Time &time);
    static bool insert(Partial &partial, const Fragment &fragment);
    static bool is_complete(const Partial &partial);
    static size_t octets_of(const Partial &partial);
    static bool counts(const Partial &partial) {
        return partial.is_counted && !partial.is_lost && !partial.is_repeated;
    }
    static void restart(Partial &partial);
    void give_up(Partial &partial);
    void make_room();

    Partials partials_; // the oldest first
    std::unordered_map<std::string_view, Partials::iterator> places_;
    size_t held_octets_ = 0;
    uint64_t given_up_ = 0;
    bool counts_incomplete_ = true;
};

} // namespace ast::recording
