// Category 021: ADS-B Target Reports, edition 0.23.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identification",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = code("I020", "Emitter Category", 8,
    "1:Light aircraft <= 7000 kg|Reserved|7000 kg < Medium aircraft < 136000 kg|Reserved|"
    "136000 kg <= Heavy aircraft|"
    "Highly manoeuvrable (5g acceleration capability) and high speed (>400 knots cruise)|Reserved|Reserved|"
    "Reserved|Rotocraft|Glider / sailplane|Lighter-than-air|Unmanned aerial vehicle|"
    "Space / transatmospheric vehicle|Ultralight / handglider / paraglider|Parachutist / skydiver|Reserved|"
    "Reserved|Reserved|Surface emergency vehicle|Surface service vehicle|Fixed ground or tethered obstruction|"
    "Reserved|Reserved");

constexpr auto I030 = quantity("I030", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I032 = quantity("I032", "Time of Day Accuracy", 8, {1, 1U << 8}, "s");

constexpr auto I040 = group("I040", "Target Report Descriptor",
    code("DCR", "Differential Correction", 1, "No differential correction (ADS-B)|Differential correction (ADS-B)"),
    code("GBS", "Ground Bit Setting", 1, "Ground Bit not set|Ground Bit set"),
    code("SIM", "Simulated Target", 1, "Actual target report|Simulated target report"),
    code("TST", "Test Target", 1, "Default|Test Target"),
    code("RAB", "Report Type", 1, "Report from target transponder|Report from field monitor (fixed transponder)"),
    code("SAA", "Selected Altitude Available", 1,
        "Equipment capable to provide Selected Altitude|Equipment not capable to provide Selected Altitude"),
    code("SPI", "Special Position Identification", 1, "Absence of SPI|Special Position Identification"),
    spare(1),
    code("ATP", "Address Type", 3,
        "Non unique address|24-Bit ICAO address|Surface vehicle address|Anonymous address|"
        "Reserved for future use|Reserved for future use|Reserved for future use|Reserved for future use"),
    code("ARC", "Altitude Reporting Capability", 2, "Unknown|25 ft|100 ft"),
    spare(3));

constexpr auto I080 = raw("I080", "Target Address", 24);

constexpr auto I090 = group("I090", "Figure of Merit",
    code("AC", "ACAS Capabilities", 2, "Unknown|ACAS not operational|ACAS operartional|Invalid"),
    code("MN", "Multiple Navigation Aids", 2,
        "Unknown|Multiple Navigation not operational|Multiple Navigation operartional|Invalid"),
    code("DC", "Differential Correction", 2, "Unknown|Differential Correction|NO Differential Correction|Invalid"),
    spare(6),
    signed_quantity("PA", "Position Accuracy", 4, {1, 1}, ""));

constexpr auto I095 = raw("I095", "Velocity Accuracy", 8);

constexpr auto I110 = compound("I110", "Trajectory Intent",
    extended("TIS", "Trajectory Intent Status",
        part(code("NAV", "", 1,
                 "Trajectory Intent Data is available for this aircraft|"
                 "Trajectory Intent Data is not available for this aircraft"),
             code("NVB", "", 1, "Trajectory Intent Data is valid|Trajectory Intent Data is not valid"),
             spare(5))),
    repetitive("TID", "Trajectory Intent Data",
        group("", "",
            code("TCA", "", 1, "TCP number available|TCP number not available"),
            code("NC", "", 1, "TCP compliance|TCP non-compliance"),
            raw("TCPN", "", 6),
            signed_quantity("ALT", "Altitude in Two's Complement Form", 16, {10, 1}, "ft"),
            signed_quantity("LAT", "In WGS.84 in Two's Complement", 24, {180, 1U << 23}, "°"),
            signed_quantity("LON", "In WGS.84 in Two's Complement", 24, {180, 1U << 23}, "°"),
            code("PT", "Point Type", 4,
                "Unknown|Fly by waypoint (LT)|Fly over waypoint (LT)|Hold pattern (LT)|Procedure hold (LT)|"
                "Procedure turn (LT)|RF leg (LT)|Top of climb (VT)|Top of descent (VT)|Start of level (VT)|"
                "Cross-over altitude (VT)|Transition altitude (VT)"),
            code("TD", "", 2, "N/A|Turn right|Turn left|No turn"),
            code("TRA", "", 1, "TTR not available|TTR available"),
            code("TOA", "", 1, "TOV available|TOV not available"),
            quantity("TOV", "Time Over Point", 24, {1, 1}, "s"),
            quantity("TTR", "TCP Turn Radius", 16, {1, 100}, "NM"))));

constexpr auto I130 = group("I130", "Position in WGS-84 Co-ordinates",
    signed_quantity("LAT", "Latitude", 24, {180, 1U << 23}, "°"),
    signed_quantity("LON", "Longitude", 24, {180, 1U << 23}, "°"));

constexpr auto I140 = signed_quantity("I140", "Geometric Altitude", 16, {25, 1U << 2}, "ft");

constexpr auto I145 = signed_quantity("I145", "Flight Level", 16, {1, 1U << 2}, "FL");

constexpr auto I146 = group("I146", "Intermediate State Selected Altitude",
    code("SAS", "Source Availability", 1, "No source information provided|Source Information provided"),
    code("SRC", "Source", 2,
        "Unknown|Aircraft Altitude (Holding Altitude)|MCP/FCU Selected Altitude|FMS Selected Altitude"),
    signed_quantity("ALT", "Altitude", 13, {25, 1}, "ft"));

constexpr auto I148 = group("I148", "Final State Selected Altitude",
    code("MV", "Manage Vertical Mode", 1, "Not active|Active"),
    code("AH", "Altitude Hold Mode", 1, "Not active|Active"),
    code("AM", "Approach Mode", 1, "Not active|Active"),
    signed_quantity("ALT", "Altitude", 13, {25, 1}, "ft"));

constexpr auto I150 = group("I150", "Air Speed",
    code("IM", "", 1, "Air Speed = IAS, LSB (Bit-1) = 2 -14 NM/s|Air Speed = Mach, LSB (Bit-1) = 0.001"),
    either("AS", "Air Speed (IAS or Mach)", 15,
        when(0, quantity("AS", "Air Speed (IAS or Mach)", 15, {1, 1U << 14}, "NM/s")),
        when(1, quantity("AS", "Air Speed (IAS or Mach)", 15, {1, 1000}, "Mach"))));

constexpr auto I151 = quantity("I151", "True Airspeed", 16, {1, 1}, "kt");

constexpr auto I152 = quantity("I152", "Magnetic Heading", 16, {360, 1U << 16}, "°");

constexpr auto I155 = signed_quantity("I155", "Barometric Vertical Rate", 16, {25, 1U << 2}, "ft/min");

constexpr auto I157 = signed_quantity("I157", "Geometric Vertical Rate", 16, {25, 1U << 2}, "ft/min");

constexpr auto I160 = group("I160", "Ground Vector",
    signed_quantity("GS", "Ground Speed in Two's Complement Form Referenced to WGS84", 16, {1, 1U << 14}, "NM/s"),
    quantity("TA", "Track Angle", 16, {360, 1U << 16}, "°"));

constexpr auto I165 = extended("I165", "Rate Of Turn",
    part(code("TI", "Turn Indicator", 2, "Not available|Left|Right|Straight"),
         spare(5)),
    part(signed_quantity("ROT", "Rate of Turn", 7, {1, 1U << 2}, "°/s")));

constexpr auto I170 = icao("I170", "Target Identification", 48);

constexpr auto I200 = code("I200", "Target Status", 8,
    "No emergency / not reported|General emergency|Lifeguard / medical|Minimum fuel|No communications|"
    "Unlawful interference");

constexpr auto I210 = group("I210", "Link Technology Indicator",
    spare(3),
    code("DTI", "Cockpit Display of Traffic Information", 1, "Unknown|Aircraft equiped with CDTI"),
    code("MDS", "Mode-S Extended Squitter", 1, "Not used|Used"),
    code("UAT", "UAT", 1, "Not used|Used"),
    code("VDL", "VDL Mode 4", 1, "Not used|Used"),
    code("OTR", "Other Technology", 1, "Not used|Used"));

constexpr auto I220 = compound("I220", "Met Information",
    quantity("WS", "Wind Speed", 16, {1, 1}, "kt"),
    quantity("WD", "Wind Direction", 16, {1, 1}, "°"),
    signed_quantity("TMP", "Temperature", 16, {1, 1U << 2}, "°C"),
    integer("TRB", "Turbulence", 8));

constexpr auto I230 = signed_quantity("I230", "Roll Angle", 16, {1, 100}, "°");

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(30, I030), item(32, I032), item(80, I080), item(95, I095), item(110, I110),
    item(130, I130), item(140, I140), item(145, I145), item(146, I146), item(148, I148), item(150, I150),
    item(151, I151), item(152, I152), item(155, I155), item(157, I157), item(160, I160), item(165, I165),
    item(170, I170), item(220, I220), item(230, I230), item(903, I040), item(905, I090), item(906, I210),
    item(908, I200), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

// clang-format on

} // namespace

constinit const Edition kCat021Ed023 = edition(21, "0.23", "ADS-B Target Reports", kItems);

} // namespace ast::schema
