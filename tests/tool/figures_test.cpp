// Figures of surveillance performance, each by itself.

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "report/detection.hpp"
#include "report/distribution.hpp"
#include "report/rate_curve.hpp"
#include "report/recent_records.hpp"
#include "report/turns.hpp"

namespace ast::recording::astdump {

namespace {

TEST(Distribution, OfFewValuesIsExact) {
    Distribution values;
    for (const double each : {7, 3, 10, 1, 9, 2, 8, 4, 6, 5}) values.add(each);
    EXPECT_EQ(values.count(), 10);
    EXPECT_EQ(values.least(), 1);
    EXPECT_EQ(values.greatest(), 10);
    EXPECT_EQ(values.mean(), 5.5);
    EXPECT_EQ(values.percentile(0), 1);
    EXPECT_EQ(values.percentile(5), 1);
    EXPECT_EQ(values.median(), 5);
    EXPECT_EQ(values.percentile(51), 6);
    EXPECT_EQ(values.percentile(95), 10);
    EXPECT_EQ(values.parts(1, 9, 4), (std::vector<uint64_t>{2, 2, 2, 3}));
    EXPECT_EQ(Distribution().median(), 0);
}

TEST(Distribution, OfManyValuesIsKnownToAPartOfEach) {
    constexpr int kCount = 200'000;
    constexpr double kPart = 0.0003;
    Distribution values;
    for (int i = 0; i < kCount; ++i) values.add(i * 7919 % kCount - kCount / 2 + 0.25); // in an order of their own
    EXPECT_EQ(values.least(), -99'999.75);
    EXPECT_EQ(values.greatest(), 99'999.25);
    EXPECT_NEAR(values.percentile(5), -90'000.75, 90'000 * kPart);
    EXPECT_NEAR(values.median(), -0.75, kPart);
    EXPECT_NEAR(values.percentile(95), 89'999.25, 90'000 * kPart);
    EXPECT_NEAR(static_cast<double>(values.parts(0, 100'000, 2)[0]), 50'000, 50'000 * kPart);
}

void mark(Turns &turns, std::initializer_list<double> times_s) {
    for (const double time_s : times_s) turns.mark(time_s);
}

TEST(Turns, MissMarksButNotInGaps) {
    Turns turns;
    EXPECT_FALSE(turns.period_s());
    mark(turns, {0, 4, 8, 8.5, 16, 20, 28.25, 32});
    EXPECT_EQ(turns.marks(), 7); // that at 8.5 came twice
    EXPECT_EQ(turns.missing(), 2);
    EXPECT_EQ(turns.durations().count(), 4);
    EXPECT_EQ(turns.durations().least(), 3.75);
    EXPECT_EQ(turns.period_s(), 4);
    mark(turns, {56}); // five are missing
    EXPECT_EQ(turns.missing(), 7);
    mark(turns, {84}); // a gap
    EXPECT_EQ(turns.missing(), 7);
    turns.interrupt();
    mark(turns, {92});
    EXPECT_EQ(turns.missing(), 7);
    EXPECT_EQ(turns.durations().count(), 4);
}

TEST(Turns, CountReportsAndTracksOfWholeTurns) {
    Turns turns;
    turns.expect(4);
    turns.report(1);
    for (const double time_s : {0, 4, 12}) {
        turns.mark(time_s);
        for (const uint32_t track : {7U, 8U, 7U}) turns.report(track);
        turns.report(std::nullopt);
    }
    turns.mark(16);
    EXPECT_EQ(turns.reports().count(), 2); // not of 4 to 12
    EXPECT_EQ(turns.reports().greatest(), 4);
    EXPECT_EQ(turns.tracks().greatest(), 2);
}

constexpr double kTurn_s = 4;
enum Kind : size_t { kAny, kPrimaryOnly, kSsr, kModeSOnly };

// A character for each turn: what a report of it says, or '.' for none.
void add_turns(Detection &detection, std::string_view turns, Detected report) {
    for (size_t turn = 0; turn < turns.size(); ++turn) {
        report.time_s = static_cast<double>(turn) * kTurn_s + (turn % 2 == 0 ? 0 : 0.4);
        report.with = turns[turn] == 'p' ? kPrimary : kModeS;
        report.is_extrapolated = turns[turn] == 'e';
        report.is_last = turns[turn] == 'l';
        if (turns[turn] != '.') detection.add(report, kTurn_s);
    }
}

std::string passes(const Detection &detection, Kind kind) {
    const Passes &all = detection.of(kind).all;
    return std::to_string(all.detected) + "/" + std::to_string(all.expected);
}

TEST(Detection, CountsTurnsBetweenTheFirstReportAndTheLast) {
    constexpr struct {
        std::string_view turns;
        std::string_view any;
        std::string_view mode_s;
    } kCases[] = {
        {"x", "0/0", "0/0"},          {"xx", "0/0", "0/0"},     {"xxx", "1/1", "1/1"},     {"..xxxx..", "2/2", "2/2"},
        {"x.x", "0/1", "0/1"},        {"xx..xx", "2/4", "2/4"}, {"x.....x", "0/5", "0/5"}, {"x......x", "0/0", "0/0"},
        {"xx......xx", "0/0", "0/0"}, {"xppx", "2/2", "0/2"},   {"xexx", "1/2", "1/2"},    {"xxlxx", "1/1", "1/1"},
    };
    for (const auto &each : kCases) {
        Detection detection;
        add_turns(detection, each.turns, {.address = 0x3C4A12, .track_number = 9});
        EXPECT_EQ(passes(detection, kAny), each.any) << each.turns;
        EXPECT_EQ(passes(detection, kModeSOnly), each.mode_s) << each.turns;
    }
}

TEST(Detection, TakesSeveralReportsInATurnForOne) {
    Detection detection;
    for (const double time_s : {0.0, 4.0, 4.1, 3.9, 8.0, 8.2, 12.0})
        detection.add({.time_s = time_s, .with = kSecondary, .track_number = 1}, kTurn_s);
    EXPECT_EQ(passes(detection, kSsr), "2/2");
    EXPECT_EQ(detection.tracks(), 1);
    EXPECT_EQ(detection.intervals().count(), 3);
}

// Without its address, a report is told by its track.
TEST(Detection, FollowsAnAircraftByItsTrack) {
    Detection detection;
    detection.add({.time_s = 0, .with = kModeS, .address = 1, .track_number = 5}, kTurn_s);
    detection.add({.time_s = 4, .with = kPrimary, .track_number = 5}, kTurn_s);
    detection.add({.time_s = 8, .with = kModeS, .address = 1}, kTurn_s);
    EXPECT_EQ(passes(detection, kAny), "1/1");
    EXPECT_EQ(passes(detection, kModeSOnly), "0/1");
    EXPECT_EQ(detection.tracks(), 1);
}

TEST(Detection, FollowsPlotsByTheirCodeIntoATrack) {
    Detection detection;
    for (const double time_s : {0.0, 4.0, 8.0})
        detection.add({.time_s = time_s, .with = kSecondary, .code = 01234, .range_nm = 25}, kTurn_s);
    detection.add({.time_s = 12, .with = kSecondary, .track_number = 5, .code = 01234, .range_nm = 25}, kTurn_s);
    detection.add({.time_s = 16, .with = kSecondary, .track_number = 5, .range_nm = 45}, kTurn_s);
    EXPECT_EQ(passes(detection, kSsr), "3/3");
    EXPECT_EQ(detection.of(kSsr).rings[1].detected, 3);
    EXPECT_EQ(detection.untold(), 0);
}

TEST(Detection, DoesNotGoByACodeThatSeveralHave) {
    Detection detection;
    for (const double time_s : {0.0, 4.0, 8.0}) {
        detection.add({.time_s = time_s, .code = 07000, .range_nm = 10}, kTurn_s);
        detection.add({.time_s = time_s + 0.1, .code = 01234, .range_nm = 10}, kTurn_s);
        detection.add({.time_s = time_s + 0.2, .code = 01234, .range_nm = 30}, kTurn_s);
        detection.add({.time_s = time_s + 0.3}, kTurn_s);
    }
    EXPECT_EQ(passes(detection, kAny), "0/0");
    EXPECT_EQ(detection.untold(), 11); // all but the first of 1234
}

TEST(Detection, BeginsAnewBehindAGapAndWithoutATurn) {
    Detection detection;
    add_turns(detection, "xxx", {.address = 1});
    detection.interrupt();
    add_turns(detection, "...xxx", {.address = 1});
    EXPECT_EQ(passes(detection, kAny), "2/2");
    EXPECT_EQ(detection.tracks(), 2);
    Detection turnless;
    for (const double time_s : {0.0, 1.0, 3.0, 40.0}) turnless.add({.time_s = time_s, .address = 1}, std::nullopt);
    EXPECT_EQ(passes(turnless, kAny), "0/0");
    EXPECT_EQ(turnless.tracks(), 2);
    EXPECT_EQ(turnless.intervals().mean(), 1.5);
}

// Those that have gone are forgotten; who they were does not matter to the rest.
TEST(Detection, TakesAnyNumberOfTargets) {
    Detection detection;
    for (uint32_t target = 0; target < 5000; ++target)
        for (uint32_t turn = 0; turn < 3; ++turn)
            detection.add({.time_s = (target + turn) * kTurn_s, .address = target, .track_number = target}, kTurn_s);
    EXPECT_EQ(passes(detection, kAny), "5000/5000");
}

TEST(RateCurve, WidensItsParts) {
    RateCurve curve;
    for (int i = 0; i < 100; ++i) curve.add(1000.5 + i);
    EXPECT_EQ(curve.part_s(), 2);
    EXPECT_EQ(curve.counts(), std::vector<uint64_t>(50, 2));
    curve.add(1300);
    EXPECT_EQ(curve.part_s(), 8);
    EXPECT_EQ(curve.counts().size(), 38);
    EXPECT_EQ(curve.counts()[12], 4);
    EXPECT_EQ(curve.counts()[37], 1);
}

TEST(RecentRecords, KnowsTheLastOnes) {
    RecentRecords recent;
    EXPECT_FALSE(recent.has_seen(0));
    for (uint64_t digest = 1; digest < 1024; ++digest) EXPECT_FALSE(recent.has_seen(digest));
    EXPECT_TRUE(recent.has_seen(0));
    EXPECT_FALSE(recent.has_seen(1024));
    EXPECT_FALSE(recent.has_seen(0));
}

} // namespace

} // namespace ast::recording::astdump
