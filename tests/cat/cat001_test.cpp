#include <limits>

#include "support/items.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat001TargetReport, ViewsGiveTypeAndFlags) {
    expect_summaries(1020, "00 = TYPE:NO_DETECTION PLOT ANT1; B4 = TYPE:PSR+SSR TRACK ANT1 SPI; "
                           "5A = TYPE:PSR PLOT SIM ANT2 RAB; 21 80 = TYPE:SSR PLOT ANT1 TST; "
                           "21 20 = TYPE:SSR PLOT ANT1 EMG:UNLAWFUL; 21 40 = TYPE:SSR PLOT ANT1 EMG:NO_COMM; "
                           "21 78 = TYPE:SSR PLOT ANT1 EMG:GENERAL ME MI");
    expect_values(1020, "B5 60 = TRACK|0|PSR + SSR|1|1|0|1|0|EMERGENCY (7700)|0|0|0|0; 5A = PLOT|1|PSR|2|0|1|0");
    constexpr EncodeCase<ast_dataitem_001_020_t> kCases[] = {
        {"one octet", {.valid = true, .typ = 1, .ssr_psr = 3, .ant = 2, .spi = true}, "BC"},
        {"two octets", {.valid = true, .sim = true, .tst = true, .ds1_ds2 = 3, .me = true}, "41 F0"},
        {"no such detection", {.valid = true, .ssr_psr = 4}, nullptr},
        {"no antenna is the first", {.valid = true, .ant = 0}, "00"},
        {"no such antenna", {.valid = true, .ant = 3}, nullptr},
    };
    expect_encodes(1020, kCases);
}

TEST(Cat001Warnings, AreNumberedOtherwiseThanInCategory048) {
    expect_summaries(1030, "05 A2 = ERRCODE:2+; FE = ERRCODE:127");
    expect_table(1030, "05 81 FE",
                 "Error Code|Description; 2|Reflection; 64|Possible wrong code in Mode-3/A; 127|Not defined; unknown");
    ast_dataitem_001_030_t warnings{.valid = true, .count = 2, .codes = {2, 81}};
    expect_encodes("two", 1030, &warnings, "05 A2");
    warnings.codes[1] = 128;
    expect_encodes("seven bits", 1030, &warnings, nullptr);
    EXPECT_EQ(ast_dataitem_001_030_decode(Item(1030, repeated("03", 40))).count, 23U);
}

TEST(Cat001Items, AreReadInTheUnitsOfTheDocument) {
    expect_summaries(1040, "00 40 40 00 = RHO:0.5 THETA:90.0; FF FF 00 00 = RHO:512.0 THETA:0.0");
    expect_summaries(1042, "FF FF 00 40 = X:-28.9 Y:1852.0 LSB:M"); // -1/64 NM, 1 NM
    expect_values(1042, "FF C0 00 20 = -64|-1.00|-1852.00|32|0.50|926.00");
    expect_summaries(1120, "10 = DOPPLER:225.00KT; 80 = DOPPLER:-1800.00KT");
    expect_summaries(1131, "C8 = POWER:-56 LSB:DBM");
    expect_summaries(1141, "FF FF = TRUNC_TOD:511.992S");
    expect_summaries(1150, "A4 = X_PULSE:MODE_3/A MODE_C MODE_2; 20 = X_PULSE:MODE_C; 5B = X_PULSE:NONE");
    expect_summaries(1170, "3C = TYPE:PSR; C3 80 = TYPE:SSR/CMB TENTATIVE GHOST END");
    expect_values(1170, "FB 80 = 1|SSR/COMBINED|1|1|2||1|1|1||0; 04 = 0|PSR|0|0|1||0|0");
}

TEST(Cat001Items, OctetsOfTheRadarsOwnAreShownAsBits) {
    for (const ast_dataitem_type_t type : {1130U, 1210U, 1903U, 1904U}) {
        expect_summaries(type, "A1 02 = BIN:10100001 00000010");
        expect_values(type, "A1 02 = 1010000|0000001");
    }
    expect_summaries(1951, "A1 02 = BIN:10100001 00000010");
    EXPECT_EQ(ast_dataitem_001_210_decode(Item(1210, "A1 02")).values[0], 0x50);
    ast_octet_chain_t chain{.valid = true, .count = 2, .values = {0x50, 1}};
    expect_encodes("track quality", 1210, &chain, "A1 02");
    chain.count = 17;
    expect_encodes("more than it holds", 1210, &chain, nullptr);
}

TEST(Cat001Items, EncodersWriteValuesOrElseRawOnes) {
    ast_scaled_value_t speed{.valid = true, .raw = 5, .value = -20};
    expect_encodes("-20 kt", 1120, &speed, "FF");
    EXPECT_EQ(speed.raw, -1) << "stored back";
    speed.value = 2000;
    expect_encodes("too fast", 1120, &speed, nullptr);
    ast_value_pair_t position{.valid = true, .raw_1 = 7, .value_2 = -1};
    expect_encodes("0 and -1 NM", 1042, &position, "00 00 FF C0");
    ast_dataitem_001_040_t polar{.valid = true, .rho_nm = 0.5, .theta_deg = 360};
    expect_encodes("a full turn is none", 1040, &polar, "00 40 00 00");
    polar.rho_nm = 600;
    expect_encodes("too far", 1040, &polar, nullptr);
    EXPECT_EQ(polar.theta_raw, 0U) << "of the full turn; what is refused is not stored back";
    ast_dataitem_001_150_t pulse{.valid = true, .xa = true, .x2 = true};
    expect_encodes("pulses", 1150, &pulse, "84");
    ast_dataitem_001_170_t status{.valid = true, .con = true, .rad = 1, .rdpc = 2, .tre = true};
    expect_encodes("end of a track", 1170, &status, "C9 80");
    status.rdpc = 0;
    expect_encodes("no chain is the first", 1170, &status, "C1 80");
    status.rdpc = 3;
    expect_encodes("no such chain", 1170, &status, nullptr);
}

TEST(Cat001Position, IsRefusedWhereItsFieldsDoNotHoldIt) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr EncodeCase<ast_dataitem_001_040_t> kCases[] = {
        {"the farthest", {.valid = true, .rho_nm = 511.9921875, .theta_deg = 359.9945068359375}, "FF FF FF FF"},
        {"nearest to north", {.valid = true, .theta_deg = 359.999}, "00 00 00 00"},
        {"nearest to nothing", {.valid = true, .rho_nm = 0.001, .theta_deg = 90}, "00 00 40 00"},
        {"half a unit too far", {.valid = true, .rho_nm = 511.99609375}, nullptr},
        {"no number", {.valid = true, .rho_nm = kNan, .theta_deg = 90}, nullptr},
        {"no number, to the north", {.valid = true, .rho_raw = 5, .rho_nm = kNan}, nullptr},
        {"no azimuth", {.valid = true, .rho_nm = 1, .theta_deg = kNan}, nullptr},
        {"behind the radar", {.valid = true, .rho_nm = -1, .theta_deg = 90}, nullptr},
        {"more than a turn", {.valid = true, .rho_nm = 1, .theta_deg = 360.001}, nullptr},
        {"less than none", {.valid = true, .rho_nm = 1, .theta_deg = -10}, nullptr},
        {"raw ones", {.valid = true, .rho_raw = 0xFFFF, .theta_raw = 0x8000}, "FF FF 80 00"},
        {"a longer raw range", {.valid = true, .rho_raw = 0x10000}, nullptr},
        {"a longer raw azimuth", {.valid = true, .theta_raw = 0x10000}, nullptr},
    };
    expect_encodes(1040, kCases);
}

TEST(Cat001Accessors, AnswerByTheDescriptor) {
    const Record track(
        1, {{1010, "19 0C"}, {1020, "80"}, {1161, "F1 23"}, {1070, "8F C0"}, {1090, "01 90"}, {1040, "00 40 40 00"}});
    EXPECT_EQ(ast_datarecord_get_msgtype(track), AST_MSGTYPE_TRACK);
    EXPECT_EQ(ast_datarecord_get_msgtype(Record(1, {{1020, "7F 00"}})), AST_MSGTYPE_PLOT);
    EXPECT_EQ(ast_datarecord_get_msgtype(Record(1, {{1161, "F1 23"}})), 0U);
    EXPECT_EQ(ast_datarecord_get_tracknum(track).value, 0xF123U);
    EXPECT_TRUE(ast_datarecord_get_squawk(track).code == 07700 && ast_datarecord_get_squawk(track).not_validated);
    EXPECT_EQ(ast_datarecord_get_flightlevel(track).value, 10000);
    EXPECT_EQ(ast_datarecord_get_polarcoord(track).rho_nm, 0.5);
}

// Every item of the profile that an encoder gives back, FRN 1 to 19 but I001/130.
TEST(Cat001Flat, GoesBothWays) {
    const auto data = octets("FF DF F8 19 0C B5 F8 01 23 00 C0 40 00 FF FF 00 02 04 00 80 00 0F C0 "
                             "01 90 78 40 C8 0A DB 80 A1 02 8F FF 0A 55 CA 55 05 AA 05 55 05 A2");
    const auto record = ast_datarecord_decode(data.data(), data.size(), 1, AST_UAP_STANDARD);
    ast_datarecord_001_t flat;
    ASSERT_TRUE(ast_datarecord_001_disassemble(&flat, &record)->valid);
    std::vector<uint8_t> buffer(data.size());
    EXPECT_TRUE(ast_datarecord_001_assemble(buffer.data(), buffer.size(), &flat, AST_UAP_STANDARD).valid);
    EXPECT_EQ(buffer, data);
    EXPECT_FALSE(ast_datarecord_001_disassemble(&flat, Record(48, {}))->valid);
    EXPECT_EQ(ast_datarecord_001_disassemble(&flat, Record(1, {{1904, "A1 02"}}))->track_quality.count, 2U);
    EXPECT_EQ(ast_datarecord_001_disassemble(nullptr, &record), nullptr);
}

} // namespace
