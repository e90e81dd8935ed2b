// Ends, from elsewhere, the waiting for what has yet to arrive.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "system/waiting.hpp"

namespace ast::recording {

// Whoever has to wait waits by it, so that all waiting ends when somebody interrupts.
class Interruption {
public:
    using Descriptor = system::Descriptor;

    Interruption() = default;
    Interruption(const Interruption &) = delete;
    Interruption &operator=(const Interruption &) = delete;

    // Ends all waiting, now and later. From any thread, and from a signal handler.
    void interrupt() noexcept;
    bool ended() const { return ended_.load(std::memory_order_relaxed); }

    // Each waits, and returns false when it has been interrupted: until a descriptor can be read or written, and for
    // a moment, in which a file may grow.
    bool for_input(Descriptor descriptor);
    bool for_output(Descriptor descriptor);
    bool for_growth();

    // The same up to a time.
    bool until(std::chrono::steady_clock::time_point when);

    // The place of a descriptor that can be read, the one at `first` before others; nothing when it has been
    // interrupted.
    std::optional<size_t> for_any_input(std::span<const Descriptor> descriptors, size_t first);

    // Whether a descriptor can be read within a time, which is negative for no limit. At once, when it has been
    // interrupted.
    bool has_input(Descriptor descriptor, int limit_ms);

    // Has something done, too, now and then while it waits.
    void meanwhile(std::function<void()> what) { meanwhile_.push_back(std::move(what)); }

private:
    void do_meanwhile() const;
    bool is_ready(std::span<system::Awaited> awaited, std::chrono::nanoseconds limit);
    bool is_ready(const system::Awaited &awaited, std::chrono::nanoseconds limit);

    system::Event event_; // set as soon as it has been interrupted
    std::vector<std::function<void()>> meanwhile_;
    std::atomic<bool> ended_ = false;
};

} // namespace ast::recording
