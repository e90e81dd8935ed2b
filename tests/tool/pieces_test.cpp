// Pieces of a file, put together, are the whole: on the library's own parts, and through the tool.

#include <random>

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"
#include "source/input.hpp"

namespace {

using namespace ast::recording;

constexpr size_t kBlocks = 300;

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

// Datagrams of several blocks, one of them in fragments, on which another one comes in between.
std::vector<std::string> udp_frames(size_t first) {
    std::vector<std::string> frames;
    for (size_t i = first; i < first + kBlocks / 3; i += 4) {
        frames.push_back(ethernet(ipv4(udp(block(i) + block(i + 1)))));
        const std::string datagram = udp(block(i + 2) + block(i) + block(i + 1));
        frames.push_back(ethernet(ipv4(datagram.substr(0, 16), 0, true, i)));
        frames.push_back(ethernet(ipv6(udp(block(i + 3)))));
        frames.push_back(ethernet(ipv4(datagram.substr(16), 16, false, i)));
    }
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

// What is said of each block but its number and that of its packet.
std::string read(const std::string &file, const FramingKind *framing, const OctetRange &range) {
    static Chunk chunk(4096);
    ReadOptions options;
    options.range = range;
    const Origin origin{.path = "", .name = "", .octets = octets_of(file), .framing = framing};
    Input input(origin, options, nullptr, {});
    std::string read;
    while (input.fill(chunk))
        for (const Datagram &datagram : chunk.datagrams()) {
            const std::string time = datagram.time ? std::to_string(datagram.time->seconds) + '.' +
                                                         std::to_string(datagram.time->nanoseconds)
                                                   : "";
            const uint64_t port = datagram.endpoints ? datagram.endpoints->destination.port : 0;
            each_block(datagram.octets, [&](Octets octets) {
                const auto place = datagram.offset + static_cast<uint64_t>(octets.data() - datagram.octets.data());
                read.append(reinterpret_cast<const char *>(octets.data()), octets.size());
                read += ' ' + std::to_string(place) + ' ' + std::to_string(port) + ' ' + time + '\n';
            });
        }
    return read;
}

struct PiecesCase {
    const char *name;
    std::string file;
    const char *framing = nullptr; // null for what a capture tells by itself
};

TEST(Pieces, AreTheWholeForAnyCut) {
    constexpr int kRounds = 1000;
    constexpr uint64_t kLeadOctets = 512; // shorter than is usual, so that most pieces have to find their place
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
    std::minstd_rand random(1);
    for (const PiecesCase &test : cases) {
        const FramingKind *const framing = test.framing ? find_framing(test.framing) : nullptr;
        const std::string whole = read(test.file, framing, {});
        ASSERT_GT(whole.size(), kBlocks * 10) << test.name;
        for (int round = 0; round < kRounds; ++round) {
            std::vector<uint64_t> cuts(1 + random() % 4);
            for (uint64_t &cut : cuts) cut = random() % test.file.size() + 1;
            std::ranges::sort(cuts);
            cuts.push_back(UINT64_MAX);
            std::string pieces, places;
            uint64_t begin = 0;
            for (const uint64_t end : cuts) {
                if (begin < end)
                    pieces += read(test.file, framing, {.begin = begin, .end = end, .lead_octets = kLeadOctets});
                begin = end;
                places += ' ' + std::to_string(end);
            }
            ASSERT_EQ(pieces, whole) << test.name << ", cut at" << places;
        }
    }
}

} // namespace
