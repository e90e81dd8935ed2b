#include "support/items.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat002Items, ViewsGiveTypesAndBits) {
    expect_summaries(2000, "01 = MSG_TYPE:NORTH_MARKER; 02 = MSG_TYPE:SECTOR_CROSSING; 03 = MSG_TYPE:SOUTH_MARKER; "
                           "04 = MSG_TYPE:UNDEFINED; 08 = MSG_TYPE:BLIND_ZONE_FILTERING_START; "
                           "09 = MSG_TYPE:BLIND_ZONE_FILTERING_STOP; FF = MSG_TYPE:UNDEFINED");
    for (const ast_dataitem_type_t type : {2050U, 2901U, 2902U}) {
        expect_summaries(type, "A1 02 = BIN:10100001 00000010");
        expect_values(type, "A1 02 = 1010000|0000001");
    }
    expect_summaries(2951, "A1 02 = BIN:10100001 00000010");
}

TEST(Cat002Accessors, KnowNorthAndSector) {
    EXPECT_EQ(ast_datarecord_get_msgtype(Record(2, {{2000, "01"}})), AST_MSGTYPE_NORTH);
    EXPECT_EQ(ast_datarecord_get_msgtype(Record(2, {{2000, "02"}})), AST_MSGTYPE_SECTOR);
    EXPECT_FALSE(ast_datarecord_002_get_msgtype(Record(2, {{2000, "03"}})).valid);
}

TEST(Cat002Flat, GoesBothWays) {
    const auto data = octets("F8 19 0C 02 20 58 78 40 02 00");
    const auto record = ast_datarecord_decode(data.data(), data.size(), 2, AST_UAP_STANDARD);
    ast_datarecord_002_t flat;
    ASSERT_TRUE(ast_datarecord_002_disassemble(&flat, &record)->valid);
    std::vector<uint8_t> buffer(data.size());
    EXPECT_TRUE(ast_datarecord_002_assemble(buffer.data(), buffer.size(), &flat, AST_UAP_STANDARD).valid);
    EXPECT_EQ(buffer, data);
}

} // namespace
