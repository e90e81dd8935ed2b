#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

TEST(IcaoCharacter, RoundTripsLettersDigitsAndBlank) {
    const std::string kKnown = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 ";
    uint64_t known = 0;
    for (unsigned code = 0; code < 256; ++code) {
        const char character = ast_icao_to_ansi(static_cast<uint8_t>(code));
        EXPECT_EQ(character, ast_icao_to_ansi(static_cast<uint8_t>(code & 63))) << "the top two bits are ignored";
        if (character == 0) continue;
        ++known;
        EXPECT_NE(kKnown.find(character), std::string::npos) << code;
        EXPECT_EQ(ast_ansi_to_icao(character), static_cast<int32_t>(code & 63));
    }
    EXPECT_EQ(known, 4U * kKnown.size());
    EXPECT_EQ(ast_icao_to_ansi(1), 'A');
    EXPECT_EQ(ast_icao_to_ansi(26), 'Z');
    EXPECT_EQ(ast_icao_to_ansi(27), 0);
    EXPECT_EQ(ast_icao_to_ansi(57), '9');
}

TEST(IcaoCharacter, EncodingFoldsCaseAndKeepsHighBits) {
    EXPECT_EQ(ast_ansi_to_icao('a'), 1);
    EXPECT_EQ(ast_ansi_to_icao('z'), 26);
    for (const char other : {'@', '[', '`', '{', '/', ':', '\0'}) EXPECT_EQ(ast_ansi_to_icao(other), 0) << other;
    for (const char letter : {'B', 'b'}) EXPECT_EQ(ast_ansi_to_icao(0x1200 | letter), 0x1202) << letter;
    EXPECT_EQ(ast_ansi_to_icao(0x1200 | '?'), 0x1200);
}

TEST(TwosComplement, ReadsFieldsOfAnyWidth) {
    constexpr struct {
        const char *octets;
        uint32_t skip;
        int32_t value;
    } kCases[] = {{"FF FE", 0, -2},
                  {"80 00 00", 0, -8388608},
                  {"7F FF FF", 0, 8388607},
                  {"80", 0, -128},
                  {"80 00 00 00", 0, INT32_MIN},
                  {"7F FF FF FF", 0, INT32_MAX},
                  {"01 80 00 00 01", 0, INT32_MIN + 1}, // of five octets the low four
                  {"FF FF", 2, -1},
                  {"20 00", 2, -8192},
                  {"DF FF", 2, 8191}, // bits 8-7 left out
                  {"FE", 7, 0},
                  {"FF", 7, -1},
                  {"FF FF", 8, 0},
                  {"", 0, 0}};
    for (const auto &c : kCases) {
        const auto data = octets(c.octets);
        const auto count = static_cast<uint32_t>(data.size());
        EXPECT_EQ(ast_twos_complement_to_int_ex(data.data(), count, c.skip), c.value) << c.octets << " skip " << c.skip;
        if (c.skip != 0) continue;
        EXPECT_EQ(ast_twos_complement_to_int(data.data(), count), c.value) << c.octets;
    }
    EXPECT_EQ(ast_twos_complement_to_int(nullptr, 4), 0);
    EXPECT_EQ(ast_twos_complement_to_int_ex(nullptr, 4, 1), 0);
}

TEST(Digits, Hexadecimal) {
    const std::string digits = "0123456789abcdefABCDEF";
    for (unsigned i = 0; i < digits.size(); ++i) EXPECT_EQ(ast_hex_to_int(digits[i]), i < 16 ? i : i - 6);
    for (const char other : {'g', 'G', '/', ':', '@', '`', '\0'})
        EXPECT_EQ(ast_hex_to_int(other), 0xFFFFFFFFU) << other;
}

TEST(Digits, BinaryIsMostSignificantFirst) {
    EXPECT_STREQ(ast_hex_to_bin(0xA5), "10100101");
    EXPECT_STREQ(ast_hex_to_bin(0x01), "00000001");
    EXPECT_STREQ(ast_hex_to_bin(0x80), "10000000");
}

TEST(Digits, OctalTakes8And9AndStopsAtTheFirstOther) {
    each_case("x7 = 0; 19 = 17; 18 = 16; 12x4 = 10; - 7 = 0; --7 = 0; = 0; 37777777777 = -1; -0 = 0; "
              "0x7 = 0; 99 = 81; 7 7 = 7; 40000000000 = 0",
              [](const std::string &text, const std::string &value) {
                  EXPECT_EQ(std::to_string(ast_atoi_oct(text.c_str())), value) << text;
              });
    EXPECT_EQ(ast_atoi_oct("\t\n -17"), -15);
    EXPECT_EQ(ast_atoi_oct("\t\n+7777"), 4095);
}

TEST(Memory, SetIgnoresTheDestinationSize) {
    char buffer[] = "abcdef";
    EXPECT_EQ(ast_memset(buffer, 1, 'x', 4), 0);
    EXPECT_STREQ(buffer, "xxxxef");
}

TEST(PositionText, AtThreeResolutions) {
    constexpr struct {
        double latitude, longitude;
        const char *plain, *high, *very_high;
    } kCases[] = {
        {0, 0, "000000S0000000W", "000000.00S0000000.00W", "000000.000000S0000000.000000W"},
        {48.5, -2.25, "483000N0021500W", "483000.00N0021500.00W", "483000.000000N0021500.000000W"},
        {-89.75, 179.75, "894500S1794500E", "894500.00S1794500.00E", "894500.000000S1794500.000000E"},
        // 1/1024 degree is 3.515625 seconds.
        {1.0 / 1024, 10 + 1.0 / 1024, "000004N0100004E", "000003.52N0100003.52E", "000003.515625N0100003.515625E"},
        // 59.9853515625 seconds: rounded up without a carry into the minutes.
        {0.01666259765625, 1, "000060N0010000E", "000059.99N0010000.00E", "000059.985352N0010000.000000E"},
    };
    for (const auto &c : kCases) {
        EXPECT_STREQ(ast_latlong_to_str(c.latitude, c.longitude), c.plain);
        EXPECT_STREQ(ast_latlong_to_str_high(c.latitude, c.longitude), c.high);
        EXPECT_STREQ(ast_latlong_to_str_very_high(c.latitude, c.longitude), c.very_high);
    }
}

TEST(PositionText, StaysInItsBufferForAbsurdAngles) {
    for (const double angle : {1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_LT(std::strlen(ast_latlong_to_str(angle, angle)), 20U);
        EXPECT_LT(std::strlen(ast_latlong_to_str_high(angle, angle)), 30U);
        EXPECT_LT(std::strlen(ast_latlong_to_str_very_high(angle, angle)), 30U);
    }
}

} // namespace
