#include "truth.hpp"

namespace simulation {

// Those before the first answer and behind the last do not count, and neither do these two.
void Truth::add(const Aircraft &aircraft) {
    if (aircraft.answers < 2) return;
    passes_ += aircraft.passes - aircraft.misses - 2;
    answers_ += aircraft.answers - 2;
}

void Truth::pass(uint64_t serial, bool answered) {
    constexpr uint64_t kMostMisses = 5;
    Aircraft &aircraft = aircraft_[serial];
    if (aircraft.misses > kMostMisses) {
        add(aircraft);
        aircraft = {};
    }
    if (aircraft.answers == 0 && !answered) return;
    ++aircraft.passes;
    aircraft.answers += answered ? 1 : 0;
    aircraft.misses = answered ? 0 : aircraft.misses + 1;
}

std::string Truth::json() const {
    Truth all = *this;
    for (const auto &[serial, aircraft] : aircraft_) all.add(aircraft);
    return "{\"turns\":" + std::to_string(turns_) + ",\"mode_s\":{\"turns\":" + std::to_string(all.passes_) +
           ",\"detected\":" + std::to_string(all.answers_) + "}}\n";
}

} // namespace simulation
