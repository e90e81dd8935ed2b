#include "block/site_memory.hpp"

#include <algorithm>
#include <iterator>

#include "block/split_block.hpp"

namespace ast::recording {

namespace {

// The categories whose records tell places, as ast_sites_learn reads them.
constexpr uint32_t kTelling[] = {16, 19, 25, 34};

bool is_same(const ast_place_t &one, const ast_place_t &other) {
    return one.latitude_deg == other.latitude_deg && one.longitude_deg == other.longitude_deg &&
           one.height_m == other.height_m;
}

} // namespace

SiteMemory::Table::Table(std::span<const ast_site_t> known, const ast_site_t &added)
    : room(known.begin(), known.end()), sites{} {
    room.emplace_back();
    sites = {.sites = room.data(), .room = room.size(), .count = known.size()};
    ast_sites_add(&sites, &added);
}

SiteMemory::SiteMemory(std::span<const ast_site_t> given) : learns_(true) {
    std::ranges::for_each(given, [&](const ast_site_t &site) { add(site); });
}

bool SiteMemory::learns_from(Octets block) const {
    return learns_ && !block.empty() && std::ranges::find(kTelling, block[0]) != std::end(kTelling);
}

void SiteMemory::learn(const SplitBlock &block) {
    for (uint64_t i = 0; i < block.record_count; ++i) {
        ast_site_t told{};
        ast_sites_t alone{.sites = &told, .room = 1, .count = 0};
        if (ast_sites_learn(&alone, &block.records[i])) add(told);
    }
}

void SiteMemory::add(const ast_site_t &site) {
    const ast_site_t *const there = find(site.sac, site.sic);
    if (there && (there->known > site.known || is_same(there->place, site.place))) return;
    const std::span<const ast_site_t> known =
        table_ ? std::span(table_->room).first(static_cast<size_t>(table_->sites.count))
               : std::span<const ast_site_t>();
    table_ = std::make_shared<const Table>(known, site);
}

SiteMemory SiteMemory::told() const {
    SiteMemory told;
    if (!table_) return told;
    for (const ast_site_t &site : std::span(table_->room).first(static_cast<size_t>(table_->sites.count)))
        if (site.known != AST_SITE_WORKED_OUT) told.add(site);
    return told;
}

} // namespace ast::recording
