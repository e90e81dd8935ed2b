// Category 063: Sensor Status Reports, edition 1.7.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I030 = quantity("I030", "Time of Message", 24, {1, 1U << 7}, "s");

constexpr auto I050 = group("I050", "Sensor Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I060 = extended("I060", "Sensor Configuration and Status",
    part(code("CON", "", 2, "Operational|Degraded|Initialization|Not currently connected"),
         code("PSR", "", 1, "PSR GO|PSR NOGO"),
         code("SSR", "", 1, "SSR GO|SSR NOGO"),
         code("MDS", "", 1, "MDS GO|MDS NOGO"),
         code("ADS", "", 1, "ADS GO|ADS NOGO"),
         code("MLT", "", 1, "MLT GO|MLT NOGO")),
    part(code("OPS", "Operational Release Status of the System", 1,
             "System is released for operational use|Operational use of System is inhibited"),
         code("ODP", "Data Processor Overload Indicator", 1, "Default, no overload|Overload in DP"),
         code("OXT", "Transmission Subsystem Overload Status", 1,
             "Default, no overload|Overload in transmission subsystem"),
         code("MSC", "Monitoring System Connected Status", 1,
             "Monitoring system connected|Monitoring system disconnected"),
         code("TSV", "Time Source Validity", 1, "Valid|Invalid"),
         code("NPW", "No Plot Warning", 1, "Default (no meaning)|No plots being received"),
         spare(1)),
    part(group("TTF", "Test Target Failure Status from Sensor",
             code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
             code("VAL", "Test Target Failure Status Values", 1, "Test Target Operative|Test Target Failure")),
         group("SPO", "Indication of Spoofing Attack from Sensor",
             code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
             code("VAL", "Indication of Spoofing Attack Values", 1, "No spoofing detected|Potential spoofing attack")),
         spare(3)));

constexpr auto I070 = signed_quantity("I070", "Time Stamping Bias", 16, {1, 1}, "ms");

constexpr auto I080 = group("I080", "SSR / Mode S Range Gain and Bias",
    signed_quantity("SRG", "Mode S Range Gain", 16, {1, 100000}, ""),
    signed_quantity("SRB", "Mode S Range Bias", 16, {1, 1U << 7}, "NM"));

constexpr auto I081 = signed_quantity("I081", "SSR Mode S Azimuth Bias", 16, {360, 1U << 16}, "°");

constexpr auto I090 = group("I090", "PSR Range Gain and Bias",
    signed_quantity("PRG", "PSR Range Gain", 16, {1, 100000}, ""),
    signed_quantity("PRB", "PSR Range Bias", 16, {1, 1U << 7}, "NM"));

constexpr auto I091 = signed_quantity("I091", "PSR Azimuth Bias", 16, {360, 1U << 16}, "°");

constexpr auto I092 = signed_quantity("I092", "PSR Elevation Bias", 16, {360, 1U << 16}, "°");

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(10, I010), item(15, I015), item(30, I030), item(50, I050), item(60, I060), item(70, I070), item(80, I080),
    item(81, I081), item(90, I090), item(91, I091), item(92, I092), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 15, 30, 50, 60, 70, 80,
    81, 90, 91, 92, kSpare, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat063 = edition<kItems>(63, "1.7", "Sensor Status Reports", profile(kProfile));

} // namespace ast::schema
