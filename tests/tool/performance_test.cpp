// The report on data sources.

#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "command.hpp"

namespace {

constexpr double kDay_s = 86400;

// A record as a line of JSON, received half a second behind its time, which may be of the next day.
std::string record(unsigned category, unsigned sic, double time_s, const std::string &more) {
    const double received_s = time_s + 0.5;
    const bool is_next_day = received_s >= kDay_s;
    const auto seconds = static_cast<unsigned>(received_s - (is_next_day ? kDay_s : 0));
    char line[512];
    std::snprintf(line, sizeof line,
                  R"({"category":%u,"time":"2024-06-0%uT%02u:%02u:%02u.%uZ","I010":{"SAC":25,"SIC":%u},"I%s":%g,%s})"
                  "\n",
                  category, is_next_day ? 2 : 1, seconds / 3600, seconds / 60 % 60, seconds % 60,
                  received_s != static_cast<unsigned>(received_s) ? 5 : 0, sic, category == 34 ? "030" : "140",
                  time_s < kDay_s ? time_s : time_s - kDay_s, more.c_str());
    return line;
}

std::string report(unsigned sic, double time_s, unsigned address, double range_nm, const std::string &more = "") {
    char text[256];
    std::snprintf(text, sizeof text,
                  R"("I020":{"TYP":5,"SIM":0,"RDP":0,"SPI":0,"RAB":0},"I040":{"RHO":%g,"THETA":90},"I220":"%06X"%s)",
                  range_nm, address, more.c_str());
    return record(48, sic, time_s, text);
}

// The lines of the report, one for each source.
std::vector<std::string> sources_of(const std::string &records, const std::string &options = "") {
    Command command;
    command.write("a", records);
    const Result result = command.run("--report --json " + options + " a");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    std::vector<std::string> lines;
    for (size_t begin = 0, end; (end = result.out.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(result.out.substr(begin, end - begin));
    return lines;
}

void expect(const std::string &line, const std::vector<std::string> &pieces) {
    for (const std::string &piece : pieces) EXPECT_NE(line.find(piece), std::string::npos) << piece << "\nin " << line;
}

const std::string kNorth = R"("I000":1)";

// Two turns before midnight; the north marker at midnight and a report are missing.
std::string over_midnight() {
    std::string records;
    for (const double turn_s : {86392, 86396, 86400, 86404, 86408, 86412}) {
        if (turn_s != 86400) records += record(34, 12, turn_s, kNorth);
        if (turn_s != 86404) records += report(12, turn_s + 1, 0x3C0001, 30);
    }
    return records;
}

TEST(Performance, OfARadarOverMidnight) {
    const auto sources = sources_of(over_midnight());
    ASSERT_EQ(sources.size(), 1);
    expect(
        sources[0],
        {R"({"source":"025/012","family":"radar","summary":{"records":10,"first":"23:59:52.000","last":"00:00:13.000",)"
         R"("length_s":21,"reports":5,"duplicates":0,"implausible":0)",
         R"("turn":{"told_by":"north markers","marks":5,"missing":1,"spread":[{"of":"turn, s","number":3,"least":4,)",
         R"("tracks":1,"untold":0,)", R"([{"with":"any","turns":4,"detected":3,"percent":75},)",
         R"({"with":"Mode S","range_nm":"20-40","turns":4,"detected":3,"percent":75}])",
         R"({"of":"delay, s","number":10,"least":0.5,"p05":0.5,"median":0.5,"mean":0.5,"p95":0.5,"greatest":0.5})",
         R"("gaps":{"gaps":0})", R"("codes":0,"addresses":1,"track_numbers":0)",
         R"({"path":"048/I040/RHO","unit":"NM","number":5,"least":30,"mean":30,"greatest":30})"});
}

// The other one has no north markers, and one that sends neither is told by what it reports.
TEST(Performance, TellsRadarsApart) {
    std::string records = over_midnight();
    for (int turn = 0; turn < 10; ++turn) {
        records += record(34, 13, 40000 + turn * 5, R"("I000":2,"I020":90)");
        records += record(34, 13, 40002 + turn * 5, R"("I000":2,"I020":270)");
        records += report(14, 50000 + turn * 6, 0x3C0002, 150);
    }
    const auto sources = sources_of(records);
    ASSERT_EQ(sources.size(), 3);
    expect(sources[0], {R"("source":"025/012")", R"("marks":5,"missing":1)"});
    expect(sources[1], {R"("source":"025/013")", R"("told_by":"sector crossings","marks":10,"missing":0)",
                        R"({"of":"turn, s","number":9,"least":5,)"});
    expect(sources[2], {R"("source":"025/014")", R"("told_by":"reports","median_s":6)",
                        R"({"with":"any","turns":8,"detected":8,"percent":100})"});
    EXPECT_EQ(sources_of(records, "--where sic=13").size(), 1);
}

TEST(Performance, CountsWhatIsDoubtful) {
    const std::string code = R"(,"I070":{"V":)";
    std::string records = report(12, 1, 1, 5, code + R"(0,"G":0,"L":0,"MODE3A":"7700"})");
    records += records; // the same record over another way
    records += report(12, 2, 2, 5, code + R"(1,"G":0,"L":0,"MODE3A":"7700"})");
    records += report(12, 3, 3, 5, code + R"(0,"G":1,"L":1,"MODE3A":"1234"},"I030":[3,17])");
    records += report(12, 4, 4, 5, R"(,"I030":[3],"I090":{"V":0,"G":0,"FL":-20})");
    records += report(12, 44, 4, 5);
    records += report(12, 88, 4, 5);
    const auto sources = sources_of(records);
    ASSERT_EQ(sources.size(), 1);
    expect(sources[0],
           {R"("reports":6,"duplicates":1,"implausible":1)", R"("codes":1,"addresses":4)",
            R"("with_code":3,"not_validated":1,"garbled":1,"smoothed":1)",
            R"("emergencies":[{"code":"7700","name":"emergency","targets":1,"reports":1}])",
            R"("warnings":[{"category":"048","code":3,"text":"Split plot","reports":2},{"category":"048","code":17,)",
            R"("gaps":{"gaps":2,"sum_s":84,"longest_s":44,"longest_from":"00:00:44.500"})"});
}

// A tracker sends several categories; what has neither family nor source is shown all the same.
TEST(Performance, OfOtherSources) {
    const auto sources = sources_of(R"({"category":62,"I010":{"SAC":1,"SIC":2},"I070":5,"I040":7})"
                                    "\n"
                                    R"({"category":65,"I010":{"SAC":1,"SIC":2},"I030":6,"I000":2})"
                                    "\n"
                                    R"({"category":19,"I000":3})"
                                    "\n"
                                    R"({"category":11,"I010":{"SAC":1,"SIC":2},"I140":5})"
                                    "\n");
    ASSERT_EQ(sources.size(), 3);
    expect(sources[1], {R"({"source":"001/002","family":"category 011","summary":{"records":1,)"});
    expect(sources[0], {R"({"source":null,"family":"multilateration","summary":{"records":1,)"});
    expect(sources[2], {R"({"source":"001/002","family":"tracker","summary":{"records":2,)", R"("track_numbers":1)"});
    EXPECT_EQ(sources[2].find("turn\""), std::string::npos);
}

TEST(Performance, AsTextAndAsAPage) {
    Command command;
    command.write("a<b", over_midnight());
    const std::string text = command.run("--report 'a<b'").out;
    expect(text, {"025/012 radar\n  Records\n    records 10, first 23:59:52.000, last 00:00:13.000,",
                  "  Turn of the antenna\n    told by north markers, marks 5, missing 1\n",
                  "    with    turns  detected   %\n    any         4         3  75\n", "NM, to 100\n     ▆\n"});
    EXPECT_EQ(command.run("--report --html p.html 'a<b'").out, "");
    const std::string page = read_file(command.directory() + "/p.html");
    expect(page, {"<p>a&lt;b</p>", "<h2>025/012 radar</h2>", "prefers-color-scheme: dark",
                  "<td>Mode S</td><td class=\"n\">4</td><td class=\"n\">3</td><td class=\"n\">75</td>",
                  R"(<rect x="11" y="25" width="8" height="75"><title>75</title></rect>)", "</html>\n"});
    EXPECT_EQ(page.find("<script"), std::string::npos);
}

TEST(Performance, RefusesOtherForms) {
    Command command;
    command.write("a", over_midnight());
    for (const char *arguments :
         {"--report --list a", "--report --stats a", "--report --csv -- a", "--report --json --html p a"})
        EXPECT_EQ(command.run(arguments).status, 2) << arguments;
}

#ifdef SIMULATE_RADAR

// Against what the simulator knows; over midnight, and by any number of threads.
TEST(Performance, OfASimulatedRadarIsExact) {
    for (const std::string detection : {"1", "0.9", "0.7"}) {
        Command command;
        const std::string simulate = "--version >/dev/null; " SIMULATE_RADAR " --seed 2 --aircraft 40 --duration 240 ";
        ASSERT_EQ(
            command
                .run(simulate + "--start 23:58:00 --delay 0.25 --output a.pcap --truth truth --detection " + detection)
                .status,
            0);
        unsigned turns = 0, passes = 0, detected = 0;
        const std::string truth = read_file(command.directory() + "/truth");
        ASSERT_EQ(std::sscanf(truth.c_str(), R"({"turns":%u,"mode_s":{"turns":%u,"detected":%u}})", &turns, &passes,
                              &detected),
                  3);
        EXPECT_EQ(turns, 60);
        EXPECT_GT(passes, 1500);
        const std::string out = command.run("--report --json --jobs 1 a.pcap").out;
        expect(out, {R"("marks":60,"missing":0,"spread":[{"of":"turn, s","number":59,"least":4,"p05":4,"median":4,)",
                     R"({"with":"Mode S","turns":)" + std::to_string(passes) + R"(,"detected":)" +
                         std::to_string(detected) + ',',
                     R"("delay":{"least_s":0.25)", R"("gaps":{"gaps":0})"});
        EXPECT_EQ(command.run("--report --json --jobs 5 a.pcap").out, out);
    }
}

#endif

} // namespace
