// Files and datagrams whose blocks a recorder has wrapped.

#include <algorithm>

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
        {"json", " \r\n{ \"category\":48,\"I010\":{\"SAC\":25,\"SIC\":12}}\n{\n  \"category\": 34,\n  \"I000\": 1\n}\n",
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
            EXPECT_NE(result.out.find('\n' + std::string(test.framing) + "  "), std::string::npos) << result.out;
        }
    }
}

// Text of 2,200 characters, and then some that could be two frames with blocks of category 032.
TEST(Framing, OfTextIsNone) {
    Command command;
    const std::string frame = "   p" + std::string(8220 + 10, 'p');
    command.write("input", std::string(2200, 'p') + frame + frame);
    const Result result = command.run("--stats input");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "astdump: input: offset 0: 18668 octets of text; skipped\n"
                          "astdump: lost: 18668 octets skipped\n");
}

// Behind 2,200 octets stands a long block, and ten octets behind that what may be the start of another one.
TEST(Framing, IsThatOfMostFrames) {
    std::string file;
    for (int i = 0; i < 200; ++i) file += kSector;
    file += hex("30 EA60 08") + std::string(59996, '\0');
    for (int i = 0; i < 400; ++i) file += kSector;
    Command command;
    command.write("input", file);
    const Result result = command.run("--stats --category 34 input");
    EXPECT_NE(result.out.find("all             600          0"), std::string::npos) << result.out;
    EXPECT_EQ(result.err, "");
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

TEST(Json, LinesOfOneBlockBecomeThatBlockAgain) {
    const std::string items = R"(,"category":34,"I010":{"SAC":25,"SIC":12},"I000":2})"
                              "\n";
    Command command;
    command.write(
        "input",
        R"({"block":3,"time":"2024-02-29T07:08:09.000012Z","source":"10.0.0.1:4000","destination":"10.0.0.2:8600")" +
            items + R"({"block":3)" + items + R"({"block":4)" + items + R"({"file":"b","block":4)" + items +
            R"({"block":null)" + items + R"({"block":null)" + items +
            R"({"block":5,"category":48,"I010":{"SAC":1,"SIC":2}})" + "\n" +
            R"({"block":5,"category":48,"error":"why","data":"8001"})");
    const Result result = command.run("input | grep '^#'");
    EXPECT_EQ(result.out, "#1  2024-02-29 07:08:09.000012Z  10.0.0.1:4000 > 10.0.0.2:8600"
                          "  CAT 034  11 octets  standard  2 records  valid\n"
                          "#2  CAT 034  7 octets  standard  1 record  valid\n"
                          "#3  CAT 034  7 octets  standard  1 record  valid\n"
                          "#4  CAT 034  7 octets  standard  1 record  valid\n"
                          "#5  CAT 034  7 octets  standard  1 record  valid\n"
                          "#6  CAT 048  8 octets  standard  1 record  DAMAGED\n");
}

// Octets that were no block when they were written.
TEST(Json, DataOfNoBlockStaysNone) {
    Command command;
    command.write("long", kSector + std::string(100000, '\0') + kSector + kSector);
    const std::string back = command.run("--json long 2>&- | " ASTDUMP " --quiet -").err;
    EXPECT_NE(back.find(": 4 places"), std::string::npos) << back;
    EXPECT_NE(back.find("\nastdump: lost: 100000 octets skipped\n"), std::string::npos) << back;
    command.write("input", R"({"category":0,"error":"why","data":"000001"})"
                           "\n"
                           R"({"block":1,"category":34,"I000":2})");
    const Result result = command.run("--list input");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("offset 0: 3 octets that are no blocks; skipped\n"), std::string::npos) << result.err;
    EXPECT_NE(result.out.find("\n034 "), std::string::npos) << result.out;
}

TEST(Json, ABlockThatWouldBeTooLongIsSeveral) {
    std::string lines; // each record an FSPEC and SP of 255 octets: 257, of which a block holds 254
    for (int i = 0; i < 300; ++i)
        lines += R"({"block":1,"category":34,"SPF":")" + std::string(size_t{2} * 254, '0') + "\"}\n";
    Command command;
    command.write("input", lines);
    EXPECT_EQ(command.run("--uap standard input 2>/dev/null | grep -c '^#'").out, "2\n");
}

TEST(Json, IsReadOnBehindWhatIsWrong) {
    const std::string good = R"({"category":48,"I010":{"SAC":25,"SIC":12}})"
                             "\n";
    Command command;
    const std::string mark = "\xEF\xBB\xBF"; // in front of UTF-8
    command.write("input", mark + good + "nonsense\n" + R"({"category":48,"I010":{"SAC":25)" + "\n" + good +
                               "{\n\"category\":48,\n" + R"("I010":{"SAC":256,"SIC":1}})" + "\n" +
                               R"({"time":"12:00","category":48})" + "\n" + good);
    const Result result = command.run("--stats - < input");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("all               3          0"), std::string::npos) << result.out;
    EXPECT_EQ(result.err,
              "astdump: standard input: line 2, character 1: is no JSON object\n"
              "astdump: standard input: line 3, character 32: lacks a comma or a closing bracket\n"
              "astdump: standard input: line 7, character 15: I010/SAC: does not fit its bits\n"
              "astdump: standard input: line 8, character 9: time: is no time such as 2014-02-25T12:43:47Z\n"
              "astdump: lost: 4 lines not read\n");
}

TEST(Json, SaysWhatOfAnObjectIsWrong) {
    Command command;
    command.write("input", R"({"category":48,"I010":{"SAC":1,"SIC":2},"I010":{"SAC":1,"SIC":2}})"
                           "\n"
                           R"({"category":48,"I011":{"SAC":1,"SIC":2}})"
                           "\n"
                           R"({"category":48,"category":34,"I000":1})"
                           "\n"
                           R"({"category":48,"data":"80190C","I010":{"SAC":1,"SIC":2}})"
                           "\n"
                           R"({"category":48,"octets":{"I010":"19"}})"
                           "\n");
    EXPECT_EQ(command.run("--quiet input").err,
              "astdump: input: damaged: is repeated: 2 lines, the first at line 1, character 41: I010\n"
              "astdump: input: line 2, character 16: I011: is not known here\n"
              "astdump: input: line 4, character 32: I010: stands beside data, which are all octets of the record\n"
              "astdump: input: line 5, character 1: octets: make no whole record\n"
              "astdump: lost: 5 lines not read\n");
}

// 32 MB, which no record takes, are not looked into.
TEST(Json, OfAnyLengthCostsNoMoreThanItself) {
    Command command;
    command.write("input", "{\"category\":34,\"I000\":[" + std::string(size_t{32} * 1024 * 1024, '1') +
                               "\n{\"category\":34,\"I000\":1}\n");
    const Result result = command.run("--stats input");
    EXPECT_EQ(result.err, "astdump: input: line 1, character 1: is longer than a record can be\n"
                          "astdump: lost: 1 line not read\n");
    EXPECT_NE(result.out.find("all               1          0"), std::string::npos) << result.out;
}

// Of any layout, all in one line included.
TEST(Json, AnArrayIsReadLikeLines) {
    const std::string plot = R"({"category":48,"I010":{"SAC":25,"SIC":12}})", sector = R"({"category":34,"I000":2})";
    Command command;
    command.write("lines", plot + "\n" + sector + "\n" + plot + "\n");
    const std::string expected = command.run("--csv I010/SAC,I000 lines").out;
    EXPECT_EQ(std::ranges::count(expected, '\n'), 4);
    for (const std::string &array :
         {"[" + plot + "," + sector + "," + plot + "]", " [\n  " + plot + ",\n  " + sector + ",\n  " + plot + "\n]\n",
          "[{\n  \"category\":48,\n  \"I010\":{\"SAC\":25,\"SIC\":12}\n},\n" + sector + ", " + plot + "]\n"}) {
        command.write("array", array);
        EXPECT_EQ(command.run("--csv I010/SAC,I000 array").out, expected) << array;
        EXPECT_EQ(command.run("--csv I010/SAC,I000 - < array").out, expected) << array;
    }
    command.write("array", "[" + plot + ", {\"category\":48,\"I010\":7},\n" + plot + "]");
    const Result result = command.run("--stats array");
    EXPECT_EQ(result.err, "astdump: array: line 1, character 68: I010: is no object\n"
                          "astdump: lost: 1 line not read\n");
    EXPECT_NE(result.out.find("all               2          0"), std::string::npos) << result.out;
}

// ---- Compression ----

TEST(Compressed, InputIsReadAsWhatIsInIt) {
    Command command;
    command.write("final", hex("0017 00 01 05 000064") + kSector + hex("A5A5A5A5"));
    const std::string plain = command.run("--list final").out;
    EXPECT_NE(plain, "");
    for (const std::string packer : {"gzip", "zstd -q"}) {
        const Result result = command.run("--list final; " + packer + " -c final > packed");
        EXPECT_EQ(command.run("--list packed").out, plain) << packer;
        EXPECT_EQ(command.run("--quiet final; cat packed | " ASTDUMP " --list -").out, plain) << packer;
        EXPECT_NE(command.run("--stats packed").out.find("\nfinal, " + packer.substr(0, 4)), std::string::npos);
    }
}

// As octets they would be blocks, of a category that nothing is known of, that break off, or in which records do.
TEST(Framing, HexadecimalDigitsAreTheirOctets) {
    const struct {
        const char *text;
        const char *report;
    } cases[] = {
        {"FA 00 05 80 01\n",
         "offset 0: category 250: not supported in record 1 after 0 items, at octet 4 of 5: nothing is "
         "known of category 250"},
        {"22000BF0190C02", "offset 0: category 034: LEN is 11, but only 7 octets are left"},
        {"220008F0190C0254\n",
         "offset 0: category 034: damaged in record 1 after 2 items, at octet 7 of 8: I034/030 runs "
         "past the end of the block"},
    };
    for (const auto &test : cases) {
        Command command;
        command.write("a", test.text);
        const Result result = command.run("--quiet --verbose a");
        EXPECT_EQ(result.err.find(std::string("astdump: a: ") + test.report), 0U) << result.err;
    }
    Command command;
    command.write("a", "hello world\n");
    EXPECT_EQ(command.run("--quiet a").err,
              "astdump: a: offset 0: 12 octets of text; skipped\nastdump: lost: 12 octets "
              "skipped\n");
}

TEST(Compressed, InputIsKeptUpToItsDamage) {
    Command command;
    std::string sectors;
    for (int i = 0; i < 100000; ++i) sectors += kSector;
    command.write("plain", sectors);
    command.write("capture", pcap(1, std::vector(1000, ethernet(ipv4(udp(kSector))))));
    for (const std::string packer : {"gzip", "zstd"}) {
        command.run("--quiet plain; " + packer + " -c capture | head -c -40 > packed");
        EXPECT_EQ(command.run("--quiet packed").err, "astdump: packed: the " + packer +
                                                         " data end too early\nastdump: lost: 1 input not read to the "
                                                         "end\n");
        const Result result =
            command.run("--quiet plain; " + packer + " -c plain | head -c -4 | " ASTDUMP " --stats -");
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.out.find("\n034  "), std::string::npos) << result.out;
        EXPECT_EQ(result.err, "astdump: standard input: the " + packer +
                                  " data end too early\nastdump: lost: 1 input not read to the end\n");
    }
}

} // namespace
