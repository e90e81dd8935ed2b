// astdump by command and output: options, and every way in which a block reaches it.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"

namespace {

// A sector crossing message of category 034.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");

const std::string kSectorBody = R"(  CAT 034  11 octets  standard  1 record  valid
  record 1  8 octets
    I034/010  Data Source Identifier                     2  SAC:025 SIC:012                19 0c
    I034/000  Message Type                               1  MSG_TYPE:SECTOR_CROSSING       02
    I034/030  Time of Day                                3  TOD:12:00:01.000               54 60 80
    I034/020  Sector Number                              1  SECTOR:090DEG                  40

)";
const std::string kIpv4Sector = "#1  2024-05-06 07:08:09.000012Z  10.0.0.1:4000 > 239.1.1.1:8600" + kSectorBody;
const std::string kIpv6Sector = "#1  2024-05-06 07:08:09.000012Z  [2001:db8::1]:4000 > [ff02::1]:8600" + kSectorBody;

const std::string kSample = SAMPLES "/radar.ast";

void expect(const Result &result, int status, const std::string &out, const std::string &err = "") {
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.out, out);
    EXPECT_EQ(result.err, err);
}

TEST(Tool, ListsTheSample) {
    expect(Command().run(kSample), 0, read_file(EXPECTED "/radar.txt"));
    expect(Command().run("- < " + kSample), 0, read_file(EXPECTED "/radar.txt"));
    expect(Command().run("- < /dev/null"), 0, "", "astdump: standard input: holds no octets\n");
}

TEST(Tool, ListsEveryItemOfTheOtherCategories) {
    expect(Command().run(SAMPLES "/categories.ast"), 0, read_file(EXPECTED "/categories.txt"));
}

TEST(Tool, CountsTheSample) {
    expect(Command().run("--stats --category 34,60-62 " + kSample), 0,
           R"(Category     Blocks    Damaged Unsupported    Records        Items        Octets
034               2          0           0          2            9            28
062               1          0           0          1           14            76
all               3          0           0          3           23           104

Item          Count  Name
I034/000          2  Message Type
I034/010          2  Data Source Identifier
I034/020          1  Sector Number
I034/030          2  Time of Day
I034/041          1  Antenna Rotation Period
I034/050          1  Station Configuration & Status
I062/010          1  Data Source Identifier
I062/040          1  Track Number
I062/060          1  Track Mode 3/A Code
I062/070          1  Time of Track Information
I062/080          1  Track Status
I062/100          1  Calculated Track Position (Cartesian)
I062/105          1  Calculated Position in WGS84 Coordinates
I062/136          1  Measured Flight Level
I062/185          1  Calculated Track Velocity (Cartesian)
I062/200          1  Mode of Movement
I062/220          1  Calculated Rate of Climb/Descent
I062/290          1  System Track Update Ages
I062/380          1  Aircraft Derived Data
I062/390          1  Flight Plan Related Data

Profile         Edition  Category      Blocks
standard        1.29     034                2
standard        1.21     062                1

Framing         File
raw             )" +
               kSample + "\n");
}

TEST(Tool, NumbersBlocksByTheirPlaceInTheFile) {
    Command command;
    command.write("a", kSector + kSector);
    const Result two = command.run("a " + kSample + " --category 34 --count 3");
    EXPECT_EQ(two.status, 0);
    EXPECT_EQ(two.out.find("==> a <=="), 0U);
    EXPECT_NE(two.out.find("#2  CAT 034"), std::string::npos);
    EXPECT_NE(two.out.find("radar.ast <==\n\n#1  CAT 034"), std::string::npos);
    EXPECT_EQ(two.out.find("#4"), std::string::npos);
    EXPECT_EQ(command.run("--count 1 a").out, "#1" + kSectorBody);
    EXPECT_EQ(command.run("--count 0 a").out, "");
    EXPECT_EQ(command.run("--quiet a").out, "");
}

TEST(Tool, DecodesByTheProfileThatIsAskedFor) {
    // I021/040 takes a single octet in edition 2.4, and two in edition 0.23.
    Command command;
    command.write("a", hex("15 0007 C0 190C 00"));
    EXPECT_NE(command.run("--uap cat021-2.4 a").out.find("cat021-2.4  1 record"), std::string::npos);
    const Result old = command.run("--uap cat021-0.23 a");
    EXPECT_EQ(old.status, 1);
    EXPECT_NE(old.out.find("I021/040 runs past the end of the block"), std::string::npos);
}

TEST(Tool, ColoursOnDemand) {
    EXPECT_NE(Command().run("--color always --count 1 " + kSample).out.find("\033[36mI034/010\033[0m"),
              std::string::npos);
    EXPECT_EQ(Command().run("--color always --quiet " + kSample).out, "");
}

TEST(Tool, RefusesWhatItDoesNotUnderstand) {
    const struct {
        const char *arguments;
        const char *complaint;
    } cases[] = {
        {"", "FILE is required"},
        {"--frob x", "--frob"},
        {"--uap cat022 x", "cat022"},
        {"--category 34,x x", "'34,x' is not a list of categories"},
        {"--category 256 x", "'256' is not"},
        {"--category 48-34 x", "'48-34' is not"},
        {"--category 34, x", "'34,' is not"},
        {"--count few x", "few"},
        {"/nowhere/x", "/nowhere/x: No such file or directory"},
        {"/", "/: Is a directory"},
    };
    for (const auto &test : cases) {
        const Result result = Command().run(test.arguments);
        EXPECT_EQ(result.status, 2) << test.arguments;
        EXPECT_EQ(result.out, "") << test.arguments;
        EXPECT_NE(result.err.find(test.complaint), std::string::npos) << test.arguments << '\n' << result.err;
    }
}

TEST(Tool, ReadsOtherFilesWhenOneIsMissing) {
    const Result result = Command().run("missing " + kSample + " --quiet --stats --category 1");
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.out.find("001               1          0           0          2           17            44"),
              std::string::npos);
}

TEST(Tool, ExplainsItself) {
    std::string line;
    const Result all = Command().run("--help all");
    EXPECT_EQ(all.status, 0);
    EXPECT_NE(all.out.find("Examples:\n  astdump recording.pcap"), std::string::npos);
    const Result help = Command().run("-h");
    EXPECT_EQ(help.status, 0);
    size_t rows = 0;
    for (std::istringstream lines(help.out); std::getline(lines, line); ++rows) EXPECT_LE(line.size(), 80U) << line;
    EXPECT_LE(rows, 24U) << "the screen of a terminal";
    EXPECT_EQ(Command().run("--version").out.find("astdump 1."), 0U);
}

TEST(Tool, SaysWhenItsOutputIsLost) {
    for (const std::string &asked : {kSample, std::string("--help"), std::string("--version")})
        expect(Command().run(asked + " > /dev/full"), 2, "", "astdump: standard output cannot be written\n");
}

TEST(Tool, EndsQuietlyWhenNobodyReads) {
    Command command;
    std::string many;
    for (int i = 0; i < 20000; ++i) many += kSector;
    command.write("many", many);
    const Result result = command.run("many | head -n 1");
    EXPECT_EQ(result.out, "#1" + kSectorBody.substr(0, kSectorBody.find('\n') + 1));
    EXPECT_EQ(result.err, "");
}

TEST(Capture, FindsBlocksBelowEveryLinkLayer) {
    const std::string v4 = ipv4(udp(kSector));
    const std::string v6 = ipv6(udp(kSector));
    const std::string null_header = hex("00000002");
    const struct {
        const char *name;
        std::string capture;
        std::string out;
    } cases[] = {
        {"Ethernet", pcap(1, {ethernet(v4)}), kIpv4Sector},
        {"Ethernet, IPv6", pcap(1, {ethernet(v6)}), kIpv6Sector},
        {"Ethernet with padding", pcap(1, {ethernet(v4) + hex("0000 0000 0000 0000")}), kIpv4Sector},
        {"VLAN", pcap(1, {ethernet(v4, hex("8100 0064"))}), kIpv4Sector},
        {"stacked VLANs", pcap(1, {ethernet(v6, hex("88A8 0064 8100 0065 8100 0066"))}), kIpv6Sector},
        {"Linux cooked", pcap(113, {hex("0000 0001 0006 020000000001 0000 0800") + v4}), kIpv4Sector},
        {"Linux cooked, VLAN", pcap(113, {hex("0000 0001 0006 020000000001 0000 8100 0064 86DD") + v6}), kIpv6Sector},
        {"Linux cooked v2", pcap(276, {hex("86DD 0000 00000002 0001 00 06 020000000001 0000") + v6}), kIpv6Sector},
        {"loopback", pcap(0, {null_header + v4}), kIpv4Sector},
        {"loopback, IPv6 of another system", pcap(108, {hex("1E000000") + v6}), kIpv6Sector},
        {"raw IP", pcap(101, {v4}), kIpv4Sector},
        {"raw IPv6", pcap(229, {v6}), kIpv6Sector},
        {"pcapng", pcapng(1, {ethernet(v4)}), kIpv4Sector},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.name);
        Command command;
        command.write("capture", test.capture);
        expect(command.run("capture"), 0, test.out);
        expect(command.run("- < capture"), 0, test.out);
        expect(command.run("- --stats --quiet < capture | sed -n 's/^034 *//p'"), 0,
               "1          0           0          1            4            11\n");
    }
}

TEST(Capture, GivesEveryDatagramItsRoute) {
    std::vector<std::string> frames;
    std::string routes;
    for (size_t i = 0; i < 400; ++i) {
        std::string packet = ipv4(udp(kSector));
        packet.replace(14, 2, be16(i % 200));
        packet.replace(22, 2, be16(8600 + i % 7));
        frames.push_back(ethernet(packet));
        routes += "10.0.0." + std::to_string(i % 200) + ":4000 > 239.1.1.1:" + std::to_string(8600 + i % 7) + '\n';
    }
    Command command;
    command.write("capture", pcap(1, frames));
    expect(command.run("capture | grep -o '10[^ ]* > [^ ]*'"), 0, routes);
}

TEST(Capture, PassesOverOtherTraffic) {
    Command command;
    std::string tcp = ipv4(udp(kSector));
    tcp[9] = 6;
    command.write("capture", pcap(1, {hex("FFFFFFFFFFFF 020000000001 0806 0001"), ethernet(tcp),
                                      ethernet(ipv4(udp(""))), ethernet(ipv4(udp(kSector + kSector)))}));
    const Result result = command.run("capture");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.find("#1  2024-05-06 07:08:12.000012"), 0U);
    EXPECT_NE(result.out.find("#2  2024-05-06 07:08:12.000012"), std::string::npos);
    EXPECT_EQ(result.err, "");
}

TEST(Capture, PutsFragmentsTogether) {
    const std::string whole = udp(kSector);
    const auto v4 = [&](size_t from, size_t to) {
        return ethernet(ipv4(whole.substr(from, to - from), from, to < whole.size()));
    };
    const auto v6 = [&](size_t from, size_t to) {
        return ethernet(ipv6_fragment(whole.substr(from, to - from), from, to < whole.size()));
    };
    const std::string stray = ethernet(ipv4(whole.substr(0, 8), 0, true, 8));
    const std::string missing = "astdump: capture: fragments are missing of 1 datagram\n"
                                "astdump: lost: 1 datagram with missing fragments\n";
    const struct {
        const char *name;
        std::vector<std::string> frames;
        int status;
        std::string out;
        std::string err;
    } cases[] = {
        {"in order", {v4(0, 8), v4(8, 16), v4(16, 19)}, 0, "07:08:11.000012Z  10.0.0.1", ""},
        {"backwards, one twice", {v4(16, 19), v4(8, 16), v4(8, 16), v4(0, 8)}, 0, "07:08:12.000012Z  10.0.0.1", ""},
        {"IPv6", {v6(8, 19), v6(0, 8)}, 0, "07:08:10.000012Z  [2001:db8::1]", ""},
        {"IPv6, one piece", {v6(0, 19)}, 0, "07:08:09.000012Z  [2001:db8::1]", ""},
        {"another datagram between", {v4(0, 8), stray, v4(8, 19)}, 1, "07:08:11.000012Z  10.0.0.1", missing},
        {"a gap", {v4(0, 8), v4(16, 19)}, 1, "", missing},
        {"a piece behind the last", {ethernet(ipv4(std::string(8, 0), 24, true)), v4(8, 19)}, 1, "", missing},
        {"an overlap", {v4(0, 16), v4(8, 19)}, 1, "", missing},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.name);
        Command command;
        command.write("capture", pcap(1, test.frames));
        const std::string out = test.out.empty() ? "" : "#1  2024-05-06 " + test.out;
        const Result result = command.run("capture");
        EXPECT_EQ(result.status, test.status);
        EXPECT_EQ(result.out.substr(0, out.size()), out);
        EXPECT_EQ(result.out.empty(), out.empty());
        EXPECT_EQ(result.err, test.err);
    }
}

} // namespace
