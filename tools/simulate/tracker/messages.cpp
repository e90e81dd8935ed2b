#include "messages.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "json.hpp"

namespace simulation {

namespace {

constexpr uint32_t kService = 1;
constexpr uint32_t kRadarSic = 12;
constexpr uint32_t kFlightPlanSystemSic = 11;

constexpr double kMPerNm = 1852;
constexpr double kSecondsPerHour = 3600;
constexpr double kMPerSPerKt = kMPerNm / kSecondsPerHour;
constexpr double kFtPerLevel = 100;
constexpr double kCoastingS = 6; // a track is coasting when its last report is older

constexpr double kSecondsPerDay = 86400;

bool has_code(const Aircraft &aircraft) { return aircraft.transponder != Transponder::none; }

bool has_registers(const Aircraft &aircraft) { return aircraft.transponder == Transponder::mode_s_enhanced; }

// Airliners fly by a plan, which is found by their code or their callsign.
bool has_flight_plan(const Aircraft &aircraft) {
    return has_code(aircraft) && emitter_category(aircraft) != kLightAircraft;
}

double measured_age_s(const Track &track) { return track.time_s - track.measured.time_s; }

// Ages are sent in one octet, in steps of 1/4 s; the highest means that much or more.
double age_as_sent_s(double age_s) { return std::clamp(age_s, 0.0, 255.0 / 4); }

// In whole steps of a circle, so that the last half step is north again.
double angle_as_sent_deg(double angle_deg, uint32_t steps) {
    return std::fmod(std::round(angle_deg / 360 * steps), steps) * 360 / steps;
}

double angle_as_sent_deg(double angle_deg) { return angle_as_sent_deg(angle_deg, 1U << 16); }

// ---- Types of aircraft ----

struct Type {
    const char *name; // as ICAO designates it
    char wake;
    uint32_t length_m;
    uint32_t width_m;
};

const Type &type_of(const Aircraft &aircraft) {
    static constexpr Type kMedium[] = {{"A320", 'M', 38, 34}, {"B738", 'M', 39, 36}, {"E190", 'M', 36, 29}};
    static constexpr Type kHeavy[] = {{"A333", 'H', 64, 60}, {"B77W", 'H', 74, 65}, {"B789", 'H', 63, 60}};
    return (emitter_category(aircraft) == kHeavyAircraft ? kHeavy : kMedium)[aircraft.serial % std::size(kMedium)];
}

const char *airport(uint64_t number) {
    static constexpr const char *kAirports[] = {"EDDF", "EGLL", "EHAM", "EPWA", "LFPG", "LKPR", "LOWW"};
    return kAirports[number % std::size(kAirports)];
}

// ---- Items of category 062, in the order of a record ----

void add_source(Json &record, double time_s) {
    record.add(R"("category":62,"I010":{"SAC":%u,"SIC":%u},"I015":%u,"I070":%.7f)", unsigned{kTrackerSac},
               unsigned{kTrackerSic}, kService, std::fmod(time_s, kSecondsPerDay));
}

void add_position(Json &record, const Aircraft &aircraft) {
    const Geographic place = geographic(aircraft.position_nm);
    record.add(R"("I105":{"LAT":%.8f,"LON":%.8f})", place.latitude_deg, place.longitude_deg);
    record.add(R"("I100":{"X":%.1f,"Y":%.1f})", aircraft.position_nm.east * kMPerNm,
               aircraft.position_nm.north * kMPerNm);
}

// In a turn the aircraft is drawn to its inner side.
void add_movement(Json &record, const Aircraft &aircraft) {
    const Ground velocity_kt = ground_velocity_kt(aircraft);
    const double turn_rad_s = turn_rate_deg_s(aircraft) * std::numbers::pi / 180;
    record.add(R"("I185":{"VX":%.2f,"VY":%.2f})", velocity_kt.east * kMPerSPerKt, velocity_kt.north * kMPerSPerKt);
    record.add(R"("I210":{"AX":%.2f,"AY":%.2f})", turn_rad_s * velocity_kt.north * kMPerSPerKt,
               -turn_rad_s * velocity_kt.east * kMPerSPerKt);
}

void add_code(Json &record, const Aircraft &aircraft) {
    if (has_code(aircraft)) record.add(R"("I060":{"V":0,"G":0,"CH":0,"MODE3A":"%04o"})", aircraft.code);
}

// I062/380 IAS is a speed low down and a Mach number high up.
void add_airspeed(Json &derived, const Aircraft &aircraft) {
    constexpr double kMachFromFt = 27000;
    const double airspeed_kt = indicated_airspeed_kt(aircraft);
    if (aircraft.altitude_ft >= kMachFromFt)
        derived.add(R"("IAS":{"IM":1,"IAS":%.3f})", mach(aircraft));
    else
        derived.add(R"("IAS":{"IM":0,"IAS":%.6f})", airspeed_kt / kSecondsPerHour);
    derived.add(R"("TAS":%.0f,"IAR":%.0f,"MAC":%.3f)", aircraft.airspeed_kt, airspeed_kt, mach(aircraft));
}

// What registers 4,0, 5,0 and 6,0 say. The altitude is selected on the control panel (SRC 2).
void add_registers(Json &derived, const Aircraft &aircraft) {
    constexpr double kPressureAbove800Mb = 213.2;
    constexpr unsigned kLeft = 1;
    constexpr unsigned kRight = 2;
    constexpr unsigned kStraight = 3;
    const Ground velocity_kt = ground_velocity_kt(aircraft);
    const unsigned curve = aircraft.bank_deg > 0 ? kRight : kLeft;
    add_airspeed(derived, aircraft);
    derived.add(R"("MHG":%.4f)", angle_as_sent_deg(magnetic_heading_deg(aircraft)));
    derived.add(R"("SAL":{"SAS":1,"SRC":2,"ALT":%.0f})", aircraft.selected_altitude_ft);
    derived.add(R"("BVR":%.2f,"RAN":%.2f)", aircraft.vertical_rate_ft_min, aircraft.bank_deg);
    derived.add(R"("TAR":{"TI":%u,"ROT":%.2f})", aircraft.bank_deg == 0 ? kStraight : curve, turn_rate_deg_s(aircraft));
    derived.add(R"("TAN":%.4f,"GS":%.6f)", angle_as_sent_deg(bearing_deg(velocity_kt)),
                length(velocity_kt) / kSecondsPerHour);
    derived.add(R"("BPS":{"BPS":%.1f})", kPressureAbove800Mb);
}

// COM: Comm. A and B (1), with an alert where the code says that there is an emergency (STAT 2).
void add_aircraft_derived(Json &record, const Aircraft &aircraft) {
    if (!has_mode_s(aircraft)) return;
    Json derived;
    derived.add(R"("ADR":"%06X","ID":"%s")", aircraft.address, aircraft.callsign.c_str());
    derived.add(R"("COM":{"COM":1,"STAT":%u,"SSC":%u,"ARC":1,"AIC":1,"B1A":0,"B1B":0})",
                emergency_status(aircraft) ? 2U : 0U, unsigned{has_registers(aircraft)});
    derived.add(R"("EMC":%u)", emitter_category(aircraft));
    if (has_registers(aircraft)) add_registers(derived, aircraft);
    record.add(R"("I245":{"STI":0,"CHR":"%s"})", aircraft.callsign.c_str());
    record.add_object("I380", derived);
}

// I062/080 is as long as there is something to say: the emergency in its fifth octet, coasting in its fourth.
void add_status(Json &record, const Track &track) {
    const Aircraft &aircraft = *track.aircraft;
    const bool is_coasting = measured_age_s(track) > kCoastingS;
    const unsigned emergency = emergency_status(aircraft);
    Json status;
    status.add(R"("MON":%u,"SPI":0,"MRH":0,"SRC":%u,"CNF":%u)", unsigned{!has_mode_s(aircraft)},
               unsigned{has_mode_s(aircraft)}, unsigned{track.is_tentative});
    status.add(R"("SIM":0,"TSE":0,"TSB":%u,"FPC":%u,"AFF":0,"STP":0,"KOS":1)", unsigned{track.is_first},
               unsigned{has_flight_plan(aircraft)});
    if (is_coasting || emergency) {
        status.add(R"("AMA":0,"MD4":0,"ME":0,"MI":0,"MD5":0)");
        status.add(R"("CST":%u,"PSR":%u,"SSR":%u,"MDS":%u,"ADS":0,"SUC":0,"AAC":0)", unsigned{is_coasting},
                   unsigned{is_coasting}, unsigned{is_coasting && has_code(aircraft)},
                   unsigned{is_coasting && has_mode_s(aircraft)});
    }
    if (emergency) status.add(R"("SDS":0,"EMS":%u,"PFT":0,"FPLT":%u)", emergency, unsigned{has_flight_plan(aircraft)});
    record.add_object("I080", status);
}

void add_ages(Json &record, const Track &track) {
    const Aircraft &aircraft = *track.aircraft;
    const double age_s = age_as_sent_s(measured_age_s(track));
    Json updates;
    Json data;
    updates.add(R"("PSR":%.2f)", age_s);
    if (has_code(aircraft)) {
        updates.add(R"("SSR":%.2f)", age_s);
        data.add(R"("MFL":%.2f,"MDA":%.2f)", age_s, age_s);
    }
    if (has_mode_s(aircraft))
        updates.add(R"("MDS":%.2f,"ES":%.2f)", age_s, age_as_sent_s(track.time_s - track.squitter_s));
    if (has_registers(aircraft)) data.add(R"("MHG":%.2f,"IAS":%.2f,"SAL":%.2f,"GSP":%.2f)", age_s, age_s, age_s, age_s);
    record.add_object("I290", updates);
    if (has_code(aircraft)) record.add_object("I295", data);
}

// I062/200: to the right (1) or left (2), climbing (1) or descending (2).
void add_mode_of_movement(Json &record, const Aircraft &aircraft) {
    const unsigned curve = aircraft.bank_deg > 0 ? 1 : 2;
    const unsigned slope = aircraft.vertical_rate_ft_min > 0 ? 1 : 2;
    record.add(R"("I200":{"TRANS":%u,"LONG":0,"VERT":%u,"ADF":0})", aircraft.bank_deg == 0 ? 0 : curve,
               aircraft.vertical_rate_ft_min == 0 ? 0 : slope);
}

// Nothing is known of the height of what only primary radar sees.
void add_altitudes(Json &record, const Track &track) {
    const Aircraft &aircraft = *track.aircraft;
    if (!has_code(aircraft)) return;
    record.add(R"("I136":%.2f)", track.measured.altitude_ft / kFtPerLevel);
    if (has_mode_s(aircraft)) record.add(R"("I130":%.2f)", geometric_altitude_ft(aircraft));
    record.add(R"("I135":{"QNH":0,"CTB":%.2f})", aircraft.altitude_ft / kFtPerLevel);
    record.add(R"("I220":%.2f)", aircraft.vertical_rate_ft_min);
}

void add_flight_plan(Json &record, const Aircraft &aircraft) {
    if (!has_flight_plan(aircraft)) return;
    constexpr uint64_t kFirstPlan = 4100;
    const Type &type = type_of(aircraft);
    Json plan;
    plan.add(R"("TAG":{"SAC":%u,"SIC":%u},"CS":"%s")", unsigned{kTrackerSac}, kFlightPlanSystemSic,
             aircraft.callsign.c_str());
    plan.add(R"("IFI":{"TYP":0,"NBR":%u})", static_cast<unsigned>(kFirstPlan + aircraft.serial));
    plan.add(R"("FCT":{"GATOAT":1,"FR1FR2":0,"RVSM":1,"HPR":0})");
    plan.add(R"("TAC":"%s","WTC":"%c")", type.name, type.wake);
    plan.add(R"("DEP":"%s","DST":"%s")", airport(aircraft.serial), airport(aircraft.serial + 3));
    plan.add(R"("CFL":%.2f)", aircraft.selected_altitude_ft / kFtPerLevel);
    record.add_object("I390", plan);
    record.add(R"("I270":{"LENGTH":%u,"ORIENTATION":%.4f,"WIDTH":%u})", type.length_m,
               angle_as_sent_deg(aircraft.heading_deg, 1U << 7), type.width_m);
}

// A report grows old, and the track with it.
void add_accuracies(Json &record, const Track &track) {
    const double position_m = 40 + 15 * measured_age_s(track);
    const double velocity_m_s = 1.5 + measured_age_s(track) / 4;
    Json accuracies;
    accuracies.add(R"("APC":{"X":%.1f,"Y":%.1f})", position_m, position_m);
    accuracies.add(R"("ATV":{"X":%.2f,"Y":%.2f})", age_as_sent_s(velocity_m_s), age_as_sent_s(velocity_m_s));
    record.add_object("I500", accuracies);
}

// What comes from the western neighbour keeps the number that it had there, as a slave track.
void add_composed_number(Json &record, const Track &track) {
    constexpr unsigned kUnit = 1;
    constexpr unsigned kNeighbour = 2;
    constexpr double kBorderNm = -80;
    constexpr uint32_t kNumbersApart = 1200;
    if (track.aircraft->position_nm.east >= kBorderNm) return;
    record.add(R"("I510":[{"IDENT":%u,"TRACK":%u},{"IDENT":%u,"TRACK":%u}])", kUnit, track.number, kNeighbour,
               track.number + kNumbersApart);
}

// I062/340 TYP: primary (1), secondary with primary (3), or Mode S roll-call with primary (7).
unsigned report_type(const Aircraft &aircraft) {
    if (has_mode_s(aircraft)) return 7;
    return has_code(aircraft) ? 3 : 1;
}

void add_measurement(Json &record, const Track &track) {
    const Aircraft &aircraft = *track.aircraft;
    const Measurement &measured = track.measured;
    Json report;
    report.add(R"("SID":{"SAC":%u,"SIC":%u})", unsigned{kTrackerSac}, kRadarSic);
    report.add(R"("POS":{"RHO":%.4f,"THETA":%.4f})", measured.rho_nm, angle_as_sent_deg(measured.theta_deg));
    if (has_code(aircraft)) {
        report.add(R"("MDC":{"V":0,"G":0,"LMC":%.2f})", measured.altitude_ft / kFtPerLevel);
        report.add(R"("MDA":{"V":0,"G":0,"L":0,"MODE3A":"%04o"})", aircraft.code);
    }
    report.add(R"("TYP":{"TYP":%u,"SIM":0,"RAB":0,"TST":0})", report_type(aircraft));
    record.add_object("I340", report);
}

// ---- Category 065 ----

Json service_message(unsigned message_type, double time_s) {
    Json record;
    record.add(R"("category":65,"I010":{"SAC":%u,"SIC":%u},"I000":%u,"I015":%u,"I030":%.7f)", unsigned{kTrackerSac},
               unsigned{kTrackerSic}, message_type, kService, std::fmod(time_s, kSecondsPerDay));
    return record;
}

} // namespace

Octets encode_track(const Track &track) {
    const Aircraft &aircraft = *track.aircraft;
    Json record;
    add_source(record, track.time_s);
    add_position(record, aircraft);
    add_movement(record, aircraft);
    add_code(record, aircraft);
    add_aircraft_derived(record, aircraft);
    record.add(R"("I040":%u)", track.number);
    add_status(record, track);
    add_ages(record, track);
    add_mode_of_movement(record, aircraft);
    add_altitudes(record, track);
    add_flight_plan(record, aircraft);
    add_accuracies(record, track);
    add_composed_number(record, track);
    add_measurement(record, track);
    return encode(record);
}

Octets encode_track_end(uint32_t number, double time_s) {
    Json record;
    add_source(record, time_s);
    record.add(R"("I040":%u,"I080":{"MON":0,"SPI":0,"MRH":0,"SRC":0,"CNF":0,)"
               R"("SIM":0,"TSE":1,"TSB":0,"FPC":0,"AFF":0,"STP":0,"KOS":1})",
               number);
    return encode(record);
}

Octets encode_status(double time_s) {
    constexpr unsigned kStatus = 1;
    Json record = service_message(kStatus, time_s);
    record.add(R"("I040":{"NOGO":0,"OVL":0,"TSV":0,"PSS":1,"STTN":0})");
    return encode(record);
}

Octets encode_end_of_batch(double time_s, uint32_t batch) {
    constexpr unsigned kEndOfBatch = 2;
    Json record = service_message(kEndOfBatch, time_s);
    record.add(R"("I020":%u)", batch);
    return encode(record);
}

} // namespace simulation
