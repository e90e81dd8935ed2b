// What the accessors read from a tracker's blocks is what the aircraft did.

#include <algorithm>
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "common/traffic.hpp"
#include "tracker/tracker.hpp"

namespace {

using namespace simulation;

constexpr double kStartS = 86390; // midnight comes soon
constexpr double kSecondsPerDay = 86400;
constexpr double kMPerSPerKt = 1852.0 / 3600;

// Steps of the items; half of one is lost in rounding, and a negative value may read one higher.
constexpr double kStepsPerS = 128;
constexpr double kPositionDeg = 180.0 / (1 << 25);
constexpr double kLevelFt = 25;
constexpr double kRateFtMin = 6.25;
constexpr double kVelocityMPerS = 0.25;
constexpr double kSpeedKt = 3600.0 / (1 << 14);
constexpr double kAngleDeg = 360.0 / 65536;

const Aircraft *aircraft_at(const Traffic &traffic, const ast_coordinate_t &place) {
    const auto found = std::ranges::find_if(traffic.aircraft(), [&](const Aircraft &aircraft) {
        const Geographic there = geographic(aircraft.position_nm);
        return std::abs(there.latitude_deg - place.latitude_deg) <= kPositionDeg &&
               std::abs(there.longitude_deg - place.longitude_deg) <= kPositionDeg;
    });
    return found == traffic.aircraft().end() ? nullptr : &*found;
}

void expect_angle(double angle_deg, double expected_deg) {
    EXPECT_LE(std::abs(std::remainder(angle_deg - expected_deg, 360)), kAngleDeg);
}

void expect_registers(const ast_datarecord_t &record, const Aircraft &aircraft) {
    const bool sent = aircraft.transponder == Transponder::mode_s_enhanced;
    ASSERT_EQ(ast_datarecord_get_selaltitude(&record).valid, sent);
    ASSERT_EQ(ast_datarecord_get_heading(&record).valid, sent);
    if (!sent) return;
    const Ground velocity_kt = ground_velocity_kt(aircraft);
    EXPECT_EQ(ast_datarecord_get_selaltitude(&record).value, aircraft.selected_altitude_ft);
    EXPECT_NEAR(ast_datarecord_get_speed(&record).value, length(velocity_kt), kSpeedKt);
    expect_angle(ast_datarecord_get_heading(&record).magnetic.value, magnetic_heading_deg(aircraft));
    expect_angle(ast_datarecord_get_heading(&record).track.value, bearing_deg(velocity_kt));
}

void expect_identity(const ast_datarecord_t &record, const Aircraft &aircraft) {
    const bool has_code = aircraft.transponder != Transponder::none;
    ASSERT_EQ(ast_datarecord_get_icaoaddr(&record).valid, has_mode_s(aircraft));
    EXPECT_EQ(ast_datarecord_get_squawk(&record).code, has_code ? aircraft.code : UINT32_MAX);
    if (!has_mode_s(aircraft)) return;
    EXPECT_EQ(ast_datarecord_get_icaoaddr(&record).address, aircraft.address);
    EXPECT_EQ(ast_datarecord_get_callsign(&record).text, aircraft.callsign);
}

// The level is that of the last report, which is older where the radar missed the aircraft.
void expect_height(const ast_datarecord_t &record, const ast_datarecord_062_t &flat, const Aircraft &aircraft) {
    constexpr double kSteepestFtPerS = 2400.0 / 60;
    if (aircraft.transponder == Transponder::none) return;
    ASSERT_TRUE(flat.data_ages.mfl.present && flat.barometric_altitude.valid);
    EXPECT_NEAR(flat.barometric_altitude.altitude_ft, aircraft.altitude_ft, kLevelFt);
    EXPECT_NEAR(ast_datarecord_get_flightlevel(&record).value, aircraft.altitude_ft,
                kLevelFt + kSteepestFtPerS * (flat.data_ages.mfl.age_s + 0.25));
    EXPECT_NEAR(ast_datarecord_get_vrate(&record).value, aircraft.vertical_rate_ft_min, 1.5 * kRateFtMin);
}

void expect_velocity(const ast_datarecord_t &record, const Aircraft &aircraft) {
    const ast_cartesian_velocity_t velocity = ast_datarecord_get_cartesianvel(&record);
    const Ground expected_kt = ground_velocity_kt(aircraft);
    EXPECT_NEAR(velocity.vx_m_s, expected_kt.east * kMPerSPerKt, kVelocityMPerS);
    EXPECT_NEAR(velocity.vy_m_s, expected_kt.north * kMPerSPerKt, kVelocityMPerS);
}

class Walk {
public:
    void block(const uint8_t *data, uint64_t size) {
        static ast_datablock_t block; // large
        ast_datablock_smart_decode_into(&block, data, size);
        ASSERT_TRUE(block.valid);
        for (uint64_t i = 0; i < block.record_count; ++i) record(block.records[i]);
    }

    Random random{7};
    Traffic traffic{random, 60};
    Tracker tracker{traffic, random, kStartS};
    uint64_t tracks = 0, ends = 0, service_messages = 0;

private:
    void record(const ast_datarecord_t &record) {
        if (record.category == kServiceMessages) return void(++service_messages);
        ASSERT_EQ(record.category, kTracks);
        EXPECT_NEAR(ast_datarecord_get_timeofday(&record).raw,
                    kStepsPerS * std::fmod(kStartS + tracker.elapsed_s(), kSecondsPerDay), 0.5);
        ast_datarecord_062_t flat{};
        ast_datarecord_062_disassemble(&flat, &record);
        if (flat.track_status.tse) return void(++ends);
        ++tracks;
        track(record, flat);
    }

    void track(const ast_datarecord_t &record, const ast_datarecord_062_t &flat) const {
        const Aircraft *const aircraft = aircraft_at(traffic, ast_datarecord_get_wgs84coord(&record));
        ASSERT_NE(aircraft, nullptr);
        expect_identity(record, *aircraft);
        expect_height(record, flat, *aircraft);
        expect_velocity(record, *aircraft);
        expect_registers(record, *aircraft);
    }
};

TEST(Tracker, AccessorsReadTheTraffic) {
    constexpr double kMinutes = 10;
    ast_log_handler_reg(nullptr);
    static Walk walk;
    uint64_t batches = 0;
    for (; walk.tracker.elapsed_s() < kMinutes * 60 && !HasFailure(); ++batches)
        for (const Datagram &datagram : walk.tracker.next())
            for (size_t at = 0; at < datagram.blocks.size();) {
                const size_t size = size_t{datagram.blocks[at + 1]} << 8 | datagram.blocks[at + 2];
                walk.block(&datagram.blocks[at], size);
                at += size;
            }
    EXPECT_EQ(walk.tracks, 60 * kMinutes * 60 / 4);
    EXPECT_GT(walk.ends, 0U);
    EXPECT_EQ(walk.service_messages, batches + batches / 20);
    ast_log_handler_reg(ast_log_stdout);
}

} // namespace
