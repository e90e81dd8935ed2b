// Captures that follow one another.

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "background.hpp"
#include "captures.hpp"
#include "command.hpp"
#include "sender.hpp"

namespace {

const std::string kPlots = hex("30 0009 08 0053 08 012E");
constexpr size_t kCaptureOctets = 24 + 16 + 60; // of one packet of them

// The names of captures, in their order.
std::vector<std::string> captures(const Command &command, const std::string &beginning) {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(command.directory()))
        if (const std::string name = entry.path().filename().string(); name.starts_with(beginning))
            names.push_back(name);
    std::ranges::sort(names);
    return names;
}

// Packets a second apart, from 07:08:09 on.
TEST(Rotate, BeginsAFileForEachPeriodOrSoManyOctets) {
    Command command;
    const std::string packet = ethernet(ipv4(udp(kPlots)));
    command.write("in.pcap", pcap(1, {packet, packet, packet, packet, packet}));
    const struct {
        std::string arguments;
        std::vector<std::string> files;
        std::vector<size_t> packets;
    } cases[] = {
        {"--rotate 2s --write a-%H%M%S.pcap", {"a-070809.pcap", "a-070810.pcap", "a-070812.pcap"}, {1, 2, 2}},
        {"--rotate 1h --write b-%Y%m%d.pcap", {"b-20240506.pcap"}, {5}},
        {"--rotate 1k --write c-%d.pcap", {"c-06.pcap"}, {5}},
        {"--rotate 2s --write d.pcap", {"d-2.pcap", "d-3.pcap", "d.pcap"}, {2, 2, 1}},
        {"--rotate 1s --keep 2 --write e-%S.pcap", {"e-12.pcap", "e-13.pcap"}, {1, 1}},
    };
    for (const auto &test : cases) {
        EXPECT_EQ(command.run("in.pcap " + test.arguments).status, 0) << test.arguments;
        ASSERT_EQ(captures(command, test.files[0].substr(0, 1)), test.files) << test.arguments;
        for (size_t i = 0; i < test.files.size(); ++i)
            EXPECT_EQ(read_file(command.directory() + '/' + test.files[i]).size(),
                      24 + test.packets[i] * (kCaptureOctets - 24))
                << test.files[i];
    }
    command.run("--rotate 1k in.pcap in.pcap in.pcap --write f.pcap");
    EXPECT_EQ(captures(command, "f"), (std::vector<std::string>{"f-2.pcap", "f.pcap"}));
    command.run("f.pcap f-2.pcap --write whole.pcap");
    command.run("in.pcap in.pcap in.pcap --write once.pcap");
    EXPECT_TRUE(read_file(command.directory() + "/whole.pcap") == read_file(command.directory() + "/once.pcap"));
}

// Packets a second apart, and lines as many.
TEST(Rotate, WritesBlocksAndLines) {
    Command command;
    const std::string packet = ethernet(ipv4(udp(kPlots)));
    command.write("in.pcap", pcap(1, {packet, packet, packet}));
    EXPECT_EQ(command.run("in.pcap --rotate 2s --write a-%S.ast --write b-%S.json").status, 0);
    EXPECT_EQ(captures(command, "a"), (std::vector<std::string>{"a-09.ast", "a-10.ast"}));
    EXPECT_EQ(read_file(command.directory() + "/a-09.ast"), kPlots);
    EXPECT_EQ(read_file(command.directory() + "/a-10.ast"), kPlots + kPlots);
    EXPECT_EQ(captures(command, "b"), (std::vector<std::string>{"b-09.json", "b-10.json"}));
    EXPECT_TRUE(command.run("--json in.pcap").out.starts_with(read_file(command.directory() + "/b-09.json")));
}

// By the pattern, and nothing that is read or only looks alike.
TEST(Rotate, DeletesFilesOfEarlierRuns) {
    Command command;
    const std::string packet = ethernet(ipv4(udp(kPlots)));
    command.write("day-01.pcap", pcap(1, {packet, packet, packet}));
    for (const std::string name : {"day-02.pcap", "day-02-2.pcap", "day-x2.pcap", "day-02.pcap.part", "today-02.pcap"})
        command.write(name, "old");
    EXPECT_EQ(command.run("day-01.pcap --rotate 1s --keep 2 --write day-%S.pcap").status, 0);
    EXPECT_EQ(captures(command, "day"), (std::vector<std::string>{"day-01.pcap", "day-02.pcap.part", "day-10.pcap",
                                                                  "day-11.pcap", "day-x2.pcap"}));
    EXPECT_EQ(captures(command, "today").size(), 1U);
}

// A file may not be larger than a kilobyte or so: the first holds, and the next ones do not.
TEST(Rotate, GoesOnBehindAFullDisk) {
    Command command;
    const std::string small = ethernet(ipv4(udp(kPlots))),
                      large = ethernet(ipv4(udp(hex("FA 0FA0") + std::string(3997, 'x'))));
    command.write("in.pcap", pcap(1, {small, large, large, small}));
    const Result result =
        command.run("--version >/dev/null; ulimit -f 2; exec " ASTDUMP " in.pcap --rotate 1s --write a-%S.pcap");
    EXPECT_EQ(result.status, 1) << result.err;
    EXPECT_EQ(captures(command, "a-09.pcap").size(), 1U);
    EXPECT_EQ(captures(command, "a-10.pcap"), std::vector<std::string>{"a-10.pcap.part"});
    EXPECT_NE(result.err.find("a-10.pcap: broken off; the first "), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("a-%S.pcap: lost 8"), std::string::npos) << result.err;
    EXPECT_NE(result.err.find(" octets that could not be written"), std::string::npos) << result.err;
}

TEST(Rotate, RefusesWhatMakesNoSense) {
    Command command;
    command.write("in.pcap", pcap(1, {ethernet(ipv4(udp(kPlots)))}));
    for (const std::string arguments :
         {"--rotate 1h", "--rotate 1h --write udp://127.0.0.1:9", "--keep 2 --write a.pcap",
          "--rotate 1 --write a.pcap", "--rotate 0h --write a.pcap", "--rotate h --write a.pcap",
          "--rotate 1h --keep 0 --write a.pcap"}) {
        const Result result = command.run("in.pcap " + arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_NE(result.err, "") << arguments;
    }
    EXPECT_EQ(captures(command, "a"), std::vector<std::string>());
}

// Files that are in their place hold all that they should, and what has been received last is beside them; in some
// rounds it is killed in the middle.
TEST(Rotate, LosesNothingWhenItIsKilled) {
    constexpr int kSent = 40;
    for (int round = 0; round < 5; ++round) {
        Command command;
        Background tool(command, "udp://127.0.0.1:0 --rotate 1k --write kept.pcap --list");
        const std::string report = tool.wait_for_report("\n");
        const Sender sender("127.0.0.1", static_cast<uint16_t>(std::stoi(report.substr(report.rfind(':') + 1))));
        const int sent = kSent + round;
        for (int i = 0; i < sent; ++i) sender.send(hex("30 0006 08 00") + static_cast<char>(i));
        std::string listed;
        const int wanted = round % 2 == 0 ? sent : 30;
        while (std::ranges::count(listed, '\n') < wanted && tool.runs()) listed = tool.wait_for_output("\n");
        EXPECT_EQ(tool.end(SIGKILL).status, -1);
        EXPECT_GT(captures(command, "kept").size(), 2U);
        Command reading;
        const Result result =
            reading.run("--quiet " + command.directory() + "/kept* --write " + command.directory() + "/all.ast");
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_GE(read_file(command.directory() + "/all.ast").size(), 6U * static_cast<size_t>(wanted - 1))
            << "at most the one that was just shown";
    }
}

} // namespace
