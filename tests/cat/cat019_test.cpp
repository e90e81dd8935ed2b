#include "support/items.hpp"
#include "support/octets.hpp"

using namespace ast_test;

namespace {

TEST(Cat019, SystemStatus) {
    expect_summaries(19000, "01 = MSG_TYPE:CYCLE_START; 03 = MSG_TYPE:EVENT_STATUS; 04 = MSG_TYPE:UNDEFINED; 01 00 = ");
    expect_summaries(19550, "00 = SYS_STAT:OPERATIVE; 7F = SYS_STAT:DEGRADED; C0 = SYS_STAT:UNDIFINED; 00 00 = ");
    expect_table(19550, "A4",
                 "Bit|Item|Value; Bit[0-1]|SYS_STATUS|NOGO; Bit[2]|OVERLOAD|1; Bit[3]|TIME_SOURCE_INVALID|0; "
                 "Bit[4]|TEST_TARGET_FAILURE|1; Bit[5-7]|SPARE|0");
    expect_values(19550, "5B = DEGRADED|0|1|0|0"); // meant: bit 4 is no test target failure
    EXPECT_EQ(ast_dataitem_019_550_decode(Item(19551, "00")).nogo, 3U);
}

TEST(Cat019, TrackingProcessors) {
    expect_summaries(19551, "C0 = TP1:EG; 00 = ; 40 = TP1:SG; F0 = TP1:EG TP2:EG; 26 = TP2:EF TP3:SG TP4:EF");
    expect_table(19551, "27",
                 "Bit|Tracking Processor|Mode|Status; Bit[0-1]|TP1|STANDBY|FAULTED; "
                 "Bit[2-3]|TP2|EXECUTIVE|FAULTED; Bit[4-5]|TP3|STANDBY|GOOD; Bit[6-7]|TP4|EXECUTIVE|GOOD");
}

TEST(Cat019, SensorsAndTransponders) {
    expect_summaries(19552, "00 = RS:0; 02 01 00 02 00 = RS:2; 02 01 00 02 = ; 01 01 00 02 = ");
    expect_table(19552, "02 07 A8 FF 57",
                 "ID|Rx 1090MHz|Tx 1030MHz|Tx 1090MHz|Status|Operational; 007|N|Y|N|GOOD|OFFLINE; "
                 "255|Y|N|Y|FAULTED|ONLINE");
    expect_summaries(19553, "00 = RT:2; 01 01 00 = RT:6; 01 01 01 01 01 01 01 01 00 = RT:18");
    expect_table(19553, "49 8C",
                 "Bit|Ref Transponder|Status; Bit[0-1]|RT1|GOOD; Bit[4-5]|RT2|FAULTED; "
                 "Bit[8-9]|RT3|FAULTED; Bit[12-13]|RT4|WARNING");
    EXPECT_EQ(rows_of(detail_of(19553, "49 49 49 49 49 49 49 49 48")).back(), "Bit[60-61]|RT16|UNDEFINED");
    EXPECT_EQ(ast_dataitem_019_552_decode(Item(19552, repeated("FF", 511))).sensors[254].rsi, 255U);
}

TEST(Cat019, NegativeHeightsAreMagnitudeLessMaximum) {
    expect_summaries(19610, "80 00 = H:-8191.75; FF FF = H:0.00; 7F FF = H:8191.75; 00 = ");
    expect_table(19610, "80 01",
                 "Bit|Item|Value; Bit[0-15]|HEIGHT (LSB=0.25M)|-32766; "
                 "Bit[0-15]|HEIGHT (LSB=M)|-8191.50; Bit[0-15]|HEIGHT (LSB=FT)|-26875.00");
    expect_summaries(19620, "81 = UND:-126; 80 = UND:-127; FF = UND:0; 7F = UND:127");
    expect_table(19620, "64", "Bit|Item|Value; Bit[0-7]|UNDULATION (LSB=M)|100; Bit[0-7]|UNDULATION (LSB=FT)|328.08");
}

} // namespace
