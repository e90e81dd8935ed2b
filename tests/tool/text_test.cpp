// Octets in texts as people pass them on.

#include <gtest/gtest.h>

#include "command.hpp"

namespace {

// A sector message at noon and a plot; in dumps of packets with the headers before them.
struct TextCase {
    const char *name;
    const char *text;
};

constexpr TextCase kTexts[] = {
    {"wrapped", "22 00 0B F0 19 0C\n02 54 60 00 40 30 00\n07 A0 19 0C A0\n"},
    {"a stream of digits", "22000bf0190c02546000403000\n07a0190ca0\n"},
    {"quoted in a letter", "Hi Ed,\n\nat 12:00:01 on 2024-06-01 from 239.10.10.10:8600 came\n\n> 22 00 0B F0 19 0C\n"
                           "> 02 54 60 00 40\n>\n> > 30 0007 A0190CA0\n\nRegards, Ed\n"},
    {"with labels and comments", "# a radar\nCAT034: 22 00 0B F0 19 0C 02 54 60 00 40 // sector\n"
                                 "48 = 30 00 07 A0 19 0C A0\n"},
    {"with colons", "22:00:0b:f0:19:0c:02:54:60:00:40:30:00:07:a0:19:0c:a0\n"},
    {"xxd", "00000000: 2200 0bf0 190c 0254 6000 4030 0007 a019  \"......T`.@0....\n00000010: 0ca0  ..\n"},
    {"hexdump -C", "00000000  22 00 0b f0 19 0c 02 54  60 00 40 30 00 07 a0 19  |\"......T`.@0....|\n"
                   "00000010  0c a0                                             |..|\n00000012\n"},
    {"od", "0000000 22 00 0b f0 19 0c 02 54 60 00 40 30 00 07 a0 19\n0000020 0c a0\n0000022\n"},
    {"C", "const uint8_t blocks[18] = {0x22, 0x0, 0x0b, 0xf0, 0x19, 0x0c,\n  0x02, 0x54, 0x60, 0x00, 0x40, 0x30,\n"
          "  0x00, 0x07, 0xa0, 0x19, 0x0c, 0xa0};\n"},
    {"C as text",
     "\"\\x22\\x00\\x0b\\xf0\\x19\\x0c\\x02\\x54\\x60\\x00\\x40\"\n\"\\x30\\x00\\x07\\xa0\\x19\\x0c\\xa0\"\n"},
    {"Python", "data = b'\"\\x00\\x0b\\xf0\\x19\\x0c\\x02T`\\x00@0\\x00\\x07\\xa0\\x19\\x0c\\xa0'\n"},
    {"tcpdump -x", "12:00:01.123456 IP 192.0.2.1.8600 > 192.0.2.2.8600: UDP, length 11\n"
                   "\t0x0000:  4500 0027 0000 0000 0111 0000 c000 0201  E..'............\n"
                   "\t0x0010:  c000 0202 2198 2198 0013 0000 2200 0bf0  ....!.!.....\"...\n"
                   "\t0x0020:  190c 0254 6000 40                        ...T`.@\n"
                   "12:00:01.234567 IP 192.0.2.1.8600 > 192.0.2.2.8600: UDP, length 7\n"
                   "\t0x0000:  4500 0023 0000 0000 0111 0000 c000 0201  E..#............\n"
                   "\t0x0010:  c000 0202 2198 2198 000f 0000 3000 07a0  ....!.!.....0...\n"
                   "\t0x0020:  190c a0                                  ...\n"},
    {"bytes of Ethernet", "0000   01 00 5e 00 00 01 02 00 00 00 00 01 08 00 45 00   ..^...........E.\n"
                          "0010   00 2e 00 00 00 00 01 11 00 00 c0 00 02 01 c0 00   ................\n"
                          "0020   02 02 21 98 21 98 00 1a 00 00 22 00 0b f0 19 0c   ..!.!.....\".....\n"
                          "0030   02 54 60 00 40 30 00 07 a0 19 0c a0               .T`.@0......\n"},
};

TEST(Text, ShowsItsOctetsInWhateverForm) {
    const std::string list = "12:00:00.000  025/012  034       8  Sector\n-             025/012  048       4  Plot\n";
    for (const TextCase &each : kTexts) {
        SCOPED_TRACE(each.name);
        Command command;
        command.write("text", each.text);
        for (const char *input : {"text", "- < text", "--hex \"$(cat text)\""}) {
            const Result result = command.run(std::string("--list ") + input);
            EXPECT_EQ(result.err, "");
            EXPECT_NE(result.out.find(list), std::string::npos) << input << '\n' << result.out;
        }
    }
}

TEST(Text, IsTakenFromTheCommandLine) {
    const Command command;
    const std::string plot = "SAC/SIC  Cat  Octets  Type\n025/012  048       4  Plot\n";
    for (const char *arguments : {"300007A0190CA0", "30 00 07 A0 19 0C A0", "'30:00:07:A0:19:0C:A0'",
                                  "--hex 300007A0190CA0", "--category 48 --hex 'A0 190C A0'"}) {
        const Result result = command.run(std::string("--list ") + arguments);
        EXPECT_EQ(result.out, plot) << arguments << '\n' << result.err;
    }
    EXPECT_EQ(command.run("20240601").err, "astdump: 20240601: No such file or directory\n");
    EXPECT_EQ(command.run("--list").err, "astdump: FILE is required\nRun with --help for more information.\n");
}

TEST(Text, ShowsWhatIsThereOfABlock) {
    Command command;
    command.write("text", "30 00 07 A0 19 0C\n30 00 07 A0 19 0C A0\n");
    const Result result = command.run("text");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out,
              "#-  CAT 048  6 of 7 octets  standard  0 records  DAMAGED\n"
              "  record 1\n"
              "    I048/010  Data Source Identifier                     2  SAC:025 SIC:012                19 "
              "0c\n"
              "    damaged at octet 6: I048/020 runs past the end of the block\n\n"
              "#1  CAT 048  7 octets  standard  1 record  valid\n"
              "  record 1  4 octets\n"
              "    I048/010  Data Source Identifier                     2  SAC:025 SIC:012                19 "
              "0c\n"
              "    I048/020  Target Report Descriptor                   1  TYPE:ROLL_CALL CHN1            a0"
              "\n\n");
    EXPECT_NE(result.err.find("offset 0: category 048: LEN is 7, but only 6 octets are left"), std::string::npos)
        << result.err;
}

// Times, dates, hosts, numbers and words that have no other letters.
TEST(Text, OfWordsHasNoOctets) {
    Command command;
    command.write("text", "Dear Ed,\n\nin a decade, on 2024-06-01 at 12:00:00.123456, from 239.10.10.10 port 8600,\n"
                          "be added facade 00:1a:2b:3c:4d:5e\nTel 0049 30\nEd\n");
    const Result result = command.run("--stats text");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "astdump: text: offset 0: 135 octets of text; skipped\n"
                          "astdump: lost: 135 octets skipped\n");
}

} // namespace
