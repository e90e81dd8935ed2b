// Mode S registers, field by field: ICAO Doc 9871, bits 1 to 56 in their order.

#include "schema/write.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto kPosition = group("BDS05", "Extended squitter airborne position",
    integer("FTC", "Format type code", 5),
    code("SS", "Surveillance status", 2,
        "No condition|Permanent alert condition|Temporary alert condition|SPI condition"),
    integer("SAF", "Single antenna flag, or NIC supplement-B", 1),
    raw("ALT", "Altitude code, less its M bit", 12),
    code("T", "Time synchronization", 1, "Not synchronized to UTC|Synchronized to UTC"),
    code("F", "CPR format", 1, "Even|Odd"),
    integer("LAT", "CPR-encoded latitude", 17),
    integer("LON", "CPR-encoded longitude", 17));

constexpr auto kIdentificationAndCategory = group("BDS08", "Extended squitter aircraft identification and category",
    integer("FTC", "Format type code", 5),
    integer("EC", "Emitter category", 3),
    icao("ID", "Aircraft identification", 48));

consteval auto ground_velocity(Step step) {
    return group("", "",
        code("EW_DIR", "Direction of the east-west velocity", 1, "East|West"),
        quantity_or_none("EW", "East-west velocity", 10, step, "kt"),
        code("NS_DIR", "Direction of the north-south velocity", 1, "North|South"),
        quantity_or_none("NS", "North-south velocity", 10, step, "kt"));
}

consteval auto air_velocity(Step step) {
    return group("", "",
        status(), quantity("HDG", "Magnetic heading", 10, {360, 1024}, "°"),
        code("AS_TYPE", "Airspeed type", 1, "Indicated airspeed|True airspeed"),
        quantity_or_none("AS", "Airspeed", 10, step, "kt"));
}

// The subtype tells how its middle reads; what stands between the two is the same for all.
consteval auto velocity(Step step) {
    return group("", "",
        code("IC", "Intent change flag", 1, "No change in intent|Intent change"),
        integer("IFR", "IFR capability flag", 1),
        integer("NACV", "Navigation accuracy category for velocity", 3),
        ground_velocity(step));
}

consteval auto airspeed(Step step) {
    return group("", "",
        code("IC", "Intent change flag", 1, "No change in intent|Intent change"),
        integer("IFR", "IFR capability flag", 1),
        integer("NACV", "Navigation accuracy category for velocity", 3),
        air_velocity(step));
}

constexpr auto kVelocity = group("BDS09", "Extended squitter airborne velocity",
    integer("FTC", "Format type code", 5),
    code("SUBTYPE", "Subtype", 3,
        "1:Ground speed, subsonic|Ground speed, supersonic|Airspeed and heading, subsonic|Airspeed and heading, supersonic"),
    either("VELOCITY", "Velocity of a subtype that is not defined", 27,
        when(1, velocity({1, 1})),
        when(2, velocity({4, 1})),
        when(3, airspeed({1, 1})),
        when(4, airspeed({4, 1}))),
    code("VR_SOURCE", "Source of the vertical rate", 1, "Geometric|Barometric"),
    code("VR_SIGN", "Sign of the vertical rate", 1, "Up|Down"),
    quantity_or_none("VR", "Vertical rate", 9, {64, 1}, "ft/min"),
    raw("TURN", "Turn indicator", 2),
    code("DIFF_SIGN", "Geometric height against barometric altitude", 1, "Above|Below"),
    quantity_or_none("DIFF", "Difference of geometric height from barometric altitude", 7, {25, 1}, "ft"));

constexpr auto kDataLinkCapability = group("BDS10", "Data link capability report",
    raw("CODE", "BDS code", 8),
    integer("CONT", "Continuation flag", 1),
    spare(5),
    integer("OCC", "Overlay command capability", 1),
    integer("ACAS", "ACAS operational", 1),
    integer("VERSION", "Mode S subnetwork version number", 7),
    code("EPI", "Transponder enhanced protocol indicator", 1, "Level 2 to 4 transponder|Level 5 transponder"),
    code("SPEC", "Mode S specific services capability", 1, "No|Yes"),
    code("UELM", "Uplink ELM average throughput capability", 3,
        "No UELM capability|16 UELM segments in 1 second|16 UELM segments in 500 ms|16 UELM segments in 250 ms|"
        "16 UELM segments in 125 ms|16 UELM segments in 60 ms|16 UELM segments in 30 ms"),
    code("DELM", "Downlink ELM throughput capability", 4,
        "No DELM capability|One 4 segment DELM every second|One 8 segment DELM every second|"
        "One 16 segment DELM every second|One 16 segment DELM every 500 ms|One 16 segment DELM every 250 ms|"
        "One 16 segment DELM every 125 ms"),
    code("AIC", "Aircraft identification capability", 1, "No|Yes"),
    integer("SCS", "Squitter capability subfield", 1),
    code("SIC", "Surveillance identifier code capability", 1, "No surveillance identifier code capability|"
        "Surveillance identifier code capability"),
    integer("GICB", "Common usage GICB capability report toggle", 1),
    raw("ACAS_CAP", "Reserved for ACAS", 4),
    raw("DTE", "Support status of DTE sub-addresses 0 to 15", 16));

constexpr auto kIdentification = group("BDS20", "Aircraft identification",
    raw("CODE", "BDS code", 8),
    icao("ID", "Aircraft identification", 48));

constexpr auto kResolutionAdvisory = group("BDS30", "ACAS active resolution advisory",
    raw("CODE", "BDS code", 8),
    raw("ARA", "Active resolution advisories", 14),
    raw("RAC", "Resolution advisory complements record", 4),
    code("RAT", "Resolution advisory terminated", 1, "Active|Terminated"),
    code("MTE", "Multiple threat encounter", 1, "One threat, or none|Two or more threats"),
    code("TTI", "Threat type indicator", 2, "No identity data|Mode S address|Altitude, range and bearing"),
    either("TID", "Threat identity data", 26,
        when(1, group("", "",
            raw("ADDRESS", "Mode S address of the threat", 24),
            spare(2))),
        when(2, group("", "",
            raw("TIDA", "Altitude of the threat, as a Mode C code", 13),
            raw("TIDR", "Range of the threat, as a code", 7),
            raw("TIDB", "Bearing of the threat, as a code", 6)))));

constexpr auto kSelectedVerticalIntention = group("BDS40", "Selected vertical intention",
    status(), quantity("MCP_ALT", "MCP/FCU selected altitude", 12, {16, 1}, "ft"),
    status(), quantity("FMS_ALT", "FMS selected altitude", 12, {16, 1}, "ft"),
    status(), quantity("BARO", "Barometric pressure setting", 12, {1, 10}, "mb", 800),
    spare(8),
    status(), group("", "",
        code("VNAV", "VNAV mode", 1, "Not active|Active"),
        code("ALT_HOLD", "Altitude hold mode", 1, "Not active|Active"),
        code("APPROACH", "Approach mode", 1, "Not active|Active")),
    spare(2),
    status(), code("SOURCE", "Target altitude source", 2,
        "Unknown|Aircraft altitude|FCU/MCP selected altitude|FMS selected altitude"));

constexpr auto kTrackAndTurn = group("BDS50", "Track and turn report",
    status(), signed_quantity("ROLL", "Roll angle", 10, {45, 256}, "°"),
    status(), signed_quantity("TRACK", "True track angle", 11, {90, 512}, "°"),
    status(), quantity("GS", "Ground speed", 10, {2, 1}, "kt"),
    status(), signed_quantity("TRACK_RATE", "Track angle rate", 10, {8, 256}, "°/s"),
    status(), quantity("TAS", "True airspeed", 10, {2, 1}, "kt"));

constexpr auto kHeadingAndSpeed = group("BDS60", "Heading and speed report",
    status(), signed_quantity("HDG", "Magnetic heading", 11, {90, 512}, "°"),
    status(), quantity("IAS", "Indicated airspeed", 10, {1, 1}, "kt"),
    status(), quantity("MACH", "Mach number", 10, {4, 1000}, ""),
    status(), signed_quantity("BARO_RATE", "Barometric altitude rate", 10, {32, 1}, "ft/min"),
    status(), signed_quantity("INERTIAL_RATE", "Inertial vertical velocity", 10, {32, 1}, "ft/min"));

// clang-format on

template <size_t N>
consteval Item at(uint8_t number, const Rows<N> &rows) { // BDS 4,0 is 0x40
    must(rows[0].bits == 56);
    return {number, rows.data()};
}

constexpr Item kRegisters[] = {
    at(0x05, kPosition),
    at(0x08, kIdentificationAndCategory),
    at(0x09, kVelocity),
    at(0x10, kDataLinkCapability),
    at(0x20, kIdentification),
    at(0x30, kResolutionAdvisory),
    at(0x40, kSelectedVerticalIntention),
    at(0x50, kTrackAndTurn),
    at(0x60, kHeadingAndSpeed),
};

// The places of registers by their numbers, counted from 1.
constexpr auto kPlaces = [] {
    std::array<uint8_t, 256> places{};
    for (size_t i = 0; i < std::size(kRegisters); ++i) places[kRegisters[i].number] = static_cast<uint8_t>(i + 1);
    return places;
}();

} // namespace

Found find_register_writer(uint32_t number) {
    const size_t place = number < kPlaces.size() ? kPlaces[number] : 0U;
    if (place == 0) return {};
    return {kRegisters[place - 1].field, &kWritersOf<kRegisters, true>[place - 1]};
}

const Field *find_register(uint32_t number) { return find_register_writer(number).field; }

} // namespace ast::schema
