// Stations that are worked out from aircraft that others have seen, on the library's own parts.

#include <ast.h>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

#include "block/station_fit.hpp"

namespace {

using ast::recording::fit_station;
using ast::recording::Meeting;

constexpr double kMetresPerNm = 1852;

// Of a normal distribution, nearly: the same on every machine.
class Noise {
public:
    double operator()() {
        constexpr int kSummands = 12; // whose variances are 1/12
        double sum = 0;
        for (int i = 0; i < kSummands; ++i) sum += uniform() - 0.5;
        return sum;
    }

    double uniform() {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(state_ >> 11) / 9007199254740992.0;
    }

private:
    uint64_t state_ = 7;
};

// An aircraft at a range and an azimuth from the station, at 30,000 ft.
Meeting meeting(uint32_t address, const ast_place_t &station, double range_nm, double azimuth_deg) {
    Meeting met{address, {}, 0, range_nm, azimuth_deg};
    EXPECT_TRUE(ast_place_from_polar(&station, range_nm, azimuth_deg, 9144, &met.target));
    return met;
}

double distance_m(const ast_place_t &one, const ast_place_t &other) {
    double range_nm = 0;
    ast_place_to_polar(&one, &other, &range_nm, nullptr);
    return range_nm * kMetresPerNm;
}

// A station on the equator at longitude 10 degrees. On the circle of 6378137 m, 60 NM are a chord of 0.998221 degrees.
TEST(Stations, AreWhereTheyAreSeenFrom) {
    const Meeting meetings[] = {
        {1, {0, 10.998221, 0}, 0, 60, 90}, {2, {0, 9.001779, 0}, 0, 60, 270}, {3, {0, 10.499105, 0}, 0, 30, 90}};
    const auto fit = fit_station(meetings);
    ASSERT_TRUE(fit);
    EXPECT_NEAR(fit->place.latitude_deg, 0, 1e-5);
    EXPECT_NEAR(fit->place.longitude_deg, 10, 1e-5);
    EXPECT_NEAR(fit->azimuth_bias_deg, 0, 1e-4);
}

// Across the date line, near a pole, and in the south; turned by half a degree.
TEST(Stations, StandAnywhereAndMayBeTurned) {
    constexpr ast_place_t kPlaces[] = {{-17, 179.9, 0}, {50, 14.25, 0}, {87, -120, 0}, {-33, -180, 0}};
    for (const ast_place_t &station : kPlaces) {
        std::vector<Meeting> meetings;
        for (uint32_t i = 0; i < 90; ++i) {
            meetings.push_back(meeting(i, station, 20 + 2 * i, 4.0 * i));
            meetings.back().azimuth_deg += 0.5;
        }
        const auto fit = fit_station(meetings);
        ASSERT_TRUE(fit);
        EXPECT_LT(distance_m(fit->place, station), 20) << station.latitude_deg;
        EXPECT_NEAR(fit->azimuth_bias_deg, -0.5, 0.01);
    }
}

// With errors of 60 m and 0.08 degrees, and every tenth aircraft somewhere else.
TEST(Stations, AreWithinTheirStandardErrors) {
    constexpr ast_place_t kStation = {50, 14.25, 0};
    constexpr int kTrials = 60;
    Noise noise;
    int within_1 = 0;
    for (int trial = 0; trial < kTrials; ++trial) {
        const auto count = static_cast<uint32_t>(4 + trial * 3);
        std::vector<Meeting> meetings;
        for (uint32_t i = 0; i < count; ++i) {
            meetings.push_back(meeting(i, kStation, 10 + 190 * noise.uniform(), 360 * noise.uniform()));
            meetings.back().range_nm += 60 / kMetresPerNm * noise();
            meetings.back().azimuth_deg += 0.08 * noise();
            if (i % 10 == 9) meetings.back().target.latitude_deg += 1;
        }
        const auto fit = fit_station(meetings);
        ASSERT_TRUE(fit) << count;
        const double error_m = distance_m(fit->place, kStation);
        EXPECT_LT(error_m, 3 * fit->standard_error_m) << count;
        EXPECT_LT(fit->standard_error_m, 400 / std::sqrt(count)) << count;
        within_1 += error_m < fit->standard_error_m ? 1 : 0;
    }
    EXPECT_GT(within_1, kTrials / 3); // errors are not overstated by much, nor understated
}

TEST(Stations, AreNotPlacedByTooLittle) {
    constexpr ast_place_t kStation = {50, 14.25, 0};
    std::vector<Meeting> meetings;
    EXPECT_FALSE(fit_station(meetings));
    for (uint32_t i = 0; i < 2; ++i) meetings.push_back(meeting(i, kStation, 60, 120.0 * i));
    EXPECT_FALSE(fit_station(meetings)); // two aircraft
    meetings.push_back(meeting(1, kStation, 70, 120));
    EXPECT_FALSE(fit_station(meetings)); // one of them twice
    meetings.push_back(meeting(2, kStation, 60, 240));
    EXPECT_TRUE(fit_station(meetings));

    std::vector<Meeting> one_sided;
    for (uint32_t i = 0; i < 50; ++i) one_sided.push_back(meeting(i, kStation, 60 + i, 90 + 0.2 * i));
    EXPECT_FALSE(fit_station(one_sided));

    std::vector<Meeting> at_odds; // with one another
    Noise noise;
    for (uint32_t i = 0; i < 500; ++i) at_odds.push_back(meeting(i, kStation, 60, i));
    for (Meeting &each : at_odds) each.azimuth_deg = 360 * noise.uniform();
    EXPECT_FALSE(fit_station(at_odds));

    for (Meeting &each : meetings) each.target_error_m = 2000; // by stations that are hardly placed themselves
    EXPECT_FALSE(fit_station(meetings));
}

} // namespace
