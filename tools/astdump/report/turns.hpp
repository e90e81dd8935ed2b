// The turns of an antenna, told by marks that it passes once in each: north, or the border of a sector.
#pragma once

#include <deque>
#include <optional>
#include <unordered_set>

#include "report/distribution.hpp"

namespace ast::recording::astdump {

// The middle one of some values, the lower of two; nothing for none.
std::optional<double> median_of(std::deque<double> values);

class Turns {
public:
    // So many in a row without a mark are a gap, and no marks are missing in it.
    static constexpr double kMostMissing = 5;

    // What is common to turns before marks have told more: how long one takes.
    void expect(double period_s) { period_s_ = period_s; }

    // Times are seconds on one line.
    void mark(double time_s);
    void report(std::optional<uint32_t> track_number);

    // What follows does not go on with what was before.
    void interrupt() { last_s_.reset(); }

    // How long a turn takes: the median of the last ones. Nothing until that is known.
    std::optional<double> period_s() const { return period_s_; }

    uint64_t marks() const { return marks_; }
    uint64_t missing() const { return missing_; }
    const Distribution &durations() const { return durations_; } // of those between two marks
    const Distribution &reports() const { return reports_; }     // in each of these
    const Distribution &tracks() const { return tracks_; }       // how many, in each of these

private:
    std::optional<double> period_s_;
    std::optional<double> last_s_; // mark
    std::deque<double> lately_s_;
    uint64_t marks_ = 0;
    uint64_t missing_ = 0;
    uint64_t reports_now_ = 0;
    std::unordered_set<uint32_t> tracks_now_;
    Distribution durations_;
    Distribution reports_;
    Distribution tracks_;
};

} // namespace ast::recording::astdump
