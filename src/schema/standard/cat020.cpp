// Category 020: Multilateration Target Reports, edition 1.11.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

// The document has these texts the other way round: systems in service set the bits of the technologies that took part.
constexpr auto I020 = extended("I020", "Target Report Descriptor",
    part(code("SSR", "", 1, "No Non-Mode S 1090MHz multilat|Non-Mode S 1090MHz multilateration"),
         code("MS", "", 1, "No Mode-S 1090 MHz multilateration|Mode-S 1090 MHz multilateration"),
         code("HF", "", 1, "No HF multilateration|HF multilateration"),
         code("VDL4", "", 1, "No VDL Mode 4 multilateration|VDL Mode 4 multilateration"),
         code("UAT", "", 1, "No UAT multilateration|UAT multilateration"),
         code("DME", "", 1, "No DME/TACAN multilateration|DME/TACAN multilateration"),
         code("OT", "", 1, "No Other Technology Multilateration|Other Technology Multilateration")),
    part(code("RAB", "", 1, "Report from target transponder|Report from field monitor (element transponder)"),
         code("SPI", "", 1, "Absence of SPI|Special Position Identification"),
         code("CHN", "", 1, "Chain 1|Chain 2"),
         code("GBS", "", 1, "Transponder Ground bit not set|Transponder Ground bit set"),
         code("CRT", "", 1, "No Corrupted reply in multilateration|Corrupted replies in multilateration"),
         code("SIM", "", 1, "Actual target report|Simulated target report"),
         code("TST", "", 1, "Default|Test Target")),
    part(code("CF", "", 2,
             "Target with 24-bit ICAO address|Target with a non-ICAO 24-bit address|Non-ADS-B Message|"
             "Information not available"),
         spare(5)));

constexpr auto I030 = chained("I030", "Warning/Error Conditions",
    code("", "", 7,
        "Not defined; never used|Multipath Reply (Reflection)|3:Split plot|10:Phantom SSR plot|"
        "Non-Matching Mode-3/A Code|Mode C code / Mode S altitude code abnormal value compared to the track|"
        "15:Transponder anomaly detected|Duplicated or Illegal Mode S Aircraft Address|"
        "Mode S error correction applied|Undecodable Mode C code / Mode S altitude code"));

constexpr auto I041 = group("I041", "Position In WGS-84 Coordinates",
    signed_quantity("LAT", "Latitude", 32, {180, 1U << 25}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 25}, "°"));

constexpr auto I042 = group("I042", "Position in Cartesian Coordinates",
    signed_quantity("X", "X-coordinate", 24, {1, 2}, "m"),
    signed_quantity("Y", "Y-coordinate", 24, {1, 2}, "m"));

constexpr auto I050 = group("I050", "Mode-2 Code in Octal Representation",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-2 code derived from the reply of the transponder|"
        "Smoothed Mode-2 code as provided by a local tracker n"),
    spare(1),
    octal("MODE2", "Mode-2 Reply in Octal Representation", 12));

constexpr auto I055 = group("I055", "Mode-1 Code in Octal Representation",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-1 code derived from the reply of the transponder|"
        "Smoothed Mode-1 code as provided by a local tracker"),
    raw("MODE1", "Mode-1 Code in Octal Representation", 5));

constexpr auto I070 = group("I070", "Mode-3/A Code in Octal Representation",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-3/A code derived from the reply of the transponder|"
        "Mode-3/A code not extracted during the last update period"),
    spare(1),
    octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I090 = group("I090", "Flight Level in Binary Representation",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    signed_quantity("FL", "Flight Level", 14, {1, 1U << 2}, "FL"));

constexpr auto I100 = group("I100", "Mode C Code",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    spare(2),
    raw("MODEC", "Mode-C Reply in Gray Notation", 12),
    spare(4),
    code("QC1", "Quality Pulse C1", 1, "High quality pulse C1|Low quality pulse C1"),
    code("QA1", "Quality Pulse A1", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QC2", "Quality Pulse C2", 1, "High quality pulse C2|Low quality pulse C2"),
    code("QA2", "Quality Pulse A2", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QC4", "Quality Pulse C4", 1, "High quality pulse C4|Low quality pulse C4"),
    code("QA4", "Quality Pulse A4", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QB1", "Quality Pulse B1", 1, "High quality pulse B1|Low quality pulse B1"),
    code("QD1", "Quality Pulse D1", 1, "High quality pulse D1|Low quality pulse D1"),
    code("QB2", "Quality Pulse B2", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QD2", "Quality Pulse D2", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QB4", "Quality Pulse B4", 1, "High quality pulse B4|Low quality pulse B4"),
    code("QD4", "Quality Pulse D4", 1, "High quality pulse D4|Low quality pulse D4"));

constexpr auto I105 = signed_quantity("I105", "Geometric Height (WGS-84)", 16, {25, 1U << 2}, "ft");

constexpr auto I110 = signed_quantity("I110", "Measured Height (Local Cartesian Coordinates)", 16, {25, 1U << 2}, "ft");

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I161 = group("I161", "Track Number",
    spare(4),
    raw("TRN", "Track Number", 12));

constexpr auto I170 = extended("I170", "Track Status",
    part(code("CNF", "", 1, "Confirmed track|Track in initiation phase"),
         code("TRE", "", 1, "Default|Last report for a track"),
         code("CST", "", 1, "Not Coasted|Coasted"),
         code("CDM", "", 2, "Maintaining|Climbing|Descending|Invalid"),
         code("MAH", "", 1, "Default|Horizontal manoeuvre"),
         code("STH", "", 1, "Measured position|Smoothed position")),
    part(code("GHO", "", 1, "Default|Ghost track"),
         spare(6)));

constexpr auto I202 = group("I202", "Calculated Track Velocity in Cartesian Coordinates",
    signed_quantity("VX", "", 16, {1, 1U << 2}, "m/s"),
    signed_quantity("VY", "", 16, {1, 1U << 2}, "m/s"));

constexpr auto I210 = group("I210", "Calculated Acceleration",
    signed_quantity("AX", "", 8, {1, 1U << 2}, "m/s²"),
    signed_quantity("AY", "", 8, {1, 1U << 2}, "m/s²"));

constexpr auto I220 = raw("I220", "Target Address", 24);

constexpr auto I230 = group("I230", "Communications/ACAS Capability and Flight Status",
    code("COM", "Communications Capability of the Transponder", 3,
        "No communications capability (surveillance only)|Comm. A and Comm. B capability|"
        "Comm. A, Comm. B and Uplink ELM|Comm. A, Comm. B, Uplink ELM and Downlink ELM|"
        "Level 5 Transponder capability|Not assigned|Not assigned|Not assigned"),
    code("STAT", "Flight Status", 3,
        "No alert, no SPI, aircraft airborne|No alert, no SPI, aircraft on ground|"
        "Alert, no SPI, aircraft airborne|Alert, no SPI, aircraft on ground|"
        "Alert, SPI, aircraft airborne or on ground|No alert, SPI, aircraft airborne or on ground|Not assigned|"
        "Information not yet extracted"),
    code("CASEVN", "CAS Extended Version Number", 2,
        "Non-extended version|ACAS Xa Version 1|ACAS Xu Version 1|Reserved for future use"),
    code("MSSC", "Mode-S Specific Service Capability", 1, "No|Yes"),
    code("ARC", "Altitude Reporting Capability", 1, "100 ft resolution|25 ft resolution"),
    code("AIC", "Aircraft Identification Capability", 1, "No|Yes"),
    raw("B1A", "BDS 1,0 Bit 16", 1),
    raw("B1B", "BDS 1,0 Bits 37/40", 4));

constexpr auto I245 = group("I245", "Target Identification",
    code("STI", "", 2,
        "Callsign or registration not downlinked from transponder|Registration downlinked from transponder|"
        "Callsign downlinked from transponder|Not defined"),
    spare(6),
    icao("CHR", "Characters 1-8 (coded on 6 Bits Each) Defining Target Identification", 48));

constexpr auto I250 = repetitive("I250", "BDS Register Data",
    bds("", "BDS Register Data", 64));

constexpr auto I260 = bds("I260", "ACAS Resolution Advisory Report", 56, 0x30);

constexpr auto I300 = code("I300", "Vehicle Fleet Identification", 8,
    "Unknown|ATC equipment maintenance|Airport maintenance|Fire|Bird scarer|Snow plough|Runway sweeper|Emergency|"
    "Police|Bus|Tug (push/tow)|Grass cutter|Fuel|Baggage|Catering|Aircraft maintenance|Flyco (follow me)");

constexpr auto I310 = group("I310", "Pre-programmed Message",
    code("TRB", "", 1, "Default|In Trouble"),
    code("MSG", "", 7,
        "1:Towing aircraft|FOLLOW-ME operation|Runway check|Emergency operation (fire, medical...)|"
        "Work in progress (maintenance, birds scarer, sweepers...)"));

constexpr auto I400 = repetitive("I400", "Contributing Devices",
    group("", "",
        code("BIT1", "TU1/RU1 Contribution", 1,
            "TU1/RU1 has NOT contributed to the target detection|TU1/RU1 has contributed to the target detection"),
        code("BIT2", "TU2/RU2 Contribution", 1,
            "TU2/RU2 has NOT contributed to the target detection|TU2/RU2 has contributed to the target detection"),
        code("BIT3", "TU3/RU3 Contribution", 1,
            "TU3/RU3 has NOT contributed to the target detection|TU3/RU3 has contributed to the target detection"),
        code("BIT4", "TU4/RU4 Contribution", 1,
            "TU4/RU4 has NOT contributed to the target detection|TU4/RU4 has contributed to the target detection"),
        code("BIT5", "TU5/RU5 Contribution", 1,
            "TU5/RU5 has NOT contributed to the target detection|TU5/RU5 has contributed to the target detection"),
        code("BIT6", "TU6/RU6 Contribution", 1,
            "TU6/RU6 has NOT contributed to the target detection|TU6/RU6 has contributed to the target detection"),
        code("BIT7", "TU7/RU7 Contribution", 1,
            "TU7/RU7 has NOT contributed to the target detection|TU7/RU7 has contributed to the target detection"),
        code("BIT8", "TU8/RU8 Contribution", 1,
            "TU8/RU8 has NOT contributed to the target detection|TU8/RU8 has contributed to the target detection")));

constexpr auto I500 = compound("I500", "Position Accuracy",
    group("DOP", "DOP of Position",
        quantity("X", "DOP (X-Component)", 16, {1, 1U << 2}, ""),
        quantity("Y", "DOP (Y-Component)", 16, {1, 1U << 2}, ""),
        quantity("XY", "DOP (Correlation XY)", 16, {1, 1U << 2}, "")),
    group("SDP", "Standard Deviation of Position",
        quantity("X", "SDP (X-Component)", 16, {1, 1U << 2}, "m"),
        quantity("Y", "SDP (Y-Component)", 16, {1, 1U << 2}, "m"),
        quantity("XY", "SDP (Correlation XY)", 16, {1, 1U << 2}, "")),
    quantity("SDH", "Standard Deviation of Geometric Height (WGS 84)", 16, {1, 2}, "m"));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(30, I030), item(41, I041), item(42, I042), item(50, I050), item(55, I055),
    item(70, I070), item(90, I090), item(100, I100), item(105, I105), item(110, I110), item(140, I140),
    item(161, I161), item(170, I170), item(202, I202), item(210, I210), item(220, I220), item(230, I230),
    item(245, I245), item(250, I250), item(260, I260), item(300, I300), item(310, I310), item(400, I400),
    item(500, I500), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 20, 140, 41, 42, 161, 170,
    70, 202, 90, 100, 220, 245, 110,
    105, 210, 300, 310, 500, 400, 250,
    230, 260, 30, 55, 50, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat020 = edition<kItems>(20, "1.11", "Multilateration Target Reports", profile(kProfile));

} // namespace ast::schema
