#include "support/items.hpp"

using namespace ast_test;

namespace {

const Row kBitHeader = {"Bit", "Item", "Value"};

// ---- Mode 3/A code, Mode 2 code ----

TEST(Mode3a, SummaryNamesTheFlagsByItem) {
    struct {
        ast_dataitem_type_t type;
        SummaryCase one;
    } constexpr kCases[] = {
        {48070, {"no code, spare bit", "10 00", "MODE_3/A:0000"}},
        {48070, {"highest code", "0F FF", "MODE_3/A:7777"}},
        {48070, {"smoothed", "2F 77", "MODE_3/A:7567 SMOOTHED"}},
        {48070, {"garbled", "40 01", "MODE_3/A:0001 GARBLED"}},
        {48070, {"not validated", "80 40", "MODE_3/A:0100 NOT_VALIDATED"}},
        {1070, {"all flags", "EE 00", "MODE_3/A:7000 NOT_VALIDATED GARBLED SMOOTHED"}},
        {62060, {"a track's code changes", "EF 77", "MODE_3/A:7567 NOT_VALIDATED GARBLED CHANGED"}},
        {1050, {"Mode 2", "EF 77", "MODE_2:7567 NOT_VALIDATED GARBLED SMOOTHED"}},
        {62120, {"a track's Mode 2 code has no flags", "EF 77", "MODE_2:7567"}},
    };
    for (const auto &[type, one] : kCases) expect_summaries(type, {&one, 1});
}

TEST(Mode3a, DetailShowsFlagsAndDigits) {
    const std::vector<Row> digits = {{"Bit[4-6]", "CODE-A", "7"},
                                     {"Bit[7-9]", "CODE-B", "5"},
                                     {"Bit[10-12]", "CODE-C", "6"},
                                     {"Bit[13-15]", "CODE-D", "3"}};
    const auto with_digits = [&](std::vector<Row> rows) {
        rows.insert(rows.end(), digits.begin(), digits.end());
        return rows;
    };
    const auto flags = [&](const char *third) {
        return with_digits({kBitHeader,
                            {"Bit[0]", "NOT_VALIDATED", "1"},
                            {"Bit[1]", "GARBLED", "0"},
                            {"Bit[2]", third, "1"},
                            {"Bit[3]", "SPARE", "0"}});
    };
    expect_detail_rows(48070, "AF 73", flags("SMOOTHED"));
    expect_detail_rows(1050, "AF 73", flags("SMOOTHED"));
    expect_detail_rows(62060, "AF 73", flags("CHANGED"));
    expect_detail_rows(62120, "AF 73", with_digits({kBitHeader, {"Bit[0-3]", "SPARE", "0"}})); // meant: no flags
}

TEST(Mode3a, EncodesEitherThirdFlagAndTwelveBits) {
    constexpr EncodeCase<ast_mode_3a_t> kCases[] = {
        {"smoothed", {.valid = true, .smoothed = true, .code = 07567}, "2F 77"},
        {"changed", {.valid = true, .changed = true, .code = 07567}, "2F 77"},
        {"not validated", {.valid = true, .not_validated = true}, "80 00"},
        {"garbled", {.valid = true, .garbled = true, .code = 1}, "40 01"},
        {"bits above twelve are dropped", {.valid = true, .code = 0x7FFFF123}, "01 23"},
        {"negative when taken as signed", {.valid = true, .code = 0x80000000}, nullptr},
    };
    for (const ast_dataitem_type_t type : {1050U, 48070U, 62060U, 62120U}) expect_encodes(type, kCases);
}

// ---- Mode 3/A code confidence ----

TEST(Mode3aConfidence, SummaryLowersTheDigitOfALowPulse) {
    constexpr SummaryCase kCases[] = {
        {"all good", "00 00", "QTY:ABCD"}, {"unused bits", "F0 00", "QTY:ABCD"}, {"all low", "0F FF", "QTY:abcd"},
        {"A4", "08 00", "QTY:aBCD"},       {"A1", "02 00", "QTY:aBCD"},          {"B4", "01 00", "QTY:AbCD"},
        {"B1", "00 40", "QTY:AbCD"},       {"C4", "00 20", "QTY:ABcD"},          {"C1", "00 08", "QTY:ABcD"},
        {"D4", "00 04", "QTY:ABCd"},       {"D1", "00 01", "QTY:ABCd"},
    };
    expect_summaries(48080, kCases);
}

TEST(Mode3aConfidence, DetailListsThePulses) {
    expect_detail_rows(1080, "F9 01",
                       {kBitHeader,
                        {"Bit[1-4]", "UNUSED", "---"},
                        {"Bit[5]", "QA4", "LOW"},
                        {"Bit[6]", "QA2", "---"},
                        {"Bit[7]", "QA1", "---"},
                        {"Bit[8]", "QB4", "LOW"},
                        {"Bit[9]", "QB2", "---"},
                        {"Bit[10]", "QB1", "---"},
                        {"Bit[11]", "QC4", "---"},
                        {"Bit[12]", "QC2", "---"},
                        {"Bit[13]", "QC1", "---"},
                        {"Bit[14]", "QD4", "---"},
                        {"Bit[15]", "QD2", "---"},
                        {"Bit[16]", "QD1", "LOW"}});
}

TEST(Mode3aConfidence, EncodesThePulsesInTheirOrder) {
    ast_mode_3a_confidence_t confidence{.valid = true};
    confidence.low_quality[AST_PULSE_A4] = true;
    confidence.low_quality[AST_PULSE_C4] = true;
    confidence.low_quality[AST_PULSE_D1] = true;
    expect_encodes("A4, C4 and D1", 1060, &confidence, "08 21");
}

// ---- Mode C code ----

TEST(ModeC, SummaryGivesWholeFlightLevels) {
    constexpr SummaryCase kCases[] = {
        {"ground", "00 00", "MODE_C:0000"},
        {"level 25", "00 64", "MODE_C:0025"},
        {"highest", "1F FF", "MODE_C:2047"},
        {"lowest", "20 00", "MODE_C:-2048"},
        {"a quarter below 0 is cut off towards 0", "3F FF", "MODE_C:0000"},
        {"one below 0", "3F FC", "MODE_C:-001"},
        {"both flags", "C0 00", "MODE_C:0000 NOT_VALIDATED GARBLED"},
        {"garbled", "40 64", "MODE_C:0025 GARBLED"},
    };
    expect_summaries(48090, kCases);
}

TEST(ModeC, DetailGivesTheLevelInFourUnits) {
    const auto rows = [](const char *not_validated, const char *garbled, const char *raw, const char *fl,
                         const char *ft, const char *m) {
        return std::vector<Row>{kBitHeader,
                                {"Bit[0]", "NOT_VALIDATED", not_validated},
                                {"Bit[1]", "GARBLED", garbled},
                                {"Bit[2-15]", "FLIGHT_LEVEL (LSB=1/4FL)", raw},
                                {"Bit[2-15]", "FLIGHT_LEVEL (LSB=FL)", fl},
                                {"Bit[2-15]", "FLIGHT_LEVEL (LSB=FT)", ft},
                                {"Bit[2-15]", "FLIGHT_LEVEL (LSB=M)", m}};
    };
    expect_detail_rows(48090, "3F FB", rows("0", "0", "-5", "-1.25", "-125.00", "-38.10"));
    expect_detail_rows(48090, "C0 64", rows("1", "1", "100", "25.00", "2500.00", "762.00"));
    // The lowest level in feet is a character longer than its cell.
    expect_detail_rows(48090, "20 00", rows("0", "0", "-8192", "-2048.00", "-204800.0", "-62423.04"));
}

TEST(ModeC, EncodesNegativeLevelsOneLower) {
    constexpr EncodeCase<ast_mode_c_t> kCases[] = {
        {"level 25", {.valid = true, .validated = true, .flight_level = 100}, "00 64"},
        {"highest", {.valid = true, .validated = true, .flight_level = 8191}, "1F FF"},
        {"meant: -4 reads back as -5", {.valid = true, .validated = true, .flight_level = -4}, "3F FB"},
        {"meant: the lowest turns into the highest",
         {.valid = true, .validated = true, .flight_level = -8192},
         "1F FF"},
        {"not validated", {.valid = true, .validated = false}, "80 00"},
        {"garbled", {.valid = true, .validated = true, .garbled = true}, "40 00"},
    };
    expect_encodes(48090, kCases);
    EXPECT_EQ(ast_dataitem_mode_c_code_decode(Item(48090, "3F FB")).flight_level, -5);
}

// ---- Mode C code with confidence ----

struct Pulse {
    unsigned pulse; // AST_PULSE_...
    const char *octets;
    uint32_t code;
    const char *quality;
};

// In the order in which they are sent; the pulses come first, their qualities two octets later.
constexpr Pulse kPulses[] = {
    {AST_PULSE_C1, "08 00", 00010, "ABcD"}, {AST_PULSE_A1, "04 00", 01000, "aBCD"},
    {AST_PULSE_C2, "02 00", 00020, "ABcD"}, {AST_PULSE_A2, "01 00", 02000, "aBCD"},
    {AST_PULSE_C4, "00 80", 00040, "ABcD"}, {AST_PULSE_A4, "00 40", 04000, "aBCD"},
    {AST_PULSE_B1, "00 20", 00100, "AbCD"}, {AST_PULSE_D1, "00 10", 00001, "ABCd"},
    {AST_PULSE_B2, "00 08", 00200, "AbCD"}, {AST_PULSE_D2, "00 04", 00002, "ABCd"},
    {AST_PULSE_B4, "00 02", 00400, "AbCD"}, {AST_PULSE_D4, "00 01", 00004, "ABCd"},
};

TEST(ModeCConfidence, EachPulseHasItsPlace) {
    for (const Pulse &one : kPulses) {
        const std::string pulse = std::string(one.octets) + " 00 00";
        const std::string quality = std::string("00 00 ") + one.octets;
        const auto reply = ast_dataitem_mode_c_confidence_decode(Item(1100, pulse));
        EXPECT_EQ(reply.code, one.code) << one.octets;
        EXPECT_TRUE(reply.pulses[one.pulse].pulse) << one.octets;
        EXPECT_EQ(summary_of(1100, quality), std::string("CODE:0000 QTY:") + one.quality) << one.octets;

        ast_mode_c_confidence_t value{.valid = true, .validated = true, .code = one.code};
        expect_encodes("pulse", 1100, &value, pulse.c_str());
        value.code = 0;
        value.pulses[one.pulse] = {.pulse = true, .low_quality = true}; // the code tells the pulses, not this
        expect_encodes("quality", 1100, &value, quality.c_str());
    }
}

TEST(ModeCConfidence, SummaryGivesCodeQualityAndFlags) {
    constexpr SummaryCase kCases[] = {
        {"nothing", "00 00 00 00", "CODE:0000 QTY:ABCD"},
        {"spare bits", "30 00 F0 00", "CODE:0000 QTY:ABCD"},
        {"all pulses, all low", "0F FF 0F FF", "CODE:7777 QTY:abcd"},
        {"not validated", "80 00 00 00", "CODE:0000 QTY:ABCD NOT_VALIDATED"},
        {"garbled", "40 00 00 00", "CODE:0000 QTY:ABCD GARBLED"},
        {"both", "C0 01 00 00", "CODE:0004 QTY:ABCD NOT_VALIDATED GARBLED"},
    };
    expect_summaries(48100, kCases);
    EXPECT_TRUE(ast_dataitem_mode_c_confidence_decode(nullptr).validated) << "unless said otherwise";
}

TEST(ModeCConfidence, DetailListsThePulses) {
    expect_detail_rows(48100, "88 01 00 50",
                       {kBitHeader,
                        {"Bit[0]", "NOT_VALIDATED", "1"},
                        {"Bit[1]", "GARBLED", "0"},
                        {"Name", "Pulse", "Quality"},
                        {"A4", "0", "LOW"},
                        {"A2", "0", "---"},
                        {"A1", "0", "---"},
                        {"B4", "0", "---"},
                        {"B2", "0", "---"},
                        {"B1", "0", "---"},
                        {"C4", "0", "---"},
                        {"C2", "0", "---"},
                        {"C1", "1", "---"},
                        {"D4", "1", "---"},
                        {"D2", "0", "---"},
                        {"D1", "0", "LOW"}});
    EXPECT_NE(detail_of(48100, "88 01 00 50").find("</table><br/><p></p><table"), std::string::npos);
}

TEST(ModeCConfidence, EncodesFlagsAndRefusesLongCodes) {
    constexpr EncodeCase<ast_mode_c_confidence_t> kCases[] = {
        {"flags", {.valid = true, .validated = false, .garbled = true}, "C0 00 00 00"},
        {"bits above twelve are dropped", {.valid = true, .validated = true, .code = 65535}, "0F FF 00 00"},
        {"too long", {.valid = true, .validated = true, .code = 65536}, nullptr},
    };
    expect_encodes(1100, kCases);
}

} // namespace
