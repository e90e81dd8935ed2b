#include "columns/column.hpp"

#include <algorithm>
#include <limits>

namespace ast::recording {

// ---- Bits ----

namespace {

constexpr uint64_t lowest(unsigned count) { return count < 64 ? (uint64_t{1} << count) - 1 : ~uint64_t{0}; }

} // namespace

void Bits::put(uint64_t place, uint64_t bits, unsigned count) {
    if (count == 0) return;
    bits &= lowest(count);
    put_zeros(place, count);
    const unsigned shift = place % 8;
    uint8_t *octet = octets_.data() + place / 8;
    *octet = static_cast<uint8_t>(*octet | bits << shift);
    unsigned done = 8 - shift;
    for (; done < count; done += 8) *++octet = static_cast<uint8_t>(bits >> done);
}

uint64_t Bits::get(uint64_t place, unsigned count) const {
    uint64_t bits = 0;
    const auto first = static_cast<size_t>(place / 8);
    const auto end = static_cast<size_t>((place + count + 7) / 8);
    for (size_t octet = first; octet < end; ++octet) bits |= uint64_t{octets_[octet]} << 8 * (octet - first);
    return bits >> place % 8 & lowest(count);
}

void Bits::put(uint64_t place, const Bits &from, uint64_t first, uint64_t count) {
    constexpr uint64_t kAtOnce = 56;
    for (uint64_t done = 0; done < count; done += kAtOnce) {
        const auto more = static_cast<unsigned>(std::min(count - done, kAtOnce));
        put(place + done, from.get(first + done, more), more);
    }
}

uint64_t Bits::count(uint64_t first, uint64_t count) const {
    constexpr uint64_t kAtOnce = 56;
    uint64_t sum = 0;
    for (uint64_t done = 0; done < count; done += kAtOnce)
        sum += static_cast<unsigned>(
            std::popcount(get(first + done, static_cast<unsigned>(std::min(count - done, kAtOnce)))));
    return sum;
}

// ---- Column ----

Column::Column(const ColumnHead &head) : head_(&head), children_(head.children.begin(), head.children.end()) {}

// As long as all rows are null, which many columns are throughout, nothing is kept of them.
void Column::make_buffers() {
    validity_.put_zeros(0, size_);
    if (head_->type == ColumnType::boolean) flags_.put_zeros(0, size_);
    values_.resize(static_cast<size_t>(size_ + (head_->type == ColumnType::list)) * width_of(head_->type));
}

void Column::add_nulls(uint64_t count) {
    if (!is_void()) {
        validity_.put_zeros(size_, count);
        if (head_->type == ColumnType::boolean) flags_.put_zeros(size_, count);
        if (head_->type == ColumnType::list)
            for (uint64_t row = 0, end = elements(); row < count; ++row) {
                const auto same = static_cast<int32_t>(end);
                std::memcpy(room(sizeof same), &same, sizeof same);
            }
        else
            room(static_cast<size_t>(count) * width_of(head_->type));
    }
    size_ += count;
    nulls_ += count;
}

void Column::add_validity(uint64_t valid, unsigned count) {
    if (is_void()) make_buffers();
    valid &= lowest(count);
    validity_.put(size_, valid, count);
    size_ += count;
    nulls_ += count - static_cast<unsigned>(std::popcount(valid));
}

void Column::add_flags(unsigned count, uint64_t valid, uint64_t flags) {
    if (valid == 0) return add_nulls(count);
    const uint64_t before = size_;
    add_validity(valid, count);
    flags_.put(before, flags & valid, count);
}

bool Column::begin(uint64_t row) {
    if (row < size_) return false;
    if (row > size_) add_nulls(row - size_);
    add_validity(1, 1);
    return true;
}

uint64_t Column::place_of(uint64_t row, uint64_t element) {
    const uint64_t before = elements();
    const bool is_new = begin(row);
    if (is_new) room(sizeof(int32_t));
    const uint64_t place = is_new ? before + element : static_cast<uint64_t>(begin_of(row)) + element;
    const auto end = static_cast<int32_t>(std::max(is_new ? before : elements(), place + 1));
    std::memcpy(values_.data() + static_cast<size_t>(row + 1) * sizeof end, &end, sizeof end);
    return place;
}

void Column::complete(uint64_t rows) {
    if (size_ < rows) add_nulls(rows - size_);
    for (Column &each : children_) each.complete(head_->type == ColumnType::list ? elements() : rows);
}

void Column::append(const Column &from, uint64_t first, uint64_t count) {
    const uint64_t valid = from.is_void() ? 0 : from.validity_.count(first, count);
    if (head_->type == ColumnType::structure)
        for (size_t i = 0; i < children_.size(); ++i) children_[i].append(from.children_[i], first, count);
    if (valid == 0) return add_nulls(count);
    if (is_void()) make_buffers();
    validity_.put(size_, from.validity_, first, count);
    append_values(from, first, count);
    size_ += count;
    nulls_ += count - valid;
}

void Column::append_values(const Column &from, uint64_t first, uint64_t count) {
    switch (head_->type) {
    case ColumnType::boolean:
        return flags_.put(size_, from.flags_, first, count);
    case ColumnType::text:
        return append_texts(from, first, count);
    case ColumnType::list:
        return append_list(from, first, count);
    default:
        const size_t width = width_of(head_->type);
        const auto begin = from.values_.begin() + static_cast<std::ptrdiff_t>(first * width);
        values_.insert(values_.end(), begin, begin + static_cast<std::ptrdiff_t>(count * width));
    }
}

void Column::append_texts(const Column &from, uint64_t first, uint64_t count) {
    constexpr uint32_t kUnknown = std::numeric_limits<uint32_t>::max();
    std::vector<uint32_t> own(from.dictionary_.size(), kUnknown); // codes
    uint8_t *at = room(static_cast<size_t>(count) * sizeof(uint32_t));
    for (uint64_t row = first; row < first + count; ++row, at += sizeof(uint32_t)) {
        if (!from.validity_[row]) continue;
        const auto code = from.value<uint32_t>(row);
        if (own[code] == kUnknown) own[code] = dictionary_.code_of(from.dictionary_[code]);
        std::memcpy(at, &own[code], sizeof own[code]);
    }
}

void Column::append_list(const Column &from, uint64_t first, uint64_t count) {
    const int32_t begin = from.begin_of(first);
    const auto shift = static_cast<int32_t>(elements()) - begin;
    for (uint64_t row = first; row < first + count; ++row) {
        const int32_t end = from.end_of(row) + shift;
        std::memcpy(room(sizeof end), &end, sizeof end);
    }
    const auto places = static_cast<uint64_t>(from.end_of(first + count - 1) - begin);
    children_[0].append(from.children_[0], static_cast<uint64_t>(begin), places);
}

uint64_t Column::octets() const {
    uint64_t sum = values_.size() + validity_.octets().size() + flags_.octets().size() + dictionary_.octets();
    for (const Column &each : children_) sum += each.octets();
    return sum;
}

void Column::clear(bool keeps_dictionary) {
    size_ = nulls_ = 0;
    validity_.clear();
    flags_.clear();
    values_.clear();
    if (!keeps_dictionary) dictionary_.clear();
    for (Column &each : children_) each.clear(keeps_dictionary);
}

// ---- Batch ----

uint64_t Batch::octets() const {
    uint64_t sum = 0;
    for (const Column &each : columns) sum += each.octets();
    return sum;
}

void Batch::complete() {
    for (Column &each : columns) each.complete(rows);
}

void Batch::append(const Batch &from, uint64_t first, uint64_t count) {
    for (size_t i = 0; i < columns.size(); ++i) columns[i].append(from.columns[i], first, count);
    rows += count;
}

void Batch::clear(bool keeps_dictionaries) {
    for (Column &each : columns) each.clear(keeps_dictionaries);
    rows = 0;
}

} // namespace ast::recording
