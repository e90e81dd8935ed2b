#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat004Functions, AreKnownByTheirCodes) {
    expect_summaries(4000, "00 = MSG_TYPE:UNDEFINED; 01 = MSG_TYPE:ALIVE; 25 = MSG_TYPE:CUW; 26 = MSG_TYPE:UNDEFINED; "
                           "61 = MSG_TYPE:LTW; 63 = MSG_TYPE:AIW; C9 = MSG_TYPE:MRVA; FF = MSG_TYPE:UNDEFINED");
    EXPECT_EQ(detail_of(4000, "07"), "<p>Message type: Short Term Conflict Alert (STCA)</p>");
    EXPECT_EQ(detail_of(4000, "64"), "<p>Message type: UNDEFINED (UNDEFINED)</p>");
    EXPECT_STREQ(ast_snet_message_type_get_name(201), "Minimum Radar Vectoring Altitude Infringement");
    EXPECT_STREQ(ast_snet_message_type_get_id(256 + 7), "UNDEFINED");
}

TEST(Cat004Alert, IsANumberOfAtLeastFourDigits) {
    expect_summaries(4040, "00 2A = ALERT_ID:0042; FF FF = ALERT_ID:65535; 2A = ");
    EXPECT_EQ(ast_dataitem_004_040_decode(Item(4030, "01 02")).value, 258U) << "of any type";
    constexpr EncodeCase<ast_dataitem_004_040_t> kCases[] = {
        {"the last", {.valid = true, .value = 65535}, "FF FF"}, {"one more", {.valid = true, .value = 65536}, nullptr}};
    expect_encodes(4040, kCases);
}

TEST(Cat004Status, ReadsTheFirstOctetAndReportsFurtherOnes) {
    LogCapture log;
    EXPECT_EQ(values_of(detail_of(4060, "2A")), "0|0|1|0|1|0|1"); // MSAW is bit 5, STCA bit 2
    EXPECT_EQ(log.take(), LogLines{});
    const auto status = ast_dataitem_004_060_decode(Item(4060, "81 FE"));
    EXPECT_TRUE(status.function_count == 14 && status.functions[0].code == 201 && status.functions[0].status);
    expect_table(4060, "81 00",
                 "Function|Name|Status; 201|Minimum Radar Vectoring Altitude Infringement|1; "
                 "2|Route Adherence Monitor Longitudinal Deviation|0; 3|Route Adherence Monitor Heading Deviation|0; "
                 "4|Minimum Safe Altitude Warning|0; 5|Area Proximity Warning|0; "
                 "6|Clearance Level Adherence Monitor|0; 7|Short Term Conflict Alert|0");
    EXPECT_EQ(text_from(ast_dataitem_004_060_get_summary, static_cast<const ast_dataitem_t *>(Item(4060, "81 00"))),
              "FUNCTIONS:1");
    EXPECT_EQ(log.take(), LogLines(3, {0, "Unimplemented octects detected in I004/060"})) << "once each time";
    EXPECT_FALSE(ast_dataitem_004_060_decode(Item(4060, "01 01 01 01 01 01 00")).valid);
}

TEST(Cat004Subfields, HaveSummariesWhereTheyAreRead) {
    expect_subfield_summaries(4100001, "80 04 2C E0 0C CC 79 = AN:AB3 CL19; 40 00 00 00 00 00 00 00 = ; 81 = ");
    expect_subfield_summaries(4100002, "80 00 00 00 00 00 00 = NOT_IMPLEMENTED"); // present or not
    expect_subfield_summaries(4120002, "40 A7 = TAB:10 PROP:3 CS:HIGH; C0 01 00 F0 = TAB:15 PROP:0 CS:LOW; 80 00 = ");
    expect_subfield_summaries(4120005, "40 A7 = NOT_IMPLEMENTED");
    EXPECT_EQ(subfield_detail_of(4120002, "40 A7") + subfield_detail_of(4100001, "80 04 2C E0 0C CC 79"), "");
    const Item aircraft(4170, "40 FF 77");
    const auto asked = [&](uint32_t type) {
        return text_from(ast_subfield_004_170_get_summary, static_cast<const ast_dataitem_t *>(aircraft), type);
    };
    EXPECT_EQ(asked(4170002) + " " + asked(4170001), "MODE_3/A:7567 NOT_IMPLEMENTED");
    expect_subfield_summaries(4170002, "40 FF 77 = NOT_IMPLEMENTED"); // meant: the registry does not ask
}

TEST(Cat004Flat, HoldsEveryItem) {
    // FRN 1 to 5 and 7 to 10, then 15 to 17, 20 and 21.
    const auto data = octets("DB E1 E6 19 0C 07 58 78 40 00 2A 02 FF 22 40 0F 77 50 A7 63 "
                             "80 04 2C E0 0C CC 79 01 23 40 F2 34 02 FF 02 FF");
    LogCapture log;
    const auto record = ast_datarecord_decode(data.data(), data.size(), 4, AST_UAP_STANDARD);
    ast_datarecord_004_t flat;
    ASSERT_EQ(ast_datarecord_004_disassemble(&flat, &record), &flat);
    EXPECT_EQ(log.take(), (LogLines{{0, "Failed to disassemble dataitem I004/REF."},
                                    {0, "Failed to disassemble dataitem I004/SPF."}}));
    EXPECT_TRUE(flat.valid && flat.message_type.value == 7 && flat.data_source.sic == 12);
    EXPECT_TRUE(flat.time_of_message.hour == 12 && flat.alert_identifier.value == 42);
    EXPECT_TRUE(flat.track_number_1.value == 0xFF22 && flat.track_number_2.value == 0x0123);
    EXPECT_TRUE(flat.function_status.functions[6].status && !flat.function_status.functions[0].status);
    EXPECT_STREQ(flat.area_definition.an.text, "AB3 CL19");
    EXPECT_TRUE(flat.conflict_characteristics.cc.criticality && flat.conflict_characteristics.subfields.subfields[3].size == 1);
    EXPECT_TRUE(flat.aircraft_1.m31.code == 07567 && flat.aircraft_2.m32.code == 01064);
    EXPECT_FALSE(ast_datarecord_004_disassemble(&flat, Record(8, {{4000, "07"}}))->valid || flat.alert_identifier.valid);
}

} // namespace
