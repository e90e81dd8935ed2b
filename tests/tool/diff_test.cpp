// Two recordings beside each other.

#include <gtest/gtest.h>
#include <string>

#include "command.hpp"

namespace {

const std::string kCode = R"("I070":{"V":0,"G":0,"L":0,"MODE3A":")";
const std::string kSquawk1234 = kCode + R"(1234"})";
const std::string kSquawk7700 = kCode + R"(7700"})";

// A report of a radar, a line of JSON, at a time of day in seconds.
std::string plot(double time_s, unsigned address, const std::string &more = kSquawk1234) {
    char line[256];
    std::snprintf(line, sizeof line,
                  "{\"category\":48,\"I010\":{\"SAC\":25,\"SIC\":12},\"I140\":%.3f,\"I220\":\"%06X\",%s}\n", time_s,
                  address, more.c_str());
    return line;
}

struct DiffCase {
    const char *name;
    std::string first;
    std::string second;
    const char *options;
    std::string out;
};

const std::string kNorth = R"({"category":34,"I010":{"SAC":25,"SIC":12},"I000":1,"I041":4})";
const std::string kSlowNorth = R"({"category":34,"I010":{"SAC":25,"SIC":12},"I000":1,"I041":5})";

const DiffCase kCases[] = {
    {"the same", plot(1, 1) + plot(2, 1), plot(1, 1) + plot(2, 1), "",
     "2 records the same, 0 different, 0 only in a, 0 only in b\n"},
    {"an insertion and a change", plot(1, 1) + plot(2, 1) + plot(3, 1),
     plot(0.5, 1) + plot(1, 1) + plot(2, 2) + plot(2, 1, kSquawk7700) + plot(3, 1), "",
     "+ 048 025/012  00:00:00.500  plot  icao24 000001\n"
     "+ 048 025/012  00:00:02.000  plot  icao24 000002\n"
     "! 048 025/012  00:00:02.000  plot  icao24 000001\n"
     "    I070/MODE3A             1234 -> 7700\n"
     "2 records the same, 1 different, 0 only in a, 2 only in b\n"},
    {"a field that is sent by one", plot(1, 1), plot(1, 1, kSquawk7700 + R"(,"I161":{"TRN":7})"), "",
     "! 048 025/012  00:00:01.000  plot  icao24 000001\n"
     "    I070/MODE3A             1234 -> 7700\n"
     "    I161/TRN                - -> 7\n"
     "0 records the same, 1 different, 0 only in a, 0 only in b\n"},
    {"times that are not the same", plot(1, 1), plot(1.5, 1), "",
     "- 048 025/012  00:00:01.000  plot  icao24 000001\n"
     "+ 048 025/012  00:00:01.500  plot  icao24 000001\n"
     "0 records the same, 0 different, 1 only in a, 1 only in b\n"},
    {"and that may be", plot(86399.75, 1), plot(0.25, 1), "--within 500ms",
     "! 048 025/012  23:59:59.750  plot  icao24 000001\n"
     "    I140                    86399.75 s -> 0.25 s\n"
     "0 records the same, 1 different, 0 only in a, 0 only in b\n"},
    {"several at one time, in another order", plot(1, 1) + plot(1, 1, kSquawk7700),
     plot(1, 1, kSquawk7700) + plot(1, 1), "", "2 records the same, 0 different, 0 only in a, 0 only in b\n"},
    {"records without a time", kNorth + '\n' + kSlowNorth + '\n' + kNorth + '\n', kNorth + '\n' + kNorth + '\n', "",
     "- 034 025/012  north marker\n"
     "2 records the same, 0 different, 1 only in a, 0 only in b\n"},
    {"as JSON", plot(1, 1), plot(1, 1, kSquawk7700) + plot(2, 2), "--json",
     R"({"differences":[{"path":"I070/MODE3A","first":"1234","second":"7700"}],"category":48,"sac":25,"sic":12,)"
     R"("time":"00:00:01.000","type":"plot","icao24":"000001"})"
     "\n"
     R"({"only_in":"b","category":48,"sac":25,"sic":12,"time":"00:00:02.000","type":"plot","icao24":"000002"})"
     "\n"
     R"({"same":0,"different":1,"only_in_first":0,"only_in_second":1})"
     "\n"},
};

TEST(Diff, ShowsWhatTwoRecordingsDoNotHaveInCommon) {
    for (const DiffCase &each : kCases) {
        SCOPED_TRACE(each.name);
        Command command;
        command.write("a", each.first);
        command.write("b", each.second);
        const Result result = command.run(std::string("--diff ") + each.options + " a b");
        EXPECT_EQ(result.out, each.out) << result.err;
        EXPECT_EQ(result.status,
                  each.out.find(" the same, 0 different, 0 only in a, 0 only in b") == std::string::npos);
    }
}

TEST(Diff, TakesTwoFiles) {
    Command command;
    command.write("a", plot(1, 1));
    for (const char *arguments : {"--diff a", "--diff a a a", "--diff --list a a", "--diff --count 1 a a",
                                  "--within 1s a", "--diff --within 1 a a", "--diff a nowhere"})
        EXPECT_EQ(command.run(arguments).status, 2) << arguments;
}

} // namespace
