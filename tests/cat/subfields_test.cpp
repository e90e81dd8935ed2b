// The subfields of all compound items.

#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/functions.hpp"
#include "support/log_capture.hpp"
#include "support/octets.hpp"

namespace {

using namespace ast_test;

// Of a fixed number of octets, or by a rule.
struct Size {
    enum class Kind : uint8_t { Fixed, Extended, Repeated } kind;
    uint8_t octets;
    constexpr Size(uint8_t fixed) : kind(Kind::Fixed), octets(fixed) {}
    constexpr Size(Kind rule, uint8_t count) : kind(rule), octets(count) {}
};
constexpr Size extended(uint8_t maximum) { return {Size::Kind::Extended, maximum}; }
constexpr Size repeated(uint8_t element) { return {Size::Kind::Repeated, element}; }

struct Subfield {
    uint32_t type;
    const char *id;
    const char *name;
    Size size;
};

// clang-format off
constexpr Subfield kSubfields[] = {
    {4100001, "AN", "Area Name", 6}, {4100002, "CAN", "Crossing Area Name", 7},
    {4100003, "RT1", "Runway/Taxiway Designator 1", 7}, {4100004, "RT2", "Runway/Taxiway Designator 2", 7},
    {4100005, "SB", "Stop Bar Designator", 7}, {4100006, "G", "Gate Designator", 7},
    {4120001, "CN", "Conflict Nature", extended(3)}, {4120002, "CC", "Conflict Classification", 1},
    {4120003, "CP", "Conflict Probability", 1}, {4120004, "CD", "Conflict Duration", 1},
    {4170001, "AI1", "Aircraft Identifier 1", 7}, {4170002, "M31", "Mode 3/A Code Aircraft 1", 2},
    {4170003, "CPW1", "Predicted Conflict Position 1 (WGS84)", 10},
    {4170004, "CPC1", "Predicted Conflict Position 1 (Cartesian Coordinates)", 8},
    {4170005, "TT1", "Time to Threshold Aircraft 1", 3}, {4170006, "DT1", "Distance to Threshold Aircraft 1", 2},
    {4170007, "AC1", "Aircraft Characteristics Aircraft 1", extended(2)},
    {4170008, "MS1", "Mode S Identifier Aircraft 1", 6}, {4170009, "FP1", "Flight Plan Number Aircraft 1", 4},
    {4170010, "CF1", "Cleared Flight Level Aircraft 1", 2},
    {4171001, "AI2", "Aircraft Identifier 2", 7}, {4171002, "M32", "Mode 3/A Code Aircraft 2", 2},
    {4171003, "CPW2", "Predicted Conflict Position 2 (WGS84)", 10},
    {4171004, "CPC2", "Predicted Conflict Position 2 (Cartesian Coordinates)", 8},
    {4171005, "TT2", "Time to Threshold Aircraft 2", 3}, {4171006, "DT2", "Distance to Threshold Aircraft 2", 2},
    {4171007, "AC2", "Aircraft Characteristics Aircraft 2", extended(2)},
    {4171008, "MS2", "Mode S Identifier Aircraft 2", 6}, {4171009, "FP2", "Flight Plan Number Aircraft 2", 4},
    {4171010, "CF2", "Cleared Flight Level Aircraft 2", 2},
    {15600001, "P84", "Horizontal Position in WGS-84 Coordinates", 8},
    {15600002, "HPR", "Horizontal Position Resolution", 5}, {15600003, "HPP", "Horizontal Position Precision", 5},
    {15601001, "GH", "Geometric Height (WGS-84)", 3}, {15601002, "RS_GH", "Geometric Height Resolution", 3},
    {15601003, "SD_GH", "Geometric Height Precision", 3},
    {15601004, "CI6", "Confidence Interval for Geometric Height (67%)", 3},
    {15601005, "CI9", "Confidence Interval for Geometric Height (95%)", 3},
    {15601006, "CO_GHHP", "Correlation of Geometric Height and Horizontal Position", 2},
    {15601007, "CO_GHHV", "Correlation of Geometric Height and Horizontal Velocity", 2},
    {15601008, "CO_GHHA", "Correlation of Geometric Height and Horizontal Acceleration", 2},
    {15602001, "HV", "Horizontal Velocity Vector", 5}, {15602002, "RS_HV", "Horizontal Velocity Resolution", 5},
    {15602003, "SD_HV", "Horizontal Velocity Precision", 5},
    {15602004, "CO_HVHP", "Correlation of Horizontal Velocity and Horizontal Position", 4},
    {15604001, "VV", "Vertical Velocity", 3}, {15604002, "RS_VV", "Vertical Velocity Resolution", 2},
    {15604003, "SD_VV", "Vertical Velocity Precision", 3},
    {15604004, "CO_VVHP", "Correlation of Vertical Velocity and Horizontal Position", 2},
    {15604005, "CO_VVHV", "Correlation of Vertical Velocity and Horizontal Velocity", 2},
    {15604006, "CO_VVHA", "Correlation of Vertical Velocity and Horizontal Acceleration", 2},
    {15625001, "R", "Range", 3}, {15625002, "RS_R", "Range Resolution", 3}, {15625003, "SD_R", "Range Precision", 3},
    {15625004, "RR", "Range Rate", 3}, {15625005, "RS_RR", "Range Rate Resolution", 3},
    {15625006, "SD_RR", "Range Rate Precision", 4}, {15625007, "RA", "Range Acceleration", 2},
    {15625008, "SD_RA", "Range Acceleration Precision", 4},
    {15626001, "DV", "Doppler Velocity", 3}, {15626002, "SD_DV", "Doppler Velocity Precision", 2},
    {15626003, "DA", "Doppler Acceleration", 2}, {15626004, "SD_DA", "Doppler Acceleration Precision", 3},
    {15626005, "CO_DVR", "Correlation Doppler Velocity and Range", 1},
    {15626006, "CO_DVRR", "Correlation Doppler Velocity and Range Rate", 1},
    {15626007, "CO_DVRA", "Correlation Doppler Velocity and Range Acceleration", 1},
    {15626008, "CO_DAR", "Correlation Doppler Acceleration and Range", 1},
    {15626009, "CO_DARR", "Correlation Doppler Acceleration and Range Rate", 1},
    {15626010, "CO_DARA", "Correlation Doppler Acceleration and Range Acceleration", 1},
    {15627001, "AZ", "Azimuth", 2}, {15627002, "RS_AZ", "Azimuth Resolution", 2},
    {15627003, "SD_AZ", "Azimuth Precision", 2}, {15627004, "AZR", "Azimuth Rate", 2},
    {15627005, "SD_AZR", "Azimuth Rate Precision", 3}, {15627006, "AZEX", "Azimuth Extent", 4},
    {21110001, "TIS", "Trajectory Intent Status", extended(1)},
    {21110002, "TID", "Trajectory Intent Data", repeated(15)},
    {21220001, "WS", "Wind Speed", 2}, {21220002, "WD", "Wind Direction", 2}, {21220003, "TMP", "Temperature", 2},
    {21220004, "TRB", "Turbulence", 1},
    {21295001, "AOS", "Aircraft Operational Status Age", 1}, {21295002, "TRD", "Target Report Descriptor Age", 1},
    {21295003, "M3A", "Mode 3/A Code Age", 1}, {21295004, "QI", "Quality Indicators Age", 1},
    {21295005, "TI", "Trajectory Intent Age", 1}, {21295006, "MAM", "Message Amplitude Age", 1},
    {21295007, "GH", "Geometric Height Age", 1}, {21295008, "FL", "Flight Level Age", 1},
    {21295009, "SAL", "Selected Altitude Age", 1}, {21295010, "FSA", "Final State Selected Altitude Age", 1},
    {21295011, "AS", "Air Speed Age", 1}, {21295012, "TAS", "True Air Speed Age", 1},
    {21295013, "MH", "Magnetic Heading Age", 1}, {21295014, "BVR", "Barometric Vertical Rate Age", 1},
    {21295015, "GVR", "Geometric Vertical Rate Age", 1}, {21295016, "GV", "Ground Vector Age", 1},
    {21295017, "TAR", "Track Angle Rate Age", 1}, {21295018, "TI", "Target Identification Age", 1},
    {21295019, "TS", "Target Status Age", 1}, {21295020, "MET", "Met Information Age", 1},
    {21295021, "ROA", "Roll Angle Age", 1}, {21295022, "ARA", "ACAS Resolution Advisory Age", 1},
    {21295023, "SCC", "Surface Capabilities and Characteristics Age", 1},
    {34050001, "COM", "Common Elements of System", 1}, {34050002, "---", "Spare", 0}, {34050003, "---", "Spare", 0},
    {34050004, "PSR", "PSR Sensor Specific Status Information", 1},
    {34050005, "SSR", "SSR Sensor Specific Status Information", 1},
    {34050006, "MDS", "MODE-S Sensor Specific Status Information", 2}, {34050007, "---", "Spare", 0},
    {34060001, "COM", "Common Elements of System", 1}, {34060002, "---", "Spare", 0}, {34060003, "---", "Spare", 0},
    {34060004, "PSR", "PSR Sensor Specific Processing Mode", 1},
    {34060005, "SSR", "SSR Sensor Specific Processing Mode", 1},
    {34060006, "MDS", "Mode S Sensor Specific Processing Mode", 1}, {34060007, "---", "Spare", 0},
    {48120001, "CAL", "Calculated Doppler Speed", 2}, {48120002, "RDS", "Raw Doppler Speed", 7},
    {48130001, "SRL", "SSR Plot Runlength", 1}, {48130002, "SRR", "Number of Received Replies for (M)SSR", 1},
    {48130003, "SAM", "Amplitude of (M)SSR Reply", 1}, {48130004, "PRL", "Primary Plot Runlength", 1},
    {48130005, "PAM", "Amplitude of Primary Plot ", 1},
    {48130006, "RPD", "Difference in Range between PSR and SSR plot", 1},
    {48130007, "APD", "Difference in Azimuth between PSR and SSR plot", 1},
    {62110001, "SUM", "Mode 5 Summary", 1}, {62110002, "PMN", "Mode 5 PIN/ National", 4},
    {62110003, "POS", "Mode 5 Reported Position", 6}, {62110004, "GA", "Mode 5 GNSS-derived Altitude", 2},
    {62110005, "EM1", "Extended Mode 1 Code in Octal Representation", 2},
    {62110006, "TOS", "Time Offset for POS and GA", 1}, {62110007, "XP", "X Pulse Presence", 1},
    {62290001, "TRK", "Track age", 1}, {62290002, "PSR", "PSR age", 1}, {62290003, "SSR", "SSR age", 1},
    {62290004, "MDS", "Mode S age", 1}, {62290005, "ADS", "ADS-C age", 2},
    {62290006, "ES", "ADS-B Extended Squitter age", 1}, {62290007, "VDL", "ADS-B VDL Mode 4 age", 1},
    {62290008, "UAT", "ADS-B UAT age", 1}, {62290009, "LOP", "Loop age", 1},
    {62290010, "MLT", "Multilateration age", 1},
    {62295001, "MFL", "Measured Flight Level age", 1}, {62295002, "MD1", "Mode 1 age", 1},
    {62295003, "MD2", "Mode 2 age", 1}, {62295004, "MDA", "Mode 3/A age", 1}, {62295005, "MD4", "Mode 4 age", 1},
    {62295006, "MD5", "Mode 5 age", 1}, {62295007, "MHG", "Magnetic Heading age", 1},
    {62295008, "IAS", "Indicated Airspeed/Mach Nb age", 1}, {62295009, "TAS", "True Airspeed age", 1},
    {62295010, "SAL", "Selected Altitude age", 1}, {62295011, "FSS", "Final State Selected Altitude age", 1},
    {62295012, "TID", "Trajectory Intent Data age", 1},
    {62295013, "COM", "Communications / ACAS Capability and Flight Status age", 1},
    {62295014, "SAB", "Status Reported by ADS-B age", 1}, {62295015, "ACS", "ACAS Resolution Advisory Report age", 1},
    {62295016, "BVR", "Barometric Vertical Rate age", 1}, {62295017, "GVR", "Geometric Vertical Rate age", 1},
    {62295018, "RAN", "Roll Angle age", 1}, {62295019, "TAR", "Track Angle Rate age", 1},
    {62295020, "TAN", "Track Angle age", 1}, {62295021, "GSP", "Ground Speed age", 1},
    {62295022, "VUN", "Velocity Uncertanty age", 1}, {62295023, "MET", "Meteorological Data age", 1},
    {62295024, "EMC", "Emitter Category age", 1}, {62295025, "POS", "Position Data age", 1},
    {62295026, "GAL", "Geometric Altitude Data age", 1}, {62295027, "PUN", "Position Uncertainty Data age", 1},
    {62295028, "MB", "Mode S MB Data age", 1}, {62295029, "IAR", "Indicated Airspeed Data age", 1},
    {62295030, "MAC", "Mach Number Data age", 1}, {62295031, "BPS", "Barometric Pressure Setting Data age", 1},
    {62340001, "SID", "Sensor Identification", 2}, {62340002, "POS", "Measured Position", 4},
    {62340003, "HEI", "Measured 3-D Height", 2}, {62340004, "MDC", "Last Measured Mode C Code", 2},
    {62340005, "MDA", "Last Measured Mode 3/A Code", 2}, {62340006, "TYP", "Report Type", 1},
    {62380001, "ADR", "Target Address", 3}, {62380002, "ID", "Target Identification", 6},
    {62380003, "MHG", "Magnetic Heading", 2}, {62380004, "IAS", "Indicated Airspeed / Mach No", 2},
    {62380005, "TAS", "True Airspeed", 2}, {62380006, "SAL", "Selected Altitude", 2},
    {62380007, "FSS", "Final State Selected Altitude", 2}, {62380008, "TIS", "Trajectory Intent Status", 1},
    {62380009, "TID", "Trajectory Intent Data", repeated(15)},
    {62380010, "COM", "Communications / ACAS Capability and Flight Status reported by Mode-S", 2},
    {62380011, "SAB", "Status reported by ADS-B", 2}, {62380012, "ACS", "ACAS Resolution Avisory Report", 7},
    {62380013, "BVR", "Brometric Vertical Rate", 2}, {62380014, "GVR", "Geometric Vertical Rate", 2},
    {62380015, "RAN", "Roll Angle", 2}, {62380016, "TAR", "Track Angle Rate", 2}, {62380017, "TAN", "Track Angle", 2},
    {62380018, "GSP", "Ground Speed", 2}, {62380019, "VUN", "Velocity Uncertainty Category", 1},
    {62380020, "MET", "Met Data", 8}, {62380021, "EMC", "Emitter Category", 1}, {62380022, "POS", "Position", 6},
    {62380023, "GAL", "Geometric Altitude", 2}, {62380024, "PUN", "Position Uncertainty", 1},
    {62380025, "MB", "Mode-S MB Data", repeated(8)}, {62380026, "IAR", "Indicated Airspeed", 2},
    {62380027, "MAC", "Mach Number", 2}, {62380028, "BPS", "Barometric Pressure Setting", 2},
    {62390001, "TAG", "FPPS Identification Tag", 2}, {62390002, "CSN", "Callsign", 7},
    {62390003, "IFI", "IFPS Flight ID", 4}, {62390004, "FCT", "Flight Category", 1},
    {62390005, "TAC", "Type of Aircraft", 4}, {62390006, "WTC", "Wake Turbulence Category", 1},
    {62390007, "DEP", "Departure Airport", 4}, {62390008, "DST", "Destination Airport", 4},
    {62390009, "RDS", "Runway Designation", 3}, {62390010, "CFL", "Current Cleared Flight Level", 2},
    {62390011, "CTL", "Current Control Position", 2}, {62390012, "TOD", "Time of Departure / Arrival", repeated(4)},
    {62390013, "AST", "Aircraft Stand", 6}, {62390014, "STS", "Stand Status", 1},
    {62390015, "STD", "Standard Instrument Departure", 7}, {62390016, "STA", "Standard Instrument Arrival", 7},
    {62390017, "PEM", "Pre-emergency Mode 3/A Code", 2}, {62390018, "PEC", "Pre-emergency Callsign", 7},
    {62500001, "APC", "Estimated Accuracy Of Track Position (Cartesian)", 4}, {62500002, "COV", "XY Covariance", 2},
    {62500003, "APW", "Estimated Accuracy Of Track Position (WGS-84)", 4},
    {62500004, "AGA", "Estimated Accuracy Of Calculated Track Geometric Altitude", 1},
    {62500005, "ABA", "Estimated Accuracy Of Calculated Track Barometric Altitude", 1},
    {62500006, "ATV", "Estimated Accuracy Of Track Velocity (Cartesian)", 2},
    {62500007, "AA", "Estimated Accuracy Of Acceleration", 2},
    {62500008, "ARC", "Estimated Accuracy Of Rate Of Climb/Descent", 1},
};
// clang-format on

// The size of a subfield of these octets, of which all are available.
uint64_t size_of(const Subfield &subfield, const std::vector<uint8_t> &data) {
    const uint64_t size = ast_subfield_get_size(data.data(), data.size(), subfield.type);
    EXPECT_EQ(ast_subfield_get_func(subfield.type).get_size(data.data(), data.size(), subfield.type), size);
    return size;
}

TEST(EverySubfield, HasItsIdNameAndSize) {
    LogCapture log;
    for (const Subfield &subfield : kSubfields) {
        SCOPED_TRACE(subfield.type);
        EXPECT_STREQ(ast_subfield_get_id(subfield.type), subfield.id);
        EXPECT_STREQ(ast_subfield_get_name(subfield.type), subfield.name);
        const uint64_t n = subfield.size.octets;
        switch (subfield.size.kind) {
        case Size::Kind::Fixed: // whatever is available
            EXPECT_EQ(size_of(subfield, {}), n);
            EXPECT_EQ(size_of(subfield, ast_test::repeated("FF", 20)), n);
            break;
        case Size::Kind::Extended: {
            auto data = ast_test::repeated("01", n + 1);
            EXPECT_EQ(size_of(subfield, data), n) << "cut, and reported once for each call";
            EXPECT_EQ(log.take(), LogLines(2, {3, "Subfield length exceed max: " + std::to_string(n)}));
            data[n - 1] = 0;
            EXPECT_EQ(size_of(subfield, data), n);
            break;
        }
        case Size::Kind::Repeated:
            EXPECT_EQ(size_of(subfield, ast_test::repeated("02", 1 + 2 * n)), 1 + 2 * n);
            EXPECT_EQ(size_of(subfield, ast_test::repeated("02", 2 * n)), 0U);
            EXPECT_EQ(size_of(subfield, octets("00")), 1U);
            break;
        }
    }
    EXPECT_EQ(log.take(), LogLines{});
}

TEST(EveryCompoundItem, DefinesTheSubfieldsListed) {
    uint64_t items = 0;
    for (const Subfield *first = std::begin(kSubfields); first != std::end(kSubfields); ++items) {
        const uint32_t item = first->type / 1000;
        uint32_t count = 0;
        for (; first != std::end(kSubfields) && first->type / 1000 == item; ++first)
            EXPECT_EQ(first->type, item * 1000 + ++count);
        EXPECT_EQ(ast_dataitem_subfields_get_number(item), count) << item;
        EXPECT_STREQ(ast_subfield_get_name(item * 1000 + count + 1), "UNKNOWN_SUBFIELD_NAME");
    }
    EXPECT_EQ(items, 25U);
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
