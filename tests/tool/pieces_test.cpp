// Pieces of a file, put together, are the whole: on the library's own parts, and through the tool.

#include <random>

#include <gtest/gtest.h>

#include "base/silence.hpp"
#include "captures.hpp"
#include "command.hpp"
#include "source/input.hpp"

namespace {

using namespace ast::recording;

constexpr size_t kBlocks = 240;

// Category 034, a north or a sector message with a time of its own: of 11 octets, or of 10.
std::string block(size_t number) {
    const std::string time = be32(number * 77).substr(1);
    return number % 3 == 0 ? hex("22 000B F0 190C 02") + time + hex("40") : hex("22 000A E0 190C 01") + time;
}

template <typename Wrap>
std::string wrapped(Wrap wrap) {
    std::string file;
    for (size_t i = 0; i < kBlocks; ++i) file += wrap(i);
    return file;
}

// From 22:00 on, past midnight.
std::string final_frame(size_t number) {
    const size_t centiseconds = (7920000 + number * 5000) % 8640000;
    return be16(block(number).size() + 12) + hex("00 01 05") + be32(centiseconds).substr(1) + block(number) +
           hex("A5A5A5A5");
}

std::string hdlc_frame(size_t number) {
    const std::string content = hex("FF03") + block(number);
    unsigned crc = 0xFFFF;
    for (const char c : content) {
        crc ^= static_cast<uint8_t>(c);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ ((crc & 1) != 0 ? 0x8408 : 0);
    }
    std::string frame = hex("7E");
    for (const char c : content + static_cast<char>(~crc) + static_cast<char>(~crc >> 8))
        frame += c == 0x7D || c == 0x7E ? std::string{0x7D, static_cast<char>(c ^ 0x20)} : std::string{c};
    return frame + hex("7E");
}

std::string digits(const std::string &octets) {
    std::string text;
    for (const char c : octets) {
        constexpr const char *kDigits = "0123456789ABCDEF";
        text += {kDigits[static_cast<uint8_t>(c) >> 4], kDigits[static_cast<uint8_t>(c) & 15], ' '};
    }
    return text;
}

// Two records to a block.
std::string json(size_t number, const char *begin, const char *end) {
    std::string records;
    for (const char *type : {"1", "2"})
        records += std::string(begin) + "{\"block\":" + std::to_string(number + 1) +
                   ",\"category\":34,\"I010\":{\"SAC\":25,\"SIC\":12},\"I000\":" + type +
                   ",\"I030\":" + std::to_string(number) + "}" + end;
    return records;
}

// With a line for each member.
std::string indented(std::string json) {
    for (size_t at = 0; (at = json.find(",\"", at)) != std::string::npos; ++at) json.insert(at + 1, "\n  ");
    return json;
}

// Datagrams of several blocks, one of them in fragments, between which another one comes. One lacks its end.
std::vector<std::string> udp_frames(size_t first) {
    std::vector<std::string> frames;
    for (size_t i = first; i < first + kBlocks / 3; i += 4) {
        frames.push_back(ethernet(ipv4(udp(block(i) + block(i + 1)))));
        const std::string datagram = udp(block(i + 2) + block(i) + block(i + 1));
        frames.push_back(ethernet(ipv4(datagram.substr(0, 16), 0, true, i)));
        frames.push_back(ethernet(ipv6(udp(block(i + 3)))));
        frames.push_back(ethernet(ipv4(datagram.substr(16), 16, false, i)));
    }
    frames.insert(frames.begin() + 50, ethernet(ipv4(udp(block(0)), 0, true, 9999)));
    return frames;
}

// Of a connection: segments that end anywhere in a block, two of them in the wrong order.
std::vector<std::string> tcp_frames(bool is_from_start) {
    constexpr size_t kSegmentOctets = 37;
    std::vector<std::string> frames;
    const std::string stream = wrapped(block);
    if (is_from_start) frames.push_back(ethernet(ipv4_tcp(tcp(999, "", kSyn))));
    for (size_t at = is_from_start ? 0 : 5; at < stream.size(); at += kSegmentOctets)
        frames.push_back(ethernet(ipv4_tcp(tcp(1000 + at, stream.substr(at, kSegmentOctets)))));
    std::swap(frames[20], frames[21]);
    return frames;
}

std::vector<std::string> operator+(std::vector<std::string> one, const std::vector<std::string> &other) {
    for (size_t i = 0; i < other.size(); ++i)
        one.insert(one.begin() + static_cast<std::ptrdiff_t>(std::min(i * 3, one.size())), other[i]);
    return one;
}

// The second interface is described when it is needed, and the section behind it has another byte order.
std::string sections() {
    Pcapng file;
    file.section(false).interface(1);
    uint64_t time = 0;
    for (const std::string &frame : udp_frames(0)) file.packet(0, ++time, frame);
    file.interface(101);
    for (size_t i = 0; i < kBlocks; ++i)
        file.packet(i % 2 * 1, ++time, i % 2 == 0 ? udp_frames(0)[0] : ipv4(udp(block(i))));
    return file.octets;
}

// What is read: of each block all but its number and that of its packet, and what is told, but that it is nothing.
struct Whole {
    std::string blocks;
    std::string told;

    void read(const std::string &file, const FramingKind *framing, const OctetRange &range) {
        static Chunk chunk(4096);
        ReadOptions options;
        options.range = range;
        Input input({.path = "", .name = "", .octets = octets_of(file), .framing = framing}, options, nullptr, {});
        while (input.fill(chunk)) {
            for (const Datagram &datagram : chunk.datagrams()) add(datagram);
            for (const Report &report : chunk.reports().list())
                if (!report.detail.starts_with("holds no"))
                    told += std::to_string(report.data.reason) + ' ' + report.detail + '\n';
        }
    }

private:
    void add(const Datagram &datagram) {
        const Time time = datagram.time.value_or(Time{});
        const uint64_t port = datagram.endpoints ? datagram.endpoints->destination.port : 0;
        each_block(datagram.octets, [&](Octets octets) {
            const auto place = datagram.offset + static_cast<uint64_t>(octets.data() - datagram.octets.data());
            blocks.append(reinterpret_cast<const char *>(octets.data()), octets.size());
            for (const uint64_t number : {place, port, static_cast<uint64_t>(time.seconds), uint64_t{time.nanoseconds}})
                blocks += ' ' + std::to_string(number);
            blocks += '\n';
        });
    }
};

struct PiecesCase {
    const char *name;
    std::string file;
    const char *framing = nullptr; // null for what a capture tells by itself
};

TEST(Pieces, AreTheWholeForAnyCut) {
    constexpr int kRounds = AST_CUTS;
    constexpr uint64_t kLeadOctets = 1024; // shorter than is usual, so that most pieces have to find their place
    const PiecesCase cases[] = {
        {"raw", wrapped(block), "raw"},
        {"final", wrapped(final_frame), "final"},
        {"gps", std::string(2200, '\xCD') + wrapped([](size_t i) {
                    return block(i) + hex("38 41 B8 01 01 00 00 00") + be16(i);
                }),
         "gps"},
        {"oradis", wrapped([](size_t i) { return be16(block(i).size() + 6) + be32(i * 1000) + block(i); }), "oradis"},
        {"mac-llc", wrapped([](size_t i) {
             const std::string content = hex("F0F003") + block(i);
             return hex("0102030405060A0B0C0D0E0F") + be16(content.size()) + content +
                    std::string(46 - content.size(), '\0');
         }),
         "mac-llc"},
        {"hdlc", wrapped(hdlc_frame), "hdlc"},
        {"hex", wrapped([](size_t i) { return digits(block(i)) + "\r\n"; }), "hex"},
        {"text", wrapped([](size_t i) { return digits(block(i)) + "and\n" + digits(block(i + 1)) + "\n\n"; }), "text"},
        {"JSON", wrapped([](size_t i) { return json(i, "", "\n"); }), "json"},
        {"JSON, indented", indented(wrapped([](size_t i) { return json(i, "", "\n"); })), "json"},
        {"JSON, an array", '[' + wrapped([](size_t i) { return json(i, i == 0 ? " " : ",", ""); }) + ']', "json"},
        {"pcap", pcap(1, udp_frames(0))},
        {"pcap, TCP", pcap(1, udp_frames(0) + tcp_frames(true))},
        {"pcap, TCP from its midst", pcap(1, udp_frames(0) + tcp_frames(false))},
        {"pcapng", pcapng(1, udp_frames(0))},
        {"pcapng, TCP", pcapng(1, udp_frames(0) + tcp_frames(true))},
        {"pcapng, a late interface", sections()},
    };
    const Silence silence;
    std::minstd_rand random(1);
    for (const PiecesCase &test : cases) {
        const FramingKind *const framing = test.framing ? find_framing(test.framing) : nullptr;
        Whole whole;
        whole.read(test.file, framing, {});
        ASSERT_GT(whole.blocks.size(), kBlocks * 10) << test.name;
        for (int round = 0; round < kRounds; ++round) {
            std::vector<uint64_t> cuts(1 + random() % 4);
            for (uint64_t &cut : cuts) cut = random() % test.file.size() + 1;
            std::ranges::sort(cuts);
            cuts.push_back(UINT64_MAX);
            Whole pieces;
            std::string places;
            uint64_t begin = 0;
            for (const uint64_t end : cuts) {
                if (begin < end)
                    pieces.read(test.file, framing, {.begin = begin, .end = end, .lead_octets = kLeadOctets});
                begin = end;
                places += ' ' + std::to_string(end);
            }
            ASSERT_EQ(pieces.told, whole.told) << test.name << ", cut at" << places;
            ASSERT_EQ(pieces.blocks, whole.blocks) << test.name << ", cut at" << places;
        }
    }
}

// Three blocks take 31 octets; the 150th begins at octet 1540, and the next one at 1550.
TEST(Pieces, KeepTheirOffsetsAndCountFromOne) {
    const struct {
        const char *range;
        size_t blocks;
        const char *begin;
    } cases[] = {
        {"1541-1551", 1, R"({"block":1,"record":1,"offset":1550,)"},
        {"1550-1560", 1, R"({"block":1,"record":1,"offset":1550,)"},
        {"1541-", 90, R"({"block":1,"record":1,"offset":1550,)"},
        {"-1550", 150, R"({"block":1,"record":1,"offset":0,)"},
        {"0-1k", 97, R"({"block":1,"record":1,"offset":0,)"},
        {"1541-1550", 0, ""},
    };
    Command command;
    command.write("raw", wrapped(block));
    // Packets of 36 octets behind a header of 24: the third begins at octet 96.
    command.write("pcap", pcap(1, std::vector(10, ethernet(ipv4(udp(block(0)))).substr(0, 20))));
    EXPECT_EQ(command.run("--quiet -v --octets 61-132 pcap").err.substr(0, 24), "astdump: pcap: packet 1:");
    for (const auto &[range, blocks, begin] : cases) {
        const Result result = command.run(std::string("--json --octets ") + range + " raw");
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(std::ranges::count(result.out, '\n'), static_cast<std::ptrdiff_t>(blocks)) << range;
        EXPECT_EQ(result.out.substr(0, std::string(begin).size()), begin) << range;
        EXPECT_EQ(result.err, blocks == 0 ? "astdump: raw: holds no blocks that begin in the range\n" : "") << range;
    }
}

TEST(Pieces, AreOfOneFileThatCanBeCut) {
    const struct {
        const char *arguments;
        const char *error;
    } cases[] = {
        {"--octets 5 raw", "--octets: '5' is no range such as 1000000-2000000, 1M- or -1M\n"},
        {"--octets - raw", "--octets: '-' is no range such as 1000000-2000000, 1M- or -1M\n"},
        {"--octets 1-x raw", "--octets: '1-x' is no range such as 1000000-2000000, 1M- or -1M\n"},
        {"--octets 1k-1000 raw", "--octets: '1k-1000' is a range that ends where it begins, or before\n"},
        {"--octets 1-2 raw raw", "--octets takes one FILE, which has an end: neither several, nor standard input, an "
                                 "address or --follow\n"},
        {"--octets 1-2 - < raw", "--octets takes one FILE, which has an end: neither several, nor standard input, an "
                                 "address or --follow\n"},
        {"--octets 1- --from 12:00 raw",
         "--octets: --from and --to need a date, since no part has the first of the file\n"},
        {"--octets 0-9 raw.gz", "raw.gz: is compressed, so that only its beginning can be found; unpack it to read a "
                                "range of it\n"},
        {"--octets 0-9 /dev/null", "/dev/null: is no file of which a range can be read\n"},
    };
    Command command;
    command.write("raw", wrapped(block));
    command.run("--version; gzip -k raw");
    for (const auto &[arguments, error] : cases) {
        const Result result = command.run(std::string("--quiet ") + arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.err, std::string("astdump: ") + error) << arguments;
    }
}

} // namespace
