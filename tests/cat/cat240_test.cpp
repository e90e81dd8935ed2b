#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

// The variables of the process as they are at its start, before and after each test.
class Cat240Video : public ::testing::Test {
protected:
    Cat240Video() { reset(); }
    ~Cat240Video() override { reset(); }
    static void reset() {
        g_video_resolution = g_start_range = 0;
        g_cell_duration = 0;
    }
};

// From 90 to 180 degrees; the first cell is the 16th, and a cell lasts 100 units.
constexpr char kHeader[] = "40 00 80 00 00 00 00 10 00 00 00 64";

TEST_F(Cat240Video, RecordsAndSummariesAreNamed) {
    expect_summaries(240000, "00 = MSG_TYPE:UNDEFINED; 01 = MSG_TYPE:VIDEO_SUMMARY; 02 = MSG_TYPE:VIDEO_MESSAGE; "
                             "03 = MSG_TYPE:UNDEFINED");
    expect_summaries(240020, "FF 00 00 01 = MSG_INDEX:4278190081; FF = ");
    expect_summaries(240030, "02 48 69 = SUM:Hi; 00 = ; 03 48 69 = ; "
                             "10 41 41 41 41 41 41 41 41 41 41 41 41 41 41 41 42 = SUM:AAAAAAAAAAAAAAAB; "
                             "11 41 41 41 41 41 41 41 41 41 41 41 41 41 41 41 42 43 = SUM:AAAAAAAAAAAAAAAB...[17]");
    EXPECT_EQ(detail_of(240030, "02 48 69"), "<p>Video summary: \"<b>Hi</b>\"</p>");
    // What came from the network is no markup, in the view of the record neither.
    EXPECT_EQ(detail_of(240030, "06 3C 62 3E 26 22 0A"), "<p>Video summary: \"<b>&lt;b&gt;&amp;&quot; </b>\"</p>");
    EXPECT_EQ(summary_of(240030, "06 3C 62 3E 26 22 0A"), "SUM:<b>&\"\n") << "which is plain text";
    const std::string view = text_from(ast_datarecord_get_detail_html,
                                       static_cast<const ast_datarecord_t *>(Record(240, {{240030, "03 3C 62 3E"}})));
    EXPECT_NE(view.find(">SUM:&lt;b&gt;<"), view.npos) << view;
    expect_summaries(240049, "01 02 03 04 05 = OCTET:258 CELL:197637");
}

TEST_F(Cat240Video, HeadersDifferInTheUnitOfTheirCells) {
    EXPECT_EQ(summary_of(240040, kHeader), "AZ:90.00-180.00 RG:239.83"); // 16 times 100 ns there and back
    EXPECT_EQ(values_of(detail_of(240040, kHeader)), "16384| 90.00|32768|180.00|16|239.83|100|0.000000100000000");
    EXPECT_TRUE(g_start_range == 0 && g_cell_duration == 0) << "meant: only the other header tells";
    EXPECT_EQ(summary_of(240041, "40 00 80 00 00 00 00 10 05 F5 E1 00"), "AZ:90.00-180.00 RG:239.83");
    EXPECT_TRUE(g_start_range == 16 && g_cell_duration == 1e-7);
}

TEST_F(Cat240Video, BlocksAreShownWithWhatTheHeadersSaid) {
    expect_summaries(240050, "01 00 10 00 20 = OCTET:4");
    expect_summaries(240048, "80 04 = RES:8-BITS DCI; 00 04 = RES:8-BITS");
    expect_values(240048, "80 07 = COMPRESSION|--|UNDEFINED; 7F 04 = NO_COMPRESSION|--|HIGH (8-BITS)");
    expect_summaries(240050, "01 00 10 00 20 = OCTET:4, CELL:4; 01 00 10 00 = ");
    ast_dataitem_240_041_decode(Item(240041, "40 00 80 00 00 00 00 10 05 F5 E1 00"));
    LogCapture log;
    const Item block(240050, "01 00 10 00 20");
    const std::string view = text_from(ast_dataitem_get_detail_html, static_cast<const ast_dataitem_t *>(block));
    EXPECT_EQ(view.find("<p>2 valid (non empty) video cells.</p><p>Video resolution is 8-bits.</p><table"), 0U);
    EXPECT_EQ(table_of(view), "Number|Range|Amptitude Value|Amptitude Relative; 2|254.82|16|6.25%; 4|284.80|32|12.50%");
    EXPECT_EQ(log.take(), (LogLines{{1, "Cell ID=2, Range=.2f, Amp=16."}, {1, "Cell ID=4, Range=.2f, Amp=32."}}));
    g_video_resolution = 3;
    EXPECT_EQ(text_from(ast_dataitem_get_detail_html, static_cast<const ast_dataitem_t *>(block)), "");
    EXPECT_EQ(log.take(), (LogLines{{3, "Unsupported video resolution 3-bits."}}));
}

TEST_F(Cat240Video, LargeBlocksLoseTwoOctetsOfEachRepetition) {
    auto data = repeated("00", 257);
    data[0] = 1;
    data[254] = 7;
    data[255] = 8; // beyond
    const auto block = ast_dataitem_240_052_decode(Item(240052, data));
    EXPECT_TRUE(block.valid && block.length == 254 && block.octets[253] == 7);
    g_video_resolution = 4;
    EXPECT_EQ(text_from(ast_dataitem_get_summary, static_cast<const ast_dataitem_t *>(Item(240052, data))),
              "OCTET:256, CELL:254");
}

TEST_F(Cat240Video, CellsEndWhereTheRecordIsFull) {
    LogCapture log;
    const auto data = repeated("FF", 1025);
    EXPECT_TRUE(ast_videocell_decode(data.data(), 1023, 4, 0, 0).valid);
    log.take();
    auto cells = ast_videocell_decode(data.data(), data.size(), 4, UINT32_MAX, 1e-9);
    EXPECT_TRUE(!cells.valid && cells.count == 1024 && cells.cells[1023].number == 1024);
    EXPECT_NEAR(cells.cells[1].range_m, 4294967296 * 0.149896229, 1e-3);
    EXPECT_EQ(log.take().back(), (LogLine{4, "Number of videocells 1024 exceeds the limit 1024."}));
    cells.valid = true;
    cells.count = UINT64_MAX;
    EXPECT_EQ(rows_of(text_from(ast_videocells_get_detail_html, &cells)).size(), 1025U);
}

TEST_F(Cat240Video, AccessorsStandAlone) {
    const Record record(240, {{240000, "02"}, {240010, "19 0C"}, {240140, "58 78 40"}});
    EXPECT_EQ(ast_datarecord_240_get_msgtype(record).value, AST_MSGTYPE_VIDEO);
    EXPECT_TRUE(ast_datarecord_240_get_sacsic(record).sic == 12 && ast_datarecord_240_get_timeofday(record).hour == 12);
    EXPECT_FALSE(ast_datarecord_240_get_msgtype(Record(240, {{240000, "03"}})).valid);
    EXPECT_EQ(ast_datarecord_240_get_sacsic(nullptr).sac, UINT32_MAX);
    EXPECT_EQ(ast_datarecord_get_msgtype(record), 0U);
}

} // namespace
