// What the tracker says, as encoded records: tracks in category 062, service messages in category 065.
#pragma once

#include "common/splice.hpp"
#include "common/traffic.hpp"

namespace simulation {

constexpr uint8_t kTrackerSac = 25;
constexpr uint8_t kTrackerSic = 10;

constexpr uint8_t kTracks = 62;
constexpr uint8_t kServiceMessages = 65;

// The last report of the radar, as it went into the track.
struct Measurement {
    double time_s; // since midnight of the first day, as all times
    double rho_nm;
    double theta_deg;
    double altitude_ft; // of the barometer
};

// What the tracker knows of an aircraft when it sends the track.
struct Track {
    uint32_t number;
    double time_s;
    bool is_first; // message of the track
    bool is_tentative;
    double squitter_s; // when its position was last received by ADS-B; used for those with Mode S
    Measurement measured;
    const Aircraft *aircraft;
};

Octets encode_track(const Track &track);

// The last message of a track, whose aircraft is gone.
Octets encode_track_end(uint32_t number, double time_s);

Octets encode_status(double time_s);
Octets encode_end_of_batch(double time_s, uint32_t batch);

} // namespace simulation
