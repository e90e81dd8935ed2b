#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat004Functions, AreKnownByTheirCodes) {
    expect_summaries(4000, "00 = MSG_TYPE:UNDEFINED; 01 = MSG_TYPE:ALIVE; 26 = MSG_TYPE:UNDEFINED; "
                           "61 = MSG_TYPE:LTW; C9 = MSG_TYPE:MRVA; FF = MSG_TYPE:UNDEFINED");
    EXPECT_EQ(detail_of(4000, "07"), "<p>Message type: Short Term Conflict Alert (STCA)</p>");
    EXPECT_STREQ(ast_snet_message_type_get_name(256 + 7), "UNDEFINED");
}

TEST(Cat004Alert, IsANumberOfAtLeastFourDigits) {
    expect_summaries(4040, "00 2A = ALERT_ID:0042; FF FF = ALERT_ID:65535; 2A = ");
    EXPECT_EQ(ast_dataitem_004_040_decode(Item(4030, "01 02")).value, 258U) << "of any type";
    constexpr EncodeCase<ast_dataitem_004_040_t> kCases[] = {{"the last", {.valid = true, .value = 65535}, "FF FF"},
                                                             {"one more", {.valid = true, .value = 65536}, nullptr}};
    expect_encodes(4040, kCases);
}

TEST(Cat004Status, ReadsTheFirstOctetAndReportsFurtherOnes) {
    LogCapture log;
    expect_values(4060, "2A = 0|0|1|0|1|0|1; 80 = 1|0|0|0|0|0|0"); // MRVA is bit 8, STCA bit 2
    EXPECT_EQ(log.take(), LogLines{});
    EXPECT_FALSE(ast_dataitem_004_060_decode(Item(4040, "80")).valid);
    EXPECT_FALSE(ast_dataitem_004_060_decode(Item(4060, "81 01 01 01 01 01 00")).valid);
    const Item status(4060, "81 FE");
    EXPECT_EQ(ast_dataitem_004_060_decode(status).function_count, 14U);
    EXPECT_EQ(text_from(ast_dataitem_get_summary, static_cast<const ast_dataitem_t *>(status)), "FUNCTIONS:1");
    EXPECT_EQ(log.take(), LogLines(2, {0, "Unimplemented octects detected in I004/060"})) << "once each time";
}

TEST(Cat004Subfields, HaveSummariesWhereTheyAreRead) {
    expect_subfield_summaries(4100001, "80 04 2C E0 0C CC 79 = AN:AB3 CL19; 40 00 00 00 00 00 00 00 = ; 81 = ");
    expect_subfield_summaries(4100002, "80 00 00 00 00 00 00 = NOT_IMPLEMENTED"); // present or not
    expect_subfield_summaries(4120002, "40 A7 = TAB:10 PROP:3 CS:HIGH; C0 01 00 F0 = TAB:15 PROP:0 CS:LOW; 80 00 = ");
    const Item aircraft(4170, "40 FF 77");
    EXPECT_EQ(text_from(ast_subfield_004_170_get_summary, static_cast<const ast_dataitem_t *>(aircraft), 4170002U),
              "MODE_3/A:7567");
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
    EXPECT_TRUE(flat.function_status.functions[6].status && flat.area_definition.an.present);
    EXPECT_TRUE(flat.conflict_characteristics.cc.criticality);
    EXPECT_TRUE(flat.aircraft_1.m31.code == 07567 && flat.aircraft_2.m32.code == 01064);
}

} // namespace
