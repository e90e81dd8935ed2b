// Category 034: Transmission of Monoradar Service Messages, edition 1.29.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "1:North marker message|Sector crossing message|Geographical filtering message|Jamming strobe message|"
    "Solar Storm Message|SSR Jamming Strobe Message|Mode S Jamming Strobe Message");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = quantity("I020", "Sector Number", 8, {360, 1U << 8}, "°");

constexpr auto I030 = quantity("I030", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I041 = quantity("I041", "Antenna Rotation Speed", 16, {1, 1U << 7}, "s");

constexpr auto I050 = compound("I050", "System Configuration and Status",
    group("COM", "Common Part",
        code("NOGO", "Operational Release Status of the System", 1,
            "System is released for operational use|"
            "Operational use of System is inhibited, i.e. the data shall be discarded by an operational SDPS"),
        code("RDPC", "Radar Data Processor Chain Selection Status", 1, "RDPC-1 selected|RDPC-2 selected"),
        code("RDPR", "Event to Signal a Reset/restart of the Selected Radar Data Processor Chain, I.e. Expect a New Assignment of Track Numbers", 1,
            "Default situation|Reset of RDPC"),
        code("OVLRDP", "Radar Data Processor Overload Indicator", 1, "Default, no overload|Overload in RDP"),
        code("OVLXMT", "Transmission Subsystem Overload Status", 1,
            "Default, no overload|Overload in transmission subsystem"),
        code("MSC", "Monitoring System Connected Status", 1,
            "Monitoring system connected|Monitoring system disconnected"),
        code("TSV", "Time Source Validity", 1, "Valid|Invalid"),
        spare(1)),
    none(),
    none(),
    group("PSR", "Specific Status Information for a PSR Sensor",
        code("ANT", "Selected Antenna", 1, "Antenna 1|Antenna 2"),
        code("CHAB", "Channel A/B Selection Status", 2,
            "No channel selected|Channel A only selected|Channel B only selected|"
            "Diversity mode ; Channel A and B selected"),
        code("OVL", "Overload Condition", 1, "No overload|Overload"),
        code("MSC", "Monitoring System Connected Status", 1,
            "Monitoring system connected|Monitoring system disconnected"),
        spare(3)),
    group("SSR", "Specific Status Information for a SSR Sensor",
        code("ANT", "Selected Antenna", 1, "Antenna 1|Antenna 2"),
        code("CHAB", "Channel A/B Selection Status", 2,
            "No channel selected|Channel A only selected|Channel B only selected|Invalid combination"),
        code("OVL", "Overload Condition", 1, "No overload|Overload"),
        code("MSC", "Monitoring System Connected Status:", 1,
            "Monitoring system connected|Monitoring system disconnected"),
        spare(3)),
    group("MDS", "Specific Status Information for a Mode S Sensor",
        code("ANT", "Selected Antenna", 1, "Antenna 1|Antenna 2"),
        code("CHAB", "Channel A/B Selection Status", 2,
            "No channel selected|Channel A only selected|Channel B only selected|Illegal combination"),
        code("OVLSUR", "Overload Condition", 1, "No overload|Overload"),
        code("MSC", "Monitoring System Connected Status:", 1,
            "Monitoring system connected|Monitoring system disconnected"),
        code("SCF", "Channel A/B Selection Status for Surveillance Co-ordination Function", 1,
            "Channel A in use|Channel B in use"),
        code("DLF", "Channel A/B Selection Status for Data Link Function", 1, "Channel A in use|Channel B in use"),
        code("OVLSCF", "Overload in Surveillance Co-ordination Function", 1, "No overload|Overload"),
        code("OVLDLF", "Overload in Data Link Function", 1, "No overload|Overload"),
        spare(7)));

constexpr auto I060 = compound("I060", "System Processing Mode",
    group("COM", "Common Part",
        spare(1),
        code("REDRDP", "Reduction Steps in Use for An Overload of the RDP", 3,
            "No reduction active|Reduction step 1 active|Reduction step 2 active|Reduction step 3 active|"
            "Reduction step 4 active|Reduction step 5 active|Reduction step 6 active|Reduction step 7 active"),
        code("REDXMT", "Reduction Steps in Use for An Overload of the Transmission Subsystem", 3,
            "No reduction active|Reduction step 1 active|Reduction step 2 active|Reduction step 3 active|"
            "Reduction step 4 active|Reduction step 5 active|Reduction step 6 active|Reduction step 7 active"),
        spare(1)),
    none(),
    none(),
    group("PSR", "Specific Processing Mode Information for a PSR Sensor",
        code("POL", "Polarization in Use by PSR", 1, "Linear polarization|Circular polarization"),
        code("REDRAD", "Reduction Steps in Use as Result of An Overload Within the PSR Subsystem", 3,
            "No reduction active|Reduction step 1 active|Reduction step 2 active|Reduction step 3 active|"
            "Reduction step 4 active|Reduction step 5 active|Reduction step 6 active|Reduction step 7 active"),
        code("STC", "Sensitivity Time Control Map in Use", 2, "STC Map-1|STC Map-2|STC Map-3|STC Map-4"),
        spare(2)),
    group("SSR", "Specific Processing Mode Information for a SSR Sensor",
        code("REDRAD", "Reduction Steps in Use as Result of An Overload Within the SSR Subsystem", 3,
            "No reduction active|Reduction step 1 active|Reduction step 2 active|Reduction step 3 active|"
            "Reduction step 4 active|Reduction step 5 active|Reduction step 6 active|Reduction step 7 active"),
        spare(5)),
    group("MDS", "Specific Processing Mode Information for a Mode S Sensor",
        code("REDRAD", "Reduction Steps in Use as Result of An Overload Within the Mode S Subsystem", 3,
            "No reduction active|Reduction step 1 active|Reduction step 2 active|Reduction step 3 active|"
            "Reduction step 4 active|Reduction step 5 active|Reduction step 6 active|Reduction step 7 active"),
        code("CLU", "Cluster State", 1, "Autonomous|Not autonomous"),
        spare(4)));

constexpr auto I070 = repetitive("I070", "Message Count Values",
    group("", "",
        code("TYP", "Type of Message Counter", 5,
            "No detection (number of misses)|Single PSR target reports|Single SSR target reports (Non-Mode S)|"
            "SSR+PSR target reports (Non-Mode S)|Single All-Call target reports (Mode S)|"
            "Single Roll-Call target reports (Mode S)|All-Call + PSR (Mode S) target reports|"
            "Roll-Call + PSR (Mode S) target reports|Filter for Weather data|Filter for Jamming Strobe|"
            "Filter for PSR data|Filter for SSR/Mode S data|Filter for SSR/Mode S+PSR data|"
            "Filter for Enhanced Surveillance data|Filter for PSR+Enhanced Surveillance|"
            "Filter for PSR+Enhanced Surveillance + SSR/Mode S data not in Area of Prime Interest|"
            "Filter for PSR+Enhanced Surveillance + all SSR/Mode S data|Re-Interrogations (per sector)|"
            "BDS Swap and wrong DF replies(per sector)|Mode A/C FRUIT (per sector)|Mode S FRUIT (per sector)"),
        integer("COUNT", "COUNTER", 11)));

constexpr auto I090 = group("I090", "Collimation Error",
    signed_quantity("RNG", "Range Error", 8, {1, 1U << 7}, "NM"),
    signed_quantity("AZM", "Azimuth Error", 8, {360, 1U << 14}, "°"));

constexpr auto I100 = group("I100", "Generic Polar Window",
    quantity("RHOST", "Rho Start", 16, {1, 1U << 8}, "NM"),
    quantity("RHOEND", "Rho End", 16, {1, 1U << 8}, "NM"),
    quantity("THETAST", "Theta Start", 16, {360, 1U << 16}, "°"),
    quantity("THETAEND", "Theta End", 16, {360, 1U << 16}, "°"));

constexpr auto I110 = code("I110", "Data Filter", 8,
    "Invalid value|Filter for Weather data|Filter for Jamming Strobe|Filter for PSR data|"
    "Filter for SSR/Mode S data|Filter for SSR/Mode S + PSR data|Enhanced Surveillance data|"
    "Filter for PSR+Enhanced Surveillance data|"
    "Filter for PSR+Enhanced Surveillance + SSR/Mode S data not in Area of Prime Interest|"
    "Filter for PSR+Enhanced Surveillance + all SSR/Mode S data");

constexpr auto I120 = group("I120", "3D-Position Of Data Source",
    signed_quantity("HGT", "Height of Data Source", 16, {1, 1}, "m"),
    signed_quantity("LAT", "Latitude", 24, {180, 1U << 23}, "°"),
    signed_quantity("LON", "Longitude", 24, {180, 1U << 23}, "°"));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(20, I020), item(30, I030), item(41, I041), item(50, I050), item(60, I060),
    item(70, I070), item(90, I090), item(100, I100), item(110, I110), item(120, I120), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 30, 20, 41, 50, 60,
    70, 100, 110, 120, 90, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat034 =
    edition<kItems>(34, "1.29", "Transmission of Monoradar Service Messages", profile(kProfile));

} // namespace ast::schema
