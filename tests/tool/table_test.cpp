// Tables of what is chosen. What engines make of them is tried in tests/tables.

#include <gtest/gtest.h>

#include <filesystem>

#include "captures.hpp"
#include "command.hpp"

namespace {

// Code 0420, callsign 3E12, level -1 at noon; and nothing but a source.
const std::string kRecords = hex("30 0017 CD40 190C 546000 0110 3FFC CC5C72 820820 80 190D");

std::string contents(const Command &command, const std::string &name) {
    return read_file(command.directory() + '/' + name);
}

TEST(Table, IsWrittenAsItsNameSays) {
    Command command;
    command.write("a", kRecords);
    EXPECT_EQ(command.run("--write t.parquet --write t.arrow --write t.csv a").err, "");
    EXPECT_EQ(contents(command, "t.parquet").substr(0, 4), "PAR1");
    EXPECT_TRUE(contents(command, "t.parquet").ends_with("PAR1"));
    EXPECT_EQ(contents(command, "t.arrow").substr(0, 8), std::string("ARROW1\0\0", 8));
    EXPECT_TRUE(contents(command, "t.arrow").ends_with("ARROW1"));
    EXPECT_EQ(command.run("--arrow a").out.substr(0, 4), "\xFF\xFF\xFF\xFF");
    for (const std::string empty : {"--where squawk=7777", "--category 1"}) // has its columns all the same
        EXPECT_EQ(command.run("--columns sic,squawk --write t.csv " + empty + " a; cat t.csv").out, "sic,squawk\n");
}

// Numbers, texts and times are those of --csv.
TEST(Table, HasTheCellsOfCsv) {
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(kRecords)))}));
    const std::string columns = "time,category,sic,timestamp,squawk,callsign,fl,type,I090/FL,I070/MODE3A,emergency";
    const std::string cells = command.run("--csv " + columns + " a | cut -d , -f 5-").out; // behind four of its own
    EXPECT_EQ(command
                  .run("--columns time,sic,timestamp,squawk,callsign,fl,type,I090/FL,I070/MODE3A,emergency "
                       "--write t.csv a; cat t.csv")
                  .out,
              cells);
    EXPECT_EQ(cells.substr(cells.find('\n') + 1),
              "12:00:00.000,12,2024-05-06T12:00:00.000000Z,\"0420\",\"3E12\",-1,plot,-1,0420,0\n,13,,,,,plot,,,\n");
    EXPECT_EQ(command.run("--columns file,block,record,received --write t.csv a; cat t.csv").out,
              "file,block,record,received\na,1,1,2024-05-06T07:08:09.000012Z\na,1,2,2024-05-06T07:08:09.000012Z\n");
}

TEST(Table, HasTheNamesThatOthersExpect) {
    Command command;
    command.write("a.json", R"({"category":48,"I090":{"V":0,"G":0,"FL":350.25},"I220":"3C4A12"})");
    EXPECT_EQ(
        command.run("--names traffic --write t.csv a.json; cat t.csv").out,
        "timestamp,icao24,callsign,latitude,longitude,altitude,geoaltitude,groundspeed,track,vertical_rate,squawk\n"
        ",\"3c4a12\",,,,35025,,,,,\n");
}

TEST(Table, IsOfReportsToo) {
    Command command;
    command.write("a", kRecords + hex("30 0002"));
    EXPECT_EQ(command.run("--columns reports --write t.csv a 2>&1 >&-; cat t.csv").status, 0);
    EXPECT_EQ(
        contents(command, "t.csv"),
        "file,packet,offset,line,category,kind,damaged,count,octets,reason,text\n"
        "a,,23,,48,damaged,1,1,3,category 048: LEN is less than the block header,\"offset 23: category 048: LEN is "
        "2, less than the block header; 3 octets skipped\"\n");
}

// A north marker of just before midnight is of the day before its reception.
TEST(Table, IsPartitionedByDayAndCategory) {
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(kRecords + hex("22 000A E0 190C 01 A8BFFF"))))}));
    command.write("b", kRecords);
    for (const char *const file : {"a", "b"})
        EXPECT_EQ(command.run("--columns sac,sic --partition --write t/" + std::string(file) + ".csv " + file).err, "");
    const std::string found =
        command.run("--version >/dev/null; find t -type f | sort; cat $(find t -type f | sort)").out;
    EXPECT_EQ(found, "t/date=2024-05-05/category=34/a.csv\nt/date=2024-05-06/category=48/a.csv\n"
                     "t/date=__HIVE_DEFAULT_PARTITION__/category=48/b.csv\n"
                     "sac,sic\n25,12\nsac,sic\n25,12\n25,13\nsac,sic\n25,12\n25,13\n");
}

TEST(Table, LeavesOlderFilesAlone) {
    Command command;
    command.write("a", kRecords);
    command.write("old.parquet", "as it was");
    std::filesystem::create_symlink("/dev/full", command.directory() + "/full.parquet");
    for (const char *const arguments : {"a missing --write old.parquet", "a --write full.parquet"})
        EXPECT_EQ(command.run(arguments).status, 2) << arguments;
    EXPECT_EQ(contents(command, "old.parquet"), "as it was");
}

TEST(Table, RefusesWhatMakesNoSense) {
    const struct {
        const char *arguments, *complaint;
    } cases[] = {
        {"--columns time a", "--columns and --names are for --write to .parquet, .arrow or .csv, and --arrow"},
        {"--columns tim --arrow a", "--columns: 'tim' is no quantity, nor a path such as I010/SIC; did you mean time?"},
        {"--columns I140 --arrow a", "--columns: 'I140' has different units in different categories"},
        {"--columns I040/RHO --category 62 --arrow a", "--columns: 'I040/RHO' is a field of no category that is asked"},
        {"--columns all --arrow a", "--columns: 'all' is a table of one category"},
        {"--columns all --category 48 --write t.csv a",
         "--columns: 'I010' holds several values, which CSV cannot have"},
        {"--columns fl --names traffic --arrow a", "--columns: the names of traffic have columns of their own"},
        {"--partition --arrow a", "--partition is for --write to .parquet, .arrow or .csv"},
        {"--partition --columns reports --write t.csv a", "'reports' is a table of no days and categories"},
        {"--write t.csv --rotate 1h a", "--rotate is for captures, blocks and JSON"},
        {"--arrow --json a", "--list, --csv, --json, --arrow, --stats"},
    };
    Command command;
    command.write("a", kRecords);
    for (const auto &test : cases) {
        const Result result = command.run(test.arguments);
        EXPECT_EQ(result.status, 2) << test.arguments;
        EXPECT_NE(result.err.find(test.complaint), std::string::npos) << test.arguments << '\n' << result.err;
    }
}

} // namespace
