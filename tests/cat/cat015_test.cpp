#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/octets.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat015, Descriptors) {
    // Bit 1 says what drove the report.
    expect_summaries(15000, "02 = MSG_TYPE:MEASUREMENT_PLOT; 05 = MSG_TYPE:MEASUREMENT_TRACK; "
                            "0B = MSG_TYPE:TRACK_END; 01 = MSG_TYPE:UNDEFINED; 0C = MSG_TYPE:UNDEFINED; 02 02 = ");
    EXPECT_TRUE(ast_dataitem_015_000_decode(Item(15000, "05")).rg);
    expect_summaries(15020, "00 = SENSOR:MONO; 4C = SENSOR:MULTI SCAN_STATIC; 84 = SENSOR:OTHER SCAN_FORWARD; "
                            "F8 = SENSOR:UNKNOWN SCAN_BACKWARD");
    expect_table(15020, "54",
                 "Bit|Item|Value; Bit[0-1]|SENSOR_TYPE|MULTI; Bit[2-3]|TARGET_TAXONOMY|REFERENCE; "
                 "Bit[4-5]|SCANNING_DIRECTION|FORWARD; Bit[6]|SPARE|0; Bit[7]|FX|0");
    const auto absent = ast_dataitem_015_020_decode(Item(15170, "00"));
    EXPECT_TRUE(!absent.valid && absent.momu == 0 && absent.ttax == 3 && absent.scd == 0);
    EXPECT_EQ(ast_dataitem_015_020_decode(nullptr).ttax, 3U);
}

TEST(Cat015, StatusShowsTheLastFlagAlone) {
    expect_summaries(15170, "26 =  TENTITIVE; 00 = ALIVE; 10 = ALIVE; 20 = TERM; A0 =  BLIND; C0 =  BLANK; "
                            "C8 =  P_COAST; EC =  H_COAST; 26 00 = ");
    expect_table(15170, "A5",
                 "Bit|ID|Item|Value; Bit[0]|BIZ|BLIND_ZONE|1; Bit[1]|BAZ|BLANKED_ZONE|0; "
                 "Bit[2]|TUR|TRACK_TERMINATED|1; Bit[4]|CSTP|POSITION_COASTED|0; "
                 "Bit[5]|CSTH|HEIGHT_COASTED|1; Bit[6]|CNF|TENTATIVE|0; Bit[7]|FX|FIELD_EXTENSION|1");
}

TEST(Cat015, RepeatedElements) {
    expect_summaries(15300, "00 = NUM_CLS:0; 02 07 50 FF 14 = NUM_CLS:2 CLS:7 PRB:80% CLS:255 PRB:20%; 02 07 50 = ");
    expect_table(15300, "02 07 50 FF 14", "Number|Classification|Probability; 1|7|80%; 2|255|20%");
    auto data = repeated("01", 33);
    data[0] = 16;
    EXPECT_TRUE(ast_dataitem_015_300_decode(Item(15300, data)).valid);
    data.resize(35, data[0] = 17);
    EXPECT_FALSE(ast_dataitem_015_300_decode(Item(15300, data)).valid) << "one more than there is room for";
    expect_summaries(15400, "00 01 00 00 02 = PID:1 OBS:2; FF FF FF FF FF = PID:65535 OBS:16777215; 00 01 00 00 = ");
    expect_table(15400, "00 01 00 00 02",
                 "Octet|Item|Value; Octet[0-1]|PAIR_IDENTIFIER|1; Octet[2-4]|OBSERVATION_NUMBER|2");
    expect_summaries(15480, "00 = IDENTIFIERS:0; 01 00 01 00 00 02 = IDENTIFIERS:1; 01 00 01 00 00 02 00 = ");
    expect_table(15480, "02 00 01 00 00 02 01 00 FF FF FF",
                 "Repfield|Octet|Pair Identifier|Observation Number; 1|Octet[1-5]|1|2; 2|Octet[6-10]|256|16777215");
}

TEST(Cat015, SubfieldSummaries) {
    expect_values(15600, "E0 20 00 00 00 C0 00 00 00 00 03 00 01 C0 00 03 00 01 40 = "
                         "NOT_IMPLEMENTED|X:1.500000 Y:0.500000 C:-0.500000|X:0.750000 Y:0.250000 C:0.500000");
    expect_values(15601,
                  "1F 80 00 10 02 FF F0 01 40 80 7F 00 FF 20 = "
                  "NOT_IMPLEMENTED|NOT_IMPLEMENTED|NOT_IMPLEMENTED|U:16 L:32|U:65520 L:16|X:0.500000 Y:-1.000000|"
                  "X:0.992188 Y:0.000000|X:-0.007812 Y:0.250000");
    expect_values(15602, "F0 FF F9 C0 00 64 00 64 00 C8 20 FF FF 00 01 80 40 C0 20 E0 = X:-1.000000 Y:1.000000|"
                         "X:1.000000 Y:2.000000 C:0.250000|X:655.350000 Y:0.010000 C:-1.000000|"
                         "XX:0.500000 XY:-0.500000 YX:0.250000 YY:-0.250000");
    expect_values(15604, "F0 FF FF 9C 00 64 00 96 40 20 E0 = NOT_IMPLEMENTED|NOT_IMPLEMENTED|P:1.500000 C:0.500000|"
                         "X:0.250000 Y:-0.250000||");
    expect_values(15625, "F0 80 00 01 FF FF FF 00 00 05 00 00 01 = "
                         "-838860.700000 M|1677721.500000 M|0.500000 M|NOT_IMPLEMENTED|NOT_IMPLEMENTED|"
                         "NOT_IMPLEMENTED|NOT_IMPLEMENTED");
    expect_values(15626, "C1 00 80 00 00 00 60 = -838860.700000 M/S|1.500000 M/S|NOT_IMPLEMENTED|"
                         "NOT_IMPLEMENTED|NOT_IMPLEMENTED|NOT_IMPLEMENTED|NOT_IMPLEMENTED|NOT_IMPLEMENTED|"
                         "NOT_IMPLEMENTED|NOT_IMPLEMENTED");
    expect_values(15626, "80 FF FF FF = 0.000000 M/S||NOT_IMPLEMENTED|NOT_IMPLEMENTED|NOT_IMPLEMENTED|"
                         "NOT_IMPLEMENTED|NOT_IMPLEMENTED");
    expect_values(15627, "F0 40 00 80 00 00 01 C0 00 = "
                         "90.000000 DEG|22.500000 DEG|0.000687 DEG|NOT_IMPLEMENTED|NOT_IMPLEMENTED|"
                         "NOT_IMPLEMENTED");
}

TEST(Cat015, SubfieldsThatNothingIsKnownOfReadAsSuch) {
    // The same whether the item has them or not; a summary of its own is empty for a subfield that is not there.
    expect_subfield_summaries(15600001,
                              "80 20 00 00 00 C0 00 00 00 = NOT_IMPLEMENTED; 20 00 00 00 00 00 = NOT_IMPLEMENTED");
    expect_subfield_summaries(15600002, "80 20 00 00 00 C0 00 00 00 = ");
    for (const uint32_t item : {15600U, 15601U, 15602U, 15604U, 15625U, 15626U, 15627U})
        for (const uint32_t number : {0U, 11U, 999U})
            EXPECT_EQ(subfield_summary_of(item * 1000 + number, "02 00 00 00 00 00"), "NOT_IMPLEMENTED") << item;
    expect_subfield_summaries(15600001, "00 = ; 81 = "); // no such item
}

TEST(Cat015, SubfieldsThatAreNotShown) {
    const auto height = ast_dataitem_015_601_decode(Item(15601, "E0 FF FF 9C FF FF 9C 00 00 64"));
    EXPECT_TRUE(height.gh.value == -1 && height.rs_gh.value == 167771.16 && height.sd_gh.value == 1);
    const auto range = ast_dataitem_015_625_decode(Item(15625, "0F 80 00 00 0F 00 00 14 C0 FF C0 00 40 20 E0"));
    EXPECT_TRUE(range.rs_rr.value == 1.5 && range.sd_rr.value == 2 && range.sd_rr.correlation == -0.5);
    EXPECT_TRUE(range.ra.value == -1 && range.sd_ra.value == 0.5 && range.sd_ra.range_correlation == 0.25);
    EXPECT_TRUE(range.sd_ra.rate_correlation == -0.25 && !range.r.present);
    const auto doppler = ast_dataitem_015_626_decode(Item(15626, "3F E0 FF E0 00 80 C0 40 20 10 08 04 FE"));
    EXPECT_TRUE(doppler.da.value == -0.5 && doppler.sd_da.value == 2 && doppler.sd_da.correlation == -0.5);
    EXPECT_TRUE(doppler.co_dvr.value == 0.5 && doppler.co_dara.value == -0.015625);
    const auto azimuth = ast_dataitem_015_627_decode(Item(15627, "1C E0 00 80 00 40 C0 00 20 00"));
    EXPECT_TRUE(azimuth.azr.value == -22.5 && azimuth.sd_azr.value == 22.5 && azimuth.sd_azr.correlation == 0.5);
    EXPECT_TRUE(azimuth.azex.start_deg == 270 && azimuth.azex.end_deg == 45);
    EXPECT_EQ(subfield_detail_of(15627001, "80 40 00"), "");
}

TEST(Cat015, AccessorsAndFlatRecord) {
    // clang-format off
    const Record record(15, {{15010, "19 0C"}, {15000, "08"}, {15145, "58 78 40"}, {15161, "F1 23"},
                             {15600, "80 20 00 00 00 C0 00 00 00"}, {15601, "80 00 27 10"},
                             {15602, "80 FF F9 C0 00 64"}, {15604, "80 FF FF 9C"}, {15625, "80 00 00 0F"},
                             {15626, "80 80 00 00"}, {15627, "80 40 00"}, {15030, "02"}});
    // clang-format on
    EXPECT_EQ(ast_datarecord_get_msgtype(record), AST_MSGTYPE_SENSOR_CENTRIC_TRACK);
    EXPECT_FALSE(ast_datarecord_015_get_msgtype(Record(15, {{15000, "0C"}})).valid);
    EXPECT_TRUE(ast_datarecord_get_sacsic(record).sic == 12 && ast_datarecord_get_timeofday(record).minute == 34);
    EXPECT_EQ(ast_datarecord_get_tracknum(record).value, 0xF123U);
    const auto position = ast_datarecord_get_wgs84coord(record);
    EXPECT_TRUE(position.valid && position.latitude_deg == 45 && position.longitude_deg == -90);
    EXPECT_NEAR(ast_datarecord_get_flightlevel(record).value, 328.08399, 1e-9);
    EXPECT_NEAR(ast_datarecord_get_vrate(record).value, -196.850394, 1e-9);
    const auto velocity = ast_datarecord_get_cartesianvel(record);
    EXPECT_TRUE(velocity.valid && velocity.vx_m_s == -1 && velocity.vy_m_s == 1);
    EXPECT_TRUE(ast_datarecord_015_get_range(record).value == 1.5 &&
                ast_datarecord_015_get_azimuth(record).value == 90);
    EXPECT_NEAR(ast_datarecord_015_get_dopplervel(record).value, -838860.7, 1e-6);
    EXPECT_FALSE(ast_datarecord_get_vrate(Record(15, {{15604, "40 00 64"}})).valid);

    LogCapture log;
    static ast_datarecord_015_t flat;
    ast_datarecord_015_disassemble(&flat, record);
    EXPECT_EQ(log.take(), (LogLines{{0, "Failed to disassemble dataitem I015/030."}}));
    EXPECT_TRUE(flat.valid && flat.message_type.mt == 4 && flat.azimuth.az.present && !flat.track_status.valid);
}

} // namespace
