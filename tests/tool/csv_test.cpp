// Records as comma-separated values.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSample = SAMPLES "/radar.ast";

TEST(Csv, ShowsTheColumnsOfTheList) {
    const Result result = Command().run("--category 48 --csv " + kSample);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, R"(block,record,time,category,octets,time_of_day,sacsic,type,track,squawk,callsign,icao,)"
                          R"(height_ft,selected_ft,position,speed_kt,heading,vrate_ft_min,velocity_m_s
2,1,,48,47,12:00:01.500,025/012,Track,420,2345,DLH4AB,3C4A12,35000,35008,R:045.5000 T:120.00,,,,
2,2,,48,25,12:00:01.750,025/012,Track,43,,,,,,R:012.2500 T:300.00,,,,
)");
}

TEST(Csv, ShowsPublishedFieldsAndQuantities) {
    // A position of 641/256 NM and 21845 × 360/65536 degrees, code 7400, and two registers 4,0 with selected altitudes.
    const std::string block = hex("30 001C 1920 02815555 0F00 02 8008000000000040 C460000000000040");
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(block)))}));
    const std::string columns = "squawk,I040/RHO,048/I040/THETA,I070/MODE3A,i070/v,I250/MCP_ALT,I250[1]/MCP_ALT,I220";
    EXPECT_EQ(command.run("--csv " + columns + " a").out,
              "block,record,time,category," + columns +
                  "\n1,1,2024-05-06T07:08:09.000012Z,48,7400,2.504,119.998,7400,0,16 35008,35008,\n");
}

TEST(Csv, ShowsQuantitiesAsTheirJsonDoes) {
    const struct {
        const char *items, *columns, *cells;
    } cases[] = {
        {R"("I130":{"SRL":0.79,"SRR":4,"SAM":-56})", "I130/SRL,I130/SAM,I130/SRR", "0.79,-56,4"},
        {R"("I090":{"V":0,"G":0,"FL":-0.25},"I200":{"GSP":0.11945,"HDG":128.002})", "I090/FL,I200/GSP,I200/HDG",
         "-0.25,0.11945,128.002"},
        {R"("I250":[{"bds":"40","BARO":800},{"bds":"40","BARO":1013.2}])", "I250/BARO", "800 1013.2"},
        {R"("I042":{"X":-0.0078125,"Y":-256},"I140":86399.992)", "I042/X,I042/Y,I140", "-0.008,-256,86399.992"},
    };
    for (const auto &test : cases) {
        Command command;
        command.write("a.json", "{\"category\":48," + std::string(test.items) + "}\n");
        const std::string columns = test.columns;
        EXPECT_EQ(command.run("--csv " + columns + " a.json").out,
                  "block,record,time,category," + columns + "\n1,1,,48," + test.cells + "\n");
    }
}

TEST(Csv, IsTheSameWithAnyNumberOfJobs) {
    const std::string pcap = std::string(SAMPLES) + "/radar.pcap";
    EXPECT_EQ(Command().run("--csv --jobs 3 " + pcap).out, Command().run("--csv --jobs 1 " + pcap).out);
}

TEST(Csv, QuotesAndNamesFiles) {
    Command command;
    command.write("a,\"b", read_file(kSample));
    EXPECT_EQ(command.run("--csv I010/SIC 'a,\"b' " + kSample + " --count 2 --category 48").out,
              "file,block,record,time,category,I010/SIC\n"
              "\"a,\"\"b\",2,1,,48,12\n"
              "\"a,\"\"b\",2,2,,48,12\n");
}

TEST(Csv, RefusesColumnsThatAreNone) {
    const struct {
        const char *columns;
        const char *complaint;
    } cases[] = {
        {"I010/SAC,I010/SIX", "--csv: 'I010/SIX' is a field of no category"},
        {"I010/SAC,level", "--csv: 'level' is none of sacsic"},
        {"048/I070", "--csv: '048/I070' has no value of its own"},
    };
    for (const auto &test : cases) {
        const Result result = Command().run("--csv " + std::string(test.columns) + ' ' + kSample);
        EXPECT_EQ(result.status, 2) << test.columns;
        EXPECT_NE(result.err.find(test.complaint), std::string::npos) << result.err;
    }
}

} // namespace
