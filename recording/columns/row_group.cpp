#include "columns/row_group.hpp"

#include <algorithm>

namespace ast::recording {

namespace {

// Only with lists may a row take any amount of memory.
bool has_list(std::span<const ColumnHead> heads) {
    return std::ranges::any_of(
        heads, [](const ColumnHead &head) { return head.type == ColumnType::list || has_list(head.children); });
}

} // namespace

RowGroup::RowGroup(std::span<const ColumnHead> heads, uint64_t most_rows)
    : batch_(heads), most_rows_(most_rows), has_list_(has_list(heads)) {}

uint64_t RowGroup::add(const Batch &piece, uint64_t first) {
    constexpr uint64_t kMostOctets = uint64_t{256} << 20; // looked at whenever there are so many rows more
    constexpr uint64_t kLookedAtRows = 500;
    while (first < piece.rows && !is_full_) {
        const uint64_t until_look = has_list_ ? kLookedAtRows - batch_.rows % kLookedAtRows : most_rows_;
        const uint64_t more = std::min({piece.rows - first, until_look, most_rows_ - batch_.rows});
        batch_.append(piece, first, more);
        first += more;
        is_full_ = batch_.rows == most_rows_ || (more == until_look && batch_.octets() >= kMostOctets);
    }
    return first;
}

void RowGroup::clear(bool keeps_dictionaries) {
    batch_.clear(keeps_dictionaries);
    is_full_ = false;
}

} // namespace ast::recording
