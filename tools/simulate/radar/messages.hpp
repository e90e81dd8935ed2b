// What the radar says, as encoded records: service messages in category 034 and target reports in category 048.
#pragma once

#include <optional>

#include "common/splice.hpp"
#include "common/traffic.hpp"

namespace simulation {

constexpr uint8_t kRadarSac = 25;
constexpr uint8_t kRadarSic = 12;

constexpr uint8_t kServiceMessages = 34;
constexpr uint8_t kTargetReports = 48;

constexpr double kRotationPeriodS = 4;
constexpr unsigned kSectors = 32;
constexpr double kSectorDeg = 360.0 / kSectors;
constexpr double kSectorS = kRotationPeriodS / kSectors;

// What the radar measured when its beam passed over something.
struct Plot {
    double time_s; // since midnight of the first day
    double slant_range_nm;
    double azimuth_deg;
    bool seen_by_primary;
    bool answered;                        // by the transponder
    bool all_call;                        // to the question to all, asked before the address is known
    std::optional<uint32_t> track_number; // none while it is only a plot
    const Aircraft *aircraft;             // null for a false plot
};

Octets encode_north_marker(double time_s);
Octets encode_sector_crossing(double time_s, unsigned sector);
Octets encode_target_report(const Plot &plot);

} // namespace simulation
