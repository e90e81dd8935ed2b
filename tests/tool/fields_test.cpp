// The names that conditions and columns know, and what is said of those that they do not.

#include <gtest/gtest.h>

#include "command.hpp"

namespace {

TEST(Fields, AreFoundByPathAndTitle) {
    const struct {
        const char *pattern;
        const char *out;
    } cases[] = {
        {"I048/070/mode3a", "Path             Bits  Step  Unit  Title                                   Texts\n"
                            "I048/070/MODE3A  12                Mode-3/A Reply in Octal Representation\n"},
        {"'048/I040/*'", "Path            Bits  Step     Unit  Title  Texts\n"
                         "I048/040/RHO    16    1/256    NM\n"
                         "I048/040/THETA  16    45/8192  \302\260\n"},
        {"vel?city",
         "Path      Bits  Step  Unit  Title                                Texts\n"
         "velocity                    Ground speed; Direction of movement  = groundspeed_kt, = track_deg\n"},
        {"'mode 3/a c?de' --json", "{\"path\":\"squawk\",\"title\":\"Mode 3/A code\"}\n"},
        {"I048/020/RAB --json",
         "{\"path\":\"I048/020/RAB\",\"title\":\"\",\"bits\":1,\"texts\":{\"0\":\"Report from aircraft transponder\","
         "\"1\":\"Report from field monitor (fixed transponder)\"}}\n"},
        {"--json I048/250/MCP_ALT", "{\"path\":\"I048/250/MCP_ALT\",\"title\":\"MCP/FCU selected "
                                    "altitude\",\"unit\":\"ft\",\"bits\":12,\"step\":\"16\","
                                    "\"list\":true}\n"},
        {"'selected_altitude*' --json",
         "{\"path\":\"selected_altitude_ft\",\"title\":\"Altitude that the crew has selected\",\"unit\":\"ft\"}\n"
         "{\"path\":\"selected_altitude\",\"title\":\"Altitude that the crew has selected\","
         "\"stands_for\":[\"selected_altitude_ft\"]}\n"},
    };
    for (const auto &test : cases) {
        const Result result = Command().run(std::string("--fields ") + test.pattern);
        EXPECT_EQ(result.out, test.out) << test.pattern;
        EXPECT_EQ(result.status, 0) << result.err;
    }
}

// Whatever is listed can be asked for.
TEST(Fields, AreAllKnown) {
    Command command;
    EXPECT_EQ(command.run("--fields | sed '1d; s/ .*//; 3,$s/^/or /' >names").status, 0);
    EXPECT_GT(read_file(command.directory() + "/names").size(), 50'000U);
    const Result result = command.run("--quiet --where \"$(cat names)\" " SAMPLES "/radar.ast");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err.find("astdump: --where: no record has timestamp, "), 0U) << result.err.substr(0, 200);
}

TEST(Fields, AreSuggestedLikeOptionsForWrongOnes) {
    const struct {
        const char *arguments;
        const char *said;
    } cases[] = {
        {"--fields sqauwk", "--fields: nothing is called 'sqauwk'; did you mean squawk?\n"},
        {"--jsn a", "not expected: --jsn; did you mean --json?\n"},
        {"--wher=fl a", "not expected: --wher=fl; did you mean --where?\n"},
        {"--list", "FILE is required\n"},
        {"--category 300 a", "'300' is not a list of categories, 0 to 255\n"},
        {"--csv I145/FL a", "did you mean I145? It is a value of its own, without /FL\n"},
    };
    for (const auto &test : cases) {
        const Result result = Command().run(test.arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.err.find(test.said), std::string::npos) << result.err;
    }
}

} // namespace
