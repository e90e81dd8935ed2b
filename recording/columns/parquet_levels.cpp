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

Levels::Levels(const LeafPath &path) : leaf_(path.back()), is_flat_(path.size() == 1 || path[0]->is_void()) {
    for (const Column *column : path) {
        const bool is_list = column->head().type == ColumnType::list;
        most_repetition_ += is_list;
        most_definition_ += is_list ? 2 : 1;
        lists_.push_back(most_repetition_);
    }
    if (is_flat_) {
        size_ = path[0]->size();
        values_ = size_ - path[0]->nulls();
        return;
    }
    if (most_repetition_ == 0)
        walk_structures(path);
    else
        for (uint64_t row = 0; row < path[0]->size(); ++row) walk(path, 0, row, 0, 0);
    size_ = definitions_.size();
    values_ = rows_.size();
}

// Without lists, all columns have the same rows.
void Levels::walk_structures(const LeafPath &path) {
    definitions_.reserve(static_cast<size_t>(path[0]->size()));
    for (uint64_t row = 0; row < path[0]->size(); ++row) {
        uint32_t definition = 0;
        while (definition < path.size() && path[definition]->has(row)) ++definition;
        definitions_.push_back(definition);
        if (definition == path.size()) rows_.push_back(row);
    }
}

// Down from a row of a column. An element of a list repeats that list, but for the first, which repeats what the list
// does.
void Levels::walk(const LeafPath &path, size_t depth, uint64_t row, uint32_t repetition, uint32_t definition) {
    const Column &column = *path[depth];
    const bool has_value = column.has(row);
    if (has_value) ++definition;
    if (!has_value || depth + 1 == path.size()) {
        repetitions_.push_back(repetition);
        definitions_.push_back(definition);
        if (has_value) rows_.push_back(row);
        return;
    }
    if (column.head().type == ColumnType::structure) return walk(path, depth + 1, row, repetition, definition);
    for (int32_t element = column.begin_of(row); element < column.end_of(row); ++element, repetition = lists_[depth])
        walk(path, depth + 1, static_cast<uint64_t>(element), repetition, definition + 1);
}

void Levels::put(std::string &page) const {
    const unsigned repetition_bits = bits_for(most_repetition_);
    const unsigned definition_bits = bits_for(most_definition_);
    if (most_repetition_ != 0)
        put_with_length(page, [&](std::string &out) {
            return is_flat_ ? put_run(out, size_, 0, repetition_bits) : put_hybrid(out, repetitions_, repetition_bits);
        });
    put_with_length(page, [&](std::string &out) {
        if (!is_flat_) return put_hybrid(out, definitions_, definition_bits);
        if (nulls() == 0 || values_ == 0) return put_run(out, size_, values_ != 0, definition_bits);
        put_packed_head(out, size_);
        const std::vector<uint8_t> &octets = leaf_->validity().octets();
        out += as_text(octets.data(), octets.size());
    });
}

} // namespace ast::recording
