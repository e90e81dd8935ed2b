// The HTML page as a file; what a browser makes of it is looked at in page_in_browser.sh.

#include <gtest/gtest.h>

#include "command.hpp"

namespace {

const std::string kSample = SAMPLES "/radar.ast";

TEST(Page, CountsByCategory) {
    const Result result =
        Command().run("--html page --category 34,62 " + kSample + " && sed -n '/^<tr><th scope=.row/p' page");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, R"(<tr><th scope="row">034</th><td>2</td><td>2</td><td>9</td><td>28</td><td>0</td></tr>
<tr><th scope="row">062</th><td>1</td><td>1</td><td>14</td><td>76</td><td>0</td></tr>
<tr><th scope="row">all</th><td>3</td><td>3</td><td>23</td><td>104</td><td>0</td></tr>
)");
}

TEST(Page, ShowsWhatIsAskedFor) {
    const Command command;
    EXPECT_EQ(
        command.run("--html page --where icao=3C4A12 " + kSample + " && grep -c '>2 blocks, 151 octets<' page").out,
        "1\n");
    EXPECT_EQ(command.run("--html page --stats --category 62 " + kSample).out.find("Category "), 0U);
    EXPECT_EQ(command.run("--html page - < /dev/null && grep -c '<h2>standard input</h2>' page").out, "1\n");
}

TEST(Page, IsNoMoreThanTenTimesTheRecordingAndSaysSo) {
    const Command command;
    const Result result = command.run("--html page " SAMPLES "/radar.pcap");
    const size_t octets = read_file(SAMPLES "/radar.pcap").size();
    const size_t page = read_file(command.directory() + "/page").size();
    EXPECT_LT(page, 10 * octets);
    EXPECT_EQ(result.err.find("astdump: page: a page of " + std::to_string(page) + " octets, "), 0U) << result.err;
    EXPECT_NE(result.err.find(" times the recording\n"), std::string::npos);
}

// Octets as characters, names of files: nothing of it may become markup.
TEST(Page, HoldsNoMarkupOfOthers) {
    Command command;
    command.write("\"<i>&", read_file(kSample));
    EXPECT_EQ(command.run("--html page '\"<i>&' && grep '<h2>' page").out, "<h2>&quot;&lt;i&gt;&amp;</h2>\n");
}

TEST(Page, SaysWhatIsNotInIt) {
    Command command;
    command.write("input", read_file(kSample) + hex("FA 0006 800102  22 000B F0 190C 02 546080 40  0000"));
    EXPECT_EQ(command.run("--html page input; grep -A3 '>all<' page | sed -n '/^<p/p'").out,
              "<p class=\"fault\">Lost: 2 octets skipped</p>\n<p>Not supported: 1 block</p>\n");
}

TEST(Page, SaysWhenItCannotBeWritten) {
    for (const auto &[page, reason] :
         {std::pair("/nowhere/page", "No such file or directory"), std::pair("/dev/full", "No space left on device")}) {
        const Result result = Command().run("--html " + std::string(page) + " " + kSample);
        EXPECT_EQ(result.status, 2) << page;
        EXPECT_EQ(result.err, std::string("astdump: ") + page + ": " + reason + "\n");
    }
}

TEST(Page, IsNeverWrittenOverAnInput) {
    Command command;
    const std::string blocks = read_file(kSample);
    command.write("input", blocks);
    command.run("--quiet input; ln -s input soft; ln input hard");
    for (const std::string page : {"input", "soft", "hard"})
        for (const std::string file : {"input", "- < input"}) {
            const Result result = command.run("--html " + page + " " + file);
            EXPECT_EQ(result.status, 2);
            EXPECT_EQ(result.err, "astdump: " + page + ": is an input, and not overwritten\n");
            EXPECT_EQ(read_file(command.directory() + "/input"), blocks);
        }
}

TEST(Page, TakesThePlaceOfAnOldOneOnlyWhenItIsWhole) {
    Command command;
    command.write("old", "old");
    EXPECT_EQ(command.run("--quiet " + kSample + "; chmod 640 old; ln -s old page").status, 0);
    EXPECT_EQ(command.run("--html page " + kSample + " missing").status, 2);
    EXPECT_EQ(read_file(command.directory() + "/old"), "old");
    EXPECT_EQ(command.run("--html page " + kSample + " && stat -c '%A %F' old page && ls").out,
              "-rw-r----- regular file\nlrwxrwxrwx symbolic link\nold\npage\n");
    EXPECT_NE(read_file(command.directory() + "/old").find("</html>"), std::string::npos);
}

} // namespace
