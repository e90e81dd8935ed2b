// What is sent to the network: recordings at their times, and live input as it comes.

#include <cmath>
#include <ctime>
#include <gtest/gtest.h>

#include "background.hpp"
#include "captures.hpp"
#include "command.hpp"
#include "pseudo_terminal.hpp"
#include "sender.hpp"
#include "support/client.hpp"
#include "support/receiver.hpp"

namespace {

using ast_test::Client;
using ast_test::octets_of;
using ast_test::Receiver;
using std::chrono::milliseconds;

// North markers of category 034, at 12:00:00 and with some other sector; a plot of 048; and a block that breaks.
const std::string kMarker = hex("22 0008 D0 190C 01 00");
const std::string kPlots = hex("30 0009 08 0053 08 012E");
const std::string kBroken = hex("30 0008 08 0053 08 01");
const std::string kTrailer = hex("00 00 00 0C FF");

std::string packet(const std::string &payload) { return ethernet(ipv4(udp(payload))); }

bool has(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

// A packet a second, of which one is text; ten times as fast.
TEST(Send, PlaysDatagramsAsTheyWereRecorded) {
    Command command;
    command.write("a.pcap", pcap(1, {packet(kPlots + kMarker), packet("GET / HTTP/1.1"), packet(kPlots + kTrailer),
                                     packet(kMarker + kBroken + "rest")}));
    Receiver receiver;
    const auto begin = Receiver::Clock::now();
    const Result result = command.run("--write " + receiver.url() + " --speed 10 a.pcap");
    EXPECT_GE(Receiver::Clock::now() - begin, milliseconds(300));
    EXPECT_LT(Receiver::Clock::now() - begin, milliseconds(2500));
    EXPECT_EQ(
        octets_of(receiver.receive(4)),
        (std::vector<std::string>{kPlots + kMarker, "GET / HTTP/1.1", kPlots + kTrailer, kMarker + kBroken + "rest"}));
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(has(result.err, "astdump: " + receiver.url() + ": 4 datagrams sent, late by ")) << result.err;
    EXPECT_EQ(receiver.receive(1, milliseconds(50)).size(), 0U);
}

// Of several inputs, those that follow begin at once; merged, they keep their times.
TEST(Send, GoesThroughFilesAgainAndTogether) {
    Command command;
    command.write("a.pcap", pcap(1, {packet(kPlots), packet(kPlots)}));
    command.write("b.pcap", pcap(1, {packet(kMarker)}));
    const struct {
        std::string arguments;
        std::vector<std::string> sent;
        int least_ms;
    } cases[] = {
        {"--speed 20 a.pcap b.pcap", {kPlots, kPlots, kMarker}, 50},
        {"--speed 20 a.pcap b.pcap --merge", {kPlots, kMarker, kPlots}, 50},
        {"--speed 20 a.pcap --loop 2", {kPlots, kPlots, kPlots, kPlots}, 100},
        {"--speed max --loop 2 a.pcap b.pcap --category 34", {kMarker, kMarker}, 0},
        {"--speed max --loop --count 3 a.pcap", {kPlots, kPlots, kPlots}, 0},
        {"--speed max --rate 1k a.pcap", {kPlots, kPlots}, 67},
        {"--speed max a.pcap --from 07:08:10", {kPlots}, 0},
        {"--speed max a.pcap --where squawk=456", {hex("30 0006 08 012E"), hex("30 0006 08 012E")}, 0},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.arguments);
        Receiver receiver;
        const auto begin = Receiver::Clock::now();
        const Result result = command.run("--write " + receiver.url() + ' ' + test.arguments);
        EXPECT_GE(Receiver::Clock::now() - begin, milliseconds(test.least_ms));
        EXPECT_LT(Receiver::Clock::now() - begin, milliseconds(900)) << "as fast as was asked for";
        EXPECT_EQ(octets_of(receiver.receive(test.sent.size())), test.sent) << result.err;
        EXPECT_EQ(receiver.receive(1, milliseconds(20)).size(), 0U);
    }
}

// Two markers from before and from behind midnight, half a second apart, and one without a time.
TEST(Send, GoesByTimesOfDayWhereThereIsNoOther) {
    const std::string before = hex("22 000A E0 190C 01 A8BFE0"), behind = hex("22 000A E0 190C 01 000020"),
                      untimed = hex("22 0007 C0 190C 01");
    Command command;
    command.write("a.ast", before + behind + untimed);
    Receiver receiver;
    const auto begin = Receiver::Clock::now();
    const Result result = command.run("--write " + receiver.url() + " a.ast --speed 5");
    EXPECT_GE(Receiver::Clock::now() - begin, milliseconds(100));
    EXPECT_LT(Receiver::Clock::now() - begin, milliseconds(2500));
    EXPECT_EQ(octets_of(receiver.receive(3)), (std::vector<std::string>{before, behind, untimed})) << result.err;
    EXPECT_TRUE(has(result.err, "3 datagrams sent, late by ")) << result.err;
}

// The seconds behind a key, in each line.
std::vector<double> seconds_of(const std::string &lines, const std::string &key) {
    std::vector<double> seconds;
    for (size_t at = lines.find(key); at != std::string::npos; at = lines.find(key, at + 1))
        seconds.push_back(std::stod(lines.substr(at + key.size())));
    return seconds;
}

// Markers of 23:59:59.5 and of half a second behind midnight, received on a day in 2024; then plots of two passes.
TEST(Send, ShiftsTimesToNow) {
    constexpr double kDay_s = 86400;
    Command command;
    const std::string before = hex("22 000A E0 190C 01 A8BFC0"), behind = hex("22 000A E0 190C 01 000040");
    command.write("a.pcap", pcap(1, {packet(before + kPlots), packet(behind), packet("text")}));
    command.write("b.ast", behind);
    const auto now_s = [] { return static_cast<double>(time(nullptr)); };
    const double begin_s = now_s();
    const Result result = command.run("--shift now --json a.pcap b.ast --write c.pcap --write c.ast");
    const std::vector<double> times = seconds_of(result.out, "\"I030\":");
    ASSERT_EQ(times.size(), 3U) << result.out;
    const double late_s = std::fmod(times[0] - std::fmod(begin_s, kDay_s) + kDay_s + kDay_s / 2, kDay_s) - kDay_s / 2;
    EXPECT_GE(late_s, -1);
    EXPECT_LE(late_s, now_s() - begin_s + 2);
    EXPECT_EQ(std::fmod(times[1] - times[0] + kDay_s, kDay_s), 1);
    EXPECT_EQ(std::fmod(times[2] * 2, 2), 1) << "the fraction stays";
    EXPECT_LE(std::fmod(times[2] - times[0] + kDay_s, kDay_s), now_s() - begin_s + 1) << "a file by itself";
    const std::string received = command.run("--json c.pcap").out;
    const size_t year = static_cast<size_t>(received.find("\"time\":\"") + 8);
    EXPECT_GE(std::stoi(received.substr(year)), 2025) << received;
    EXPECT_EQ(seconds_of(command.run("--json c.ast").out, "\"I030\":"), times);
    EXPECT_EQ(command.run("--shift then a.pcap").status, 2);
}

// More than is read at a time: neither waits for the other.
TEST(Send, ServesSeveralAlike) {
    Command command;
    const std::string large = hex("FA 2710") + std::string(9997, 'x');
    command.write("a.pcap", pcap(1, {packet(large), packet(large), packet(large), packet(large)}));
    Receiver one, other;
    Background tool(command, "--speed 4 a.pcap --quiet --write " + one.url() + " --write " + other.url());
    for (int i = 0; i < 4; ++i) {
        const auto first = one.receive(1), second = other.receive(1);
        ASSERT_EQ(first.size() + second.size(), 2U);
        EXPECT_LT(second[0].time - first[0].time, milliseconds(200));
    }
    tool.wait();
}

TEST(Send, SaysWhatHasFailed) {
    Command command;
    command.write("a.pcap", pcap(1, {packet(kPlots), packet(kPlots)}));
    std::string nobody;
    {
        const Receiver receiver;
        nobody = receiver.url();
    }
    const Result result = command.run("--write " + nobody + " --speed max a.pcap");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "astdump: " + nobody + ": 1 datagram sent; 1 datagram failed: Connection refused\n");
}

TEST(Send, RefusesInputsAndWhatMakesNoSense) {
    Command command;
    command.write("a.pcap", pcap(1, {packet(kPlots)}));
    const struct {
        std::string arguments;
        std::string error;
    } cases[] = {
        {"udp://127.0.0.1:18600 --write udp://127.0.0.1:18600", "is an input"},
        {"udp://0.0.0.0:18600 --write udp://127.0.0.1:18600", "is an input"},
        {"udp://0.0.0.0:18600 --write udp://localhost:18600", "is an input"},
        {"udp://239.1.1.1:18600 --write udp://239.1.1.1:18600 --interface lo", "is an input"},
        {"a.pcap --write udp://255.255.255.255:8600", "broadcast"},
        {"a.pcap --write udp://0.0.0.0:8600", "broadcast"},
        {"a.pcap --write udp://127.0.0.1", "is neither udp://HOST:PORT nor"},
        {"a.pcap --write udp://239.1.1.1:8600 --interface none0", "No such device"},
        {"a.pcap --speed 2 --write b.pcap", "are for --write udp://"},
        {"a.pcap --speed 0 --write udp://127.0.0.1:9", "--speed: '0' is neither"},
        {"a.pcap --speed fast --write udp://127.0.0.1:9", "--speed: 'fast' is neither"},
        {"a.pcap --rate 5x --write udp://127.0.0.1:9", "--rate: '5x'"},
        {"a.pcap --ttl 300 --write udp://127.0.0.1:9", "--ttl: '300'"},
        {"a.pcap --loop 0 --write udp://127.0.0.1:9", "--loop: '0'"},
        {"- --loop --write udp://127.0.0.1:9 < a.pcap", "--loop is for files"},
        {"tcp://127.0.0.1:18600 --listen tcp://127.0.0.1:18600", "is an input"},
        {"tcp://127.0.0.1:18600 --listen tcp://0.0.0.0:18600", "is an input"},
        {"a.pcap --listen udp://127.0.0.1:18600", "to which clients can connect"},
        {"a.pcap --listen here", "is neither"},
        {"a.pcap --write b.pcap --write b.pcap", "different files"},
    };
    for (const auto &test : cases) {
        const Result result = command.run(test.arguments);
        EXPECT_EQ(result.status, 2) << test.arguments;
        EXPECT_TRUE(has(result.err, test.error)) << test.arguments << '\n' << result.err;
    }
}

// A packet a second, sent as it comes: where it is in the recording, while it waits for the next one.
TEST(Send, ShowsOnATerminalHowFarItIs) {
    Command command;
    command.write("a.pcap", pcap(1, {packet(kPlots), packet(kPlots), packet(kMarker)}));
    Receiver receiver;
    PseudoTerminal terminal(command, "--write " + receiver.url() + " a.pcap", 160);
    terminal.wait_for("sent up to 2024-05-06 07:08:10");
    terminal.wait_for(" datagrams/s, late by ");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST(Send, IsBrokenOffInTheMiddle) {
    Command command;
    command.write("a.pcap", pcap(1, {packet(kPlots), packet(kMarker)}));
    Receiver receiver;
    Background tool(command, "--write " + receiver.url() + " --speed 0.0001 a.pcap");
    EXPECT_EQ(octets_of(receiver.receive(1)), std::vector<std::string>{kPlots});
    const Result result = tool.end(SIGINT);
    EXPECT_EQ(result.status, -1) << "by the signal";
    EXPECT_TRUE(has(result.err, ": 1 datagram sent, late by ")) << result.err;
}

// One datagram after the other: what is relayed waits for nothing behind it.
TEST(Relay, PassesOnEachDatagramAtOnce) {
    Command command;
    Receiver one, other;
    Background tool(command, "udp://127.0.0.1:0 --where squawk --write " + one.url() + " --write " + other.url() +
                                 " --write kept.pcap");
    const std::string report = tool.wait_for_report("\n");
    const Sender sender("127.0.0.1", static_cast<uint16_t>(std::stoi(report.substr(report.rfind(':') + 1))));
    for (int i = 0; i < 20; ++i) {
        sender.send(kMarker);
        sender.send(kPlots + kMarker + kPlots);
        EXPECT_EQ(octets_of(one.receive(1)), std::vector<std::string>{kPlots + kPlots});
        EXPECT_EQ(octets_of(other.receive(1)), std::vector<std::string>{kPlots + kPlots});
    }
    const Result result = tool.end();
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(has(result.err, one.url() + ": 20 datagrams sent, late by ")) << result.err;
    EXPECT_TRUE(has(command.run("--stats kept.pcap").out, "048              40")) << result.err;
}

// Behind some words of a report.
uint16_t port_behind(const std::string &report, const std::string &words) {
    return static_cast<uint16_t>(std::stoi(report.substr(report.find(words) + words.size())));
}

// One client reads, and one is stuck; 24 MB go by.
TEST(Relay, ServesThoseWhoConnect) {
    Command command;
    Background tool(command, "udp://127.0.0.1:0 --listen tcp://127.0.0.1:0");
    const std::string at = "astdump: tcp://127.0.0.1:0: listening on 127.0.0.1:",
                      from = "astdump: listening on 127.0.0.1:";
    const uint16_t port = port_behind(tool.wait_for_report(at), at);
    const Sender sender("127.0.0.1", port_behind(tool.wait_for_report(from), from));
    const Client reading(port), stuck(port, true);
    for (const Client *client : {&reading, &stuck})
        tool.wait_for_report("connected to 127.0.0.1:" + std::to_string(client->port()) + '\n');
    const std::string large = hex("FA EA60") + std::string(59'997, 'x');
    constexpr size_t kDatagrams = 400;
    for (size_t i = 0; i < kDatagrams; ++i) {
        sender.send(large);
        EXPECT_TRUE(reading.read(large.size()) == large) << i;
    }
    const std::string who = "astdump: tcp://127.0.0.1:0: 127.0.0.1:" + std::to_string(stuck.port());
    tool.wait_for_report(who + " takes less than is sent, and loses blocks\n");
    const Result result = tool.end();
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(has(result.err, who + " has lost ")) << result.err;
    EXPECT_TRUE(has(result.err, " failed: taken too slowly\n")) << result.err;
}

TEST(Relay, ConnectsAgain) {
    Command command;
    Server server;
    const std::string url = "tcp://127.0.0.1:" + std::to_string(server.port()), from = "listening on 127.0.0.1:";
    Background tool(command, "udp://127.0.0.1:0 --write " + url);
    const Sender sender("127.0.0.1", port_behind(tool.wait_for_report(from), from));
    server.accept();
    server.reset();
    tool.wait_for_report(url + ": " + url.substr(6) + " has gone: Connection reset by peer\n");
    tool.wait_for_report(url + ": connected to " + url.substr(6) + '\n');
    server.accept();
    sender.send(kMarker);
    EXPECT_EQ(server.read(kMarker.size()), kMarker);
    const Result result = tool.end();
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(has(result.err, url + ": 1 datagram sent, late by ")) << result.err;
}

} // namespace
