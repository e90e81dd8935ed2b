// Waiting for what comes, and for what can go.
#pragma once

#include <chrono>
#include <span>

#include "system/descriptor.hpp"

namespace ast::recording::system {

// Can be waited for from the moment that it is set until it is reset.
class Event {
public:
    Event(); // throws std::system_error
    ~Event();
    Event(const Event &) = delete;
    Event &operator=(const Event &) = delete;

    Descriptor descriptor() const { return descriptor_; }

    // From any thread, and from a signal handler.
    void set() const noexcept;
    void reset() const noexcept;

private:
    Descriptor descriptor_;
};

// A descriptor of none is never ready.
struct Awaited {
    enum class For : uint8_t { input, output, failure };

    Descriptor descriptor;
    For what = For::input;
    bool is_ready = false; // also at the end, and after a failure
};

constexpr std::chrono::nanoseconds kNoLimit{-1};

// Waits until one of them is ready, which may be told of several, or a time has passed, which may be 0; none is ready
// when a signal has come.
void wait(std::span<Awaited> awaited, std::chrono::nanoseconds limit);

} // namespace ast::recording::system
