#include "support/items.hpp"

using namespace ast_test;

namespace {

TEST(Cat016, TypePeriodAndHeight) {
    expect_summaries(16000,
                     "01 = MSG_TYPE:SYSTEM; 02 = MSG_TYPE:TXRX; 03 = MSG_TYPE:UNDEFINED; 00 = MSG_TYPE:UNDEFINED");
    expect_summaries(16200, "FF = SCRP:255");
    expect_summaries(16405, "80 00 = H:-8191.75 LSB:M; FF FF = H:0.00 LSB:M; 01 90 = H:100.00 LSB:M; 00 = ");
    expect_table(16405, "01 90",
                 "Bit|Item|Value; Bit[0-15]|HEIGHT LSB=0.25M|400; Bit[0-15]|HEIGHT LSB=M|100.00; "
                 "Bit[0-15]|HEIGHT LSB=FT|328.08");
}

TEST(Cat016, Pairs) {
    constexpr char kPairs[] = "02 00 01 00 02 00 03 FF FF 01 00 00 07";
    EXPECT_EQ(summary_of(16300, kPairs), "PAIRS:2");
    expect_table(16300, kPairs,
                 "Repfield|Octet|Pair Identifier|Transmitter|Receiver; 1|Octet[1-6]|1|2|3; "
                 "2|Octet[7-12]|65535|256|7");
    const Item too_long(16300, "01 00 01 00 02 00 03 00");
    const auto list = ast_dataitem_016_300_decode(too_long);
    EXPECT_TRUE(!list.valid && list.count == 1) << "counted all the same";
    EXPECT_EQ(summary_of(16300, "01 00 01 00 02 00 03 00") + detail_of(16300, "02"), "");
    EXPECT_EQ(ast_dataitem_016_300_decode(Item(16420, "05")).count, 0U);
}

TEST(Cat016, Sites) {
    // 22.5 degrees north and a unit short of 180 west, where all ones are 0; a quarter of a metre; 3 units of 2 ns.
    constexpr char kTransmitters[] = "02 00 07 10 00 00 00 80 00 00 00 00 01 00 00 00 03 FF FF FF 01 02 "
                                     "00 08 FF FF FF FF 00 00 00 00 80 00 80 00 00 00 00 00 01 00 00";
    EXPECT_EQ(summary_of(16410, kTransmitters), "TX:2");
    expect_values(16410, std::string(kTransmitters) + " = 7|022.50000000, -179.99999992|0.25|6|1048575|258|"
                                                      "8|000.00000000, 0000.00000000|-8191.75|-4294967294|1|0");
    expect_table(16420, "01 00 09 F0 00 00 00 40 00 00 00 FF FE",
                 "Repfield|Octet|Item|Value; 1|Octet[1-2]|Receiver Id|9; "
                 "1|Octet[3-10]|WGS-84 Coordinate|-22.49999992, 0090.00000000; 1|Octet[11-12]|Altitude|-0.25");
    expect_summaries(16420, "00 = RX:0; 01 00 = ");
    EXPECT_EQ(rows_of(detail_of(16410, kTransmitters))[12], "2|Octet[41-42]|Parallel Transmitter Index|0");
}

} // namespace
