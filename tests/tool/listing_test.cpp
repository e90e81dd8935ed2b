// The layout of the listing, and its details.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "pseudo_terminal.hpp"

namespace {

// A sector crossing message of category 034.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");

const std::string kSample = SAMPLES "/radar.ast";

TEST(Listing, FitsTheTerminal) {
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(kSector)))}));
    PseudoTerminal terminal(command, "--color never a");
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_EQ(terminal.screen(), R"(#1  2024-05-06 07:08:09.000012Z  10.0.0.1:4000 > 239.1.1.1:8600
    CAT 034  11 octets  standard  1 record  valid
  record 1  8 octets
    I034/010  Data Source Identifier     2  SAC:025 SIC:012    19 0c
    I034/000  Message Type               1  MSG_TYPE:SECTOR_CROSSING
                                                               02
    I034/030  Time of Day                3  TOD:12:00:01.000   54 60 80
    I034/020  Sector Number              1  SECTOR:090DEG      40


)");
}

// Whoever reads from a pipe may say how wide lines are.
TEST(Listing, IsAsWideAsIsAskedFor) {
    Command command;
    command.write("a", kSector);
    const Result result = command.run("--version >&2; export COLUMNS=160; " ASTDUMP " a | grep I034/010");
    EXPECT_EQ(result.out, "    I034/010  Data Source Identifier                                2  "
                          "SAC:025 SIC:012                            19 0c\n");
}

TEST(Listing, ShowsEveryField) {
    const Result result = Command().run("--detail --category 48,62 --count 2 " + kSample);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, read_file(EXPECTED "/detail.txt"));
}

// Eight Mode S registers, as many as are read, the last one with an altitude of its own.
TEST(Listing, ShowsLongDetailsToTheirEnd) {
    std::string registers;
    for (int i = 0; i < 7; ++i) registers += hex("C4600000000000 40");
    Command command;
    command.write("a", hex("30 0046 01 20 08") + registers + hex("80080000000000 40"));
    EXPECT_EQ(command.run("--detail a | grep -c 'BDS 4,0 - Selected Vertical Intention'").out, "8\n");
    EXPECT_EQ(command.run("--detail a | grep 'MCP/FCU Selected Altitude' | uniq -c | sed 's/^ *//'").out,
              "7                 MCP/FCU Selected Altitude    35008 FT  valid\n"
              "1                 MCP/FCU Selected Altitude    16 FT    valid\n");
}

} // namespace
