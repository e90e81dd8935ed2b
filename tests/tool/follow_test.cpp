// Input without an end: growing files and sockets.

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include "background.hpp"
#include "captures.hpp"
#include "sender.hpp"

namespace {

// A sector crossing message of category 034.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");

// The first lines of the counts of so many of them.
std::string counts(const std::string &blocks, const std::string &items, const std::string &octets) {
    const auto column = [](const std::string &text, size_t width) {
        return std::string(width - text.size(), ' ') + text;
    };
    const std::string row = column(blocks, 11) + column("0", 11) + column("0", 12) + column(blocks, 11) +
                            column(items, 13) + column(octets, 14) + '\n';
    return "Category     Blocks    Damaged Unsupported    Records        Items        Octets\n034     " + row +
           "all     " + row;
}

TEST(Follow, ReadsWhatIsAddedToAFile) {
    const std::string frame = ethernet(ipv4(udp(kSector)));
    const std::vector<std::string> frames(3, frame);
    const struct {
        const char *name;
        std::string whole;
        size_t record; // octets of each of the last two blocks or packets
    } cases[] = {
        {"raw blocks", kSector + kSector + kSector, kSector.size()},
        {"pcap", pcap(1, frames), 16 + frame.size()},
        {"pcapng", pcapng(1, frames), pcapng(1, {frame, frame}).size() - pcapng(1, {frame}).size()},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.name);
        // The second block comes in two pieces; the third never comes as a whole.
        const size_t first = test.whole.size() - 2 * test.record;
        Command command;
        command.write("growing", test.whole.substr(0, first + 5));
        Background tool(command, "--follow --category 34 growing");
        EXPECT_NE(tool.wait_for_output("#1").find("#1"), std::string::npos);
        command.append("growing", test.whole.substr(first + 5, test.record));
        EXPECT_NE(tool.wait_for_output("#2").find("#2"), std::string::npos);
        const Result result = tool.end();
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.out.find(counts("2", "8", "22")), std::string::npos) << result.out;
        EXPECT_EQ(result.err, "");
    }
}

TEST(Follow, WaitsForAFileToBegin) {
    Command command;
    command.write("growing", "");
    Background tool(command, "--follow --list growing");
    command.append("growing", kSector.substr(0, 1));
    command.append("growing", kSector.substr(1));
    EXPECT_NE(tool.wait_for_output("034").find("034"), std::string::npos);
    EXPECT_EQ(tool.end(SIGTERM).status, 0);
}

TEST(Follow, EndsWhenNothingCanCome) {
    Command command;
    const Result nothing = Background(command, "--follow --quiet - < /dev/null").wait();
    EXPECT_EQ(nothing.status, 0);
    EXPECT_NE(nothing.out.find("all               0"), std::string::npos) << nothing.out;
}

// The port that the tool listens to.
uint16_t port_of(const Background &tool) {
    const std::string report = tool.wait_for_report("\n");
    EXPECT_EQ(report.find("astdump: listening on "), 0U) << report;
    return static_cast<uint16_t>(std::stoi(report.substr(report.rfind(':') + 1)));
}

TEST(Udp, ShowsWhatComesToEveryKindOfAddress) {
    const struct {
        const char *arguments;
        const char *address;
        bool ipv6;
    } cases[] = {
        {"udp://127.0.0.1:0", "127.0.0.1", false},
        {"udp://0.0.0.0:0 --interface lo", "127.0.0.1", false},
        {"udp://239.17.3.4:0 --interface 127.0.0.1", "239.17.3.4", false},
        {"udp://[::1]:0 --follow", "::1", true},
    };
    for (const auto &test : cases) {
        if (test.ipv6 && !has_ipv6()) continue;
        SCOPED_TRACE(test.arguments);
        Command command;
        Background tool(command, test.arguments);
        const uint16_t port = port_of(tool);
        Sender(test.address, port).send(kSector + kSector);
        const std::string out = tool.wait_for_output("#2");
        EXPECT_EQ(out.find("#1  20"), 0U) << out;
        EXPECT_NE(out.find(':' + std::to_string(port) + "  CAT 034  11 octets"), std::string::npos) << out;
        const Result result = tool.end();
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.out.find(counts("2", "8", "22")), std::string::npos) << result.out;
        EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
    }
}

// Loopback has no route for groups of IPv6, so that nothing is sent to this one.
TEST(Udp, JoinsAGroupOfIpv6) {
    if (!has_ipv6()) GTEST_SKIP();
    Command command;
    for (const std::string arguments : {"udp://[ff12::1734]:0 --interface lo", "udp://[ff12::1734%lo]:0"}) {
        Background tool(command, arguments + " --quiet");
        EXPECT_EQ(tool.wait_for_report("\n").find("astdump: listening on [ff12::1734%lo]:"), 0U);
        EXPECT_EQ(tool.end().status, 0);
    }
}

TEST(Udp, TellsDamageAndStopsAfterACount) {
    Command command;
    Background tool(command, "--count 2 udp://127.0.0.1:0");
    const Sender sender("127.0.0.1", port_of(tool));
    for (const std::string &octets : {kSector.substr(0, 10), std::string(), hex("30 0007 C0 190C 54"), kSector})
        sender.send(octets);
    const Result result = tool.wait();
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find(": packet 1, octet 0: category 034: LEN is 11, but only 10 octets are left\n"),
              std::string::npos);
    EXPECT_NE(result.err.find(": packet 3, octet 0: category 048: damaged in record 1"), std::string::npos);
    EXPECT_NE(result.err.find("\nastdump: lost: 1 block invalid, 10 octets skipped\n"), std::string::npos)
        << result.err;
}

// Each address on its own port, a name with all of its addresses.
TEST(Udp, SeveralAddressesAreReadAtOnce) {
    Command command;
    Background tool(command, "udp://127.0.0.1:0 udp://localhost:0 udp://239.17.3.4:0 --interface lo");
    const std::string reports = tool.wait_for_report("239.17.3.4:");
    std::vector<std::pair<std::string, uint16_t>> addresses;
    for (const std::string &host : {std::string("127.0.0.1"), std::string("239.17.3.4")})
        for (size_t at = 0; (at = reports.find(host + ":", at)) != std::string::npos; at += host.size())
            addresses.emplace_back(host, std::stoi(reports.substr(at + host.size() + 1)));
    ASSERT_EQ(addresses.size(), 3U) << reports;
    for (const auto &[host, port] : addresses) Sender(host, port).send(kSector);
    tool.wait_for_output("#3");
    EXPECT_NE(tool.end().out.find(counts("3", "12", "33")), std::string::npos);
}

#ifdef SIMULATE_RADAR
// A minute of a simulated radar, sent and written, holds the same.
TEST(Udp, ListsWhatARadarSends) {
    const std::string simulate = "timeout 60 " SIMULATE_RADAR " --duration 60 ";
    Command command;
    ASSERT_EQ(std::system((simulate + "--output " + command.directory() + "/radar.pcap").c_str()), 0);
    const std::string selection = "--list --category 34,48 --where callsign ";
    const Result written = command.run("--quiet radar.pcap; cat radar.pcap | " ASTDUMP " " + selection + "-");
    Background tool(command, selection + "udp://127.0.0.1:0");
    const std::string address = "udp://127.0.0.1:" + std::to_string(port_of(tool));
    ASSERT_EQ(std::system((simulate + "--speed 60 --send " + address).c_str()), 0);
    EXPECT_EQ(tool.wait_for_output(written.out).substr(0, written.out.size()), written.out);
    EXPECT_EQ(tool.end().status, 0);
}
#endif

// More than the system keeps for a tool that stands still, and is ended before anything else comes.
TEST(Udp, CountsWhatItWasTooSlowFor) {
    constexpr unsigned long kDatagrams = 600;
    const std::string big = hex("1E EA60") + std::string(59997, '\0');
    Command command;
    Background tool(command, "--list udp://127.0.0.1:0");
    const Sender sender("127.0.0.1", port_of(tool));
    sender.send(kSector);
    tool.wait_for_output("Sector");
    tool.send(SIGSTOP);
    for (unsigned long i = 0; i < kDatagrams; ++i) sender.send(big);
    tool.send(SIGTERM);
    tool.send(SIGCONT);
    const Result result = tool.wait();
    EXPECT_EQ(result.status, 1);
    const size_t all = result.out.find("\nall"), lost = result.err.find("lost: ");
    ASSERT_NE(all, std::string::npos) << result.out;
    ASSERT_NE(lost, std::string::npos) << result.err;
    EXPECT_NE(result.err.find(" dropped by the system\n"), std::string::npos) << result.err;
    const unsigned long received = std::stoul(result.out.substr(all + 4)),
                        dropped = std::stoul(result.err.substr(lost + 6));
    EXPECT_GT(dropped, 0U);
    EXPECT_EQ(received + dropped, kDatagrams + 1);
}

TEST(Connection, IsReadAsItComes) {
    for (const bool ipv6 : {false, true}) {
        if (ipv6 && !has_ipv6()) continue;
        Server server(ipv6);
        const std::string host = ipv6 ? "[::1]:" : "127.0.0.1:";
        const std::string address = host + std::to_string(server.port());
        Command command;
        Background tool(command, "tcp://" + address);
        server.accept();
        server.send(kSector + kSector.substr(0, 4));
        EXPECT_NE(tool.wait_for_output("#1").find("  " + address + " > " + host), std::string::npos);
        server.send(kSector.substr(4));
        EXPECT_NE(tool.wait_for_output("#2").find("#2  20"), std::string::npos);
        server.close();
        const Result result = tool.wait();
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.out.find(counts("2", "8", "22")), std::string::npos) << result.out;
        EXPECT_EQ(result.err, "astdump: connected to " + address + "\nastdump: tcp://" + address +
                                  ": the other side has closed the connection\n");
    }
}

TEST(Connection, EndsInItsOwnWords) {
    Command command;
    std::string address;
    {
        Server server;
        address = "tcp://127.0.0.1:" + std::to_string(server.port());
        Background tool(command, "--quiet " + address);
        server.accept();
        server.send(hex("0017 00 01 05 000064") + kSector + hex("A5A5A5A5"));
        server.reset();
        const Result result = tool.wait();
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.err.find(address + ": Connection reset by peer\n"), std::string::npos) << result.err;
    }
    const Result result = Background(command, address).wait();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "astdump: " + address + ": Connection refused\n");
}

// The framing of a pipe is found out by what has come; what has not is not waited for.
TEST(Pipe, IsReadWhateverItsFraming) {
    const struct {
        const char *framing;
        std::string octets;
    } cases[] = {
        {"raw", kSector},
        {"final", hex("0017 00 01 05 000064") + kSector + hex("A5A5A5A5")},
        {"oradis", hex("0011 01020304") + kSector},
        {"hex", "22 00 0B F0 19 0C 02 54 60 80 40\n"},
        {"gps", std::string(2200, '\xCD') + kSector + std::string(10, '\x01')},
        {"hdlc", hex("7E FF03 22000BF0190C02546080 40 A02B 7E")},
        {"json", R"({"category":34,"I000":2})"
                 "\n"},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.framing);
        Command command;
        ASSERT_EQ(std::system(("mkfifo " + command.directory() + "/pipe").c_str()), 0);
        Background tool(command, "--list - < pipe");
        std::ofstream pipe(command.directory() + "/pipe", std::ios::binary);
        pipe << test.octets.substr(0, 5) << std::flush;
        pipe << test.octets.substr(5) << std::flush;
        EXPECT_NE(tool.wait_for_output("034").find("034"), std::string::npos);
        pipe.close();
        const Result result = tool.wait();
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
    }
}

TEST(Follow, RefusesWhatCannotBe) {
    const struct {
        const char *arguments;
        const char *complaint;
    } cases[] = {
        {"--follow a b", "astdump: --follow takes one FILE"},
        {"--list --stats a",
         "astdump: --list, --csv, --json, --arrow, --stats, --report, --top and --diff exclude each other"},
        {"--html ./b.json --write b.json a", "astdump: --html, --metrics and --write are to be different files"},
        {"udp://127.0.0.1:0 a", "udp:// takes no FILE but other udp://"},
        {"udp://127.0.0.1:0 tcp://127.0.0.1:1", "tcp:// none at all"},
        {"--interface lo a", "--interface is for udp://"},
        {"udp://127.0.0.1", "'udp://127.0.0.1' is neither"},
        {"udp://127.0.0.1:65536", "is neither"},
        {"udp://::1:8600", "is neither"},
        {"udp://[127.0.0.1]:8600", "is neither"},
        {"udp://127.0.0.256:8600", "is neither"},
        {"'udp://no name:8600'", "is neither"},
        {"tcp://127.0.0.1", "'tcp://127.0.0.1' is neither"},
        {"udp://127.0.0.1:0 --interface nowhere", "udp://127.0.0.1:0: No such device"},
        {"udp://127.0.0.1:0 --interface 192.0.2.1", "udp://127.0.0.1:0: No such device"},
        {"udp://192.0.2.1:8600", "udp://192.0.2.1:8600: Cannot assign requested address"},
    };
    for (const auto &test : cases) {
        Command command;
        const Result result = Background(command, test.arguments).wait();
        EXPECT_EQ(result.status, 2) << test.arguments;
        EXPECT_NE(result.err.find(test.complaint), std::string::npos) << test.arguments << '\n' << result.err;
    }
}

} // namespace
