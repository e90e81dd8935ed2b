// What a run has met, in numbers.
#pragma once

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "decode.hpp"

namespace astdump {

struct Counts {
    uint64_t blocks = 0;
    uint64_t invalid = 0;
    uint64_t records = 0;
    uint64_t items = 0;
    uint64_t octets = 0;

    Counts &operator+=(const Counts &other);
};

// What has been counted over some blocks; only what is there.
struct Tally {
    std::vector<std::pair<uint8_t, Counts>> categories;
    std::vector<std::pair<ast_dataitem_type_t, uint64_t>> items;
};

// A number for every item type, by arrays that are there for the categories that are met.
class ItemCounts {
public:
    uint64_t &operator[](ast_dataitem_type_t type) {
        auto &category = categories_[type / kTypes % categories_.size()];
        if (!category) category = std::make_unique<std::array<uint64_t, kTypes>>();
        return (*category)[type % kTypes];
    }

    // All types that have been counted, in their order.
    std::vector<std::pair<ast_dataitem_type_t, uint64_t>> list() const;

private:
    static constexpr uint32_t kTypes = 1000; // of a category

    std::array<std::unique_ptr<std::array<uint64_t, kTypes>>, 256> categories_{};
};

// Counts blocks, with those of their records that are asked for. Of a damaged one, the records before the fault count.
class Counter {
public:
    void add(const DecodedBlock &decoded);

    // What has been counted since the last time.
    Tally take();

private:
    std::array<Counts, 256> categories_{};
    ItemCounts items_;
    std::vector<uint8_t> seen_categories_;
    std::vector<ast_dataitem_type_t> seen_types_;
};

} // namespace astdump
