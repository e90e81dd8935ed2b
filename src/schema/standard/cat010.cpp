// Category 010: Transmission of Monosensor Surface Movement Data, edition 1.1.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "1:Target Report|Start of Update Cycle|Periodic Status Message|Event-triggered Status Message");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = extended("I020", "Target Report Descriptor",
    part(code("TYP", "", 3,
             "SSR multilateration|Mode S multilateration|ADS-B|PSR|Magnetic Loop System|HF multilateration|"
             "Not defined|Other types"),
         code("DCR", "", 1, "No differential correction (ADS-B)|Differential correction (ADS-B)"),
         code("CHN", "", 1, "Chain 1|Chain 2"),
         code("GBS", "", 1, "Transponder Ground bit not set|Transponder Ground bit set"),
         code("CRT", "", 1, "No Corrupted reply in multilateration|Corrupted replies in multilateration")),
    part(code("SIM", "", 1, "Actual target report|Simulated target report"),
         code("TST", "", 1, "Default|Test Target"),
         code("RAB", "", 1, "Report from target transponder|Report from field monitor (fixed transponder)"),
         code("LOP", "", 2, "Undetermined|Loop start|Loop finish"),
         code("TOT", "", 2, "Undetermined|Aircraft|Ground vehicle|Helicopter")),
    part(code("SPI", "", 1, "Absence of SPI|Special Position Identification"),
         spare(6)));

constexpr auto I040 = group("I040", "Measured Position in Polar Co-ordinates",
    quantity("RHO", "RHO", 16, {1, 1}, "m"),
    quantity("TH", "Theta", 16, {360, 1U << 16}, "°"));

constexpr auto I041 = group("I041", "Position in WGS-84 Co-ordinates",
    signed_quantity("LAT", "Latitude", 32, {180, 1U << 31}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 31}, "°"));

constexpr auto I042 = group("I042", "Position in Cartesian Co-ordinates",
    signed_quantity("X", "X Coordinate", 16, {1, 1}, "m"),
    signed_quantity("Y", "Y Coordinate", 16, {1, 1}, "m"));

constexpr auto I060 = group("I060", "Mode-3/A Code in Octal Representation",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-3/A code derived from the reply of the transponder|Mode-3/A code not extracted during the last scan"),
    spare(1),
    octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I090 = group("I090", "Flight Level in Binary Representation",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    signed_quantity("FL", "Flight Level", 14, {1, 1U << 2}, "FL"));

constexpr auto I091 = signed_quantity("I091", "Measured Height", 16, {25, 1U << 2}, "ft");

constexpr auto I131 = raw("I131", "Amplitude of Primary Plot", 8);

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I161 = group("I161", "Track Number",
    spare(4),
    raw("TRK", "Track Number", 12));

constexpr auto I170 = extended("I170", "Track Status",
    part(code("CNF", "", 1, "Confirmed track|Track in initialisation phase"),
         code("TRE", "", 1, "Default|Last report for a track"),
         code("CST", "", 2,
             "No extrapolation|Predictable extrapolation due to sensor refresh period (see NOTE)|"
             "Predictable extrapolation in masked area|Extrapolation due to unpredictable absence of detection"),
         code("MAH", "", 1, "Default|Horizontal manoeuvre"),
         code("TCC", "", 1,
             "Tracking performed in 'Sensor Plane', i.e. neither slant range correction nor projection was "
             "applied|"
             "Slant range correction and a suitable projection technique are used to track in a 2D.reference "
             "plane, tangential to the earth model at the Sensor Site co-ordinates"),
         code("STH", "", 1, "Measured position|Smoothed position")),
    part(code("TOM", "", 2, "Unknown type of movement|Taking-off|Landing|Other types of movement"),
         code("DOU", "", 3,
             "No doubt|Doubtful correlation (undetermined reason)|Doubtful correlation in clutter|"
             "Loss of accuracy|Loss of accuracy in clutter|Unstable track|Previously coasted"),
         code("MRS", "", 2,
             "Merge or split indication undetermined|Track merged by association to plot|"
             "Track merged by non-association to plot|Split track")),
    part(code("GHO", "", 1, "Default|Ghost track"),
         spare(6)));

constexpr auto I200 = group("I200", "Calculated Track Velocity in Polar Co-ordinates",
    quantity("GSP", "Ground Speed", 16, {1, 1U << 14}, "NM/s"),
    quantity("TRA", "Track Angle", 16, {360, 1U << 16}, "°"));

constexpr auto I202 = group("I202", "Calculated Track Velocity in Cartesian Co-ordinates",
    signed_quantity("VX", "X Velocity", 16, {1, 1U << 2}, "m/s"),
    signed_quantity("VY", "Y Velocity", 16, {1, 1U << 2}, "m/s"));

constexpr auto I210 = group("I210", "Calculated Acceleration",
    signed_quantity("AX", "X Acceleration", 8, {1, 1U << 2}, "m/s²"),
    signed_quantity("AY", "Y Acceleration", 8, {1, 1U << 2}, "m/s²"));

constexpr auto I220 = raw("I220", "Target Address", 24);

constexpr auto I245 = group("I245", "Target Identification",
    code("STI", "", 2,
        "Callsign or registration downlinked from transponder|Callsign not downlinked from transponder|"
        "Registration not downlinked from transponder"),
    spare(6),
    icao("CHR", "Characters 1-8 (Coded on 6 Bits Each) Defining Target Identification", 48));

constexpr auto I250 = repetitive("I250", "Mode S MB Data",
    bds("", "", 64));

constexpr auto I270 = extended("I270", "Target Size and Orientation",
    part(quantity("LENGTH", "Length", 7, {1, 1}, "m")),
    part(quantity("ORIENTATION", "Orientation", 7, {360, 1U << 7}, "°")),
    part(quantity("WIDTH", "Width", 7, {1, 1}, "m")));

constexpr auto I280 = repetitive("I280", "Presence",
    group("", "",
        signed_quantity("DRHO", "", 8, {1, 1}, "m"),
        signed_quantity("DTHETA", "", 8, {3, 20}, "°")));

constexpr auto I300 = code("I300", "Vehicle Fleet Identification", 8,
    "Unknown|ATC equipment maintenance|Airport maintenance|Fire|Bird scarer|Snow plough|Runway sweeper|Emergency|"
    "Police|Bus|Tug (push/tow)|Grass cutter|Fuel|Baggage|Catering|Aircraft maintenance|Flyco (follow me)");

constexpr auto I310 = group("I310", "Pre-programmed Message",
    code("TRB", "", 1, "Default|In Trouble"),
    code("MSG", "", 7,
        "1:Towing aircraft|“Follow me” operation|Runway check|Emergency operation (fire, medical...)|"
        "Work in progress (maintenance, birds scarer, sweepers...)"));

constexpr auto I500 = group("I500", "Standard Deviation of Position",
    quantity("DEVX", "Standard Deviation of X Component", 8, {1, 1U << 2}, "m"),
    quantity("DEVY", "Standard Deviation of Y Component", 8, {1, 1U << 2}, "m"),
    signed_quantity("COVXY", "Covariance in Two’s Complement Form", 16, {1, 1U << 2}, "m"));

constexpr auto I550 = group("I550", "System Status",
    code("NOGO", "Operational Release Status of the System", 2, "Operational|Degraded|NOGO"),
    code("OVL", "Overload Indicator", 1, "No overload|Overload"),
    code("TSV", "Time Source Validity", 1, "Valid|Invalid"),
    code("DIV", "", 1, "Normal Operation|Diversity degraded"),
    code("TTF", "", 1, "Test Target Operative|Test Target Failure"),
    spare(2));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(20, I020), item(40, I040), item(41, I041), item(42, I042), item(60, I060),
    item(90, I090), item(91, I091), item(131, I131), item(140, I140), item(161, I161), item(170, I170),
    item(200, I200), item(202, I202), item(210, I210), item(220, I220), item(245, I245), item(250, I250),
    item(270, I270), item(280, I280), item(300, I300), item(310, I310), item(500, I500), item(550, I550),
    item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 20, 140, 41, 40, 42,
    200, 202, 161, 170, 60, 220, 245,
    250, 300, 90, 91, 270, 550, 310,
    500, 280, 131, 210, kSpare, AST_ITEM_SPF, AST_ITEM_REF,
};

// clang-format on

} // namespace

constinit const Edition kCat010 =
    edition<kItems>(10, "1.1", "Transmission of Monosensor Surface Movement Data", profile(kProfile));

} // namespace ast::schema
