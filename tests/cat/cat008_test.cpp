#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat008MessageType, HasTwoTypesAtTheEndOfTheRange) {
    expect_summaries(8000, "00 = MSG_TYPE:UNDEFINED; 04 = MSG_TYPE:CARTESIAN_POINT_POINT; 05 = MSG_TYPE:UNDEFINED; "
                           "FD = MSG_TYPE:UNDEFINED; FE = MSG_TYPE:START_OF_PICTURE; FF = MSG_TYPE:END_OF_PICTURE");
}

TEST(Cat008Qualifier, HasItsFlagsInTheSecondOctet) {
    expect_summaries(8020, "00 = ORG:Local INT:0 SHD:00.0; BE = ORG:System INT:3 SHD:157.5; "
                           "03 04 = ORG:Local INT:0 SHD:22.5 TST; 01 02 = ORG:Local INT:0 SHD:00.0 ERR");
    expect_values(8020, "D9 06 = System|5|90.0 deg|Test vector|Error condition encountered; "
                        "02 = Local|0|22.5 deg|Default|Default");
}

TEST(Cat008Vectors, AreAsManyAsTheirCountSays) {
    expect_summaries(
        8034,
        "02 00 01 40 00 02 FF FF FF = POLAR_VECTORS:2; 02 00 01 40 00 02 FF FF = ; 00 = POLAR_VECTORS:0; 00 00 = ");
    EXPECT_EQ(ast_dataitem_008_034_decode(Item(8034, "02 00 01 40 00 02 FF FF")).count, 0U);
    expect_table(8034, "02 00 01 40 00 02 FF FF FF",
                 "Vector|Start Range|End Range|Azimuth (deg); 1|0|1|90.0000; 2|2|255|359.9945");
    expect_table(8036, "01 80 7F FF", "Vector|X-Component|Y-Component|Length; 1|-128|127|255");
    expect_table(8038, "01 FF 01 80 7F", "Vector|X1-Component|Y1-Component|X2-Component|Y2-Component; 1|-1|1|-128|127");
    expect_table(8050, "02 FF 01 80 7F", "Point|X-Component|Y-Component; 1|-1|1; 2|-128|127");
    EXPECT_TRUE(detail_of(8034, "00")
                    .ends_with("</table><br/><p>Range values are raw: LSB = 2^(-7+f) NM, f is a "
                               "parameter of the SOP message (I008/100).</p>"));
    auto most = repeated("FF", 511);
    EXPECT_EQ(ast_dataitem_008_050_decode(Item(8050, most)).points[254].y, -1);
}

TEST(Cat008Contour, SaysWhichRecordOfItItIs) {
    expect_summaries(8040, "00 07 = CSN:7 INT:0 POS:INTERMEDIATE ORG:Local; D1 FF = CSN:255 INT:5 POS:LAST ORG:System; "
                           "02 00 = CSN:0 INT:0 POS:FIRST ORG:Local");
    expect_values(8040, "F3 2A = System|7|SINGLE|42");
}

TEST(Cat008Status, GivesScaleStageAndParameters) {
    expect_summaries(8100,
                     "F8 00 02 = F:-1 R:0 Q:1; 87 FF FE = F:-16 R:7 Q:32767; 7C 01 01 00 = F:15 R:4 Q:128; F8 00 = ");
    expect_values(8100, "F8 00 02 = -1|0(Normal operation)|1 (0x0001)|; 09 FF FF 01 A0 = 1|1|32767 (0x7FFF)|01 A0");
    expect_summaries(8110, "81 02 = BIN:10000001 00000010");
    EXPECT_EQ(detail_of(8110, "81 02"), "<p>Application dependent data (2 octets)</p>");
    expect_summaries(8120, "01 02 = NUM:258");
}

TEST(Cat008Flat, HoldsEveryItem) {
    // FRN 1 to 14 in the order of the profile: 010 000 020 036 034 040 050, 090 100 110 120 038 999 997.
    const auto data = octets("FF FE 19 0C FE 02 01 01 02 03 01 04 05 40 00 03 09 01 06 07 58 78 40 10 00 02 80 01 00 "
                             "01 01 02 03 04 02 FF 02 FF");
    LogCapture log;
    const auto record = ast_datarecord_decode(data.data(), data.size(), 8, AST_UAP_STANDARD);
    static ast_datarecord_008_t flat;
    ASSERT_EQ(ast_datarecord_008_disassemble(&flat, &record), &flat);
    EXPECT_EQ(log.take(), (LogLines{{2, "Failed to disassemble dataitem : I008/SPF."},
                                    {2, "Failed to disassemble dataitem : I008/RFS."}}));
    EXPECT_TRUE(flat.valid && flat.message_type.value == 254 && flat.data_source.sac == 25);
    EXPECT_TRUE(flat.vector_qualifier.dir_deg == 22.5 && flat.cartesian_vectors.vectors[0].length == 3);
    EXPECT_TRUE(flat.polar_vectors.vectors[0].azimuth_deg == 90 && flat.contour_identifier.csn == 9);
    EXPECT_TRUE(flat.contour_points.points[0].x == 6 && flat.time_of_day.hour == 12 && flat.processing_status.f == 2);
    EXPECT_TRUE(flat.station_status.octets[0] == 0x80 && flat.picture_items.value == 256);
    EXPECT_TRUE(flat.weather_vectors.vectors[0].y2 == 4);
}

} // namespace
