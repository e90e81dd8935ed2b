#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/octets.hpp"
#include "support/text.hpp"

using namespace ast_test;

namespace {

const std::string kHeader = "Dataitem|Name|Size|Summary";

ast_datarecord_t decoded(const std::vector<uint8_t> &record) {
    return ast_datarecord_decode(record.data(), record.size(), 48, AST_UAP_STANDARD);
}

std::string detail(const ast_datarecord_t *record) { return shown(ast_datarecord_get_detail_html, record); }

std::string hex(const ast_datarecord_t *record) { return shown(ast_datarecord_get_hex_html, record); }

TEST(RecordView, ListsTheItemsAndTheirOctets) {
    const auto content = octets("C0 19 0C 58 78 40");
    const ast_datarecord_t record = decoded(content);
    EXPECT_EQ(table_of(detail(&record)), kHeader + "; I048/010|Data Source Identifier|02|SAC:025 SIC:012; "
                                                   "I048/140|Time of Day|03|TOD:12:34:56.500");
    EXPECT_NE(hex(&record).find("<tr><td>C0</td><td>19</td><td>0C</td><td>58</td><td>78</td><td>40</td><td>--</td>"),
              std::string::npos);
}

TEST(RecordView, SizesOfThreeDigitsShowTheFirstTwo) {
    auto content = octets("01 01 01 04 64"); // a special purpose field of 100 octets
    content.resize(content.size() + 99);
    const ast_datarecord_t record = decoded(content);
    ASSERT_TRUE(record.valid);
    EXPECT_EQ(table_of(detail(&record)), kHeader + "; I048/SPF|Special Purpose Field|10|SPECIAL_PURPOSE");
}

TEST(RecordView, LongSummariesAreCut) {
    // The bits of thirty octets take 4 + 30 x 9 - 1 = 273 characters, of which 255 are shown.
    auto content = repeated("A1", 29);
    content.push_back(0xA0);
    ast_datarecord_t record{};
    record.items[0] = {.data = content.data(), .size = content.size(), .type = 1130, .valid = true};
    record.item_count = 1;
    EXPECT_EQ(values_of(detail(&record)).size(), 255U);
}

TEST(RecordView, ShowsWhatARecordHasEvenIfItBrokeOff) {
    const auto content = octets("C0 19 0C 58 78");
    const ast_datarecord_t record = decoded(content);
    EXPECT_FALSE(record.valid);
    EXPECT_EQ(rows_of(detail(&record)).size(), 2U);
    EXPECT_EQ(hex(&record), "");
    const ast_datarecord_t none{};
    EXPECT_EQ(table_of(detail(&none)), kHeader);
    EXPECT_EQ(detail(nullptr), "");
}

TEST(RecordView, ItemsWithoutASummarySaySo) {
    LogCapture log;
    const auto content = octets("00");
    ast_datarecord_t record{};
    record.items[0] = {.data = content.data(), .size = 1, .type = 48055, .valid = true};
    record.item_count = 1;
    EXPECT_EQ(table_of(detail(&record)), kHeader + "; I048/055|UNKNOWN NAME|01|NOT_IMPLEMENTED");
}

} // namespace
