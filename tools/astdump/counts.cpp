#include "counts.hpp"

#include <algorithm>

namespace astdump {

void Counts::add(const Profile &profile, uint64_t number) {
    auto known = std::ranges::find(profiles, profile, &std::pair<Profile, uint64_t>::first);
    if (known == profiles.end()) known = profiles.insert(known, {profile, 0});
    known->second += number;
}

Counts &Counts::operator+=(const Counts &other) {
    blocks += other.blocks;
    damaged += other.damaged;
    unsupported += other.unsupported;
    records += other.records;
    items += other.items;
    octets += other.octets;
    for (const auto &[profile, number] : other.profiles) add(profile, number);
    return *this;
}

void Counter::add(const DecodedBlock &decoded) {
    const Block &block = *decoded.block;
    Counts &counts = categories_[block.category];
    if (counts.blocks++ == 0) seen_categories_.push_back(static_cast<uint8_t>(block.category));
    if (decoded.fault) ++(decoded.fault->kind == FaultKind::damaged ? counts.damaged : counts.unsupported);
    if (!decoded.fault) counts.add(block.profile, 1);
    counts.records += decoded.shown.count();
    counts.octets += decoded.octets.size();
    for (uint64_t r = 0; r < block.record_count; ++r) {
        if (!decoded.shown[r]) continue;
        const auto items = block.records.items(r);
        counts.items += items.size();
        add(block.category, items);
    }
}

// All items of a record are of its category.
void Counter::add(uint32_t category, std::span<const ast_split_item_t> items) {
    auto &counts = items_.of(category);
    for (const ast_split_item_t &item : items)
        if (counts[item.type - AST_DATAITEM_TYPE(category, 0)]++ == 0) seen_types_.push_back(item.type);
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
