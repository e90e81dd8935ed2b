#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

TEST(Cat063Status, TimeSourceFlagStandsInTheEleventhOctet) {
    each_case("81 48 FF FF FF FF FF FF FF FF 08 = STS:INI ODP TSV; 81 28 FF FF FF FF FF FF FF FF F7 = STS:INI OXT; "
              "81 48 FF FF FF FF FF FF FF FF = STS:INI ODP; C0 FF FF FF FF FF FF FF FF FF FF = CON:DIS",
              [](const std::string &hex, const std::string &summary) {
                  const auto data = octets(hex);
                  const ast_dataitem_t item = ast_dataitem_decode(data.data(), data.size(), 63060);
                  EXPECT_EQ(shown(ast_dataitem_get_summary, &item), summary) << hex;
                  const bool is_set = data.size() > 10 && (data[10] & 8) != 0;
                  EXPECT_EQ(ast_dataitem_063_060_decode(&item).tsv, is_set) << hex << ", with one octet too";
              });
    expect_summaries(63060, "40 = CON:DGD; 80 41 = STS:INI ODP"); // nothing is known to follow these
}

TEST(Cat063Status, Detail) {
    expect_table(63060, "41 A4",
                 "Bit|Item|Value; Bit[0-1]|CON|NOGO; Bit[2]|PSR|GO; Bit[3]|SSR|GO; Bit[4]|MDS|GO; "
                 "Bit[5]|ADS|GO; Bit[6]|MLT|GO; Bit[7]|FX|1; Bit[8]|OPS|YES; Bit[9]|ODP|NO; "
                 "Bit[10]|OXT|YES; Bit[11]|MSC|NO; Bit[12]|TSV|NO; Bit[13]|NPW|YES");
    expect_values(63060, "2A = GO|NOGO|GO|NOGO|GO|NOGO|0; 15 50 = GO|GO|NOGO|GO|NOGO|GO|1|NO|YES|NO|YES|NO|NO");
}

TEST(Cat063, TakesARecordApartInPlace) {
    ast_datarecord_063_t flat;
    LogCapture log;
    ast_datarecord_063_disassemble(&flat,
                                   Record(63, {{63010, "19 0C"}, {63070, "00 01"}, {63050, "19 0D"}, {63060, "40"}}));
    EXPECT_EQ(log.take(), (LogLines{{2, "Failed to disassemble dataitem : I063/070."}}));
    EXPECT_TRUE(flat.valid && flat.data_source.sic == 12 && flat.sensor.sic == 13 && flat.status.con == 1);
    EXPECT_FALSE(flat.service.valid || flat.time_of_day.valid);
}

} // namespace
