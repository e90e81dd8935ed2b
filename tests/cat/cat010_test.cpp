#include <limits>

#include "support/items.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat010TargetReport, ViewsGiveTheOctetsThatAreThere) {
    expect_summaries(10020,
                     "00 = TYPE:SSR_MLAT CHN1; 28 = TYPE:MODE_S_MLAT CHN2; 61 00 = TYPE:PSR CHN1; "
                     "56 = TYPE:ADS-B CHN1 DCR GBS CRT; 41 EC = TYPE:ADS-B SIM CHN1 RAB TST LOOP_START "
                     "GROUND_VEHICLE; 81 03 80 = TYPE:MAGNETIC_LOOP CHN1 SPI AIRCRAFT; A1 16 = TYPE:HF_MLAT CHN1 "
                     "LOOP_FINISH HELICOPTER");
    expect_values(10020, "56 = ADS-B|1|1|1|1|0; 41 ED 80 = ADS-B|0|1|0|0|1|1|1|1|LOOP_START|GROUND_VEHICLE|1|1|0|0");
    constexpr EncodeCase<ast_dataitem_010_020_t> kCases[] = {
        {"one octet", {.valid = true, .typ = 2, .chn = 2, .gbs = true}, "4C"},
        {"two octets", {.valid = true, .tst = true, .tot = 2}, "01 44"},
        {"three octets for the last bit", {.valid = true, .typ = 3, .spi = true}, "61 01 80"},
        {"no such type", {.valid = true, .typ = 8}, nullptr},
        {"no chain is the first", {.valid = true, .chn = 0}, "00"},
        {"no such chain", {.valid = true, .chn = 3}, nullptr},
    };
    expect_encodes(10020, kCases);
}

TEST(Cat010Items, AreReadInTheUnitsOfTheDocument) {
    expect_summaries(10000, "01 = MSG_TYPE:TARGET_REPORT; 04 = MSG_TYPE:EVENT_STATUS; 05 = MSG_TYPE:UNDEFINED");
    expect_summaries(10040, "07 3C 40 00 = RHO:1852.0 LSB:M THETA:90.0");
    expect_summaries(10042, "FF FF 80 00 = X:-1.0 Y:-32768.0 LSB:M");
    expect_summaries(10131, "C8 = AMP:200");
    expect_summaries(10270, "50 = L:40; 51 20 = L:40 O:45.00; 51 21 14 = L:40 O:45.00 W:10");
    expect_table(10270, "51 21 14",
                 "Bit|Item|Value; Bit[0-7]|LENGTH LSB:M|40; Bit[9-15]|ORIENTATION LSB:360/128 DEG|16; "
                 "Bit[9-15]|ORIENTATION LSB:DEG|45.00; Bit[17-23]|WIDTH LSB:M|10");
    expect_summaries(10500, "04 02 FF FE = X:1.00 Y:0.50 COV:-0.50 LSB:M");
    expect_summaries(10550, "3C = SYS_STAT:OPERATIONAL; 40 = SYS_STAT:DEGRADED; 80 = SYS_STAT:NOGO");
    expect_values(10550, "24 = OPERATIONAL|1|0|0|1|0; 58 = DEGRADED|0|1|1|0|0");
}

TEST(Cat010Position, IsRefusedWhereItsFieldsDoNotHoldIt) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr EncodeCase<ast_dataitem_010_040_t> kCases[] = {
        {"the farthest", {.valid = true, .rho_m = 65535, .theta_deg = 360}, "FF FF 00 00"},
        {"too far", {.valid = true, .rho_m = 65535.5}, nullptr},
        {"no number", {.valid = true, .rho_m = kNan, .theta_deg = 90}, nullptr},
        {"more than a turn", {.valid = true, .rho_m = 1, .theta_deg = 370}, nullptr},
        {"less than none", {.valid = true, .rho_m = 1, .theta_deg = -10}, nullptr},
        {"a longer raw azimuth", {.valid = true, .theta_raw = 0x10000}, nullptr},
    };
    expect_encodes(10040, kCases);
}

TEST(Cat010TrackStatus, ViewsGiveTheOctetsThatAreThere) {
    expect_summaries(10170, "00 = TRACK_STS:CONFIRMED; E0 = TRACK_STS:TENTATIVE END COASTED; "
                            "01 01 80 = TRACK_STS:CONFIRMED GHOST");
    expect_values(10170, "2E = 0|0|MASKED_AREA|1|REFERENCE_PLANE|SMOOTHED|0; "
                         "01 94 = 0|0|NONE|0|SENSOR_PLANE|MEASURED|1|LANDING|DOUBTFUL_CORRELATION_IN_CLUTTER|"
                         "MERGED_BY_NON_ASSOCIATION|0");
}

TEST(Cat010Accessors, ConvertToCommonUnits) {
    const Record target(10, {{10040, "07 3C 40 00"},
                             {10041, "20 00 00 00 C0 00 00 00"},
                             {10091, "00 10"},
                             {10200, "04 00 20 00"},
                             {10202, "00 04 FF FC"}});
    EXPECT_EQ(ast_datarecord_get_msgtype(target), AST_MSGTYPE_SURFACE);
    EXPECT_EQ(ast_datarecord_get_polarcoord(target).rho_nm, 1);
    EXPECT_EQ(ast_datarecord_get_wgs84coord(target).latitude_deg, 45);
    EXPECT_EQ(ast_datarecord_get_wgs84coord(target).longitude_deg, -90);
    EXPECT_EQ(ast_datarecord_get_flightlevel(target).value, 100) << "the height, without a level";
    EXPECT_EQ(ast_datarecord_get_flightlevel(Record(10, {{10091, "00 10"}, {10090, "00 08"}})).value, 200);
    EXPECT_EQ(ast_datarecord_get_speed(target).value, 225);
    const auto heading = ast_datarecord_get_heading(target);
    EXPECT_TRUE(heading.valid && heading.track.value == 45 && !heading.magnetic.valid && heading.magnetic.value == -1);
    EXPECT_EQ(ast_datarecord_get_cartesianvel(target).vy_m_s, -1);
}

// FRN 1 to 4, 6 to 8, 10 to 13, 17, 19, 20, 22 and 24: what an encoder gives back.
TEST(Cat010Flat, GoesBothWays) {
    const auto data = octets("F7 BD 2D A0 19 0C 01 61 01 80 58 78 40 07 3C 40 00 FF FF 00 01 04 00 40 00 01 23 01 94 "
                             "02 9C 3C 65 AC 01 90 51 21 14 58 04 02 FF FE C8");
    const auto record = ast_datarecord_decode(data.data(), data.size(), 10, AST_UAP_STANDARD);
    ast_datarecord_010_t flat;
    ASSERT_TRUE(ast_datarecord_010_disassemble(&flat, &record)->valid);
    EXPECT_TRUE(flat.system_status.nogo == 1 && !flat.system_status.time_valid && flat.plot_amplitude.value == 200);
    std::vector<uint8_t> buffer(data.size());
    EXPECT_TRUE(ast_datarecord_010_assemble(buffer.data(), buffer.size(), &flat, AST_UAP_STANDARD).valid);
    EXPECT_EQ(buffer, data);
}

} // namespace
