#include "capture/segment_order.hpp"

#include <cstddef>

namespace ast::recording {

Octets SegmentOrder::add(uint32_t sequence, Octets octets) {
    if (octets.empty()) return {};
    const int32_t known = distance(sequence, next_); // octets of it
    if (known < 0) {
        keep(sequence, octets);
        return {};
    }
    const auto begin = static_cast<size_t>(known);
    if (begin >= octets.size()) return {};
    const Octets ready = octets.subspan(begin);
    next_ += static_cast<uint32_t>(ready.size());
    if (waiting_.empty()) {
        if (ready_.capacity() != 0) ready_ = {};
        return ready;
    }
    ready_.assign(ready.begin(), ready.end());
    release();
    return ready_;
}

Octets SegmentOrder::skip_to(uint32_t sequence) {
    next_ = sequence;
    ready_.clear();
    release();
    return ready_;
}

// Of two that begin at the same place, the longer one.
void SegmentOrder::keep(uint32_t sequence, Octets octets) {
    std::vector<uint8_t> &kept = waiting_[sequence];
    if (kept.size() >= octets.size()) return;
    waiting_octets_ += octets.size() - kept.size();
    kept.assign(octets.begin(), octets.end());
}

void SegmentOrder::release() {
    while (is_waiting() && distance(first_waiting(), next_) >= 0) {
        const auto first = waiting_.begin();
        const std::vector<uint8_t> &octets = first->second;
        const auto known = static_cast<size_t>(distance(first->first, next_));
        waiting_octets_ -= octets.size();
        if (known < octets.size()) {
            ready_.insert(ready_.end(), octets.begin() + static_cast<std::ptrdiff_t>(known), octets.end());
            next_ += static_cast<uint32_t>(octets.size() - known);
        }
        waiting_.erase(first);
    }
}

} // namespace ast::recording
