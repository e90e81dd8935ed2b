#include "block/station_learner.hpp"

namespace ast::recording {

bool StationLearner::wants(Octets block, const MeasuringSources &measuring, const SiteMemory &sites) {
    constexpr uint64_t kBlocksBetweenLooks = 64;
    if (blocks_++ % kBlocksBetweenLooks == 0) seeks_ = measuring.can_be_worked_out(sites, !has_seen_much_);
    return seeks_ && StationFinder::looks_at(block);
}

bool StationLearner::learn(const SplitBlock &block, SiteMemory &sites) {
    finder_.look(block);
    if (finder_.size() < next_attempt_ && !finder_.is_full()) return false;
    const bool is_any_found = finder_.find(sites);
    next_attempt_ = 2 * finder_.size();
    if (finder_.is_full()) {
        finder_ = {};
        next_attempt_ = kFirstAttempt;
        has_seen_much_ = true;
    }
    return is_any_found;
}

} // namespace ast::recording
