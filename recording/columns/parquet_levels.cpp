#include "columns/parquet_levels.hpp"

#include <algorithm>

#include "columns/little_endian.hpp"
#include "columns/thrift.hpp"

namespace ast::recording {

namespace {

constexpr size_t kPackedTogether = 8; // numbers

void put_run(std::string &out, uint64_t count, uint32_t number, unsigned bits) {
    put_varint(out, count << 1);
    for (unsigned done = 0; done < bits; done += 8) out += static_cast<char>(number >> done);
}

void put_packed_head(std::string &out, uint64_t count) {
    put_varint(out, (count + kPackedTogether - 1) / kPackedTogether << 1 | 1);
}

template <typename Put>
void put_with_length(std::string &page, Put put) {
    std::string levels;
    put(levels);
    put_little(page, static_cast<uint32_t>(levels.size()));
    page += levels;
}

} // namespace

// A single run, where all are equal, or all packed: what is behind it takes care of the rest.
void put_hybrid(std::string &out, std::span<const uint32_t> numbers, unsigned bits) {
    if (numbers.empty()) return;
    if (std::ranges::all_of(numbers, [&](uint32_t number) { return number == numbers[0]; }))
        return put_run(out, numbers.size(), numbers[0], bits);
    put_packed_head(out, numbers.size());
    const size_t groups = (numbers.size() + kPackedTogether - 1) / kPackedTogether;
    out.reserve(out.size() + groups * bits);
    uint64_t open = 0; // bits that are no octet yet
    unsigned count = 0;
    for (size_t i = 0; i < groups * kPackedTogether; ++i) {
        open |= uint64_t{i < numbers.size() ? numbers[i] : 0} << count;
        for (count += bits; count >= 8; count -= 8, open >>= 8) out += static_cast<char>(open);
    }
}

Levels::Levels(const LeafPath &path) : leaf_(path.back()), is_flat_(path.size() == 1) {
    for (const Column *column : path) {
        const bool is_list = column->head().type == ColumnType::list;
        most_repetition_ += is_list;
        most_definition_ += is_list ? 2 : 1;
    }
    if (is_flat_) {
        size_ = leaf_->size();
        values_ = size_ - leaf_->nulls();
        return;
    }
    for (uint64_t row = 0; row < path[0]->size(); ++row) walk(path, 0, row, 0, 0);
    size_ = definitions_.size();
    values_ = rows_.size();
}

// Down from a row of a column. An element of a list repeats that list, but for the first, which repeats what the list
// does.
void Levels::walk(const LeafPath &path, size_t depth, uint64_t row, uint32_t repetition, uint32_t definition) {
    const Column &column = *path[depth];
    const bool is_leaf = depth + 1 == path.size();
    if (column.has(row)) ++definition;
    if (!column.has(row) || is_leaf) {
        repetitions_.push_back(repetition);
        definitions_.push_back(definition);
        if (column.has(row)) rows_.push_back(row);
        return;
    }
    if (column.head().type == ColumnType::structure) return walk(path, depth + 1, row, repetition, definition);
    const auto own =
        static_cast<uint32_t>(std::count_if(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(depth) + 1,
                                            [](const Column *each) { return each->head().type == ColumnType::list; }));
    for (int32_t element = column.begin_of(row); element < column.end_of(row); ++element, repetition = own)
        walk(path, depth + 1, static_cast<uint64_t>(element), repetition, definition + 1);
}

void Levels::put(std::string &page) const {
    if (most_repetition_ != 0)
        put_with_length(page, [&](std::string &out) { put_hybrid(out, repetitions_, bits_for(most_repetition_)); });
    put_with_length(page, [&](std::string &out) {
        if (!is_flat_) return put_hybrid(out, definitions_, bits_for(most_definition_));
        if (nulls() == 0 || values_ == 0) return put_run(out, size_, values_ != 0, 1);
        put_packed_head(out, size_);
        const std::vector<uint8_t> &octets = leaf_->validity().octets();
        out += as_text(octets.data(), octets.size());
    });
}

} // namespace ast::recording
