// Category 016: Independent Non-Cooperative Surveillance System Configuration Reports, edition 1.0.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8, "1:System Configuration|Transmitter / Receiver Configuration");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I200 = quantity("I200", "System Configuration Reporting Period", 8, {1, 1}, "s");

constexpr auto I300 = repetitive("I300", "Pair Identification",
    group("", "",
        raw("PID", "Pair Identification", 16),
        raw("TID", "Transmitter Identification", 16),
        raw("RID", "Receiver Identification", 16)));

constexpr auto I400 = group("I400", "Position of the System Reference Point",
    signed_quantity("LAT", "Latitude", 32, {180, 1U << 31}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 31}, "°"));

constexpr auto I405 = signed_quantity("I405", "Height of System Reference Point", 16, {1, 1U << 2}, "m");

constexpr auto I410 = repetitive("I410", "Transmitter Properties",
    group("", "",
        raw("TID", "Transmitter ID", 16),
        signed_quantity("LAT", "Latitude", 32, {180, 1U << 31}, "°"),
        signed_quantity("LON", "Longitude", 32, {180, 1U << 31}, "°"),
        signed_quantity("ALT", "Altitude", 16, {1, 1U << 2}, "m"),
        signed_quantity("TTO", "Transmission Time Offset", 32, {2, 1}, "ns"),
        spare(4),
        quantity("ATO", "Accuracy of Transmission Time Offset", 20, {1, 1}, "ns"),
        integer("PCI", "Parallel Transmitter Index", 16)));

constexpr auto I420 = repetitive("I420", "Receiver Properties",
    group("", "",
        raw("RID", "Receiver Component ID", 16),
        signed_quantity("LAT", "Latitude", 32, {180, 1U << 31}, "°"),
        signed_quantity("LON", "Longitude", 32, {180, 1U << 31}, "°"),
        signed_quantity("ALT", "Altitude", 16, {1, 1U << 2}, "m")));

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(140, I140), item(200, I200), item(300, I300), item(400, I400),
    item(405, I405), item(410, I410), item(420, I420), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 15, 0, 140, 200, 300, 400,
    405, 410, 420, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat016 = edition<kItems>(
    16, "1.0", "Independent Non-Cooperative Surveillance System Configuration Reports", profile(kProfile));

} // namespace ast::schema
