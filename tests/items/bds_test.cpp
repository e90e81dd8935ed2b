#include "support/items.hpp"
#include "support/log_capture.hpp"
#include "support/octets.hpp"

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

std::string detail_of(uint32_t bds, std::string_view hex) {
    const Register own(bds, hex);
    return shown(ast_bds_get_detail_html, static_cast<const ast_bds_t *>(own));
}

void expect_register(uint32_t bds, std::string_view hex, const char *table) {
    EXPECT_EQ(table_of(detail_of(bds, hex)), table) << hex;
}

// The cases are "octets = values".
void expect_register_values(uint32_t bds, std::string_view cases) {
    each_case(cases, [&](const std::string &hex, const std::string &values) {
        EXPECT_EQ(values_of(detail_of(bds, hex)), values) << hex;
    });
}

TEST(Bds05, ShowsAPositionReport) {
    expect_register(0x05, "58 C3 82 D6 90 C8 AC",
                    "Item|Value; Format Type Code|11; Surveillance Status|0; NIC Supplement-B|0; "
                    "Altitude Source|BARO; Altitude|38000; Time|0; CPR Format|EVEN; CPR Encoded Latitude|93000; "
                    "CPR Encoded Longitude|51372");
    expect_register_values(0x05, "A7 01 0C 00 01 FF FF = 20|3|1|GNSS|-1000|1|ODD|0|131071; "
                                 "4A FF F3 FF FE 00 00 = 9|1|0|BARO|50175|0|EVEN|131071|0; "
                                 // Meant: without the Q bit the same digits count steps of 100 ft, not as Gillham code.
                                 "58 C2 82 D6 90 C8 AC = 11|0|0|BARO|155000|0|EVEN|93000|51372");
}

TEST(Bds05, OtherTypeCodesAreKeptButNotDecoded) {
    for (const auto &[octet, code] : {std::pair{"40", 8U}, {"98", 19U}, {"B8", 23U}, {"C8", 25U}}) {
        const Register own(0x05, std::string(octet) + " C3 82 D6 90 C8 AC");
        const auto position = ast_bds_05_decode(own);
        EXPECT_TRUE(!position.valid && position.format_type_code == code && position.cpr_latitude == 0) << octet;
        EXPECT_EQ(shown(ast_bds_get_detail_html, static_cast<const ast_bds_t *>(own)), "");
    }
    for (const char *const octet : {"48", "90", "A0", "B0"})
        EXPECT_TRUE(ast_bds_05_decode(Register(0x05, std::string(octet) + " C3 82 D6 90 C8 AC")).valid) << octet;
}

TEST(Bds08, ShowsIdentityAndCategory) {
    expect_register(0x08, "21 2C C3 71 CB 3D 20",
                    "Item|Value; Format Type Code|4; Emitter Category Set|A; Emitter Category|1; CHAR_1|K; CHAR_2|L; "
                    "CHAR_3|M; CHAR_4|1; CHAR_5|2; CHAR_6|3; CHAR_7|4; CHAR_8| ");
    // Meant: the emitter category takes two of its three bits, so 7 reads as 3.
    EXPECT_EQ(ast_bds_08_decode(Register(0x08, "27 00 00 00 00 00 00")).emitter_category, 3U);
}

TEST(Bds09, ShowsAVelocityReport) {
    expect_register(0x09, "99 44 09 94 08 38 17",
                    "Item|Value; Format Type Code|19; Subtype|1; Intent Change Flag|NO; NACv|0; "
                    "Ground Speed Valid|YES; Ground Speed Direction E-W|WEST 8; Ground Speed N-S|SOUTH 159; "
                    "Vertical Rate Source|GEOMETRIC; Vertical Rate Sign|DOWN; Vertical Rate Valid|YES; "
                    "Vertical Rate|832; Geometric Height Difference Sign|ABOVE_BARO; "
                    "Geometric Height Difference Valid|YES; Geometric Height Difference|550");
    expect_register_values(
        0x09, // supersonic, all highest but the signs of both axes; airspeed; one raw velocity of 0, so neither is
              // known
        "9A 83 FF 7F F7 FC FF = 19|2|YES|0|YES|EAST 4088|NORTH 4088|BARO|UP|YES|32640|BELOW_BARO|YES|3150; "
        "9B 3F FF FF E0 04 01 = 19|3|NO|7|NO|EAST 0|NORTH 0|GEOMETRIC|UP|YES|0|ABOVE_BARO|YES|0; "
        "99 44 00 94 08 00 00 = 19|1|NO|0|NO|WEST 0|SOUTH 0|GEOMETRIC|DOWN|NO|0|ABOVE_BARO|NO|0; "
        "99 44 09 80 08 00 00 = 19|1|NO|0|NO|WEST 0|SOUTH 0|GEOMETRIC|DOWN|NO|0|ABOVE_BARO|NO|0");
    for (const auto &[octet, code, subtype] : {std::tuple{"98", 19U, 0U}, {"9D", 19U, 5U}, {"91", 18U, 1U}}) {
        const auto velocity = ast_bds_09_decode(Register(0x09, std::string(octet) + " 44 09 94 08 38 17"));
        EXPECT_TRUE(!velocity.valid && velocity.format_type_code == code && velocity.subtype == subtype) << octet;
        EXPECT_EQ(velocity.vertical_rate_ft_min, 0U) << octet;
    }
}

TEST(Bds10, ShowsCapabilities) {
    expect_register(0x10, "FF 81 09 96 A0 00 00", // the first octet is not looked at
                    "Item|Value; Continuation Flag|YES; TCAS Interface Operational|YES; "
                    "Mode-S Subnetwork Version Number|ICAO(ANNEX10 2007, DOC9871 ED1) RTCA(DO-181D) EUROCAE(ED-73C); "
                    "Transponder Enhanced Protocol Indicator|LEVEL 5; Mode-S Specific Services Capability|YES; "
                    "Uplink ELM Average Throughput Capability|16 UELM SEGMENTS IN 1 SEC); " // meant: with the bracket
                    "Downlink ELM Throughput Capability|16 DELM SEGMENTS IN 125 MSEC; "
                    "Aircraft Identification Capability|YES; Squitter Capability Subfield (SCS)|NO; "
                    "Surveillance Identifier Code (SIC)|YES; Common Usage GICB Capability|NO");
    expect_register_values(0x10, "10 7E 00 00 50 00 00 = NO|NO|NOT AVALIABLE|LEVEL 2-4|NO|NO UELM CAPABILITY|"
                                 "NO DELM CAPABILITY|NO|YES|NO|YES; "
                                 "10 00 0A 67 00 00 00 = NO|NO|UNASSIGNED|LEVEL 2-4|NO|16 UELM SEGMENTS IN 30 MSEC|"
                                 "UNASSIGNED|NO|NO|NO|NO");
}

TEST(Bds20, NeedsItsOwnNumber) {
    EXPECT_STREQ(ast_bds_20_decode(Register(0x20, "20 2C C3 71 CB 3D 20")).callsign, "KLM1234 ");
    expect_register_values(0x20, "20 2C C3 40 00 00 01 = K|L|M|||||A");
    const auto other = ast_bds_20_decode(Register(0x20, "21 2C C3 71 CB 3D 20"));
    EXPECT_FALSE(other.valid);
    EXPECT_STREQ(other.callsign, "");
}

TEST(Bds30, ShowsAnAdvisory) {
    expect_register(0x30, "30 80 00 24 F1 96 B0",
                    "Item|Value; Active Resolution Advisories (ARA)|YES; Resolution Advisory Complements (RAC)|NO; "
                    "Resolution Advisory Terminated Indicator (RAT)|YES; Multiple Threat Encounter (MTE)|NO; "
                    "Threat Type Indicator (TTI)|1; Threat Mode-S Address|3C65AC");
    expect_register_values(0x30, "30 00 04 00 00 00 00 = YES|NO|NO|NO|0|000000; "
                                 "30 00 03 00 00 00 00 = NO|YES|NO|NO|0|000000; "
                                 "30 00 00 40 00 00 00 = NO|YES|NO|NO|0|000000; "
                                 "30 00 00 17 FF FF FC = NO|NO|NO|YES|1|FFFFFF; "
                                 "30 00 00 0B FF FF FF = NO|NO|NO|NO|2|000000; " // no address with a position
                                 "30 00 00 0F FF FF FF = NO|NO|NO|NO|0|000000"); // reserved
}

TEST(Bds40, ShowsValuesAndTheirStatus) {
    expect_register(0x40, "85 E4 2F 31 30 00 00",
                    "Item|Value|Status; MCP/FCU Selected Altitude|3008 FT|valid; FMS Selected Altitude|3008 FT|valid; "
                    "Barometric Pressure Setting|1020.0 MB|valid; Target Altitude Source|Unknown|invalid; "
                    "Vnav Mode|NO|invalid; Alt Hold Mode|NO|invalid; Approach Mode|NO|invalid");
    expect_register(0x40, "00 00 00 00 00 01 A6",
                    "Item|Value|Status; MCP/FCU Selected Altitude|0 FT|invalid; FMS Selected Altitude|0 FT|invalid; "
                    "Barometric Pressure Setting|0.0 MB|invalid; "
                    "Target Altitude Source|FCU/MCP Selected Altitude|valid; Vnav Mode|YES|valid; "
                    "Alt Hold Mode|NO|valid; Approach Mode|YES|valid");
    expect_register(0x40, "7F FB FF DF FF FE FB", // all bits but those of the status flags
                    "Item|Value|Status; MCP/FCU Selected Altitude|0 FT|invalid; FMS Selected Altitude|0 FT|invalid; "
                    "Barometric Pressure Setting|0.0 MB|invalid; Target Altitude Source|Unknown|invalid; "
                    "Vnav Mode|NO|invalid; Alt Hold Mode|NO|invalid; Approach Mode|NO|invalid");
}

TEST(Bds50, ShowsTrackAndTurn) {
    expect_register(0x50, "81 95 15 36 E0 24 D4",
                    "Item|Value; Roll Angle|2.11 DEG; True Track Angle|114.26 DEG; Ground Speed|438.00 KNOT; "
                    "Track Angle Rate|0.12 DEG/SEC; True Airspeed|424 KNOTS");
    expect_register_values(0x50, // signs and magnitudes; all highest; all bits but those of the status flags
                           "E0 1C 00 00 31 00 00 = -45.00 DEG|270.00 DEG|0.00 KNOT|-1.00 DEG/SEC|0 KNOTS; "
                           "BF F7 FF FF EF FF FF = 89.82 DEG|179.82 DEG|2046.00 KNOT|15.97 DEG/SEC|2046 KNOTS; "
                           "7F EF FE FF DF FB FF = 0.00 DEG|0.00 DEG|0.00 KNOT|0.00 DEG/SEC|0 KNOTS");
}

TEST(Bds60, ShowsHeadingAndSpeed) {
    expect_register(0x60, "8F 39 F9 1A 7E 27 C4", // rates of sign and magnitude
                    "Item|Value; Magnetic Heading|42.71 DEG; Indicated Airspeed|252 KNOT; Mach|0.42 MACH; "
                    "Barometric Altitude Rate|-14464.00 FEET/MIN; Intertial Vertical Velocity|-14464.00 FEET/MIN");
    expect_register_values(0x60, // meant: an airspeed of 0 has no digits
                           "E0 07 FF FF E0 25 01 = 270.00 DEG| KNOT|4.09 MACH|128.00 FEET/MIN|8224.00 FEET/MIN; "
                           "7F F7 FE FF DF FB FF = 0.00 DEG| KNOT|0.00 MACH|0.00 FEET/MIN|0.00 FEET/MIN");
}

TEST(Registers, AreNotExaminedWhenTakenUp) {
    const auto seven = octets("20 00 00 00 00 00 00");
    const auto taken = ast_bds_decode(seven.data(), 8, 0x99);
    EXPECT_TRUE(taken.valid && taken.size == 7 && taken.bds == 0x99);
    EXPECT_TRUE(ast_bds_decode(seven.data(), 7, 0x99).valid);
    EXPECT_FALSE(ast_bds_decode(seven.data(), 6, 0x20).valid);
}

TEST(Registers, DecodersTakeTheirOwnRegisterOnly) {
    const auto seven = octets("10 00 00 00 00 00 00");
    const auto is_taken = [&](const ast_bds_t *bds) {
        const bool is_shown = !text_from(ast_bds_10_get_detail_html, bds).empty();
        EXPECT_EQ(ast_bds_10_decode(bds).valid, is_shown);
        return is_shown;
    };
    const ast_bds_t cases[] = {{seven.data(), 7, 0x10, true},
                               {seven.data(), 7, 0x17, true},
                               {seven.data(), 6, 0x10, true},
                               {seven.data(), 7, 0x10, false}};
    for (const ast_bds_t &bds : cases) EXPECT_EQ(is_taken(&bds), &bds == cases);
    EXPECT_FALSE(is_taken(nullptr));
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
    EXPECT_STREQ(ast_bds_get_name(0x40), "Selected Vertical Intention");
    EXPECT_STREQ(ast_bds_get_name(0x17), "Common Usage GICB Capability Report"); // without a decoder
    EXPECT_STREQ(ast_bds_get_name(0xFF), "UNKNOWN NAME");
    const char *const full = ast_bds_type_to_str(64);
    EXPECT_STREQ(ast_bds_type_to_str_simple(0x1A), "1,A");
    EXPECT_STREQ(full, "BDS 4,0") << "in a buffer of its own";
}

} // namespace
