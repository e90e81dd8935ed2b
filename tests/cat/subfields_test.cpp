// The subfields of all compound items.

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/functions.hpp"
#include "support/log_capture.hpp"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace {

using namespace ast_test;

// By item, each subfield as "identifier size name". A size is a number of octets; or "x" and the most that an extended
// one may have, or "r" and the octets of an element that is repeated.
constexpr std::string_view kSubfields = R"(
4100/ AN 6 Area Name; CAN 7 Crossing Area Name; RT1 7 Runway/Taxiway Designator 1; RT2 7 Runway/Taxiway Designator 2;
SB 7 Stop Bar Designator; G 7 Gate Designator;
4120/ CN x3 Conflict Nature; CC 1 Conflict Classification; CP 1 Conflict Probability; CD 1 Conflict Duration;
4170/ AI1 7 Aircraft Identifier 1; M31 2 Mode 3/A Code Aircraft 1; CPW1 10 Predicted Conflict Position 1 (WGS84);
CPC1 8 Predicted Conflict Position 1 (Cartesian Coordinates); TT1 3 Time to Threshold Aircraft 1;
DT1 2 Distance to Threshold Aircraft 1; AC1 x2 Aircraft Characteristics Aircraft 1; MS1 6 Mode S Identifier Aircraft 1;
FP1 4 Flight Plan Number Aircraft 1; CF1 2 Cleared Flight Level Aircraft 1;
4171/ AI2 7 Aircraft Identifier 2; M32 2 Mode 3/A Code Aircraft 2; CPW2 10 Predicted Conflict Position 2 (WGS84);
CPC2 8 Predicted Conflict Position 2 (Cartesian Coordinates); TT2 3 Time to Threshold Aircraft 2;
DT2 2 Distance to Threshold Aircraft 2; AC2 x2 Aircraft Characteristics Aircraft 2; MS2 6 Mode S Identifier Aircraft 2;
FP2 4 Flight Plan Number Aircraft 2; CF2 2 Cleared Flight Level Aircraft 2;
15600/ P84 8 Horizontal Position in WGS-84 Coordinates; HPR 5 Horizontal Position Resolution;
HPP 5 Horizontal Position Precision;
15601/ GH 3 Geometric Height (WGS-84); RS_GH 3 Geometric Height Resolution; SD_GH 3 Geometric Height Precision;
CI6 3 Confidence Interval for Geometric Height (67%); CI9 3 Confidence Interval for Geometric Height (95%);
CO_GHHP 2 Correlation of Geometric Height and Horizontal Position;
CO_GHHV 2 Correlation of Geometric Height and Horizontal Velocity;
CO_GHHA 2 Correlation of Geometric Height and Horizontal Acceleration;
15602/ HV 5 Horizontal Velocity Vector; RS_HV 5 Horizontal Velocity Resolution; SD_HV 5 Horizontal Velocity Precision;
CO_HVHP 4 Correlation of Horizontal Velocity and Horizontal Position;
15604/ VV 3 Vertical Velocity; RS_VV 2 Vertical Velocity Resolution; SD_VV 3 Vertical Velocity Precision;
CO_VVHP 2 Correlation of Vertical Velocity and Horizontal Position;
CO_VVHV 2 Correlation of Vertical Velocity and Horizontal Velocity;
CO_VVHA 2 Correlation of Vertical Velocity and Horizontal Acceleration;
15625/ R 3 Range; RS_R 3 Range Resolution; SD_R 3 Range Precision; RR 3 Range Rate; RS_RR 3 Range Rate Resolution;
SD_RR 4 Range Rate Precision; RA 2 Range Acceleration; SD_RA 4 Range Acceleration Precision;
15626/ DV 3 Doppler Velocity; SD_DV 2 Doppler Velocity Precision; DA 2 Doppler Acceleration;
SD_DA 3 Doppler Acceleration Precision; CO_DVR 1 Correlation Doppler Velocity and Range;
CO_DVRR 1 Correlation Doppler Velocity and Range Rate; CO_DVRA 1 Correlation Doppler Velocity and Range Acceleration;
CO_DAR 1 Correlation Doppler Acceleration and Range; CO_DARR 1 Correlation Doppler Acceleration and Range Rate;
CO_DARA 1 Correlation Doppler Acceleration and Range Acceleration;
15627/ AZ 2 Azimuth; RS_AZ 2 Azimuth Resolution; SD_AZ 2 Azimuth Precision; AZR 2 Azimuth Rate;
SD_AZR 3 Azimuth Rate Precision; AZEX 4 Azimuth Extent;
21110/ TIS x1 Trajectory Intent Status; TID r15 Trajectory Intent Data;
21220/ WS 2 Wind Speed; WD 2 Wind Direction; TMP 2 Temperature; TRB 1 Turbulence;
21295/ AOS 1 Aircraft Operational Status Age; TRD 1 Target Report Descriptor Age; M3A 1 Mode 3/A Code Age;
QI 1 Quality Indicators Age; TI 1 Trajectory Intent Age; MAM 1 Message Amplitude Age; GH 1 Geometric Height Age;
FL 1 Flight Level Age; SAL 1 Selected Altitude Age; FSA 1 Final State Selected Altitude Age; AS 1 Air Speed Age;
TAS 1 True Air Speed Age; MH 1 Magnetic Heading Age; BVR 1 Barometric Vertical Rate Age;
GVR 1 Geometric Vertical Rate Age; GV 1 Ground Vector Age; TAR 1 Track Angle Rate Age; TI 1 Target Identification Age;
TS 1 Target Status Age; MET 1 Met Information Age; ROA 1 Roll Angle Age; ARA 1 ACAS Resolution Advisory Age;
SCC 1 Surface Capabilities and Characteristics Age;
34050/ COM 1 Common Elements of System; --- 0 Spare; --- 0 Spare; PSR 1 PSR Sensor Specific Status Information;
SSR 1 SSR Sensor Specific Status Information; MDS 2 MODE-S Sensor Specific Status Information; --- 0 Spare;
34060/ COM 1 Common Elements of System; --- 0 Spare; --- 0 Spare; PSR 1 PSR Sensor Specific Processing Mode;
SSR 1 SSR Sensor Specific Processing Mode; MDS 1 Mode S Sensor Specific Processing Mode; --- 0 Spare;
48120/ CAL 2 Calculated Doppler Speed; RDS 7 Raw Doppler Speed;
48130/ SRL 1 SSR Plot Runlength; SRR 1 Number of Received Replies for (M)SSR; SAM 1 Amplitude of (M)SSR Reply;
PRL 1 Primary Plot Runlength; PAM 1 Amplitude of Primary Plot ; RPD 1 Difference in Range between PSR and SSR plot;
APD 1 Difference in Azimuth between PSR and SSR plot;
62110/ SUM 1 Mode 5 Summary; PMN 4 Mode 5 PIN/ National; POS 6 Mode 5 Reported Position;
GA 2 Mode 5 GNSS-derived Altitude; EM1 2 Extended Mode 1 Code in Octal Representation;
TOS 1 Time Offset for POS and GA; XP 1 X Pulse Presence;
62290/ TRK 1 Track age; PSR 1 PSR age; SSR 1 SSR age; MDS 1 Mode S age; ADS 2 ADS-C age;
ES 1 ADS-B Extended Squitter age; VDL 1 ADS-B VDL Mode 4 age; UAT 1 ADS-B UAT age; LOP 1 Loop age;
MLT 1 Multilateration age;
62295/ MFL 1 Measured Flight Level age; MD1 1 Mode 1 age; MD2 1 Mode 2 age; MDA 1 Mode 3/A age; MD4 1 Mode 4 age;
MD5 1 Mode 5 age; MHG 1 Magnetic Heading age; IAS 1 Indicated Airspeed/Mach Nb age; TAS 1 True Airspeed age;
SAL 1 Selected Altitude age; FSS 1 Final State Selected Altitude age; TID 1 Trajectory Intent Data age;
COM 1 Communications / ACAS Capability and Flight Status age; SAB 1 Status Reported by ADS-B age;
ACS 1 ACAS Resolution Advisory Report age; BVR 1 Barometric Vertical Rate age; GVR 1 Geometric Vertical Rate age;
RAN 1 Roll Angle age; TAR 1 Track Angle Rate age; TAN 1 Track Angle age; GSP 1 Ground Speed age;
VUN 1 Velocity Uncertanty age; MET 1 Meteorological Data age; EMC 1 Emitter Category age; POS 1 Position Data age;
GAL 1 Geometric Altitude Data age; PUN 1 Position Uncertainty Data age; MB 1 Mode S MB Data age;
IAR 1 Indicated Airspeed Data age; MAC 1 Mach Number Data age; BPS 1 Barometric Pressure Setting Data age;
62340/ SID 2 Sensor Identification; POS 4 Measured Position; HEI 2 Measured 3-D Height;
MDC 2 Last Measured Mode C Code; MDA 2 Last Measured Mode 3/A Code; TYP 1 Report Type;
62380/ ADR 3 Target Address; ID 6 Target Identification; MHG 2 Magnetic Heading; IAS 2 Indicated Airspeed / Mach No;
TAS 2 True Airspeed; SAL 2 Selected Altitude; FSS 2 Final State Selected Altitude; TIS 1 Trajectory Intent Status;
TID r15 Trajectory Intent Data; COM 2 Communications / ACAS Capability and Flight Status reported by Mode-S;
SAB 2 Status reported by ADS-B; ACS 7 ACAS Resolution Avisory Report; BVR 2 Brometric Vertical Rate;
GVR 2 Geometric Vertical Rate; RAN 2 Roll Angle; TAR 2 Track Angle Rate; TAN 2 Track Angle; GSP 2 Ground Speed;
VUN 1 Velocity Uncertainty Category; MET 8 Met Data; EMC 1 Emitter Category; POS 6 Position; GAL 2 Geometric Altitude;
PUN 1 Position Uncertainty; MB r8 Mode-S MB Data; IAR 2 Indicated Airspeed; MAC 2 Mach Number;
BPS 2 Barometric Pressure Setting;
62390/ TAG 2 FPPS Identification Tag; CSN 7 Callsign; IFI 4 IFPS Flight ID; FCT 1 Flight Category;
TAC 4 Type of Aircraft; WTC 1 Wake Turbulence Category; DEP 4 Departure Airport; DST 4 Destination Airport;
RDS 3 Runway Designation; CFL 2 Current Cleared Flight Level; CTL 2 Current Control Position;
TOD r4 Time of Departure / Arrival; AST 6 Aircraft Stand; STS 1 Stand Status; STD 7 Standard Instrument Departure;
STA 7 Standard Instrument Arrival; PEM 2 Pre-emergency Mode 3/A Code; PEC 7 Pre-emergency Callsign;
62500/ APC 4 Estimated Accuracy Of Track Position (Cartesian); COV 2 XY Covariance;
APW 4 Estimated Accuracy Of Track Position (WGS-84); AGA 1 Estimated Accuracy Of Calculated Track Geometric Altitude;
ABA 1 Estimated Accuracy Of Calculated Track Barometric Altitude;
ATV 2 Estimated Accuracy Of Track Velocity (Cartesian); AA 2 Estimated Accuracy Of Acceleration;
ARC 1 Estimated Accuracy Of Rate Of Climb/Descent;
)";

struct Subfield {
    uint32_t type;
    std::string id;
    char rule; // 'x', 'r' or, of a fixed size, ' '
    uint64_t octets;
    std::string name;
};

std::vector<Subfield> subfields() {
    std::vector<Subfield> result;
    uint32_t type = 0;
    each_entry(kSubfields, [&](std::string_view entry) {
        if (const size_t slash = entry.find("/ "); slash <= 6) {
            type = static_cast<uint32_t>(std::stoul(std::string(entry.substr(0, slash)))) * 1000;
            entry.remove_prefix(slash + 2);
        }
        const size_t size = entry.find(' ') + 1;
        const size_t name = entry.find(' ', size) + 1;
        const bool is_fixed = entry[size] >= '0' && entry[size] <= '9';
        result.push_back({++type, std::string(entry.substr(0, size - 1)), is_fixed ? ' ' : entry[size],
                          std::stoul(std::string(entry.substr(is_fixed ? size : size + 1))),
                          std::string(entry.substr(name))});
    });
    return result;
}

// The size of a subfield of these octets, of which all are available.
uint64_t size_of(const Subfield &subfield, const std::vector<uint8_t> &data) {
    const uint64_t size = ast_subfield_get_size(data.data(), data.size(), subfield.type);
    EXPECT_EQ(ast_subfield_get_func(subfield.type).get_size(data.data(), data.size(), subfield.type), size);
    return size;
}

TEST(EverySubfield, HasItsIdNameAndSize) {
    LogCapture log;
    for (const Subfield &subfield : subfields()) {
        SCOPED_TRACE(subfield.type);
        EXPECT_EQ(ast_subfield_get_id(subfield.type), subfield.id);
        EXPECT_EQ(ast_subfield_get_name(subfield.type), subfield.name);
        const uint64_t n = subfield.octets;
        if (subfield.rule == ' ') { // whatever is available
            EXPECT_EQ(size_of(subfield, {}), n);
            EXPECT_EQ(size_of(subfield, repeated("FF", 20)), n);
        } else if (subfield.rule == 'x') {
            auto data = repeated("01", n + 1);
            EXPECT_EQ(size_of(subfield, data), n) << "cut, and reported once for each call";
            EXPECT_EQ(log.take(), LogLines(2, {3, "Subfield length exceed max: " + std::to_string(n)}));
            data[n - 1] = 0;
            EXPECT_EQ(size_of(subfield, data), n);
        } else {
            EXPECT_EQ(size_of(subfield, repeated("02", 1 + 2 * n)), 1 + 2 * n);
            EXPECT_EQ(size_of(subfield, repeated("02", 2 * n)), 0U);
            EXPECT_EQ(size_of(subfield, octets("00")), 1U);
        }
    }
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(EveryCompoundItem, DefinesTheSubfieldsListed) {
    std::map<uint32_t, uint32_t> counts;
    for (const Subfield &subfield : subfields()) ++counts[subfield.type / 1000];
    EXPECT_EQ(counts.size(), 25U);
    for (const auto &[item, count] : counts) {
        EXPECT_EQ(ast_dataitem_subfields_get_number(item), count) << item;
        EXPECT_STREQ(ast_subfield_get_name(item * 1000 + count + 1), "UNKNOWN_SUBFIELD_NAME");
    }
}

// The functions that are named after one item answer for that item alone, by the subfield's number.
TEST(EveryCompoundItem, HasFunctionsOfItsOwn) {
    constexpr struct {
        uint32_t item;
        uint64_t (*item_size)(const uint8_t *, uint64_t);
        uint64_t (*size)(const uint8_t *, uint64_t, uint32_t);
        const char *(*id)(uint32_t);
        const char *(*name)(uint32_t);
    } kItems[] = {
#define ITEM(number, item)                                                                                             \
    {number, ast_dataitem_##item##_get_size, ast_subfield_##item##_get_size, ast_subfield_##item##_get_id,             \
     ast_subfield_##item##_get_name}
        ITEM(4100, 004_100),  ITEM(4120, 004_120),  ITEM(4170, 004_170),  ITEM(4171, 004_171),  ITEM(15600, 015_600),
        ITEM(15601, 015_601), ITEM(15602, 015_602), ITEM(15604, 015_604), ITEM(15625, 015_625), ITEM(15626, 015_626),
        ITEM(15627, 015_627), ITEM(21110, 021_110), ITEM(21220, 021_220), ITEM(21295, 021_295), ITEM(34050, 034_050),
        ITEM(34060, 034_060), ITEM(48120, 048_120), ITEM(48130, 048_130), ITEM(62110, 062_110), ITEM(62290, 062_290),
        ITEM(62295, 062_295), ITEM(62340, 062_340), ITEM(62380, 062_380), ITEM(62390, 062_390), ITEM(62500, 062_500),
#undef ITEM
    };
    for (const auto &c : kItems) {
        SCOPED_TRACE(c.item);
        EXPECT_TRUE(same_function(ast_dataitem_get_func(c.item).get_size, c.item_size));
        const ast_subfield_func_t func = ast_subfield_get_func(c.item * 1000 + 1);
        EXPECT_TRUE(same_function(func.get_size, c.size));
        EXPECT_TRUE(same_function(func.get_id, c.id));
        EXPECT_TRUE(same_function(func.get_name, c.name));
    }
}

} // namespace
