#include "show/counts.hpp"

#include <algorithm>

#include "base/counted.hpp"

namespace ast::recording::astdump {

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

Counts &Counter::counts_of(uint32_t category) {
    Counts &counts = categories_[category];
    if (counts.blocks == 0) seen_categories_.push_back(static_cast<uint8_t>(category));
    return counts;
}

void Counter::add(const DecodedBlock &decoded) {
    const SplitBlock &block = *decoded.block;
    Counts &counts = counts_of(block.category);
    ++counts.blocks;
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

void Counter::add(ast_dataitem_type_t type, uint64_t count) {
    uint64_t &sum = items_[type];
    if (sum == 0) seen_types_.push_back(type);
    sum += count;
}

Blocks Counter::add(const EditionMemory &editions, Octets blocks) {
    const auto counted = [&] {
        uint64_t count = 0;
        for (uint64_t i = 0; i < census_->group_count; ++i) count += census_->groups[i].blocks;
        return count;
    };
    const uint64_t before = counted();
    const uint64_t octets = editions.count(*census_, blocks);
    return {counted() - before, octets};
}

void Counter::take_census() {
    if (census_->group_count == 0) return;
    for (const ast_census_group_t &group : std::span(census_->groups, static_cast<size_t>(census_->group_count))) {
        if (group.blocks == 0) continue;
        Counts &counts = counts_of(group.category);
        counts += {.blocks = group.blocks, .records = group.records, .items = group.items, .octets = group.octets};
        counts.add({group.profile, group.edition, group.ambiguous}, group.blocks);
    }
    const auto add_items = [](void *counter, ast_dataitem_type_t type, uint64_t records) {
        static_cast<Counter *>(counter)->add(type, records);
    };
    ast_census_get_items(census_.get(), add_items, this);
    ast_census_clear(census_.get());
}

Tally Counter::take() {
    take_census();
    Tally tally;
    for (const uint8_t category : seen_categories_)
        tally.categories.emplace_back(category, std::exchange(categories_[category], {}));
    for (const ast_dataitem_type_t type : seen_types_) tally.items.emplace_back(type, std::exchange(items_[type], 0));
    seen_categories_.clear();
    seen_types_.clear();
    return tally;
}

} // namespace ast::recording::astdump
