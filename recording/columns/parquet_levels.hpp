// What Parquet says of the values of a leaf: which rows have one, and where in lists they stand.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "columns/column.hpp"

namespace ast::recording {

// Numbers of so many bits, in runs of equal ones or packed: Parquet's RLE/bit-packing hybrid.
void put_hybrid(std::string &out, std::span<const uint32_t> numbers, unsigned bits);
constexpr unsigned bits_for(uint64_t most) { return static_cast<unsigned>(std::bit_width(most)); }

// From a column of the table down to a leaf.
using LeafPath = std::vector<const Column *>;

class Levels {
public:
    explicit Levels(const LeafPath &path);

    uint64_t size() const { return size_; } // values and nulls
    uint64_t nulls() const { return size_ - values_; }

    // As they stand in front of the values of a page.
    void put(std::string &page) const;

    // Calls take(row) for each row of the leaf that has a value.
    template <typename Take>
    void each_value(Take take) const {
        if (!is_flat_)
            for (const uint64_t row : rows_) take(row);
        else if (leaf_->nulls() == 0)
            for (uint64_t row = 0; row < size_; ++row) take(row);
        else if (!leaf_->is_void())
            for (uint64_t row = 0; row < size_; ++row)
                if (leaf_->validity()[row]) take(row);
    }

private:
    void walk_structures(const LeafPath &path);
    void walk(const LeafPath &path, size_t depth, uint64_t row, uint32_t repetition, uint32_t definition);

    const Column *leaf_;
    bool is_flat_; // a column of the table, whose own bits say it all, or in one without any value
    uint64_t size_ = 0;
    uint64_t values_ = 0;
    uint32_t most_repetition_ = 0;
    uint32_t most_definition_ = 0;
    std::vector<uint32_t> lists_; // at each depth, how many there are down to there
    std::vector<uint32_t> repetitions_;
    std::vector<uint32_t> definitions_;
    std::vector<uint64_t> rows_; // of the leaf, that have a value
};

} // namespace ast::recording
