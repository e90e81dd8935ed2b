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

TEST(Rotate, RefusesWhatMakesNoSense) {
    Command command;
    command.write("in.pcap", pcap(1, {ethernet(ipv4(udp(kPlots)))}));
    for (const std::string arguments :
         {"--rotate 1h", "--rotate 1h --write a.ast", "--keep 2 --write a.pcap", "--rotate 1 --write a.pcap",
          "--rotate 0h --write a.pcap", "--rotate h --write a.pcap", "--rotate 1h --keep 0 --write a.pcap"}) {
        const Result result = command.run("in.pcap " + arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_NE(result.err, "") << arguments;
    }
    EXPECT_EQ(captures(command, "a"), std::vector<std::string>());
}

// Files that are in their place hold all that they should, and what has been received last is beside them.
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
        while (std::ranges::count(listed, '\n') < sent && tool.runs()) listed = tool.wait_for_output("\n");
        EXPECT_EQ(tool.end(SIGKILL).status, -1);
        EXPECT_GT(captures(command, "kept").size(), 2U);
        Command reading;
        const Result result =
            reading.run("--quiet " + command.directory() + "/kept* --write " + command.directory() + "/all.ast");
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_GE(read_file(command.directory() + "/all.ast").size(), 6U * static_cast<size_t>(sent - 1))
            << "at most the one that was just shown";
    }
}

} // namespace
