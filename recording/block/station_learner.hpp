// Working out stations while what shows them is read, where it cannot be looked through beforehand.
#pragma once

#include "block/measuring_sources.hpp"
#include "block/station_finder.hpp"

namespace ast::recording {

class StationLearner {
public:
    // Whether a block that is next may help: to place stations, and, until much has been seen, to place them better.
    bool wants(Octets block, const MeasuringSources &measuring, const SiteMemory &sites);

    // Learns from such a block. Whether places have become known by it, or known better.
    bool learn(const SplitBlock &block, SiteMemory &sites);

private:
    // Each attempt has twice as much to go by as the one before, until all begins anew.
    static constexpr size_t kFirstAttempt = 64;

    StationFinder finder_;
    size_t next_attempt_ = kFirstAttempt;
    uint64_t blocks_ = 0;
    bool seeks_ = false;
    bool has_seen_much_ = false;
};

} // namespace ast::recording
