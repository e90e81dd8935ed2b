// What the plan of the page shows of a record, by the published reading of its items, whatever its category.
#pragma once

#include <ast.h>
#include <cstdint>
#include <optional>
#include <string>

namespace ast::recording::astdump {

struct PlanPair {
    std::optional<double> first;
    std::optional<double> second;

    bool is_whole() const { return first && second; }
};

struct PlanValues {
    std::optional<uint32_t> source; // SAC × 256 + SIC
    std::optional<double> time_s;   // of the record, or else of its position, since midnight
    std::optional<double> position_time_s;
    std::optional<double> truncated_time_s; // modulo 512 s, as category 001 has it
    PlanPair wgs84;                         // latitude and longitude in degrees
    PlanPair polar;                         // range in NM and azimuth in degrees
    PlanPair cartesian;                     // east and north in NM
    PlanPair station;                       // where the data source itself stands, as `wgs84`
    std::optional<double> level;            // in hundreds of feet, or else the height
    std::optional<double> height;
    std::optional<uint32_t> code; // Mode 3/A
    std::optional<uint32_t> address;
    std::optional<uint32_t> track;
    std::string callsign;
};

PlanValues plan_values(const ast_datarecord_t &record);

} // namespace ast::recording::astdump
