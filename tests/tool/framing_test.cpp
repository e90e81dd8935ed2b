// Files and datagrams whose blocks a recorder has wrapped.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSector = hex("22 000B F0 190C 02 546080 40");
const std::string kPlot = hex("30 0007 A0 190C A0");

struct FramedCase {
    const char *framing;
    std::string file;
    const char *blocks; // as --stats counts them in all
    const char *report = "";
};

TEST(Framing, IsFoundOutByWhatAFileHolds) {
    const FramedCase cases[] = {
        {"raw", kSector + kPlot, "2"},
        {"final",
         hex("0017 00 01 05 000064") + kSector + hex("A5A5A5A5") + hex("0013 00 01 05 0000C8") + kPlot +
             hex("A5A5A5A5"),
         "2"},
        {"gps", std::string(2200, '\xCD') + kSector + std::string(10, '\x01') + kPlot + std::string(10, '\x02'), "2"},
        {"oradis", hex("0011 01020304") + kSector + hex("0018 01020304") + kSector + kPlot, "3"},
        {"hex", "0x22, 0x00, 0x0B F0190C0254608040\r\n\n30 00 07 A0 19 0C A0", "2"},
        {"mac-llc",
         hex("0102030405060A0B0C0D0E0F 000E F0F003") + kSector + std::string(32, '\0') +
             hex("0102030405060A0B0C0D0E0F 000E F0F003") + kSector + std::string(32, '\0'),
         "2"},
        // Address, control, the block, CRC-16/X.25; 7E and 7D inside are announced by 7D.
        {"hdlc", hex("7E FF03 22000BF0190C02546080 40 A02B 7E"), "1"},
    };
    for (const FramedCase &test : cases) {
        SCOPED_TRACE(test.framing);
        for (const std::string &option : {std::string(), " --framing " + std::string(test.framing)}) {
            Command command;
            command.write("input", test.file);
            const Result result = command.run("--stats" + option + " input");
            EXPECT_EQ(result.status, 0) << result.err;
            EXPECT_NE(result.out.find("all               " + std::string(test.blocks) + "          0"),
                      std::string::npos)
                << result.out;
        }
    }
}

TEST(Framing, GoesOnBehindWhatIsNoFrame) {
    const std::string frame = hex("0017 00 01 05 000064") + kSector + hex("A5A5A5A5");
    Command command;
    command.write("input", frame + frame + "garbage" + frame);
    const Result result = command.run("--stats input");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("all               3          0"), std::string::npos) << result.out;
    EXPECT_EQ(result.err, "astdump: input: offset 46: 7 octets that are no final frame; skipped\n"
                          "astdump: lost: 7 octets skipped\n");
}

TEST(Framing, GivesBlocksTheTimeOfTheirFrame) {
    Command command;
    command.write("input", hex("0017 00 01 05 36EE80") + kSector + hex("A5A5A5A5")); // 10:00:00.00
    EXPECT_NE(command.run("input").out.find("10:00:00.000000"), std::string::npos);
}

TEST(Framing, OfDatagramsIsTakenOff) {
    Command command;
    command.write("input", pcap(1, {ethernet(ipv4(udp(hex("0011 01020304") + kSector + hex("000D 01020304") + kPlot))),
                                    ethernet(ipv4(udp(kSector + hex("E5186C866C931D6A"))))}));
    const Result result = command.run("--stats input");
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("all               3          0"), std::string::npos) << result.out;
    EXPECT_EQ(result.err,
              "astdump: input: 1 datagram with octets behind the last block, 8 octets in all; passed over\n");
}

} // namespace
