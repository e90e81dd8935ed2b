#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat020TargetReport, NamesTheTechnologiesThatTookPart) {
    expect_summaries(20020, "40 = TYPE:MODE_S CHN1; C1 A0 = TYPE:SSR+MODE_S CHN2 RAB; 00 = TYPE:NONE CHN1; "
                            "3E = TYPE:HF+VDL4+UAT+DME+OTHER CHN1; 41 5E = TYPE:MODE_S SIM CHN1 SPI TST GBS CRT");
    expect_values(20020, "41 21 40 = 0|1|0|0|0|0|0|1|0|0|2|0|0|0|0|1|NON_ICAO_ADDRESS|0|0");
    constexpr EncodeCase<ast_dataitem_020_020_t> kCases[] = {
        {"one octet", {.valid = true, .ms = true, .chn = 1, .cf = 3}, "40"},
        {"two octets", {.valid = true, .ssr = true, .chn = 2, .tst = true, .cf = 3}, "81 22"},
        {"three octets say that the address is of ICAO", {.valid = true, .ssr = true, .cf = 0}, "81 01 00"},
        {"or not", {.valid = true, .rab = true, .chn = 0, .cf = 2}, "01 81 80"},
        {"no such chain", {.valid = true, .chn = 3, .cf = 3}, nullptr},
        {"no such format", {.valid = true, .cf = 4}, nullptr},
    };
    expect_encodes(20020, kCases);
}

TEST(Cat020TargetReport, KnowsNothingOfTheAddressWithoutItsThirdOctet) {
    for (const char *const hex : {"40", "41 20"}) EXPECT_EQ(ast_dataitem_020_020_decode(Item(20020, hex)).cf, 3U);
    EXPECT_EQ(ast_dataitem_020_020_decode(Item(20020, "41 21 00")).cf, 0U);
    EXPECT_EQ(ast_dataitem_020_020_decode(nullptr).cf, 3U);
}

TEST(Cat020Items, ShareTheLayoutsOfCategory048) {
    expect_table(20030, "21 FE",
                 "Error Code|Description; 16|Duplicated or Illegal Mode S Aircraft Address; 127|Not defined; unknown");
    expect_summaries(20050, "8F FF = MODE_2:7777 NOT_VALIDATED");
    expect_summaries(20100, "CA 55 05 AA = CODE:4037 QTY:abcD NOT_VALIDATED GARBLED");
    expect_summaries(20260, "30 80 00 04 00 00 00 = BDS:3,0");
    LogCapture log;
    expect_summaries(20230, "38 55 = FS:UNDEFINED");
    EXPECT_EQ(log.take().front(), (LogLine{2, "I020/230: Flight Status Undefined."}));
    ast_dataitem_020_230_t status{.valid = true, .com = 1, .stat = 8, .arc = true, .b1b = 5};
    expect_encodes("undefined", 20230, &status, "3C 45");
}

TEST(Cat020Items, AreReadInTheUnitsOfTheDocument) {
    expect_summaries(20055, "1F = MODE_1:73; E8 = MODE_1:20 NOT_VALIDATED GARBLED SMOOTHED");
    expect_values(20055, "52 = 0|1|0|4|2");
    expect_summaries(20170, "00 = TRACK_STS:CONFIRMED; E1 80 = TRACK_STS:TENTATIVE END COASTED GHOST");
    expect_values(20170, "16 = 0|0|0|DESCENDING|1|SMOOTHED|0");
    expect_summaries(20210, "FC 02 = AX:-1.00 AY:0.50"); // in two's complement
    expect_summaries(20300, "03 = FLEET:FIRE; 10 = FLEET:FOLLOW_ME; 11 = FLEET:UNDEFINED");
    expect_summaries(20310, "02 = MSG:FOLLOW_ME; 85 = MSG:WORK_IN_PROGRESS IN_TROUBLE; 00 = MSG:UNDEFINED");
    expect_summaries(20500, "80 00 04 00 08 00 0C = DOP:1.00,2.00,3.00; "
                            "60 00 04 00 08 00 0C 00 03 = SDP:1.00,2.00,3.00 SDH:1.5; 80 00 04 = ");
    expect_table(20500, "20 00 03", "ID|Item|Value; SDH|GEO_HEIGHT LSB:M|1.50");
}

TEST(Cat020Devices, AreNumberedFromTheLastBit) {
    expect_summaries(20400, "02 20 41 = DEVICES:3; 00 = DEVICES:0; 02 41 = "); // units 1, 7 and 14
    expect_table(20400, "02 20 41", "Octet|Item|Value; Octet[2]|RU16-RU9|00100000; Octet[3]|RU8-RU1|01000001");
    ast_dataitem_020_400_t devices{.valid = true, .count = 2, .octets = {0x20, 0x41}};
    expect_encodes("two octets", 20400, &devices, "02 20 41");
    devices.count = 33;
    expect_encodes("more than it holds", 20400, &devices, nullptr);
    auto many = repeated("81", 256);
    many[0] = 255;
    EXPECT_EQ(ast_dataitem_020_400_decode(Item(20400, many)).units, 510U);
}

TEST(Cat020Accessors, FindTheirItems) {
    const Record target(20, {{20041, "00 80 00 00 FF 80 00 00"},
                             {20105, "00 20"},
                             {20110, "00 10"},
                             {20220, "3C 65 AC"},
                             {20245, "40 2C C3 71 CB 3D 20"}});
    EXPECT_EQ(ast_datarecord_get_msgtype(target), AST_MSGTYPE_MLAT);
    EXPECT_EQ(ast_datarecord_get_wgs84coord(target).latitude_deg, 45);
    EXPECT_EQ(ast_datarecord_get_flightlevel(target).value, 100) << "the measured height before the geometric one";
    EXPECT_EQ(ast_datarecord_get_icaoaddr(target).address, 0x3C65ACU);
    EXPECT_STREQ(ast_datarecord_get_callsign(target).text, "KLM1234");
    EXPECT_FALSE(ast_datarecord_get_callsign(Record(20, {})).valid);
}

// FRN 1 to 3, 6 to 8, 10, 11, 16 to 18, 20, 22 and 24 to 26: what an encoder gives back.
TEST(Cat020Flat, GoesBothWays) {
    const auto data = octets("E7 B1 75 B8 19 0C 41 20 58 78 40 01 23 E1 80 02 9C 01 90 CA 55 05 AA FC 02 03 85 "
                             "01 41 24 AA 15 02 1F 8F FF");
    const auto record = ast_datarecord_decode(data.data(), data.size(), 20, AST_UAP_STANDARD);
    ast_datarecord_020_t flat;
    ASSERT_TRUE(ast_datarecord_020_disassemble(&flat, &record)->valid);
    EXPECT_TRUE(flat.mode_1.code == 31 && flat.contributing_devices.units == 2);
    std::vector<uint8_t> buffer(data.size());
    EXPECT_TRUE(ast_datarecord_020_assemble(buffer.data(), buffer.size(), &flat, AST_UAP_STANDARD).valid);
    EXPECT_EQ(buffer, data);
}

} // namespace
