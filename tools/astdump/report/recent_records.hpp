// Whether a record came before, a short while ago.
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace ast::recording::astdump {

// Keeps the digests of the last 1,024 records.
class RecentRecords {
public:
    // Whether it is one of these; it is from then on.
    bool has_seen(uint64_t digest) {
        if (known_.contains(digest)) return true;
        if (lately_.size() < kMost) {
            lately_.push_back(digest);
        } else {
            known_.erase(lately_[oldest_]);
            lately_[oldest_] = digest;
            oldest_ = (oldest_ + 1) % kMost;
        }
        known_.insert(digest);
        return false;
    }

private:
    static constexpr size_t kMost = 1024;

    std::vector<uint64_t> lately_;
    size_t oldest_ = 0; // once there are so many
    std::unordered_set<uint64_t> known_;
};

} // namespace ast::recording::astdump
