// Flat records: every item fills the member that the header names for it, and no other.

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "support/log_capture.hpp"
#include "support/registered_items.hpp"

using namespace ast_test;

namespace {

struct Member {
    ast_dataitem_type_t type;
    size_t offset; // of its valid flag
    const char *name;
};

// The octets of an item that its decoder takes.
std::vector<uint8_t> sample_of(const RegisteredItem &registered) {
    switch (registered.type) {
    case 20250:
    case 21250:
    case 48250:
        return octets("01 00 00 00 00 00 00 00 40"); // one register that is read
    default:
        return registered.sample;
    }
}

// The members that an item alone fills, by their names.
template <typename Flat, auto disassemble>
std::string filled_by(const ast_dataitem_t &item, const std::vector<Member> &members) {
    ast_datarecord_t record{};
    record.category = item.type / 1000;
    record.valid = true;
    record.items[0] = item;
    record.item_count = 1;
    const auto flat = std::make_unique<Flat>();
    if constexpr (std::is_invocable_v<decltype(disassemble), Flat *, const ast_datarecord_t *>)
        disassemble(flat.get(), &record);
    else
        *flat = disassemble(&record);
    EXPECT_TRUE(flat->valid);
    std::string names;
    const auto *const flags = reinterpret_cast<const uint8_t *>(flat.get());
    std::set<size_t> seen; // variants of an item share its member
    for (const Member &member : members)
        if (seen.insert(member.offset).second && flags[member.offset] != 0)
            names += std::string(names.empty() ? "" : " ") + member.name;
    return names;
}

template <typename Flat, auto disassemble>
void expect_members(uint32_t category, const std::vector<Member> &members) {
    const auto &all = registered_items();
    LogCapture log;
    size_t filled = 0;
    for (const RegisteredItem &registered : all) {
        if (registered.type / 1000 != category) continue;
        std::string expected;
        for (const Member &member : members)
            if (member.type == registered.type) expected = member.name;
        const auto sample = sample_of(registered);
        const ast_dataitem_t item = ast_dataitem_decode(sample.data(), sample.size(), registered.type);
        log.take();
        EXPECT_EQ((filled_by<Flat, disassemble>(item, members)), expected) << registered.type;
        const LogLines lines = log.take();
        const bool is_reported = !lines.empty() && lines.front().message.starts_with("Failed to disassemble");
        EXPECT_EQ(is_reported, expected.empty()) << registered.type;
        filled += !expected.empty();
    }
    EXPECT_EQ(filled, members.size());
}

#define FLAT(name)                                                                                                     \
    using Flat = ast_datarecord_##name##_t;                                                                            \
    constexpr auto disassemble = ast_datarecord_##name##_disassemble
#define MEMBER(type, name)                                                                                             \
    { type, offsetof(Flat, name), #name }

// clang-format off

TEST(FlatRecord, Of001HasAMemberForEachItem) {
    FLAT(001);
    expect_members<Flat, disassemble>(1, {
        MEMBER(1010, data_source), MEMBER(1020, target_report), MEMBER(1030, warnings), MEMBER(1040, polar_position),
        MEMBER(1042, cartesian_position), MEMBER(1050, mode_2), MEMBER(1060, mode_2_confidence),
        MEMBER(1070, mode_3a), MEMBER(1080, mode_3a_confidence), MEMBER(1090, mode_c),
        MEMBER(1100, mode_c_confidence), MEMBER(1120, doppler_speed), MEMBER(1130, plot_characteristics),
        MEMBER(1131, received_power), MEMBER(1141, truncated_time_of_day), MEMBER(1150, x_pulse),
        MEMBER(1161, track_number), MEMBER(1170, track_status), MEMBER(1200, polar_velocity),
        MEMBER(1210, track_quality), MEMBER(1901, plot_characteristics), MEMBER(1902, track_quality),
        MEMBER(1903, plot_characteristics), MEMBER(1904, track_quality)});
}

TEST(FlatRecord, Of002HasAMemberForEachItem) {
    FLAT(002);
    expect_members<Flat, disassemble>(2, {
        MEMBER(2000, message_type), MEMBER(2010, data_source), MEMBER(2020, sector), MEMBER(2030, time_of_day),
        MEMBER(2041, antenna_rotation_period), MEMBER(2050, station_status), MEMBER(2901, station_status),
        MEMBER(2902, station_status)});
}

TEST(FlatRecord, Of004HasAMemberForEachItem) {
    FLAT(004);
    expect_members<Flat, disassemble>(4, {
        MEMBER(4000, message_type), MEMBER(4010, data_source), MEMBER(4020, time_of_message),
        MEMBER(4030, track_number_1), MEMBER(4035, track_number_2), MEMBER(4040, alert_identifier),
        MEMBER(4060, function_status), MEMBER(4100, area_definition), MEMBER(4120, conflict_characteristics),
        MEMBER(4170, aircraft_1), MEMBER(4171, aircraft_2)});
}

TEST(FlatRecord, Of008HasAMemberForEachItem) {
    FLAT(008);
    expect_members<Flat, disassemble>(8, {
        MEMBER(8000, message_type), MEMBER(8010, data_source), MEMBER(8020, vector_qualifier),
        MEMBER(8034, polar_vectors), MEMBER(8036, cartesian_vectors), MEMBER(8038, weather_vectors),
        MEMBER(8040, contour_identifier), MEMBER(8050, contour_points), MEMBER(8090, time_of_day),
        MEMBER(8100, processing_status), MEMBER(8110, station_status), MEMBER(8120, picture_items)});
}

TEST(FlatRecord, Of010HasAMemberForEachItem) {
    FLAT(010);
    expect_members<Flat, disassemble>(10, {
        MEMBER(10000, message_type), MEMBER(10010, data_source), MEMBER(10020, target_report),
        MEMBER(10040, polar_position), MEMBER(10041, position), MEMBER(10042, cartesian_position),
        MEMBER(10060, mode_3a), MEMBER(10090, mode_c), MEMBER(10091, measured_height), MEMBER(10131, plot_amplitude),
        MEMBER(10140, time_of_day), MEMBER(10161, track_number), MEMBER(10170, track_status),
        MEMBER(10200, polar_velocity), MEMBER(10202, cartesian_velocity), MEMBER(10220, target_address),
        MEMBER(10245, target_id), MEMBER(10270, target_size), MEMBER(10500, position_deviation),
        MEMBER(10550, system_status)});
}

TEST(FlatRecord, Of015HasAMemberForEachItem) {
    FLAT(015);
    expect_members<Flat, disassemble>(15, {
        MEMBER(15000, message_type), MEMBER(15010, data_source), MEMBER(15020, target_report),
        MEMBER(15145, time_of_applicability), MEMBER(15161, track_number), MEMBER(15170, track_status),
        MEMBER(15300, classification), MEMBER(15400, measurement), MEMBER(15480, associations),
        MEMBER(15600, horizontal_position), MEMBER(15601, geometric_height), MEMBER(15602, horizontal_velocity),
        MEMBER(15604, vertical_velocity), MEMBER(15625, range), MEMBER(15626, doppler), MEMBER(15627, azimuth)});
}

TEST(FlatRecord, Of020HasAMemberForEachItem) {
    FLAT(020);
    expect_members<Flat, disassemble>(20, {
        MEMBER(20010, data_source), MEMBER(20020, target_report), MEMBER(20030, warnings), MEMBER(20041, position),
        MEMBER(20042, cartesian_position), MEMBER(20050, mode_2), MEMBER(20055, mode_1), MEMBER(20070, mode_3a),
        MEMBER(20090, mode_c), MEMBER(20100, mode_c_confidence), MEMBER(20105, geometric_height),
        MEMBER(20110, measured_height), MEMBER(20140, time_of_day), MEMBER(20161, track_number),
        MEMBER(20170, track_status), MEMBER(20202, cartesian_velocity), MEMBER(20210, acceleration),
        MEMBER(20220, target_address), MEMBER(20230, comm_and_flight_status), MEMBER(20245, target_id),
        MEMBER(20250, modes_mb), MEMBER(20260, acas_advisory), MEMBER(20300, vehicle_fleet), MEMBER(20310, message),
        MEMBER(20400, contributing_devices), MEMBER(20500, position_accuracy)});
}

// What editions 2.1 to 2.6 of category 021 share.
#define MEMBERS_OF_021                                                                                                 \
    MEMBER(21008, operational_status), MEMBER(21010, data_source), MEMBER(21015, service_id),                          \
    MEMBER(21016, service_management), MEMBER(21020, emitter_category), MEMBER(21040, target_report),                  \
    MEMBER(21070, mode_3a), MEMBER(21071, position_applies), MEMBER(21072, velocity_applies),                          \
    MEMBER(21073, position_received), MEMBER(21074, position_received_high), MEMBER(21075, velocity_received),         \
    MEMBER(21076, velocity_received_high), MEMBER(21077, transmitted), MEMBER(21080, target_address),                  \
    MEMBER(21090, quality_indicators), MEMBER(21130, position), MEMBER(21131, position_high),                          \
    MEMBER(21132, message_amplitude), MEMBER(21140, geometric_altitude), MEMBER(21145, flight_level),                  \
    MEMBER(21150, air_speed), MEMBER(21155, barometric_rate), MEMBER(21157, geometric_rate),                           \
    MEMBER(21160, ground_vector), MEMBER(21161, track_number), MEMBER(21170, target_id),                               \
    MEMBER(21200, target_status), MEMBER(21210, mops_version)

TEST(FlatRecord, Of021HasAMemberForEachItem) {
    FLAT(021);
    expect_members<Flat, disassemble>(21, {
        MEMBERS_OF_021, MEMBER(21146, selected_altitude), MEMBER(21151, true_air_speed),
        MEMBER(21152, magnetic_heading), MEMBER(21295, data_ages)});
}

TEST(FlatRecord, Of021V26HasAMemberForEachItem) {
    FLAT(021_v26);
    expect_members<Flat, disassemble>(21, {
        MEMBERS_OF_021, MEMBER(21295, data_ages)});
}

TEST(FlatRecord, Of021V21HasAMemberForEachItem) {
    FLAT(021_v21);
    expect_members<Flat, disassemble>(21, {
        MEMBERS_OF_021});
}

TEST(FlatRecord, Of021V026HasAMemberForEachItem) {
    FLAT(021_v026);
    expect_members<Flat, disassemble>(21, {
        MEMBER(21010, data_source), MEMBER(21020, emitter_category), MEMBER(21030, time_of_day),
        MEMBER(21070, mode_3a), MEMBER(21080, target_address), MEMBER(21095, velocity_accuracy),
        MEMBER(21145, flight_level), MEMBER(21160, ground_vector), MEMBER(21170, target_id), MEMBER(21902, position),
        MEMBER(21903, target_report), MEMBER(21904, signal_amplitude), MEMBER(21905, figure_of_merit),
        MEMBER(21906, link_technology), MEMBER(21908, target_status)});
}

TEST(FlatRecord, Of034HasAMemberForEachItem) {
    FLAT(034);
    expect_members<Flat, disassemble>(34, {
        MEMBER(34000, message_type), MEMBER(34010, data_source), MEMBER(34020, sector), MEMBER(34030, time_of_day),
        MEMBER(34041, antenna_rotation_period), MEMBER(34050, station_status), MEMBER(34060, processing_mode),
        MEMBER(34070, message_counts)});
}

TEST(FlatRecord, Of048HasAMemberForEachItem) {
    FLAT(048);
    expect_members<Flat, disassemble>(48, {
        MEMBER(48010, data_source), MEMBER(48020, target_report), MEMBER(48030, warnings),
        MEMBER(48040, polar_position), MEMBER(48042, cartesian_position), MEMBER(48050, mode_2),
        MEMBER(48070, mode_3a), MEMBER(48080, mode_3a_confidence), MEMBER(48090, mode_c),
        MEMBER(48100, mode_c_confidence), MEMBER(48110, height_3d), MEMBER(48130, plot_characteristics),
        MEMBER(48140, time_of_day), MEMBER(48161, track_number), MEMBER(48170, track_status),
        MEMBER(48200, polar_velocity), MEMBER(48220, target_address), MEMBER(48230, comm_and_flight_status),
        MEMBER(48240, aircraft_id), MEMBER(48250, modes_mb), MEMBER(48260, acas_advisory)});
}

TEST(FlatRecord, Of062HasAMemberForEachItem) {
    FLAT(062);
    expect_members<Flat, disassemble>(62, {
        MEMBER(62010, data_source), MEMBER(62015, service_id), MEMBER(62040, track_number), MEMBER(62060, mode_3a),
        MEMBER(62070, time_of_track), MEMBER(62080, track_status), MEMBER(62100, cartesian_position),
        MEMBER(62105, wgs84_position), MEMBER(62110, mode_5), MEMBER(62120, mode_2),
        MEMBER(62130, geometric_altitude), MEMBER(62135, barometric_altitude), MEMBER(62136, measured_flight_level),
        MEMBER(62185, cartesian_velocity), MEMBER(62200, mode_of_movement), MEMBER(62210, cartesian_acceleration),
        MEMBER(62220, rate_of_climb), MEMBER(62270, target_size), MEMBER(62290, update_ages),
        MEMBER(62295, data_ages), MEMBER(62300, vehicle_fleet), MEMBER(62340, measured_information),
        MEMBER(62380, aircraft_derived_data), MEMBER(62500, estimated_accuracies),
        MEMBER(62510, composed_track_number)});
}

TEST(FlatRecord, Of063HasAMemberForEachItem) {
    FLAT(063);
    expect_members<Flat, disassemble>(63, {
        MEMBER(63010, data_source), MEMBER(63015, service), MEMBER(63030, time_of_day), MEMBER(63050, sensor),
        MEMBER(63060, status)});
}

TEST(FlatRecord, Of065HasAMemberForEachItem) {
    FLAT(065);
    expect_members<Flat, disassemble>(65, {
        MEMBER(65000, message_type), MEMBER(65010, data_source), MEMBER(65015, service), MEMBER(65020, batch),
        MEMBER(65030, time_of_day), MEMBER(65040, status)});
}

// clang-format on

} // namespace
