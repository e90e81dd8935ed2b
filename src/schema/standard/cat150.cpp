// Category 150: MADAP Plan Server - Flight Data Message, edition 3.0.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Destination ID",
    raw("CEN", "Centre Identifier", 8),
    raw("POS", "Workstation Identifier", 8));

constexpr auto I020 = group("I020", "Source ID",
    raw("CEN", "Centre Identifier", 8),
    raw("POS", "Workstation Identifier", 8));

constexpr auto I030 = code("I030", "Message Type", 8,
    "1:Flight plan creation|Flight plan modification|Flight plan repetition|Manual flight plan deletion|"
    "Automatic flight plan deletion|Flight is beyond extraction area boundary|251:Short term conflict alert|"
    "Correlations|Decorrelations|Start of background loop|End of background loop");

constexpr auto I040 = raw("I040", "Plan Reference Number", 16);

constexpr auto I050 = ascii("I050", "Callsign", 56);

constexpr auto I060 = ascii("I060", "Present Mode 3A", 32);

constexpr auto I070 = ascii("I070", "Next Mode 3A", 32);

constexpr auto I080 = ascii("I080", "Departure Aerodrome", 32);

constexpr auto I090 = ascii("I090", "Destination Aerodrome", 32);

constexpr auto I100 = group("I100", "Type Flags",
    raw("GAT", "General Air Traffic", 1),
    raw("OAT", "Operational Air Traffic", 1),
    spare(3),
    raw("CPL", "Complete Flight Plan", 1),
    raw("SPN", "Short Flight Plan", 1),
    spare(1));

constexpr auto I110 = group("I110", "Status Flags",
    spare(1),
    raw("HLD", "Aircraft is in Hold State", 1),
    raw("RVQ", "Aircraft is RVSM Equipped", 1),
    raw("RVC", "Aircraft is RVSM Capable", 1),
    raw("RVX", "Aircraft is RVSM Exempted", 1),
    spare(3));

constexpr auto I120 = group("I120", "Aircraft Type",
    ascii("NOA", "Number of Aircraft", 16),
    ascii("TOA", "Type of Aircraft", 32),
    ascii("WT", "Wake Turbulence", 8));

constexpr auto I130 = ascii("I130", "Cleared Flight Level", 24);

constexpr auto I140 = repetitive("I140", "Route Points, Description",
    group("", "",
        code("T", "Route Point Type", 8,
            "1:P, point|B, point with bearing and distance|LS, latitude/longitude position short format|"
            "LL, latitude/longitude position long format|X, x/y co-ordinate position|G, georeference position|"
            "14:E, airport"),
        ascii("E", "Route Point Description Element", 88)));

constexpr auto I150 = repetitive("I150", "Route Points, Coordinates",
    group("", "",
        signed_quantity("X", "X Co-ordinate", 16, {1, 1U << 6}, "NM"),
        signed_quantity("Y", "Y Co-ordinate", 16, {1, 1U << 6}, "NM")));

constexpr auto I151 = repetitive("I151", "Route Points, Geographic Position",
    group("", "",
        signed_quantity("LAT", "Latitude in WGS.84 in Two's Complement Form", 24, {180, 1U << 23}, "°"),
        signed_quantity("LON", "Longitude in WGS.84 in Two's Complement Form", 24, {180, 1U << 23}, "°")));

constexpr auto I160 = repetitive("I160", "Route Points, Time",
    group("", "",
        ascii("HH", "Hours", 16),
        ascii("MM", "Minutes", 16)));

constexpr auto I170 = repetitive("I170", "Route Points, Flight Level",
    ascii("", "", 24));

constexpr auto I171 = repetitive("I171", "Route Points, Requested Flight Level",
    ascii("", "", 24));

constexpr auto I180 = repetitive("I180", "Route Points, Speed",
    ascii("", "", 32));

constexpr auto I190 = ascii("I190", "Controller ID", 16);

constexpr auto I200 = repetitive("I200", "Field 18",
    ascii("", "", 8));

constexpr auto I210 = raw("I210", "Correlated Track Number", 16);

constexpr auto I220 = integer("I220", "Maximum Plan Count", 16);

constexpr auto I230 = integer("I230", "Number of Plans", 16);

constexpr auto I240 = repetitive("I240", "Newly Correlated Plans",
    group("", "",
        raw("PLAN", "Plan Number", 16),
        raw("TRACK", "Track Number", 16)));

constexpr auto I250 = repetitive("I250", "Newly De-correlated Plans",
    raw("", "", 16));

constexpr auto I251 = repetitive("I251", "Tracks in Conflict",
    group("", "",
        raw("TRACK1", "Track Number 1", 16),
        raw("TRACK2", "Track Number 2", 16)));

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(30, I030), item(40, I040), item(50, I050), item(60, I060), item(70, I070),
    item(80, I080), item(90, I090), item(100, I100), item(110, I110), item(120, I120), item(130, I130),
    item(140, I140), item(150, I150), item(151, I151), item(160, I160), item(170, I170), item(171, I171),
    item(180, I180), item(190, I190), item(200, I200), item(210, I210), item(220, I220), item(230, I230),
    item(240, I240), item(250, I250), item(251, I251),
};

constexpr uint16_t kProfile[] = {
    10, 20, 30, 40, 50, 60, 70,
    80, 90, 100, 110, 120, 130, 140,
    150, 160, 170, 180, 190, 200, 210,
    220, 230, 240, 250, 251, 171, 151,
};

// clang-format on

} // namespace

constinit const Edition kCat150 =
    edition<kItems>(150, "3.0", "MADAP Plan Server - Flight Data Message", profile(kProfile));

} // namespace ast::schema
