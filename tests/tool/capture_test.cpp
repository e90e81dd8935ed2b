// Forms of captures, what they say of their packets, and what is left of them when they are damaged.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"

namespace {

const std::string kSector = hex("22 000B F0 190C 02 546080 40");
const std::string kIp = ipv4(udp(kSector));
const std::string kFrame = ethernet(kIp); // of 53 octets
const std::string kRoute = "10.0.0.1:4000 > 239.1.1.1:8600";
const std::string kRoute6 = "[2001:db8::1]:4000 > [ff02::1]:8600";

constexpr uint64_t kSecond = 1714979289; // 2024-05-06 07:08:09, 0x663881D9

struct CaptureCase {
    const char *name;
    std::string octets;
    std::string blocks;       // a line each: time of day and route
    std::string reports = ""; // behind the name of the tool
};

void expect(const CaptureCase &test) {
    SCOPED_TRACE(test.name);
    Command command;
    command.write("c", test.octets);
    const std::string lines = " | sed -n 's/^#[0-9]* *2024-05-06 \\(.*\\)  CAT.*/\\1/p'";
    const Result result = command.run("c" + lines);
    EXPECT_EQ(result.out, test.blocks);
    EXPECT_EQ(result.err, test.reports);
    EXPECT_EQ(command.run("- <c" + lines).out, test.blocks);
}

std::string at(const std::string &time, const std::string &route = kRoute) { return time + "Z  " + route + '\n'; }

const std::string kFirst = at("07:08:09.000012");

TEST(Captures, OfPcapTellTheirTimesInManyForms) {
    const std::string rest = hex("0000 0000 0000 0000 0004 0000 0000 0001");
    const std::string rest_reversed = hex("0000 0000 0000 0000 0000 0400 0100 0000");
    const std::string lengths = hex("00000035 00000035"), lengths_reversed = hex("35000000 35000000");
    const std::string nanoseconds = at("07:08:09.000012345");
    const CaptureCase cases[] = {
        {"microseconds", hex("A1B2C3D4 0002 0004") + rest + hex("663881D9 0000000C") + lengths + kFrame, kFirst},
        {"microseconds, the other byte order",
         hex("D4C3B2A1 0200 0400") + rest_reversed + hex("D9813866 0C000000") + lengths_reversed + kFrame, kFirst},
        {"nanoseconds", hex("A1B23C4D 0002 0004") + rest + hex("663881D9 00003039") + lengths + kFrame, nanoseconds},
        {"nanoseconds, the other byte order",
         hex("4D3CB2A1 0200 0400") + rest_reversed + hex("D9813866 39300000") + lengths_reversed + kFrame, nanoseconds},
        {"longer packet headers",
         hex("A1B2CD34 0002 0004") + rest + hex("663881D9 0000000C") + lengths + hex("00000002 0008 0000") + kFrame,
         kFirst},
        {"longer packet headers, the other byte order",
         hex("34CDB2A1 0200 0400") + rest_reversed + hex("D9813866 0C000000") + lengths_reversed +
             hex("02000000 0800 0000") + kFrame,
         kFirst},
        {"version 2.2, the length on the wire first",
         hex("A1B2C3D4 0002 0002") + rest + hex("663881D9 0000000C 00000000 00000035") + kFrame, kFirst},
        {"version 2.3, the length on the wire first",
         hex("A1B2C3D4 0002 0003") + rest + hex("663881D9 0000000C 00000040 00000035") + kFrame, kFirst},
        {"more than a second of microseconds",
         hex("A1B2C3D4 0002 0004") + rest + hex("663881D8 000F424C") + lengths + kFrame, kFirst},
        {"Ethernet with a checksum of four octets",
         hex("A1B2C3D4 0002 0004 00000000 00000000 00040000 44000001 663881D9 0000000C 00000039 00000039") + kFrame +
             hex("12345678"),
         kFirst},
        {"version 2.5", hex("A1B2C3D4 0002 0005") + rest, "",
         "astdump: c: captures of pcap version 2.5 are not supported\nastdump: lost: 1 input not read to the end\n"},
    };
    for (const CaptureCase &test : cases) expect(test);
}

TEST(Captures, OfPcapngHaveInterfacesOfTheirOwn) {
    Pcapng capture;
    capture.section(true)
        .interface(1)
        .interface(101, Pcapng::resolution(true, 9))
        .interface(228, Pcapng::resolution(true, 0x80 | 10) + Pcapng::offset(true, 1000000000))
        .interface(105)
        .block(5, std::string(12, '\0')) // statistics
        .packet(0, kSecond * 1000000 + 12, kFrame)
        .packet(1, kSecond * 1000000000 + 999999999, ipv6(udp(kSector)))
        .packet(2, (kSecond - 1000000000) * 1024 + 512, kIp)
        .packet(3, 0, kFrame)
        .block(0xBAD, std::string(1000000, '\x06'))
        .old_packet(0, kSecond * 1000000 + 13, kFrame);
    capture.section(false)
        .interface(113, Pcapng::resolution(false, 0) + Pcapng::offset(false, static_cast<uint64_t>(-60)))
        .interface(1, Pcapng::resolution(false, 0x80 | 63))
        .interface(1, Pcapng::resolution(false, 20))
        .packet(0, kSecond + 60, hex("0000 0001 0006 020000000001 0000 0800") + kIp)
        .packet(1, 0x7FFFFFFFFFFFFFFF, kFrame)
        .packet(2, 0, kFrame);
    expect({"two sections", capture.octets,
            kFirst + at("07:08:09.999999999", kRoute6) + at("07:08:09.500000") + at("07:08:09.000013") +
                at("07:08:09.000000"),
            "astdump: c: packet 4: not dissected: frames of link type IEEE802_11 are not supported\n"
            "astdump: c: packet 8: not dissected: its time is too fine to be read\n"
            "astdump: lost: 2 packets not dissected\n"});
}

TEST(Captures, OfSimplePacketsHoldWhatTheirInterfaceCaptures) {
    Pcapng capture;
    capture.section(false).interface(1, "", 52).simple_packet(kFrame.substr(0, 52), 53);
    capture.section(false).interface(1).simple_packet(kFrame, 53);
    Command command;
    command.write("c", capture.octets);
    const Result result = command.run("--list c");
    EXPECT_EQ(result.err, "astdump: c: packet 1: cut by the capture after 10 octets\n"
                          "astdump: lost: 1 datagram cut by the capture, 10 octets skipped\n");
    EXPECT_NE(result.out.find("Sector"), std::string::npos) << result.out;
}

// What stands behind the headers and the octets of a datagram does not count, however long it is.
TEST(Captures, HoldLongPackets) {
    const std::string second = at("07:08:10.000012"), third = at("07:08:11.000012");
    for (const size_t octets : {65664U, 65665U, 98000U, 200000U, 262144U}) {
        std::string frame = kFrame;
        frame.resize(octets);
        expect({"pcap", pcap(1, {kFrame, frame, kFrame}), kFirst + second + third});
        expect({"pcapng", pcapng(1, {kFrame, frame, kFrame}), kFirst + second + third});
    }
}

TEST(Captures, HoldIpHeadersOfAnyLength) {
    std::string options = kIp, segmented = kIp, jumbo = ipv6(udp(kSector));
    options.replace(0, 4, hex("4700 002F"));
    options.insert(20, hex("94040000 01010100"));
    segmented.replace(2, 2, hex("0000"));
    jumbo.replace(4, 2, hex("0000"));
    // Hop-by-hop options, routing, authentication and destination options, of 8, 16, 12 and 8 octets.
    std::string chain = ipv6(hex("2B00 010400000000") + hex("3301 0000 00000000 0000000000000000") +
                             hex("3C01 0000 00000001 00000002") + hex("1100 010400000000") + udp(kSector));
    chain[6] = 0;
    // Destination options before the fragment header, and again within the datagram.
    const std::string whole = hex("1100 010400000000") + udp(kSector);
    const auto fragment = [&](size_t from, size_t to, const std::string &place) {
        std::string packet =
            ipv6(hex("2C00 010400000000 3C00") + hex(place) + hex("00000063") + whole.substr(from, to - from));
        packet[6] = 60;
        return packet;
    };
    const CaptureCase cases[] = {
        {"options of IPv4", pcap(101, {options}), kFirst},
        {"no length of IPv4", pcap(101, {segmented}), kFirst},
        {"no length of IPv6", pcap(101, {jumbo}), at("07:08:09.000012", kRoute6)},
        {"four extension headers", pcap(101, {chain}), at("07:08:09.000012", kRoute6)},
        {"extension headers around fragments", pcap(101, {fragment(8, 27, "0008"), fragment(0, 8, "0001")}),
         at("07:08:10.000012", kRoute6)},
        {"a header length of IPv4 that is too short", pcap(101, {hex("44") + kIp.substr(1)}), "",
         "astdump: c: packet 1: not dissected: IPv4 header of 16 octets\nastdump: lost: 1 packet not dissected\n"},
        {"an extension header that is cut short", pcap(101, {chain.substr(0, 55)}), "",
         "astdump: c: packet 1: not dissected: IPv6 extension header cut short\n"
         "astdump: lost: 1 packet not dissected\n"},
        {"IPv6 that is cut short", pcap(101, {ipv6(udp(kSector + kSector)).substr(0, 60)}),
         at("07:08:09.000012", kRoute6),
         "astdump: c: packet 1: cut by the capture after 12 octets\n"
         "astdump: lost: 1 datagram cut by the capture, 1 octet skipped\n"},
        {"UDP with a length below its header", pcap(101, {kIp.substr(0, 24) + hex("0007") + kIp.substr(26)}), "",
         "astdump: c: packet 1: not dissected: UDP length below that of its header\n"
         "astdump: lost: 1 packet not dissected\n"},
    };
    for (const CaptureCase &test : cases) expect(test);
}

TEST(Captures, OfPcapGoOnBehindDamagedPacketHeaders) {
    const std::string whole = pcap(1, {kFrame, kFrame, kFrame, kFrame});
    const size_t header = 24, packet = 16 + kFrame.size(), captured = 8;
    const auto damaged = [&](size_t number, const char *octets) {
        std::string file = whole;
        return file.replace(header + number * packet + captured, 4, hex(octets));
    };
    const std::string third_and_fourth = at("07:08:11.000012") + at("07:08:12.000012");
    const CaptureCase cases[] = {
        {"a length that none has", damaged(1, "80000035"), kFirst + third_and_fourth,
         "astdump: c: offset 93: 69 octets that are no pcap frame; skipped\n"
         "astdump: lost: 69 octets skipped\n"},
        // Behind ten octets more, it takes the rest of the third packet to find the fourth one.
        {"a length that leads into the next packet", damaged(1, "0000003F"),
         kFirst + at("07:08:10.000012") + at("07:08:12.000012"),
         "astdump: c: offset 172: 59 octets that are no pcap frame; skipped\n"
         "astdump: lost: 59 octets skipped\n"},
        {"the last packet", damaged(3, "80000035"), kFirst + at("07:08:10.000012") + at("07:08:11.000012"),
         "astdump: c: a packet claims 2147483701 octets, more than any has, and nothing behind it can be read\n"
         "astdump: lost: 1 input not read to the end\n"},
        {"a length past the end", damaged(3, "00000037"), kFirst + at("07:08:10.000012") + at("07:08:11.000012"),
         "astdump: c: the last packet is cut off after 69 octets\nastdump: lost: 1 input not read to the end\n"},
    };
    for (const CaptureCase &test : cases) expect(test);
}

// More than is read at a time lies between what is damaged and what is not.
TEST(Captures, FindTheirPlaceAgainFarBehindDamage) {
    const std::string good = pcap(1, {kFrame, kFrame, kFrame});
    const std::string packet = good.substr(24, 16 + kFrame.size());
    std::string noise(700001, '\0');
    uint32_t state = 1;
    for (char &octet : noise) {
        state = state * 1664525 + 1013904223;
        octet = static_cast<char>(state >> 24 | 0x80);
    }
    expect({"pcap", good + noise + packet + packet,
            kFirst + at("07:08:10.000012") + at("07:08:11.000012") + kFirst + kFirst,
            "astdump: c: offset 231: 700001 octets that are no pcap frame; skipped\n"
            "astdump: lost: 700001 octets skipped\n"});
}

TEST(Captures, OfPcapngGoOnBehindDamagedBlocks) {
    // A section of 28 octets, an interface of 20, and packets of 88.
    const std::string whole = pcapng(1, {kFrame, kFrame, kFrame});
    const auto damaged = [&](size_t place, const char *octets) {
        std::string file = whole;
        return file.replace(place, hex(octets).size(), hex(octets));
    };
    const std::string third = at("07:08:11.000012"), others = at("07:08:10.000012") + third;
    const std::string skipped = "astdump: c: offset 48: 88 octets that are no pcapng frame; skipped\n"
                                "astdump: lost: 88 octets skipped\n";
    const std::string undissected = "astdump: lost: 1 packet not dissected\n";
    const CaptureCase cases[] = {
        {"a length", damaged(52, "59000000"), others, skipped},
        {"a great length", damaged(52, "58000001"), others, skipped},
        {"a second length", damaged(132, "FF"), kFirst + others},
        {"both lengths of a packet", damaged(52, "FF"), others, skipped},
        {"the second length of a section", damaged(24, "1D"), kFirst + others},
        {"a number of an interface", damaged(56, "01"), others,
         "astdump: c: packet 1: not dissected: its interface is not described\n" + undissected},
        {"octets that are captured", damaged(68, "39"), others,
         "astdump: c: packet 1: not dissected: it claims more octets than its block has\n" + undissected},
        {"the byte order of a section", whole + damaged(8, "00").substr(0, 48) + whole.substr(48, 88),
         kFirst + others + kFirst,
         "astdump: c: offset 312: 28 octets that are no pcapng frame; skipped\nastdump: lost: 28 octets skipped\n"},
        {"the version of all", damaged(12, "02"), "",
         "astdump: c: a section of pcapng version 2 is not supported, and nothing behind it can be read\n"
         "astdump: lost: 1 input not read to the end\n"},
        {"the length of the last", damaged(48 + 2 * 88 + 4, "00000000"), kFirst + at("07:08:10.000012"),
         "astdump: c: a block claims 0 octets, and nothing behind it can be read\n"
         "astdump: lost: 1 input not read to the end\n"},
        {"the last octet", whole.substr(0, whole.size() - 1), kFirst + at("07:08:10.000012"),
         "astdump: c: the last block is cut off after 87 octets\nastdump: lost: 1 input not read to the end\n"},
    };
    for (const CaptureCase &test : cases) expect(test);
}

} // namespace
