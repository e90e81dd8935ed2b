// Category 009: Composite Weather Reports, edition 2.1.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "2:Cartesian vector|253:Intermediate-update-step message|Start-of-picture message|End-of-picture message");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = extended("I020", "Vector Qualifier",
    part(code("ORG", "", 1, "Local Coordinates|System Coordinates"),
         integer("I", "Intensity Level", 3),
         code("S", "Shading Orientation with Respect to North", 3, "0°|22.5°|45°|67.5°|90°|112.5°|135°|157.5°")));

constexpr auto I030 = repetitive("I030", "Sequence of Cartesian Vectors",
    group("", "",
        signed_integer("X", "X-coordinate", 16),
        signed_integer("Y", "Y-coordinate", 16),
        integer("L", "Vector Length", 16)));

constexpr auto I060 = extended("I060", "Synchronisation/Control Signal",
    part(integer("SN", "Step Number", 6),
         spare(1)));

constexpr auto I070 = quantity("I070", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I080 = extended("I080", "Processing Status",
    part(signed_integer("F", "Scaling Factor", 5),
         raw("R", "Current Reduction Stage in Use", 3),
         raw("Q", "Processing Parameters", 15)));

constexpr auto I090 = repetitive("I090", "Radar Configuration and Status",
    group("", "",
        raw("SAC", "SAC of Radar Concerned", 8),
        raw("SIC", "SIC of Radar Concerned", 8),
        spare(3),
        raw("CP", "Circular Polarisation", 1),
        raw("WO", "Weather Channel Overload", 1),
        raw("R", "Reduction Step in Use By Radar  Concerned", 3)));

constexpr auto I100 = integer("I100", "Vector Count", 16);

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(20, I020), item(30, I030), item(60, I060), item(70, I070), item(80, I080),
    item(90, I090), item(100, I100),
};

constexpr uint16_t kProfile[] = {
    10, 0, 20, 30, 60, 70, 80,
    90, 100,
};

// clang-format on

} // namespace

constinit const Edition kCat009 = edition<kItems>(9, "2.1", "Composite Weather Reports", profile(kProfile));

} // namespace ast::schema
