#include "compare/matching.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <span>
#include <tuple>

#include "base/time.hpp"

namespace ast::recording::astdump {

namespace {

using Places = std::vector<size_t>;

// Whose reports those are that follow each other, and whether these have times.
using Subject = std::tuple<uint32_t, uint32_t, uint32_t, uint64_t, uint32_t, bool>;

Subject subject_of(const KeptRecord &record) {
    const bool is_timed = record.has(AST_ANSWER_TIME);
    const auto by = [&](uint64_t answer, uint32_t identity) {
        return Subject(record.category, record.sac, record.sic, answer, identity, is_timed);
    };
    if (record.has(AST_ANSWER_ICAO24)) return by(AST_ANSWER_ICAO24, record.icao24);
    if (record.has(AST_ANSWER_TRACK_NUMBER)) return by(AST_ANSWER_TRACK_NUMBER, record.track_number);
    return by(AST_ANSWER_TYPE, record.type);
}

struct Reports {
    Places first;
    Places second;
};

// From the second to the first, over midnight if that is nearer.
double apart_s(const KeptRecord &first, const KeptRecord &second) {
    return std::remainder(first.time_of_day_s - second.time_of_day_s, static_cast<double>(kSecondsPerDay));
}

class Matcher {
public:
    Matcher(const KeptRecords &first, const KeptRecords &second, double within_s)
        : first_(first), second_(second), within_s_(within_s) {}

    std::vector<Match> match() {
        std::map<Subject, Reports> subjects;
        for (size_t i = 0; i < first_.size(); ++i) subjects[subject_of(first_[i])].first.push_back(i);
        for (size_t i = 0; i < second_.size(); ++i) subjects[subject_of(second_[i])].second.push_back(i);
        for (const auto &[subject, reports] : subjects) {
            constexpr size_t kIsTimed = std::tuple_size_v<Subject> - 1;
            behind_ = 0;
            if (std::get<kIsTimed>(subject))
                match_by_time(reports.first, reports.second);
            else
                match_in_order(reports.first, reports.second);
        }
        return sorted();
    }

private:
    void match_by_time(std::span<const size_t> first, std::span<const size_t> second) {
        while (!first.empty() && !second.empty()) {
            const double apart = apart_s(first_[first[0]], second_[second[0]]);
            if (apart < -within_s_) {
                first = take_first(first);
            } else if (apart > within_s_) {
                second = take_second(second);
            } else {
                const size_t of_first = of_one_time(first_, first), of_second = of_one_time(second_, second);
                match_equal(first.first(of_first), second.first(of_second));
                first = first.subspan(of_first);
                second = second.subspan(of_second);
            }
        }
        take_rest(first, second);
    }

    static size_t of_one_time(const KeptRecords &records, std::span<const size_t> places) {
        const double time_s = records[places[0]].time_of_day_s;
        const auto end =
            std::ranges::find_if_not(places, [&](size_t place) { return records[place].time_of_day_s == time_s; });
        return static_cast<size_t>(end - places.begin());
    }

    // Of several at a time, those with the same octets, and then the others in their order.
    void match_equal(std::span<const size_t> first, std::span<const size_t> second) {
        if (first.size() > kNearby || second.size() > kNearby) return match_in_order(first, second);
        Places left_first, left_second(second.begin(), second.end());
        for (const size_t one : first) {
            const auto same = std::ranges::find_if(left_second, [&](size_t other) { return is_equal(one, other); });
            if (same == left_second.end()) {
                left_first.push_back(one);
                continue;
            }
            take_both(one, *same);
            left_second.erase(same);
        }
        const size_t both = std::min(left_first.size(), left_second.size());
        for (size_t i = 0; i < both; ++i) take_both(left_first[i], left_second[i]);
        take_rest(std::span(left_first).subspan(both), std::span(left_second).subspan(both));
    }

    // The next pair of the same octets is looked for on either side; what has none nearby has changed.
    void match_in_order(std::span<const size_t> first, std::span<const size_t> second) {
        while (!first.empty() && !second.empty()) {
            const size_t in_second = place_of(second, [&](size_t other) { return is_equal(first[0], other); });
            const size_t in_first = place_of(first, [&](size_t other) { return is_equal(other, second[0]); });
            if (in_first == kNone && in_second == kNone) {
                take_both(first[0], second[0]);
                first = first.subspan(1);
                second = second.subspan(1);
            } else if (in_first <= in_second) {
                for (size_t i = 0; i < in_first; ++i) first = take_first(first);
                take_both(first[0], second[0]);
                first = first.subspan(1);
                second = second.subspan(1);
            } else {
                for (size_t i = 0; i < in_second; ++i) second = take_second(second);
            }
        }
        take_rest(first, second);
    }

    static constexpr size_t kNone = SIZE_MAX;
    static constexpr size_t kNearby = 256; // as far as the same octets are looked for

    template <typename Is>
    static size_t place_of(std::span<const size_t> places, Is is) {
        const auto nearby = places.first(std::min(places.size(), kNearby));
        const auto found = std::ranges::find_if(nearby, is);
        return found == nearby.end() ? kNone : static_cast<size_t>(found - nearby.begin());
    }

    bool is_equal(size_t one, size_t other) const {
        return std::ranges::equal(first_.octets(one), second_.octets(other));
    }

    void take_both(size_t one, size_t other) {
        matches_.push_back({{one, other}, one});
        behind_ = one;
    }

    std::span<const size_t> take_first(std::span<const size_t> first) {
        matches_.push_back({{first[0], std::nullopt}, first[0]});
        behind_ = first[0];
        return first.subspan(1);
    }

    std::span<const size_t> take_second(std::span<const size_t> second) {
        matches_.push_back({{std::nullopt, second[0]}, behind_});
        return second.subspan(1);
    }

    void take_rest(std::span<const size_t> first, std::span<const size_t> second) {
        while (!first.empty()) first = take_first(first);
        while (!second.empty()) second = take_second(second);
    }

    std::vector<Match> sorted() {
        const auto order = [](const Placed &each) {
            return std::tuple(each.behind, !each.match.first, each.match.second.value_or(0));
        };
        std::ranges::sort(matches_, {}, order);
        std::vector<Match> matches;
        for (const Placed &each : matches_) matches.push_back(each.match);
        return matches;
    }

    struct Placed {
        Match match;
        size_t behind; // which record of the first recording it is shown
    };

    const KeptRecords &first_;
    const KeptRecords &second_;
    double within_s_;
    size_t behind_ = 0; // the last one of the subject
    std::vector<Placed> matches_;
};

} // namespace

std::vector<Match> match_records(const KeptRecords &first, const KeptRecords &second, double within_s) {
    return Matcher(first, second, within_s).match();
}

} // namespace ast::recording::astdump
