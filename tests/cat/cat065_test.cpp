#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat065, Views) {
    expect_summaries(65000, "00 = MSG_TYPE:UNDEFINED; 01 = MSG_TYPE:SDPS_STATUS; 03 = MSG_TYPE:SVC_STATUS_REPORT; "
                            "04 = MSG_TYPE:UNDEFINED; 01 00 = ");
    expect_summaries(65020, "FF = BAT:255; 00 00 = ");
    expect_summaries(65040,
                     "00 = STS:OPE; 43 = STS:DGD; 9C = STS:DIS TSV SDPS-3; F4 = STS:UKN OVL TSV SDPS-1; 00 00 = ");
    expect_table(65040, "A8",
                 "Bit|Item|Value; Bit[1-2]|NOGO|NOT_CONNECTED; Bit[2]|OVL|1; Bit[3]|TSV|0; Bit[4-5]|PSS|SDPS-2");
}

TEST(Cat065, TakesARecordApartInPlace) {
    ast_datarecord_065_t flat;
    LogCapture log;
    // clang-format off
    const Record record(65, {{65010, "19 0C"}, {65000, "02"}, {65015, "07"}, {65030, "58 78 40"}, {65020, "05"},
                             {65040, "D0"}, {65999, "02 FF"}});
    // clang-format on
    ASSERT_EQ(ast_datarecord_065_disassemble(&flat, record), &flat);
    EXPECT_EQ(log.take(), (LogLines{{2, "Failed to disassemble dataitem : I065/SPF."}}));
    EXPECT_TRUE(flat.valid && flat.message_type.value == 2 && flat.data_source.sic == 12 && flat.service.value == 7);
    EXPECT_TRUE(flat.batch.number == 5 && flat.time_of_day.hour == 12 && flat.status.nogo == 3 && flat.status.tsv);
    ast_datarecord_065_disassemble(&flat, Record(63, {{65020, "05"}}));
    EXPECT_FALSE(flat.valid || flat.batch.valid);
    EXPECT_EQ(ast_datarecord_065_disassemble(nullptr, record), nullptr);
}

} // namespace
