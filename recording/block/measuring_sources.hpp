// Which data sources measure from where they stand, as the headers of their blocks tell it.
#pragma once

#include <array>
#include <cstdint>
#include <numeric>
#include <vector>

#include "block/site_memory.hpp"

namespace ast::recording {

// How many sources there are by how their places are known.
struct PlaceCounts {
    std::array<uint64_t, AST_SITE_GIVEN + 1> by_how{}; // AST_SITE_..., 0 for those without a place

    uint64_t sources() const { return std::accumulate(by_how.begin(), by_how.end(), uint64_t{0}); }
};

class MeasuringSources {
public:
    // Takes all records of a block for those of the source of the first.
    void add(Octets block);

    // Whether there are sources without a place, or also such as have one that is worked out, and others that may help
    // to find it.
    bool can_be_worked_out(const SiteMemory &sites, bool are_sought_again = false) const;

    PlaceCounts places(const SiteMemory &sites) const;

    // The places that are worked out, in the order of SAC and SIC.
    std::vector<ast_site_t> worked_out(const SiteMemory &sites) const;

private:
    // Calls take(site) for each source, with null for one without a place.
    template <typename Take>
    void each_site(const SiteMemory &sites, Take take) const;

    std::vector<uint32_t> measuring_; // SAC × 256 + SIC, ascending
    bool are_placed_ = false;         // some targets, by what sends latitude and longitude
};

} // namespace ast::recording
