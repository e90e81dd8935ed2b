// What the list says of records of any category, and where on the earth they are, by octets worked by hand.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "command.hpp"

namespace {

// 60 NM to the east of 25/12, at flight level 0. Seen from the equator at height 0, that is a chord of its circle of
// 6378137 m: 2 asin(111120 / 2 / 6378137) is 0.998221 degrees.
const std::string kPlot = hex("30 000C 94 190C 3C00 4000 0000");
const std::string kPlotWithoutLevel = hex("30 000A 90 190C 3C00 4000");
const std::string kEast = "00.000000, 000.998221\n";

// 1/256 NM away, which is nearer than it is high: right above the station.
const std::string kOverhead = hex("30 000C 94 190C 0001 4000 0578");

// A north marker that tells the place of 25/12: 780 m, 45 degrees north, 22.5 west.
const std::string kTold = hex("22 0013 E110 190C 01 546000 030C 200000 F00000");

// The last column of all lines but the title.
std::string positions(const Command &command, const std::string &arguments) {
    return command.run("--list " + arguments + " | tail -n +2 | sed 's/.*  //'").out;
}

TEST(Places, AreThoseOfGivenSites) {
    Command command;
    command.write("a", kPlot + kPlotWithoutLevel);
    command.write("overhead", kOverhead);
    command.write("others",
                  "# source, place\r\n 25 , 13 , 1 , 2 # no height\r\n\r\n25,12,0,0,0,Null Island, in the sea");
    EXPECT_EQ(positions(command, "a"), "R:060.0000 T:090.00\nR:060.0000 T:090.00\n");
    EXPECT_EQ(positions(command, "--site 25/13=0,0 a"), "R:060.0000 T:090.00\nR:060.0000 T:090.00\n");
    EXPECT_EQ(positions(command, "--site 25/13=1,2,3 --site 25/12=0,0 a"), kEast + "00.000000, 000.998221 G\n");
    EXPECT_EQ(positions(command, "--sites others a"), kEast + "00.000000, 000.998221 G\n");
    EXPECT_EQ(command.run("--csv latitude,longitude --site 25/12=0,0 --where 'longitude>0.9' a | cut -d, -f5-").out,
              "latitude,longitude\n0,0.9982206\n0,0.9982206\n");
    EXPECT_EQ(positions(command, "--sites others --site 25/12=-43.57,-16.41,780 overhead"), "-43.570000, -16.410000\n");
    EXPECT_EQ(positions(command, "--site 25/12=1,1 --site 25/12=3.5,179.25 overhead"), "03.500000, 179.250000\n");
}

// The whole of a file is looked through beforehand; what comes through a pipe tells of what is behind it.
TEST(Places, AreLearntFromWhatSourcesTell) {
    Command command;
    command.write("a", kOverhead + kTold + kOverhead);
    const std::string known = "45.000000, -22.500000\n";
    EXPECT_EQ(positions(command, "a"), known + "-\n" + known);
    EXPECT_EQ(positions(command, "--category 48 a"), known + known);
    EXPECT_EQ(positions(command, "--site 25/12=1,2,3 --category 48 a"),
              "01.000000, 002.000000\n01.000000, 002.000000\n");
    for (const std::string category : {"", "--category 48 "}) {
        const std::string out = command.run("--quiet a; cat a | " ASTDUMP " --list " + category + "-").out;
        EXPECT_NE(out.find("R:000.0039 T:090.00"), std::string::npos) << out;
        EXPECT_LT(out.find("R:000.0039"), out.find("45.000000, -22.500000")) << out;
    }
}

// Told far behind what is looked through beforehand: known from there on, on however many threads.
TEST(Places, AreLearntInTheOrderOfTheRecording) {
    constexpr int kBefore = 40'000;
    std::string octets;
    for (int i = 0; i < kBefore; ++i) octets += kOverhead;
    octets += kTold;
    for (int i = 0; i < kBefore; ++i) octets += kOverhead;
    Command command;
    command.write("a", octets);
    for (const std::string jobs : {"1", "3"})
        for (const std::string category : {"", " --category 48"}) {
            const std::string list = "--list --jobs " + jobs + category + " a | grep ' 048 '";
            const std::string out = command.run(list + " | sed 's/.*  //' | uniq -c | tr -s ' '").out;
            EXPECT_EQ(out, " 40000 R:000.0039 T:090.00\n 40000 45.000000, -22.500000\n") << jobs << category;
        }
}

// A tracker shows three aircraft on the equator, 60 NM to the east and to the west of 10 degrees, and 30 NM to the
// east.
const std::string kSeen = hex("3E0016 9910 190D 546000 00000000 001F48A9 80 000001"
                              "3E0016 9910 190D 546000 00000000 00199AE5 80 000002"
                              "3E0016 9910 190D 546000 00000000 001DDD37 80 000003");
// 25/12 sees them, too.
const std::string kSeenFromThere = hex("300013 D580 190C 546000 3C00 4000 0000 000001"
                                       "300013 D580 190C 546000 3C00 C000 0000 000002"
                                       "300013 D580 190C 546000 1E00 4000 0000 000003");

TEST(Places, AreWorkedOutFromWhatOthersSee) {
    Command command;
    command.write("a", kOverhead + kSeenFromThere + kSeen);
    const Result list = command.run("--list --category 48 a");
    EXPECT_NE(list.out.find(" 009.999999 E\n"), std::string::npos) << list.out;
    EXPECT_NE(list.out.find(", 010.998220 E\n"), std::string::npos) << list.out;
    EXPECT_EQ(list.err, "");
    command.write("b", kOverhead + kSeenFromThere + hex("30000A 90 190E 0001 4000") + kTold + kSeen);
    EXPECT_EQ(command.run("--list b").err, "astdump: b: places of 2 sources: 1 learnt, 1 not known\n");
    command.write("c", kSeenFromThere + hex("30000A 90 190E 0001 4000") + kSeen);
    const std::string err = command.run("--list --verbose --site 25/14=0,0 c").err;
    EXPECT_NE(err.find("astdump: c: places of 2 sources: 1 given, 1 worked out\n"), std::string::npos) << err;
    EXPECT_NE(err.find("0.0000, 10.0000 as worked out, standard error 110 m\n"), std::string::npos) << err;
}

// As soon as there is enough to go by, at the same record on however many threads, and however the pipe is filled.
TEST(Places, AreWorkedOutWhileAPipeIsRead) {
    std::string octets;
    for (int i = 0; i < 4000; ++i) octets += kSeenFromThere + kSeen;
    Command command;
    command.write("a", octets);
    const std::string list = " | " ASTDUMP " --list --category 48 --jobs ";
    const std::string marks = " - | tail -n +2 | sed 's/.* E .*/E/; s/.*R:.*/R/' | uniq -c | tr -s ' '";
    const std::string out = command.run("--quiet a; cat a" + list + "1" + marks).out;
    EXPECT_EQ(out, " 64 R\n 11936 E\n"); // from block 128 on, 64 behind where sources are looked at
    EXPECT_EQ(command.run("--quiet a; (head -c 500 a; sleep 0.2; tail -c +501 a)" + list + "3" + marks).out, out);
}

TEST(Places, AreRefusedWhereTheyCannotBe) {
    Command command;
    command.write("a", kPlot);
    command.write("lines", "25,12,1,2,3,Split\n\n25,12,north\n");
    const struct {
        const char *option;
        const char *complaint;
    } cases[] = {
        {"--site 25", "--site: '25' is no site such as 25/12=43.57,16.41,780\n"},
        {"--site 25/12=1", "--site: '25/12=1' is no site"},
        {"--site 256/12=1,2", "--site: '256/12=1,2' is no site"},
        {"--site 25/12=91,2", "is no site"},
        {"--site 25/12=1,nan", "is no site"},
        {"--site 25/12=1,181", "is no site"},
        {"--site 25/12=1,2,3,4", "is no site"},
        {"--site 25/12=1,2,1000000", "is no site"},
        {"--site 25/12=1,2 --site 25=1,2", "'25=1,2' is no site"},
        {"--sites lines", "--sites: lines, line 3: '25,12,north' is no site such as 25,12,43.57,16.41,780,name\n"},
        {"--sites nowhere", "--sites: nowhere: No such file or directory\n"},
        {"--sites .", "--sites: .: Is a directory\n"},
    };
    for (const auto &test : cases) {
        const Result result = command.run("--list a " + std::string(test.option));
        EXPECT_EQ(result.status, 2) << test.option;
        EXPECT_NE(result.err.find(test.complaint), std::string::npos) << test.option << ": " << result.err;
    }
}

// Speed and track angle of 010 and 048 stand in items of other numbers and steps: 2048/16384 NM/s are 450 kt.
TEST(List, ShowsMovementOfEveryCategory) {
    Command command;
    command.write("b", hex("0A 0017 D980 190C 01 546000 20000000 F0000000 0800 4000  30 000B 8104 190C 0800 C000"));
    EXPECT_EQ(command.run("--list b").out,
              "Time          SAC/SIC  Cat  Octets  Type    Position               Speed kt  Heading\n"
              "12:00:00.000  025/012  010      20  Plot    45.000000, -22.500000    450.00  T:090.00\n"
              "-             025/012  048       8  Plot    -                        450.00  T:270.00\n");
}

// 89 s of category 001, which counts up to 512 s, are 07:08:09 in what was received then.
TEST(List, CompletesTruncatedTimes) {
    const std::string plot = hex("01 0008 82 190C 2C80");
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(plot)))}));
    command.write("b", plot);
    EXPECT_EQ(command.run("--list a | tail -n 1").out, "07:08:09.000  025/012  001       5  Plot\n");
    EXPECT_EQ(command.run("--list b | tail -n 1").out, "025/012  001       5  Plot\n");
}

// 60 NM to the west and 1.5 to the north of nobody knows where.
TEST(List, ShowsPlaneCoordinatesForWantOfAnythingElse) {
    Command command;
    command.write("b", hex("30 000B 8108 190C E200 00C0"));
    EXPECT_EQ(positions(command, "b"), "X:-060.0000 Y:+001.5000\n");
    EXPECT_EQ(command.run("--csv x_nm,y_nm b | tail -n 1").out, "1,1,,48,-60,1.5\n");
}

// Flight level 350, garbled, and not validated; level -1; and no level.
TEST(List, MarksDoubtfulLevels) {
    Command command;
    command.write("b", hex("30 0008 84 190C 4578  30 0008 84 190C 8578  30 0008 84 190C 3FFC  30 0006 80 190C"));
    EXPECT_EQ(command.run("--list b | tail -n +2 | sed 's/.*  //'").out, "35000?\n35000?\n-00100\n-\n");
}

} // namespace
