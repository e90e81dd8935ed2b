#include <algorithm>
#include <cstdio>

#include "support/records.hpp"
#include "support/text.hpp"

using namespace ast_test;

namespace {

constexpr uint32_t kNoKeyword = 15;

std::string value_of(const ast_datarecord_t *record, uint32_t keyword) {
    return shown(ast_datarecord_get_keyword, record, keyword, AST_POSITION_DMS);
}

// A track with a value for every keyword that category 048 answers.
const Record &track() {
    // clang-format off
    static const Record record(48,
        {{48010, "19 0C"}, {48140, "58 78 40"}, {48040, "00 80 40 00"}, {48070, "0F 77"}, {48090, "01 90"},
         {48220, "3C 65 AC"}, {48240, "2C C3 71 82 08 20"}, {48161, "01 23"},
         {48250, "03 9F 45 77 00 00 00 00 40 A0 00 00 00 00 00 00 60 00 12 00 00 00 00 00 50"}});
    // clang-format on
    return record;
}

TEST(Keyword, HasNameAndDescription) {
    uint32_t keyword = 0;
    each_case("SAC/SIC = SAC/SIC; "
              "Timestamp Tx = Timestamp, definition and time zone depends on sensor configuration; "
              "Type = Message Type; Track Number = Track Number; Mode 3/A = Mode 3/A; "
              "Flight Level = Flight level in foot; Selected Altitude = Selected Altitude in foot; "
              "Callsign = Callsign; ICAO Address = ICAO Address; "
              "WGS84 Coordinates = WGS-84 coordinate in degree, minute and second; "
              "Polar Coordinates = Rho in NM, theta in degree; Speed = Ground speed in Knot; "
              "Heading = Heading in degree; Cartesian Velocity = Cartesian or horizontal velocity in meters/second; "
              "Vertical Rate = Vertical rate in feet/min; = ",
              [&](const std::string &name, const std::string &description) {
                  EXPECT_EQ(shown(ast_keyword_name, keyword), name);
                  EXPECT_EQ(shown(ast_keyword_description, keyword), description);
                  ++keyword;
              });
    EXPECT_EQ(keyword, kNoKeyword + 1);
}

TEST(Keyword, MatchesWholeWords) {
    // "text/pattern", and whether they match at all, or only without regard to case.
    each_case("KLM1/KLM1 = yes; KLM1/klm1 = any case; klm1/KLM1 = any case; KLM1/KLM = no; KLM1/KLM12 = no; "
              "KLM1/KLN1 = no; KLM1/  KLM1 = yes; KLM1/KLM1   = yes; KLM1  /KLM1 = yes; KLM1 X/KLM1 Y = yes; "
              "KLM1/ = no; /KLM1 = no; / = yes; K@M/K`M = no; KLM1\tX/KLM1 = no",
              [](const std::string &words, const std::string &matches) {
                  const std::string text = words.substr(0, words.find('/'));
                  const std::string pattern = words.substr(words.find('/') + 1);
                  EXPECT_EQ(ast_keyword_match(text.c_str(), pattern.c_str(), false), matches != "no") << words;
                  EXPECT_EQ(ast_keyword_match(text.c_str(), pattern.c_str(), true), matches == "yes") << words;
              });
    EXPECT_TRUE(ast_keyword_match("  KLM1", "KLM1", true) && ast_keyword_match("  ", "", true));
    EXPECT_FALSE(ast_keyword_match(nullptr, "", false) || ast_keyword_match("", nullptr, false));
}

TEST(Keyword, RecordContainsSomeOfThem) {
    ast_datarecord_t not_valid = *static_cast<const ast_datarecord_t *>(track());
    not_valid.valid = false;
    for (uint32_t keyword = 0; keyword <= kNoKeyword; ++keyword) {
        // Meant: no other keyword is ever contained, not even a selected altitude that is there.
        const bool is_asked = keyword == 3 || keyword == 4 || keyword == 5 || keyword == 7 || keyword == 8;
        EXPECT_EQ(ast_datarecord_contain_keyword(track(), keyword), is_asked) << keyword;
        EXPECT_FALSE(ast_datarecord_contain_keyword(&not_valid, keyword)) << keyword;
        EXPECT_FALSE(ast_datarecord_contain_keyword(nullptr, keyword)) << keyword;
        EXPECT_FALSE(ast_datarecord_contain_keyword(Record(48, {}), keyword)) << keyword;
        EXPECT_FALSE(ast_datarecord_contain_keyword(Record(34, {{34010, "19 0C"}}), keyword)) << keyword;
    }
}

TEST(Keyword, RecordMatchesAPattern) {
    ast_datarecord_t not_valid = *static_cast<const ast_datarecord_t *>(track());
    not_valid.valid = false;
    const auto expect_match = [&](const std::string &one, bool matches) { // "keyword:pattern"
        const auto keyword = static_cast<uint32_t>(std::stoul(one));
        const std::string pattern = one.substr(one.find(':') + 1);
        EXPECT_EQ(ast_datarecord_match_keyword(track(), keyword, pattern.c_str(), false), matches) << one;
        EXPECT_FALSE(ast_datarecord_match_keyword(&not_valid, keyword, pattern.c_str(), false)) << one;
        EXPECT_FALSE(ast_datarecord_match_keyword(nullptr, keyword, pattern.c_str(), false)) << one;
        EXPECT_FALSE(ast_datarecord_match_keyword(track(), keyword, nullptr, false)) << one;
    };
    each_entry("0:25012; 0: 25012 ; 3:291; 3:0291; 4:7567; 4:07567; 5:100; 5:100.0; 5:1e2; 7:KLM1; 7:klm1; 7:KLM1 AB; "
               "8:3C65AC; 8:3c65ac; 8:0x3C65AC",
               [&](std::string_view one) { expect_match(std::string(one), true); });
    each_entry("0:25013; 0:2512; 0:; 3:0x123; 3:29; 4:3959; 4:756; 5:100.01; 5:99.99; 7:KLM; 8:3C65A; 8:3958188; "
               "1:12:34:56.500; 2:Track; 2:4; 6:24000; 6:240; 10:0.5; 12:90; 15:25012",
               [&](std::string_view one) { expect_match(std::string(one), false); });
    EXPECT_FALSE(ast_datarecord_match_keyword(track(), 7, "klm1", true));
    EXPECT_TRUE(ast_datarecord_match_keyword(track(), 7, "KLM1", true));
    EXPECT_TRUE(ast_datarecord_match_keyword(track(), 8, "3c65ac", true));
    EXPECT_TRUE(ast_datarecord_match_keyword(Record(48, {{48090, "01 91"}}), 5, "100.25", false));
    EXPECT_TRUE(ast_datarecord_match_keyword(Record(48, {{48090, "3F FC"}}), 5, "-1", false));
}

TEST(Keyword, PatternOfAnUnknownValueMatchesNothing) {
    const Record empty(48, {});
    const Record without(34, {{34010, "19 0C"}});
    each_entry("0:4299262262295; 3:4294967295; 3:-1; 4:37777777777; 5:0; 7:; 8:FFFFFFFF; 8:-1; 0:0",
               [&](std::string_view one) {
                   const auto keyword = static_cast<uint32_t>(one[0] - '0');
                   const std::string pattern(one.substr(2));
                   EXPECT_FALSE(ast_datarecord_match_keyword(empty, keyword, pattern.c_str(), false)) << one;
                   EXPECT_FALSE(ast_datarecord_match_keyword(without, keyword, pattern.c_str(), false)) << one;
               });
}

TEST(Keyword, TextOfEveryValue) {
    // Category 048 has no WGS-84 position, speed, Cartesian velocity or vertical rate.
    std::vector<std::string> texts;
    each_case("0 = 025/012; 1 = 12:34:56.500; 2 = Track; 3 = 291; 4 = 7567; 5 = 10000; 6 = 24000; 7 = KLM1; "
              "8 = 3C65AC; 9 = ; 10 = R:000.5000 T:090.00; 11 = ; 12 = M:090.00 T:045.00; 13 = ; 14 = ; 15 = ",
              [&](const std::string &, const std::string &text) { texts.push_back(text); });
    ast_datarecord_t not_valid = *static_cast<const ast_datarecord_t *>(track());
    not_valid.valid = false;
    for (uint32_t keyword = 0; keyword <= kNoKeyword; ++keyword) {
        EXPECT_EQ(value_of(track(), keyword), texts.at(keyword)) << keyword;
        char text[8];
        EXPECT_EQ(ast_datarecord_write_keyword(text, sizeof text, track(), keyword, AST_POSITION_DMS),
                  std::min(texts.at(keyword).size(), sizeof text - 1));
        EXPECT_EQ(text, texts.at(keyword).substr(0, sizeof text - 1));
        EXPECT_EQ(value_of(&not_valid, keyword), "") << keyword;
        EXPECT_EQ(value_of(nullptr, keyword), "") << keyword;
        EXPECT_EQ(value_of(Record(48, {}), keyword), keyword == 2 ? "Plot" : "") << keyword;
        EXPECT_EQ(value_of(Record(34, {{34010, "19 0C"}, {34000, "01"}}), keyword), "") << keyword;
    }
}

// The cases are "octets = text", of a record that holds the item alone.
void expect_values(uint32_t keyword, ast_dataitem_type_t type, std::string_view cases) {
    each_case(cases, [&](const std::string &hex, const std::string &text) {
        EXPECT_EQ(value_of(Record(48, {{type, hex}}), keyword), text) << keyword << ": " << hex;
    });
}

TEST(Keyword, TextOfValuesAtTheirEnds) {
    expect_values(0, 48010, "00 00 = 000/000; FF FF = 255/255");
    expect_values(1, 48140, "00 00 00 = 00:00:00.000; FF FF FF = 36:24:31.992");
    expect_values(3, 48161, "00 00 = 0; 0F FF = 4095");
    // Category 048 does not tell what is not validated.
    expect_values(4, 48070, "00 07 = 0007; 4F 77 = 7567G; 2F 77 = 7567L; EF 77 = 7567GL");
    expect_values(5, 48090, "00 00 = 00000; 3F FF = -00025; 1F FF = 204775");
    expect_values(5, 48110, "00 28 = 01000");
    expect_values(6, 48250,
                  "01 9F 40 00 00 00 00 00 40 = 16000; "
                  "01 80 0C 00 00 00 00 00 40 = 00000"); // FMS 0 ft, before MCP/FCU 16 ft
    expect_values(7, 48240, "82 08 20 82 08 20 = ");
    expect_values(8, 48220, "00 00 01 = 000001");
    expect_values(10, 48040, "FF FF FF FF = R:255.9961 T:359.99; 00 00 00 00 = R:000.0000 T:000.00");
    expect_values(12, 48250, "01 E0 00 00 00 00 00 00 60 = M:270.00; 01 00 1A 00 00 00 00 00 50 = T:315.00");
}

TEST(Keyword, PositionsAreRoundedAsPrintfDoes) {
    Record record(48, {{48040, "00 00 00 00"}});
    for (uint32_t raw = 0; raw <= UINT16_MAX; ++raw) {
        const auto high = static_cast<uint8_t>(raw >> 8);
        const auto low = static_cast<uint8_t>(raw);
        const uint8_t octets[] = {high, low, high, low};
        record->items[0].data = octets;
        char expected[32];
        std::snprintf(expected, sizeof expected, "R:%08.4f T:%06.2f", raw / 256.0, raw * 360 / 65536.0);
        ASSERT_EQ(value_of(record, AST_KEYWORD_POLARCOORD), expected);
    }
}

} // namespace
