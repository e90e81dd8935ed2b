// Category 015: Independent Non-Cooperative Surveillance System Target Reports, edition 1.2.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = group("I000", "Message Type",
    code("MT", "Message Type", 7,
        "1:Measurement Plot|Measurement Track|Sensor Centric Plot|Sensor Centric Track|Track End Message"),
    code("RG", "Report Generation", 1, "Periodic Report|Event Driven Report"));

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I020 = extended("I020", "Target Report Descriptor",
    part(code("MOMU", "Mono-Static Target Report or Multi-Static Target Report", 2,
             "Mono-Static Sensor|Multi-Static Sensor|Other|Unknown"),
         code("TTAX", "Target Taxonomy", 2,
             "Actual Target Report|Reference Target|Synthetic Target|Simulated / Replayed Target"),
         code("SCD", "Scanning Direction", 2, "Unknown|Forward|Backward|Static"),
         spare(1)));

constexpr auto I030 = chained("I030", "Warning/Error Conditions",
    raw("", "", 7));

constexpr auto I050 = group("I050", "Update Period",
    spare(2),
    quantity("UPD", "Update Period", 14, {1, 1U << 7}, "s"));

constexpr auto I145 = quantity("I145", "Time of Applicability", 24, {1, 1U << 7}, "s");

constexpr auto I161 = integer("I161", "Track/Plot Number", 16);

constexpr auto I170 = extended("I170", "Track/Plot Status",
    part(code("BIZ", "", 1, "Target not in Blind Zone|Target in Blind Zone"),
         code("BAZ", "", 1, "Target not in Blanked Zone|Target in Blanked Zone"),
         code("TUR", "", 1, "Track Alive|Track Terminated by User Request"),
         spare(1),
         code("CSTP", "Coasted - Position", 1, "Not extrapolated|Extrapolated"),
         code("CSTH", "Coasted – Height", 1, "Not extrapolated|Extrapolated"),
         code("CNF", "Confirmed vs. Tentative Track", 1, "Confirmed Track|Tentative Track")));

constexpr auto I270 = compound("I270", "Target Size & Orientation",
    quantity("LEN", "Target Length", 16, {1, 100}, "m"),
    quantity("WDT", "Target Width", 16, {1, 100}, "m"),
    quantity("HGT", "Target Height", 16, {1, 100}, "m"),
    quantity("ORT", "Target Orientation", 16, {360, 1U << 16}, "°"));

constexpr auto I300 = repetitive("I300", "Object Classification",
    group("", "",
        integer("CLS", "Classification", 9),
        integer("PRB", "Probability", 7)));

constexpr auto I400 = group("I400", "Measurement Identifier",
    integer("PID", "Pair Identifier", 16),
    integer("ON", "Observation Number", 24));

constexpr auto I480 = repetitive("I480", "Associations",
    raw("", "", 40));

constexpr auto I600 = compound("I600", "Horizontal Position Information",
    group("P84", "Horizontal Position in WGS-84 Coordinates",
        signed_quantity("LATITUDE", "", 32, {180, 1U << 31}, "°"),
        signed_quantity("LONGITUDE", "", 32, {180, 1U << 31}, "°")),
    group("HPR", "Horizontal Position Resolution",
        quantity("RSHPX", "", 16, {1, 2}, "m"),
        quantity("RSHPY", "", 16, {1, 2}, "m"),
        signed_quantity("CORSHPXY", "", 8, {1, 1U << 7}, "")),
    group("HPP", "Horizontal Position Precision",
        quantity("SDHPX", "", 16, {1, 1U << 2}, "m"),
        quantity("SDHPY", "", 16, {1, 1U << 2}, "m"),
        signed_quantity("COSDHPXY", "", 8, {1, 1U << 7}, "")));

constexpr auto I601 = compound("I601", "Geometric Height Information",
    signed_quantity("GH", "Geometric Height (WGS-84)", 24, {1, 100}, "m"),
    quantity("RSGH", "Geometric Height Resolution", 24, {1, 100}, "m"),
    quantity("SDGH", "Geometric Height Precision", 24, {1, 100}, "m"),
    group("CI6", "Confidence Interval for Geometric Height (67%)",
        quantity("UCI6", "", 12, {16, 1}, "m"),
        quantity("LCI6", "", 12, {16, 1}, "m")),
    group("CI9", "Confidence Interval for Geometric Height (95%)",
        quantity("UCI9", "", 12, {16, 1}, "m"),
        quantity("LCI9", "", 12, {16, 1}, "m")),
    group("COGHHP", "Correlation of Geometric Height and Horizontal Position",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")),
    group("COGHHV", "Correlation of Geometric Height and Horizontal Velocity",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")),
    group("COGHHA", "Correlation of Geometric Height and Horizontal Acceleration",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")));

constexpr auto I602 = compound("I602", "Horizontal Velocity Information",
    group("HV", "Horizontal Velocity Vector",
        signed_quantity("X", "", 20, {1, 100}, "m/s"),
        signed_quantity("Y", "", 20, {1, 100}, "m/s")),
    group("RSHV", "Horizontal Velocity Resolution",
        quantity("X", "", 16, {1, 100}, "m/s"),
        quantity("Y", "", 16, {1, 100}, "m/s"),
        signed_quantity("CORSHVXY", "", 8, {1, 1U << 7}, "")),
    group("SDHV", "Horizontal Velocity Precision",
        quantity("X", "", 16, {1, 100}, "m/s"),
        quantity("Y", "", 16, {1, 100}, "m/s"),
        signed_quantity("COHVXY", "", 8, {1, 1U << 7}, "")),
    group("COHVHP", "Correlation of Horizontal Velocity and Horizontal Position",
        signed_quantity("COHVXHPX", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHVXHPY", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHVYHPX", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHVYHPY", "", 8, {1, 1U << 7}, "")));

constexpr auto I603 = compound("I603", "Horizontal Acceleration Information",
    group("HA", "Horizontal Acceleration Vector",
        signed_quantity("X", "", 12, {1, 1U << 4}, "m/s²"),
        signed_quantity("Y", "", 12, {1, 1U << 4}, "m/s²")),
    group("SDHA", "Horizontal Acceleration Precision",
        quantity("X", "", 12, {1, 1U << 4}, "m/s²"),
        quantity("Y", "", 12, {1, 1U << 4}, "m/s²"),
        signed_quantity("COHAXY", "", 8, {1, 1U << 7}, "")),
    group("COHAHP", "Correlation of Horizontal Acceleration and Horizontal Position",
        signed_quantity("COHAXHPX", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHAXHPY", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHAYHPX", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COAYHPY", "", 8, {1, 1U << 7}, "")),
    group("COHAHV", "Correlation of Horizontal Acceleration and Horizontal Velocity",
        signed_quantity("COHAXHVX", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHAXHVY", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHAYHVX", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COHAYHVY", "", 8, {1, 1U << 7}, "")));

constexpr auto I604 = compound("I604", "Vertical Velocity Information",
    signed_quantity("VV", "Vertical Velocity", 24, {1, 100}, "m/s"),
    quantity("RSVV", "Vertical Velocity Resolution", 16, {1, 100}, "m/s"),
    group("SDVV", "Vertical Velocity Precision",
        quantity("SDVV", "", 16, {1, 100}, "m/s"),
        signed_quantity("COVVGH", "", 8, {1, 1U << 7}, "")),
    group("COVVHP", "Correlation of Vertical Velocity and Horizontal Position",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")),
    group("COVVHV", "Correlation of Vertical Velocity and Horizontal Velocity",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")),
    group("COVVHA", "Correlation of Vertical Velocity and Horizontal Acceleration",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")));

constexpr auto I605 = compound("I605", "Vertical Velocity Information",
    signed_quantity("VA", "Vertical Acceleration", 16, {1, 100}, "m/s²"),
    group("RSVA", "Vertical Acceleration Precision",
        quantity("SDVA", "", 16, {64, 25}, "m/s²"),
        signed_quantity("COVAGH", "", 8, {1, 1U << 7}, ""),
        signed_quantity("COVAVV", "", 8, {1, 1U << 7}, "")),
    group("COVAHP", "Correlation of Vertical Acceleration and Horizontal Position",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")),
    group("COVAHV", "Correlation of Vertical Acceleration and Horizontal Velocity",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")),
    group("COVAHA", "Correlation of Vertical Acceleration and Horizontal Acceleration",
        signed_quantity("X", "", 8, {1, 1U << 7}, ""),
        signed_quantity("Y", "", 8, {1, 1U << 7}, "")));

constexpr auto I625 = compound("I625", "Range Information",
    signed_quantity("R", "Range", 24, {1, 10}, "m"),
    quantity("RSR", "Range Resolution", 24, {1, 10}, "m"),
    quantity("SDR", "Range Precision", 24, {1, 10}, "m"),
    signed_quantity("RR", "Range Rate", 24, {1, 10}, "m/s"),
    quantity("RSRR", "Range Rate Resolution", 24, {1, 10}, "m/s"),
    group("SDRR", "Range Rate Precision",
        quantity("SDRR", "", 24, {1, 10}, "m/s"),
        signed_quantity("CORRR", "", 8, {1, 1U << 7}, "")),
    signed_quantity("RA", "Range Acceleration", 16, {1, 1U << 6}, "m/s²"),
    group("SDRA", "Range Acceleration Precision",
        quantity("SDRA", "", 16, {1, 1U << 7}, "m/s²"),
        signed_quantity("CORAR", "", 8, {1, 1U << 7}, ""),
        signed_quantity("CORARR", "", 8, {1, 1U << 7}, "")));

constexpr auto I626 = compound("I626", "Doppler Information",
    signed_quantity("DV", "Doppler Velocity", 24, {1, 100}, "m/s"),
    quantity("SDDV", "Precision of Doppler Velocity", 16, {1, 1U << 6}, "m/s"),
    signed_quantity("DA", "Doppler Acceleration", 16, {1, 1U << 6}, "m/s²"),
    group("SDDA", "Precision of Doppler Acceleration",
        quantity("SDDA", "", 16, {1, 1U << 6}, "m/s²"),
        signed_quantity("CODADV", "", 8, {1, 1U << 7}, "")),
    signed_quantity("CODVR", "Correlation of Doppler Velocity and Range", 8, {1, 1U << 7}, ""),
    signed_quantity("CODVRR", "Correlation of Doppler Velocity and Range Rate", 8, {1, 1U << 7}, ""),
    signed_quantity("CODVRA", "Correlation of Doppler Velocity and Range Acceleration", 8, {1, 1U << 7}, ""),
    signed_quantity("CODAR", "Correlation of Doppler Acceleration and Range", 8, {1, 1U << 7}, ""),
    signed_quantity("CODARR", "Correlation of Doppler Acceleration and Range Rate", 8, {1, 1U << 7}, ""),
    signed_quantity("CODARA", "Correlation of Doppler Acceleration and Range Acceleration", 8, {1, 1U << 7}, ""));

constexpr auto I627 = compound("I627", "Azimuth Information",
    quantity("AZ", "Azimuth", 16, {360, 1U << 16}, "°"),
    quantity("RSAZ", "Azimuth Resolution", 16, {45, 1U << 16}, "°"),
    quantity("SDASZ", "Standard Deviation of Azimuth", 16, {45, 1U << 16}, "°"),
    signed_quantity("AZR", "Azimuth Rate", 16, {180, 1U << 16}, "°"),
    group("SDAZR", "Standard Deviation of Azimuth Rate",
        quantity("SDAZR", "", 16, {45, 1U << 16}, "°"),
        signed_quantity("COAZRAZ", "", 8, {1, 1U << 7}, "")),
    group("AZEX", "Azimuth Extent",
        quantity("S", "", 16, {360, 1U << 16}, "°"),
        quantity("E", "", 16, {360, 1U << 16}, "°")));

constexpr auto I628 = compound("I628", "Elevation Information",
    signed_quantity("EL", "Elevation", 16, {180, 1U << 16}, "°"),
    quantity("RSEL", "Elevation Resolution", 16, {45, 1U << 16}, "°"),
    quantity("SDEL", "Standard Deviation of Elevation", 16, {45, 1U << 16}, "°"),
    signed_quantity("ER", "Elevation Rate", 16, {180, 1U << 16}, "°/s"),
    group("SDER", "Standard Deviation of Elevation Rate",
        quantity("SDELR", "", 16, {45, 1U << 16}, "°/s"),
        signed_quantity("COELREL", "", 8, {1, 1U << 7}, "")),
    group("ELEX", "Elevation Extent",
        signed_quantity("S", "", 16, {180, 1U << 16}, "°"),
        signed_quantity("E", "", 16, {180, 1U << 16}, "°")));

constexpr auto I630 = compound("I630", "Path Quality",
    signed_quantity("DPP", "Direct Path - Power", 8, {1, 1}, "dB"),
    signed_quantity("DPS", "Direct Path - Signal to Noise Ratio (SNR)", 8, {1, 1}, "dB"),
    group("RPP", "Reflected Path - Power",
        spare(7),
        signed_quantity("RPP", "", 9, {1, 1}, "dB")),
    signed_quantity("RPS", "Reflected Path - Signal to Noise Ratio (SNR)", 8, {1, 1}, "dB"));

constexpr auto I631 = repetitive("I631", "Contour (Azimuth, Elevation Angle, Range Extent)",
    group("", "",
        quantity("AZCON", "", 16, {360, 1U << 16}, "°"),
        signed_quantity("ELCON", "", 16, {180, 1U << 16}, "°"),
        quantity("RGCONSTOP", "", 16, {10000, 1U << 16}, "m"),
        quantity("RGCONSTART", "", 16, {10000, 1U << 16}, "m")));

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(20, I020), item(30, I030), item(50, I050), item(145, I145),
    item(161, I161), item(170, I170), item(270, I270), item(300, I300), item(400, I400), item(480, I480),
    item(600, I600), item(601, I601), item(602, I602), item(603, I603), item(604, I604), item(605, I605),
    item(625, I625), item(626, I626), item(627, I627), item(628, I628), item(630, I630), item(631, I631),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 15, 20, 30, 145, 161,
    170, 50, 270, 300, 400, 600, 601,
    602, 603, 604, 605, 480, 625, 626,
    627, 628, 630, 631, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat015 =
    edition<kItems>(15, "1.2", "Independent Non-Cooperative Surveillance System Target Reports", profile(kProfile));

} // namespace ast::schema
