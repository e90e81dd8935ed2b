// Category 240: Radar Video Transmission, edition 1.3.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8, "1:Video Summary message|Video message");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = integer("I020", "Video Record Header", 32);

constexpr auto I030 = repetitive("I030", "Video Summary",
    ascii("", "", 8));

constexpr auto I040 = group("I040", "Video Header Nano",
    quantity("STARTAZ", "Start Azimuth of the Cells Group", 16, {360, 1U << 16}, "°"),
    quantity("ENDAZ", "End Azimuth of the Cells Group", 16, {360, 1U << 16}, "°"),
    integer("STARTRG", "Starting Range of the Cells Group, Expressed in Number of Cells", 32),
    quantity("CELLDUR", "Video Cell Duration in Nano-seconds", 32, {1, 1}, "ns"));

constexpr auto I041 = group("I041", "Video Header Femto",
    quantity("STARTAZ", "Start Azimuth of the Cells Group", 16, {360, 1U << 16}, "°"),
    quantity("ENDAZ", "End Azimuth of the Cells Group", 16, {360, 1U << 16}, "°"),
    integer("STARTRG", "Starting Range of the Cells Group, Expressed in Number of Cells", 32),
    quantity("CELLDUR", "Video Cell Duration in Femto-seconds", 32, {1, 1}, "fs"));

constexpr auto I048 = group("I048", "Video Cells Resolution & Data Compression Indicator",
    code("C", "Data Compression Indicator", 1, "No compression applied|Compression applied"),
    spare(7),
    code("RES", "Bit Resolution", 8,
        "1:Monobit Resolution (1 bit)|Low Resolution (2 bits)|Medium Resolution (4 bits)|"
        "High Resolution (8 bits)|Very High Resolution (16 bits)|Ultra High Resolution (32 bits)"));

constexpr auto I049 = group("I049", "Video Octets & Video Cells Counters",
    integer("NBVB", "Number of 'valid' Octets", 16),
    integer("NBCELLS", "Number of 'valid' Cells", 24));

constexpr auto I050 = repetitive("I050", "Video Block Low Data Volume",
    raw("", "", 32));

constexpr auto I051 = repetitive("I051", "Video Block Medium Data Volume",
    raw("", "", 512));

constexpr auto I052 = repetitive("I052", "Video Block High Data Volume",
    raw("", "", 2048));

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(20, I020), item(30, I030), item(40, I040), item(41, I041), item(48, I048),
    item(49, I049), item(50, I050), item(51, I051), item(52, I052), item(140, I140), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 20, 30, 40, 41, 48,
    49, 50, 51, 52, 140, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat240 = edition<kItems>(240, "1.3", "Radar Video Transmission", profile(kProfile));

} // namespace ast::schema
