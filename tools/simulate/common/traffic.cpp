#include "traffic.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace simulation {

namespace {

constexpr double kRadPerDeg = std::numbers::pi / 180;
constexpr double kSecondsPerHour = 3600;
constexpr double kSecondsPerMinute = 60;

constexpr Performance kAirliner{380, 480, 24000, 39000, 2400, 250};
constexpr Performance kArrival{180, 260, 4000, 14000, 1800, 60};
constexpr Performance kLight{90, 140, 1500, 6500, 700, 70};

// An operator and the block of aircraft addresses of its country.
struct Operator {
    const char *code;
    uint32_t first_address;
};

constexpr Operator kAirlines[] = {
    {"AFR", 0x380000}, {"AUA", 0x440000}, {"BAW", 0x400000}, {"CSA", 0x498000}, {"DLH", 0x3C0000}, {"KLM", 0x480000},
    {"LOT", 0x488000}, {"RYR", 0x4CA000}, {"SAS", 0x4A8000}, {"SWR", 0x4B0000}, {"THY", 0x4B8000}, {"UAE", 0x896000},
};

// Registrations of light aircraft begin with the nationality mark.
constexpr Operator kRegistrations[] = {{"D", 0x3C0000}, {"OE", 0x440000}, {"OK", 0x498000}, {"SP", 0x488000}};

constexpr uint32_t kAddressesUsed = 0x1000; // fits the smallest of the blocks above

constexpr uint32_t kCodeRadioFailure = 07600;
constexpr uint32_t kCodeEmergency = 07700;
constexpr uint32_t kCodeModeS = 01000;
constexpr uint32_t kCodeVfr = 07000;
constexpr uint32_t kCodeEntering = 02000;
constexpr uint32_t kFirstDiscreteCode = 02101;
constexpr uint32_t kDiscreteCodes = 04000;

std::string letters(Random &random, unsigned count) {
    std::string text;
    while (text.size() < count) text += static_cast<char>('A' + random.below(26));
    return text;
}

uint32_t pick_code(Random &random, bool is_light, bool mode_s) {
    if (random.chance(0.02)) return kCodeEmergency;
    if (random.chance(0.02)) return kCodeRadioFailure;
    if (is_light) return kCodeVfr;
    if (random.chance(0.1)) return kCodeEntering;
    if (mode_s && random.chance(0.3)) return kCodeModeS;
    return kFirstDiscreteCode + static_cast<uint32_t>(random.below(kDiscreteCodes));
}

Transponder pick_transponder(Random &random, bool is_light) {
    static constexpr Transponder kLightOnes[] = {Transponder::none, Transponder::mode_a_c, Transponder::mode_a_c,
                                                 Transponder::mode_s_elementary};
    if (is_light) return random.pick(kLightOnes);
    if (random.chance(0.08)) return Transponder::mode_a_c;
    return random.chance(0.85) ? Transponder::mode_s_enhanced : Transponder::mode_s_elementary;
}

const Performance &pick_performance(Random &random) {
    static constexpr const Performance *kMix[] = {&kAirliner, &kAirliner, &kAirliner, &kArrival, &kLight};
    return *random.pick(kMix);
}

void identify(Aircraft &aircraft, Random &random) {
    const bool is_light = aircraft.performance == &kLight;
    const Operator &owner = is_light ? random.pick(kRegistrations) : random.pick(kAirlines);
    aircraft.transponder = pick_transponder(random, is_light);
    aircraft.address = owner.first_address + static_cast<uint32_t>(random.below(kAddressesUsed));
    aircraft.code = pick_code(random, is_light, has_mode_s(aircraft));
    aircraft.callsign = owner.code;
    aircraft.callsign += is_light ? letters(random, 5 - static_cast<unsigned>(aircraft.callsign.size()))
                                  : std::to_string(1 + random.below(9999));
}

// Heights are flown in whole thousands of feet.
double pick_level_ft(const Performance &performance, Random &random) {
    return 1000 * std::round(random.between(performance.lowest_ft, performance.highest_ft) / 1000);
}

void begin_turn(Aircraft &aircraft, Random &random) {
    const double bank_deg = random.between(15, 25);
    aircraft.bank_deg = random.chance(0.5) ? bank_deg : -bank_deg;
    aircraft.manoeuvre_s = random.between(15, 80);
}

void change_level(Aircraft &aircraft, Random &random) {
    const double rate_ft_min = aircraft.performance->climb_ft_min * random.between(0.4, 1);
    aircraft.selected_altitude_ft = pick_level_ft(*aircraft.performance, random);
    aircraft.vertical_rate_ft_min = aircraft.selected_altitude_ft < aircraft.altitude_ft ? -rate_ft_min : rate_ft_min;
    aircraft.manoeuvre_s = random.between(60, 300);
}

void fly_on(Aircraft &aircraft, Random &random) {
    aircraft.bank_deg = 0;
    aircraft.manoeuvre_s = random.between(30, 240);
}

void begin_manoeuvre(Aircraft &aircraft, Random &random) {
    static constexpr decltype(&fly_on) kManoeuvres[] = {fly_on, fly_on, fly_on, begin_turn, change_level};
    fly_on(aircraft, random);
    random.pick(kManoeuvres)(aircraft, random);
}

Ground polar(double distance, double direction_deg) {
    return {distance * std::sin(direction_deg * kRadPerDeg), distance * std::cos(direction_deg * kRadPerDeg)};
}

Aircraft create(uint64_t serial, Random &random) {
    Aircraft aircraft;
    aircraft.serial = serial;
    aircraft.performance = &pick_performance(random);
    identify(aircraft, random);
    aircraft.airspeed_kt = random.between(aircraft.performance->slowest_kt, aircraft.performance->fastest_kt);
    aircraft.altitude_ft = pick_level_ft(*aircraft.performance, random);
    aircraft.selected_altitude_ft = aircraft.altitude_ft;
    return aircraft;
}

// One that is there when the recording begins, in the middle of something.
Aircraft start_within_reach(uint64_t serial, Random &random) {
    Aircraft aircraft = create(serial, random);
    const double distance_nm = aircraft.performance->reach_nm * std::sqrt(random.between(0.01, 0.8));
    aircraft.position_nm = polar(distance_nm, random.between(0, 360));
    aircraft.heading_deg = random.between(0, 360);
    begin_manoeuvre(aircraft, random);
    return aircraft;
}

// One that comes in at the edge, flying roughly towards the sensor.
Aircraft enter_at_edge(uint64_t serial, Random &random) {
    Aircraft aircraft = create(serial, random);
    const double direction_deg = random.between(0, 360);
    aircraft.position_nm = polar(aircraft.performance->reach_nm, direction_deg);
    aircraft.heading_deg = std::fmod(direction_deg + 180 + random.error(40) + 360, 360);
    fly_on(aircraft, random);
    return aircraft;
}

// A westerly wind that grows with height.
Ground wind_kt(double altitude_ft) { return {10 + altitude_ft / 1000, 0}; }

void climb(Aircraft &aircraft, double seconds) {
    const double step_ft = aircraft.vertical_rate_ft_min * seconds / kSecondsPerMinute;
    if (std::abs(aircraft.selected_altitude_ft - aircraft.altitude_ft) > std::abs(step_ft)) {
        aircraft.altitude_ft += step_ft;
    } else {
        aircraft.altitude_ft = aircraft.selected_altitude_ft;
        aircraft.vertical_rate_ft_min = 0;
    }
}

// Straight on for the time given, then with a new heading.
void fly(Aircraft &aircraft, double seconds) {
    climb(aircraft, seconds);
    const Ground velocity_kt = ground_velocity_kt(aircraft);
    aircraft.position_nm.east += velocity_kt.east * seconds / kSecondsPerHour;
    aircraft.position_nm.north += velocity_kt.north * seconds / kSecondsPerHour;
    aircraft.heading_deg = std::fmod(aircraft.heading_deg + turn_rate_deg_s(aircraft) * seconds + 360, 360);
    aircraft.manoeuvre_s -= seconds;
}

// The standard atmosphere up to 36000 ft, which is close enough above.
double temperature_ratio(double altitude_ft) { return 1 - 6.8756e-6 * altitude_ft; }

} // namespace

bool has_mode_s(const Aircraft &aircraft) { return aircraft.transponder >= Transponder::mode_s_elementary; }

Ground ground_velocity_kt(const Aircraft &aircraft) {
    const Ground air_kt = polar(aircraft.airspeed_kt, aircraft.heading_deg);
    const Ground wind = wind_kt(aircraft.altitude_ft);
    return {air_kt.east + wind.east, air_kt.north + wind.north};
}

// Of a coordinated turn.
double turn_rate_deg_s(const Aircraft &aircraft) {
    constexpr double kGravityMPerS2 = 9.80665;
    constexpr double kMPerSPerKt = 1852 / kSecondsPerHour;
    return kGravityMPerS2 * std::tan(aircraft.bank_deg * kRadPerDeg) / (aircraft.airspeed_kt * kMPerSPerKt) /
           kRadPerDeg;
}

double mach(const Aircraft &aircraft) {
    constexpr double kSpeedOfSoundKt = 661.47;
    return aircraft.airspeed_kt / (kSpeedOfSoundKt * std::sqrt(temperature_ratio(aircraft.altitude_ft)));
}

double indicated_airspeed_kt(const Aircraft &aircraft) {
    constexpr double kDensityExponent = 4.2561;
    return aircraft.airspeed_kt * std::sqrt(std::pow(temperature_ratio(aircraft.altitude_ft), kDensityExponent));
}

double magnetic_heading_deg(const Aircraft &aircraft) {
    constexpr double kMagneticVariationDeg = 4; // east
    return std::fmod(aircraft.heading_deg - kMagneticVariationDeg + 360, 360);
}

double geometric_altitude_ft(const Aircraft &aircraft) { return aircraft.altitude_ft * 1.02 + 300; }

uint32_t emitter_category(const Aircraft &aircraft) {
    constexpr double kHeavyKt = 430;
    if (aircraft.performance == &kLight) return kLightAircraft;
    return aircraft.airspeed_kt < kHeavyKt ? kMediumAircraft : kHeavyAircraft;
}

uint32_t emergency_status(const Aircraft &aircraft) {
    if (aircraft.code == kCodeEmergency) return kGeneralEmergency;
    return aircraft.code == kCodeRadioFailure ? kNoCommunications : 0;
}

Ground position_after_nm(const Aircraft &aircraft, double seconds) {
    const double hours = seconds / kSecondsPerHour;
    const Ground velocity_kt = ground_velocity_kt(aircraft);
    return {aircraft.position_nm.east + velocity_kt.east * hours,
            aircraft.position_nm.north + velocity_kt.north * hours};
}

// On a sphere where a minute of latitude is a mile, close enough around the sensor.
Geographic geographic(const Ground &position_nm) {
    constexpr double kLatitudeDeg = 50;
    constexpr double kLongitudeDeg = 14.25;
    const double circle = std::cos(kLatitudeDeg * kRadPerDeg);
    return {kLatitudeDeg + position_nm.north / 60, kLongitudeDeg + position_nm.east / 60 / circle};
}

double slant_range_nm(const Ground &position_nm, double altitude_ft) {
    constexpr double kFtPerNm = 1852 / 0.3048;
    return std::hypot(length(position_nm), altitude_ft / kFtPerNm);
}

// Radio waves follow the curve of the earth a little.
double line_of_sight_nm(double altitude_ft, double antenna_height_ft) {
    constexpr double kNmPerRootFt = 1.23;
    return kNmPerRootFt * (std::sqrt(altitude_ft) + std::sqrt(antenna_height_ft));
}

double length(const Ground &vector) { return std::hypot(vector.east, vector.north); }

double bearing_deg(const Ground &vector) {
    const double angle_deg = std::atan2(vector.east, vector.north) / kRadPerDeg;
    return angle_deg < 0 ? std::fmod(angle_deg + 360, 360) : angle_deg;
}

Traffic::Traffic(Random &random, uint64_t count) : random_(random) {
    while (aircraft_.size() < count) aircraft_.push_back(start_within_reach(next_serial_++, random_));
}

void Traffic::advance(double seconds) {
    for (Aircraft &aircraft : aircraft_) {
        fly(aircraft, seconds);
        if (length(aircraft.position_nm) > aircraft.performance->reach_nm)
            aircraft = enter_at_edge(next_serial_++, random_);
        else if (aircraft.manoeuvre_s <= 0)
            begin_manoeuvre(aircraft, random_);
    }
}

} // namespace simulation
