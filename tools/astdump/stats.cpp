#include "stats.hpp"

#include <cinttypes>

namespace astdump {

void Stats::block(const DecodedBlock &decoded) {
    const ast_datablock_t &block = *decoded.block;
    counts_[block.category] += count(decoded);
    for (uint64_t r = 0; r < block.record_count; ++r) {
        if (!decoded.shown[r]) continue;
        const ast_datarecord_t &record = block.records[r];
        for (uint64_t i = 0; i < record.item_count; ++i) ++items_[record.items[i].type];
    }
}

void Stats::finish() {
    categories();
    if (!items_.empty()) items();
}

void Stats::categories() {
    std::fprintf(out_, "%s%-8s %10s %10s %10s %12s %14s%s\n", style_.on(Color::heading), "Category", "Blocks",
                 "Invalid", "Records", "Items", "Octets", style_.off());
    Counts total;
    for (unsigned category = 0; category < counts_.size(); ++category) {
        if (counts_[category].blocks == 0) continue;
        char title[16];
        std::snprintf(title, sizeof title, "%03u", category);
        row(title, counts_[category]);
        total += counts_[category];
    }
    row("all", total);
}

void Stats::row(const char *title, const Counts &counts) {
    const bool fault = counts.invalid > 0;
    std::fprintf(out_, "%-8s %10" PRIu64 " %s%10" PRIu64 "%s %10" PRIu64 " %12" PRIu64 " %14" PRIu64 "\n", title,
                 counts.blocks, fault ? style_.on(Color::fault) : "", counts.invalid, fault ? style_.off() : "",
                 counts.records, counts.items, counts.octets);
}

void Stats::items() {
    std::fprintf(out_, "\n%s%-8s %10s  %s%s\n", style_.on(Color::heading), "Item", "Count", "Name", style_.off());
    for (const auto &[type, count] : items_)
        std::fprintf(out_, "%s%-8s%s %10" PRIu64 "  %s\n", style_.on(Color::item), ast_dataitem_type_to_str(type),
                     style_.off(), count, ast_dataitem_get_name(type));
}

} // namespace astdump
