#include <cmath>
#include <limits>

#include "support/items.hpp"

using namespace ast_test;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

ast_value_pair_t pair(double value_1, double value_2) {
    return {.valid = true, .value_1 = value_1, .value_2 = value_2};
}

// ---- WGS-84 position, six octets ----

// That every row but those excepted has these octets and the item's one label.
void expect_wgs84_labels(const std::string &view, const std::string &octets, size_t excepted) {
    const auto rows = rows_of(view);
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows[0], "Octet|Item|Value");
    for (size_t i = 1; i < rows.size(); ++i)
        EXPECT_EQ(rows[i].find((i == excepted ? "Octet[1-6]" : octets) + "|WGS84_COORDINATES|"), 0U) << rows[i];
}

TEST(PositionLow, ViewsGiveDegreesMinutesSeconds) {
    expect_summaries(21130, "00 00 00 00 00 00 = WGS84:000000S0000000W; " // meant: zero is south and west
                            "20 00 00 E0 00 00 = WGS84:450000N0450000W; E0 00 00 20 00 00 = WGS84:450000S0450000E; "
                            "40 00 00 80 00 00 = WGS84:900000N1800000W; "
                            "00 00 01 7F FF FF = WGS84:000000N1795960E"); // meant: no carry of 60 seconds
    expect_values(21130, "20 00 00 E0 00 00 = 450000N0450000W|450000.00N0450000.00W|450000.000000N0450000.000000W|"
                         "045.000000, -045.000000|2097152, -2097152|Google Maps|OpenStreetMap|AMap|Baidu Map");
    const std::string view = detail_of(21130, "20 00 00 E0 00 00");
    expect_wgs84_labels(view, "Octet[1-6]", 0);
    EXPECT_NE(view.find("mlat=45.000000&mlon=-45.000000\">OpenStreetMap</a>"), std::string::npos);
}

TEST(PositionLow, EncodesNegativeAnglesOneLower) {
    const EncodeCase<ast_value_pair_t> cases[] = {
        {"north east", pair(45, 90), "20 00 00 40 00 00"},
        {"meant: one lower", pair(-45, -90), "DF FF FF BF FF FF"},
        {"extremes; 180 reads back as -180", pair(90, 180), "40 00 00 80 00 00"},
        {"other extremes", pair(-90, -180), "BF FF FF 7F FF FF"},
        {"less than a unit is cut off first", pair(-0.00001, 0.00002), "00 00 00 00 00 00"},
        {"beyond the pole", pair(90.0001, 0), nullptr},
        {"beyond the other pole", pair(-90.0001, 0), nullptr},
        {"beyond the date line", pair(0, 180.0001), nullptr},
        {"beyond it westward", pair(0, -180.0001), nullptr},
        {"no number", pair(kNan, 0), nullptr},
    };
    expect_encodes(21130, cases);
}

// ---- WGS-84 position, eight octets ----

TEST(Position, UnitsDependOnTheItem) {
    constexpr char kOctets[] = "00 40 00 00 FF C0 00 00";
    for (const ast_dataitem_type_t type : {10041U, 16400U}) // 180/2^31: 0.3515625 degrees
        EXPECT_EQ(summary_of(type, kOctets), "WGS84:002106N0002106W") << type;
    for (const ast_dataitem_type_t type : {19600U, 21131U}) // 180/2^30: 0.703125 degrees
        EXPECT_EQ(summary_of(type, kOctets), "WGS84:004211N0004211W") << type;
    for (const ast_dataitem_type_t type : {20041U, 21902U, 62105U}) // 180/2^25: 22.5 degrees
        EXPECT_EQ(summary_of(type, kOctets), "WGS84:223000N0223000W") << type;
    expect_summaries(10041, "40 00 00 00 80 00 00 00 = WGS84:900000N1800000W");
    // 19 characters of a position, where a latitude takes three digits of degrees
    expect_summaries(62105, "90 22 C6 9C 7C 8A 1A 02 = WGS84:100674627S112083305");
}

TEST(Position, OptionTurnsLongitudesOfTracksToTheEast) {
    constexpr const char *kWest = "00 40 00 00 FF C0 00 00";
    ast_library_set_option(AST_OPTION_INVERT_062_LONGITUDE);
    const std::string track = summary_of(62105, kWest);
    const std::string other = summary_of(20041, kWest);
    const auto farthest = ast_dataitem_position_wgs84_decode(Item(62105, "00 00 00 00 80 00 00 00"));
    ast_library_unset_option(AST_OPTION_INVERT_062_LONGITUDE);
    EXPECT_EQ(track, "WGS84:223000N0223000E");
    EXPECT_EQ(other, "WGS84:223000N0223000W");
    EXPECT_GT(farthest.value_2, 0);
}

TEST(Position, DetailLabelsTheRawRowAsOfSixOctets) {
    expect_values(62105, "00 40 00 00 FF C0 00 00 = 223000N0223000W|223000.00N0223000.00W|"
                         "223000.000000N0223000.000000W|022.50000000, -022.50000000|4194304, -4194304|"
                         "Google Maps|OpenStreetMap|AMap|Baidu Map");
    expect_wgs84_labels(detail_of(62105, "00 40 00 00 FF C0 00 00"), "Octet[1-8]", 5); // meant, in this row alone
}

// Of 22.5 degrees north and 45 east, in six octets, in eight, and behind a height.
TEST(Position, IsThePlaceThatMapsAreAskedFor) {
    for (const auto &[type, hex] : {std::pair{21130U, "10 00 00 20 00 00"},
                                    {62105U, "00 40 00 00 00 80 00 00"},
                                    {34120U, "00 64 10 00 00 20 00 00"}}) {
        const std::string view = detail_of(type, hex);
        for (const char *const place : {"/maps/place/22.500000,45.000000", "/?mlat=22.500000&mlon=45.000000",
                                        "/marker?position=45.000000,22.500000", "/marker?location=22.500000,45.000000"})
            EXPECT_NE(view.find(place), view.npos) << type << ": " << place;
    }
}

TEST(Position, EncodesOneScaleWhateverTheItem) {
    const EncodeCase<ast_value_pair_t> cases[] = {
        {"north east", pair(22.5, 45), "00 40 00 00 00 80 00 00"},
        {"meant: one lower", pair(-22.5, -45), "FF BF FF FF FF 7F FF FF"},
        {"extremes", pair(90, 180), "01 00 00 00 02 00 00 00"},
        {"beyond the pole", pair(90.0001, 0), nullptr},
        {"beyond the date line", pair(0, -180.0001), nullptr},
        {"no number", pair(0, kNan), nullptr},
    };
    // Meant: all but the last have finer units, and read another position than was encoded.
    for (const ast_dataitem_type_t type : {10041U, 16400U, 21131U, 21902U}) expect_encodes(type, cases);
}

// ---- Cartesian position and velocity ----

TEST(Cartesian, SummaryGivesBothAxes) {
    expect_summaries(62100, "00 00 01 FF FF FF = X:0.5 Y:-0.5 LSB:M; "
                            "7F FF FF 80 00 00 = X:4194303.5 Y:-4194304.0 LSB:M");
    expect_summaries(62185, "00 01 FF FF = VX:0.25 VY:-0.25 LSB:M/S; 7F FF 80 00 = VX:8191.75 VY:-8192.00 LSB:M/S");
}

// ---- Polar velocity ----

TEST(VelocityPolar, ViewsGiveSpeedAndHeading) {
    expect_summaries(48200, "00 00 00 00 = SPD:0.00 HDG:0.00; 04 00 40 00 = SPD:225.00 HDG:90.00; "
                            "FF FF FF FF = SPD:14399.78 HDG:359.99");
    expect_table(48200, "04 00 40 00",
                 "Octet|Item|Value; Octet[1-2]|GROUND_SPEED LSB:NM/S|0.062500; Octet[1-2]|GROUND_SPEED LSB:M/S|115.75; "
                 "Octet[1-2]|GROUND_SPEED LSB:KNOT|225.00; Octet[1-2]|GROUND_SPEED LSB:KM/H|416.70; "
                 "Octet[3-4]|HEADING LSB:DEG|90.00");
}

TEST(VelocityPolar, EncodesValuesOrElseRawOnes) {
    constexpr EncodeCase<ast_value_pair_t> kCases[] = {
        {"values", {.valid = true, .raw_1 = 7, .raw_2 = 7, .value_1 = 225, .value_2 = 90}, "04 00 40 00"},
        {"rounded", {.valid = true, .value_1 = 0.12, .value_2 = 0.002}, "00 01 00 00"},
        {"one positive value counts for both", {.valid = true, .raw_1 = 7, .value_2 = 90}, "00 00 40 00"},
        {"no positive value", {.valid = true, .raw_1 = 1, .raw_2 = 0xFFFF, .value_2 = -90}, "00 01 FF FF"},
    };
    expect_encodes(48200, kCases);
}

TEST(VelocityPolar, EncoderStoresBackEvenWhatIsNotValid) {
    ast_value_pair_t velocity{.valid = false, .value_1 = 225, .value_2 = 90};
    expect_encodes("not valid", 48200, &velocity, nullptr);
    EXPECT_EQ(velocity.raw_1, 1024); // meant: the raw values are stored before valid is looked at
    EXPECT_EQ(velocity.raw_2, 16384);
}

// ---- Height and vertical rate ----

TEST(Height, ViewsGiveFeetAndMetres) {
    expect_summaries(20105, "00 00 = H:0.00 LSB:FT; 00 01 = H:6.25 LSB:FT; FF FF = H:-6.25 LSB:FT; "
                            "7F FF = H:204793.75 LSB:FT; 80 00 = H:-204800.00 LSB:FT");
    expect_table(10091, "00 64",
                 "Bit|Item|Value; Bit[0-15]|HEIGHT LSB=6.25FT|100; Bit[0-15]|HEIGHT LSB=FT|625.00; "
                 "Bit[0-15]|HEIGHT LSB=M|190.50");
    expect_values(10091, "80 00 = -32768|-204800.0|-62423.04"); // feet cut by the cell
}

TEST(VerticalRate, ViewsGiveFeetAndMetresPerMinute) {
    expect_summaries(21155, "00 00 = VR:0.00FT/M; 80 01 = VR:6.25FT/M; " // range exceeded is no part of it
                            "7F FF = VR:-6.25FT/M; 3F FF = VR:102393.75FT/M; 40 00 = VR:-102400.00FT/M");
    EXPECT_TRUE(ast_dataitem_vertical_rate_decode(Item(21155, "80 01")).flag);
    EXPECT_FALSE(ast_dataitem_vertical_rate_decode(Item(21155, "7F FF")).flag);
    expect_table(21157, "00 64",
                 "Bit|Item|Value; Bit[0-15]|VERTICAL_RATE LSB=6.25FT/M|100; Bit[0-15]|VERTICAL_RATE LSB=FT/M|625.00; "
                 "Bit[0-15]|VERTICAL_RATE LSB=METER/M|190.50");
}

TEST(VerticalRate, EncodesTheValueOrElseTheRawOne) {
    constexpr EncodeCase<ast_scaled_value_t> kCases[] = {
        {"value", {.valid = true, .raw = 9, .value = 6.25}, "00 01"},
        {"raw", {.valid = true, .raw = 9}, "00 09"},
        {"flag", {.valid = true, .flag = true, .raw = 1}, "80 01"},
        {"two's complement, unlike positions", {.valid = true, .value = -6.25}, "7F FF"},
        {"cut off", {.valid = true, .value = -18.7}, "7F FE"},
        {"no number", {.valid = true, .raw = 9, .value = kNan}, "00 00"},
        {"lowest", {.valid = true, .raw = -16384}, "40 00"},
        {"too high", {.valid = true, .raw = 16384}, nullptr},
        {"beyond any field", {.valid = true, .raw = 9, .value = 1e300}, nullptr},
    };
    expect_encodes(21155, kCases);
}

} // namespace
