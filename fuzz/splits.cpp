#include "splits.hpp"

namespace ast_fuzz {

bool same_item(const ast_dataitem_t &one, const ast_dataitem_t &other) {
    return one.data == other.data && one.size == other.size && one.type == other.type && one.valid == other.valid &&
           one.following == other.following;
}

bool has_records_of(const ast_split_t &split, const ast_datablock_t &block) {
    if (split.record_count < block.record_count) return false;
    for (uint64_t i = 0; i < block.record_count; ++i) {
        const ast_datarecord_t &record = block.records[i];
        const ast_split_record_t &place = split.records[i];
        if (block.data + place.offset != record.data || place.size != record.size) return false;
        if (place.item_count != record.item_count) return false;
        for (uint64_t k = 0; k < record.item_count; ++k)
            if (!same_item(ast_split_get_item(&split, place.first_item + k), record.items[k])) return false;
    }
    return true;
}

bool is_full(const ast_datablock_t &block, const ast_split_t &split) {
    if (block.record_count == AST_DATABLOCK_MAX_RECORDS) return true;
    if (split.record_count == block.record_count) return split.broken.item_count > AST_DATARECORD_MAX_ITEMS;
    return split.records[block.record_count].item_count > AST_DATARECORD_MAX_ITEMS;
}

} // namespace ast_fuzz
