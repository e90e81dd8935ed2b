// Stations that are worked out from aircraft that others have seen, on the library's own parts.

#include <ast.h>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

#include "block/measuring_sources.hpp"
#include "block/split_block.hpp"
#include "block/station_finder.hpp"
#include "block/station_fit.hpp"

namespace {

using namespace ast::recording;

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

// ---- From records ----

void put(std::vector<uint8_t> &octets, double value, unsigned size) {
    const auto word = static_cast<uint32_t>(static_cast<int32_t>(std::lround(value)));
    for (unsigned i = size; i-- > 0;) octets.push_back(static_cast<uint8_t>(word >> (8 * i)));
}

// Up to the time, with an FSPEC of two octets.
std::vector<uint8_t> begun(uint8_t category, uint16_t fspec, uint8_t sic, double time_s) {
    constexpr double kTicksPerSecond = 128;
    std::vector<uint8_t> octets;
    put(octets, category, 1);
    put(octets, 0, 2);
    put(octets, fspec, 2);
    put(octets, 25, 1);
    put(octets, sic, 1);
    put(octets, time_s * kTicksPerSecond, 3);
    return octets;
}

std::vector<uint8_t> finished(std::vector<uint8_t> octets) {
    octets[2] = static_cast<uint8_t>(octets.size());
    return octets;
}

// I062/010, 070, 105, and the address of 380.
std::vector<uint8_t> track(uint32_t address, const ast_place_t &place, double time_s) {
    constexpr double kDegree = (1 << 25) / 180.0;
    std::vector<uint8_t> octets = begun(62, 0x9910, 1, time_s);
    put(octets, place.latitude_deg * kDegree, 4);
    put(octets, place.longitude_deg * kDegree, 4);
    octets.push_back(0x80);
    put(octets, address, 3);
    return finished(octets);
}

// I048/010, 140, 040, 090, 220, with errors of 60 m and 0.08 degrees.
std::vector<uint8_t> plot(uint8_t sic, uint32_t address, const ast_place_t &station, const ast_place_t &place,
                          double time_s, Noise &noise) {
    constexpr double kFeetPerMetre = 1 / 0.3048;
    double range_nm = 0;
    double azimuth_deg = 0;
    ast_place_to_polar(&station, &place, &range_nm, &azimuth_deg);
    std::vector<uint8_t> octets = begun(48, 0xD580, sic, time_s);
    put(octets, (range_nm + 60 / kMetresPerNm * noise()) * 256, 2);
    put(octets, (azimuth_deg + 0.08 * noise()) * 65536 / 360, 2);
    put(octets, place.height_m * kFeetPerMetre / 25, 2);
    put(octets, address, 3);
    return finished(octets);
}

// Flies to the north-east at 480 kt, around 50 degrees north.
ast_place_t place_of(uint32_t aircraft, double time_s) {
    const double flown_deg = time_s * 480 / 3600 / 60 * std::sqrt(0.5);
    return {48.5 + 0.5 * (aircraft % 7) + flown_deg, 12 + 0.7 * (aircraft % 6) + flown_deg / 0.64, 9144};
}

// The tracker shows every third of 40 aircraft every 4 seconds. The radar 25/2 sees all of them, 25/3 those that are
// not shown, 25/4 two of these, and 25/5 those that are nearly in one direction. It is around midnight.
TEST(Stations, AreFoundByThoseThatAreFoundBefore) {
    constexpr ast_place_t kSecond = {50, 14.25, 0};
    constexpr ast_place_t kThird = {49.2, 12.5, 0};
    constexpr ast_place_t kFar = {50, 2, 0};
    constexpr double kDayS = 86400;
    ast_log_handler_reg(nullptr); // profiles are compared
    EditionMemory editions;
    SplitBlock split;
    StationFinder finder;
    MeasuringSources measuring;
    Noise noise;
    const auto look = [&](const std::vector<uint8_t> &octets) {
        measuring.add(octets);
        split.read(editions, octets);
        ASSERT_TRUE(split.valid && StationFinder::looks_at(octets));
        finder.look(split);
    };
    for (int turn = 0; turn < 12; ++turn)
        for (uint32_t i = 0; i < 40; ++i) {
            const auto plot_of = [&](uint8_t sic, const ast_place_t &station, double seconds) {
                const double time_s = 4 * turn + seconds;
                look(plot(sic, i, station, place_of(i, time_s), std::fmod(kDayS - 20 + time_s, kDayS), noise));
            };
            const bool is_shown = i % 3 == 0;
            if (is_shown) look(track(i, place_of(i, 4 * turn), std::fmod(kDayS - 20 + 4 * turn, kDayS)));
            plot_of(2, kSecond, 1.7);
            if (!is_shown) plot_of(3, kThird, 2.9);
            if (i == 1 || i == 2) plot_of(4, kThird, 0.3);
            if (i % 7 == 3) plot_of(5, kFar, 0.9);
        }

    SiteMemory sites;
    EXPECT_TRUE(measuring.can_be_worked_out(sites));
    finder.find(sites);
    const auto expect_at = [&](uint32_t sic, const ast_place_t &place, double most_m) {
        const ast_site_t *const site = sites.find(25, sic);
        ASSERT_NE(site, nullptr) << sic;
        EXPECT_EQ(site->known, AST_SITE_WORKED_OUT);
        EXPECT_LT(site->standard_error_m, most_m);
        EXPECT_LT(distance_m(site->place, place), 3 * site->standard_error_m);
    };
    expect_at(2, kSecond, 50);
    expect_at(3, kThird, 50);
    EXPECT_EQ(sites.find(25, 4), nullptr);
    EXPECT_EQ(sites.find(25, 5), nullptr);
    const PlaceCounts counts = measuring.places(sites);
    EXPECT_EQ(counts.by_how, (std::array<uint64_t, 4>{2, 2, 0, 0}));
    EXPECT_EQ(measuring.worked_out(sites).size(), 2U);
}

// What is known better stays; where nothing is missing, or nothing says where anything is, nothing is looked for.
TEST(Stations, AreLookedForWhereThatCanHelp) {
    Noise noise;
    const auto octets = plot(2, 1, {50, 14.25, 0}, {51, 14, 9144}, 0, noise);
    SiteMemory sites;
    MeasuringSources measuring;
    EXPECT_FALSE(measuring.can_be_worked_out(sites));
    measuring.add(octets);
    EXPECT_FALSE(measuring.can_be_worked_out(sites));
    measuring.add(track(1, {51, 14, 9144}, 0));
    EXPECT_TRUE(measuring.can_be_worked_out(sites));
    sites.add({25, 2, AST_SITE_LEARNT, {50, 14, 0}, 0});
    EXPECT_FALSE(measuring.can_be_worked_out(sites));
    measuring.add(plot(3, 1, {50, 14.25, 0}, {51, 14, 9144}, 0, noise));
    EXPECT_TRUE(measuring.can_be_worked_out(sites));
    sites.add({25, 2, AST_SITE_WORKED_OUT, {1, 2, 3}, 100});
    EXPECT_EQ(sites.find(25, 2)->place.latitude_deg, 50);
    for (size_t size = 3; size < octets.size(); ++size) measuring.add(std::span(octets).first(size)); // cut off
    EXPECT_EQ(measuring.places(sites).sources(), 2U);
}

} // namespace
