// Category 017: Mode S Surveillance Coordination Function Messages, edition 1.3.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "Network information|10:Track data|20:Track data request|Track data stop|Cancel track data request|"
    "Track data stop acknowledgement|30:New Node / Change-over Initial or intermediate message segment|"
    "New Node / Change-over Final or only message segment|"
    "New Node / Change-over Initial or intermediate message segment reply|"
    "New Node / Change-over Final or only message segment reply|110:Move node to new cluster state;|"
    "Move node to new cluster state acknowledgement");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I012 = group("I012", "Data Destination Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I045 = group("I045", "Calculated Position in WGS-84 Coordinates",
    signed_quantity("LAT", "Latitude", 24, {180, 1U << 23}, "°"),
    signed_quantity("LON", "Longitude", 24, {180, 1U << 23}, "°"));

constexpr auto I050 = group("I050", "Flight Level in Binary Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code / Error correction applied"),
    quantity("ALT", "Altitude", 14, {1, 1U << 2}, "FL"));

constexpr auto I070 = group("I070", "Mode 3/A Code in Octal Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-3/A code derived from the reply of the transponder|"
        "Smoothed Mode-3/A code not extracted during the last scan"),
    spare(1),
    octal("MODE3A", "Mode 3/A Reply in Octal Representation", 12));

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I200 = group("I200", "Track Velocity in Polar Co-ordinates",
    quantity("GSP", "Calculated Groundspeed", 16, {1, 1U << 14}, "NM/s"),
    quantity("HDG", "Calculated Heading", 16, {360, 1U << 16}, "°"));

constexpr auto I210 = repetitive("I210", "Mode S Address List",
    raw("", "", 24));

constexpr auto I220 = raw("I220", "Aircraft Address", 24);

constexpr auto I221 = raw("I221", "Duplicate Address Reference Number (DRN)", 16);

constexpr auto I230 = group("I230", "Transponder Capability",
    code("CA", "Communications Capability of the Transponder", 3,
        "No communications capability (surveillance only), no ability to set CA code 7 either airborne or on the "
        "ground|"
        "Reserved|Reserved|Reserved|"
        "At Least Comm. A and Comm. B capability and the ability to set CA code 7 and on the ground|"
        "At Least Comm. A and Comm. B capability and the ability to set CA code 7 and airborne|"
        "At Least Comm. A and Comm. B capability and the ability to set CA code 7 and either airborne or on the "
        "ground|"
        "Signifies the DR field is not equal to 0 or the FS field equals 2, 3, 4 or 5 and either airborne or on "
        "the ground SI/II-capabilities of the Transponder"),
    code("SI", "SI/II-capabilities of the Transponder", 1, "Transponder SI capable|Transponder not SI capable"),
    spare(4));

constexpr auto I240 = group("I240", "Track Status",
    code("CST", "Track Coasted", 1, "Measured position|No measured position (coasted)"),
    code("FLT", "Flight Level Tracking", 1, "Last Measured Flight Level|Predicted Flight Level"),
    spare(6));

constexpr auto I350 = repetitive("I350", "Cluster Station/Node List",
    group("", "",
        raw("SAC", "System Area Code", 8),
        raw("SIC", "System Identification Code", 8)));

constexpr auto I360 = raw("I360", "Cluster Controller Command State", 8);

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(12, I012), item(45, I045), item(50, I050), item(70, I070), item(140, I140),
    item(200, I200), item(210, I210), item(220, I220), item(221, I221), item(230, I230), item(240, I240),
    item(350, I350), item(360, I360), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 12, 0, 350, 220, 221, 140,
    45, 70, 50, 200, 230, 240, 210,
    360, kSpare, kSpare, kSpare, kSpare, kSpare, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat017 =
    edition<kItems>(17, "1.3", "Mode S Surveillance Coordination Function Messages", profile(kProfile));

} // namespace ast::schema
