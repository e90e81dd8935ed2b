// The values of a column, one row behind the other, as Arrow lays them out.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "columns/column_head.hpp"
#include "columns/dictionary.hpp"

namespace ast::recording {

// Bits behind one another, the first the least significant of an octet.
class Bits {
public:
    bool operator[](uint64_t place) const { return (octets_[static_cast<size_t>(place / 8)] >> place % 8 & 1) != 0; }
    const std::vector<uint8_t> &octets() const { return octets_; }

    // So many of the lowest bits, 64 at most, behind the first `place`, which are all that there are.
    void put(uint64_t place, uint64_t bits, unsigned count);
    void put(uint64_t place, const Bits &from, uint64_t first, uint64_t count);
    void put_zeros(uint64_t place, uint64_t count) { octets_.resize(static_cast<size_t>((place + count + 7) / 8)); }
    uint64_t count(uint64_t first, uint64_t count) const; // of those that are set
    void clear() { octets_.clear(); }

private:
    uint64_t get(uint64_t place, unsigned count) const; // 56 at most

    std::vector<uint8_t> octets_;
};

class Column {
public:
    // The head stays where it is as long as the column does.
    explicit Column(const ColumnHead &head);

    const ColumnHead &head() const { return *head_; }
    uint64_t size() const { return size_; }
    uint64_t nulls() const { return nulls_; }

    // Whether there is no value at all: then there are no buffers, either.
    bool is_void() const { return nulls_ == size_; }

    // What there is else. A bit for each row, and the values of all rows, those of nulls being 0; of booleans bits, of
    // texts codes, of lists the place in the child where each row ends, behind a 0; of structures nothing.
    const Bits &validity() const { return validity_; }
    const Bits &flags() const { return flags_; }
    const std::vector<uint8_t> &values() const { return values_; }
    const Dictionary &dictionary() const { return dictionary_; }
    const std::vector<Column> &children() const { return children_; }

    bool has(uint64_t row) const { return !is_void() && validity_[row]; }
    template <typename Value>
    Value value(uint64_t row) const {
        Value value;
        std::memcpy(&value, values_.data() + row * sizeof value, sizeof value);
        return value;
    }
    int32_t begin_of(uint64_t row) const { return value<int32_t>(row); } // of a list, in its child
    int32_t end_of(uint64_t row) const { return value<int32_t>(row + 1); }

    uint64_t octets() const; // that it takes

    void add_nulls(uint64_t count);

    // Rows by 64 at most: those with a bit of `valid` get make(row), or their bit of `flags`.
    template <typename Value, typename Make>
    void add_rows(unsigned count, uint64_t valid, Make make) {
        if (valid == 0) return add_nulls(count);
        add_validity(valid, count);
        uint8_t *at = room(count * sizeof(Value));
        for (unsigned row = 0; row < count; ++row, at += sizeof(Value)) {
            const Value value = make(row);
            std::memcpy(at, &value, sizeof value);
        }
    }
    void add_flags(unsigned count, uint64_t valid, uint64_t flags);

    // A value of a row; rows before it that have none are null. One that has a value keeps it.
    template <typename Value>
    void set(uint64_t row, Value value) {
        if (!begin(row)) return;
        std::memcpy(room(sizeof value), &value, sizeof value);
    }
    void set_text(uint64_t row, std::string_view text) {
        if (row >= size_) set(row, dictionary_.code_of(text));
    }
    void set_structure(uint64_t row) { begin(row); }

    // The place in the child of an element of a row, where it is the last row.
    uint64_t place_of(uint64_t row, uint64_t element);

    Column &child(size_t number) { return children_[number]; }
    Dictionary &dictionary() { return dictionary_; }

    // So many rows, and all that they hold.
    void complete(uint64_t rows);

    // Rows of a complete column of the same head.
    void append(const Column &from, uint64_t first, uint64_t count);

    void clear(bool keeps_dictionary);

private:
    bool begin(uint64_t row);
    void add_validity(uint64_t valid, unsigned count);
    void make_buffers();
    uint64_t elements() const { return is_void() ? 0 : static_cast<uint64_t>(begin_of(size_)); }
    void append_values(const Column &from, uint64_t first, uint64_t count);
    void append_texts(const Column &from, uint64_t first, uint64_t count);
    void append_list(const Column &from, uint64_t first, uint64_t count);
    uint8_t *room(size_t octets) {
        values_.resize(values_.size() + octets);
        return values_.data() + values_.size() - octets;
    }

    const ColumnHead *head_;
    uint64_t size_ = 0;
    uint64_t nulls_ = 0;
    Bits validity_;
    Bits flags_;
    std::vector<uint8_t> values_;
    Dictionary dictionary_;
    std::vector<Column> children_;
};

struct Batch {
    explicit Batch(std::span<const ColumnHead> heads) : columns(heads.begin(), heads.end()) {}

    std::vector<Column> columns;
    uint64_t rows = 0;

    uint64_t octets() const;

    // All columns get as many rows as there are.
    void complete();
    void append(const Batch &from, uint64_t first, uint64_t count);
    void clear(bool keeps_dictionaries = false);
};

} // namespace ast::recording
