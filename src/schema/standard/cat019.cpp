// Category 019: Multilateration System Status Messages, edition 1.3.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8, "1:Start of Update Cycle|Periodic Status Message|Event-triggered Status Message");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I550 = group("I550", "System Status",
    code("NOGO", "Operational Release Status of the System", 2, "Operational|Degraded|NOGO|Undefined"),
    code("OVL", "Overload Indicator", 1, "No overload|Overload"),
    code("TSV", "Time Source Validity", 1, "Valid|Invalid"),
    code("TTF", "Test Target", 1, "Test Target Operative|Test Target Failure"),
    spare(3));

constexpr auto I551 = group("I551", "Tracking Processor Detailed Status",
    code("TP1A", "", 1, "Standby|Exec"),
    code("TP1B", "", 1, "Faulted|Good"),
    code("TP2A", "", 1, "Standby|Exec"),
    code("TP2B", "", 1, "Faulted|Good"),
    code("TP3A", "", 1, "Standby|Exec"),
    code("TP3B", "", 1, "Faulted|Good"),
    code("TP4A", "", 1, "Standby|Exec"),
    code("TP4B", "", 1, "Faulted|Good"));

constexpr auto I552 = repetitive("I552", "Remote Sensor Detailed Status",
    group("", "",
        raw("RSI", "8-bit Identification Number of RS", 8),
        spare(1),
        code("RS1090", "Receiver 1090 MHz", 1, "Not present|Present"),
        code("TX1030", "Transmitter 1030 MHz", 1, "Not present|Present"),
        code("TX1090", "Transmitter 1090 MHz", 1, "Not present|Present"),
        code("RSS", "RS Status", 1, "Faulted|Good"),
        code("RSO", "RS Operational", 1, "Offline|Online"),
        spare(2)));

constexpr auto I553 = extended("I553", "Reference Transponder Detailed Status",
    part(code("REFTR1", "Ref Trans 1 Status", 2, "1:Warning|Faulted|Good"),
         spare(2),
         code("REFTR2", "Ref Trans 2 Status", 2, "1:Warning|Faulted|Good"),
         spare(1)),
    part(code("REFTR3", "Ref Trans 3 Status", 2, "1:Warning|Faulted|Good"),
         spare(2),
         code("REFTR4", "Ref Trans 4 Status", 2, "1:Warning|Faulted|Good"),
         spare(1)));

constexpr auto I600 = group("I600", "Position of the MLT System Reference Point",
    signed_quantity("LAT", "Latitude", 32, {180, 1U << 30}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 30}, "°"));

constexpr auto I610 = signed_quantity("I610", "Height of the MLT System Reference Point", 16, {1, 1U << 2}, "m");

constexpr auto I620 = signed_quantity("I620", "WGS-84 Undulation", 8, {1, 1}, "m");

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(140, I140), item(550, I550), item(551, I551), item(552, I552),
    item(553, I553), item(600, I600), item(610, I610), item(620, I620), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 140, 550, 551, 552, 553,
    600, 610, 620, kSpare, kSpare, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat019 =
    edition<kItems>(19, "1.3", "Multilateration System Status Messages", profile(kProfile));

} // namespace ast::schema
