// Damaged blocks, files and captures: what is reported, and that the run goes on.

#include <gtest/gtest.h>
#include <random>
#include <sstream>

#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSector = hex("22 000B F0 190C 02 546080 40");

struct DamageCase {
    const char *name;
    std::string octets;
    const char *report; // behind "astdump: input: "
};

// The damaged octets between two good blocks.
std::string between(const std::string &octets) {
    std::string file = kSector;
    return file.append(octets).append(kSector);
}

// Both good blocks are shown, and the damage is told.
TEST(Damage, IsReportedAndTheNextBlockDecoded) {
    const DamageCase cases[] = {
        {"past the end", hex("30 0007 C0 190C 54"),
         "offset 11: category 048: damaged in record 1 after 1 item, at octet 6 of 7: I048/140 runs past the end of "
         "the "
         "block"},
        {"no such FRN", hex("30 0008 01010101 80"),
         "offset 11: category 048: not supported in record 1 after 0 items, at octet 8 of 8: FRN 29 is not defined"},
        {"a spare FRN", hex("3E 0007 C0 190C 00"),
         "offset 11: category 062: not supported in record 1 after 1 item, at octet 6 of 7: FRN 2 is spare"},
        {"an empty FSPEC", hex("30 0007 80 190C 00"),
         "offset 11: category 048: damaged in record 2 after 0 items, at octet 6 of 7: the FSPEC announces no item"},
        {"an FSPEC without end", hex("30 0008 80 190C 0101"),
         "offset 11: category 048: damaged in record 2 after 0 items, at octet 6 of 8: the FSPEC runs past the end of "
         "the block"},
        {"a field of length 0", hex("22 0008 01 04 00 FFFF"),
         "offset 11: category 034: damaged in record 1 after 0 items, at octet 5 of 8: I034/REF has length 0"},
        {"no such category", hex("1E 0006 80 190C"),
         "offset 11: category 030: not supported in record 1 after 0 items, at octet 4 of 6: nothing is known of "
         "category "
         "30"},
    };
    for (const DamageCase &test : cases) {
        SCOPED_TRACE(test.name);
        Command command;
        command.write("input", between(test.octets));
        const Result result = command.run("input");
        const std::string report = test.report;
        const bool is_damage = report.find("not supported") == std::string::npos;
        EXPECT_EQ(result.status, is_damage ? 1 : 0);
        EXPECT_EQ(result.err, "astdump: input: " + report +
                                  "\nastdump: " + (is_damage ? "lost: 1 block invalid\n" : "not supported: 1 block\n"));
        EXPECT_NE(result.out.find(is_damage ? "DAMAGED" : "NOT SUPPORTED"), std::string::npos);
        EXPECT_NE(result.out.find("#3  CAT 034  11 octets  standard  1 record  valid"), std::string::npos);
    }
}

TEST(Damage, ShowsWhatTheFurthestProfileMakesOfABlock) {
    // I021/146 and I021/148 stand at FRN 32 and 33 of the editions from 2.1 on; no other profile has items there.
    Command command;
    command.write("input", hex("15 000D 8101010118 1914 1234 12"));
    const Result result = command.run("input");
    EXPECT_EQ(result.out.find("#1  CAT 021  13 octets  published 2.7  0 records  DAMAGED\n  record 1\n    I021/010"),
              0U);
    EXPECT_NE(result.out.find("12 34\n    damaged at octet 12: I021/148 runs past the end of the block\n"),
              std::string::npos);
    EXPECT_EQ(result.err, "astdump: input: offset 0: category 021: damaged in record 1 after 2 items, at octet 12 of "
                          "13: I021/148 runs past the end of the block\nastdump: lost: 1 block invalid\n");
}

TEST(Damage, OfALenIsPassedOverToTheNextBlocks) {
    const DamageCase raw[] = {
        {"LEN below 3", hex("30 0002 FF FF"),
         "offset 11: category 048: LEN is 2, less than the block header; 5 octets skipped"},
        {"LEN past the end", hex("30 0100 FF FF"),
         "offset 11: category 048: LEN is 256, but only 5 octets are left; 5 octets skipped"},
        {"LEN into the next block", hex("22 000E F0 19"),
         "offset 11: category 034: LEN is 14, but only 5 octets are left; 5 octets skipped"},
        {"no block, and what leads into the midst of some", hex("FF 30 000F 80"),
         "offset 11: 5 octets that are no blocks; skipped"},
    };
    for (const DamageCase &test : raw) {
        SCOPED_TRACE(test.name);
        Command command;
        command.write("input", between(test.octets) + kSector);
        const Result result = command.run("--stats input");
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "astdump: input: " + std::string(test.report) + "\nastdump: lost: 5 octets skipped\n");
        EXPECT_NE(result.out.find("all               3"), std::string::npos) << result.out;
    }
    Command command;
    command.write("input", pcap(1, {ethernet(ipv4(udp(kSector + hex("30 0002") + kSector))),
                                    ethernet(ipv4(udp(kSector + hex("30")))), ethernet(ipv4(udp(kSector)))}));
    const Result result = command.run("--stats input");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "astdump: input: packet 1, octet 11: category 048: LEN is 2, less than the block header\n"
                          "astdump: input: packet 2, octet 11: 1 octet, too few for a block header\n"
                          "astdump: lost: 4 octets skipped\n");
    EXPECT_NE(result.out.find("all               4"), std::string::npos) << result.out;
}

// The last octet of a block that its records fill and what follows look like another block, which leads to the next.
TEST(Damage, BehindAWholeBlockLeavesIt) {
    Command command;
    command.write("input", hex("22 000B F0 190C 02 546080 30  00 06 40 FF FF") + kSector + kSector);
    const Result result = command.run("--stats input");
    EXPECT_EQ(result.err, "astdump: input: offset 11: 5 octets that are no blocks; skipped\n"
                          "astdump: lost: 5 octets skipped\n");
    EXPECT_NE(result.out.find("all               3          0           0          3"), std::string::npos)
        << result.out;
}

TEST(Damage, OfACaptureKeepsWhatCameBefore) {
    const std::string frame = ethernet(ipv4(udp(kSector)));
    const std::string two = pcap(1, {frame, frame});
    const struct {
        const char *name;
        std::string octets;
        const char *blocks;
        const char *report;
    } cases[] = {
        {"cut in the file header", two.substr(0, 20), "all               0",
         "the header of the capture is cut off after 20 octets"},
        {"cut in a packet header", two.substr(0, two.size() - frame.size() - 4), "all               1",
         "the last packet is cut off"},
        {"cut in a packet", two.substr(0, two.size() - 1), "all               1", "the last packet is cut off"},
        {"cut in pcapng", pcapng(1, {frame, frame}).substr(0, 200), "all               1", "the last block is cut off"},
        {"headers cut short", pcap(1, {frame.substr(0, 20), frame}), "all               1",
         "packet 1: not dissected: IPv4 header cut short"},
        {"link header cut short", pcap(1, {frame.substr(0, 13), frame}), "all               1",
         "packet 1: not dissected: link header cut short"},
        {"a payload cut short", pcap(1, {frame, frame.substr(0, frame.size() - 1)}), "all               1",
         "packet 2: cut by the capture after 10 octets"},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.name);
        Command command;
        command.write("input", test.octets);
        const Result result = command.run("--stats input");
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.out.find(test.blocks), std::string::npos) << result.out;
        EXPECT_NE(result.err.find(std::string("astdump: input: ") + test.report), std::string::npos) << result.err;
    }
    Command command;
    command.write("input", pcap(105, {frame}));
    const Result unknown = command.run("--stats input");
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, "astdump: input: captures of link type IEEE802_11 are not supported\n");
}

TEST(Damage, IsSummedUp) {
    const std::string frame = ethernet(ipv4(udp(kSector)));
    const std::string cut = frame.substr(0, frame.size() - 4);
    const std::string fragment = ethernet(ipv4(udp(kSector).substr(0, 8), 0, true));
    const std::string invalid = ethernet(ipv4(udp(hex("30 0007 C0 190C 54"))));
    const std::string file = pcap(1, {frame, frame.substr(0, 20), cut, cut, fragment, invalid, frame});
    Command command;
    command.write("input", file.substr(0, file.size() - 1));
    const Result result = command.run("--quiet --verbose input");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("astdump: input: packet 3: cut by the capture after 7 octets\n"), std::string::npos)
        << result.err;
    EXPECT_NE(result.err.find("astdump: input: packet 4: cut by the capture after 7 octets\n"), std::string::npos)
        << result.err;
    EXPECT_NE(command.run("--quiet input")
                  .err.find("astdump: input: damaged: cut by the capture: 2 "
                            "datagrams, the first at packet 3: cut by the capture after 7 octets\n"),
              std::string::npos);
    EXPECT_NE(result.err.find(
                  "\nastdump: lost: 2 datagrams cut by the capture, 1 packet not dissected, 1 datagram with missing "
                  "fragments, 1 block invalid, 14 octets skipped, 1 input not read to the end\n"),
              std::string::npos)
        << result.err;
}

// Whatever is left of it, and whether anything else is sent there or not.
TEST(Damage, IsNoOtherTrafficWhereTheCaptureHasCutIt) {
    const std::string frame = ethernet(ipv4(udp(kSector)));
    const size_t headers = frame.size() - kSector.size();
    for (size_t octets = 1; octets < kSector.size(); ++octets) {
        Command command;
        command.write("input", pcap(1, {frame.substr(0, headers + octets)}));
        const Result result = command.run("--quiet input");
        EXPECT_EQ(result.status, 1) << octets;
        EXPECT_EQ(result.err.find("not ASTERIX"), std::string::npos) << result.err;
        const std::string cut =
            "astdump: input: packet 1: cut by the capture after " + std::to_string(octets) + " octet";
        EXPECT_EQ(result.err.find(cut), 0U) << result.err;
    }
}

// The status, and that every line is a report of the tool's own: sanitizers end a program with status 1, too.
void expect_reports(const Result &result, const std::string &file) {
    const bool is_other_traffic = file == "datagrams";
    EXPECT_EQ(result.status, is_other_traffic ? 0 : 1) << file;
    const size_t summary = result.err.rfind(is_other_traffic ? "astdump: not ASTERIX: " : "astdump: lost: ");
    ASSERT_NE(summary, std::string::npos) << file << '\n' << result.err;
    std::istringstream lines(result.err.substr(0, summary));
    for (std::string line; std::getline(lines, line);) EXPECT_EQ(line.find("astdump: " + file + ": "), 0U) << line;
}

// A raw file of random octets, a datagram, a frame and a capture of them.
TEST(Damage, OfRandomOctetsIsSurvived) {
    std::mt19937 random(4711);
    const auto octets = [&](size_t count) {
        std::string text(count, '\0');
        for (char &octet : text) octet = static_cast<char>(random());
        return text;
    };
    Command command;
    for (int round = 0; round < 25; ++round) {
        std::string framed;
        for (const int category : {1, 2, 21, 34, 48, 62, 240})
            framed += static_cast<char>(category) + be16(63) + octets(60);
        command.write("raw", octets(70000));
        command.write("framed", framed);
        command.write("datagrams", pcap(1, {ethernet(ipv4(udp(octets(200)))), ethernet(ipv6(octets(100)))}));
        command.write("frames", pcap(101, {hex("4F") + octets(90), hex("60") + octets(200), hex("45") + octets(7)}));
        command.write("capture", hex("A1B2C3D4") + octets(400));
        for (const char *file : {"raw", "framed", "datagrams", "frames", "capture"})
            expect_reports(command.run(file), file);
    }
}

TEST(Damage, OfALargeRawFileIsFoundAtItsOffset) {
    // More than the tool holds of a file at a time, and a block of the greatest length at the end.
    std::string file;
    while (file.size() < 600000) file += kSector;
    const std::string last = hex("22 FFFF 40") + std::string(65531, '\0');
    Command command;
    command.write("input", file + last + hex("30 00"));
    const Result result = command.run("--stats input");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("034           54547          1           0      54547       218185        665541"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.err.find("offset 665541: 2 octets, too few for a block header; skipped"), std::string::npos)
        << result.err;
}

} // namespace
