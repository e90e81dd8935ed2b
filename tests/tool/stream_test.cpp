// What captures hold in pieces, TCP connections and IP fragments, and blocks in frames of the link layer.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSector = hex("22 000B F0 190C 02 546080 40");

// Sequence numbers start again at 0 within the second block.
constexpr size_t kFirst = 0xFFFFFFF0;

std::string blocks(size_t count) {
    std::string octets;
    while (count-- > 0) octets += kSector;
    return octets;
}

// Octets of a stream of sector crossings, from one place to behind another.
std::string part(size_t begin, size_t end, unsigned flags = kAck) {
    return ethernet(ipv4_tcp(tcp(kFirst + begin, blocks(100).substr(begin, end - begin), flags)));
}

std::string segment(size_t place, const std::string &payload, unsigned flags = kAck) {
    return ethernet(ipv4_tcp(tcp(kFirst + place, payload, flags)));
}

const std::string kBegin = ethernet(ipv4_tcp(tcp(kFirst - 1, "", kSyn)));

struct StreamCase {
    const char *name;
    std::vector<std::string> frames;
    const char *blocks; // of which none is damaged
    std::string reports = "";
};

void expect(const StreamCase &test, bool at_once = true) {
    SCOPED_TRACE(test.name);
    Command command;
    command.write("c", pcap(1, test.frames, at_once));
    const Result result = command.run("--stats c");
    EXPECT_NE(result.out.find(std::string("\nall") + std::string(16 - std::string(test.blocks).size(), ' ') +
                              test.blocks + "          0  "),
              std::string::npos)
        << result.out;
    EXPECT_EQ(result.err, test.reports);
    EXPECT_EQ(result.status, test.reports.find("lost: ") == std::string::npos ? 0 : 1);
}

TEST(Tcp, SegmentsAreSetInOrder) {
    std::vector<std::string> backwards;
    for (size_t place = 88; place-- > 0;) backwards.push_back(part(place, place + 1));
    backwards.insert(backwards.begin(), kBegin);
    const StreamCase cases[] = {
        {"one after the other", {kBegin, part(0, 30), part(30, 60), part(60, 88, kFin)}, "8"},
        {"swapped, repeated, overlapping",
         {kBegin, part(30, 50), part(0, 20), part(0, 25), part(10, 40), part(60, 88, kFin), part(30, 70)},
         "8"},
        {"backwards, octet by octet", backwards, "8"},
        {"octets with the first segment, and again behind the last",
         {ethernet(ipv4_tcp(tcp(kFirst - 1, blocks(1), kSyn))), kBegin, part(11, 22, kFin), part(11, 22)},
         "2"},
        {"two connections of the same ports",
         {kBegin, part(0, 22), segment(4999, "", kSyn), segment(5000, blocks(1))},
         "3"},
        {"IPv6, one octet of probing first",
         {ethernet(ipv6_tcp(tcp(99, "", kSyn))), ethernet(ipv6_tcp(tcp(99, "?"))),
          ethernet(ipv6_tcp(tcp(100, blocks(3))))},
         "3"},
    };
    for (const StreamCase &test : cases) expect(test);
}

TEST(Tcp, WhatIsMissingIsTold) {
    const std::string route = "TCP 10.0.0.1:4000 > 239.1.1.1:8600: ";
    std::string truncated = part(0, 30);
    const size_t ip = 14;
    truncated.replace(ip + 2, 2, be16(40 + 50)); // 50 octets were sent
    const StreamCase cases[] = {
        {"a segment",
         {kBegin, part(0, 30), part(70, 99, kFin)},
         "4",
         "astdump: c: packet 3, octet 22: category 034: LEN is 11, but only 8 octets are left\n"
         "astdump: c: packet 3: " +
             route +
             "40 octets missing\n"
             "astdump: c: packet 3: " +
             route +
             "7 octets before the next block; skipped\n"
             "astdump: lost: 40 octets missing in TCP streams, 15 octets skipped\n"},
        {"the rest of a segment",
         {kBegin, truncated, part(50, 88)},
         "5",
         "astdump: c: packet 2, octet 22: category 034: LEN is 11, but only 8 octets are left\n"
         "astdump: c: packet 2: " +
             route +
             "20 octets missing\n"
             "astdump: c: packet 3: " +
             route +
             "5 octets before the next block; skipped\n"
             "astdump: lost: 20 octets missing in TCP streams, 13 octets skipped\n"},
        {"the rest of a segment, behind which another one waits",
         {kBegin, part(50, 88), truncated},
         "5",
         "astdump: c: packet 3, octet 22: category 034: LEN is 11, but only 8 octets are left\n"
         "astdump: c: packet 3: " +
             route +
             "20 octets missing\n"
             "astdump: c: packet 3: " +
             route +
             "5 octets before the next block; skipped\n"
             "astdump: lost: 20 octets missing in TCP streams, 13 octets skipped\n"},
        {"the end of a connection",
         {kBegin, part(0, 30), part(30, 30, kFin)},
         "2",
         "astdump: c: packet 3, octet 22: category 034: LEN is 11, but only 8 octets are left\n"
         "astdump: lost: 8 octets skipped\n"},
        {"a LEN",
         {kBegin, part(0, 22), segment(22, hex("22 0002") + kSector + kSector)},
         "4",
         "astdump: c: packet 3, octet 22: category 034: LEN is 2, less than the block header\n"
         "astdump: lost: 3 octets skipped\n"},
        {"what the capture began and ended too late and too early for",
         {part(5, 60), part(60, 70)},
         "5",
         "astdump: c: " + route +
             "the capture begins within a block, of which it has 6 octets\n"
             "astdump: c: " +
             route + "the capture ends within a block, of which it has 4 octets\n"},
    };
    for (const StreamCase &test : cases) expect(test);
}

// A block has the time of the segment that completes it; one that is missing is waited for ten seconds.
TEST(Tcp, BlocksHaveTheTimeOfTheirLastSegment) {
    Command command;
    std::vector<std::string> frames = {kBegin, part(0, 5), part(5, 11), part(22, 33)};
    for (size_t i = 3; i < 13; ++i) frames.push_back(part(i * 11, i * 11 + 11));
    frames.push_back(part(143, 154));
    command.write("c", pcap(1, frames));
    const Result result = command.run("c | grep '^#' | cut -d ' ' -f 4 | uniq -c");
    EXPECT_EQ(result.out, "      1 07:08:11.000012Z\n     12 07:08:23.000012Z\n");
    EXPECT_NE(result.err.find(" 11 octets missing\n"), std::string::npos) << result.err;
}

TEST(Tcp, OtherTrafficIsPassedOver) {
    // Where text stands indented, LEN may well seem to lead from blank to blank.
    std::string blanks;
    while (blanks.size() < 1000) blanks += "  \"0";
    std::vector<std::string> text, requests = {kBegin, segment(0, "GET / HTTP/1.1\r\n\r\n")};
    for (size_t i = 0; i < 100; ++i) text.push_back(segment(i * 1000, blanks));
    const std::string other = "astdump: c: TCP 10.0.0.1:4000 > 239.1.1.1:8600: not ASTERIX\n"
                              "astdump: not ASTERIX: 1 TCP stream\n";
    const StreamCase cases[] = {
        {"text, from the start", requests, "0", other},
        {"text, from within", text, "0", other},
        {"a header of other lengths", {segment(0, hex("17 0303 0010") + std::string(2000, '\x11'))}, "0", other},
        {"nothing but talk", {kBegin, part(0, 0), part(0, 0, kFin)}, "0", "astdump: c: holds no blocks in 3 packets\n"},
        {"headers that are cut short", {ethernet(ipv4_tcp(kSector))}, "0", "astdump: c: holds no blocks in 1 packet\n"},
    };
    for (const StreamCase &test : cases) expect(test);
}

// Octets of a datagram with two sector crossings; the parts of datagrams of other senders are told by `id`.
std::string fragment(size_t begin, size_t end, size_t id, const std::string &payload = blocks(2)) {
    const std::string whole = udp(payload);
    return ethernet(ipv4(whole.substr(begin, std::min(end, whole.size()) - begin), begin, end < whole.size(), id));
}

TEST(Fragments, OfThousandsOfDatagramsMayBeInFlight) {
    std::vector<std::string> frames;
    for (size_t id = 0; id < 5000; ++id) frames.push_back(fragment(0, 16, id));
    for (size_t id = 0; id < 5000; ++id) frames.push_back(fragment(16, 64, id));
    expect({"in flight", frames, "10000"});
}

TEST(Fragments, OfADatagramThatIsLostCountAsOne) {
    const std::string lost = "astdump: c: fragments are missing of 1 datagram\n"
                             "astdump: lost: 1 datagram with missing fragments\n";
    const std::string other = hex("22 000B F0 190C 02 546080 80");
    const StreamCase cases[] = {
        {"three of four", {fragment(0, 8, 1), fragment(8, 16, 1), fragment(24, 64, 1)}, "0", lost},
        {"behind an overlap", {fragment(0, 16, 1), fragment(8, 24, 1), fragment(24, 64, 1)}, "0", lost},
        {"before the identification is used again",
         {fragment(0, 24, 1), fragment(0, 24, 1, other + kSector), fragment(24, 64, 1, other + kSector)},
         "2",
         lost},
        {"but none repeated behind its datagram", {fragment(0, 16, 1), fragment(16, 64, 1), fragment(16, 64, 1)}, "2"},
        {"nor a datagram that comes twice",
         {fragment(0, 16, 1), fragment(16, 64, 1), fragment(0, 16, 1), fragment(16, 64, 1)},
         "4"},
    };
    for (const StreamCase &test : cases) expect(test);
    // A packet a second.
    std::vector<std::string> late(32, ethernet(ipv4(udp(kSector))));
    late.front() = fragment(16, 64, 1, kSector + other);
    late.insert(late.end(), {fragment(0, 16, 1), fragment(16, 64, 1)});
    expect({"half a minute before the identification is used again", late, "33", lost}, false);
}

TEST(Fragments, TakeSoMuchMemoryAndNoMore) {
    const std::string big = hex("1E F000") + std::string(61437, '\0');
    std::vector<std::string> frames;
    for (size_t id = 0; id < 600; ++id) frames.push_back(fragment(0, 60000, id, big));
    for (size_t id = 0; id < 600; ++id) frames.push_back(fragment(60000, 65536, id, big));
    Command command;
    command.write("c", pcap(1, frames, true));
    EXPECT_NE(command.run("--quiet --category 30 c").err.find("fragments are missing of 4"), std::string::npos);
}

// A frame of IEEE 802.3 with a link header.
std::string llc(const std::string &content, const std::string &tag = "") {
    return hex("01005E010101 020000000001") + tag + be16(content.size() + 3) + hex("F0F003") + content +
           std::string(32, '\0');
}

TEST(MacLlc, FramesInCapturesHoldBlocks) {
    const std::string spanning_tree = hex("0180C2000000 020000000001 0026 424203 0000000000") + std::string(40, '\0');
    const std::vector<std::string> frames = {llc(kSector), spanning_tree, llc(blocks(2), hex("81000005")),
                                             llc(kSector + hex("22 0020 00"))};
    expect({"Ethernet", frames, "4",
            "astdump: c: packet 4, octet 11: category 034: LEN is 32, but only 4 octets are left\n"
            "astdump: lost: 4 octets skipped\n"});
    Command command;
    command.write("cooked", pcap(113, {hex("0000 0001 0006 020000000001 0000 0004 F0F003") + kSector}));
    EXPECT_NE(command.run("cooked").out.find("#1  2024-05-06 07:08:09.000012Z  CAT 034"), std::string::npos);
}

} // namespace
