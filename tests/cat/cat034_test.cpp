#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

constexpr uint32_t kStatusCom = 34050001;
constexpr uint32_t kStatusSsr = 34050005;
constexpr uint32_t kModeCom = 34060001;

void expect_subfield_values(uint32_t subfield, std::string_view cases) {
    each_case(cases, [&](const std::string &hex, const std::string &values) {
        EXPECT_EQ(values_of(subfield_detail_of(subfield, hex)), values) << hex;
    });
}

TEST(Cat034MessageType, SummaryNamesTheType) {
    expect_summaries(34000, "00 = MSG_TYPE:UNDEFINED; 01 = MSG_TYPE:NORTH_MARKER; 04 = MSG_TYPE:JAMMING_STROBE; "
                            "05 = MSG_TYPE:UNDEFINED; "
                            "FF = MSG_TYPE:UNDEFINED; 01 00 = ");
    EXPECT_EQ(detail_of(34000, "01"), "");
}

// ---- I034/050 Station Configuration & Status ----

TEST(Cat034Status, SubfieldSummaries) {
    expect_subfield_summaries(kStatusCom, "80 00 = CHN1; 80 40 = CHN2; 80 BF = CHN1; 08 00 = ");
    expect_subfield_summaries(kStatusSsr, "08 00 = ANT1 CHN_NO; 08 20 = ANT1 CHN1; 08 C0 = ANT2 CHN2; "
                                          "08 E0 = ANT2 CHN_INVALID; 88 40 20 = ANT1 CHN1; 80 00 = ");
    expect_subfield_summaries(34050002, "40 = NOT_IMPLEMENTED"); // a spare subfield has no octets
    expect_subfield_summaries(34050004, "10 FF = NOT_IMPLEMENTED");
    expect_subfield_summaries(34050006, "04 FF FF = NOT_IMPLEMENTED; 80 00 = ");
}

TEST(Cat034Status, SubfieldDetails) {
    expect_subfield_values(kStatusCom, "80 00 = OPERATIONAL|CHANNEL_1|NO|NO|NO|CONNECTED|VALID|; "
                                       "80 A8 = NOGO!|CHANNEL_1|YES|NO|YES|CONNECTED|VALID|; "
                                       "80 54 = OPERATIONAL|CHANNEL_2|NO|YES|NO|DISCONNECTED|VALID|; 08 00 = ");
    expect_subfield_values(kStatusSsr, "08 00 = ANTENNA_1|NO_CHANNLE|NO|CONNECTED|; " // meant: spelled so
                                       "08 20 = ANTENNA_1|CHANNLE_A_ONLY|NO|CONNECTED|; "
                                       "08 D0 = ANTENNA_2|CHANNLE_B_ONLY|YES|CONNECTED|; 80 00 = ");
    EXPECT_EQ(subfield_detail_of(34050004, "10 FF") + subfield_detail_of(34050006, "04 FF FF"), "");
}

TEST(Cat034Status, DecodesWholeItemsOfItsType) {
    const auto status = ast_dataitem_034_050_decode(Item(34050, "9C 04 FF D0 FF FF"));
    EXPECT_TRUE(status.valid && status.com.present && !status.com.msc && status.com.time_valid);
    EXPECT_TRUE(status.ssr.present && status.ssr.ant == 2 && status.ssr.ch_ab == 2 && status.ssr.ovl && status.ssr.msc);
    EXPECT_FALSE(ast_dataitem_034_050_decode(Item(34050, "81")).valid);
    EXPECT_FALSE(ast_dataitem_034_050_decode(Item(34060, "80 00")).valid);
    EXPECT_FALSE(ast_dataitem_034_050_decode(nullptr).valid);
}

// ---- I034/060 System Processing Mode ----

TEST(Cat034Mode, SubfieldViews) {
    // Meant: the labels read so, and differ between the two views.
    expect_subfield_summaries(kModeCom, "80 2E = RED-RAD:2 RED-XMP:7; 80 81 = RED-RAD:0 RED-XMP:0; 08 FF = ");
    expect_subfield_values(kModeCom, "80 81 = |NO_REDUCTION_ACTIVE|NO_REDUCTION_ACTIVE|; "
                                     "80 70 = |REDUCTION_STEP7_ACTIVE|NO_REDUCTION_ACTIVE|; 10 FF = ");
    expect_subfield_summaries(34060004, "10 FF = NOT_IMPLEMENTED");
    expect_subfield_summaries(34060005, "08 FF = NOT_IMPLEMENTED");
    expect_subfield_summaries(34060006, "04 FF = NOT_IMPLEMENTED");
    EXPECT_EQ(subfield_detail_of(34060004, "10 FF"), "");
}

TEST(Cat034Mode, DecodesAllSubfields) {
    const auto mode = ast_dataitem_034_060_decode(Item(34060, "9C 2E B8 A0 60"));
    EXPECT_TRUE(mode.valid && mode.com.present && mode.psr.present && mode.ssr.present && mode.mds.present);
    EXPECT_TRUE(mode.com.red_rdp == 2 && mode.com.red_xmt == 7);
    EXPECT_TRUE(mode.psr.pol && mode.psr.red_rad == 3 && mode.psr.stc == 2);
    EXPECT_TRUE(mode.ssr.red_rad == 5 && mode.mds.red_rad == 3 && mode.mds.clu_autonomous);
    const auto reduced = ast_dataitem_034_060_decode(Item(34060, "04 10"));
    EXPECT_FALSE(reduced.mds.clu_autonomous || reduced.com.present);
    EXPECT_FALSE(ast_dataitem_034_060_decode(Item(34050, "80 00")).valid);
    EXPECT_FALSE(ast_dataitem_034_060_decode(nullptr).valid);
}

// ---- I034/070 Message Count Values ----

// Types 0 to 17, each with its number as value, and 2047 for the last.
constexpr char kAllCounters[] = "12 00 00 08 01 10 02 18 03 20 04 28 05 30 06 38 07 40 08 48 09 "
                                "50 0A 58 0B 60 0C 68 0D 70 0E 78 0F 80 10 8F FF";

TEST(Cat034Counters, SummaryGivesHowMany) {
    expect_summaries(34070, "00 = COUNTERS:0; 02 08 01 FF FF = COUNTERS:2; 02 08 01 FF = ; 02 08 01 FF FF 00 = ");
    EXPECT_EQ(summary_of(34070, kAllCounters), "COUNTERS:18") << "more than have room";
    EXPECT_EQ(detail_of(34070, "00") + detail_of(34070, "02 08 01 FF"), "");
    EXPECT_FALSE(ast_dataitem_034_070_decode(Item(34071, "00")).valid);
}

TEST(Cat034Counters, DecodeKeepsTheFirstSixteenAndTheCount) {
    const auto counts = ast_dataitem_034_070_decode(Item(34070, kAllCounters));
    EXPECT_TRUE(counts.valid && counts.count == 18);
    for (uint32_t i = 0; i < 16; ++i) EXPECT_TRUE(counts.counters[i].typ == i && counts.counters[i].value == i) << i;
    const auto one = ast_dataitem_034_070_decode(Item(34070, "01 FF FF"));
    EXPECT_TRUE(one.counters[0].typ == 31 && one.counters[0].value == 2047);
}

// ---- I034/120 3D-Position Of Data Source ----

TEST(Cat034Position, SummaryGivesHeightAndPosition) {
    // Meant: a negative angle is its magnitude less 8388607, so that it reads one unit (0.08 seconds) to the east or
    // north of two's complement. The height is two's complement.
    expect_summaries(34120, "00 00 00 00 00 00 00 00 = H:0 WGS84:000000S0000000W; "
                            "00 64 20 00 00 E0 00 00 = H:100 WGS84:450000N0445960W; "
                            "FF FF FF FF FF FF FF FF = H:-1 WGS84:000000S0000000W; "
                            "7F FF 00 00 00 7F FF FF = H:32767 WGS84:000000S1795960E; "
                            "80 00 00 00 00 80 00 00 = H:-32768 WGS84:000000S1795960W; 00 64 20 00 00 E0 00 = ");
}

TEST(Cat034Position, DetailGivesTextsNumbersAndLinks) {
    constexpr char kOctets[] = "00 64 20 00 00 E0 00 00";
    const auto rows = rows_of(detail_of(34120, kOctets));
    ASSERT_EQ(rows.size(), 10U);
    EXPECT_EQ(rows[0] + "; " + rows[1], "Octet|Item|Value; Octet[1-2]|HEIGHT (LSB=M)|100.000000");
    for (size_t i = 2; i < 10; ++i) EXPECT_EQ(rows[i].find("Octet[3-8]|WGS84_COORDINATES|"), 0U) << rows[i];
    EXPECT_EQ(values_of(detail_of(34120, kOctets)),
              "100.000000|450000N0445960W|450000.00N0445959.92W|450000.000000N0445959.922752W|45.000000, -44.999979|"
              "Google Maps|OpenStreetMap|AMap|Baidu Map");
    EXPECT_EQ(detail_of(34120, "00 64 20 00 00 E0 00"), "");
}

// ---- Flat records ----

// Every item of the standard profile that is registered, in FRN order: 1 to 8 and 10 to 14.
constexpr char kFullRecord[] = "FF BE 19 0C 02 58 78 40 40 02 80 88 40 A0 80 2E 01 08 01 " // FRN 1-8
                               "05 00 64 20 00 00 E0 00 00 00 00 02 FF 02 FF";             // FRN 10-14
constexpr char kAssembled[] = "F8 19 0C 02 58 78 40 40 02 80";                             // FRN 1-5

std::vector<uint8_t> assembled(ast_datarecord_034_t &flat) {
    std::vector<uint8_t> buffer(32);
    const auto record = ast_datarecord_034_assemble(buffer.data(), buffer.size(), &flat, AST_UAP_STANDARD);
    EXPECT_TRUE(record.valid);
    buffer.resize(record.size);
    return buffer;
}

ast_datarecord_034_t disassembled(const std::vector<uint8_t> &data) {
    const auto record = ast_datarecord_decode(data.data(), data.size(), 34, AST_UAP_STANDARD);
    EXPECT_TRUE(record.valid);
    return ast_datarecord_034_disassemble(&record);
}

TEST(Cat034Flat, TakesEveryMemberApartAndPutsFiveBack) {
    LogCapture log;
    auto flat = disassembled(octets(kFullRecord));
    EXPECT_EQ(log.take(), (LogLines{{2, "Failed to disassemble dataitem : I034/110."},
                                    {2, "Failed to disassemble dataitem : I034/120."},
                                    {2, "Failed to disassemble dataitem : I034/090."},
                                    {2, "Failed to disassemble dataitem : I034/REF."},
                                    {2, "Failed to disassemble dataitem : I034/SPF."}}));
    EXPECT_TRUE(flat.valid && flat.message_type.value == 2 && flat.data_source.sac == 25 && flat.sector.value == 90);
    EXPECT_TRUE(flat.time_of_day.hour == 12 && flat.antenna_rotation_period.value == 5);
    EXPECT_TRUE(flat.station_status.com.rdpc == 2 && flat.station_status.ssr.ant == 2);
    EXPECT_TRUE(flat.processing_mode.com.red_xmt == 7 && flat.message_counts.count == 1);

    EXPECT_EQ(assembled(flat), octets(kAssembled));
    auto again = disassembled(octets(kAssembled));
    EXPECT_FALSE(again.station_status.valid);
    EXPECT_EQ(assembled(again), octets(kAssembled));
}

} // namespace
