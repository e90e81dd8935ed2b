#include "counts.hpp"

namespace astdump {

Counts &Counts::operator+=(const Counts &other) {
    blocks += other.blocks;
    invalid += other.invalid;
    records += other.records;
    items += other.items;
    octets += other.octets;
    return *this;
}

void Counter::add(const DecodedBlock &decoded) {
    const ast_datablock_t &block = *decoded.block;
    Counts &counts = categories_[block.category];
    if (counts.blocks++ == 0) seen_categories_.push_back(static_cast<uint8_t>(block.category));
    counts.invalid += decoded.fault ? 1U : 0U;
    counts.records += decoded.shown.count();
    counts.octets += decoded.octets.size();
    for (uint64_t r = 0; r < block.record_count; ++r) {
        if (!decoded.shown[r]) continue;
        const ast_datarecord_t &record = block.records[r];
        counts.items += record.item_count;
        for (uint64_t i = 0; i < record.item_count; ++i)
            if (items_[record.items[i].type]++ == 0) seen_types_.push_back(record.items[i].type);
    }
}

Tally Counter::take() {
    Tally tally;
    for (const uint8_t category : seen_categories_)
        tally.categories.emplace_back(category, std::exchange(categories_[category], {}));
    for (const ast_dataitem_type_t type : seen_types_) tally.items.emplace_back(type, std::exchange(items_[type], 0));
    seen_categories_.clear();
    seen_types_.clear();
    return tally;
}

} // namespace astdump
