#include <cstring>
#include <limits>

#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// ---- Items ----

TEST(Cat021Items, Summaries) {
    expect_summaries(21016, "00 = DATA_DRIVEN_MODE; 01 = PR:0.50SEC; FE = PR:127.00SEC; FF = PR:>=127.50SEC; 01 01 = ");
    expect_summaries(21020, "05 = EMITTER:HEAVY_AIRCRAFT; 07 = EMITTER:UNKNOWN_EMITTER");
    expect_summaries(21032, "80 = TOD_ACCU:0.50S");
    expect_summaries(21095, "FF = VA:255");
    expect_summaries(21151, "81 C2 = TAS:450KT");
    expect_summaries(21152, "40 00 = HDG:90.00DEG; 00 00 = HDG:0.00DEG");
    expect_summaries(21200,
                     "00 = EMG:NO_EMG SUR:NO_RPT; E5 = EMG:GENERAL SUR:PERM_ALR; 1E = EMG:UNDEFINED SUR:TEMP_ALR; "
                     "17 = EMG:UNLAWFUL SUR:SPI");
    expect_summaries(21230, "00 64 = RA:1.00DEG; 80 64 = RA:-1.00DEG; 80 00 = RA:0.00DEG"); // meant: sign and magnitude
    expect_summaries(21400, "C8 = RID:200");
    expect_summaries(21905, "00 FC = PA:12");
    expect_summaries(21906, "00 = LINK:NONE; FF = LINK:CDTI MODE_S UAT VDL4 OTHER; 0A = LINK:MODE_S VDL4");
    expect_summaries(21908, "05 = EMG:UNLAWFUL; 45 = EMG:UNDEFINED");
}

TEST(Cat021Status, SummaryLeavesEightCharactersOfItsRoomFree) {
    const Item item(21008, "9F");
    for (const auto &[capacity, expected] : {std::pair{0U, "?"}, {1U, ""}, {8U, ""}, {14U, "RA TS"}, {34U, nullptr}}) {
        char text[40] = "?";
        ast_dataitem_021_008_get_summary(text, capacity, item);
        EXPECT_STREQ(text, expected ? expected : "RA TS ARV CDTI NO_TCAS SA") << capacity;
    }
    expect_values(21008, "E2 = 1|3|0|0|0|1|0"); // TC is shown, but not kept
}

// Meant: negative numbers are their magnitude less the greatest one, so that all ones are 0.
TEST(Cat021Signs, AllOnesAreZero) {
    expect_values(21140, "FF FF = 0|0.00|0.00; 80 00 = -32767|-204793.75|-62421.14; 00 10 = 16|100.00|30.48");
    expect_values(21145, "FF FE = -1|-0.25|-7.62; 05 78 = 1400|350.00|10668.00");
    expect_summaries(21145, "05 78 = LEVEL:350.00FL; 80 00 = LEVEL:-8191.75FL");
    expect_values(21146,
                  "FF FF = 1|FMS Selected Altitude|0|0.00|0.00; 30 00 = 0|Aircraft Altitude|-4095|-1023.75|-31203.90");
    expect_summaries(21146, "05 78 = SELECTED_ALTITUDE:350.00FL");
    expect_summaries(21160, "0C 00 40 00 = SPD:675.00KT AGL:90.00DEG; FF FE 00 00 = SPD:-0.22KT AGL:0.00DEG");
    expect_table(21160, "20 00 FF FF",
                 "Bit|Item|Value; Bit[0-15]|GROUND_SPEED LSB=KNOTS|1800.00; Bit[0-15]|GROUND_SPEED LSB=M/S|926.00; "
                 "Bit[0-15]|GROUND_SPEED LSB=KM/H|3333.60; Bit[16-31]|TRACK_ANGLE LSB=DEG|359.99");
    EXPECT_TRUE(ast_dataitem_021_160_decode(Item(21160, "FF FF 00 00")).re);
}

TEST(Cat021TargetReport, ReadsTheThirdOctetOneBitHigh) {
    expect_summaries(21040, "00 = TARGET:NORMAL; 01 80 = TARGET:NORMAL; 01 70 = TARGET:GBS SIM TST; "
                            "01 20 = TARGET:SIM; 01 10 01 = TARGET:TST");
    expect_values(21040, "AE = RESERVED|100FT|1|1; 18 = 24-BIT_ICAO_ADDRESS|UNKNOWN|0|0; "
                         "21 8D 40 = DUPLICATED_ADDRESS|25FT|0|0|1|0|0|0|1|NO_INFO||1|0|0|0|0; "
                         "71 06 = ANONYMOUS_ADDRESS|UNKNOWN|0|0|0|0|0|0|0|RESERVED; "
                         "01 01 28 = 24-BIT_ICAO_ADDRESS|25FT|0|0|0|0|0|0|0|VALID||0|NOGO_BIT_SET|0|LDPJ_DETECTED|0");
    const auto report = ast_dataitem_021_040_decode(Item(21040, "71 6D 56"));
    EXPECT_TRUE(report.valid && report.atp == 3 && report.arc == 3 && report.cl == 2 && report.ipc && !report.nogo);
    EXPECT_TRUE(report.cpr && !report.ldpj && report.rcf && report.bit_2);
}

TEST(Cat021TargetReport, EditionsBefore1SwapTheFirstTwoAddressTypes) {
    each_case("00 00 = 1 1; 00 20 = 0 1; 00 48 = 2 2; 00 70 = 3 3; 00 98 = 4 3; 00 E0 = 4 1",
              [](const std::string &hex, const std::string &expected) {
                  auto report = ast_dataitem_021_A03_decode(Item(21903, hex));
                  EXPECT_EQ(std::to_string(report.atp) + " " + std::to_string(report.arc), expected) << hex;
              });
    expect_summaries(21903, "00 00 = TARGET:NORMAL; 72 00 = TARGET:GBS SIM TST SPI");
    expect_values(21903, "8E 00 = 1|0|0|0|1|1|1||NON_UNIQUE_ADDRESS|25FT|");
}

TEST(Cat021Quality, FieldsOfAbsentOctetsAreNotPresent) {
    expect_summaries(21090, "F6 = NUCR:7 NUCP:11; 31 F7 14 = NUCR:1 NUCP:8");
    expect_table(21090, "31 F7 35 C0",
                 "Bit|Item|Value; Bit[0-2]|NUC_R, NAC_V|1; Bit[3-6]|NUC_P, NIC|8; Bit[8]|NIC_BARO|1; Bit[9-10]|SIL|3; "
                 "Bit[11-14]|NAC_P|11; Bit[16-17]|SPARE|; Bit[18]|SIL_S|1; Bit[19-20]|SDA|2; Bit[21-22]|GVA|2; "
                 "Bit[24-27]|PIC|12; Bit[28-30]|SPARE|");
    const auto quality = ast_dataitem_021_090_decode(Item(21090, "31 80"));
    EXPECT_TRUE(quality.nic_baro.present && quality.nic_baro.value == 1 && quality.sil.present &&
                !quality.sil_s.present);
}

TEST(Cat021AirSpeed, IsIndicatedOrMach) {
    expect_summaries(21150, "04 00 = IAS:225.00KT; 83 20 = MACH:0.800");
    expect_table(21150, "83 20",
                 "Bit|Item|Value; Bit[1-15]|MACH LSB=0.001|800; Bit[1-15]|MACH LSB=1|0.800; Bit[0]|MATCH|1");
    expect_values(21150, "04 00 = 1024|225.00|0");
    EXPECT_EQ(ast_dataitem_021_150_decode(Item(21150, "83 20")).ias_kt, 0);
}

TEST(Cat021Items, HaveAnEmptyTableWhenTheyCannotBeRead) {
    expect_table(21140, "00", "Bit|Item|Value");
    expect_table(21210, "00 00", "Bit|Name|Value");
    EXPECT_EQ(rows_of(text_from(ast_dataitem_021_040_get_detail_html, nullptr)).size(), 1U);
}

TEST(Cat021Mops, VersionStandsForAKnownLink) {
    expect_summaries(21210, "12 = VN:2; 38 = VN:7; 14 = LINK:UNKNOWN; 17 = LINK:UNKNOWN");
    expect_values(21210,
                  "5A = 1|3 (DO-260C, ED102B)|1090ES|; 21 = 0|4 (UNKNOWN)|UAT|; 07 = 0|0 (DO-260, ED102)|UNKNOWN|");
    expect_values(21905, "9C 07 = OPERATIONAL|NOT_OPERATIONAL|INVALID|7|");
}

TEST(Cat021Ages, AreInTenthsOfASecond) {
    constexpr char kOctets[] = "81 01 01 40 0A FF"; // the first, and the last but one of the fourth octet's
    expect_subfield_summaries(21295001, "80 0A = 1.00 LSB=SEC; 80 FF = 25.50 LSB=SEC; 40 0A = ");
    expect_subfield_summaries(21295024, "80 0A = NOT_IMPLEMENTED");
    expect_subfield_summaries(21220001, "80 00 41 = NOT_IMPLEMENTED");
    expect_subfield_summaries(21110001, "80 00 = NOT_IMPLEMENTED");
    const auto ages = ast_dataitem_021_295_decode(Item(21295, kOctets));
    EXPECT_TRUE(ages.valid && ages.aos.present && ages.aos.age_s == 1 && ages.scc.present && ages.scc.raw == 255);
    EXPECT_FALSE(ages.ti.present || ages.tid.present);
    EXPECT_FALSE(ast_dataitem_021_295_decode(Item(21220, "80 00 41")).valid);
}

// ---- Encoders ----

template <auto decode>
void expect_back(ast_dataitem_type_t type, std::initializer_list<const char *> items) {
    for (const char *const hex : items) {
        auto value = decode(Item(type, hex));
        expect_encodes(hex, type, &value, hex);
    }
}

TEST(Cat021Encoders, WriteWhatTheDecodersRead) {
    expect_back<ast_dataitem_021_020_decode>(21020, {"05", "18"});
    expect_back<ast_dataitem_021_040_decode>(21040, {"8E", "71 FC", "01 01 7E"});
    expect_back<ast_dataitem_021_090_decode>(21090, {"FE", "31 F6", "31 F7 3E", "01 01 01 C0"});
    expect_back<ast_dataitem_021_095_decode>(21095, {"FF"});
    expect_back<ast_dataitem_021_140_decode>(21140, {"7F FF", "80 01"});
    expect_back<ast_dataitem_021_150_decode>(21150, {"7F FF", "FF FF"});
    expect_back<ast_dataitem_021_160_decode>(21160, {"7F FF FF FF", "80 00 00 01", "FF FF 00 00"});
    expect_back<ast_dataitem_021_200_decode>(21200, {"DE", "25"});
    expect_back<ast_dataitem_021_210_decode>(21210, {"5A", "3C"});
    expect_back<ast_dataitem_021_A03_decode>(21903, {"FE 00", "00 28", "54 90"});
    expect_back<ast_dataitem_021_A05_decode>(21905, {"E4 0F", "1C 00"});
    expect_back<ast_dataitem_021_A06_decode>(21906, {"15", "0A"});
    expect_back<ast_dataitem_021_A08_decode>(21908, {"07"});
}

TEST(Cat021Encoders, RefuseWhatTheirFieldsCannotHold) {
    constexpr EncodeCase<ast_dataitem_021_145_t> kLevels[] = {
        {"nearest step", {.valid = true, .raw = 9, .altitude_ft = 35012}, "05 78"},
        {"lowest", {.valid = true, .altitude_ft = -819175}, "80 00"},
        {"raw", {.valid = true, .raw = -1, .altitude_ft = kNan}, "FF FE"},
        {"below it", {.valid = true, .altitude_ft = -819200}, nullptr},
        {"above the highest", {.valid = true, .altitude_ft = 819200}, nullptr},
        {"no bound", {.valid = true, .altitude_ft = -std::numeric_limits<double>::infinity()}, nullptr},
    };
    expect_encodes(21145, kLevels);
    constexpr EncodeCase<ast_dataitem_021_160_t> kVectors[] = {
        {"eastward", {.valid = true, .ground_speed_kt = 675, .track_angle_deg = 90}, "0C 00 40 00"},
        {"almost north", {.valid = true, .track_angle_deg = 359.9999}, "00 00 00 00"},
        {"a full circle", {.valid = true, .track_angle_deg = 360}, nullptr},
        {"with a speed that has no octets", {.valid = true, .re = true, .ground_speed_kt = 1}, nullptr},
        {"raw beyond its field", {.valid = true, .track_raw = 65536, .track_angle_deg = kNan}, nullptr},
    };
    expect_encodes(21160, kVectors);
}

TEST(Cat021Encoders, WriteAsManyOctetsAsHoldSomething) {
    constexpr EncodeCase<ast_dataitem_021_040_t> kReports[] = {
        {"meant: no capability is unknown", {.valid = true, .atp = 4}, "90"},
        {"second octet", {.valid = true, .arc = 1, .gbs = true, .cl = 2}, "01 44"},
        {"capability out of range", {.valid = true, .arc = 5}, nullptr},
    };
    expect_encodes(21040, kReports);
    constexpr EncodeCase<ast_dataitem_021_090_t> kQualities[] = {
        {"absent, whatever it holds", {.valid = true, .sil = {.present = false, .value = 9}}, "00"},
        {"out of range", {.valid = true, .sil = {.present = true, .value = 4}}, nullptr},
    };
    expect_encodes(21090, kQualities);
}

// ---- Accessors ----

TEST(Cat021Accessors, TakeTheFirstOfSeveralItems) {
    const Record record(21, {{21030, "00 00 80"},
                             {21077, "00 01 00"},
                             {21131, "20 00 00 00 F0 00 00 00"},
                             {21130, "20 00 00 40 00 00"},
                             {21070, "8F FF"},
                             {21146, "05 78"},
                             {21157, "00 01"},
                             {21160, "0C 00 40 00"},
                             {21170, "04 28 31 CB 38 20"}});
    EXPECT_EQ(ast_datarecord_get_timeofday(record).second, 1U);
    EXPECT_EQ(ast_datarecord_021_get_timeofday(Record(21, {{21077, "00 01 00"}, {21030, "00 00 80"}})).second, 2U);
    const auto position = ast_datarecord_get_wgs84coord(record);
    EXPECT_TRUE(position.valid && position.latitude_deg == 90 && position.longitude_deg == -45);
    EXPECT_EQ(ast_datarecord_021_get_coordinate(Record(21, {{21902, "01 00 00 00 FF 00 00 00"}})).latitude_deg, 90);
    EXPECT_TRUE(ast_datarecord_get_squawk(record).not_validated);
    EXPECT_EQ(ast_datarecord_get_selaltitude(record).value, 35000);
    EXPECT_EQ(ast_datarecord_get_speed(record).value, 675);
    const auto heading = ast_datarecord_get_heading(record);
    EXPECT_TRUE(heading.valid && !heading.magnetic.valid && heading.track.valid && heading.track.value == 90);
    EXPECT_FALSE(ast_datarecord_get_vrate(record).valid) << "the geometric rate does not count";
    EXPECT_FALSE(ast_datarecord_get_flightlevel(record).valid);
    EXPECT_EQ(ast_datarecord_021_get_msgtype(nullptr).value, 5U);
    EXPECT_EQ(ast_datarecord_021_get_icaoaddr(record).address, UINT32_MAX);
    EXPECT_EQ(ast_datarecord_021_get_heading(Record(21, {{21160, "0C 00"}})).track.value, -1);
}

// ---- Flat records ----

template <typename Flat>
std::vector<uint8_t> assembled(ast_datarecord_t (*assemble)(uint8_t *, uint64_t, Flat *, ast_uap_t), Flat &flat,
                               const ast_uap_t &uap) {
    std::vector<uint8_t> buffer(100);
    buffer.resize(assemble(buffer.data(), buffer.size(), &flat, uap).size);
    return buffer;
}

#define ASSEMBLED "19 0C 20 20 00 00 40 00 00 4B 18 05 05 78 0C 00 40 00 58 78 40 04 28 31 CB 38 20 05"

TEST(Cat021Flat, TakesRecordsApartAndPutsThemTogether) {
    // FRN 1, 2, 6, 11, 21, 26, 28, 29 and 30 are put together again, 31, 32, 36 and 42 are not.
    const auto data = octets("C5 11 03 0B F1 82 " ASSEMBLED " 80 00 41 05 78 82 02 04");
    const auto kept = octets("C5 11 03 0B C0 " ASSEMBLED);
    const auto record = ast_datarecord_decode(data.data(), data.size(), 21, AST_UAP_CAT021_VER21);
    const LogLine met{0, "Failed to disassemble dataitem I021/220."};
    const LogLine selected{0, "Failed to disassemble dataitem I021/146."};
    LogCapture log;
    ast_datarecord_021_t flat;
    ASSERT_EQ(ast_datarecord_021_disassemble(&flat, &record), &flat);
    EXPECT_EQ(log.take(), LogLines{met});
    EXPECT_TRUE(flat.valid && flat.operational_status.ra && flat.selected_altitude.valid && flat.data_ages.gh.present);
    EXPECT_EQ(assembled(ast_datarecord_021_assemble, flat, AST_UAP_CAT021_VER21), kept);
    ast_datarecord_021_v26_t v26;
    EXPECT_TRUE(ast_datarecord_021_v26_disassemble(&v26, &record)->data_ages.gh.present);
    EXPECT_EQ(log.take(), (LogLines{met, selected}));
    EXPECT_EQ(assembled(ast_datarecord_021_v26_assemble, v26, AST_UAP_CAT021_VER24), kept);
    ast_datarecord_021_v21_t v21;
    ast_datarecord_021_v21_disassemble(&v21, &record);
    EXPECT_EQ(log.take(), (LogLines{met, selected, {0, "Failed to disassemble dataitem I021/295."}}));
    EXPECT_EQ(assembled(ast_datarecord_021_v21_assemble, v21, AST_UAP_CAT021_VER21), kept);
}

TEST(Cat021Flat, Edition026HasItemsOfItsOwn) {
    const Record record(
        21, {{21010, "19 0C"}, {21903, "42 28"}, {21905, "94 07"}, {21906, "0A"}, {21908, "05"}, {21907, "00"}});
    LogCapture log;
    ast_datarecord_021_v026_t flat;
    ast_datarecord_021_v026_disassemble(&flat, record);
    EXPECT_EQ(log.take(), (LogLines{{0, "Failed to disassemble dataitem I021/271."}}));
    EXPECT_TRUE(flat.target_report.atp == 0 && flat.target_report.arc == 2 && flat.figure_of_merit.ac == 2);
    EXPECT_EQ(assembled(ast_datarecord_021_v026_assemble, flat, AST_UAP_CAT021_VER026), // FRN 1, 2, 7, 8 and 21
              octets("C3 81 02 19 0C 42 28 94 07 0A 05"));
}

TEST(Cat021Flat, IsZeroForOtherRecords) {
    LogCapture log;
    ast_datarecord_021_t flat;
    std::memset(&flat, 0xFF, sizeof flat);
    ast_datarecord_021_disassemble(&flat, Record(48, {{21010, "19 0C"}}));
    EXPECT_FALSE(flat.valid || flat.data_source.valid || flat.data_ages.subfields.subfield_count);
    EXPECT_TRUE(ast_datarecord_021_disassemble(&flat, Record(21, {}))->valid);
    EXPECT_EQ(ast_datarecord_021_disassemble(nullptr, Record(21, {})), nullptr);
    flat.operational_status.valid = true; // never assembled
    EXPECT_TRUE(assembled(ast_datarecord_021_assemble, flat, AST_UAP_CAT021_VER21).empty());
}

} // namespace
