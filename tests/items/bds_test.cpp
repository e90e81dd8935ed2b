#include "support/functions.hpp"
#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/octets.hpp"
#include "support/text.hpp"

using namespace ast_test;

namespace {

// A register over octets of its own.
class Register {
public:
    Register(uint32_t bds, std::string_view hex)
        : octets_(octets(hex)), register_(ast_bds_decode(octets_.data(), octets_.size(), bds)) {}
    operator const ast_bds_t *() const { return &register_; }

private:
    std::vector<uint8_t> octets_;
    ast_bds_t register_;
};

std::string detail_of(const ast_bds_t *bds) {
    return written([&](char *text, uint64_t capacity) { ast_bds_get_detail_html(text, capacity, bds); });
}

void expect_register(uint32_t bds, const char *hex, std::vector<Row> rows) {
    const Row header = bds == 0x40 ? Row{"Item", "Value", "Status"} : Row{"Item", "Value"};
    rows.insert(rows.begin(), header);
    EXPECT_EQ(rows_of(detail_of(Register(bds, hex))), rows) << hex;
}

// The values of a register's rows, for cases that share their labels.
std::vector<std::string> values(uint32_t bds, const char *hex) {
    std::vector<std::string> result;
    for (const Row &row : rows_of(detail_of(Register(bds, hex)))) result.push_back(row.at(1));
    if (!result.empty()) result.erase(result.begin());
    return result;
}

using Values = std::vector<std::string>;

TEST(Bds05, ShowsAPositionReport) {
    expect_register(0x05, "58 C3 82 D6 90 C8 AC",
                    {{"Format Type Code", "11"},
                     {"Surveillance Status", "0"},
                     {"NIC Supplement-B", "0"},
                     {"Altitude Source", "BARO"},
                     {"Altitude", "38000"},
                     {"Time", "0"},
                     {"CPR Format", "EVEN"},
                     {"CPR Encoded Latitude", "93000"},
                     {"CPR Encoded Longitude", "51372"}});
}

TEST(Bds05, ReadsBothSourcesAndBothSteps) {
    EXPECT_EQ(values(0x05, "A7 01 0C 00 01 FF FF"),
              (Values{"20", "3", "1", "GNSS", "-1000", "1", "ODD", "0", "131071"}));
    EXPECT_EQ(values(0x05, "4A FF F3 FF FE 00 00"),
              (Values{"9", "1", "0", "BARO", "50175", "0", "EVEN", "131071", "0"}));
    // Meant: without the Q bit the same digits count steps of 100 ft; they are not taken as Gillham code.
    EXPECT_EQ(values(0x05, "58 C2 82 D6 90 C8 AC").at(4), "155000");
}

TEST(Bds05, OtherTypeCodesAreKeptButNotDecoded) {
    for (const auto &[octet, code] : {std::pair{"40", 8U}, {"98", 19U}, {"B8", 23U}, {"C8", 25U}}) {
        const Register position(0x05, std::string(octet) + " C3 82 D6 90 C8 AC");
        EXPECT_FALSE(ast_bds_05_decode(position).valid) << octet;
        EXPECT_EQ(ast_bds_05_decode(position).format_type_code, code);
        EXPECT_EQ(ast_bds_05_decode(position).cpr_latitude, 0U);
        EXPECT_EQ(detail_of(position), "");
    }
    for (const char *const octet : {"48", "90", "A0", "B0"})
        EXPECT_TRUE(ast_bds_05_decode(Register(0x05, std::string(octet) + " C3 82 D6 90 C8 AC")).valid) << octet;
}

TEST(Bds08, ShowsIdentityAndCategory) {
    expect_register(0x08, "21 2C C3 71 CB 3D 20",
                    {{"Format Type Code", "4"},
                     {"Emitter Category Set", "A"},
                     {"Emitter Category", "1"},
                     {"CHAR_1", "K"},
                     {"CHAR_2", "L"},
                     {"CHAR_3", "M"},
                     {"CHAR_4", "1"},
                     {"CHAR_5", "2"},
                     {"CHAR_6", "3"},
                     {"CHAR_7", "4"},
                     {"CHAR_8", " "}});
    // Meant: the emitter category takes two of its three bits, so 7 reads as 3.
    EXPECT_EQ(ast_bds_08_decode(Register(0x08, "27 00 00 00 00 00 00")).emitter_category, 3U);
}

TEST(Bds09, ShowsAVelocityReport) {
    expect_register(0x09, "99 44 09 94 08 38 17",
                    {{"Format Type Code", "19"},
                     {"Subtype", "1"},
                     {"Intent Change Flag", "NO"},
                     {"NACv", "0"},
                     {"Ground Speed Valid", "YES"},
                     {"Ground Speed Direction E-W", "WEST 8"},
                     {"Ground Speed N-S", "SOUTH 159"},
                     {"Vertical Rate Source", "GEOMETRIC"},
                     {"Vertical Rate Sign", "DOWN"},
                     {"Vertical Rate Valid", "YES"},
                     {"Vertical Rate", "832"},
                     {"Geometric Height Difference Sign", "ABOVE_BARO"},
                     {"Geometric Height Difference Valid", "YES"},
                     {"Geometric Height Difference", "550"}});
}

TEST(Bds09, DependsOnItsSubtype) {
    EXPECT_EQ(values(0x09, "9A 83 FF 7F F7 FC FF"), // supersonic, everything at its highest but the signs of both axes
              (Values{"19", "2", "YES", "0", "YES", "EAST 4088", "NORTH 4088", "BARO", "UP", "YES", "32640",
                      "BELOW_BARO", "YES", "3150"}));
    EXPECT_EQ(values(0x09, "9B 3F FF FF E0 04 01"), // airspeed: no ground speed
              (Values{"19", "3", "NO", "7", "NO", "EAST 0", "NORTH 0", "GEOMETRIC", "UP", "YES", "0", "ABOVE_BARO",
                      "YES", "0"}));
    EXPECT_EQ(values(0x09, "99 44 00 94 08 00 00"), // one raw velocity is 0: neither is known
              (Values{"19", "1", "NO", "0", "NO", "WEST 0", "SOUTH 0", "GEOMETRIC", "DOWN", "NO", "0", "ABOVE_BARO",
                      "NO", "0"}));
    for (const auto &[octet, code, subtype] : {std::tuple{"98", 19U, 0U}, {"9D", 19U, 5U}, {"91", 18U, 1U}}) {
        const auto velocity = ast_bds_09_decode(Register(0x09, std::string(octet) + " 44 09 94 08 38 17"));
        EXPECT_FALSE(velocity.valid) << octet;
        EXPECT_EQ(velocity.format_type_code, code);
        EXPECT_EQ(velocity.subtype, subtype);
        EXPECT_EQ(velocity.vertical_rate_ft_min, 0U);
    }
}

TEST(Bds10, ShowsCapabilities) {
    expect_register(
        0x10, "FF 81 09 96 A0 00 00", // the first octet is not looked at
        {{"Continuation Flag", "YES"},
         {"TCAS Interface Operational", "YES"},
         {"Mode-S Subnetwork Version Number", "ICAO(ANNEX10 2007, DOC9871 ED1) RTCA(DO-181D) EUROCAE(ED-73C)"},
         {"Transponder Enhanced Protocol Indicator", "LEVEL 5"},
         {"Mode-S Specific Services Capability", "YES"},
         {"Uplink ELM Average Throughput Capability", "16 UELM SEGMENTS IN 1 SEC)"},
         {"Downlink ELM Throughput Capability", "16 DELM SEGMENTS IN 125 MSEC"},
         {"Aircraft Identification Capability", "YES"},
         {"Squitter Capability Subfield (SCS)", "NO"},
         {"Surveillance Identifier Code (SIC)", "YES"},
         {"Common Usage GICB Capability", "NO"}});
    EXPECT_EQ(values(0x10, "10 7E 00 00 50 00 00"),
              (Values{"NO", "NO", "NOT AVALIABLE", "LEVEL 2-4", "NO", "NO UELM CAPABILITY", "NO DELM CAPABILITY", "NO",
                      "YES", "NO", "YES"}));
    EXPECT_EQ(values(0x10, "10 00 0A 00 00 00 00").at(2), "UNASSIGNED");
}

TEST(Bds10, NamesEachThroughput) {
    constexpr std::pair<const char *, const char *> kThroughputs[] = {
        {"16 UELM SEGMENTS IN 1 SEC)", "4 DELM SEGMENTS IN 1 SEC)"}, // meant: with the bracket
        {"16 UELM SEGMENTS IN 500 MSEC", "8 DELM SEGMENTS IN 1 SEC"},
        {"16 UELM SEGMENTS IN 250 MSEC", "16 DELM SEGMENTS IN 1 SEC"},
        {"16 UELM SEGMENTS IN 125 MSEC", "16 DELM SEGMENTS IN 500 MSEC"},
        {"16 UELM SEGMENTS IN 60 MSEC", "16 DELM SEGMENTS IN 250 MSEC"},
        {"16 UELM SEGMENTS IN 30 MSEC", "16 DELM SEGMENTS IN 125 MSEC"},
    };
    constexpr const char *kOctets[] = {"10 00 00 11 00 00 00", "10 00 00 22 00 00 00", "10 00 00 33 00 00 00",
                                       "10 00 00 44 00 00 00", "10 00 00 55 00 00 00", "10 00 00 66 00 00 00"};
    for (size_t i = 0; i < std::size(kOctets); ++i) {
        EXPECT_EQ(values(0x10, kOctets[i]).at(5), kThroughputs[i].first);
        EXPECT_EQ(values(0x10, kOctets[i]).at(6), kThroughputs[i].second);
    }
}

TEST(Bds20, NeedsItsOwnNumber) {
    EXPECT_STREQ(ast_bds_20_decode(Register(0x20, "20 2C C3 71 CB 3D 20")).callsign, "KLM1234 ");
    EXPECT_EQ(values(0x20, "20 2C C3 40 00 00 00"), (Values{"K", "L", "M", "", "", "", "", ""}));
    const auto other = ast_bds_20_decode(Register(0x20, "21 2C C3 71 CB 3D 20"));
    EXPECT_FALSE(other.valid);
    EXPECT_STREQ(other.callsign, "");
}

TEST(Bds30, ShowsAnAdvisory) {
    expect_register(0x30, "30 80 00 24 F1 96 B0",
                    {{"Active Resolution Advisories (ARA)", "YES"},
                     {"Resolution Advisory Complements (RAC)", "NO"},
                     {"Resolution Advisory Terminated Indicator (RAT)", "YES"},
                     {"Multiple Threat Encounter (MTE)", "NO"},
                     {"Threat Type Indicator (TTI)", "1"},
                     {"Threat Mode-S Address", "3C65AC"}});
    struct {
        const char *octets;
        Values values;
    } const cases[] = {
        {"30 00 04 00 00 00 00", {"YES", "NO", "NO", "NO", "0", "000000"}},
        {"30 00 03 00 00 00 00", {"NO", "YES", "NO", "NO", "0", "000000"}},
        {"30 00 00 40 00 00 00", {"NO", "YES", "NO", "NO", "0", "000000"}},
        {"30 00 00 17 FF FF FC", {"NO", "NO", "NO", "YES", "1", "FFFFFF"}},
        {"30 00 00 0B FF FF FF", {"NO", "NO", "NO", "NO", "2", "000000"}}, // no address with a position
        {"30 00 00 0F FF FF FF", {"NO", "NO", "NO", "NO", "0", "000000"}}, // reserved
    };
    for (const auto &one : cases) EXPECT_EQ(values(0x30, one.octets), one.values) << one.octets;
}

TEST(Bds40, ShowsValuesAndTheirStatus) {
    expect_register(0x40, "85 E4 2F 31 30 00 00",
                    {{"MCP/FCU Selected Altitude", "3008 FT", "valid"},
                     {"FMS Selected Altitude", "3008 FT", "valid"},
                     {"Barometric Pressure Setting", "1020.0 MB", "valid"},
                     {"Target Altitude Source", "Unknown", "invalid"},
                     {"Vnav Mode", "NO", "invalid"},
                     {"Alt Hold Mode", "NO", "invalid"},
                     {"Approach Mode", "NO", "invalid"}});
    expect_register(0x40, "00 00 00 00 00 01 A6",
                    {{"MCP/FCU Selected Altitude", "0 FT", "invalid"},
                     {"FMS Selected Altitude", "0 FT", "invalid"},
                     {"Barometric Pressure Setting", "0.0 MB", "invalid"},
                     {"Target Altitude Source", "FCU/MCP Selected Altitude", "valid"},
                     {"Vnav Mode", "YES", "valid"},
                     {"Alt Hold Mode", "NO", "valid"},
                     {"Approach Mode", "YES", "valid"}});
}

TEST(Bds50, ShowsTrackAndTurn) {
    expect_register(0x50, "81 95 15 36 E0 24 D4",
                    {{"Roll Angle", "2.11 DEG"},
                     {"True Track Angle", "114.26 DEG"},
                     {"Ground Speed", "438.00 KNOT"},
                     {"Track Angle Rate", "0.12 DEG/SEC"},
                     {"True Airspeed", "424 KNOTS"}});
    EXPECT_EQ(values(0x50, "E0 1C 00 00 31 00 00"), // signs and magnitudes
              (Values{"-45.00 DEG", "270.00 DEG", "0.00 KNOT", "-1.00 DEG/SEC", "0 KNOTS"}));
    EXPECT_EQ(values(0x50, "BF F7 FF FF EF FF FF"), // all highest, no sign
              (Values{"89.82 DEG", "179.82 DEG", "2046.00 KNOT", "15.97 DEG/SEC", "2046 KNOTS"}));
}

TEST(Bds60, ShowsHeadingAndSpeed) {
    expect_register(0x60, "8F 39 F9 1A 7E 27 C4",
                    {{"Magnetic Heading", "42.71 DEG"},
                     {"Indicated Airspeed", "252 KNOT"},
                     {"Mach", "0.42 MACH"},
                     {"Barometric Altitude Rate", "-14464.00 FEET/MIN"}, // sign and magnitude
                     {"Intertial Vertical Velocity", "-14464.00 FEET/MIN"}});
    EXPECT_EQ(values(0x60, "E0 07 FF FF E0 25 01"), // heading 180 and 90, no airspeed, highest Mach
              (Values{"270.00 DEG", " KNOT", "4.09 MACH", "128.00 FEET/MIN", "8224.00 FEET/MIN"}));
}

TEST(Registers, FieldsWithoutTheirStatusStayZero) {
    // All bits but those of the status flags.
    EXPECT_EQ(values(0x40, "7F FB FF DF FF FE FB"), (Values{"0 FT", "0 FT", "0.0 MB", "Unknown", "NO", "NO", "NO"}));
    EXPECT_EQ(values(0x50, "7F EF FE FF DF FB FF"),
              (Values{"0.00 DEG", "0.00 DEG", "0.00 KNOT", "0.00 DEG/SEC", "0 KNOTS"}));
    EXPECT_EQ(values(0x60, "7F F7 FE FF DF FB FF"), // meant: an airspeed of 0 has no digits
              (Values{"0.00 DEG", " KNOT", "0.00 MACH", "0.00 FEET/MIN", "0.00 FEET/MIN"}));
}

TEST(Registers, AreNotExaminedWhenTakenUp) {
    const auto seven = octets("20 00 00 00 00 00 00");
    EXPECT_TRUE(ast_bds_decode(seven.data(), 7, 0x99).valid);
    EXPECT_EQ(ast_bds_decode(seven.data(), 8, 0x99).size, 7U);
    EXPECT_EQ(ast_bds_decode(seven.data(), 7, 0x99).bds, 0x99U);
    EXPECT_FALSE(ast_bds_decode(seven.data(), 6, 0x20).valid);
}

struct Decoder {
    uint32_t bds;
    const char *octets;
    bool (*is_valid)(const ast_bds_t *);
    ast_bds_detail_html_t *detail;
};

#define DECODER(number, hex)                                                                                           \
    {                                                                                                                  \
        0x##number, hex, [](const ast_bds_t *bds) { return ast_bds_##number##_decode(bds).valid; },                    \
            ast_bds_##number##_get_detail_html                                                                         \
    }

constexpr Decoder kDecoders[] = {
    DECODER(05, "58 C3 82 D6 90 C8 AC"), DECODER(08, "20 2C C3 71 CB 3D 20"), DECODER(09, "99 44 09 94 08 38 17"),
    DECODER(10, "10 00 00 00 00 00 00"), DECODER(20, "20 2C C3 71 CB 3D 20"), DECODER(30, "30 00 00 00 00 00 00"),
    DECODER(40, "00 00 00 00 00 00 00"), DECODER(50, "00 00 00 00 00 00 00"), DECODER(60, "00 00 00 00 00 00 00"),
};

TEST(Registers, DecodersTakeTheirOwnRegisterOnly) {
    for (const Decoder &one : kDecoders) {
        const Register own(one.bds, one.octets);
        EXPECT_TRUE(one.is_valid(own)) << one.bds;
        EXPECT_TRUE(same_function(ast_bds_get_func(one.bds), one.detail)) << one.bds;
        ast_bds_t other_number = *own, other_size = *own, not_valid = *own;
        other_number.bds = 0x17;
        other_size.size = 6;
        not_valid.valid = false;
        for (const ast_bds_t *const bds : {&std::as_const(other_number), &std::as_const(other_size),
                                           &std::as_const(not_valid), static_cast<const ast_bds_t *>(nullptr)}) {
            EXPECT_FALSE(one.is_valid(bds)) << one.bds;
            char text[2000] = "before";
            one.detail(text, sizeof text, bds);
            EXPECT_STREQ(text, "") << one.bds;
        }
    }
}

TEST(Registers, WithoutADecoderAreReportedOncePerCall) {
    LogCapture log;
    EXPECT_EQ(ast_bds_get_func(0x17), nullptr);
    EXPECT_EQ(log.take(), (LogLines{{2, "Unsupported BDS 1,7"}}));
    char text[100] = "before";
    ast_bds_get_detail_html(text, sizeof text, Register(0xE1, "00 00 00 00 00 00 00"));
    EXPECT_STREQ(text, "");
    EXPECT_EQ(log.take(), (LogLines{{2, "Unsupported BDS E,1"}}));
    ast_bds_get_detail_html(text, sizeof text, Register(0xE1, "00 00"));
    EXPECT_EQ(log.take(), LogLines{}) << "nothing to show anyway";
    text[0] = 'x';
    ast_bds_get_detail_html_dummy(text, 0);
    EXPECT_EQ(text[0], 'x');
    ast_bds_get_detail_html_dummy(text, 1);
    EXPECT_EQ(text[0], '\0');
}

TEST(Registers, HaveNames) {
    constexpr std::pair<uint32_t, const char *> kNames[] = {
        {0x05, "Extended Squitter Airborne Position"},
        {0x06, "Extended Squitter Surface Position"},
        {0x07, "Extended Squitter Status"},
        {0x08, "Extended Squitter Aircraft Identification and Category"},
        {0x09, "Extended Squitter Airborne Velocity"},
        {0x0A, "Extended Squitter Event-Driven Information"},
        {0x10, "Data Link Capability Report"},
        {0x17, "Common Usage GICB Capability Report"},
        {0x20, "Aircraft Identification"},
        {0x30, "TCAS/ACAS Active Resolution Advisory"},
        {0x40, "Selected Vertical Intention"},
        {0x50, "Track and Turn Report"},
        {0x60, "Heading and Speed Report"},
        {0x61, "Extended Squitter Aircraft Status"},
        {0x62, "Target State and Status"},
        {0x65, "Extended Squitter Aircraft Operational Status"},
        {0xE1, "Reserved for Mode S BITE"},
        {0x00, "UNKNOWN NAME"},
        {0xFF, "UNKNOWN NAME"},
    };
    for (const auto &[bds, name] : kNames) EXPECT_STREQ(ast_bds_get_name(bds), name) << bds;
    const char *const full = ast_bds_type_to_str(64);
    EXPECT_STREQ(ast_bds_type_to_str_simple(0x1A), "1,A");
    EXPECT_STREQ(full, "BDS 4,0") << "in a buffer of its own";
}

} // namespace
