// The table of what each data source sends.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "pseudo_terminal.hpp"
#include "sender.hpp"

namespace {

// A sector crossing message of category 034 from 25/12, and a plot of category 048 from 25/13 that is cut off.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");
const std::string kCutOff = hex("30 0007 C0 190D 54");

// The packets of a capture are a second apart. Of a file of blocks, the records tell the time; nobody knows
// category 030.
TEST(Top, CountsARecordingBySourceAndCategory) {
    Command command;
    command.write("capture", pcap(1, {ethernet(ipv4(udp(kSector + kCutOff))), ethernet(ipv4(udp(kSector))),
                                      ethernet(ipv4(udp(kSector + kSector)))}));
    EXPECT_EQ(command.run("--top capture").status, 1);
    EXPECT_EQ(command.run("--top capture | grep -v lost:").out,
              R"(capture  2024-05-06 07:08:09 to 2024-05-06 07:08:11 UTC
Source   Cat  Profile   Blocks/s  Records/s  Blocks  Records  Damaged  Last UTC
025/012  034  standard       2.0        2.0       4        4           07:08:11
025/013  048  standard       0.5        0.0       1        0        1  07:08:09
all                          2.5        2.0       5        4        1  07:08:11
)");
    command.write("blocks", kSector + hex("22 0013 F0 190C 02 546080 40 F0 190D 02 546080 40"
                                          "1E 0006 80 190C"));
    EXPECT_EQ(command.run("--top blocks | grep /").out,
              "025/012  034  standard       2        2               12:00:01\n"
              "025/013  034  standard       0        1               12:00:01\n");
    EXPECT_NE(command.run("--top blocks").out.find("3            1\nnot supported: 1 block\n"), std::string::npos);
}

// What is drawn stands where the table before stood, below the messages.
TEST(Top, IsDrawnAnewWhileNothingComes) {
    Command command;
    PseudoTerminal terminal(command, "--top --color never udp://127.0.0.1:0", 100);
    const std::string &written = terminal.wait_for("listening on 127.0.0.1:");
    terminal.wait_for("\n");
    const size_t colon = written.find(':', written.find("127.0.0.1"));
    const Sender sender("127.0.0.1", static_cast<uint16_t>(std::stoi(written.substr(colon + 1))));
    sender.send(kSector + kSector);
    terminal.wait_for("025/012  034");
    sender.send(kCutOff);
    terminal.wait_for("025/013  048");
    terminal.type("\003");
    EXPECT_EQ(terminal.wait(), 1);
    const std::string screen = terminal.screen();
    EXPECT_EQ(screen.find("astdump: listening on "), 0U) << screen;
    EXPECT_EQ(screen.find("Source"), screen.rfind("Source")) << screen;
    EXPECT_NE(screen.find("\n025/012  034  standard "), std::string::npos) << screen;
    EXPECT_NE(screen.find("\n025/013  048  standard "), std::string::npos) << screen;
    EXPECT_NE(screen.find("\nlost: "), std::string::npos) << screen;
    EXPECT_EQ(screen.find("^C"), std::string::npos) << screen;
}

TEST(Top, FitsTheScreen) {
    std::string many;
    for (char sic = 1; sic <= 20; ++sic) {
        std::string block = kSector;
        block[5] = sic;
        for (char i = 0; i < sic; ++i) many += block;
    }
    Command command;
    command.write("many", many);
    PseudoTerminal terminal(command, "--top many", 40, 9);
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_EQ(terminal.screen(), R"(many
Source   Cat  Blocks  Records  Last UTC
025/017  034      17       17  12:00:01
025/018  034      18       18  12:00:01
025/019  034      19       19  12:00:01
025/020  034      20       20  12:00:01
all              210      210
16 rows with fewer records left out

)");
}

TEST(Top, TakesTheNarrowestScreenAndAnyTime) {
    Command command;
    command.write("a", kSector);
    command.write("far.json", R"({"time":"-99999999999999.5","category":34,"I000":1})");
    for (const unsigned columns : {1U, 2U, 3U})
        for (const std::string file : {"a", "far.json"}) {
            PseudoTerminal terminal(command, "--top " + file, columns, 9);
            EXPECT_EQ(terminal.wait(), 0) << columns << ' ' << file;
        }
    EXPECT_NE(command.run("--top far.json").out.find("-99999999999999"), std::string::npos);
}

} // namespace
