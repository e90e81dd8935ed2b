#include "counts.hpp"

#include <span>

namespace astdump {

namespace {

constexpr uint32_t kTypes = ByType<uint64_t>::kTypes;

} // namespace

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
    auto &items = items_.of_category(block.category);
    for (uint64_t r = 0; r < block.record_count; ++r) {
        if (!decoded.shown[r]) continue;
        const ast_datarecord_t &record = block.records[r];
        counts.items += record.item_count;
        for (const ast_dataitem_t &item : std::span(record.items, record.item_count)) {
            const ast_dataitem_type_t number = item.type - block.category * kTypes;
            uint64_t &count = number < kTypes ? items[number] : items_[item.type];
            if (count++ == 0) seen_types_.push_back(item.type);
        }
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
