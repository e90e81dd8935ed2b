// Records chosen by what they hold, and the list of them.

#include <gtest/gtest.h>

#include "command.hpp"

namespace {

const std::string kSample = SAMPLES "/radar.ast";

// Every column, as what comes live has it; what is at rest shows those alone that hold something.
const std::string kHeader = "Time          SAC/SIC  Cat  Octets  Type    Track  Squawk  Callsign  ICAO    Height ft  "
                            "Selected ft  Position               Speed kt  Heading";
const std::string kOtherHeader = "              ft/min  Velocity m/s\n";
const std::string kNorth = "12:00:00.000  025/012  034      14  North       -  -       -         -               -  "
                           "          -  -                             -  -";
const std::string kRollCall = "12:00:01.500  025/012  048      47  Track     420  2345    DLH4AB    3C4A12      35000  "
                              "      35008  R:045.5000 T:120.00      450.00  T:290.00";
const std::string kPrimary = "12:00:01.750  025/012  048      25  Track      43  -       -         -               -  "
                             "          -  R:012.2500 T:300.00      179.96  T:045.00";
const std::string kSector = "12:00:01.000  025/012  034       8  Sector      -  -       -         -               -  "
                            "          -  -                             -  -";
const std::string kBehindNone = "                         -  -\n";
const std::string kBehindTrack = "                  -  -\n";

// The list of a file that comes through a pipe.
std::string live(const Command &command, const std::string &arguments, const std::string &file) {
    return command.run("--quiet " + file + "; cat " + file + " | " ASTDUMP " --list " + arguments + " -").out;
}

TEST(List, ShowsTheSample) {
    const Result result = Command().run("--list --category 34,48 " + kSample);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, kHeader + '\n' + kNorth + '\n' + kRollCall + '\n' + kPrimary + '\n' + kSector + '\n');
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(live(Command(), "--category 34,48", kSample), kHeader + kOtherHeader + kNorth + kBehindNone + kRollCall +
                                                                kBehindTrack + kPrimary + kBehindTrack + kSector +
                                                                kBehindNone);
}

// Data source and Mode 3/A code of a thousand records, then one with a track number and one with a Mode C code.
TEST(List, ShowsTheColumnsThatHoldSomething) {
    std::string plots;
    for (int i = 0; i < 1000; ++i) plots += hex("30 0008 88 190C 0456");
    Command command;
    command.write("b", plots + hex("30 0009 8110 190C 0007  30 0008 88 190C 0456  30 0008 84 190C 0578"));
    EXPECT_EQ(command.run("--list b | uniq").out, "SAC/SIC  Cat  Octets  Type    Squawk\n"
                                                  "025/012  048       5  Plot    2126\n"
                                                  "SAC/SIC  Cat  Octets  Type    Track  Squawk\n"
                                                  "025/012  048       6  Track       7  -\n"
                                                  "025/012  048       5  Plot        -  2126\n"
                                                  "SAC/SIC  Cat  Octets  Type    Track  Squawk  Height ft\n"
                                                  "025/012  048       5  Plot        -  -           35000\n");
}

// Of a report that is shown where it is met, what stands before it is shown, whatever columns come behind it; others
// are shown behind the list.
TEST(List, WaitsForNothingBeforeAReport) {
    Command command;
    command.write("b", hex("30 0008 88 190C 0456  30 0006 54 0000  30 0008 84 190C 0578"));
    const std::string out = command.run("--verbose --list b 2>&1").out;
    const size_t report = out.find("astdump: b: offset 8");
    EXPECT_LT(out.find("2126"), report) << out;
    EXPECT_NE(out.find("Height ft", report), std::string::npos) << out;
    const std::string grouped = command.run("--list b 2>&1").out;
    EXPECT_LT(grouped.find("35000"), grouped.find("astdump: b: offset 8")) << grouped;
}

TEST(List, FitsATerminal) {
    const auto shown = [](const char *columns) {
        const std::string list =
            std::string("stty cols ") + columns + "; " ASTDUMP " --list --category 48 --color never ";
        return Command().run("--quiet /dev/null; script -qec '" + list + kSample + "' /dev/null").out;
    };
    EXPECT_NE(shown("80").find("Time          Cat  Track  Squawk  Callsign  Height ft  Position\r\n"
                               "12:00:01.500  048    420  2345    DLH4AB        35000  R:045.5000 T:120.00\r\n"),
              std::string::npos);
    EXPECT_NE(shown("200").find(kHeader + "\r\n" + kRollCall + "\r\n"), std::string::npos);
}

// Each with its time in an item of another number; the types of quantities are those of the published items.
TEST(List, ShowsSourceTimeAndTypeOfEveryCategory) {
    Command command;
    command.write("b", hex("41 000A D0 190D 02 546040  17 000A D0 190D 03 546080  08 000B C180 190D FE 5460C0"
                           "13 000A E0 190D 01 546100  3F 0009 A0 190D 546140"));
    EXPECT_EQ(command.run("--list b | tail -n +2 | tr -s ' '").out, "12:00:00.500 025/013 065 7 Update cycle\n"
                                                                    "12:00:01.000 025/013 023 7 Statistics\n"
                                                                    "12:00:01.500 025/013 008 8 Weather\n"
                                                                    "12:00:02.000 025/013 019 7 Update cycle\n"
                                                                    "12:00:02.500 025/013 063 6 Status\n");
    EXPECT_EQ(command.run("--csv time,sacsic,type b | tail -n +2 | cut -d, -f5-").out,
              "12:00:00.500,25,13,update cycle\n"
              "12:00:01.000,25,13,statistics\n"
              "12:00:01.500,25,13,weather\n"
              "12:00:02.000,25,13,update cycle\n"
              "12:00:02.500,25,13,status\n");
    const std::string batch = "1,1,,65,12:00:00.500\n";
    for (const std::string type : {"'update*'", "'end of batch'", "'*cycle'"})
        EXPECT_EQ(command.run("--csv time --category 65 --where type=" + type + " b | tail -n +2").out, batch) << type;
}

TEST(List, NamesFilesAndFlags) {
    Command command;
    command.write("b", hex("30 000B C8 190C 546000 64E5"));
    const Result result = command.run("--list b " + kSample + " --category 48");
    EXPECT_EQ(result.out.find("==> b <==\nTime          SAC/SIC  Cat  Octets  Type    Squawk\n"), 0U) << result.out;
    EXPECT_NE(result.out.find("  2345GL\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("radar.ast <==\n" + kHeader + '\n' + kRollCall + '\n'), std::string::npos) << result.out;
}

TEST(Where, ChoosesRecords) {
    const std::string north = kNorth + kBehindNone;
    const std::string roll_call = kRollCall + kBehindTrack;
    const std::string primary = kPrimary + kBehindTrack;
    const std::string sector = kSector + kBehindNone;
    const struct {
        const char *conditions;
        std::string out;
    } cases[] = {
        {"--where squawk=2345", roll_call},
        {"--where squawk=2346", ""},
        {"--where callsign=dlh4ab", roll_call},
        {"--where callsign=DLH4", ""},
        {"--where icao=3c4A12", roll_call},
        {"--where track=43", primary},
        {"--where fl=350", roll_call},
        {"--where sacsic=25012", north + roll_call + primary + sector},
        {"--where sacsic=25/12", north + roll_call + primary + sector},
        {"--where type=sector", sector},
        {"--where sacsic=25/13", ""},
        {"--where type=track", roll_call + primary},
        {"--where time=12:00:01.750", primary},
        {"--where selalt=35008", roll_call},
        {"--where callsign", roll_call},
        {"--where selalt", roll_call},
        {"--where polar", roll_call + primary},
        {"--where speed", roll_call + primary},
        {"--where 'speed<200'", primary},
        {"--where groundspeed_kt=179.96", primary},
        {"--where icao24=3C4A12", roll_call},
        {"--where 'track_deg>289'", roll_call},
        {"--where 'range_nm=45.5'", roll_call},
        {"--where 'polar=R:045.5*'", roll_call},
        {"--where 'type=north marker'", north},
        {"--where 'type!=track'", north + sector},
        {"--where emergency=0", roll_call},
        {"--where sic=12 --where sac=25", north + roll_call + primary + sector},
        {"--where 'sacsic=025/*'", north + roll_call + primary + sector},
        {"--where latitude", ""},
        {"--where timestamp", ""},
        {"--where type=track --where callsign", roll_call},
        {"--where track=43 --where squawk=2345", ""},
        {"--where 'callsign=dlh*b'", roll_call},
        {"--where 'callsign!=D?H4AB'", ""},
        {"--where 'track<420'", primary},
        {"--where 'fl>=350.25'", ""},
        {"--where 'time>=12:00:01.5' --where 'time<12:00:01.75'", roll_call},
        {"--where I070/MODE3A=2345", roll_call},
        {"--where 'I070/MODE3A>2344' --where 'i070/mode3a<=2345'", roll_call},
        {"--where 'I090/FL>=350'", roll_call},
        {"--where 'I090/FL>350'", ""},
        {"--where I140=12:00:01.75", primary},
        {"--where 'I030<=12:00:00'", north},
        {"--where 034/I010/SIC=12", north + sector},
        {"--where 'I040/THETA=120'", roll_call}, // 119.998, half a step of 360/65536 away at most
        {"--where 'I040/THETA=120.01'", ""},
        {"--where 'I240=DLH4AB*'", roll_call},
        {"--where 'I220=3c4a*'", roll_call},
        {"--where I240", roll_call},
        {"--where I000=1", north},
        {"--where 'I000=sector*'", sector},
        {"--where I250/MCP_ALT=35008", roll_call},
        {"--where 'I250[0]/MCP_ALT'", roll_call},
        {"--where 'I250[7]/MCP_ALT'", ""},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.conditions);
        const std::string all = kHeader + kOtherHeader + test.out;
        EXPECT_EQ(live(Command(), std::string("--category 34,48 ") + test.conditions, kSample),
                  test.out.empty() ? "" : all);
    }
}

TEST(Where, SaysOnceWhatHasTwoMeanings) {
    const auto warned = [&](const std::string &arguments) {
        const std::string err = Command().run("--list " + arguments + ' ' + kSample).err;
        EXPECT_EQ(err.find("I140 is", err.find("I140 is") + 1), std::string::npos) << err;
        return err.find("I140 is") != std::string::npos;
    };
    EXPECT_TRUE(warned("--where 'I140>5 or I140>1000'"));
    EXPECT_FALSE(warned("--where 'I048/140>5'"));
    EXPECT_FALSE(warned("--where 'I140>5' --category 48"));
    EXPECT_FALSE(warned("--where 'I140>=12:00'")); // which no height is
    EXPECT_FALSE(warned("--where I140"));
}

TEST(Where, LeavesOutTheRestOfABlock) {
    const std::string primary = "--category 34,48 --where track=43 " + kSample;
    const Result listed = Command().run(primary);
    EXPECT_EQ(listed.out.find("#2  CAT 048  75 octets  standard  2 records  valid\n  record 2  25 octets\n"), 0U);
    EXPECT_EQ(Command().run("--stats " + primary).out,
              R"(Category     Blocks    Damaged Unsupported    Records        Items        Octets
048               1          0           0          1            9            75
all               1          0           0          1            9            75

Item          Count  Name
I048/010          1  Data Source Identifier
I048/020          1  Target Report Descriptor
I048/040          1  Measured Position in Polar Co-ordinates
I048/042          1  Calculated Position in Cartesian Co-ordinates
I048/130          1  Radar Plot Characteristics
I048/140          1  Time of Day
I048/161          1  Track Number
I048/170          1  Track Status
I048/200          1  Calculated Track Velocity in Ploar Co-ordinates

Profile         Edition  Category      Blocks
standard        1.32     048                1

Framing         File
raw             )" +
                  kSample + "\n");
}

TEST(Where, CountsOnlyBlocksThatAreShownAndReportsTheDamageOfOthers) {
    // The first block breaks off; of the others, each with a Mode 3/A code alone, the last two have code 0443.
    Command command;
    command.write("b", hex("30 0007 C0 190C 54  30 0006 08 0456  30 0006 08 0123  30 0006 08 0123"));
    const Result result = command.run("--where squawk=443 --count 1 b");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out.find("#3  CAT 048"), 0U) << result.out;
    EXPECT_EQ(result.out.find('#', 1), std::string::npos) << result.out;
    EXPECT_NE(result.err.find("offset 0: category 048: damaged"), std::string::npos);
}

TEST(Where, RefusesWhatCannotBe) {
    const struct {
        const char *condition;
        const char *complaint;
    } cases[] = {
        {"level=350", "'level' is no quantity, nor a path such as I070/MODE3A; did you mean fl?\n"
                      "  level=350\n"
                      "  ^^^^^\n"},
        {"'callsign=\303\204* or sqauwk=1'", "did you mean squawk?\n"
                                             "  callsign=\303\204* or sqauwk=1\n"
                                             "                 ^^^^^^\n"},
        {"=350", "expected a condition, such as squawk=7700\n  =350\n  ^\n"},
        {"timestamp=12:00", "'12:00' is no value of timestamp, which is a date and time, such as 2014-"},
        {"squawk=7780", "'7780' is no value of squawk, which is octal digits"},
        {"icao=KLM1", "'KLM1' is no value of icao, which is hexadecimal digits"},
        {"fl=FL350", "'FL350' is no value of fl"},
        {"track=", "'' is no value of track"},
        {"type=", "'' is no value of type"},
        {"callsign\\>K", "'K' is no value of callsign, which is a word, to be compared by = and !="},
        {"time=12:60", "'12:60' is no value of time"},
        {"track!5", "'!5' does not begin with one of = != < <= > >="},
        {"I070/MODE3X=1", "--where: 'I070/MODE3X' is a field of no category"},
        {"048/I550", "'048/I550' is a field of no edition of that category"},
        {"048/I070=1", "'048/I070' has no value of its own"},
        {"I090/FL=high", "'high' is no value that I090/FL can be compared with"},
        {"I070/MODE3A=7780", "'7780' is no value that"},
    };
    for (const auto &test : cases) {
        const Result result = Command().run("--where " + std::string(test.condition) + ' ' + kSample);
        EXPECT_EQ(result.status, 2) << test.condition;
        EXPECT_EQ(result.out, "") << test.condition;
        EXPECT_NE(result.err.find(test.complaint), std::string::npos) << result.err;
    }
}

} // namespace
