#include "splice.hpp"

#include <cmath>
#include <stdexcept>

namespace simulation {

namespace {

constexpr uint32_t kFrnsPerOctet = 7;
constexpr uint8_t kFx = 0x01; // another FSPEC octet follows
constexpr uint64_t kBlockHeaderOctets = 3;

uint32_t frn_of(const ast_uap_t &profile, uint32_t category, ast_dataitem_type_t type) {
    for (uint32_t frn = 1; frn <= ast_uap_max_frn(&profile, category); ++frn)
        if (ast_uap_get_dataitem(&profile, category, frn) == type) return frn;
    throw std::invalid_argument("no FRN announces the item");
}

// The FSPEC with one more bit set. Where that takes more octets, the FX bits chain them.
Octets fspec_with(const ast_fspec_t &fspec, uint32_t frn) {
    Octets octets(fspec.data, fspec.data + fspec.length);
    const uint64_t needed = (frn - 1) / kFrnsPerOctet + 1;
    while (octets.size() < needed) {
        octets.back() |= kFx;
        octets.push_back(0);
    }
    ast_fspec_set(octets.data(), octets.size(), frn, true);
    return octets;
}

void append(Octets &octets, const Octets &more) { octets.insert(octets.end(), more.begin(), more.end()); }

void append_item(Octets &octets, const ast_dataitem_t &item) {
    octets.insert(octets.end(), item.data, item.data + item.size);
}

// Fills in the header, CAT and LEN, for which pack_blocks leaves room.
void close_block(Octets &block, uint8_t category) {
    block[0] = category;
    block[1] = static_cast<uint8_t>(block.size() >> 8);
    block[2] = static_cast<uint8_t>(block.size());
}

} // namespace

// Items stand in the order of their FRNs, so as many go before the new one as the FSPEC announces below its FRN.
Octets with_item(const Octets &record, const ast_uap_t &profile, ast_dataitem_type_t type, const Octets &item) {
    const uint32_t category = type / AST_DATAITEM_TYPE(1, 0);
    const ast_datarecord_t decoded = ast_datarecord_decode(record.data(), record.size(), category, profile);
    if (!decoded.valid) throw std::invalid_argument("the record is damaged");
    const uint32_t new_frn = frn_of(profile, category, type);
    const ast_dataitem_t *each = decoded.items;
    Octets longer = fspec_with(decoded.fspec, new_frn);
    for (uint32_t frn = 1; frn < new_frn; ++frn)
        if (ast_fspec_is_set(&decoded.fspec, frn)) append_item(longer, *each++);
    append(longer, item);
    while (each != decoded.items + decoded.item_count) append_item(longer, *each++);
    return longer;
}

std::vector<Octets> pack_blocks(uint8_t category, const std::vector<Octets> &records, uint64_t most_octets) {
    std::vector<Octets> blocks;
    uint64_t records_in_last = AST_DATABLOCK_MAX_RECORDS;
    for (const Octets &record : records) {
        if (records_in_last == AST_DATABLOCK_MAX_RECORDS || blocks.back().size() + record.size() > most_octets) {
            blocks.emplace_back(kBlockHeaderOctets);
            records_in_last = 0;
        }
        append(blocks.back(), record);
        ++records_in_last;
    }
    for (Octets &block : blocks) close_block(block, category);
    return blocks;
}

std::vector<Datagram> pack_datagrams(const std::vector<Octets> &blocks, double time_s) {
    constexpr double kGapS = 0.0005;
    std::vector<Datagram> datagrams;
    for (const Octets &block : blocks) {
        if (datagrams.empty() || datagrams.back().blocks.size() + block.size() > kMostPayloadOctets) {
            datagrams.push_back({.time_s = time_s, .blocks = {}});
            time_s += kGapS;
        }
        append(datagrams.back().blocks, block);
    }
    return datagrams;
}

Octets octets_of(const ast_datarecord_t &record) {
    if (!record.valid) throw std::logic_error("a record cannot be encoded");
    return {record.data, record.data + record.size};
}

// Midnight begins a new day at 0.
ast_time_of_day_t time_of_day(double time_s) {
    constexpr double kDayS = 86400;
    constexpr double kUnitsPerS = 128;
    return {.valid = true, .raw = static_cast<uint32_t>(std::fmod(time_s, kDayS) * kUnitsPerS)};
}

} // namespace simulation
