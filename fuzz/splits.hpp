// What split blocks share with decoded ones.
#pragma once

#include "harness.hpp"

namespace ast_fuzz {

// A split block with ample room.
struct Split {
    Split() = default;
    Split(const Split &) = delete;
    Split &operator=(const Split &) = delete;

    // The block with all of its room.
    ast_split_t *fresh() {
        split.records = records.data();
        split.record_room = records.size();
        split.items = items.data();
        split.item_room = items.size();
        return &split;
    }

    static constexpr size_t kRoom = 65536;
    std::vector<ast_split_record_t> records = std::vector<ast_split_record_t>(kRoom);
    std::vector<ast_split_item_t> items = std::vector<ast_split_item_t>(kRoom);
    ast_split_t split{};
};

bool same_item(const ast_dataitem_t &one, const ast_dataitem_t &other);

// Whether a split block begins with the records of the decoded one.
bool has_records_of(const ast_split_t &split, const ast_datablock_t &block);

// Whether what ended the decoding was the room of a block or of a record, which a split block does not share.
bool is_full(const ast_datablock_t &block, const ast_split_t &split);

} // namespace ast_fuzz
