// Records that are written with other values, or not again: --set, --dedup and --anonymize.

#include <gtest/gtest.h>

#include "tool/captures.hpp"
#include "tool/command.hpp"

namespace {

const std::string kSamples = SAMPLES "/";

class Setting : public testing::Test {
protected:
    // The octets of the first sample that it takes, as they come out.
    std::string set(const std::string &settings, const std::string &octets) const {
        command_.write("in.ast", hex(octets));
        const Result result = command_.run(settings + " -w out.ast in.ast");
        EXPECT_EQ(result.status, 0) << result.err;
        said_ = result.err;
        return read_file(command_.directory() + "/out.ast");
    }

    Command command_;
    mutable std::string said_;
};

// I048/010, I048/140, I048/020 (roll-call), I048/070: FSPEC 11101000.
TEST_F(Setting, WritesFieldsInPlaceAndLeavesAllElse) {
    const std::string octets = "30 000C E8 190C 5465C0 A0 04E5";
    EXPECT_EQ(set("--set I010/SIC=99", octets), hex("30 000C E8 1963 5465C0 A0 04E5"));
    EXPECT_EQ(set("--set I048/070/MODE3A=7700", octets), hex("30 000C E8 190C 5465C0 A0 0FC0"));
    EXPECT_EQ(set("--set 'I048/020/TYP=Single SSR detection'", octets), hex("30 000C E8 190C 5465C0 40 04E5"));
    EXPECT_EQ(set("--set I140=I140+3600 --set 'I010/SAC = I010/SIC * 2'", octets),
              hex("30 000C E8 180C 5B6DC0 A0 04E5"));
    EXPECT_EQ(set("--set I140=00:00:01 --set I020/TYP=2", octets), hex("30 000C E8 190C 000080 40 04E5"));
    EXPECT_EQ(said_, "");
}

TEST_F(Setting, TimesGoOnOverMidnight) {
    EXPECT_EQ(set("--set I140=I140+3600", "30 0007 40 A8BF80"), hex("30 0007 40 070780")) << "23:59:59";
    EXPECT_EQ(set("--set I140=I140-3600", "30 0007 40 000080"), hex("30 0007 40 A1B880")) << "00:00:01";
}

// Two elements of a list of registers, the selected altitude of each; characters; a subfield of a compound item.
TEST_F(Setting, TakesListsCharactersUnitsAndCompounds) {
    const std::string registers = "30 0016 01 20 02 C8480030A80000 40 C8480030A80000 40";
    EXPECT_EQ(set("--set 'I250/MCP_ALT=32000ft'", registers),
              hex("30 0016 01 20 02 BE800030A80000 40 BE800030A80000 40"));
    EXPECT_EQ(set("--set 'I250[1]/MCP_ALT=32000'", registers),
              hex("30 0016 01 20 02 C8480030A80000 40 BE800030A80000 40"));
    EXPECT_EQ(set("--set I240=AB1", "30 000B 01 40 104132D60820"), hex("30 000B 01 40 042C60820820"));
    EXPECT_EQ(set("--set I062/380/ADR=ABCDEF", "3E 0009 01 10 80 123456"), hex("3E 0009 01 10 80 ABCDEF"));
}

TEST_F(Setting, ChoosesRecords) {
    const std::string two = "30 0009 80 190C 80 1A0C";
    EXPECT_EQ(set("--set 'I010/SIC=99 if I010/SAC=25'", two), hex("30 0009 80 1963 80 1A0C")) << "both are kept";
    EXPECT_EQ(set("--set I010/SIC=99 --where I010/SAC=25", two), hex("30 0006 80 1963")) << "only that is written";
}

TEST_F(Setting, TellsWhatItCannotDo) {
    const std::string octets = "30 000C 80 190C C0 1AFF 000080";
    EXPECT_EQ(set("--set I140=2 --set I010/SIC=I010/SIC+1", octets), hex("30 000C 80 190D C0 1AFF 000100"));
    EXPECT_EQ(said_, "astdump: --set: 1 record has no I140\n"
                     "astdump: --set: 1 record would have a value that does not fit I010/SIC, which is 0 to 255\n");
}

struct Wrong {
    const char *setting;
    const char *said;
};

TEST_F(Setting, SaysWhatIsWrong) {
    const Wrong cases[] = {
        {"I010/SIC", "expected PATH=VALUE"},
        {"I010/SIC=", "expected a value"},
        {"I010/SIC=256", "'256' is no value of I010/SIC, which is 0 to 255"},
        {"I010/SOC=1", "'I010/SOC' is a field of no category"},
        {"sic=1", "'sic' is no path such as I010/SIC"},
        {"I048/070=1", "holds fields that have"},
        {"I070/MODE3A=7800", "'7800' is no value of I070/MODE3A, which is octal digits"},
        {"I048/020/TYP=roll", "No detection"},
        {"I140=I141x+1", "expected a number, or a path such as I140"},
        {"I140=(1", "expected + - * / or )"},
        {"I140=1 if nonsense", "'nonsense' is no quantity"},
    };
    for (const auto &[setting, said] : cases) {
        const Result result = command_.run("--set '" + std::string(setting) + "' " + kSamples + "radar.ast");
        EXPECT_EQ(result.status, 2) << setting;
        EXPECT_NE(result.err.find(said), std::string::npos) << setting << ": " << result.err;
    }
}

// I048/010, 140, 020 and 220 of one report; the other one differs in I048/020.
const std::string kReport = hex("30 000E E180 190C 5465C0 A0 3C4A12");
const std::string kOther = hex("30 000E E180 190C 5465C0 40 3C4A12");

struct Came {
    std::vector<std::string> frames;
    std::string option;
    std::string written;
    std::string said;
};

TEST_F(Setting, DedupLeavesOutWhatCameTwice) {
    const std::string four = ethernet(ipv4(udp(kReport))), four_other = ethernet(ipv4(udp(kOther)));
    const std::string six = ethernet(ipv6(udp(kReport))), six_other = ethernet(ipv6(udp(kOther)));
    const std::string one = "astdump: --dedup: 1 record that came twice left out";
    const Came cases[] = {
        {{four, six}, "--dedup", kReport, one + "\n"},
        {{four, four}, "--dedup 1s", kReport, one + "\n"},
        {{four, four}, "--dedup 999ms", kReport + kReport, ""},
        {{four, six_other}, "--dedup", kReport, one + ", 1 of them in other octets\n"},
        {{four, four_other}, "--dedup", kReport + kOther, ""},
        {{four, four_other, six}, "--dedup 2s --jobs 3", kReport + kOther, one + "\n"},
    };
    for (const auto &[frames, option, written, said] : cases) {
        command_.write("in.pcap", pcap(1, frames));
        const Result result = command_.run(option + " -w out.ast in.pcap");
        EXPECT_EQ(read_file(command_.directory() + "/out.ast"), written) << option;
        EXPECT_EQ(result.err, said);
    }
}

// Without a time of reception, that of the record counts.
TEST_F(Setting, DedupTakesTheTimeOfDay) {
    command_.write("in.ast", kReport + hex("30 000E E180 190C 5480C0 A0 3C4A12") + kReport);
    EXPECT_EQ(command_.run("--dedup 10s -w out.ast in.ast").err, "") << "54 s later, and back";
    EXPECT_EQ(command_.run("--dedup 100s -w out.ast in.ast").err,
              "astdump: --dedup: 1 record that came twice left out\n");
}

// Whole records alone: what is broken, or of a category that nobody has published, might tell anything.
TEST_F(Setting, AnonymizesAllThatIsWritten) {
    command_.write("in.ast", kReport + hex("30 000C E8 190C 5465C0 A0 0FC0") + hex("C8 0005 0102") + kReport +
                                 hex("30 0008 E8 3C4A12 54"));
    const auto written = [&](const std::string &seed) {
        command_.run("--anonymize " + seed + " -w out.ast in.ast");
        return read_file(command_.directory() + "/out.ast");
    };
    const std::string octets = written("one");
    ASSERT_EQ(octets.size(), 40U);
    EXPECT_EQ(octets.substr(0, 14), octets.substr(26)) << "one address";
    EXPECT_EQ(octets.substr(0, 11), kReport.substr(0, 11));
    EXPECT_NE(octets.substr(11, 3), kReport.substr(11, 3));
    EXPECT_EQ(octets.substr(14, 12), hex("30 000C E8 190C 5465C0 A0 0FC0")) << "7700";
    EXPECT_EQ(written("one"), octets);
    for (const std::string form : {"", "--json ", "--detail "})
        EXPECT_EQ(command_.run(form + "--anonymize one in.ast").out.find("3C4A12"), std::string::npos) << form;
    EXPECT_NE(written("two"), octets);
}

} // namespace
