#include "support/items.hpp"

using namespace ast_test;

namespace {

TEST(Cat023, ReportAndServiceTypes) {
    expect_summaries(23000, "01 = RPT_TYPE:STATION_STATUS; 03 = RPT_TYPE:SERVICE_STATISTICS; 04 = RPT_TYPE:UNDEFINED");
    expect_summaries(23015, "3A = SID:3; F0 = SID:15; 16 = SID:1 STYP:TISB_UAT; 09 = SID:0 STYP:MLT; 16 00 = ");
    expect_table(23015, "A1",
                 "Bit|ID|Item|Value; Bit[1-4]|SID|SERVICE_IDENTIFICATION|10; "
                 "Bit[5-8]|STYP|TYPE_OF_SERVICE|ADSB_VDL4");
    expect_values(23015, "18 = 1|GRAS_VDL4; 19 = 1|UNKNOWN; 1F = 1|UNKNOWN"); // meant, of multilateration
}

TEST(Cat023, StationStatus) {
    expect_summaries(23100, "00 = STS:GO TSV; 89 0A = STS:NOGO GSSP:5S; 76 = STS:GO ODP OXT MSC TSV SPO RN; "
                            "49 FE = STS:GO ODP GSSP:127S; 29 00 = STS:GO OXT");
    expect_table(23100, "94",
                 "Bit|ID|Item|Value; Bit[1]|NOGO|DATA_NOT_USED_OPERATIONALLY|1; "
                 "Bit[2]|ODP|DATA_PROCESSOR_OVERLOAD|0; Bit[3]|OXT|DATA_COMMUNICATION_OVERLOAD|0; "
                 "Bit[4]|MSC|MONITORING_SYSTEM_CONNECTED|1; Bit[5]|TSV|TIME_SOURCE_VALID|1; "
                 "Bit[6]|SPO|POTENTIAL_SPOOFING_ATTACK|1; Bit[7]|RN|TRACK_NUMBERING_RESTARTED|0; "
                 "Bit[8]|FX|FIELD_EXTENSION|0");
    expect_values(23100, "4B 54 = 0|1|0|0|0|0|1|1|42|0; 4B 55 = 0|1|0|0|0|0|1|1|42|1");
}

} // namespace
