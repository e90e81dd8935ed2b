// The layout of the listing, and its details.

#include <gtest/gtest.h>

#include "captures.hpp"
#include "pseudo_terminal.hpp"

namespace {

// A sector crossing message of category 034.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");

const std::string kSample = SAMPLES "/radar.ast";

TEST(Listing, FitsTheTerminal) {
    Command command;
    command.write("a", pcap(1, {ethernet(ipv4(udp(kSector)))}));
    PseudoTerminal terminal(command, "--color never a");
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_EQ(terminal.screen(), R"(#1  2024-05-06 07:08:09.000012Z  10.0.0.1:4000 > 239.1.1.1:8600
    CAT 034  11 octets  standard  1 record  valid
  record 1  8 octets
    I034/010  Data Source Identifier     2  SAC:025 SIC:012    19 0c
    I034/000  Message Type               1  MSG_TYPE:SECTOR_CROSSING
                                                               02
    I034/030  Time of Day                3  TOD:12:00:01.000   54 60 80
    I034/020  Sector Number              1  SECTOR:090DEG      40


)");
}

// Whoever reads from a pipe may say how wide lines are.
TEST(Listing, IsAsWideAsIsAskedFor) {
    Command command;
    command.write("a", kSector);
    const Result result = command.run("--version >&2; export COLUMNS=160; " ASTDUMP " a | grep I034/010");
    EXPECT_EQ(result.out, "    I034/010  Data Source Identifier                                2  "
                          "SAC:025 SIC:012                            19 0c\n");
}

TEST(Listing, ShowsEveryField) {
    const Result result = Command().run("--detail --category 48,62 --count 2 " + kSample);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, read_file(EXPECTED "/detail.txt"));
}

// Nine Mode S registers, the last one with an altitude of its own, and signs in two's complement.
TEST(Listing, ShowsLongDetailsToTheirEnd) {
    std::string registers;
    for (int i = 0; i < 8; ++i) registers += hex("C4600000000000 40");
    Command command;
    command.write("a", hex("30 004E 01 20 09") + registers + hex("80080000000000 40"));
    EXPECT_EQ(command.run("--detail a | grep -c 'BDS 4,0 - Selected Vertical Intention'").out, "9\n");
    EXPECT_EQ(command.run("--detail a | grep -o 'selected altitude  .*' | uniq -c | sed 's/^ *//'").out,
              "8 selected altitude  35008 ft\n"
              "1 selected altitude  16 ft\n");
    command.write("b", hex("30 000E 01 20 01 FF000000000000 60"));
    EXPECT_EQ(command.run("--detail b | grep HDG").out, "                I250[0]/HDG  Magnetic heading  -2.813 deg\n");
}

// Where the library reads a field in a way of its own, and that makes a difference.
TEST(Listing, ShowsPublishedValuesBesideDescribedOnes) {
    Command command;
    command.write("a", hex("30 0009 01 08 0100 FFE0"));
    EXPECT_EQ(command.run("--detail a | grep 'LSB:NM'").out,
              "              Octet[1-2]  X LSB:NM       2.00\n"
              "              Octet[2-3]  Y LSB:NM       -0.24 (published: -0.25 NM)\n");
    command.write("b", hex("30 0006 20 01 06"));
    EXPECT_EQ(command.run("--detail b | grep -o FRIEND.*").out,
              "FRIEND_OR_ENEMY     NO_INTERROGATION (published: 3 No reply)\n");
    command.write("c", hex("30 0006 20 01 00"));
    EXPECT_EQ(command.run("--detail c | grep -c published").out, "0\n");
}

// Two fields in a row, elements of a list, bits and codes as texts, and subfields that have but a summary. Steps of an
// angle are 180/2^23 and 180/2^31 degrees, of a Doppler velocity 0.01 m/s.
TEST(Listing, ShowsPublishedValuesWhereverTheyAreOthers) {
    const struct {
        const char *json, *rows;
    } cases[] = {
        {R"("category":34,"I120":{"HGT":780,"LAT":-16.4,"LON":43.5})",
         "WGS84_COORDINATES -16.399970, 43.500001 (published: -16.3999915 deg, 43.5000014 deg)\n"},
        {R"("category":34,"I120":{"HGT":780,"LAT":16.4,"LON":43.5})", ""},
        {R"("category":16,"I410":[{"TID":1,"LAT":1,"LON":2,"ALT":3,"TTO":6,"ATO":1,"PCI":2},)"
         R"({"TID":2,"LAT":-90,"LON":45,"ALT":-3,"TTO":-6,"ATO":1,"PCI":2}],)"
         R"("I420":[{"RID":1,"LAT":45,"LON":-45,"ALT":0}])",
         "WGS-84 Coordinate -89.99999992, 0045.00000000 (published: -90 deg, 45 deg)\n"
         "Altitude -2.75 (published: -3 m)\nTime Offset -4 (published: -6 ns)\n"
         "WGS-84 Coordinate 045.00000000, -044.99999992 (published: 45 deg, -45 deg)\n"},
        {R"("category":63,"I060":{"CON":0,"PSR":0,"SSR":0,"MDS":0,"ADS":0,"MLT":0,"OPS":0,"ODP":0,"OXT":0,"MSC":0,)"
         R"("TSV":1,"NPW":0})",
         "TSV NO (published: 1 Invalid)\n"},
        {R"("category":15,"I626":{"DV":-12.3})", "1 DV Doppler Velocity 3 1 -122.900000 M/S (published: -12.3 m/s)\n"},
        {R"("category":48,"I130":{"SRR":1,"SAM":-55})",
         "3 SAM Amplitude of (M)SSR Reply 1 1 -201 LSB=DBM (published: -55 dBm)\n"},
        {R"("category":21,"profile":"cat021-0.26","I040":{"DCR":0,"GBS":0,"SIM":0,"TST":0,"RAB":0,"SAA":0,"SPI":0,)"
         R"("ATP":5,"ARC":1},"I090":{"AC":0,"MN":0,"DC":0,"PA":-3})",
         "ADDRESS_TYPE RESERVED (published: 5 Reserved for future use)\n"
         "ALTITUDE_REPORT_CAPABILITY 100FT (published: 1 25 ft)\nPOSITION_ACCURACY 13 (published: -3)\n"},
        {R"("category":21,"profile":"cat021-2.1","I040":{"ATP":3,"ARC":1,"RC":0,"RAB":0,"DCR":0,"GBS":0,"SIM":0,"TST":0,)"
         R"("SAA":0,"CL":0,"IPC":0,"NOGO":1,"CPR":1,"LDPJ":0,"RCF":1})",
         "NOGO 0 (published: 1 NOGO-bit set)\nLDPJ LDPJ_DETECTED (published: 0 LDPJ not detected)\n"
         "RANGE_CHECK_FAILED 0 (published: 1 Range Check failed)\n"},
        {R"("category":19,"I553":{"REFTR1":1,"REFTR2":2})", "RT1 GOOD (published: 1 Warning)\n"},
    };
    for (const auto &test : cases) {
        Command command;
        command.write("a.json", '{' + std::string(test.json) + "}\n");
        const std::string rows =
            "--detail a.json | grep '(published:' | sed -E 's/^ *([0-9]+  )?(Octet|Bit)[^ ]* *//; s/  +/ /g; s/^ //'";
        EXPECT_EQ(command.run(rows).out, test.rows);
    }
}

// Altitudes of other lengths, which make their column narrower and wider again, and change within it.
TEST(Listing, ShowsAnItemAlikeWhateverCameBefore) {
    Command command;
    std::string all;
    std::string each;
    for (const char *const altitude : {"C460", "C468", "8008", "8010", "C460"}) {
        const std::string block = hex("30 000E 01 20 01" + std::string(altitude) + "0000000000 40");
        command.write("one", block);
        each += command.run("--detail one | grep -v '^#'").out;
        all += block;
    }
    command.write("all", all);
    EXPECT_EQ(command.run("--detail all | grep -v '^#'").out, each);
}

// Items that the library has no views of, I021/165 twice with the same octets: turn indicator and rate of turn in
// edition 0.26, 10 bits of track angle rate since 2.1. Behind it stand I021/148 and I021/016.
const std::string kUnread = hex("15 0010 810130 190C 0128 000000000000 15 000F 810101050A 190C 0128 2578 00");

TEST(Listing, FillsInPublishedValuesOfTheRightEdition) {
    Command command;
    command.write("a", kUnread);
    EXPECT_EQ(command.run("a | grep -E 'I021/1(65|48)'").out,
              "    I021/165  Track Angle Rate                           2  TI:NOT_AVAILABLE ROT:5         01 28\n"
              "    I021/165  Track Angle Rate                           2  TAR:9.25                       01 28\n"
              "    I021/148  Final State Selected Altitude              2  AM:ACTIVE ALT:35000            25 78\n");
    EXPECT_EQ(command.run("--detail a | grep -A 4 -E 'I021/1(65|48)' | grep '^  *I1'").out,
              "              I165/TI   Turn Indicator  0 Not available\n"
              "              I165/ROT  Rate of Turn    5 deg/s\n"
              "              I165/TAR  Track Angle Rate  9.25 deg/s\n"
              "              I148/MV   Manage Vertical Mode  0 Not active or unknown\n"
              "              I148/AH   Altitude Hold Mode    0 Not active or unknown\n"
              "              I148/AM   Approach Mode         1 Active\n"
              "              I148/ALT  Altitude              35000 ft\n");
    command.write("b", hex("CD 000A B0 190C 01 546040"));
    EXPECT_EQ(
        command.run("b | tail -n +4").out,
        "    I205/000  Message Type                               1  SYSTEM_POSITION_REPORT         01\n"
        "    I205/030  Time of Day                                3  43200.5 s                      54 60 40\n\n");
    EXPECT_EQ(command.run("--stats b | grep I205/000").out, "I205/000          1  Message Type\n");
}

} // namespace
