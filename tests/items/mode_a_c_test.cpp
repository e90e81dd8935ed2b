#include "support/items.hpp"

using namespace ast_test;

namespace {

// ---- Mode 3/A code, Mode 2 code ----

TEST(Mode3a, ViewsNameTheFlagsByItem) {
    expect_summaries(48070, "10 00 = MODE_3/A:0000; 0F FF = MODE_3/A:7777; 2F 77 = MODE_3/A:7567 SMOOTHED; "
                            "40 01 = MODE_3/A:0001 GARBLED; 80 40 = MODE_3/A:0100 NOT_VALIDATED");
    expect_summaries(1070, "EE 00 = MODE_3/A:7000 NOT_VALIDATED GARBLED SMOOTHED");
    expect_summaries(62060, "EF 77 = MODE_3/A:7567 NOT_VALIDATED GARBLED CHANGED");
    expect_summaries(1050, "EF 77 = MODE_2:7567 NOT_VALIDATED GARBLED SMOOTHED");
    expect_summaries(62120, "EF 77 = MODE_2:7567"); // meant: a track's Mode 2 code has no flags

    const std::string digits = "Bit[4-6]|CODE-A|7; Bit[7-9]|CODE-B|5; Bit[10-12]|CODE-C|6; Bit[13-15]|CODE-D|3";
    const std::string flags = "Bit|Item|Value; Bit[0]|NOT_VALIDATED|1; Bit[1]|GARBLED|0; Bit[2]|";
    for (const ast_dataitem_type_t type : {48070U, 1050U})
        expect_table(type, "AF 73", (flags + "SMOOTHED|1; Bit[3]|SPARE|0; " + digits).c_str());
    expect_table(62060, "AF 73", (flags + "CHANGED|1; Bit[3]|SPARE|0; " + digits).c_str());
    expect_table(62120, "AF 73", ("Bit|Item|Value; Bit[0-3]|SPARE|0; " + digits).c_str());
}

TEST(Mode3a, EncodesEitherThirdFlagAndTwelveBits) {
    constexpr EncodeCase<ast_mode_3a_t> kCases[] = {
        {"smoothed", {.valid = true, .smoothed = true, .code = 07567}, "2F 77"},
        {"changed", {.valid = true, .changed = true, .code = 07567}, "2F 77"},
        {"the others", {.valid = true, .not_validated = true, .code = 1}, "80 01"},
        {"garbled", {.valid = true, .garbled = true}, "40 00"},
        {"bits above twelve are dropped", {.valid = true, .code = 0x7FFFF123}, "01 23"},
        {"negative when taken as signed", {.valid = true, .code = 0x80000000}, nullptr},
    };
    for (const ast_dataitem_type_t type : {1050U, 48070U, 62060U, 62120U}) expect_encodes(type, kCases);
}

// ---- Mode 3/A code confidence ----

TEST(Mode3aConfidence, ViewsTellLowPulses) {
    expect_summaries(48080, "00 00 = QTY:ABCD; F0 00 = QTY:ABCD; 0F FF = QTY:abcd; 08 00 = QTY:aBCD; 02 00 = QTY:aBCD; "
                            "01 00 = QTY:AbCD; 00 40 = QTY:AbCD; 00 20 = QTY:ABcD; 00 08 = QTY:ABcD; 00 04 = QTY:ABCd; "
                            "00 01 = QTY:ABCd");
    expect_table(1080, "F9 01",
                 "Bit|Item|Value; Bit[1-4]|UNUSED|---; Bit[5]|QA4|LOW; Bit[6]|QA2|---; Bit[7]|QA1|---; Bit[8]|QB4|LOW; "
                 "Bit[9]|QB2|---; Bit[10]|QB1|---; Bit[11]|QC4|---; Bit[12]|QC2|---; Bit[13]|QC1|---; "
                 "Bit[14]|QD4|---; Bit[15]|QD2|---; Bit[16]|QD1|LOW");
}

TEST(Mode3aConfidence, EncodesThePulsesInTheirOrder) {
    ast_mode_3a_confidence_t confidence{.valid = true};
    for (const auto pulse : {AST_PULSE_A4, AST_PULSE_C4, AST_PULSE_D1}) confidence.low_quality[pulse] = true;
    expect_encodes("A4, C4 and D1", 1060, &confidence, "08 21");
}

// ---- Mode C code ----

TEST(ModeC, SummaryGivesWholeFlightLevels) {
    expect_summaries(48090, "00 00 = MODE_C:0000; 00 64 = MODE_C:0025; 1F FF = MODE_C:2047; 20 00 = MODE_C:-2048; "
                            "3F FF = MODE_C:0000; " // a quarter below 0 is cut off towards 0
                            "3F FC = MODE_C:-001; C0 00 = MODE_C:0000 NOT_VALIDATED GARBLED; "
                            "40 64 = MODE_C:0025 GARBLED");
}

TEST(ModeC, DetailGivesTheLevelInFourUnits) {
    expect_table(48090, "3F FB",
                 "Bit|Item|Value; Bit[0]|NOT_VALIDATED|0; Bit[1]|GARBLED|0; Bit[2-15]|FLIGHT_LEVEL (LSB=1/4FL)|-5; "
                 "Bit[2-15]|FLIGHT_LEVEL (LSB=FL)|-1.25; Bit[2-15]|FLIGHT_LEVEL (LSB=FT)|-125.00; "
                 "Bit[2-15]|FLIGHT_LEVEL (LSB=M)|-38.10");
    expect_values(48090, "C0 64 = 1|1|100|25.00|2500.00|762.00; "
                         "20 00 = 0|0|-8192|-2048.00|-204800.0|-62423.04"); // feet cut by the cell
}

TEST(ModeC, EncodesNegativeLevelsOneLower) {
    constexpr EncodeCase<ast_mode_c_t> kCases[] = {
        {"level 25", {.valid = true, .validated = true, .flight_level = 100}, "00 64"},
        {"highest", {.valid = true, .validated = true, .flight_level = 8191}, "1F FF"},
        {"meant: -4 reads back as -5", {.valid = true, .validated = true, .flight_level = -4}, "3F FB"},
        {"the lowest reads back as -8192", {.valid = true, .validated = true, .flight_level = -8191}, "20 00"},
        {"one lower would read back as 8191", {.valid = true, .validated = true, .flight_level = -8192}, nullptr},
        {"too high", {.valid = true, .validated = true, .flight_level = 8192}, nullptr},
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

TEST(ModeCConfidence, ViewsGiveCodeQualityAndFlags) {
    expect_summaries(48100, "30 00 F0 00 = CODE:0000 QTY:ABCD; 0F FF 0F FF = CODE:7777 QTY:abcd; "
                            "80 00 00 00 = CODE:0000 QTY:ABCD NOT_VALIDATED; 40 00 00 00 = CODE:0000 QTY:ABCD GARBLED; "
                            "C0 01 00 00 = CODE:0004 QTY:ABCD NOT_VALIDATED GARBLED");
    EXPECT_TRUE(ast_dataitem_mode_c_confidence_decode(nullptr).validated) << "unless said otherwise";
    expect_table(48100, "88 01 00 50",
                 "Bit|Item|Value; Bit[0]|NOT_VALIDATED|1; Bit[1]|GARBLED|0; Name|Pulse|Quality; A4|0|LOW; A2|0|---; "
                 "A1|0|---; B4|0|---; B2|0|---; B1|0|---; C4|0|---; C2|0|---; C1|1|---; D4|1|---; D2|0|---; D1|0|LOW");
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
