// What is said of what cannot be shown: what is damaged, what is other traffic, what there is none of.

#include <gtest/gtest.h>

#include "background.hpp"
#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSample = SAMPLES "/radar.ast";

// A sector crossing message of category 034, and a block of category 048 that breaks in its second item.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");
const std::string kBroken = hex("30 0007 C0 190C 54");

// The answer of a name server, which begins like a block of category 048.
const std::string kAnswer = hex("3001 8180 0001 0001 0000 0000 03777777 00");

// A datagram to another port than 8600.
std::string frame(const std::string &payload, size_t port = 8600) {
    std::string octets = udp(payload);
    octets.replace(2, 2, be16(port));
    return ethernet(ipv4(octets));
}

TEST(Reports, OfOneReasonAreOneLine) {
    Command command;
    const std::string cut = hex("30 0008 08 0456 0801"); // the second record breaks
    command.write("b", kBroken + kSector + kBroken + cut + kBroken);
    for (const char *const jobs : {"1", "3"})
        EXPECT_EQ(command.run(std::string("--quiet --jobs ") + jobs + " b").err,
                  "astdump: b: damaged: category 048: I048/140 runs past the end of the block: 3 blocks, the first at "
                  "offset 0: in record 1 after 1 item, at octet 6 of 7\n"
                  "astdump: b: offset 25: category 048: damaged in record 2 after 0 items, at octet 7 of 8: I048/070 "
                  "runs past the end of the block\n"
                  "astdump: lost: 4 blocks invalid\n");
    const Result each = command.run("--quiet --verbose b");
    EXPECT_EQ(each.status, 1);
    for (const char *const offset : {"0", "18", "33"})
        EXPECT_NE(each.err.find(std::string("astdump: b: offset ") + offset + ": category 048: damaged in record 1"),
                  std::string::npos)
            << each.err;
}

// 24 hours, of a source whose other records are at 12:00. Told once, of most of eight records or more; JSON says it of
// each record, and gives it back.
TEST(Reports, TellOfSourcesThatSendWhatCannotBe) {
    const auto blocks = [](int bad, int good) {
        std::string octets;
        for (int i = 0; i < bad; ++i) octets += hex("3E 0009 90 190C A8C000");
        for (int i = 0; i < good; ++i) octets += hex("3E 0009 90 190C 546000");
        return octets;
    };
    Command command;
    command.write("few", blocks(7, 0));
    command.write("half", blocks(8, 8));
    command.write("most", blocks(9, 8) + kSector);
    for (const char *const file : {"few", "half"}) {
        const Result result = command.run(std::string("--quiet ") + file);
        EXPECT_EQ(result.status, 0) << file;
        EXPECT_EQ(result.err, "") << file;
    }
    for (const char *const mode : {"", "--stats ", "--quiet --jobs 3 ", "--list ", "--json ", "--html page "}) {
        const Result result = command.run(std::string(mode) + "most");
        EXPECT_EQ(result.status, 1) << mode;
        EXPECT_NE(result.err.find("astdump: most: source 025/012, category 062: 9 of 17 records cannot be: probably "
                                  "another edition or another format\n"),
                  std::string::npos)
            << mode << result.err;
    }
    EXPECT_NE(command.run("--stats most").out.find("025/012  062              17           9  most\n"),
              std::string::npos);
    EXPECT_EQ(command.run("--json most | grep -c '^{\"implausible\":true,\"block\"'").out, "9\n");
    command.run("--json most > lines; " ASTDUMP " --write again.ast lines");
    EXPECT_EQ(read_file(command.directory() + "/again.ast"), blocks(9, 8) + kSector);
}

// Nobody has published category 030, so that no profile reads it.
TEST(Reports, NameNoProfileOfAnUnknownCategory) {
    Command command;
    command.write("b", hex("1E 0006 80 190C"));
    EXPECT_EQ(command.run("b").out.find("#1  CAT 030  6 octets  0 records  NOT SUPPORTED\n"), 0U);
}

// Other editions are not damage, and are counted apart from it.
TEST(Reports, TellWhatIsNotSupported) {
    Command command;
    const std::string spare = hex("3E 0007 C0 190C 00");
    command.write("b", spare + kSector + hex("1E 0006 80 190C") + spare + hex("1E 0006 80 190C"));
    const Result result = command.run("--stats b");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "astdump: b: not supported: category 062: FRN 2 is spare: 2 blocks, the first at offset 0: in "
              "record 1 after 1 item, at octet 6 of 7\n"
              "astdump: b: not supported: nothing is known of category 30: 2 blocks, the first at offset "
              "18: in record 1 after 0 items, at octet 4 of 6\n"
              "astdump: not supported: 4 blocks\n");
    EXPECT_NE(result.out.find("all               5          0           4"), std::string::npos) << result.out;
}

// Of what has no end, the first report of a reason is shown at once.
TEST(Reports, OfLiveInputDoNotWait) {
    Command command;
    command.write("growing", kBroken);
    Background tool(command, "--follow --list growing");
    EXPECT_NE(tool.wait_for_report("damaged in record 1").find("offset 0: "), std::string::npos);
    command.append("growing", kBroken + kBroken + kSector);
    EXPECT_NE(tool.wait_for_output(" 034 ").find(" 034 "), std::string::npos);
    const Result result = tool.end();
    EXPECT_NE(result.err.find("damaged: category 048: I048/140 runs past the end of the block: 3 "), std::string::npos)
        << result.err;
}

// Name servers answer to a port each; what is sent to 1900 is known as other traffic when its time comes.
TEST(Reports, TellOtherTrafficFromDamage) {
    std::vector<std::string> frames;
    for (size_t i = 0; i < 100; ++i) {
        frames.push_back(frame(kSector));
        frames.push_back(frame(kAnswer, 8601 + i));
        frames.push_back(frame("NOTIFY * HTTP/1.1", 1900));
    }
    Command command;
    command.write("healthy", pcap(1, frames));
    const Result healthy = command.run("--stats healthy");
    EXPECT_EQ(healthy.status, 0);
    EXPECT_EQ(healthy.err, "astdump: healthy: not ASTERIX: other traffic: 200 datagrams, the first at packet 2: "
                           "10.0.0.1:4000 > 239.1.1.1:8601, 17 octets 30 01 81 80 00 01 00 01 ...\n"
                           "astdump: not ASTERIX: 200 datagrams\n");
    EXPECT_NE(healthy.out.find("all             100"), std::string::npos) << healthy.out;
    EXPECT_NE(healthy.out.find("\nNot ASTERIX: 200 datagrams\n"), std::string::npos) << healthy.out;
    EXPECT_EQ(command.run("--json healthy | grep -c error").out, "200\n");

    // The same octets are damage where blocks are sent to, also before the first of them.
    command.write("damaged", pcap(1, {frame(kAnswer), frame(kSector), frame("NOTIFY * HTTP/1.1")}));
    const Result damaged = command.run("--verbose --quiet damaged");
    EXPECT_EQ(damaged.status, 1);
    EXPECT_EQ(damaged.err,
              "astdump: damaged: packet 1, octet 0: category 048: LEN is 385, but only 17 octets are left\n"
              "astdump: damaged: packet 3, octet 0: 17 octets of text\n"
              "astdump: lost: 34 octets skipped\n");

    // So is a block that breaks off, alone, where most of it is there, and else where there are several.
    command.write("most", pcap(1, {frame(kSector.substr(0, 9))}));
    EXPECT_EQ(command.run("--quiet most").status, 1);
    command.write("one", pcap(1, {frame(kSector.substr(0, 5))}));
    EXPECT_EQ(command.run("--quiet one").status, 0);
    command.write("two", pcap(1, {frame(kSector.substr(0, 5)), frame(kSector.substr(0, 5))}));
    EXPECT_EQ(command.run("--quiet two").status, 1);
}

// Whether it is other traffic is not known before the end.
TEST(Reports, AreCompleteWhenTheUserEndsTheInput) {
    Command command;
    command.write("growing", pcap(1, {frame("NOTIFY * HTTP/1.1", 1900), frame(kSector)}));
    Background tool(command, "--follow --list growing");
    EXPECT_NE(tool.wait_for_output(" 034 ").find(" 034 "), std::string::npos);
    EXPECT_EQ(tool.end().err, "astdump: growing: packet 1: 10.0.0.1:4000 > 239.1.1.1:1900, 17 octets 4e 4f 54 49 46 59 "
                              "20 2a ...: not ASTERIX\nastdump: not ASTERIX: 1 datagram\n");
}

TEST(Reports, SayWhatThereIsNoneOf) {
    Command command;
    command.write("empty", "");
    command.write("capture", pcap(1, {}));
    command.write("other", pcap(1, {hex("FFFFFFFFFFFF 020000000001 0806 0001")}));
    command.write("lines", " \n");
    const struct {
        const char *arguments;
        const char *report;
    } cases[] = {
        {"empty", "empty: holds no octets"},
        {"capture", "capture: holds no packets"},
        {"other", "other: holds no blocks in 1 packet"},
        {"--framing json lines", "lines: holds no records"},
        {"--port 1 " SAMPLES "/radar.ast",
         SAMPLES "/radar.ast: what has no addresses is left out by --port and --host"},
        {"--from 12:00 " SAMPLES "/radar.ast", SAMPLES "/radar.ast: what has no time is left out by --from and --to"},
        {"--category 34 --list --where squawk=7700 --where time " SAMPLES "/radar.ast",
         "no record meets --where 'squawk=7700' --where 'time': none of 2 records has squawk"},
        {"--list --where squawk=7700 " SAMPLES "/radar.ast", "no record meets --where 'squawk=7700'"},
        {"--quiet --where 'squawk or I220 or I048/260' " SAMPLES "/radar.ast", "--where: no record has I048/260"},
        {"--category 7 --list --where squawk " SAMPLES "/radar.ast", "no record meets --where 'squawk': there is none"},
    };
    for (const auto &test : cases) {
        const Result result = command.run(test.arguments);
        EXPECT_EQ(result.status, 0) << test.arguments;
        EXPECT_EQ(result.err, "astdump: " + std::string(test.report) + '\n');
    }
}

} // namespace
