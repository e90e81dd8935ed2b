#include "report/detection.hpp"

#include <algorithm>
#include <cmath>

namespace ast::recording::astdump {

namespace {

// Names of targets.
constexpr uint64_t kByAddress = uint64_t{1} << 32;
constexpr uint64_t kByTrack = uint64_t{2} << 32;
constexpr uint64_t kByCode = uint64_t{3} << 32;

// Codes that many have by design: none, Mode S, VFR, entering, and those of emergencies.
constexpr uint32_t kShared[] = {00000, 01000, 01200, 02000, 07000, 07500, 07600, 07700, 07777};

// From one turn to the next; a target that flies within a turn is not seen further away than that.
constexpr double kOtherPlace_nm = 1;

double longest_of(std::optional<double> period_s) {
    return period_s ? *period_s * (Detection::kMostMissed + 1.5) : Detection::kLongest_s;
}

} // namespace

Passes &Passes::operator+=(const Passes &other) {
    expected += other.expected;
    detected += other.detected;
    return *this;
}

bool Detection::is_fresh(double last_s, const Detected &report, std::optional<double> period_s) const {
    return std::abs(report.time_s - last_s) <= longest_of(period_s);
}

// A plot whose code nobody else has. Two places within one turn are two targets, whose code tells nothing from then on.
std::optional<uint64_t> Detection::plot_of(const Detected &report, std::optional<double> period_s) {
    if (!report.code || ambiguous_.test(*report.code % ambiguous_.size())) return std::nullopt;
    if (std::ranges::find(kShared, *report.code) != std::end(kShared)) return std::nullopt;
    const uint64_t name = kByCode | *report.code;
    const auto known = targets_.find(name);
    if (known == targets_.end() || !period_s || !report.range_nm || !known->second.range_nm) return name;
    const bool is_same_turn = std::abs(report.time_s - known->second.last_s) < *period_s / 2;
    const bool is_elsewhere = std::abs(*report.range_nm - *known->second.range_nm) > kOtherPlace_nm;
    if (!is_same_turn || !is_elsewhere) return name;
    ambiguous_.set(*report.code % ambiguous_.size());
    targets_.erase(known);
    return std::nullopt;
}

// By the address; else by the track, which may go on with an address or with plots of a code; else by the code.
uint64_t Detection::target_of(const Detected &report, std::optional<double> period_s) {
    if (report.address) {
        const uint64_t name = kByAddress | *report.address;
        if (report.track_number) by_track_[*report.track_number] = {name, report.time_s};
        return name;
    }
    if (!report.track_number) return plot_of(report, period_s).value_or(0);
    const auto known = by_track_.find(*report.track_number);
    if (known != by_track_.end() && is_fresh(known->second.last_s, report, period_s)) {
        known->second.last_s = report.time_s;
        return known->second.target;
    }
    uint64_t name = kByTrack | *report.track_number;
    const std::optional<uint64_t> plot = plot_of(report, period_s);
    const auto plots = plot ? targets_.find(*plot) : targets_.end();
    if (plots != targets_.end() && !plots->second.track_number && is_fresh(plots->second.last_s, report, period_s)) {
        plots->second.track_number = report.track_number;
        name = *plot;
    }
    by_track_[*report.track_number] = {name, report.time_s};
    return name;
}

void Detection::add(size_t kind, const std::optional<double> &range_nm, const Passes &passes) {
    counts_[kind].all += passes;
    if (!range_nm || !(*range_nm >= 0)) return;
    const auto ring = static_cast<size_t>(std::min(*range_nm / kRing_nm, static_cast<double>(kRings)));
    if (ring < kRings) counts_[kind].rings[ring] += passes;
}

// The first and the last report of a chain are where they are because they were detected: turns between them count.
// What was last counts when another one follows. Where a target was in turns without a report is where it was before.
void Detection::count(size_t kind, Chain &chain, const Detected &report, std::optional<double> period_s) {
    const bool goes_on = chain.is_begun && chain.part == part_;
    const double apart_s = report.time_s - chain.last_s;
    const bool is_close = goes_on && std::abs(apart_s) < longest_of(period_s);
    if (is_close && apart_s <= period_s.value_or(0) / 2) return; // the same turn, or in another order
    if (is_close) {
        if (kind == 0) intervals_.add(apart_s);
        const auto turns = period_s ? static_cast<uint64_t>(std::round(apart_s / *period_s)) : 1;
        const uint64_t last = chain.is_first ? 0 : 1;
        if (period_s) add(kind, chain.range_nm, {turns - 1 + last, last});
        chain.is_first = false;
    } else {
        if (kind == 0) ++tracks_;
        chain.is_first = true;
    }
    chain.is_begun = true;
    chain.part = part_;
    chain.last_s = report.time_s;
    chain.range_nm = report.range_nm;
}

void Detection::forget(double time_s, double longest_s) {
    const auto is_old = [&](const auto &each) { return std::abs(time_s - each.second.last_s) > longest_s; };
    std::erase_if(targets_, is_old);
    std::erase_if(by_track_, is_old);
    enough_ = std::max(enough_, targets_.size() * 2);
}

void Detection::add(const Detected &report, std::optional<double> period_s) {
    if (report.is_extrapolated) return;
    const uint64_t name = target_of(report, period_s);
    if (name == 0) {
        ++untold_;
        return;
    }
    if (targets_.size() >= enough_) forget(report.time_s, longest_of(period_s));
    Target &target = targets_[name];
    target.last_s = report.time_s;
    target.range_nm = report.range_nm;
    for (size_t kind = 0; kind < std::size(kKinds); ++kind)
        if (kKinds[kind].with == 0 || (kKinds[kind].with & report.with) != 0)
            count(kind, target.chains[kind], report, period_s);
    if (report.is_last)
        for (Chain &chain : target.chains) chain.is_begun = false;
}

} // namespace ast::recording::astdump
