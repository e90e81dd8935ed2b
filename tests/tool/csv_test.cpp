// Records as comma-separated values.

#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSample = SAMPLES "/radar.ast";

TEST(Csv, ShowsAllQuantities) {
    const Result result = Command().run("--category 48 --csv " + kSample);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, R"(block,record,received,category,timestamp,time,sac,sic,type,track_number,squawk,callsign,)"
                          R"(icao24,fl,altitude_ft,selected_altitude_ft,latitude,longitude,range_nm,azimuth_deg,x_nm,)"
                          R"(y_nm,groundspeed_kt,track_deg,magnetic_heading_deg,true_heading_deg,vertical_rate_ftmin,)"
                          R"(spi,emergency,on_ground,simulated
2,1,,48,,12:00:01.500,25,12,track,420,"2345","DLH4AB","3C4A12",350,,35008,,,45.5,119.9982,,,450,290.001,,,,0,0,0,0
2,2,,48,,12:00:01.750,25,12,track,43,,,,,,,,,12.25,299.9982,-10.60938,6.125,179.96,45,,,,0,,,0
)");
}

// Code 0420, callsign 3E12, level -1 at noon. Each title stands once, however it is asked for, and older names stand
// for all that they say.
TEST(Csv, HasEachColumnOnceAndTextsInQuotes) {
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(hex("30 0014 CD40 190C 546000 0110 3FFC CC5C72 820820"))))}));
    EXPECT_EQ(
        command.run("--csv time,sacsic,category,timestamp,sic,squawk,callsign,fl,time,heading a").out,
        "block,record,received,category,time,sac,sic,timestamp,squawk,callsign,fl,magnetic_heading_deg,track_deg\n"
        "1,1,2024-05-06T07:08:09.000012Z,48,12:00:00.000,25,12,2024-05-06T12:00:00.000000Z,"
        "\"0420\",\"3E12\",-1,,\n");
}

TEST(Csv, HasNothingThatASpreadsheetTakesForAFormula) {
    Command command;
    for (const auto &[text, cell] : {std::pair("=1+1", "'=1+1"), std::pair("@A1", "'@A1"), std::pair("-KLM", "'-KLM"),
                                     std::pair("+1", "+1"), std::pair("-inf", "'-inf"), std::pair("A-1", "A-1")}) {
        command.write("a.json", R"({"category":62,"I390":{"CS":")" + std::string(text) + "\"}}\n");
        EXPECT_EQ(command.run("--csv callsign,I390/CS a.json | tail -n 1").out,
                  "1,1,,62,\"" + std::string(cell) + "\"," + cell + '\n');
    }
}

// Of every number that stands in both, the sums are the same: half a step of the last decimal a value may be apart.
TEST(Csv, SumsUpToWhatTheJsonSays) {
    const struct {
        const char *column, *path;
        double factor, step;
    } cases[] = {
        {"range_nm", "I040/RHO", 1, 0.001},         {"fl", "I090/FL", 1, 0.01},
        {"azimuth_deg", "I040/THETA", 1, 0.001},    {"track_number", "I161/TRN", 1, 0},
        {"groundspeed_kt", "I200/GSP", 3600, 0.05}, {"track_deg", "I200/HDG", 1, 0.001},
    };
    for (const auto &test : cases) {
        const std::string file = std::string("--category 48 ") + SAMPLES + "/radar.pcap";
        std::istringstream lines(Command().run("--csv " + std::string(test.column) + ',' + test.path + ' ' + file).out);
        std::string line;
        double sum = 0, published = 0;
        int count = 0;
        for (std::getline(lines, line); std::getline(lines, line);) {
            const size_t second = line.rfind(',');
            const size_t first = line.rfind(',', second - 1);
            if (second + 1 == line.size()) continue;
            ++count;
            sum += std::stod(line.substr(first + 1));
            published += std::stod(line.substr(second + 1)) * test.factor;
        }
        EXPECT_GT(count, 50) << test.column;
        EXPECT_NEAR(sum, published, count * test.step) << test.column;
    }
}

TEST(Csv, ShowsPublishedFieldsAndQuantities) {
    // A position of 641/256 NM and 21845 × 360/65536 degrees, code 7400, and two registers 4,0 with selected altitudes.
    const std::string block = hex("30 001C 1920 02815555 0F00 02 8008000000000040 C460000000000040");
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(block)))}));
    const std::string columns = "squawk,I040/RHO,048/I040/THETA,I070/MODE3A,i070/v,I250/MCP_ALT,I250[1]/MCP_ALT,I220";
    EXPECT_EQ(command.run("--csv " + columns + " a").out,
              "block,record,received,category," + columns +
                  "\n1,1,2024-05-06T07:08:09.000012Z,48,\"7400\",2.50391,119.99817,7400,0,16 35008,35008,\n");
}

TEST(Csv, ShowsQuantitiesAsTheirJsonDoes) {
    const struct {
        const char *items, *columns, *cells;
    } cases[] = {
        {R"("I130":{"SRL":0.79,"SRR":4,"SAM":-56})", "I130/SRL,I130/SAM,I130/SRR", "0.791,-56,4"},
        {R"("I090":{"V":0,"G":0,"FL":-0.25},"I200":{"GSP":0.11945,"HDG":128.002})", "I090/FL,I200/GSP,I200/HDG",
         "-0.25,0.1194458,128.00171"},
        {R"("I250":[{"bds":"40","BARO":800},{"bds":"40","BARO":1013.2}])", "I250/BARO", "800 1013.2"},
        {R"("I042":{"X":-0.0078125,"Y":-256},"I140":86399.992)", "I042/X,I042/Y,I140", "-0.00781,-256,86399.99219"},
    };
    for (const auto &test : cases) {
        Command command;
        command.write("a.json", "{\"category\":48," + std::string(test.items) + "}\n");
        const std::string columns = test.columns;
        EXPECT_EQ(command.run("--csv " + columns + " a.json").out,
                  "block,record,received,category," + columns + "\n1,1,,48," + test.cells + "\n");
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
              "file,block,record,received,category,I010/SIC\n"
              "\"a,\"\"b\",2,1,,48,12\n"
              "\"a,\"\"b\",2,2,,48,12\n");
}

TEST(Csv, RefusesColumnsThatAreNone) {
    const struct {
        const char *columns;
        const char *complaint;
    } cases[] = {
        {"I010/SAC,I010/SIX", "--csv: 'I010/SIX' is a field of no category"},
        {"I010/SAC,level", "--csv: 'level' is no quantity, nor a path such as I010/SIC; did you mean fl?"},
        {"048/I070", "--csv: '048/I070' has no value of its own"},
    };
    for (const auto &test : cases) {
        const Result result = Command().run("--csv " + std::string(test.columns) + ' ' + kSample);
        EXPECT_EQ(result.status, 2) << test.columns;
        EXPECT_NE(result.err.find(test.complaint), std::string::npos) << result.err;
    }
}

} // namespace
