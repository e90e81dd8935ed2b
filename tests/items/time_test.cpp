#include "support/items.hpp"

using namespace ast_test;

namespace {

// ---- Time of day ----

TEST(TimeOfDay, ViewsGiveTheTime) {
    expect_summaries(48140, "00 00 00 = TOD:00:00:00.000; 00 00 01 = TOD:00:00:00.007; 58 78 40 = TOD:12:34:56.500; "
                            "A8 BF FF = TOD:23:59:59.992; A8 C0 00 = TOD:24:00:00.000; " // meant: no new day
                            "FF FF FF = TOD:36:24:31.992");
    expect_table(48140, "58 78 40",
                 "Name|Value; TIME LSB=1/128S|5797952; TIME LSB=1S|45296; HOUR|12; MINUTE|34; SECOND|56; "
                 "MILLISECOND|500");
    expect_values(48140, "00 00 01 = 1|0| 0| 0| 0|  7; FF FF FF = 16777215|131071|36|24|31|992");
}

TEST(TimeOfDay, EncodesTheRawTimeOrElseItsParts) {
    constexpr EncodeCase<ast_time_of_day_t> kCases[] = {
        {"raw", {.valid = true, .raw = 1, .hour = 12}, "00 00 01"},
        {"parts", {.valid = true, .hour = 12, .minute = 34, .second = 56, .millisecond = 500}, "58 78 40"},
        {"less than a unit", {.valid = true, .millisecond = 7}, "00 00 00"},
        {"a unit, cut off", {.valid = true, .millisecond = 15}, "00 00 01"},
        {"midnight", {.valid = true}, "00 00 00"},
        {"bits above 24 are dropped", {.valid = true, .raw = 0x5000002}, "00 00 02"},
    };
    expect_encodes(48140, kCases);
}

// ---- High-precision time of day ----

TEST(TimeOfDayHigh, ViewsGiveTheWholeSecondAndItsFraction) {
    expect_summaries(21074, "00 00 00 00 = FSI:0 TOMR:0.000000; 40 00 00 00 = FSI:1 TOMR:0.000000; "
                            "A0 00 00 00 = FSI:-1 TOMR:0.500000; C0 00 00 00 = FSI:0 TOMR:0.000000; "
                            "3F FF FF FF = FSI:0 TOMR:1.000000"); // rounded
    EXPECT_LT(ast_dataitem_time_of_day_high_decode(Item(21074, "3F FF FF FF")).seconds, 1);
    expect_table(21076, "A0 00 00 00", "Name|Value; FSI|-1; TIME LSB=2^-30S|536870912; TIME LSB=S|0.500000");
}

// ---- Sector number ----

TEST(Sector, ViewsRoundToDegreesAndCutToCoarserSectors) {
    expect_summaries(34020, "00 = SECTOR:000DEG; 01 = SECTOR:001DEG; 10 = SECTOR:023DEG; 40 = SECTOR:090DEG; "
                            "FF = SECTOR:359DEG");
    expect_table(2020, "07",
                 "Name|Value; ANTENNA AZIMUTH LSB~=1.41DEG|7; ANTENNA AZIMUTH LSB=1DEG|9.8438; "
                 "SECTOR NUMBER LSB=1/32|00; SECTOR NUMBER LSB=1/16|00");
    expect_values(2020, "10 = 16|22.5000|02|01; FF = 255|358.5938|31|15");
}

TEST(Sector, EncodesDegreesOrElseTheRawNumber) {
    constexpr EncodeCase<ast_scaled_value_t> kCases[] = {
        {"degrees", {.valid = true, .raw = 7, .value = 90}, "40"},
        {"zero degrees", {.valid = true, .raw = 7, .value = 0}, "00"},
        {"rounded to the last", {.valid = true, .value = 359.29}, "FF"},
        {"meant: what rounds to a full turn is refused", {.valid = true, .value = 359.296875}, nullptr},
        {"meant: even with a raw number", {.valid = true, .raw = 7, .value = 359.5}, nullptr},
        {"a full turn leaves the raw number", {.valid = true, .raw = 7, .value = 360}, "07"},
        {"negative degrees leave the raw number", {.valid = true, .raw = 255, .value = -1}, "FF"},
        {"raw too high", {.valid = true, .raw = 256, .value = -1}, nullptr},
        {"raw too low", {.valid = true, .raw = -1, .value = -1}, nullptr},
    };
    expect_encodes(34020, kCases);
    ast_scaled_value_t east{.valid = true, .raw = 7, .value = 90};
    expect_encodes("east", 34020, &east, "40");
    EXPECT_EQ(east.raw, 64) << "stored back";
}

// ---- Antenna rotation period ----

TEST(RotationPeriod, ViewsGiveSeconds) {
    expect_summaries(34041, "00 00 = ROT:0.00; 02 80 = ROT:5.00; FF FF = ROT:511.99");
    expect_table(2041, "FF FF",
                 "Bit|Item|Value; Bit[0-15]|ROTATION_PERIOD LSB=1/128s|65535; Bit[0-15]|ROTATION_PERIOD LSB=S|511.992");
}

TEST(RotationPeriod, EncodesTheValueOrElseTheRawOne) {
    constexpr EncodeCase<ast_scaled_value_t> kCases[] = {
        {"rounded value", {.valid = true, .raw = 9, .value = 4.999}, "02 80"},
        {"raw", {.valid = true, .raw = 640}, "02 80"},
    };
    expect_encodes(34041, kCases);
}

} // namespace
