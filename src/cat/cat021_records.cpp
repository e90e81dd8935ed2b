// Records of category 021 as a whole: what they answer, and taking them apart and putting them together again.

#include <initializer_list>

#include "cat/flat.hpp"
#include "items/accessors.hpp"

using namespace ast;

// ---- Accessors ----

namespace {

// The first item of a record that is of one of the types, or null.
const ast_dataitem_t *first_of(const ast_datarecord_t *record, std::initializer_list<ast_dataitem_type_t> types) {
    const ast_dataitem_t *first = nullptr;
    for (const ast_dataitem_type_t type : types) {
        const ast_dataitem_t *const item = first_item(record, type);
        if (item && (!first || item < first)) first = item;
    }
    return first;
}

} // namespace

ast_sac_sic_t ast_datarecord_021_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 21010); }
ast_time_of_day_t ast_datarecord_021_get_timeofday(const ast_datarecord_t *record) {
    return ast_dataitem_time_of_day_decode(first_of(record, {21030, 21077}));
}
ast_uint_value_t ast_datarecord_021_get_msgtype(const ast_datarecord_t *) {
    return {.valid = true, .value = AST_MSGTYPE_ADSB};
}
ast_uint_value_t ast_datarecord_021_get_tracknum(const ast_datarecord_t *record) { return tracknum_of(record, 21161); }
ast_squawk_t ast_datarecord_021_get_squawk(const ast_datarecord_t *record) { return whole_squawk_of(record, 21070); }
ast_aircraft_id_t ast_datarecord_021_get_callsign(const ast_datarecord_t *record) { return callsign_of(record, 21170); }
ast_icao_address_t ast_datarecord_021_get_icaoaddr(const ast_datarecord_t *record) {
    return icaoaddr_of(record, 21080);
}

ast_coordinate_t ast_datarecord_021_get_coordinate(const ast_datarecord_t *record) {
    const ast_dataitem_t *const item = first_of(record, {21130, 21131, 21902});
    const auto position = item && item->type == 21130 ? ast_dataitem_position_wgs84_low_decode(item)
                                                      : ast_dataitem_position_wgs84_decode(item);
    return {.valid = position.valid, .latitude_deg = position.value_1, .longitude_deg = position.value_2};
}

ast_quantity_t ast_datarecord_021_get_flightlevel(const ast_datarecord_t *record) {
    const auto level = ast_dataitem_021_145_decode(first_item(record, 21145));
    return {.valid = level.valid, .value = level.altitude_ft};
}

ast_quantity_t ast_datarecord_021_get_selaltitude(const ast_datarecord_t *record) {
    const auto selected = ast_dataitem_021_146_decode(first_item(record, 21146));
    return {.valid = selected.valid, .value = selected.altitude_ft};
}

ast_heading_t ast_datarecord_021_get_heading(const ast_datarecord_t *record) {
    const auto vector = ast_dataitem_021_160_decode(first_item(record, 21160));
    ast_heading_t heading = kNoHeading;
    heading.valid = vector.valid;
    if (vector.valid) heading.track = {.valid = true, .value = vector.track_angle_deg};
    return heading;
}

ast_quantity_t ast_datarecord_021_get_speed(const ast_datarecord_t *record) {
    const auto vector = ast_dataitem_021_160_decode(first_item(record, 21160));
    return {.valid = vector.valid, .value = vector.ground_speed_kt};
}

ast_quantity_t ast_datarecord_021_get_vrate(const ast_datarecord_t *record) {
    const auto rate = ast_dataitem_vertical_rate_decode(first_item(record, 21155));
    return {.valid = rate.valid, .value = rate.value};
}

// ---- The flat records ----

namespace {

// What edition 2.1 and the later ones have in common.
template <typename Flat>
constexpr FlatMember<Flat> kLaterMembers[] = {
    taken_apart<&Flat::operational_status, ast_dataitem_021_008_decode>(21008),
    both_ways<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(21010),
    both_ways<&Flat::service_id, ast_dataitem_service_id_decode>(21015),
    taken_apart<&Flat::service_management, ast_dataitem_021_016_decode>(21016),
    both_ways<&Flat::emitter_category, ast_dataitem_021_020_decode>(21020),
    both_ways<&Flat::target_report, ast_dataitem_021_040_decode>(21040),
    both_ways<&Flat::mode_3a, ast_dataitem_mode_3a_code_decode>(21070),
    both_ways<&Flat::position_applies, ast_dataitem_time_of_day_decode>(21071),
    both_ways<&Flat::velocity_applies, ast_dataitem_time_of_day_decode>(21072),
    both_ways<&Flat::position_received, ast_dataitem_time_of_day_decode>(21073),
    taken_apart<&Flat::position_received_high, ast_dataitem_time_of_day_high_decode>(21074),
    both_ways<&Flat::velocity_received, ast_dataitem_time_of_day_decode>(21075),
    taken_apart<&Flat::velocity_received_high, ast_dataitem_time_of_day_high_decode>(21076),
    both_ways<&Flat::transmitted, ast_dataitem_time_of_day_decode>(21077),
    both_ways<&Flat::target_address, ast_dataitem_target_address_decode>(21080),
    both_ways<&Flat::quality_indicators, ast_dataitem_021_090_decode>(21090),
    both_ways<&Flat::position, ast_dataitem_position_wgs84_low_decode>(21130),
    both_ways<&Flat::position_high, ast_dataitem_position_wgs84_decode>(21131),
    both_ways<&Flat::message_amplitude, ast_dataitem_signal_amplitude_decode>(21132),
    both_ways<&Flat::geometric_altitude, ast_dataitem_021_140_decode>(21140),
    both_ways<&Flat::flight_level, ast_dataitem_021_145_decode>(21145),
    both_ways<&Flat::air_speed, ast_dataitem_021_150_decode>(21150),
    both_ways<&Flat::barometric_rate, ast_dataitem_vertical_rate_decode>(21155),
    both_ways<&Flat::geometric_rate, ast_dataitem_vertical_rate_decode>(21157),
    both_ways<&Flat::ground_vector, ast_dataitem_021_160_decode>(21160),
    both_ways<&Flat::track_number, ast_dataitem_track_number_decode>(21161),
    both_ways<&Flat::target_id, ast_dataitem_aircraft_id_decode>(21170),
    both_ways<&Flat::target_status, ast_dataitem_021_200_decode>(21200),
    both_ways<&Flat::mops_version, ast_dataitem_021_210_decode>(21210),
};

template <typename Flat, size_t N>
struct Members {
    FlatMember<Flat> rows[N];
};

// Those members, and some that not all of these editions have.
template <typename Flat, typename... More>
constexpr auto later_members(const More &...more) {
    constexpr size_t kCommon = std::size(kLaterMembers<Flat>);
    Members<Flat, kCommon + sizeof...(more)> members{};
    FlatMember<Flat> *const rest = std::copy_n(kLaterMembers<Flat>, kCommon, members.rows);
    const FlatMember<Flat> others[] = {more...};
    std::copy_n(others, std::size(others), rest);
    return members;
}

using Current = ast_datarecord_021_t;
using Edition26 = ast_datarecord_021_v26_t;
using Edition21 = ast_datarecord_021_v21_t;
using Edition026 = ast_datarecord_021_v026_t;

constexpr auto kCurrentMembers =
    later_members<Current>(taken_apart<&Current::selected_altitude, ast_dataitem_021_146_decode>(21146),
                           taken_apart<&Current::true_air_speed, ast_dataitem_021_151_decode>(21151),
                           taken_apart<&Current::magnetic_heading, ast_dataitem_021_152_decode>(21152),
                           taken_apart<&Current::data_ages, ast_dataitem_021_295_decode>(21295));

constexpr auto kEdition26Members =
    later_members<Edition26>(taken_apart<&Edition26::data_ages, ast_dataitem_021_295_decode>(21295));

constexpr FlatMember<Edition026> kEdition026Members[] = {
    both_ways<&Edition026::data_source, ast_dataitem_data_source_identifier_decode>(21010),
    both_ways<&Edition026::emitter_category, ast_dataitem_021_020_decode>(21020),
    both_ways<&Edition026::time_of_day, ast_dataitem_time_of_day_decode>(21030),
    both_ways<&Edition026::mode_3a, ast_dataitem_mode_3a_code_decode>(21070),
    both_ways<&Edition026::target_address, ast_dataitem_target_address_decode>(21080),
    both_ways<&Edition026::velocity_accuracy, ast_dataitem_021_095_decode>(21095),
    both_ways<&Edition026::flight_level, ast_dataitem_021_145_decode>(21145),
    both_ways<&Edition026::ground_vector, ast_dataitem_021_160_decode>(21160),
    both_ways<&Edition026::target_id, ast_dataitem_aircraft_id_decode>(21170),
    both_ways<&Edition026::target_report, ast_dataitem_021_A03_decode>(21903),
    both_ways<&Edition026::figure_of_merit, ast_dataitem_021_A05_decode>(21905),
    both_ways<&Edition026::position, ast_dataitem_position_wgs84_decode>(21902),
    both_ways<&Edition026::signal_amplitude, ast_dataitem_signal_amplitude_decode>(21904),
    both_ways<&Edition026::target_status, ast_dataitem_021_A08_decode>(21908),
    both_ways<&Edition026::link_technology, ast_dataitem_021_A06_decode>(21906),
};

} // namespace

ast_datarecord_021_t *ast_datarecord_021_disassemble(ast_datarecord_021_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 21, kCurrentMembers.rows, report_quietly);
}
ast_datarecord_t ast_datarecord_021_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_021_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 21, uap, kCurrentMembers.rows);
}

ast_datarecord_021_v26_t *ast_datarecord_021_v26_disassemble(ast_datarecord_021_v26_t *flat,
                                                             const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 21, kEdition26Members.rows, report_quietly);
}
ast_datarecord_t ast_datarecord_021_v26_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_021_v26_t *flat,
                                                 ast_uap_t uap) {
    return assemble(buffer, length, flat, 21, uap, kEdition26Members.rows);
}

ast_datarecord_021_v21_t *ast_datarecord_021_v21_disassemble(ast_datarecord_021_v21_t *flat,
                                                             const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 21, kLaterMembers<Edition21>, report_quietly);
}
ast_datarecord_t ast_datarecord_021_v21_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_021_v21_t *flat,
                                                 ast_uap_t uap) {
    return assemble(buffer, length, flat, 21, uap, kLaterMembers<Edition21>);
}

ast_datarecord_021_v026_t *ast_datarecord_021_v026_disassemble(ast_datarecord_021_v026_t *flat,
                                                               const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 21, kEdition026Members, report_quietly);
}
ast_datarecord_t ast_datarecord_021_v026_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_021_v026_t *flat,
                                                  ast_uap_t uap) {
    return assemble(buffer, length, flat, 21, uap, kEdition026Members);
}
