// Category 001: Transmission of Monoradar Data Target Reports, edition 1.4.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = extended("I020", "Target Report Descriptor",
    part(code("TYP", "", 1, "Plot|Track"),
         code("SIM", "", 1, "Actual plot or track|Simulated plot or track"),
         code("SSRPSR", "Radar Detection in Last Antenna Scan", 2,
             "No detection|Sole primary detection|Sole secondary detection|"
             "Combined primary and secondary detection"),
         code("ANT", "", 1, "Target report from antenna 1|Target report from antenna 2"),
         code("SPI", "", 1, "Default|Special Position Identification"),
         code("RAB", "", 1, "Default|Plot or track from a fixed transponder")),
    part(code("TST", "", 1, "Default|Test target indicator"),
         code("DS1DS2", "Radar Detection in Last Antenna Scan", 2,
             "Default|Unlawful interference (code 7500)|Radio-communication failure (code 7600)|"
             "Emergency (code 7700)"),
         code("ME", "", 1, "Default|Military emergency"),
         code("MI", "", 1, "Default|Military identification"),
         spare(2)));

constexpr auto I030 = chained("I030", "Warning/Error Conditions",
    code("", "", 7,
        "No warning nor error condition|Garbled reply|Reflection|Sidelobe reply|Split plot|"
        "Second time around reply|Angels|Terrestrial vehicles|64:Possible wrong code in Mode-3/A|"
        "Possible wrong altitude information, transmitted when the Code C credibility check fails together with "
        "the Mode-C code in binary notation|"
        "Possible phantom MSSR plot|80:Fixed PSR plot|Slow PSR plot|Low quality PSR plot"));

constexpr auto I040 = group("I040", "Measured Position in Polar Co-ordinates",
    quantity("RHO", "", 16, {1, 1U << 7}, "NM"),
    quantity("THETA", "", 16, {360, 1U << 16}, "°"));

constexpr auto I042 = group("I042", "Calculated Position in Cartesian Co-ordinates",
    signed_quantity("X", "X-Component", 16, {1, 1U << 6}, "NM"),
    signed_quantity("Y", "Y-Component", 16, {1, 1U << 6}, "NM"));

constexpr auto I050 = group("I050", "Mode-2 Code in Octal Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-2 code as derived from the reply of the transponder|"
        "Smoothed Mode-2 code as provided by a local tracker"),
    spare(1),
    octal("MODE2", "Mode-2 Code in Octal Representation", 12));

constexpr auto I060 = group("I060", "Mode-2 Code Confidence Indicator",
    spare(4),
    code("QA4", "", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QA2", "", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QA1", "", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QB4", "", 1, "High quality pulse B4|Low quality pulse B4"),
    code("QB2", "", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QB1", "", 1, "High quality pulse B1|Low quality pulse B1"),
    code("QC4", "", 1, "High quality pulse C4|Low quality pulse C4"),
    code("QC2", "", 1, "High quality pulse C2|Low quality pulse C2"),
    code("QC1", "", 1, "High quality pulse C1|Low quality pulse C1"),
    code("QD4", "", 1, "High quality pulse D4|Low quality pulse D4"),
    code("QD2", "", 1, "High quality pulse D2|Low quality pulse D2"),
    code("QD1", "", 1, "High quality pulse D1|Low quality pulse D1"));

constexpr auto I070 = group("I070", "Mode-3/A Code in Octal Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-3/A code derived from the reply of the transponder|"
        "Smoothed Mode-3/A code as provided by a local tracker"),
    spare(1),
    octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I080 = group("I080", "Mode-3/A Code Confidence Indicator",
    spare(4),
    code("QA4", "", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QA2", "", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QA1", "", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QB4", "", 1, "High quality pulse B4|Low quality pulse B4"),
    code("QB2", "", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QB1", "", 1, "High quality pulse B1|Low quality pulse B1"),
    code("QC4", "", 1, "High quality pulse C4|Low quality pulse C4"),
    code("QC2", "", 1, "High quality pulse C2|Low quality pulse C2"),
    code("QC1", "", 1, "High quality pulse C1|Low quality pulse C1"),
    code("QD4", "", 1, "High quality pulse D4|Low quality pulse D4"),
    code("QD2", "", 1, "High quality pulse D2|Low quality pulse D2"),
    code("QD1", "", 1, "High quality pulse D1|Low quality pulse D1"));

constexpr auto I090 = group("I090", "Mode-C Code in Binary Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    signed_quantity("HGT", "Mode-C HEIGHT", 14, {1, 1U << 2}, "FL"));

constexpr auto I100 = group("I100", "Mode-C Code and Code Confidence Indicator",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    spare(2),
    raw("MODEC", "Mode-C Reply in Gray Notation", 12),
    spare(4),
    code("QC1", "", 1, "High quality pulse C1|Low quality pulse C1"),
    code("QA1", "", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QC2", "", 1, "High quality pulse C2|Low quality pulse C2"),
    code("QA2", "", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QC4", "", 1, "High quality pulse C4|Low quality pulse C4"),
    code("QA4", "", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QB1", "", 1, "High quality pulse B1|Low quality pulse B1"),
    code("QD1", "", 1, "High quality pulse D1|Low quality pulse D1"),
    code("QB2", "", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QD2", "", 1, "High quality pulse D2|Low quality pulse D2"),
    code("QB4", "", 1, "High quality pulse B4|Low quality pulse B4"),
    code("QD4", "", 1, "High quality pulse D4|Low quality pulse D4"));

constexpr auto I120 = signed_quantity("I120", "Measured Radial Doppler Speed", 8, {1, 1U << 8}, "NM/s");

constexpr auto I130 = chained("I130", "Radar Plot Characteristics",
    raw("", "", 7));

constexpr auto I131 = signed_quantity("I131", "Received Power", 8, {1, 1}, "dBm");

constexpr auto I141 = quantity("I141", "Truncated Time of Day", 16, {1, 1U << 7}, "s");

constexpr auto I150 = group("I150", "Presence of X-Pulse",
    code("XA", "", 1, "Default|X-pulse received in Mode-3/A reply"),
    spare(1),
    code("XC", "", 1, "Default|X-pulse received in Mode-C reply"),
    spare(2),
    code("X2", "", 1, "Default|X-pulse received in Mode-2 reply"),
    spare(2));

constexpr auto I161 = raw("I161", "Track Plot Number", 16);

constexpr auto I170 = extended("I170", "Track Status",
    part(code("CON", "", 1, "Confirmed Track|Track in initialisation phase"),
         code("RAD", "", 1, "Primary track|SSR/Combined track"),
         code("MAN", "", 1, "Default|Aircraft manoeuvring"),
         code("DOU", "", 1, "Default|Doubtful plot to track association"),
         code("RDPC", "Radar Data Processing Chain", 1, "RDP Chain 1|RDP Chain 2"),
         spare(1),
         code("GHO", "", 1, "Default|Ghost track")),
    part(code("TRE", "", 1, "Default|Last report for a track"),
         spare(6)));

constexpr auto I200 = group("I200", "Calculated Track Velocity in Polar Co-ordinates",
    quantity("GSP", "Calculated Groundspeed", 16, {1, 1U << 14}, "NM/s"),
    quantity("HDG", "Calculated Heading", 16, {360, 1U << 16}, "°"));

constexpr auto I210 = chained("I210", "Track Quality",
    raw("", "", 7));

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr auto RFS = random_field_sequencing();

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(30, I030), item(40, I040), item(42, I042), item(50, I050), item(60, I060),
    item(70, I070), item(80, I080), item(90, I090), item(100, I100), item(120, I120), item(130, I130),
    item(131, I131), item(141, I141), item(150, I150), item(161, I161), item(170, I170), item(200, I200),
    item(210, I210), item(AST_ITEM_RFS, RFS), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kOtherProfile[] = {
    10, 20, 40, 70, 90, 130, 141,
    50, 120, 131, 80, 100, 60, 30,
    150, kSpare, kSpare, kSpare, kSpare, AST_ITEM_SPF, AST_ITEM_RFS,
};

constexpr uint16_t kProfile[] = {
    10, 20, 161, 40, 42, 200, 70,
    90, 141, 130, 131, 120, 170, 210,
    50, 80, 100, 60, 30, AST_ITEM_SPF, AST_ITEM_RFS,
    150,
};

// clang-format on

} // namespace

constinit const Edition kCat001 = edition<kItems>(1, "1.4", "Transmission of Monoradar Data Target Reports",
                                                  profile(kProfile), profile(kOtherProfile));

} // namespace ast::schema
