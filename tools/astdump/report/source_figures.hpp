// All figures of one data source, made of what its records say one after the other.
#pragma once

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "report/detection.hpp"
#include "report/field_numbers.hpp"
#include "report/identities.hpp"
#include "report/rate_curve.hpp"
#include "report/recent_records.hpp"
#include "report/turns.hpp"
#include "show/timeline.hpp"

namespace ast::recording::astdump {

// What tells the turns of an antenna.
enum class TurnMarks : uint8_t { none, norths, sectors, reports };

// Without a record for longer than some turns, or than so many seconds where no turn is known.
struct Gaps {
    static constexpr double kTurns = 3;
    static constexpr double kLongest_s = 10;

    uint64_t count = 0;
    double sum_s = 0;
    double longest_s = 0;
    double longest_from_s = 0; // time of day
};

class SourceFigures {
public:
    void take(const Fact &fact);
    void take(const NumberField &field, const NumberRange &range) { numbers_[field] += range; }

    // What follows comes from another recording.
    void interrupt();

    // No more follows.
    void finish() { begin(); }

    uint64_t records() const { return records_; }
    uint64_t implausible() const { return implausible_; }
    uint64_t duplicates() const { return duplicates_; }
    uint64_t reports() const { return reports_; } // of targets, without duplicates
    const std::map<std::pair<uint32_t, uint32_t>, uint64_t> &messages() const { return messages_; } // category and type
    std::optional<double> first_s() const { return first_s_; } // on one line that begins with the first day
    std::optional<double> last_s() const { return last_s_; }
    const Distribution &delays() const { return delays_; }
    const Gaps &gaps() const { return gaps_; }
    const Identities &identities() const { return identities_; }
    TurnMarks marks() const { return marks_; }
    const Turns &turns() const { return turns_; }
    const Detection &detection() const { return detection_; }
    const RateCurve &curve() const { return curve_; }
    const NumberRanges &numbers() const { return numbers_; }

private:
    struct Timed {
        Fact fact;
        double time_s;
    };

    std::optional<double> time_of(const Fact &fact);
    void take_delay(const Fact &fact);
    void begin();
    bool knows_turn() const;
    void process(const Timed &timed);
    void look_for_gap(const Timed &timed);
    bool is_mark(const Fact &fact) const;
    void break_off();

    uint64_t records_ = 0;
    uint64_t implausible_ = 0;
    uint64_t duplicates_ = 0;
    uint64_t reports_ = 0;
    std::map<std::pair<uint32_t, uint32_t>, uint64_t> messages_;
    std::optional<double> first_s_;
    std::optional<double> last_s_;
    RecentRecords recent_;
    Timeline timeline_;
    std::optional<double> delay_s_; // of the last record that tells it
    Distribution delays_;
    std::optional<double> last_arrival_s_;
    Gaps gaps_;
    Identities identities_;
    bool is_begun_ = false;
    std::vector<Timed> waiting_; // for enough to tell how long a turn takes
    uint64_t waiting_norths_ = 0;
    uint64_t waiting_sectors_ = 0; // crossings into the first sector
    std::optional<uint32_t> sector_;
    TurnMarks marks_ = TurnMarks::none;
    Turns turns_;
    Detection detection_;
    RateCurve curve_;
    NumberRanges numbers_;
};

} // namespace ast::recording::astdump
