// The aircraft around a sensor: who they are, where they are, and how they fly.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "random.hpp"

namespace simulation {

enum class Transponder {
    none,              // seen by primary radar only
    mode_a_c,          // code and height
    mode_s_elementary, // address, identification and heights in steps of 25 ft as well
    mode_s_enhanced,   // registers 4,0 5,0 and 6,0 as well
};

// How a kind of aircraft flies, and how far from the sensor.
struct Performance {
    double slowest_kt;
    double fastest_kt;
    double lowest_ft;
    double highest_ft;
    double climb_ft_min;
    double reach_nm;
};

// A vector on the ground, seen from the sensor: miles or knots.
struct Ground {
    double east = 0;
    double north = 0;
};

struct Aircraft {
    uint64_t serial = 0; // counts all aircraft that ever entered
    const Performance *performance = nullptr;
    Transponder transponder = Transponder::none;
    uint32_t address = 0; // 24 bits
    uint32_t code = 0;    // Mode 3/A
    std::string callsign;

    Ground position_nm;
    double altitude_ft = 0;
    double selected_altitude_ft = 0;
    double vertical_rate_ft_min = 0;
    double heading_deg = 0; // true
    double airspeed_kt = 0; // true
    double bank_deg = 0;    // right wing down positive
    double manoeuvre_s = 0; // until it does something else
};

bool has_mode_s(const Aircraft &aircraft);

// The way over ground in knots: through the air, and with the wind.
Ground ground_velocity_kt(const Aircraft &aircraft);
double turn_rate_deg_s(const Aircraft &aircraft);
double mach(const Aircraft &aircraft);
double indicated_airspeed_kt(const Aircraft &aircraft);
double magnetic_heading_deg(const Aircraft &aircraft);

// The air pressure of the day is high, so that geometric altitudes are above those that barometers show.
double geometric_altitude_ft(const Aircraft &aircraft);

// The codes that categories 021 and 062 share, as in I021/020 and I021/200.
constexpr uint32_t kLightAircraft = 1;
constexpr uint32_t kMediumAircraft = 3;
constexpr uint32_t kHeavyAircraft = 5;
constexpr uint32_t kGeneralEmergency = 1;
constexpr uint32_t kNoCommunications = 4;
uint32_t emitter_category(const Aircraft &aircraft);
uint32_t emergency_status(const Aircraft &aircraft); // 0 for none

// Where an aircraft is so many seconds later, when it flies straight on; before, when they are negative.
Ground position_after_nm(const Aircraft &aircraft, double seconds);

// Of a place around the sensor.
struct Geographic {
    double latitude_deg;
    double longitude_deg;
};
Geographic geographic(const Ground &position_nm);

// From the ground at the sensor.
double slant_range_nm(const Ground &position_nm, double altitude_ft);

// How far it is to the horizon of an antenna for something in the air.
double line_of_sight_nm(double altitude_ft, double antenna_height_ft);

double length(const Ground &vector);

// Clockwise from north, [0, 360).
double bearing_deg(const Ground &vector);

class Traffic {
public:
    Traffic(Random &random, uint64_t count);

    // Moves all aircraft. One that leaves its reach is replaced by a new one that enters there.
    void advance(double seconds);

    const std::vector<Aircraft> &aircraft() const { return aircraft_; }

private:
    Random &random_;
    std::vector<Aircraft> aircraft_;
    uint64_t next_serial_ = 1;
};

} // namespace simulation
