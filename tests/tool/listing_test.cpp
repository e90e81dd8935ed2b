// The layout of the listing, and its details.

#include <gtest/gtest.h>

#include "command.hpp"

namespace {

// A sector crossing message of category 034.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");

const std::string kSample = SAMPLES "/radar.ast";

TEST(Listing, FitsTheTerminal) {
    Command command;
    command.write("a", kSector);
    const Result result = command.run("--version >&2; script -qec 'stty cols 80; " ASTDUMP
                                      " --color never a 2>/dev/null' /dev/null | tr -d '\\r' | sed 1,2d");
    EXPECT_EQ(result.out, R"(    I034/010  Data Source Identifier     2  SAC:025 SIC:012    19 0c
    I034/000  Message Type               1  MSG_TYPE:SECTOR_CROSSING
                                                               02
    I034/030  Time of Day                3  TOD:12:00:01.000   54 60 80
    I034/020  Sector Number              1  SECTOR:090DEG      40

)");
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
