// Which datagrams of captures are read, how many, and in which order.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"

namespace {

// North markers of category 034, told apart by their SIC.
std::string north(size_t sic) { return hex("22 0007 C0 19") + static_cast<char>(sic) + hex("01"); }

// One packet a second from 07:08:09.000012 on: from 10.0.0.1:4000 to 239.1.1.1:8600 but where it says otherwise.
std::string capture() {
    std::string port = udp(north(2));
    port.replace(2, 2, be16(9000));
    std::string host = ipv4(udp(north(3)));
    host.replace(12, 4, hex("0A010203"));
    return pcap(1, {ethernet(ipv4(udp(north(1)))), ethernet(ipv4(port)), ethernet(host), ethernet(ipv6(udp(north(4)))),
                    ethernet(ipv4(udp(north(5))))});
}

TEST(CaptureFilter, ChoosesByPortHostAndTime) {
    const struct {
        const char *arguments;
        const char *sics;
    } cases[] = {
        {"", "1 2 3 4 5 "},
        {"--port 9000", "2 "},
        {"--port 8601-9000,1", "2 "},
        {"--port 4000", "1 2 3 4 5 "},
        {"--host 10.1.0.0/16", "3 "},
        {"--host 10.1.2.4/31", ""},
        {"--host 10.1.2.2-10.1.2.3", "3 "},
        {"--host 2001:db8::/32", "4 "},
        {"--host ::/0", "4 "},
        {"--host 10.0.0.1,2001:db8::1 --port 8600", "1 4 5 "},
        {"--from 07:08:11", "3 4 5 "},
        {"--to 07:08:10", "1 "},
        {"--from 07:08:10 --to 07:08:11.5", "2 3 "},
        {"--from 2024-05-06T07:08:12Z", "4 5 "},
        {"--from 2024-05-06T07:09", ""},
        {"--from 07:00", "1 2 3 4 5 "},
        {"--to 07:00", "1 2 3 4 5 "}, // of the next morning
    };
    Command command;
    command.write("c", capture());
    for (const auto &test : cases) {
        const Result result = command.run("--csv I010/SIC " + std::string(test.arguments) +
                                          " c | tail -n +2 | cut -d, -f5 | tr '\\n' ' '");
        const std::string option = std::string(test.arguments).substr(0, 6);
        EXPECT_EQ(result.out, test.sics) << test.arguments;
        EXPECT_EQ(result.err, result.out != "" ? "" : "astdump: c: holds nothing that is chosen by " + option + '\n');
    }
}

TEST(CaptureFilter, PassesOverMidnight) {
    const auto frame = [](size_t sic, const std::string &centiseconds) {
        return hex("0013 00 01 05") + hex(centiseconds) + north(sic) + hex("A5A5A5A5");
    };
    Command command; // 23:00, 23:59, 00:01 and 01:00
    command.write("f", frame(1, "7E5740") + frame(2, "83BE90") + frame(3, "001770") + frame(4, "057E40"));
    const auto sics = [&](const std::string &arguments) {
        return command.run("--csv I010/SIC f " + arguments + " | tail -n +2 | cut -d, -f5 | tr '\\n' ' '").out;
    };
    EXPECT_EQ(sics("--from 23:30 --to 00:30"), "2 3 ");
    EXPECT_EQ(sics("--from 00:30"), "4 ");
    EXPECT_EQ(sics("--to 00:30"), "1 2 3 ");
    EXPECT_EQ(sics("--from 22:00 --to 23:30"), "1 ");
    EXPECT_NE(command.run("--from 2024-05-06T00:00Z f").err.find("without a date is left out"), std::string::npos);
}

TEST(CaptureFilter, RefusesWhatCannotBe) {
    for (const std::string arguments :
         {"--port 0x10", "--port 9-8", "--port 65536", "--port ''", "--host radar", "--host 10.0.0.0/33",
          "--host 10.0.0.9-10.0.0.1", "--host 10.0.0.1-::1", "--from noon", "--from 24:00", "--to 2024-02-30T12:00",
          "--to 12:00:00.", "--count 0", "--count -5", "--count many", "--count ''"}) {
        const Result result = Command().run(arguments + ' ' + SAMPLES "/radar.pcap");
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.err.find("astdump: " + arguments.substr(0, arguments.find(' ')) + ": '"), 0U) << result.err;
    }
}

// A block of three records, the last of which breaks off, and another block.
TEST(Count, IsOfWhatIsShown) {
    Command command;
    command.write("b", hex("30 000B 08 0053 08 0053 08 01  30 0006 08 0053"));
    const struct {
        const char *arguments;
        const char *lines;
    } cases[] = {
        {"--list --count 1 b | tail -n +2", "1\n"},
        {"--list --count 3 b | tail -n +2", "3\n"},
        {"--csv --count 2 b | tail -n +2", "2\n"},
        {"--json --count 2 b", "2\n"},
        {"--json --count 3 b", "3\n"},
        {"--json --count 4 b", "4\n"},
        {"--count 1 b | grep '^#'", "1\n"},
    };
    for (const auto &test : cases)
        EXPECT_EQ(command.run(std::string(test.arguments) + " | wc -l").out, test.lines) << test.arguments;
    EXPECT_EQ(command.run("--json --count 2 b | grep -c error").out, "0\n");
    EXPECT_EQ(command.run("--json --count 3 b | grep -c error").out, "1\n");
}

TEST(Merge, FollowsTheTimeOfDatagrams) {
    const std::string whole = capture();
    Command command;
    command.write("c", whole);
    command.run("--from 07:08:10 --to 07:08:10.5 --write a.pcap c");
    command.run("--port 8600 --write b.pcap c");
    command.write("final", hex("0013 00 01 05 273388") + north(6) + hex("A5A5A5A5")); // 07:08:10.80
    const std::string merged = "--merge b.pcap final a.pcap ";
    for (const std::string jobs : {"--jobs 1 ", "--jobs 3 "}) {
        const Result result = command.run("--csv I010/SIC " + jobs + merged + "| cut -d, -f1,6");
        EXPECT_EQ(result.out, "file,I010/SIC\nb.pcap,1\na.pcap,2\nfinal,6\nb.pcap,3\nb.pcap,4\nb.pcap,5\n");
        EXPECT_EQ(result.err, "");
    }
    EXPECT_EQ(command.run(merged + "| grep '^#' | sed 's/  20.*//;s/  1970.*//'").out,
              "#1  b.pcap\n#2  a.pcap\n#3  final\n#4  b.pcap\n#5  b.pcap\n#6  b.pcap\n");
    EXPECT_EQ(command.run("--list " + merged + "| sed 's/.* //'").out,
              "File\nb.pcap\na.pcap\nfinal\nb.pcap\nb.pcap\nb.pcap\n");
    EXPECT_EQ(command.run("--json " + merged + "| cut -d, -f1 | uniq -c | tr -d ' \\n'").out,
              R"(1{"file":"b.pcap"1{"file":"a.pcap"1{"file":"final"3{"file":"b.pcap")");
    EXPECT_EQ(command.run("--quiet --from 07:08:12 --csv I010/SIC " + merged + "| wc -l").out, "3\n");
}

TEST(Merge, ReportsByFileAndRefusesWhatHasNoTimes) {
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(north(1)))), ethernet(ipv4(udp(hex("30 0007 C0 190C 54"))))}));
    command.write("b", pcap(1, {ethernet(ipv4(udp(hex("30 0007 C0 190C 54"))))}));
    command.write("raw", north(1));
    const Result result = command.run("--quiet --merge a b missing");
    EXPECT_EQ(result.status, 2);
    for (const char *const report : {"astdump: a: packet 2, octet 0: ", "astdump: b: packet 1, octet 0: ",
                                     "astdump: missing: No such file or directory\n"})
        EXPECT_NE(result.err.find(report), std::string::npos) << result.err;
    const Result refused = command.run("--list --merge a raw");
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "astdump: --merge: raw has no times by which it could be merged\n");
}

} // namespace
