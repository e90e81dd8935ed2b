#include <gtest/gtest.h>

#include "support/octets.hpp"
#include "support/records.hpp"
#include "support/text.hpp"

using namespace ast_test;

namespace {

using Conversion = ast_datarecord_t(uint8_t *buffer, uint64_t length, const ast_datarecord_t *source);

struct Direction {
    Conversion *convert;
    uint32_t from;
};

constexpr Direction k048To001{ast_datarecord_convert_048_001, 48};
constexpr Direction k001To048{ast_datarecord_convert_001_048, 1};
constexpr Direction k034To002{ast_datarecord_convert_034_002, 34};
constexpr Direction k002To034{ast_datarecord_convert_002_034, 2};

// The octets that come of those of a record; none when there is no result. The smallest buffer holds them all.
std::vector<uint8_t> converted(const Direction &direction, const std::vector<uint8_t> &data,
                               ast_uap_t uap = AST_UAP_STANDARD) {
    const auto source = ast_datarecord_decode(data.data(), data.size(), direction.from, uap);
    EXPECT_TRUE(source.valid);
    std::vector<uint8_t> buffer(200);
    const auto result = direction.convert(buffer.data(), buffer.size(), &source);
    if (!result.valid) return {};
    EXPECT_TRUE(result.item_count == result.fspec.item_count && result.items[0].valid);
    std::vector<uint8_t> exact(result.size);
    EXPECT_TRUE(direction.convert(exact.data(), exact.size(), &source).valid);
    EXPECT_FALSE(direction.convert(exact.data(), exact.size() - 1, &source).valid);
    buffer.resize(result.size);
    return buffer;
}

// A track with an item for every row of the table of what becomes what, and one that stays out.
constexpr char kTrack[] = "FF 9F 74 19 0C 58 78 40 ED 98 01 81 40 00 0F C0 3F FE 20 C8 "             // FRN 1-7
                          "3C 65 AC 01 23 FF FD 00 05 04 00 80 00 93 C0 "                            // FRN 8-14
                          "03 21 10 0A 55 CA 55 05 AA 80 00 48";                                     // FRN 16-20
constexpr char kOldTrack[] = "FF DD 68 19 0C B5 F8 01 23 00 C0 40 00 FF FF 00 02 04 00 80 00 0F C0 " // FRN 1-7
                             "3F FE 78 40 C8 0A DB 80 "                                              // FRN 8-13
                             "0A 55 CA 55 05 AA 05 A2";                                              // FRN 16-19
// Without the time and the address; the rest in the coarser scales.
constexpr char kTrackAgain[] = "BF 1F 74 19 0C 6D 98 01 80 40 00 0F C0 3F FE 20 C8 01 23 FF FE 00 04 04 00 80 00 97 C0 "
                               "03 10 0A 55 CA 55 05 AA 80 00 48";

TEST(Convert, TracksCarryWhatTheOlderCategoryHas) {
    EXPECT_EQ(converted(k048To001, octets(kTrack)), octets(kOldTrack));
    EXPECT_EQ(converted(k001To048, octets(kOldTrack)), octets(kTrackAgain));
}

TEST(Convert, PlotsTakeTheProfileOfPlots) {
    const auto plot = octets("FC 19 0C 58 78 40 40 00 80 40 00 02 00 05 78");
    const auto old = octets("FA 19 0C 20 00 40 40 00 02 00 05 78 78 40");
    EXPECT_EQ(converted(k048To001, plot), old);
    EXPECT_EQ(converted(k001To048, old, AST_UAP_CAT001_PLOT), octets("BC 19 0C 40 00 80 40 00 02 00 05 78"));
    static ast_datablock_t block;
    const auto data = block_of(1, old);
    ast_datablock_smart_decode_into(&block, data.data(), data.size());
    EXPECT_TRUE(block.valid && ast_datarecord_get_msgtype(&block.records[0]) == AST_MSGTYPE_PLOT);
}

// The octets of one item behind those that it needs: "of 048 = of 001" there, and "of 001 = of 048" back.
void expect_becomes(const Direction &direction, const char *cases) {
    each_case(cases, [&](const std::string &from, const std::string &to) {
        EXPECT_EQ(converted(direction, octets(from), AST_UAP_CAT001_PLOT), octets(to)) << from;
    });
}

TEST(Convert, EveryBitOfADescriptorHasItsPlace) {
    // I048/020 alone, and I001/020 alone.
    expect_becomes(k048To001, "20 00 = 40 00; 20 20 = 40 10; 20 40 = 40 20; 20 60 = 40 30; 20 80 = 40 20; "
                              "20 A0 = 40 20; 20 C0 = 40 30; 20 E0 = 40 30; 20 30 = 40 50; 20 24 = 40 14; "
                              "20 22 = 40 12; 20 28 = 40 10; 20 21 80 = 40 11 80; 20 21 10 = 40 11 10; "
                              "20 21 08 = 40 11 08; 20 21 06 = 40 10");
    expect_becomes(k001To048, "40 00 = 20 00; 40 10 = 20 20; 40 20 = 20 40; 40 30 = 20 60; 40 50 = 20 30; "
                              "40 14 = 20 24; 40 12 = 20 22; 40 18 = 20 20; 40 11 80 = 20 21 80; "
                              "40 11 10 = 20 21 10; 40 11 08 = 20 21 08; 40 11 60 = 20 20");
    // The special codes come from I048/070, when it is validated and not garbled.
    expect_becomes(k048To001, "28 20 0F 40 = 50 11 20 0F 40; 28 20 0F 80 = 50 11 40 0F 80; "
                              "28 20 0F C0 = 50 11 60 0F C0; 28 20 8F C0 = 50 10 8F C0; 28 20 4F C0 = 50 10 4F C0; "
                              "28 20 2F C1 = 50 10 2F C1");
}

TEST(Convert, EveryBitOfATrackStatusHasItsPlace) {
    const auto becomes = [](const Direction &direction, const std::string &before, const std::string &after,
                            const char *cases) {
        each_case(cases, [&](const std::string &from, const std::string &to) {
            EXPECT_EQ(converted(direction, octets(before + from)), octets(after + to)) << from;
        });
    };
    // Of a track of PSR on chain 1, of one on chain 2, and of a combined one.
    becomes(k048To001, "21 12 20 01 23 ", "61 04 90 01 23 ",
            "20 = 00; A0 = 80; 30 = 10; 28 = 20; 40 = 40; 00 = 40; 60 = 40; 26 = 00; 21 40 = 02; 21 80 = 01 80; "
            "21 3E = 00");
    becomes(k048To001, "21 12 28 01 23 ", "61 04 90 01 23 ", "20 = 08");
    becomes(k001To048, "61 04 90 01 23 ", "21 12 20 01 23 ",
            "00 = 26; 80 = A6; 10 = 36; 20 = 2E; 40 = 46; 02 = 27 40; 01 80 = 27 80; 04 = 26");
    becomes(k001To048, "61 04 90 01 23 ", "21 12 28 01 23 ", "08 = 26");
    becomes(k001To048, "61 04 B0 01 23 ", "21 12 60 01 23 ", "40 = 06");
}

int read_i16(const std::vector<uint8_t> &data, size_t at) {
    return static_cast<int16_t>(data.at(at) << 8 | data.at(at + 1));
}

// Range, x and y, and Doppler speed there and back, over all that their fields hold.
TEST(Convert, ThereAndBackIsWithinOneUnitOfTheCoarserScale) {
    auto track = octets("31 19 04 20 00 00 00 00 01 23 00 00 00 00 80 00 00"); // FRN 3, 4, 11, 12 and 20
    const auto put = [&](size_t at, int value) {
        track[at] = static_cast<uint8_t>(value >> 8);
        track[at + 1] = static_cast<uint8_t>(value);
    };
    for (int raw = -32768; raw < 32768; raw += 7) {
        put(4, raw);
        put(10, raw);
        put(12, -raw - 1);
        put(15, raw & 0x3FF);
        const auto back = converted(k001To048, converted(k048To001, track));
        ASSERT_EQ(back.size(), track.size()) << raw;
        for (const size_t at : {4U, 10U, 12U}) // 1/256 against 1/128 NM, and 1/128 against 1/64 NM
            ASSERT_LE(std::abs(read_i16(back, at) - read_i16(track, at)), 2) << raw << " at " << at;
        const int speed_error = (read_i16(back, 15) - read_i16(track, 15)) & 0x3FF; // m/s, against 7.2 m/s
        ASSERT_TRUE(speed_error <= 7 || speed_error >= 0x400 - 7) << raw;
    }
}

TEST(Convert, WhatDoesNotFitIsLeftOut) {
    // Track 4096, a range of 256 NM, x of 256 NM, a Doppler speed of -1800 kt.
    EXPECT_EQ(converted(k001To048, octets("79 08 80 10 00 80 00 00 00 40 00 00 00 80")), octets("20 00"));
    EXPECT_EQ(converted(k001To048, octets("40 00")), octets("20 00"));
    EXPECT_EQ(converted(k048To001, octets("21 01 04 20 80 80 48")), octets("40 10")); // a doubtful Doppler speed
    EXPECT_EQ(converted(k048To001, octets("21 01 40 20 20")), octets("40 10"));       // a warning of Mode S
}

TEST(Convert, SubfieldsThatEndBeforeTheirOctetsAreLeftOut) {
    uint8_t buffer[20];
    const Record report(48, {{48020, "20"}, {48120, "80"}, {48130, "20"}});
    const auto result = ast_datarecord_convert_048_001(buffer, sizeof buffer, report);
    EXPECT_EQ(std::vector<uint8_t>(buffer, buffer + result.size), octets("40 10"));
}

// Readers choose between the layouts of plots and of tracks by I001/020, and take services by I002/000.
TEST(Convert, NothingWithoutWhatSaysHowItIsRead) {
    EXPECT_EQ(converted(k048To001, octets("90 19 0C 00 80 40 00")), octets("")); // a range would be a track number
    EXPECT_EQ(converted(k048To001, octets("81 10 19 0C 01 23")), octets(""));
    EXPECT_EQ(converted(k048To001, octets("A1 10 19 0C 20 01 23")), octets("E0 19 0C 90 01 23"));
    EXPECT_EQ(converted(k034To002, octets("A0 19 0C 58 78 40")), octets(""));
    EXPECT_EQ(converted(k034To002, octets("40 03")), octets(""));
}

TEST(Convert, ServiceMessages) {
    const auto north = octets("FC 19 0C 01 58 78 40 20 02 00 80 00");
    const auto old = octets("F8 19 0C 01 20 58 78 40 02 00");
    EXPECT_EQ(converted(k034To002, north), old);
    EXPECT_EQ(converted(k002To034, old), octets("F8 19 0C 01 58 78 40 20 02 00"));
    EXPECT_EQ(converted(k034To002, octets("C0 19 0C 03")), octets("")) << "jamming, of which 002 knows nothing";
    EXPECT_EQ(converted(k002To034, octets("C0 19 0C 03")), octets("80 19 0C")) << "a south marker likewise";
}

TEST(Convert, TakesValidRecordsOfItsCategoryOnly) {
    const auto data = octets(kTrack);
    auto track = ast_datarecord_decode(data.data(), data.size(), 48, AST_UAP_STANDARD);
    uint8_t buffer[200];
    for (const Direction &direction : {k001To048, k034To002, k002To034})
        EXPECT_FALSE(direction.convert(buffer, sizeof buffer, &track).valid) << direction.from;
    EXPECT_FALSE(ast_datarecord_convert_048_001(nullptr, 200, &track).valid);
    EXPECT_FALSE(ast_datarecord_convert_048_001(buffer, sizeof buffer, nullptr).valid);
    track.valid = false;
    EXPECT_FALSE(ast_datarecord_convert_048_001(buffer, sizeof buffer, &track).valid);
}

} // namespace
