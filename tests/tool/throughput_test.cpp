// What is told now and then of what goes through.

#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "background.hpp"
#include "captures.hpp"
#include "command.hpp"
#include "sender.hpp"
#include "support/receiver.hpp"

namespace {

using ast_test::Receiver;

const std::string kMarkers = hex("22 000D D0 190C 01 00 D0 190C 01 08");
const std::string kPlots = hex("30 0009 08 0053 08 012E");

std::string packet(const std::string &payload) { return ethernet(ipv4(udp(payload))); }

// Samples by their names with labels. The lines are those of the format's grammar: what a metric is stands once, in
// front of its samples, which stand together.
std::map<std::string, double> read_metrics(const std::string &text) {
    static const std::regex help("# HELP ([a-z_]+) [^\\\\]+"), type("# TYPE ([a-z_]+) (counter|gauge)"),
        sample(R"(([a-z_]+)(\{[a-z]+="(?:[^"\\\n]|\\["\\n])*"\})? ([0-9.e+-]+))");
    std::map<std::string, double> samples;
    std::set<std::string> helped, typed;
    std::string current;
    EXPECT_TRUE(text.ends_with('\n'));
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (std::regex_match(line, found, help)) {
            EXPECT_TRUE(helped.insert(found[1]).second) << line;
            current = found[1];
        } else if (std::regex_match(line, found, type)) {
            EXPECT_TRUE(typed.insert(found[1]).second) << line;
            EXPECT_EQ(found[1], current);
            EXPECT_EQ(found[2] == "counter", current.ends_with("_total")) << line;
        } else if (std::regex_match(line, found, sample)) {
            EXPECT_EQ(found[1], current);
            EXPECT_TRUE(current.starts_with("astdump_"));
            EXPECT_TRUE(typed.contains(current)) << line;
            EXPECT_TRUE(samples.emplace(found[1].str() + found[2].str(), std::stod(found[3])).second) << line;
        } else {
            ADD_FAILURE() << line;
        }
    }
    return samples;
}

TEST(Throughput, IsKeptInAFileForCollectors) {
    Command command;
    command.write("a.pcap", pcap(1, {packet(kMarkers + kPlots), packet(kMarkers + hex("30 0008 08 0053 08 01")),
                                     packet(kPlots + "junk")}));
    Receiver receiver;
    const Result result =
        command.run("a.pcap --quiet --metrics a.prom --speed max --write '" + receiver.url() + "' --stats");
    auto samples = read_metrics(read_file(command.directory() + "/a.prom"));
    const struct {
        std::string name;
        double value;
    } expected[] = {
        {"astdump_blocks_total{category=\"034\"}", 2},
        {"astdump_records_total{category=\"034\"}", 4},
        {"astdump_octets_total{category=\"034\"}", 26},
        {"astdump_blocks_total{category=\"048\"}", 3},
        {"astdump_records_total{category=\"048\"}", 5},
        {"astdump_damaged_blocks_total{category=\"034\"}", 0},
        {"astdump_damaged_blocks_total{category=\"048\"}", 1},
        {"astdump_dropped_datagrams_total", 0},
        {"astdump_sent_datagrams_total{destination=\"" + receiver.url() + "\"}", 3},
        {"astdump_failed_datagrams_total{destination=\"" + receiver.url() + "\"}", 0},
    };
    for (const auto &[name, value] : expected) {
        ASSERT_TRUE(samples.contains(name)) << name;
        EXPECT_EQ(samples.at(name), value) << name;
    }
    EXPECT_EQ(result.status, 1) << result.err;
    EXPECT_TRUE(result.out.find("034") != std::string::npos) << "the table, too";
}

TEST(Throughput, IsToldWhileItRunsAndAtTheEnd) {
    Command command;
    Receiver receiver;
    Background tool(command, "udp://127.0.0.1:0 --stats-every 1s --metrics live.prom --write " + receiver.url());
    const std::string from = "listening on 127.0.0.1:", report = tool.wait_for_report(from);
    const Sender sender("127.0.0.1", static_cast<uint16_t>(std::stoi(report.substr(report.find(from) + from.size()))));
    tool.wait_for_report(": nothing\n");
    EXPECT_EQ(read_metrics(read_file(command.directory() + "/live.prom")).count("astdump_blocks_total"), 0U);
    sender.send(kMarkers + kPlots);
    EXPECT_EQ(receiver.receive(1).size(), 1U);
    const std::string told = tool.wait_for_report(" octets/s\n");
    EXPECT_TRUE(std::regex_search(told, std::regex("astdump: [-0-9]+ [0-9:.]+: category 034: [0-9.]+ blocks/s, [0-9.]+ "
                                                   "records/s, [0-9.]+ octets/s; category 048: [0-9.]+ blocks/s, ")))
        << told;
    tool.wait_for_report(receiver.url() + ": 0.0 datagrams/s, late by ");
    EXPECT_EQ(tool.end().status, 0);
    const auto samples = read_metrics(read_file(command.directory() + "/live.prom"));
    EXPECT_EQ(samples.at("astdump_records_total{category=\"034\"}"), 2);
    EXPECT_GT(samples.at("astdump_late_max_seconds{destination=\"" + receiver.url() + "\"}"), 0);
}

TEST(Throughput, IsRefusedWhereItMakesNoSense) {
    Command command;
    command.write("a.ast", kPlots);
    for (const std::string arguments : {"--stats-every 10", "--stats-every 0s", "--metrics none/a.prom",
                                        "--metrics a.ast", "--metrics b.json --write b.json"})
        EXPECT_EQ(command.run("a.ast " + arguments).status, 2) << arguments;
    EXPECT_EQ(read_file(command.directory() + "/a.ast"), kPlots);
}

} // namespace
