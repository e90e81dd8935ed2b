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

TEST(PositionLow, SummaryGivesDegreesMinutesSeconds) {
    constexpr SummaryCase kCases[] = {
        {"meant: zero is south and west", "00 00 00 00 00 00", "WGS84:000000S0000000W"},
        {"north west", "20 00 00 E0 00 00", "WGS84:450000N0450000W"},
        {"south east", "E0 00 00 20 00 00", "WGS84:450000S0450000E"},
        {"pole and date line", "40 00 00 80 00 00", "WGS84:900000N1800000W"},
        {"meant: no carry of 60 seconds", "00 00 01 7F FF FF", "WGS84:000000N1795960E"},
    };
    expect_summaries(21130, kCases);
}

TEST(PositionLow, DetailGivesTextsNumbersAndLinks) {
    const auto row = [](const char *value) { return Row{"Octet[1-6]", "WGS84_COORDINATES", value}; };
    expect_detail_rows(21130, "20 00 00 E0 00 00",
                       {{"Octet", "Item", "Value"},
                        row("450000N0450000W"),
                        row("450000.00N0450000.00W"),
                        row("450000.000000N0450000.000000W"),
                        row("045.000000, -045.000000"),
                        row("2097152, -2097152"),
                        row("Google Maps"),
                        row("OpenStreetMap"),
                        row("AMap"),
                        row("Baidu Map")});
    EXPECT_NE(detail_of(21130, "20 00 00 E0 00 00").find("mlat=45.000000&mlon=-45.000000\">OpenStreetMap</a>"),
              std::string::npos);
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
    struct {
        ast_dataitem_type_t type;
        const char *summary;
    } constexpr kCases[] = {
        {10041, "WGS84:002106N0002106W"}, {16400, "WGS84:002106N0002106W"}, // 180/2^31: 0.3515625 degrees
        {19600, "WGS84:004211N0004211W"}, {21131, "WGS84:004211N0004211W"}, // 180/2^30: 0.703125 degrees
        {20041, "WGS84:223000N0223000W"}, {21902, "WGS84:223000N0223000W"}, // 180/2^25: 22.5 degrees
        {62105, "WGS84:223000N0223000W"},
    };
    for (const auto &one : kCases) EXPECT_EQ(summary_of(one.type, "00 40 00 00 FF C0 00 00"), one.summary) << one.type;
    EXPECT_EQ(summary_of(10041, "40 00 00 00 80 00 00 00"), "WGS84:900000N1800000W");
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
    const auto row = [](const char *value) { return Row{"Octet[1-8]", "WGS84_COORDINATES", value}; };
    expect_detail_rows(62105, "00 40 00 00 FF C0 00 00",
                       {{"Octet", "Item", "Value"},
                        row("223000N0223000W"),
                        row("223000.00N0223000.00W"),
                        row("223000.000000N0223000.000000W"),
                        row("022.50000000, -022.50000000"),
                        {"Octet[1-6]", "WGS84_COORDINATES", "4194304, -4194304"}, // meant, in this row alone
                        row("Google Maps"),
                        row("OpenStreetMap"),
                        row("AMap"),
                        row("Baidu Map")});
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
    constexpr SummaryCase kPositions[] = {
        {"origin", "00 00 00 00 00 00", "X:0.0 Y:0.0 LSB:M"},
        {"around it", "00 00 01 FF FF FF", "X:0.5 Y:-0.5 LSB:M"},
        {"both ends", "7F FF FF 80 00 00", "X:4194303.5 Y:-4194304.0 LSB:M"},
    };
    constexpr SummaryCase kVelocities[] = {
        {"standing", "00 00 00 00", "VX:0.00 VY:0.00 LSB:M/S"},
        {"around it", "00 01 FF FF", "VX:0.25 VY:-0.25 LSB:M/S"},
        {"both ends", "7F FF 80 00", "VX:8191.75 VY:-8192.00 LSB:M/S"},
    };
    expect_summaries(62100, kPositions);
    expect_summaries(62185, kVelocities);
}

// ---- Polar velocity ----

TEST(VelocityPolar, SummaryGivesKnotsAndDegrees) {
    constexpr SummaryCase kCases[] = {
        {"standing", "00 00 00 00", "SPD:0.00 HDG:0.00"},
        {"eastward", "04 00 40 00", "SPD:225.00 HDG:90.00"},
        {"both ends, unsigned", "FF FF FF FF", "SPD:14399.78 HDG:359.99"},
    };
    expect_summaries(48200, kCases);
}

TEST(VelocityPolar, DetailGivesTheSpeedInFourUnits) {
    expect_detail_rows(48200, "04 00 40 00",
                       {{"Octet", "Item", "Value"},
                        {"Octet[1-2]", "GROUND_SPEED LSB:NM/S", "0.062500"},
                        {"Octet[1-2]", "GROUND_SPEED LSB:M/S", "115.75"},
                        {"Octet[1-2]", "GROUND_SPEED LSB:KNOT", "225.00"},
                        {"Octet[1-2]", "GROUND_SPEED LSB:KM/H", "416.70"},
                        {"Octet[3-4]", "HEADING LSB:DEG", "90.00"}});
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

TEST(Height, SummaryGivesFeet) {
    constexpr SummaryCase kCases[] = {
        {"zero", "00 00", "H:0.00 LSB:FT"},         {"one unit", "00 01", "H:6.25 LSB:FT"},
        {"below", "FF FF", "H:-6.25 LSB:FT"},       {"highest", "7F FF", "H:204793.75 LSB:FT"},
        {"lowest", "80 00", "H:-204800.00 LSB:FT"},
    };
    expect_summaries(20105, kCases);
}

TEST(Height, DetailGivesThreeUnits) {
    const auto rows = [](const char *raw, const char *ft, const char *m) {
        return std::vector<Row>{{"Bit", "Item", "Value"},
                                {"Bit[0-15]", "HEIGHT LSB=6.25FT", raw},
                                {"Bit[0-15]", "HEIGHT LSB=FT", ft},
                                {"Bit[0-15]", "HEIGHT LSB=M", m}};
    };
    expect_detail_rows(10091, "00 64", rows("100", "625.00", "190.50"));
    expect_detail_rows(10091, "80 00", rows("-32768", "-204800.0", "-62423.04")); // feet cut by the cell
}

TEST(VerticalRate, SummaryGivesFeetPerMinute) {
    constexpr SummaryCase kCases[] = {
        {"level", "00 00", "VR:0.00FT/M"},        {"range exceeded is no part of it", "80 01", "VR:6.25FT/M"},
        {"descending", "7F FF", "VR:-6.25FT/M"},  {"highest", "3F FF", "VR:102393.75FT/M"},
        {"lowest", "40 00", "VR:-102400.00FT/M"},
    };
    expect_summaries(21155, kCases);
    EXPECT_TRUE(ast_dataitem_vertical_rate_decode(Item(21155, "80 01")).flag);
    EXPECT_FALSE(ast_dataitem_vertical_rate_decode(Item(21155, "7F FF")).flag);
}

TEST(VerticalRate, DetailGivesThreeUnits) {
    expect_detail_rows(21157, "00 64",
                       {{"Bit", "Item", "Value"},
                        {"Bit[0-15]", "VERTICAL_RATE LSB=6.25FT/M", "100"},
                        {"Bit[0-15]", "VERTICAL_RATE LSB=FT/M", "625.00"},
                        {"Bit[0-15]", "VERTICAL_RATE LSB=METER/M", "190.50"}});
}

TEST(VerticalRate, EncodesTheValueOrElseTheRawOne) {
    constexpr EncodeCase<ast_scaled_value_t> kCases[] = {
        {"value", {.valid = true, .raw = 9, .value = 6.25}, "00 01"},
        {"raw", {.valid = true, .raw = 9}, "00 09"},
        {"flag", {.valid = true, .flag = true, .raw = 1}, "80 01"},
        {"two's complement, unlike positions", {.valid = true, .value = -6.25}, "7F FF"},
        {"cut off", {.valid = true, .value = -18.7}, "7F FE"},
        {"no number", {.valid = true, .raw = 9, .value = kNan}, "00 00"},
        {"beyond any field", {.valid = true, .raw = 9, .value = 1e300}, "00 00"},
    };
    expect_encodes(21155, kCases);
}

} // namespace
