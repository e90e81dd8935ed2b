// What the station says, as encoded target reports in category 021.
#pragma once

#include <optional>

#include "common/splice.hpp"
#include "common/traffic.hpp"

namespace simulation {

constexpr uint8_t kStationSac = 25;
constexpr uint8_t kStationSic = 20;

constexpr uint8_t kAdsbReports = 21;

enum class Edition { ed0_23, ed2_1 };

// The profile that an edition is read by.
const ast_uap_t &profile_of(Edition edition);

// What the station knows of an aircraft when it reports it.
struct Report {
    double received_s; // the position; all times since midnight of the first day
    double sent_s;
    Geographic position;
    bool has_velocity;                  // received in the same second
    std::optional<double> identified_s; // when identification and code were last received; none if never
    uint32_t track_number;
    const Aircraft *aircraft;
};

Octets encode_report(const Report &report, Edition edition);

} // namespace simulation
