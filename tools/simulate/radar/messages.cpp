#include "messages.hpp"

#include <cmath>

#include "registers.hpp"

namespace simulation {

namespace {

constexpr ast_sac_sic_t kRadar{.valid = true, .sac = kRadarSac, .sic = kRadarSic};

constexpr uint64_t kMostRecordOctets = 256;

// I034/000
constexpr uint32_t kNorthMarker = 1;
constexpr uint32_t kSectorCrossing = 2;

// I048/020 TYP
constexpr uint32_t kPrimary = 1;
constexpr uint32_t kSecondary = 2;
constexpr uint32_t kCombined = 3;
constexpr uint32_t kModeSAllCall = 4;
constexpr uint32_t kModeSRollCall = 5;
constexpr uint32_t kModeSWithPrimary = 2; // more than without

constexpr uint32_t kFirstEmergencyCode = 07500;

Octets encode(ast_datarecord_034_t message) {
    uint8_t buffer[kMostRecordOctets];
    return octets_of(ast_datarecord_034_assemble(buffer, sizeof buffer, &message, AST_UAP_STANDARD));
}

Octets encode(ast_datarecord_048_t report) {
    uint8_t buffer[kMostRecordOctets];
    return octets_of(ast_datarecord_048_assemble(buffer, sizeof buffer, &report, AST_UAP_STANDARD));
}

ast_datarecord_034_t service_message(uint32_t type, double time_s) {
    return {
        .valid = true,
        .message_type = {.valid = true, .value = type},
        .data_source = kRadar,
        .time_of_day = time_of_day(time_s),
    };
}

uint32_t report_type(const Plot &plot) {
    if (!plot.answered) return kPrimary;
    if (!has_mode_s(*plot.aircraft)) return plot.seen_by_primary ? kCombined : kSecondary;
    return (plot.all_call ? kModeSAllCall : kModeSRollCall) + (plot.seen_by_primary ? kModeSWithPrimary : 0);
}

// Mode S reports heights in steps of 25 ft, Mode C in steps of 100 ft. Flight levels are encoded in quarters.
int32_t quarter_levels(const Aircraft &aircraft) {
    constexpr double kFineStepFt = 25;
    constexpr double kCoarseStepFt = 100;
    if (has_mode_s(aircraft)) return static_cast<int32_t>(std::lround(aircraft.altitude_ft / kFineStepFt));
    return static_cast<int32_t>(std::lround(aircraft.altitude_ft / kCoarseStepFt)) * 4;
}

void add_reply(ast_datarecord_048_t &report, const Plot &plot) {
    const Aircraft &aircraft = *plot.aircraft;
    report.mode_3a = {.valid = true, .code = aircraft.code};
    report.mode_c = {.valid = true, .validated = true, .flight_level = quarter_levels(aircraft)};
    if (!has_mode_s(aircraft)) return;
    report.target_address = {.valid = true, .address = aircraft.address};
    if (plot.all_call) return;
    report.aircraft_id.valid = true;
    aircraft.callsign.copy(report.aircraft_id.text, sizeof report.aircraft_id.text - 1);
}

void add_track(ast_datarecord_048_t &report, const Plot &plot) {
    const Ground velocity_kt = ground_velocity_kt(*plot.aircraft);
    report.track_number = {.valid = true, .value = *plot.track_number};
    report.polar_velocity = {.valid = true, .value_1 = length(velocity_kt), .value_2 = bearing_deg(velocity_kt)};
}

// I048/170: confirmed, the sensor that maintains the track (RAD), manoeuvring (MAN), climbing or descending (CDM).
Octets encode_track_status(const Plot &plot) {
    const double rate_ft_min = plot.aircraft->vertical_rate_ft_min;
    const unsigned sensor = !plot.answered ? 1U : plot.seen_by_primary ? 0U : 2U;
    const unsigned manoeuvring = plot.aircraft->bank_deg != 0;
    const unsigned vertical = rate_ft_min > 0 ? 1U : rate_ft_min < 0 ? 2U : 0U;
    return {static_cast<uint8_t>(sensor << 5 | manoeuvring << 3 | vertical << 1)};
}

// I048/230: communications A and B; airborne, with an alert (STAT 2) while an emergency code is set. Behind them that
// it has the specific service capability (MSSC), heights in steps of 25 ft (ARC) and an identification (AIC).
Octets encode_capability(const Aircraft &aircraft) {
    constexpr uint8_t kCommA_B = 1U << 5;
    constexpr uint8_t kAlert = 2U << 2;
    constexpr uint8_t kMsscArcAic = 0xE0;
    const uint8_t alert = aircraft.code >= kFirstEmergencyCode ? kAlert : 0;
    return {static_cast<uint8_t>(kCommA_B | alert), kMsscArcAic};
}

// The items that the library leaves to the caller, as far as the plot has them.
Octets complete(Octets record, const Plot &plot) {
    const bool roll_call = plot.answered && has_mode_s(*plot.aircraft) && !plot.all_call;
    const auto add = [&](uint32_t item, const Octets &octets) {
        record = with_item(record, AST_UAP_STANDARD, AST_DATAITEM_TYPE(kTargetReports, item), octets);
    };
    if (plot.track_number) add(170, encode_track_status(plot));
    if (roll_call) add(230, encode_capability(*plot.aircraft));
    if (roll_call && plot.aircraft->transponder == Transponder::mode_s_enhanced)
        add(250, encode_registers(*plot.aircraft));
    return record;
}

} // namespace

Octets encode_north_marker(double time_s) {
    ast_datarecord_034_t message = service_message(kNorthMarker, time_s);
    message.antenna_rotation_period = {.valid = true, .value = kRotationPeriodS};
    return encode(message);
}

Octets encode_sector_crossing(double time_s, unsigned sector) {
    ast_datarecord_034_t message = service_message(kSectorCrossing, time_s);
    message.sector = {.valid = true, .value = sector * kSectorDeg};
    return encode(message);
}

Octets encode_target_report(const Plot &plot) {
    ast_datarecord_048_t report{};
    report.valid = true;
    report.data_source = kRadar;
    report.time_of_day = time_of_day(plot.time_s);
    report.target_report = {.valid = true, .typ = report_type(plot), .rdp = 1};
    report.polar_position = {.valid = true, .rho_nm = plot.slant_range_nm, .theta_deg = plot.azimuth_deg};
    if (plot.answered) add_reply(report, plot);
    if (plot.track_number) add_track(report, plot);
    return complete(encode(report), plot);
}

} // namespace simulation
