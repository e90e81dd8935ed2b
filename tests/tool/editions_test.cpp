// By which edition data sources are read, what no profile of the registry knows, and blocks of many records.

#include <algorithm>
#include <gtest/gtest.h>

#include "command.hpp"

namespace {

// Reports of one source of category 021, I021/010 and 040 alone: two of any edition from 1.0 on, where I021/040 may
// take one octet, which are one of any edition before, where it takes two, and one of 00 as well; and what fits one of
// them alone.
const std::string kEither = hex("15 000B C0 1914 00 C0 8014 00");
const std::string kNew = hex("15 0007 C0 1914 00");
const std::string kOld = hex("15 0008 C0 1914 0000");

size_t count(const std::string &text, const std::string &piece) {
    size_t found = 0;
    for (size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) ++found;
    return found;
}

std::string times(size_t count, const std::string &piece) {
    std::string text;
    while (count-- != 0) text += piece;
    return text;
}

TEST(Editions, OfAFileDoNotChangeMidway) {
    Command command;
    command.write("old", times(3, kEither) + times(2, kOld));
    command.write("new", times(3, kEither) + times(2, kNew));
    EXPECT_EQ(count(command.run("old").out, "cat021-0.26 (ambiguous)"), 5U);
    EXPECT_EQ(count(command.run("new").out, "published 2.7 (ambiguous)"), 5U);
    EXPECT_EQ(count(command.run("- < old").out, "cat021-0.26"), 5U);
    EXPECT_EQ(count(command.run("--json old").out, R"("profile":"cat021-0.26","ambiguous":true,)"), 8U);
    const Result stats = command.run("--stats old new");
    EXPECT_NE(stats.out.find("cat021-0.26     0.26     021                5  ambiguous: others fit as well\n"
                             "published       2.7      021                5  ambiguous: others fit as well\n"),
              std::string::npos)
        << stats.out;
}

TEST(Editions, OfAPipeAreLearntInItsOrder) {
    Command command;
    command.write("old", times(3, kEither) + times(2, kOld) + kEither);
    const std::string out = command.run("--version >/dev/null; cat old | " ASTDUMP " - | grep '^#'").out;
    EXPECT_EQ(count(out, "published 2.7"), 3U) << out;
    EXPECT_NE(out.find("#6  CAT 021  11 octets  cat021-0.26"), std::string::npos) << out;

    // What the first blocks tell holds for all of many chunks.
    command.write("many", times(3, kOld) + times(60000, kEither));
    for (const char *const jobs : {"1", "3"}) {
        const std::string piped = "--version >/dev/null; cat many | " ASTDUMP " --stats - --jobs ";
        const std::string counts = command.run(piped + jobs).out;
        EXPECT_NE(counts.find("\ncat021-0.26     0.26     021            60003  ambiguous"), std::string::npos)
            << counts;
    }
}

TEST(Editions, AreForcedWhereAProfileHasThem) {
    // A plot, and a track that reads as a plot with a code, too.
    Command command;
    command.write("input", hex("01 000D F0 190C 80 0123 40000000") + kEither + hex("F7 0006 80 190C"));
    const struct {
        const char *uap;
        const char *headings[3];
    } cases[] = {
        {"auto", {"standard", "published 2.7 (ambiguous)", "published 1.3"}},
        {"standard", {"standard", "cat021-0.26", "published 1.3"}},
        {"cat021-0.23", {"standard", "cat021-0.23", "published 1.3"}},
        {"cat001-plot", {"cat001-plot", "published 2.7 (ambiguous)", "published 1.3"}},
        {"published", {"standard", "published 2.7", "published 1.3"}},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.uap);
        const Result result = command.run(std::string("input --uap ") + test.uap);
        EXPECT_EQ(result.status, 0) << result.err;
        const bool forces_plots = std::string(test.uap) == "cat001-plot";
        EXPECT_EQ(result.out.find("I001/161") == std::string::npos, forces_plots);
        const char *const beginnings[] = {"CAT 001  13 octets  ", "CAT 021  11 octets  ", "CAT 247  6 octets  "};
        for (size_t i = 0; i < std::size(beginnings); ++i)
            EXPECT_NE(result.out.find(std::string(beginnings[i]) + test.headings[i] + "  "), std::string::npos)
                << result.out;
    }
}

// What only the published documents describe: I034/100 at FRN 9, a compound item without a subfield, category 247.
TEST(Editions, BeyondTheRegistryAreRead) {
    Command command;
    command.write("b", hex("22 000F 81 40 190C 0102030405060708") + hex("30 0007 82 190C 00"));
    EXPECT_EQ(command.run("--quiet b").status, 0);
    EXPECT_EQ(count(command.run("b").out, "standard  1 record  valid"), 2U);
    EXPECT_EQ(count(command.run("--json b").out, R"("I100":)"), 1U);
}

// From text to octets, worked by hand, and back.
TEST(Editions, BeyondTheRegistryAreWritten) {
    const struct {
        const char *line;
        std::string octets;
    } cases[] = {
        {R"({"category":205,"I010":{"SAC":25,"SIC":12},"I000":1,"I030":43200,"I040":7,"I090":"118.500"})",
         hex("CD 0012 BC 190C 01 546000 07 3131382E353030")},
        {R"({"category":247,"I010":{"SAC":25,"SIC":12},"I015":2,"I140":43200.5,)"
         R"("I550":[{"CAT":48,"MAIN":1,"SUB":32},{"CAT":34,"MAIN":1,"SUB":29}]})",
         hex("F7 0011 F0 190C 02 546040 02 300120 22011D")},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.line);
        Command command;
        command.write("text", std::string(test.line) + '\n');
        EXPECT_EQ(command.run("text --quiet --write b.ast").err, "");
        ASSERT_EQ(read_file(command.directory() + "/b.ast"), test.octets);
        const Result again = command.run("--json b.ast");
        EXPECT_EQ(again.err, "");
        const std::string text = test.line;
        const std::string items = text.substr(text.find(R"("I010")"));
        EXPECT_EQ(again.out, R"({"block":1,"record":1,"offset":0,)" + text.substr(1, text.find(',')) +
                                 R"("profile":"published",)" + items + '\n');
    }
}

// 70 sector crossings of source 25/12, each with another sector; a decoded block of the library holds 64 records.
TEST(LongBlocks, ShowAllTheirRecords) {
    constexpr unsigned kRecords = 70;
    std::string block = hex("22 0161"); // 3 + 70 * 5 octets
    for (unsigned i = 0; i < kRecords; ++i) block += hex("D0 190C 02") + static_cast<char>(i);
    Command command;
    command.write("b", block);
    const auto lines = [&](const std::string &arguments) {
        const Result result = command.run(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        return std::ranges::count(result.out, '\n');
    };
    EXPECT_EQ(count(command.run("b").out, "\n  record "), kRecords);
    EXPECT_EQ(count(command.run("--detail b").out, "\n  record "), kRecords);
    EXPECT_EQ(lines("--list b"), kRecords + 1);
    EXPECT_EQ(lines("--csv I020 b"), kRecords + 1);
    EXPECT_EQ(lines("--json b"), kRecords);
    EXPECT_NE(command.run("--stats b")
                  .out.find("034               1          0           0         70          210           353\n"),
              std::string::npos);
    // 69 sectors of 360/256 degrees are 97.03125.
    EXPECT_EQ(command.run("--csv I020 --where 'I020>96' b").out,
              "block,record,received,category,I020\n1,70,,34,97.03\n");
    EXPECT_EQ(lines("--json --convert 2 b"), kRecords);

    command.run("--write part.ast --where 'I020>90' b");
    EXPECT_EQ(read_file(command.directory() + "/part.ast").size(), 3U + 5 * 5);
    for (const char *const file : {"lines.json", "whole.ast"}) {
        command.run(std::string("--write ") + file + " b");
        command.run(std::string("--quiet --write again.ast ") + file);
        EXPECT_EQ(read_file(command.directory() + "/again.ast"), block);
    }
}

// FRN 1 to 42 of category 021, every one of them as short as it can be; a record of the library holds 32 items.
TEST(LongBlocks, KeepRecordsOfMoreItemsThanCanBeShown) {
    const std::string block = hex("15 006D FFFFFFFFFFFE") + std::string(100, '\0');
    Command command;
    command.write("b", block);
    const Result lines = command.run("--json b");
    EXPECT_NE(lines.out.find(R"("error":"more than 32 items in a record","data":"FFFFFFFFFFFE0000)"),
              std::string::npos);
    command.write("lines", lines.out);
    command.run("--quiet --write again.ast lines");
    EXPECT_EQ(read_file(command.directory() + "/again.ast"), block);
}

// The same, broken off behind the 33rd of them, and further on.
TEST(LongBlocks, ShowTheBeginningOfRecordsOfManyItemsThatBreakOff) {
    const std::string items(100, '\0');
    Command command;
    command.write("b", hex("15 005E FFFFFFFFFFFE") + items.substr(0, 85) + hex("15 006A FFFFFFFFFFFE") +
                           items.substr(0, 97));
    for (const char *const mode : {"", "--list", "--detail", "--json"}) {
        const Result result = command.run(std::string(mode) + " b");
        EXPECT_NE(result.err.find("2 blocks, the first at offset 0: in record 1 after 32 items, at octet 92 of 94"),
                  std::string::npos)
            << mode << result.err;
    }
}

} // namespace
