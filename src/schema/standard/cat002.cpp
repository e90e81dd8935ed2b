// Category 002: Transmission of Monoradar Service Messages, edition 1.2.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "1:North marker message|Sector crossing message|South marker message|8:Activation of blind zone filtering|"
    "Stop of blind zone filtering");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = quantity("I020", "Sector Number", 8, {360, 1U << 8}, "°");

constexpr auto I030 = quantity("I030", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I041 = quantity("I041", "Antenna Rotation Speed", 16, {1, 1U << 7}, "s");

constexpr auto I050 = chained("I050", "Station Configuration Status",
    raw("", "", 7));

constexpr auto I060 = chained("I060", "Station Processing Mode",
    raw("", "", 7));

constexpr auto I070 = repetitive("I070", "Plot Count Values",
    group("", "",
        code("A", "Aerial Identification", 1, "Counter for antenna 1|Counter for antenna 2"),
        code("IDENT", "", 5, "1:Sole primary plots|Sole SSR plots|Combined plots"),
        integer("COUNTER", "", 10)));

constexpr auto I080 = chained("I080", "Warning/Error Conditions",
    raw("", "", 7));

constexpr auto I090 = group("I090", "Collimation Error",
    signed_quantity("RE", "Range Error", 8, {1, 1U << 7}, "NM"),
    signed_quantity("AE", "Azimuth Error", 8, {360, 1U << 14}, "°"));

constexpr auto I100 = group("I100", "Dynamic Window Type 1",
    quantity("RS", "Rho Start", 16, {1, 1U << 7}, "NM"),
    quantity("RE", "Rho End", 16, {1, 1U << 7}, "NM"),
    quantity("TS", "Theta Start", 16, {360, 1U << 16}, "°"),
    quantity("TE", "Theta End", 16, {360, 1U << 16}, "°"));

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr auto RFS = random_field_sequencing();

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(20, I020), item(30, I030), item(41, I041), item(50, I050), item(60, I060),
    item(70, I070), item(80, I080), item(90, I090), item(100, I100), item(AST_ITEM_RFS, RFS), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 20, 30, 41, 50, 60,
    70, 100, 90, 80, kSpare, AST_ITEM_SPF, AST_ITEM_RFS,
};

// clang-format on

} // namespace

constinit const Edition kCat002 =
    edition<kItems>(2, "1.2", "Transmission of Monoradar Service Messages", profile(kProfile));

} // namespace ast::schema
