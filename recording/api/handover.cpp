#include "api/handover.hpp"

#include <chrono>

namespace ast::recording {

bool Handover::give(const Delivery &delivery) {
    std::unique_lock lock(mutex_);
    if (is_closed_) return false;
    delivery_ = &delivery;
    event_.set();
    changed_.wait(lock, [&] { return !delivery_ || is_closed_; });
    return !is_closed_;
}

// Not by the condition, which no signal handler may announce.
const Delivery *Handover::take(int limit_ms, Interruption &interruption) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(limit_ms);
    for (int left_ms = limit_ms; !interruption.ended();) {
        if (interruption.has_input(event_.descriptor(), left_ms)) {
            const std::lock_guard lock(mutex_);
            return delivery_;
        }
        if (limit_ms < 0) continue;
        left_ms = static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count());
        if (left_ms <= 0) break;
    }
    return nullptr;
}

void Handover::done() {
    const std::lock_guard lock(mutex_);
    event_.reset();
    delivery_ = nullptr;
    changed_.notify_all();
}

void Handover::close() {
    const std::lock_guard lock(mutex_);
    is_closed_ = true;
    changed_.notify_all();
}

} // namespace ast::recording
