// JSON, files of what is chosen, and conversions.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include "background.hpp"
#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSample = SAMPLES "/radar.ast";
const std::string kCapture = SAMPLES "/radar.pcap";

// Two plots of category 048 with Mode 3/A codes 0123 and 0456; a block that breaks in its second record; a block of no
// known category.
const std::string kPlots = hex("30 0009 08 0053 08 012E");
const std::string kBroken = hex("30 0008 08 0053 08 01");
const std::string kForeign = hex("FA 0006 800102");

TEST(Json, LosesNothing) {
    Command command;
    command.write("b", kPlots + kBroken + kForeign + hex("220003"));
    const std::string plots = R"({"block":1,"record":1,"offset":0,"category":48,"profile":"standard",)"
                              R"("I070":{"V":0,"G":0,"L":0,"MODE3A":"0123"}}
{"block":1,"record":2,"offset":0,"category":48,"profile":"standard","I070":{"V":0,"G":0,"L":0,"MODE3A":"0456"}}
)";
    const Result all = command.run("--json b");
    EXPECT_EQ(all.status, 1);
    EXPECT_EQ(all.out, plots + R"({"block":2,"record":1,"offset":9,"category":48,"profile":"standard",)"
                               R"("I070":{"V":0,"G":0,"L":0,"MODE3A":"0123"}}
{"block":2,"record":2,"offset":9,"category":48,"error":"I048/070 runs past the end of the block","data":"0801"}
{"block":3,"record":1,"offset":17,"category":250,"error":"nothing is known of category 250","data":"800102"}
{"block":4,"record":1,"offset":23,"category":34,"error":"a block without records","data":""}
)");
    EXPECT_EQ(command.run("--json --where squawk=456 b").out, plots.substr(plots.find('\n') + 1));
    command.write("cut", hex("30 0009 08"));
    const std::string cut = R"({"file":"cut","offset":0,"category":48,"error":"category 048: LEN is 9, but only )"
                            R"(4 octets are left","data":"30000908"})"
                            "\n"
                            R"({"file":"b","block":1,)";
    EXPECT_EQ(command.run("--json cut b --category 48").out.substr(0, cut.size()), cut);
}

TEST(Json, NamesReceptionAndTexts) {
    Command command;
    command.write("c", pcap(1, {ethernet(ipv6(udp(kForeign + hex("220006 20 0102"))))}));
    const std::string lines =
        R"({"block":1,"record":1,"time":"2024-05-06T07:08:09.000012Z","source":"[2001:db8::1]:4000",)"
        R"("destination":"[ff02::1]:8600","category":250,"error":"nothing is known of category 250","data":"800102"})"
        "\n"
        R"({"block":2,"record":1,"time":"2024-05-06T07:08:09.000012Z",)";
    EXPECT_EQ(command.run("--json c").out.substr(0, lines.size()), lines);
    EXPECT_NE(command.run("--json --texts " + kSample).out.find(R"({"value":5,"text":"Single ModeS Roll-Call"})"),
              std::string::npos);
}

TEST(Write, KeepsRecordsTimesAndAddresses) {
    Command command;
    for (const std::string jobs : {"1", "3"}) command.run("--jobs " + jobs + " --write " + jobs + ".pcap " + kCapture);
    EXPECT_EQ(command.run("--json 1.pcap").out, command.run("--json " + kCapture).out);
    EXPECT_TRUE(read_file(command.directory() + "/1.pcap") == read_file(command.directory() + "/3.pcap"));
    command.run("--where squawk=7700 --write chosen.pcap " + kCapture);
    EXPECT_EQ(command.run("--list chosen.pcap").out, command.run("--list --where squawk=7700 " + kCapture).out);
    command.write("v6", pcap(1, {ethernet(ipv6(udp(kPlots + kForeign)))}));
    command.run("--write v6.pcap v6");
    EXPECT_EQ(command.run("--json v6.pcap").out, command.run("--json v6").out);
    command.run("--write lines.json v6");
    EXPECT_EQ(read_file(command.directory() + "/lines.json"), command.run("--json v6").out);
}

// By the last 23 bits of the group's own.
TEST(Write, SendsToTheLinkAddressOfAGroup) {
    Command command;
    const std::string of_block = R"({"category":34,"I010":{"SAC":1,"SIC":2},"I000":1,)"
                                 R"("source":"192.0.2.1:8600","time":"2024-06-01T12:00:00Z","destination":)";
    const auto link_address = [&](const std::string &destination) {
        command.write("a.json", of_block + '"' + destination + "\"}\n");
        EXPECT_EQ(command.run("--write a.pcap a.json").err, "");
        constexpr size_t kHeaders = 24 + 16;
        return read_file(command.directory() + "/a.pcap").substr(kHeaders, 6);
    };
    EXPECT_EQ(link_address("239.193.2.3:8600"), hex("01005E410203"));
    EXPECT_NE(link_address("10.193.2.3:8600").substr(0, 3), hex("01005E"));
}

TEST(Write, MakesBlocksAnew) {
    Command command;
    command.write("b", kBroken + kPlots + kForeign);
    command.run("--write all.ast b");
    EXPECT_EQ(read_file(command.directory() + "/all.ast"), kBroken + kPlots + kForeign);
    command.run("--where squawk=123 --write chosen.ast b");
    EXPECT_EQ(read_file(command.directory() + "/chosen.ast"), hex("30 0006 08 0053  30 0006 08 0053"));
}

TEST(Write, LeavesOlderFilesAlone) {
    Command command;
    command.write("a.ast", kPlots);
    std::filesystem::create_symlink("a.ast", command.directory() + "/link.ast");
    std::filesystem::create_hard_link(command.directory() + "/a.ast", command.directory() + "/hard.ast");
    for (const char *const arguments :
         {"a.ast --write a.ast", "a.ast --write link.ast", "link.ast --write hard.ast", "- --write a.ast < hard.ast",
          "missing --write a.ast", "a.ast missing --write a.pcap", "a.ast --write a.txt",
          "a.ast --write missing/b.ast"}) {
        const Result result = command.run(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_NE(result.err, "") << arguments;
    }
    EXPECT_EQ(read_file(command.directory() + "/a.ast"), kPlots);
    EXPECT_FALSE(std::filesystem::exists(command.directory() + "/a.pcap"));
    command.write("b.ast", kForeign);
    command.run("b.ast --write link.ast");
    EXPECT_EQ(read_file(command.directory() + "/a.ast"), kForeign);
    EXPECT_TRUE(std::filesystem::is_symlink(command.directory() + "/link.ast"));
    size_t files = 0;
    for (const auto &file : std::filesystem::directory_iterator(command.directory())) files += file.is_regular_file();
    EXPECT_EQ(files, 6U) << "a, hard, link, b, and what the command has printed";
}

TEST(Convert, ThereAndBack) {
    Command command;
    command.run("--convert 1,2 --write old.pcap " + kCapture);
    EXPECT_EQ(command.run("--category 34,48 --stats old.pcap").out.find("048"), std::string::npos);
    const std::string columns = " --json --category 34 | grep -v octets";
    EXPECT_EQ(command.run("--convert 34,48 old.pcap --write new.pcap").status, 0);
    EXPECT_EQ(command.run("new.pcap" + columns).out, command.run(kCapture + columns).out);
    const std::string chosen = " --csv sacsic,track,squawk --where squawk=7700";
    EXPECT_EQ(command.run("new.pcap" + chosen).out, command.run(kCapture + chosen).out);
}

TEST(Json, HasAllRecordsOfABlock) {
    std::string plots;
    for (int i = 0; i < 100; ++i) plots += hex("08 0053");
    Command command;
    command.write("b", hex("30 0130") + plots + hex("08"));
    EXPECT_EQ(command.run("--json b | wc -l").out, "101\n");
    EXPECT_NE(command.run("--json b").out.find(R"("record":101,"offset":0,"category":48,"error":)"), std::string::npos);
}

// What breaks off and what is of no known category come back as well.
TEST(Json, BecomesTheSameBlocks) {
    Command command;
    command.write("b", read_file(kSample) + kPlots + kBroken + kForeign);
    EXPECT_EQ(command.run("--json b | " ASTDUMP " - --write c.ast").status, 1);
    EXPECT_TRUE(read_file(command.directory() + "/b") == read_file(command.directory() + "/c.ast"));
    command.run("--json " + kCapture + " | " ASTDUMP " - --write c.pcap");
    EXPECT_EQ(command.run("--json c.pcap").out, command.run("--json " + kCapture).out);
}

// A message of a type that category 002 lacks; a block that breaks behind a record; and records without a descriptor.
TEST(Convert, CountsWhatIsLeftOut) {
    Command command;
    command.write("b", hex("22 0007 C0 190C 05  30 0009 A0 190C 40 0801") + kPlots + kForeign);
    const Result result = command.run("--convert 1,2 --write c.ast b");
    EXPECT_NE(result.err.find("astdump: 3 records that cannot be converted left out\n"), std::string::npos)
        << result.err;
    EXPECT_EQ(read_file(command.directory() + "/c.ast"), hex("01 0007 C0 190C 20") + kForeign);
    EXPECT_EQ(command.run("--convert 3 b").status, 2);
    EXPECT_EQ(command.run("--convert all b").status, 2);
}

// What is not whole does not take the place of a file that is.
TEST(Write, BrokenOffStaysBesideTheOlderFile) {
    std::string many;
    const std::string once = read_file(kSample);
    for (size_t i = 0; i < 200'000; ++i) many += once;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        Command command;
        command.write("many.ast", many);
        command.write("page", "older");
        command.write("new.json", "older");
        Background tool(command, "--html page --write new.json many.ast");
        const auto has_begun = [&] {
            return std::ranges::any_of(std::filesystem::directory_iterator(command.directory()), [](const auto &entry) {
                return entry.path().filename().string().starts_with("new.json.") && entry.file_size() != 0;
            });
        };
        while (!has_begun() && tool.runs()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const Result result = tool.end(signal);
        EXPECT_EQ(result.status, -1) << "by the signal";
        for (const std::string file : {"page", "new.json"}) {
            EXPECT_EQ(read_file(command.directory() + '/' + file), "older");
            EXPECT_FALSE(read_file(command.directory() + '/' + file + ".part").empty());
            const std::string told = "astdump: " + file + ": interrupted and left as it was; ";
            EXPECT_NE(result.err.find(told), std::string::npos) << result.err;
            EXPECT_NE(result.err.find("are in " + file + ".part\n"), std::string::npos) << result.err;
        }
        const std::string part = read_file(command.directory() + "/new.json.part");
        EXPECT_EQ(part.back(), '\n') << "of whole lines";
    }
}

// A file that is opened first would become standard output, and hold the listing.
TEST(Write, GetsNothingOfStandardStreamsThatAreClosed) {
    Command command;
    command.run("--write b.pcap " + kCapture);
    const std::string whole = read_file(command.directory() + "/b.pcap");
    for (const std::string closed : {">&-", "2>&-", "<&- >&- 2>&-"}) {
        EXPECT_EQ(command.run("--list --verbose --write a.pcap " + kCapture + " nowhere " + closed).status, 2)
            << closed;
        EXPECT_EQ(command.run("--list --write c.pcap " + kCapture + ' ' + closed).status, 0) << closed;
        EXPECT_EQ(read_file(command.directory() + "/c.pcap"), whole) << closed;
        EXPECT_EQ(command.run("--html page " + kCapture + ' ' + closed).status, 0) << closed;
        EXPECT_EQ(read_file(command.directory() + "/page").find("<!DOCTYPE html>"), 0U) << closed;
    }
    EXPECT_EQ(command.run("- <&-").err, "astdump: standard input: holds no octets\n");
}

TEST(Write, ToNoNameIsAMistake) {
    for (const std::string option : {"--write", "--html"}) {
        const Result result = Command().run(option + " '' " + kCapture);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.err.find("astdump: " + option + ": the name of the file is empty\n"), 0U) << result.err;
    }
}

// A capture counts the seconds from 1970 in 32 bits; JSON has any time.
TEST(Write, RefusesTimesThatACaptureCannotHold) {
    Command command;
    const std::string line =
        R"({"time":"TIME","source":"10.0.0.1:1","destination":"10.0.0.2:2","category":34,"I000":1})";
    const auto with_time = [&](const std::string &time) {
        std::string text = line;
        return text.replace(text.find("TIME"), 4, time) + '\n';
    };
    for (const std::string time :
         {"2106-02-07T06:28:16.000000Z", "1969-12-31T23:59:59.000000Z", "253402300800.000000", "-2208988801.250000"}) {
        command.write("a.json", with_time(time));
        const Result result = command.run("--write b.pcap a.json");
        EXPECT_EQ(result.status, 2) << time;
        EXPECT_NE(result.err.find(" fits no capture, which counts 32 bits of seconds from 1970\n"), std::string::npos)
            << result.err;
        EXPECT_EQ(command.run("--json a.json").out.find(R"({"block":1,"record":1,"time":")" + time), 0U);
    }
    command.write("a.json", with_time("2106-02-07T06:28:15.000000Z"));
    EXPECT_EQ(command.run("--write b.pcap a.json").status, 0);
    EXPECT_NE(command.run("b.pcap").out.find("2106-02-07 06:28:15.000000Z"), std::string::npos);
}

// Through JSON and back: the octets behind the blocks are not in JSON.
TEST(Write, KeepsDatagramsTogether) {
    Command command;
    const std::string two = kPlots + hex("22 0005 40 02");
    const std::string trailer = hex("00 00 00 0C FF");
    const std::string capture = pcap(1, {ethernet(ipv4(udp(two))), ethernet(ipv4(udp(kPlots + trailer))), //
                                         ethernet(ipv4(udp(two + trailer)))});
    command.write("a.pcap", capture);
    const std::string with_trailers =
        "astdump: a.pcap: 2 datagrams with octets behind the last block, 10 octets in all; "
        "passed over\n";
    EXPECT_EQ(command.run("--write b.pcap a.pcap").err, with_trailers);
    EXPECT_EQ(command.run("--json b.pcap").out, command.run("--json a.pcap").out);
    EXPECT_EQ(command.run("--quiet b.pcap").err, "astdump: b.pcap: 2 datagrams with octets behind the last block, 10 "
                                                 "octets in all; passed over\n");
    command.run("--category 48 --write c.pcap a.pcap");
    EXPECT_EQ(command.run("--quiet c.pcap").err,
              "astdump: c.pcap: 1 datagram with octets behind the last block, 5 octets "
              "in all; passed over\n")
        << "behind what is left of a datagram, they would mean something else";

    for (const std::string jobs : {"1", "3"}) {
        command.run("--jobs " + jobs + " --write many.json " + std::string(SAMPLES "/tracks.pcap"));
        command.run("--jobs " + jobs + " --write many.pcap many.json");
        EXPECT_EQ(read_file(command.directory() + "/many.pcap").size(), read_file(SAMPLES "/tracks.pcap").size());
    }
}

} // namespace
