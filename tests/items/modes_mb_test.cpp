#include "support/items.hpp"
#include "support/log_capture.hpp"

using namespace ast_test;

namespace {

constexpr ast_dataitem_type_t kModeSMb = 48250;

#define KLM1234_REGISTER "20 2C C3 71 CB 3D 20"
#define EMPTY_REGISTER "00 00 00 00 00 00 00"

std::string registers(unsigned rep, unsigned count) {
    std::string hex = {"0123456789"[rep / 16], "0123456789"[rep % 16]};
    for (unsigned i = 0; i < count; ++i) hex += " " EMPTY_REGISTER " 40";
    return hex;
}

TEST(ModeSMb, SummaryListsTheRegisters) {
    expect_summaries(kModeSMb, "01 " EMPTY_REGISTER " 20 = BDS:2,0; "
                               "02 " EMPTY_REGISTER " 60 " EMPTY_REGISTER " AF = BDS:6,0 A,F; 00 = ; "
                               "02 " EMPTY_REGISTER " 20 = ; 01 " EMPTY_REGISTER " 20 00 = "); // too few, too many
    EXPECT_EQ(detail_of(kModeSMb, "02 " EMPTY_REGISTER " 20"), "");
}

TEST(ModeSMb, HoldsEightRegistersOfAnyNumber) {
    for (const unsigned count : {8U, 9U}) {
        const Item item(kModeSMb, registers(count, count));
        const ast_modes_mb_t data = ast_dataitem_modes_mb_decode(item);
        EXPECT_TRUE(data.valid);
        EXPECT_EQ(data.count, count);
        EXPECT_TRUE(data.registers[7].valid);
        EXPECT_EQ(data.registers[7].data, static_cast<const ast_dataitem_t *>(item)->data + 57);
        EXPECT_EQ(summary_of(kModeSMb, registers(count, count)), "BDS:4,0 4,0 4,0 4,0 4,0 4,0 4,0 4,0");
    }
}

TEST(ModeSMb, DetailShowsEachRegister) {
    LogCapture log;
    const std::string view = detail_of(kModeSMb, "02 " KLM1234_REGISTER " 20 " EMPTY_REGISTER " 61");
    EXPECT_EQ(table_of(view), "BDS|Name; BDS 2,0|Aircraft Identification; BDS 6,1|Extended Squitter Aircraft Status; "
                              "Item|Value; CHAR_1|K; CHAR_2|L; CHAR_3|M; CHAR_4|1; CHAR_5|2; CHAR_6|3; CHAR_7|4; "
                              "CHAR_8| ");
    // A register is its title, its bits, an empty paragraph and its fields; the last one has no fields to show.
    EXPECT_EQ(view.find("<h4>BDS List</h4><table"), 0U);
    EXPECT_NE(view.find("<h4>BDS 2,0 - Aircraft Identification</h4><table class=\"bin_table\">"), view.npos);
    EXPECT_NE(view.find("Octet 7 - 20"), view.npos);
    EXPECT_NE(view.find("</table><p></p><table class=\"detail_table\">"), view.npos);
    EXPECT_NE(view.find("<h4>BDS 6,1 - Extended Squitter Aircraft Status</h4><table class=\"bin_table\">"), view.npos);
    EXPECT_TRUE(view.ends_with("</table><p></p>"));
    EXPECT_EQ(log.take(), (LogLines{{2, "Unsupported BDS 6,1"}}));
}

} // namespace
