#include "base/interruption.hpp"

#include <algorithm>

namespace ast::recording {

namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using system::Awaited;
using system::kNoLimit;

constexpr milliseconds kGrowthInterval{100};
constexpr milliseconds kMeanwhileInterval{200};

} // namespace

void Interruption::interrupt() noexcept {
    ended_ = true;
    event_.set();
}

void Interruption::do_meanwhile() const {
    for (const auto &what : meanwhile_) what();
}

// Whether one of what is awaited is ready, waiting for that up to a limit, or for a while at least. The first of it is
// the interruption.
bool Interruption::is_ready(std::span<Awaited> awaited, nanoseconds limit) {
    awaited.front() = {.descriptor = event_.descriptor()};
    system::wait(awaited, !meanwhile_.empty() && limit == kNoLimit ? kMeanwhileInterval : limit);
    if (limit != nanoseconds::zero()) do_meanwhile();
    return std::ranges::any_of(awaited.subspan(1), &Awaited::is_ready);
}

bool Interruption::is_ready(const Awaited &awaited, nanoseconds limit) {
    Awaited both[] = {{}, awaited};
    return is_ready(both, limit);
}

bool Interruption::for_input(Descriptor descriptor) {
    if (is_ready({.descriptor = descriptor}, nanoseconds::zero())) return !ended();
    while (!ended() && !is_ready({.descriptor = descriptor}, kNoLimit)) {
    }
    return !ended();
}

bool Interruption::for_output(Descriptor descriptor) {
    while (!ended() && !is_ready({.descriptor = descriptor, .what = Awaited::For::output}, kNoLimit)) {
    }
    return !ended();
}

std::optional<size_t> Interruption::for_any_input(std::span<const Descriptor> descriptors, size_t first) {
    std::vector<Awaited> awaited(1);
    for (const Descriptor descriptor : descriptors) awaited.push_back({.descriptor = descriptor});
    while (!ended()) {
        if (!is_ready(awaited, kNoLimit)) continue;
        for (size_t i = 0; i < descriptors.size() && !ended(); ++i) {
            const size_t place = (first + i) % descriptors.size();
            if (awaited[place + 1].is_ready) return place;
        }
    }
    return std::nullopt;
}

bool Interruption::has_input(Descriptor descriptor, int limit_ms) {
    return is_ready({.descriptor = descriptor}, limit_ms < 0 ? kNoLimit : milliseconds(limit_ms));
}

bool Interruption::for_growth() {
    is_ready(Awaited(), kGrowthInterval);
    return !ended();
}

// By the clock each time anew: a wait is late by what the system takes to wake up, and that does not add up.
bool Interruption::until(std::chrono::steady_clock::time_point when) {
    using std::chrono::steady_clock;
    while (!ended()) {
        const nanoseconds left = when - steady_clock::now();
        if (left <= nanoseconds::zero()) break;
        is_ready(Awaited(), meanwhile_.empty() ? left : std::min<nanoseconds>(left, kMeanwhileInterval));
    }
    return !ended();
}

} // namespace ast::recording
