#include "reports.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace simulation {

namespace {

constexpr ast_sac_sic_t kStation{.valid = true, .sac = kStationSac, .sic = kStationSic};

constexpr uint64_t kMostRecordOctets = 256;

// I021/200 SS
constexpr uint32_t kPermanentAlert = 1;

constexpr uint32_t kStepsOf25Ft = 1;      // I021/040 ARC
constexpr uint32_t kExtendedSquitter = 2; // I021/210 LTT: 1090 ES

// DO-260B aircraft send what DO-260 ones do not: more on quality, and what their autopilot is set to.
bool has_do_260b(const Aircraft &aircraft) { return aircraft.transponder == Transponder::mode_s_enhanced; }

ast_dataitem_021_160_t ground_vector(const Aircraft &aircraft) {
    const Ground velocity_kt = ground_velocity_kt(aircraft);
    return {.valid = true, .ground_speed_kt = length(velocity_kt), .track_angle_deg = bearing_deg(velocity_kt)};
}

ast_aircraft_id_t identification(const Aircraft &aircraft) {
    ast_aircraft_id_t id{.valid = true, .text = {}};
    aircraft.callsign.copy(id.text, sizeof id.text - 1);
    return id;
}

// Air speeds are Mach numbers high up.
ast_dataitem_021_150_t air_speed(const Aircraft &aircraft) {
    constexpr double kMachFromFt = 27000;
    const bool is_mach = aircraft.altitude_ft >= kMachFromFt;
    return {.valid = true, .im = is_mach, .ias_kt = indicated_airspeed_kt(aircraft), .mach = mach(aircraft)};
}

// ---- Items that are put into the record afterwards ----

void append(Octets &octets, uint64_t value, unsigned count) {
    for (unsigned octet = count; octet > 0; --octet) octets.push_back(static_cast<uint8_t>(value >> 8 * (octet - 1)));
}

Octets number(uint64_t value, unsigned octets) {
    Octets result;
    append(result, value, octets);
    return result;
}

// An item that the library encodes, but not as a part of the edition's record.
template <typename Value>
Octets encode_item(ast_dataitem_type_t type, Value value) {
    uint8_t buffer[kMostRecordOctets];
    const ast_dataitem_src_t source{type, &value};
    const ast_dataitem_t item = ast_dataitem_encode(buffer, sizeof buffer, &source);
    if (!item.valid) throw std::logic_error("an item cannot be encoded");
    return {item.data, item.data + item.size};
}

// I021/131 in its own steps of 180/2^30 degrees; the library writes coarser ones.
Octets encode_high_resolution(const Report &report) {
    constexpr double kStepsPerDeg = 0x1p30 / 180;
    Octets position;
    for (const double degrees : {report.position.latitude_deg, report.position.longitude_deg})
        append(position, static_cast<uint64_t>(std::llround(degrees * kStepsPerDeg)), 4);
    return position;
}

// I021/146: where it comes from is known (SAS), the control panel (source 2), and the altitude in steps of 25 ft.
Octets encode_selected_altitude(const Aircraft &aircraft) {
    constexpr uint64_t kSas = 1U << 15;
    constexpr uint64_t kControlPanel = 2U << 13;
    return number(kSas | kControlPanel | static_cast<uint64_t>(std::lround(aircraft.selected_altitude_ft / 25)), 2);
}

// I021/152 in steps of 360/2^16 degrees.
Octets encode_magnetic_heading(const Aircraft &aircraft) {
    return number(static_cast<uint64_t>(std::lround(magnetic_heading_deg(aircraft) / 360 * 65536)), 2);
}

// I021/008: reports its target state (TS) and its velocity through the air (ARV).
Octets encode_operational_status() { return {0x18}; }

// I021/295: how old code (M3A) and identification (TI) are, subfields 3 and 18, in tenths of a second.
Octets encode_ages(double age_s) {
    const auto age = static_cast<uint8_t>(std::min(std::lround(age_s * 10), 255L));
    return {0x21, 0x01, 0x10, age, age};
}

// ---- Records ----

ast_dataitem_021_090_t quality(const Aircraft &aircraft) {
    ast_dataitem_021_090_t indicators{.valid = true, .nucr_nacv = 1, .nucp_nic = 7};
    if (!has_do_260b(aircraft)) return indicators;
    indicators.nucp_nic = 8;
    indicators.nic_baro = {.present = true, .value = 1};
    indicators.sil = {.present = true, .value = 3};
    indicators.nac_p = {.present = true, .value = 9};
    indicators.sil_s = {.present = true, .value = 0};
    indicators.sda = {.present = true, .value = 2};
    indicators.gva = {.present = true, .value = 2};
    return indicators;
}

void add_identification(ast_datarecord_021_v21_t &flat, const Aircraft &aircraft) {
    flat.mode_3a = {.valid = true, .code = aircraft.code};
    flat.target_id = identification(aircraft);
    flat.emitter_category = {.valid = true, .emitter_category = emitter_category(aircraft)};
}

void add_velocity(ast_datarecord_021_v21_t &flat, const Report &report) {
    flat.velocity_received = time_of_day(report.received_s);
    flat.ground_vector = ground_vector(*report.aircraft);
    flat.barometric_rate = {.valid = true, .value = report.aircraft->vertical_rate_ft_min};
    if (has_do_260b(*report.aircraft)) flat.air_speed = air_speed(*report.aircraft);
}

Octets assemble_2_1(const Report &report) {
    const Aircraft &aircraft = *report.aircraft;
    const uint32_t priority = emergency_status(aircraft);
    ast_datarecord_021_v21_t flat{};
    flat.valid = true;
    flat.data_source = kStation;
    flat.service_id = {.valid = true, .value = 1};
    flat.target_report = {.valid = true, .arc = kStepsOf25Ft};
    flat.position_received = time_of_day(report.received_s);
    flat.transmitted = time_of_day(report.sent_s);
    flat.target_address = {.valid = true, .address = aircraft.address};
    flat.quality_indicators = quality(aircraft);
    flat.position = {.valid = true, .value_1 = report.position.latitude_deg, .value_2 = report.position.longitude_deg};
    flat.geometric_altitude = {.valid = true, .altitude_ft = geometric_altitude_ft(aircraft)};
    flat.flight_level = {.valid = true, .altitude_ft = aircraft.altitude_ft};
    flat.track_number = {.valid = true, .value = report.track_number};
    flat.target_status = {.valid = true, .ps = priority, .ss = priority ? kPermanentAlert : 0};
    flat.mops_version = {.valid = true, .vn = has_do_260b(aircraft) ? 2U : 0U, .ltt = kExtendedSquitter};
    if (report.identified_s) add_identification(flat, aircraft);
    if (report.has_velocity) add_velocity(flat, report);
    uint8_t buffer[kMostRecordOctets];
    return octets_of(ast_datarecord_021_v21_assemble(buffer, sizeof buffer, &flat, profile_of(Edition::ed2_1)));
}

Octets assemble_0_23(const Report &report) {
    const Aircraft &aircraft = *report.aircraft;
    ast_datarecord_021_v026_t flat{};
    flat.valid = true;
    flat.data_source = kStation;
    flat.target_report = {.valid = true, .arc = kStepsOf25Ft};
    flat.time_of_day = time_of_day(report.received_s);
    flat.target_address = {.valid = true, .address = aircraft.address};
    flat.figure_of_merit = {.valid = true, .ac = 2, .mn = 2, .dc = 1, .pa = 7};
    flat.link_technology = {.valid = true, .mds = true};
    flat.flight_level = {.valid = true, .altitude_ft = aircraft.altitude_ft};
    flat.velocity_accuracy = {.valid = true, .value = 1};
    flat.target_status = {.valid = true, .status = emergency_status(aircraft)};
    if (report.has_velocity) flat.ground_vector = ground_vector(aircraft);
    if (report.identified_s) {
        flat.target_id = identification(aircraft);
        flat.emitter_category = {.valid = true, .emitter_category = emitter_category(aircraft)};
    }
    uint8_t buffer[kMostRecordOctets];
    return octets_of(ast_datarecord_021_v026_assemble(buffer, sizeof buffer, &flat, profile_of(Edition::ed0_23)));
}

} // namespace

const ast_uap_t &profile_of(Edition edition) {
    return edition == Edition::ed0_23 ? AST_UAP_CAT021_VER023 : AST_UAP_CAT021_VER21;
}

Octets encode_report(const Report &report, Edition edition) {
    const Aircraft &aircraft = *report.aircraft;
    const bool is_old = edition == Edition::ed0_23;
    Octets record = is_old ? assemble_0_23(report) : assemble_2_1(report);
    const auto add = [&](uint32_t item, const Octets &octets) {
        record = with_item(record, profile_of(edition), AST_DATAITEM_TYPE(kAdsbReports, item), octets);
    };
    if (is_old) {
        const ast_value_pair_t position{
            .valid = true, .value_1 = report.position.latitude_deg, .value_2 = report.position.longitude_deg};
        const ast_scaled_value_t rate{.valid = true, .value = aircraft.vertical_rate_ft_min};
        const ast_dataitem_021_140_t altitude{.valid = true, .altitude_ft = geometric_altitude_ft(aircraft)};
        add(130, encode_item(21130, position));
        add(140, encode_item(21140, altitude));
        if (report.has_velocity) add(155, encode_item(21155, rate));
    } else {
        add(131, encode_high_resolution(report));
        add(8, encode_operational_status());
        if (report.identified_s) add(295, encode_ages(report.received_s - *report.identified_s));
    }
    if (!has_do_260b(aircraft)) return record;
    add(146, encode_selected_altitude(aircraft));
    add(152, encode_magnetic_heading(aircraft));
    return record;
}

} // namespace simulation
