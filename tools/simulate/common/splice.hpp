// Adding items that the library has no encoder for to records that it encoded, and packing records into blocks and
// blocks into datagrams.
#pragma once

#include <ast.h>
#include <cstdint>
#include <vector>

namespace simulation {

using Octets = std::vector<uint8_t>;

// What leaves a sensor in one UDP datagram: one or more blocks.
struct Datagram {
    double time_s; // since midnight of the first day
    Octets blocks;
};

// Leaves room for IP and UDP headers in an Ethernet frame of 1500 octets.
constexpr uint64_t kMostPayloadOctets = 1472;

// A copy of an encoded record with one item more, which it must not have yet. Throws std::invalid_argument for a
// damaged record or an item that the profile does not list.
Octets with_item(const Octets &record, const ast_uap_t &profile, ast_dataitem_type_t type, const Octets &item);

// The records in blocks of one category, in their order, as few as the limits of records and octets allow.
std::vector<Octets> pack_blocks(uint8_t category, const std::vector<Octets> &records, uint64_t most_octets);

// Blocks share a datagram as long as they fit. The first one leaves at the time given.
std::vector<Datagram> pack_datagrams(const std::vector<Octets> &blocks, double time_s);

// The octets of a record that the library wrote to a buffer. Throws std::logic_error when it could not.
Octets octets_of(const ast_datarecord_t &record);

ast_time_of_day_t time_of_day(double time_s);

} // namespace simulation
