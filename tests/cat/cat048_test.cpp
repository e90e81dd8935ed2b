#include <limits>

#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/records.hpp"

using namespace ast_test;

namespace {

// ---- I048/020 Target Report Descriptor ----

TEST(Cat048TargetReport, SummaryGivesTypeChainAndFlags) {
    expect_summaries(48020,
                     "00 = TYPE:NO_DETECTION CHN1; 60 = TYPE:PSR+SSR CHN1; "
                     "FE = TYPE:PSR+ROLL_CALL SIM CHN2 SPI RAB; 41 60 = TYPE:SSR CHN1; " // two bits that are not read
                     "41 02 = TYPE:SSR CHN1; " // meant: no friend is ever seen
                     "FF FE = TYPE:PSR+ROLL_CALL SIM CHN2 SPI RAB TST ME MI");
    // Meant: the friend-or-foe bits are taken unshifted, so 01 is the only pattern that reads, and it reads as 2.
    for (const auto &[hex, status] : {std::pair{"41 00", 0U}, {"41 02", 2U}, {"41 04", 0U}, {"41 06", 0U}})
        EXPECT_EQ(ast_dataitem_048_020_decode(Item(48020, hex)).foe_fri, status) << hex;
}

TEST(Cat048TargetReport, DetailGivesTheOctetsThatAreThere) {
    expect_values(48020, "FE = PSR + MODE-S ROLL CALL|1|2|1|1|0; 82 = MODE-S ALL CALL|0|1|0|1|0; "
                         "41 9A = SSR|0|1|0|0|1|1|1|1|UNKNOWN|0; 41 91 00 = SSR|0|1|0|0|1|1|1|0|NO_INTERROGATION|1");
}

TEST(Cat048TargetReport, EncodesASecondOctetWhenItHoldsSomething) {
    constexpr EncodeCase<ast_dataitem_048_020_t> kCases[] = {
        {"all of one octet", {.valid = true, .typ = 7, .sim = true, .rdp = 2, .spi = true, .rab = true}, "FE"},
        {"type out of range", {.valid = true, .typ = 9, .rdp = 1}, "00"},
        {"chain out of range", {.valid = true, .typ = 1, .rdp = 3}, "20"},
        {"test", {.valid = true, .typ = 2, .tst = true}, "41 80"},
        {"meant: ME two bits above where it is read", {.valid = true, .typ = 2, .me = true}, "41 40"},
        {"meant: MI likewise", {.valid = true, .typ = 2, .mi = true}, "41 20"},
        {"friend", {.valid = true, .foe_fri = 1}, "01 02"},
        {"no reply", {.valid = true, .foe_fri = 3}, "01 06"},
        {"status out of range", {.valid = true, .foe_fri = 5}, "01 00"},
        {"not valid", {.valid = false, .typ = 2}, nullptr},
    };
    expect_encodes(48020, kCases);
}

// ---- I048/030 Warning/Error Conditions ----

TEST(Cat048Warnings, SummaryGivesTheFirstCode) {
    expect_summaries(48030, "14 = ERRCODE:10; 15 02 = ERRCODE:10+; 00 = ERRCODE:0; FE = ERRCODE:127");
}

TEST(Cat048Warnings, TakesAnyNumberOfOctets) {
    const uint8_t behind = 0xFF;
    const ast_dataitem_t empty{.data = &behind, .size = 0, .type = 48030, .valid = true};
    EXPECT_EQ(table_of(text_from(ast_dataitem_048_030_get_detail_html, &empty)), "Error Code|Description");
    EXPECT_EQ(ast_dataitem_048_030_decode(&empty).count, 0U);
    const auto full = ast_dataitem_048_030_decode(Item(48030, repeated("FF", 24)));
    EXPECT_TRUE(full.valid && full.count == 23 && full.codes[22] == 127);
}

// ---- I048/040 Measured Position ----

TEST(Cat048Position, ViewsGiveRangeAndAzimuth) {
    expect_summaries(48040, "00 00 00 00 = RHO:0.0 THETA:0.0; 00 80 40 00 = RHO:0.5 THETA:90.0; "
                            "FF FF FF FF = RHO:256.0 THETA:360.0");
    expect_table(48040, "00 80 40 00", // meant: the second label reads so
                 "Bit|Item|Value; Octet[1-2]|RHO LSB:NM|0.50; Octet[2-3]|THETA LSB:DEG|90.00");
    expect_values(48040, "FF FF FF FF = 256.00|359.99");
}

TEST(Cat048Position, EncodesValuesOrElseRawOnes) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr EncodeCase<ast_dataitem_048_040_t> kCases[] = {
        {"values", {.valid = true, .rho_nm = 0.5, .theta_deg = 90}, "00 80 40 00"},
        {"half a unit is rounded up", {.valid = true, .rho_nm = 0.001953125}, "00 01 00 00"},
        {"one positive value is enough", {.valid = true, .rho_raw = 7, .theta_raw = 7, .rho_nm = 1}, "01 00 00 00"},
        {"either of them", {.valid = true, .rho_raw = 7, .theta_deg = 90}, "00 00 40 00"},
        {"no value", {.valid = true, .rho_raw = 0x1234, .theta_raw = 0xABCD}, "12 34 AB CD"},
        {"no positive value", {.valid = true, .rho_raw = 5, .rho_nm = -1, .theta_deg = -90}, "00 05 00 00"},
        {"no number", {.valid = true, .rho_raw = 5, .rho_nm = kNan}, "00 05 00 00"},
        {"not valid", {.valid = false, .rho_nm = 1}, nullptr},
    };
    expect_encodes(48040, kCases);
    ast_dataitem_048_040_t position{.valid = true, .rho_raw = 7, .theta_raw = 7, .rho_nm = 0.5, .theta_deg = 360};
    expect_encodes("a full turn is none", 48040, &position, "00 80 00 00");
    EXPECT_EQ(position.rho_raw, 128U) << "stored back";
    EXPECT_EQ(position.theta_raw, 65536U) << "as it was rounded, not as the octets hold it";
}

// ---- I048/042 Calculated Position ----

TEST(Cat048Cartesian, NegativeNumbersAreTheirMagnitudeLess32767) {
    // Meant: that is one more than two's complement.
    expect_summaries(48042, "00 00 00 00 = X:0.0 Y:0.0 LSB:M; FF FF 80 00 = X:0.0 Y:-474097.5 LSB:M; "
                            "00 01 7F FF = X:14.5 Y:474097.5 LSB:M; FF FE 00 00 = X:-14.5 Y:0.0 LSB:M");
    expect_table(48042, "00 80 FF 7F", // meant: the labels of Y read so
                 "Bit|Item|Value; Octet[1-2]|X LSB:1/128NM|128; Octet[1-2]|X LSB:NM|1.00; Octet[1-2]|X LSB:M|1852.00; "
                 "Octet[2-3]|Y LSB:1/128NM|-128; Octet[2-3]|Y LSB:NM|-1.00; Octet[2-3]|Y LSB:M|-1852.00");
}

// ---- I048/050 Mode 2 Code ----

TEST(Cat048Mode2, ViewsGiveCodeAndFlags) {
    expect_summaries(48050, "00 00 = MODE_2:0000; 8F FF = MODE_2:7777 NOT_VALIDATED; 40 01 = MODE_2:0001 GARBLED; "
                            "28 00 = MODE_2:4000 SMOOTHED; "
                            "F2 9C = MODE_2:1234 NOT_VALIDATED GARBLED SMOOTHED"); // and a spare bit
    expect_values(48050, "4F 35 = 0|1|0|0|7|4|6|5");
}

TEST(Cat048Mode2, EncodesTwelveBits) {
    constexpr EncodeCase<ast_dataitem_048_050_t> kCases[] = {
        {"not validated", {.valid = true, .not_validated = true, .code = 07777}, "8F FF"},
        {"garbled", {.valid = true, .garbled = true}, "40 00"},
        {"smoothed", {.valid = true, .smoothed = true, .code = 01234}, "22 9C"},
        {"a bit beyond the code", {.valid = true, .code = 010000}, nullptr},
        {"negative as a signed number", {.valid = true, .code = 0x80000000}, nullptr},
        {"not valid", {.valid = false, .code = 01234}, nullptr},
    };
    expect_encodes(48050, kCases);
}

// ---- I048/110 Height Measured by a 3D Radar ----

TEST(Cat048Height, NegativeHeightsAreTheirMagnitudeLess8191) {
    // Meant, as in I048/042. Bits 8-7 are not read.
    expect_summaries(48110, "00 00 = H:0 LSB:FT; 00 01 = H:25 LSB:FT; C0 28 = H:1000 LSB:FT; 1F FF = H:204775 LSB:FT; "
                            "3F FF = H:0 LSB:FT; 3F FE = H:-25 LSB:FT; 20 00 = H:-204775 LSB:FT");
    expect_table(48110, "00 28", // 304.8 metres
                 "Bit|Item|Value; Octet[1-2]|HEIGHT (LSB=25FT)|40; Octet[1-2]|HEIGHT (LSB=FT)|1000; "
                 "Octet[1-2]|HEIGHT (LSB=M)|304");
    expect_values(48110, "3F D7 = -40|-1000|-304");
}

// ---- I048/120 Radial Doppler Speed, I048/130 Radar Plot Characteristics ----

TEST(Cat048DopplerSpeed, RawSpeedTakesSevenOctetsWhateverItsCount) {
    each_case("80 00 00 = 3; 40 00 00 00 00 00 00 00 = 8; 40 01 00 00 00 00 00 = 0; "
              "40 05 00 00 00 00 00 00 = 8; " // meant: a count of 5 would be 31 octets
              "C0 00 00 01 00 00 00 00 00 00 = 10",
              [](const std::string &hex, const std::string &size) {
                  const auto data = octets(hex);
                  EXPECT_EQ(std::to_string(ast_dataitem_get_size(data.data(), data.size(), 48120)), size) << hex;
              });
    EXPECT_EQ(subfield_summary_of(48120001, "80 00 10") + subfield_detail_of(48120001, "80 00 10"), "");
}

TEST(Cat048PlotCharacteristics, SubfieldSummaries) {
    // 255 x 360 / 8192 degrees. Meant: the amplitude is unsigned, the minus sign always there.
    expect_subfield_summaries(48130001, "E0 FF 05 C8 = 11.21 LSB=DEG; 80 00 = 0.00 LSB=DEG; 60 05 C8 = ");
    expect_subfield_summaries(48130002, "E0 FF 05 C8 = 5");
    expect_subfield_summaries(48130003, "E0 FF 05 C8 = -200 LSB=DBM; 20 00 = -0 LSB=DBM");
    expect_subfield_summaries(48130004, "10 01 = NOT_IMPLEMENTED");
    expect_subfield_summaries(48130007, "02 01 = NOT_IMPLEMENTED; 10 01 = ");
    EXPECT_EQ(subfield_detail_of(48130001, "80 FF"), "");
    const auto plot = ast_dataitem_048_130_decode(Item(48130, "A0 80 FF"));
    EXPECT_TRUE(plot.valid && plot.srl.present && !plot.srr.present && plot.sam.present);
    EXPECT_TRUE(plot.srl.raw == 128 && plot.srl.deg == 5.625 && plot.sam.value == 255);
    EXPECT_EQ(plot.subfields.subfield_count, 7U);
}

// ---- I048/170 Track Status ----

TEST(Cat048TrackStatus, ViewsReadTheFirstOctet) {
    expect_summaries(48170, "9E = TYPE:CMB; 20 = TYPE:PSR; 40 = TYPE:SSR; 61 FE = TYPE:INVALID");
    expect_values(48170, "33 00 = 0|PSR|1|0|CLIMBING|1; 4C = 0|SSR|0|1|DESCENDING|0; FE = 1|INVALID|1|1|INVALID|0");
}

// ---- I048/210 Track Quality ----

TEST(Cat048TrackQuality, ViewsGiveFourDeviations) {
    expect_summaries(48210, "00 00 00 00 = X:0.00 Y:0.00 V:0.00 H:0.00; 80 40 64 10 = X:1.00 Y:0.50 V:22.00 H:1.41; "
                            "FF FF FF FF = X:1.99 Y:1.99 V:56.10 H:22.41");
    // Meant: speed and heading have rounded units, not 2^-14 NM/s and 360/2^12 degrees.
    expect_values(48210, "80 40 64 10 = 128|1.000000|64|0.500000|100|22.000000|16|1.406240");
}

// ---- I048/230 Communications / ACAS Capability and Flight Status ----

TEST(Cat048FlightStatus, ViewsGiveCapabilitiesAndStatus) {
    expect_values(
        48230,
        "27 AA = COMM-A COMM-B|GND||1|100FT|1|00000000|00001010; 80 55 = LEVEL_5|AIR||0|25FT|0|00000001|00000101");
}

TEST(Cat048FlightStatus, ReportsWhatIsUndefinedAndStaysValid) {
    const LogLine capability{2, "I048/230: Communication Capability Undefined."};
    const LogLine status{2, "I048/230: Flight Status Undefined."};
    LogCapture log;
    const std::pair<const char *, LogLines> cases[] = {
        {"94 00", {}}, {"A0 00", {capability}}, {"18 00", {status}}, {"FC 00", {capability, status}}};
    for (const auto &[hex, lines] : cases) {
        EXPECT_TRUE(ast_dataitem_048_230_decode(Item(48230, hex)).valid) << hex;
        EXPECT_EQ(log.take(), lines) << hex;
    }
    expect_summaries(48230, "04 00 = FS:GND; 14 00 = FS:SPI; 18 00 = FS:UNDEFINED; 1C 00 = FS:UNDEFINED");
}

// ---- I048/260 ACAS Resolution Advisory Report ----

TEST(Cat048AcasAdvisory, IsRegister30) {
    constexpr char kOctets[] = "30 80 00 04 00 00 00";
    EXPECT_EQ(summary_of(48260, kOctets), "BDS:3,0");
    const Item item(48260, kOctets);
    const auto advisory = ast_dataitem_048_260_decode(item);
    const std::string fields = text_from(ast_bds_30_get_detail_html, &advisory.bds);
    const std::string detail = detail_of(48260, kOctets);
    EXPECT_EQ(detail.find("<h4>BDS 3,0 - TCAS/ACAS Active Resolution Advisory</h4><table class=\"bin_table\">"), 0U);
    EXPECT_NE(detail.find("Octet 7 - 00"), detail.npos);
    EXPECT_GT(rows_of(fields).size(), 1U);
    EXPECT_TRUE(detail.ends_with("</table><p></p>" + fields)) << detail;
}

// ---- All items of this category's own ----

TEST(Cat048Items, TakeTheirTypeAndSizeOnly) {
    EXPECT_EQ(summary_of(48042, "FF FF 80"), "");
    EXPECT_EQ(summary_of(48050, "8F FF 00"), "");
    EXPECT_EQ(text_from(ast_dataitem_048_050_get_summary, static_cast<const ast_dataitem_t *>(Item(48051, "8F FF"))),
              "");
    // These two take items of any type.
    EXPECT_TRUE(ast_dataitem_048_040_decode(Item(20, "00 80 40 00")).valid);
    EXPECT_TRUE(ast_dataitem_048_042_decode(Item(20, "00 80 40 00")).valid);
    EXPECT_FALSE(ast_dataitem_048_130_decode(Item(48130, "81")).valid);
    EXPECT_FALSE(ast_dataitem_048_130_decode(Item(48120, "80 00 10")).valid);
}

TEST(Cat048Items, ReadAsTheirDefaultsWhenTheyAreNotTaken) {
    const auto report = ast_dataitem_048_020_decode(nullptr);
    EXPECT_TRUE(report.rdp == 1 && report.foe_fri == 0);
    const auto track = ast_dataitem_048_170_decode(nullptr);
    EXPECT_TRUE(track.rad == 3 && track.cdm == 3);
    const auto status = ast_dataitem_048_230_decode(nullptr);
    EXPECT_TRUE(status.com == 7 && status.stat == 8);
}

TEST(Cat048Items, EncodersNeedRoomAndAValue) {
    ast_dataitem_048_020_t report{.valid = true, .typ = 2};
    ast_dataitem_048_040_t position{.valid = true, .rho_nm = 1};
    ast_dataitem_048_050_t code{.valid = true, .code = 7};
    const struct {
        ast_dataitem_src_t source;
        uint64_t needed;
    } cases[] = {{{48020, &report}, 2}, {{48040, &position}, 4}, {{48050, &code}, 2}}; // a report of one octet, too
    for (const auto &one : cases) {
        uint8_t buffer[4] = {0xA5, 0xA5, 0xA5, 0xA5};
        const ast_dataitem_src_t empty{one.source.type, nullptr};
        EXPECT_FALSE(ast_dataitem_encode(buffer, one.needed - 1, &one.source).valid) << one.source.type;
        EXPECT_FALSE(ast_dataitem_encode(nullptr, 4, &one.source).valid) << one.source.type;
        EXPECT_FALSE(ast_dataitem_encode(buffer, 4, &empty).valid) << one.source.type;
        for (const uint8_t octet : buffer) EXPECT_EQ(octet, 0xA5) << one.source.type;
        EXPECT_TRUE(ast_dataitem_encode(buffer, one.needed, &one.source).valid) << one.source.type;
    }
}

// ---- Accessors ----

// A quantity, or what it reads as when it is not valid.
std::string text_of(const ast_quantity_t &quantity) {
    return (quantity.valid ? "" : "no ") + std::to_string(static_cast<int>(quantity.value));
}

TEST(Cat048Accessors, FlightLevelComesFromModeCOrElseFromThe3dHeight) {
    const struct {
        const char *name;
        std::initializer_list<Content> items;
        const char *feet;
    } cases[] = {
        {"Mode C, neither validated nor clear", {{48090, "C1 90"}}, "10000"},
        {"below zero", {{48090, "3F FF"}}, "-25"},
        {"meant: height as magnitude less 8191", {{48110, "20 00"}}, "-204775"},
        {"Mode C before height, wherever it stands", {{48110, "00 28"}, {48090, "01 90"}}, "10000"},
        {"height for a Mode C that does not decode", {{48090, "01"}, {48110, "00 28"}}, "1000"},
        {"height one octet short", {{48110, "00"}}, "no 0"},
        {"neither", {{48070, "0F FF"}}, "no 0"},
    };
    for (const auto &one : cases)
        EXPECT_EQ(text_of(ast_datarecord_048_get_flightlevel(Record(48, one.items))), one.feet) << one.name;
}

// Registers of Mode S MB data: seven octets and the register's number.
#define BDS_40_BOTH "9F 45 77 00 00 00 00 40" /* MCP/FCU 16000 ft, FMS 24000 ft */
#define BDS_40_MCP "9F 40 00 00 00 00 00 40"
#define BDS_40_NONE "00 00 00 00 00 00 00 40"
#define BDS_50_45 "00 12 00 00 00 00 00 50"  /* track 45 degrees */
#define BDS_50_315 "00 1A 00 00 00 00 00 50" /* the same with the sign set */
#define BDS_50_NONE "00 02 00 00 00 00 00 50"
#define BDS_60_90 "A0 00 00 00 00 00 00 60"
#define BDS_60_270 "E0 00 00 00 00 00 00 60"

TEST(Cat048Accessors, SelectedAltitudeIsThatOfTheFirstRegister40) {
    each_case("01 " BDS_40_BOTH " = 24000; 01 " BDS_40_MCP " = 16000; 01 " BDS_40_NONE " = no 0; "
              "02 " BDS_40_NONE " " BDS_40_BOTH " = no 0; " // the first one decides
              "03 " BDS_60_90 " " BDS_40_MCP " " BDS_40_BOTH " = 16000; 01 " BDS_60_90 " = no 0; "
              "02 " BDS_40_BOTH " A0 00 00 00 00 00 00 = no 0", // one octet short
              [](const std::string &hex, const std::string &feet) {
                  EXPECT_EQ(text_of(ast_datarecord_048_get_selaltitude(Record(48, {{48250, hex}}))), feet) << hex;
              });
    EXPECT_FALSE(ast_datarecord_048_get_selaltitude(Record(48, {})).valid);
}

TEST(Cat048Accessors, HeadingIsThatOfTheLastRegisters) {
    constexpr struct {
        const char *octets;
        double magnetic; // -1: not valid
        double track;
    } kCases[] = {
        {"01 " BDS_60_90, 90, -1},
        {"02 " BDS_50_315 " " BDS_60_90, 90, 315},
        {"04 " BDS_60_90 " " BDS_50_45 " " BDS_60_270 " " BDS_50_315, 270, 315},
        {"02 " BDS_50_45 " " BDS_50_NONE, -1, 45}, // one without its status changes nothing
        {"01 " BDS_40_BOTH, -1, -1},
        {"00", -1, -1},
    };
    for (const auto &one : kCases) {
        const auto heading = ast_datarecord_048_get_heading(Record(48, {{48250, one.octets}}));
        EXPECT_EQ(heading.magnetic.valid, one.magnetic >= 0) << one.octets;
        EXPECT_EQ(heading.magnetic.value, one.magnetic) << one.octets;
        EXPECT_EQ(heading.track.valid, one.track >= 0) << one.octets;
        EXPECT_EQ(heading.track.value, one.track) << one.octets;
        EXPECT_EQ(heading.valid, heading.magnetic.valid || heading.track.valid) << one.octets;
    }
}

TEST(Cat048Accessors, TheFirstItemOfATypeCounts) {
    const Record record(48, {{48010, "19 0C"}, {48010, "01 02"}, {48250, "01 " BDS_60_90}, {48250, "01 " BDS_60_270}});
    EXPECT_EQ(ast_datarecord_048_get_sacsic(record).sac, 25U);
    EXPECT_EQ(ast_datarecord_048_get_heading(record).magnetic.value, 90);
    EXPECT_FALSE(ast_datarecord_048_get_sacsic(Record(48, {{48010, "19"}, {48010, "01 02"}})).valid);
}

// ---- Flat records ----

// Every item of the standard profile that is registered, in FRN order: 1 to 22, 24, 27 and 28.
constexpr char kFullRecord[] = "FF FF FF A6 "
                               "19 0C 58 78 40 41 80 00 80 40 00 2F 77 01 90 E0 12 05 C8 "             // FRN 1-7
                               "3C 65 AC 2C C3 71 82 08 20 01 9F 45 77 00 00 00 00 40 01 23 "          // FRN 8-11
                               "FF FF 80 00 04 00 40 00 44 80 40 64 10 15 14 0A 55 CA 55 05 AA 00 28 " // FRN 12-19
                               "80 00 10 20 FA 30 80 00 04 00 00 00 8F FF 02 FF 02 FF";                // FRN 20-28

// What is left of it: FRN 1-6, 8, 9, 11, 13 and 24.
constexpr char kAssembled[] = "FD D5 01 20 19 0C 58 78 40 41 80 00 80 40 00 2F 77 01 90 "
                              "3C 65 AC 2C C3 71 82 08 20 01 23 04 00 40 00 8F FF";

ast_datarecord_048_t disassembled(const std::vector<uint8_t> &data) {
    const auto record = ast_datarecord_decode(data.data(), data.size(), 48, AST_UAP_STANDARD);
    EXPECT_TRUE(record.valid);
    return ast_datarecord_048_disassemble(&record);
}

std::vector<uint8_t> assembled(ast_datarecord_048_t &flat) {
    std::vector<uint8_t> buffer(100);
    const auto record = ast_datarecord_048_assemble(buffer.data(), buffer.size(), &flat, AST_UAP_STANDARD);
    EXPECT_TRUE(record.valid);
    buffer.resize(record.size);
    return buffer;
}

TEST(Cat048Flat, TakesEveryMemberApartAndPutsElevenBack) {
    LogCapture log;
    auto flat = disassembled(octets(kFullRecord));
    EXPECT_EQ(log.take(), (LogLines{{0, "Failed to disassemble dataitem I048/210."},
                                    {0, "Failed to disassemble dataitem I048/120."},
                                    {0, "Failed to disassemble dataitem I048/SPF."},
                                    {0, "Failed to disassemble dataitem I048/REF."}}));
    EXPECT_TRUE(flat.valid && flat.data_source.sac == 25 && flat.target_report.tst && flat.warnings.codes[1] == 10);
    EXPECT_TRUE(flat.polar_position.theta_deg == 90 && flat.cartesian_position.y_raw == -32767 &&
                flat.mode_2.code == 07777);
    EXPECT_TRUE(flat.mode_3a.code == 07567 && flat.mode_3a_confidence.low_quality[AST_PULSE_A4]);
    EXPECT_TRUE(flat.mode_c.flight_level == 400 && flat.mode_c_confidence.garbled && flat.height_3d.height_ft == 1000);
    EXPECT_TRUE(flat.plot_characteristics.sam.value == 200 && flat.time_of_day.millisecond == 500);
    EXPECT_TRUE(flat.track_number.value == 0x123 && flat.track_status.rad == 2 && flat.polar_velocity.value_1 == 225);
    EXPECT_TRUE(flat.target_address.address == 0x3C65AC && flat.comm_and_flight_status.b1b == 10);
    EXPECT_STREQ(flat.aircraft_id.text, "KLM1    ");
    EXPECT_TRUE(flat.modes_mb.registers[0].bds == 0x40 && flat.acas_advisory.bds.bds == 0x30);

    EXPECT_EQ(assembled(flat), octets(kAssembled));
    auto again = disassembled(octets(kAssembled));
    EXPECT_EQ(assembled(again), octets(kAssembled));
}

TEST(Cat048Flat, AssemblesWhatIsValidAndStoresRawValuesBack) {
    ast_datarecord_048_t flat{};
    flat.data_source = {.valid = true, .sac = 1, .sic = 2};
    flat.polar_position = {.valid = true, .rho_nm = 1, .theta_deg = 180};
    flat.target_address = {.valid = true, .address = 0x4CA1F3};
    flat.track_number = {.valid = false, .value = 7};
    flat.warnings.valid = flat.height_3d.valid = true;                      // never assembled
    EXPECT_EQ(assembled(flat), octets("91 80 01 02 01 00 80 00 4C A1 F3")); // FRN 1, 4 and 8
    EXPECT_EQ(flat.polar_position.rho_raw, 256U);
    EXPECT_EQ(flat.polar_position.theta_raw, 32768U);
    EXPECT_EQ(flat.target_address.octets[0], 0x4C);
}

TEST(Cat048Flat, TakesValidRecordsOfItsCategoryOnly) {
    Record record(48, {{48010, "19 0C"}, {48010, "01 02"}});
    EXPECT_EQ(ast_datarecord_048_disassemble(record).data_source.sac, 1U) << "the last item of a type stays";
    record->valid = false;
    for (const ast_datarecord_t *none : {static_cast<const ast_datarecord_t *>(record), {}}) {
        const auto flat = ast_datarecord_048_disassemble(none);
        EXPECT_FALSE(flat.valid || flat.data_source.valid);
    }
    EXPECT_FALSE(ast_datarecord_048_disassemble(Record(34, {{48010, "19 0C"}})).valid);
}

TEST(Cat048Flat, WhatIsAbsentIsZeroWhatDoesNotDecodeIsItsDefault) {
    const auto absent = ast_datarecord_048_disassemble(Record(48, {}));
    EXPECT_TRUE(absent.valid && absent.target_report.rdp == 0 && absent.track_status.rad == 0 &&
                absent.comm_and_flight_status.stat == 0);
    Record broken(48, {{48020, "40"}, {48170, "00"}, {48040, "00 80 40"}});
    broken->items[0].valid = broken->items[1].valid = false;
    const auto flat = ast_datarecord_048_disassemble(broken);
    EXPECT_TRUE(flat.valid);
    EXPECT_TRUE(!flat.target_report.valid && flat.target_report.rdp == 1);
    EXPECT_TRUE(!flat.track_status.valid && flat.track_status.rad == 3 && flat.track_status.cdm == 3);
    EXPECT_TRUE(!flat.polar_position.valid && flat.polar_position.rho_raw == 0);
}

} // namespace
