#include "block/measuring_sources.hpp"

#include <algorithm>
#include <iterator>
#include <optional>

#include "framing/block_header.hpp"

namespace ast::recording {

namespace {

// The categories of range and azimuth, or of x and y around a sensor, and those of latitude and longitude.
constexpr uint32_t kMeasuring[] = {1, 10, 20, 48};
constexpr uint32_t kPlacing[] = {10, 11, 18, 20, 21, 62};

bool is_in(std::span<const uint32_t> categories, uint32_t category) {
    return std::ranges::find(categories, category) != categories.end();
}

// That of the first record, whose first item it is in all of these categories.
std::optional<uint32_t> source_of(Octets block) {
    constexpr size_t kSourceOctets = 2;
    constexpr uint8_t kHasSource = 0x80;
    constexpr uint8_t kGoesOn = 0x01;
    if (block.size() <= kBlockHeaderOctets || (block[kBlockHeaderOctets] & kHasSource) == 0) return std::nullopt;
    size_t at = kBlockHeaderOctets;
    while (at < block.size() && (block[at] & kGoesOn) != 0) ++at;
    ++at;
    if (at + kSourceOctets > block.size()) return std::nullopt;
    return uint32_t{block[at]} << 8 | block[at + 1];
}

} // namespace

void MeasuringSources::add(Octets block) {
    are_placed_ = are_placed_ || is_in(kPlacing, block[0]);
    if (!is_in(kMeasuring, block[0])) return;
    const auto source = source_of(block);
    if (!source) return;
    const auto at = std::ranges::lower_bound(measuring_, *source);
    if (at == measuring_.end() || *at != *source) measuring_.insert(at, *source);
}

template <typename Take>
void MeasuringSources::each_site(const SiteMemory &sites, Take take) const {
    for (const uint32_t source : measuring_) take(sites.find(source >> 8, source & 0xFF));
}

bool MeasuringSources::can_be_worked_out(const SiteMemory &sites, bool are_sought_again) const {
    const PlaceCounts counts = places(sites);
    const uint64_t sought = counts.by_how[0] + (are_sought_again ? counts.by_how[AST_SITE_WORKED_OUT] : 0);
    return sought != 0 && (are_placed_ || sought != counts.sources());
}

PlaceCounts MeasuringSources::places(const SiteMemory &sites) const {
    PlaceCounts counts;
    each_site(sites, [&](const ast_site_t *site) { ++counts.by_how[site ? site->known : 0]; });
    return counts;
}

std::vector<ast_site_t> MeasuringSources::worked_out(const SiteMemory &sites) const {
    std::vector<ast_site_t> found;
    each_site(sites, [&](const ast_site_t *site) {
        if (site && site->known == AST_SITE_WORKED_OUT) found.push_back(*site);
    });
    return found;
}

} // namespace ast::recording
