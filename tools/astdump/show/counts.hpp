// What a run has met, in numbers.
#pragma once

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "block/decoded_block.hpp"
#include "datagram/losses.hpp"
#include "framing/block_header.hpp"
#include "show/by_type.hpp"

namespace ast::recording::astdump {

struct Counts {
    uint64_t blocks = 0;
    uint64_t damaged = 0;     // blocks
    uint64_t unsupported = 0; // blocks
    uint64_t records = 0;
    uint64_t items = 0;
    uint64_t octets = 0;
    std::vector<std::pair<Profile, uint64_t>> profiles; // of blocks without a fault, as they are met

    void add(const Profile &profile, uint64_t number);
    Counts &operator+=(const Counts &other);
};

// What has been counted over some blocks; only what is there.
struct Tally {
    Losses losses;
    std::vector<std::pair<uint8_t, Counts>> categories;
    std::vector<std::pair<ast_dataitem_type_t, uint64_t>> items;
};

// Counts blocks, with those of their records that are asked for. Of a damaged one, the records before the fault count.
class Counter {
public:
    Counter() : census_(std::make_unique<ast_census_t>()) {}

    void add(const DecodedBlock &decoded);

    // Adds blocks all of whose records are asked for, up to one that has to be split to be counted.
    Blocks add(const EditionMemory &editions, Octets blocks);

    // What has been counted since the last time.
    Tally take();

private:
    Counts &counts_of(uint32_t category);
    void add(uint32_t category, std::span<const ast_split_item_t> items);
    void add(ast_dataitem_type_t type, uint64_t count);
    void take_census();

    std::unique_ptr<ast_census_t> census_;

    std::array<Counts, 256> categories_{};
    ByType<uint64_t> items_;
    std::vector<uint8_t> seen_categories_;
    std::vector<ast_dataitem_type_t> seen_types_;
};

} // namespace ast::recording::astdump
