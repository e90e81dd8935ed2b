// Category 205: Radio Direction Finder Reports, edition 1.0.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "1:System Position Report|System Bearing Report|System Position Report of conflicting transmission|"
    "System Detection End Report|Sensor Data Report");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I030 = quantity("I030", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I040 = raw("I040", "Report Number", 8);

constexpr auto I050 = group("I050", "Position in WGS-84 Coordinates",
    signed_quantity("LAT", "Latitude in WGS-84", 32, {180, 1U << 25}, "°"),
    signed_quantity("LON", "Longitude in WGS-84", 32, {180, 1U << 25}, "°"));

constexpr auto I060 = group("I060", "Position in Cartesian Coordinates",
    signed_quantity("X", "X-coordinate", 24, {1, 2}, "m"),
    signed_quantity("Y", "Y-coordinate", 24, {1, 2}, "m"));

constexpr auto I070 = quantity("I070", "Local Bearing", 16, {1, 100}, "°");

constexpr auto I080 = quantity("I080", "System Bearing", 16, {1, 100}, "°");

constexpr auto I090 = ascii("I090", "Radio Channel Name", 56);

constexpr auto I100 = raw("I100", "Quality of Measurement", 8);

constexpr auto I110 = quantity("I110", "Estimated Uncertainty", 8, {100, 1}, "m");

constexpr auto I120 = repetitive("I120", "Contributing Sensors",
    raw("", "", 8));

constexpr auto I130 = group("I130", "Conflicting Transmitter Position in WGS-84 Coordinates",
    signed_quantity("LAT", "Latitude in WGS-84", 32, {180, 1U << 25}, "°"),
    signed_quantity("LON", "Longitude in WGS-84", 32, {180, 1U << 25}, "°"));

constexpr auto I140 = group("I140", "Conflicting Transmitter Position in Cartesian Coordinates",
    signed_quantity("X", "X-coordinate", 24, {1, 2}, "m"),
    signed_quantity("Y", "Y-coordinate", 24, {1, 2}, "m"));

constexpr auto I150 = quantity("I150", "Conflicting Transmitter Estimated Uncertainty", 8, {100, 1}, "m");

constexpr auto I160 = raw("I160", "Track Number", 16);

constexpr auto I170 = raw("I170", "Sensor Identification", 8);

constexpr auto I180 = signed_quantity("I180", "Signal Level", 16, {1, 100}, "dBµV");

constexpr auto I190 = raw("I190", "Signal Quality", 8);

constexpr auto I200 = signed_quantity("I200", "Signal Elevation", 16, {1, 100}, "°");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(30, I030), item(40, I040), item(50, I050), item(60, I060),
    item(70, I070), item(80, I080), item(90, I090), item(100, I100), item(110, I110), item(120, I120),
    item(130, I130), item(140, I140), item(150, I150), item(160, I160), item(170, I170), item(180, I180),
    item(190, I190), item(200, I200), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 15, 0, 30, 40, 90, 50,
    60, 70, 80, 100, 110, 120, 130,
    140, 150, 160, 170, 180, 190, 200,
    AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat205 = edition<kItems>(205, "1.0", "Radio Direction Finder Reports", profile(kProfile));

} // namespace ast::schema
