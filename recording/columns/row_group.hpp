// Rows that come in pieces of any size, collected to groups that do not depend on these.
#pragma once

#include "columns/column.hpp"

namespace ast::recording {

class RowGroup {
public:
    static constexpr uint64_t kUsualRows = 100'000;

    explicit RowGroup(std::span<const ColumnHead> heads, uint64_t most_rows = kUsualRows);

    // Takes rows of a piece from one on, up to its end or until the group is full. Returns the first that is left.
    uint64_t add(const Batch &piece, uint64_t first);

    // It has as many rows as it may have, or takes much memory.
    bool is_full() const { return is_full_; }

    Batch &batch() { return batch_; }
    void clear(bool keeps_dictionaries = false);

private:
    Batch batch_;
    uint64_t most_rows_;
    bool has_list_;
    bool is_full_ = false;
};

} // namespace ast::recording
