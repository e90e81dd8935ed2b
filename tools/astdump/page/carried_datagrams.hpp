// What a page carries of a recording: its datagrams, compressed.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <unordered_map>

#include "show/chosen_datagrams.hpp"

namespace ast::recording::astdump {

// What all chunks together tell of where sources stand.
class SitesSeen {
public:
    // Blocks are counted anew.
    void begin_file() { block_ = 0; }

    // As they were known behind a block; later ones know more.
    void set(const SiteMemory &sites, uint64_t block);
    SiteMemory sites() const { return sites_; }

private:
    std::mutex mutex_;
    SiteMemory sites_;
    uint64_t block_ = 0;
};

// The datagrams of each chunk are a part, compressed by itself. Parts behind one another, with an end behind the last,
// are one raw stream of deflate. Little-endian, a part is
//
//     "PART", u32 how many datagrams D, u32 how many routes R, u32 0
//     R routes     u8 version of IP (0: none, and all else 0), u8 input (place among those of "about"; 255: the file at
//                  hand), u16 port of the sender, u16 of the receiver, u16 0, 16 octets of the sender's address, 16 of
//                  the receiver's, of IPv4 the first four
//     D times      i64, each less the one before, the first less 0; in ns since 1970, -2^63 for none
//     D routes     u16
//     D sizes      u32
//     the octets of the datagrams
//
// or, in front of those of each file, "FILE" and 12 octets of 0.
class CarriedDatagrams final : public DatagramRenderer {
public:
    CarriedDatagrams(bool remainders, std::span<const std::string> inputs, SitesSeen &sites);

    void block(const DecodedBlock &decoded, TextBuffer &out) override;
    void end(TextBuffer &out) override;

private:
    void put(TextBuffer &out, const Datagram &datagram, Octets payload) override;
    uint16_t route_of(const Datagram &datagram);
    uint8_t input_of(const Datagram &datagram) const;

    std::span<const std::string> inputs_;
    SitesSeen &sites_;
    uint64_t last_block_ = 0;
    SiteMemory last_sites_;
    std::unordered_map<std::string, uint16_t> known_routes_;
    std::string routes_;
    std::string times_;
    std::string route_places_;
    std::string sizes_;
    std::string octets_;
    uint64_t time_before_ = 0;
};

// "FILE", as a part; and the end of the stream.
std::string carried_file();
std::string carried_end();

} // namespace ast::recording::astdump
