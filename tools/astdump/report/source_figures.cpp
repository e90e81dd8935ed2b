#include "report/source_figures.hpp"

#include <algorithm>
#include <cmath>
#include <deque>
#include <unordered_map>
#include <utility>

#include "base/time.hpp"

namespace ast::recording::astdump {

namespace {

constexpr double kNanosecondsPerSecond = 1e9;
constexpr auto kDay_s = static_cast<double>(kSecondsPerDay);

double seconds_of(int64_t nanoseconds) { return static_cast<double>(nanoseconds) / kNanosecondsPerSecond; }

int64_t nanoseconds_of_day(double seconds) {
    return static_cast<int64_t>(std::llround(seconds * kNanosecondsPerSecond));
}

// The turn that reports of the same aircraft tell, by address, track or code: most come turn by turn.
template <typename Timed>
std::optional<double> turn_of_reports(const std::vector<Timed> &reports) {
    constexpr size_t kEnough = 8;
    constexpr double kLeast_s = 0.5;
    constexpr double kMost_s = 30;
    std::unordered_map<uint64_t, double> last_s;
    std::deque<double> apart_s;
    for (const auto &[fact, time_s] : reports) {
        const bool has_name = fact.has(AST_ANSWER_ICAO24) || fact.has(AST_ANSWER_TRACK_NUMBER);
        if (!fact.is_target() || !has_name) continue;
        const bool has_address = fact.has(AST_ANSWER_ICAO24);
        const uint64_t name = has_address ? uint64_t{1} << 32 | fact.icao24 : fact.track_number;
        const auto [known, is_new] = last_s.try_emplace(name, time_s);
        const double apart = time_s - known->second;
        if (!is_new && apart >= kLeast_s && apart <= kMost_s) apart_s.push_back(apart);
        known->second = time_s;
    }
    return apart_s.size() < kEnough ? std::nullopt : median_of(apart_s);
}

} // namespace

// The time of day tells when it was measured; where it is not sent, that is as long before the arrival as with other
// records. Without that it is of the time of what came before it.
std::optional<double> SourceFigures::time_of(const Fact &fact) {
    if (fact.has(AST_ANSWER_TIME)) return seconds_of(timeline_.place(nanoseconds_of_day(fact.time_of_day_s), false));
    if (!fact.has_reception) return last_s_;
    const double of_day_s = std::fmod(seconds_of(fact.reception_ns) - delay_s_.value_or(0), kDay_s);
    return seconds_of(timeline_.place(nanoseconds_of_day(of_day_s), false));
}

// Both are times of day: half a day is as much as can be told.
void SourceFigures::take_delay(const Fact &fact) {
    if (!fact.has(AST_ANSWER_TIME) || !fact.has_reception) return;
    constexpr auto kDay_ns = static_cast<int64_t>(kSecondsPerDay) * 1'000'000'000;
    const int64_t apart_ns = (fact.reception_ns - nanoseconds_of_day(fact.time_of_day_s)) % kDay_ns;
    const int64_t delay_ns = (apart_ns + kDay_ns + kDay_ns / 2) % kDay_ns - kDay_ns / 2;
    delay_s_ = seconds_of(delay_ns);
    delays_.add(*delay_s_);
}

void SourceFigures::take(const Fact &fact) {
    ++records_;
    ++messages_[{fact.category, fact.type}];
    if (fact.is_implausible) ++implausible_;
    if (fact.has(AST_ANSWER_TIME) && recent_.has_seen(fact.octets)) {
        ++duplicates_;
        return;
    }
    if (fact.is_target()) ++reports_;
    identities_.add(fact);
    take_delay(fact);
    const std::optional<double> time_s = time_of(fact);
    if (!time_s) return;
    first_s_ = std::min(first_s_.value_or(*time_s), *time_s);
    last_s_ = std::max(last_s_.value_or(*time_s), *time_s);
    if (fact.is_target()) curve_.add(*time_s);
    const Timed timed{fact, *time_s};
    if (is_begun_) return process(timed);
    if (fact.type == AST_MESSAGE_NORTH_MARKER) ++waiting_norths_;
    if (fact.type == AST_MESSAGE_SECTOR_CROSSING && fact.sector != kNoSector) {
        if (!sector_) sector_ = fact.sector;
        if (sector_ == fact.sector) ++waiting_sectors_;
    }
    waiting_.push_back(timed);
    if (knows_turn()) begin();
}

bool SourceFigures::knows_turn() const {
    constexpr uint64_t kEnoughMarks = 6;
    constexpr size_t kMostWaiting = 8192;
    const bool has_turns = family_of(waiting_.front().fact.category).has_turns;
    return !has_turns || waiting_norths_ >= kEnoughMarks ||
           (waiting_norths_ == 0 && waiting_sectors_ >= kEnoughMarks) || waiting_.size() >= kMostWaiting;
}

bool SourceFigures::is_mark(const Fact &fact) const {
    if (marks_ == TurnMarks::norths) return fact.type == AST_MESSAGE_NORTH_MARKER;
    return marks_ == TurnMarks::sectors && fact.type == AST_MESSAGE_SECTOR_CROSSING && fact.sector == sector_;
}

// Decides what tells the turn, and how long it takes as a rule. What does not tell it is processed without, and the
// next that comes is looked at anew.
void SourceFigures::begin() {
    if (is_begun_ || waiting_.empty()) return;
    is_begun_ = !family_of(waiting_.front().fact.category).has_turns;
    if (!is_begun_) {
        constexpr uint64_t kLeastMarks = 2;
        marks_ = waiting_norths_ >= kLeastMarks    ? TurnMarks::norths
                 : waiting_sectors_ >= kLeastMarks ? TurnMarks::sectors
                                                   : TurnMarks::reports;
        std::deque<double> turns_s;
        std::optional<double> last_s;
        for (const Timed &timed : waiting_) {
            if (!is_mark(timed.fact)) continue;
            if (last_s && timed.time_s > *last_s) turns_s.push_back(timed.time_s - *last_s);
            last_s = timed.time_s;
        }
        const auto period_s = marks_ == TurnMarks::reports ? turn_of_reports(waiting_) : median_of(turns_s);
        if (period_s) turns_.expect(*period_s);
        is_begun_ = period_s.has_value();
        if (!is_begun_) marks_ = TurnMarks::none;
    }
    waiting_norths_ = waiting_sectors_ = 0;
    for (const Timed &timed : std::exchange(waiting_, {})) process(timed);
}

// By arrival, where that is known: times of day may be anything.
void SourceFigures::look_for_gap(const Timed &timed) {
    const std::optional<double> period_s = turns_.period_s();
    const double longest_s = period_s ? *period_s * Gaps::kTurns : Gaps::kLongest_s;
    const double arrival_s = timed.fact.has_reception ? seconds_of(timed.fact.reception_ns) : timed.time_s;
    const std::optional<double> before_s = std::exchange(last_arrival_s_, arrival_s);
    const double apart_s = arrival_s - before_s.value_or(arrival_s);
    if (!before_s || apart_s <= longest_s) return;
    ++gaps_.count;
    gaps_.sum_s += apart_s;
    if (apart_s > gaps_.longest_s) {
        gaps_.longest_s = apart_s;
        gaps_.longest_from_s = std::fmod(*before_s, kDay_s);
    }
    break_off();
}

void SourceFigures::break_off() {
    turns_.interrupt();
    detection_.interrupt();
}

void SourceFigures::process(const Timed &timed) {
    const Fact &fact = timed.fact;
    look_for_gap(timed);
    if (is_mark(fact)) turns_.mark(timed.time_s);
    if (!fact.is_target()) return;
    const auto given = [&](uint64_t answer, auto value) {
        return fact.has(answer) ? std::optional(value) : std::nullopt;
    };
    const auto track_number = given(AST_ANSWER_TRACK_NUMBER, fact.track_number);
    turns_.report(track_number);
    detection_.add({.time_s = timed.time_s,
                    .with = fact.with,
                    .is_extrapolated = fact.is_extrapolated,
                    .is_last = fact.is_last,
                    .address = given(AST_ANSWER_ICAO24, fact.icao24),
                    .track_number = track_number,
                    .code = fact.has_sound_code() ? std::optional(fact.squawk) : std::nullopt,
                    .range_nm = given(AST_ANSWER_RANGE, fact.range_nm)},
                   turns_.period_s());
}

void SourceFigures::interrupt() {
    begin();
    break_off();
    last_arrival_s_.reset();
    timeline_.restart();
}

} // namespace ast::recording::astdump
