// Category 062: system tracks of a surveillance data processing system.

#include <iterator>

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kMode5[] = {
    {"SUM", "Mode 5 Summary", octets(1)},
    {"PMN", "Mode 5 PIN/ National", octets(4)},
    {"POS", "Mode 5 Reported Position", octets(6)},
    {"GA", "Mode 5 GNSS-derived Altitude", octets(2)},
    {"EM1", "Extended Mode 1 Code in Octal Representation", octets(2)},
    {"TOS", "Time Offset for POS and GA", octets(1)},
    {"XP", "X Pulse Presence", octets(1)},
};

constexpr SubfieldRow kUpdateAges[] = {
    {"TRK", "Track age", octets(1)},
    {"PSR", "PSR age", octets(1)},
    {"SSR", "SSR age", octets(1)},
    {"MDS", "Mode S age", octets(1)},
    {"ADS", "ADS-C age", octets(2)},
    {"ES", "ADS-B Extended Squitter age", octets(1)},
    {"VDL", "ADS-B VDL Mode 4 age", octets(1)},
    {"UAT", "ADS-B UAT age", octets(1)},
    {"LOP", "Loop age", octets(1)},
    {"MLT", "Multilateration age", octets(1)},
};

constexpr SubfieldRow kDataAges[] = {
    {"MFL", "Measured Flight Level age", octets(1)},
    {"MD1", "Mode 1 age", octets(1)},
    {"MD2", "Mode 2 age", octets(1)},
    {"MDA", "Mode 3/A age", octets(1)},
    {"MD4", "Mode 4 age", octets(1)},
    {"MD5", "Mode 5 age", octets(1)},
    {"MHG", "Magnetic Heading age", octets(1)},
    {"IAS", "Indicated Airspeed/Mach Nb age", octets(1)},
    {"TAS", "True Airspeed age", octets(1)},
    {"SAL", "Selected Altitude age", octets(1)},
    {"FSS", "Final State Selected Altitude age", octets(1)},
    {"TID", "Trajectory Intent Data age", octets(1)},
    {"COM", "Communications / ACAS Capability and Flight Status age", octets(1)},
    {"SAB", "Status Reported by ADS-B age", octets(1)},
    {"ACS", "ACAS Resolution Advisory Report age", octets(1)},
    {"BVR", "Barometric Vertical Rate age", octets(1)},
    {"GVR", "Geometric Vertical Rate age", octets(1)},
    {"RAN", "Roll Angle age", octets(1)},
    {"TAR", "Track Angle Rate age", octets(1)},
    {"TAN", "Track Angle age", octets(1)},
    {"GSP", "Ground Speed age", octets(1)},
    {"VUN", "Velocity Uncertanty age", octets(1)}, // the names are known with their spellings, here and below
    {"MET", "Meteorological Data age", octets(1)},
    {"EMC", "Emitter Category age", octets(1)},
    {"POS", "Position Data age", octets(1)},
    {"GAL", "Geometric Altitude Data age", octets(1)},
    {"PUN", "Position Uncertainty Data age", octets(1)},
    {"MB", "Mode S MB Data age", octets(1)},
    {"IAR", "Indicated Airspeed Data age", octets(1)},
    {"MAC", "Mach Number Data age", octets(1)},
    {"BPS", "Barometric Pressure Setting Data age", octets(1)},
};

constexpr SubfieldRow kMeasured[] = {
    {"SID", "Sensor Identification", octets(2)},       {"POS", "Measured Position", octets(4)},
    {"HEI", "Measured 3-D Height", octets(2)},         {"MDC", "Last Measured Mode C Code", octets(2)},
    {"MDA", "Last Measured Mode 3/A Code", octets(2)}, {"TYP", "Report Type", octets(1)},
};

constexpr SubfieldRow kAircraftDerived[] = {
    {"ADR", "Target Address", octets(3)},
    {"ID", "Target Identification", octets(6)},
    {"MHG", "Magnetic Heading", octets(2)},
    {"IAS", "Indicated Airspeed / Mach No", octets(2)},
    {"TAS", "True Airspeed", octets(2)},
    {"SAL", "Selected Altitude", octets(2)},
    {"FSS", "Final State Selected Altitude", octets(2)},
    {"TIS", "Trajectory Intent Status", octets(1)},
    {"TID", "Trajectory Intent Data", repeated(15)},
    {"COM", "Communications / ACAS Capability and Flight Status reported by Mode-S", octets(2)},
    {"SAB", "Status reported by ADS-B", octets(2)},
    {"ACS", "ACAS Resolution Avisory Report", octets(7)},
    {"BVR", "Brometric Vertical Rate", octets(2)},
    {"GVR", "Geometric Vertical Rate", octets(2)},
    {"RAN", "Roll Angle", octets(2)},
    {"TAR", "Track Angle Rate", octets(2)},
    {"TAN", "Track Angle", octets(2)},
    {"GSP", "Ground Speed", octets(2)},
    {"VUN", "Velocity Uncertainty Category", octets(1)},
    {"MET", "Met Data", octets(8)},
    {"EMC", "Emitter Category", octets(1)},
    {"POS", "Position", octets(6)},
    {"GAL", "Geometric Altitude", octets(2)},
    {"PUN", "Position Uncertainty", octets(1)},
    {"MB", "Mode-S MB Data", repeated(8)},
    {"IAR", "Indicated Airspeed", octets(2)},
    {"MAC", "Mach Number", octets(2)},
    {"BPS", "Barometric Pressure Setting", octets(2)},
};

constexpr SubfieldRow kFlightPlan[] = {
    {"TAG", "FPPS Identification Tag", octets(2)},
    {"CSN", "Callsign", octets(7)},
    {"IFI", "IFPS Flight ID", octets(4)},
    {"FCT", "Flight Category", octets(1)},
    {"TAC", "Type of Aircraft", octets(4)},
    {"WTC", "Wake Turbulence Category", octets(1)},
    {"DEP", "Departure Airport", octets(4)},
    {"DST", "Destination Airport", octets(4)},
    {"RDS", "Runway Designation", octets(3)},
    {"CFL", "Current Cleared Flight Level", octets(2)},
    {"CTL", "Current Control Position", octets(2)},
    {"TOD", "Time of Departure / Arrival", repeated(4)},
    {"AST", "Aircraft Stand", octets(6)},
    {"STS", "Stand Status", octets(1)},
    {"STD", "Standard Instrument Departure", octets(7)},
    {"STA", "Standard Instrument Arrival", octets(7)},
    {"PEM", "Pre-emergency Mode 3/A Code", octets(2)},
    {"PEC", "Pre-emergency Callsign", octets(7)},
};

constexpr SubfieldRow kAccuracies[] = {
    {"APC", "Estimated Accuracy Of Track Position (Cartesian)", octets(4)},
    {"COV", "XY Covariance", octets(2)},
    {"APW", "Estimated Accuracy Of Track Position (WGS-84)", octets(4)},
    {"AGA", "Estimated Accuracy Of Calculated Track Geometric Altitude", octets(1)},
    {"ABA", "Estimated Accuracy Of Calculated Track Barometric Altitude", octets(1)},
    {"ATV", "Estimated Accuracy Of Track Velocity (Cartesian)", octets(2)},
    {"AA", "Estimated Accuracy Of Acceleration", octets(2)},
    {"ARC", "Estimated Accuracy Of Rate Of Climb/Descent", octets(1)},
};

} // namespace

AST_DEFINE_COMPOUND(kItem110, 062_110, kMode5, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem290, 062_290, kUpdateAges, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem295, 062_295, kDataAges, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem340, 062_340, kMeasured, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem380, 062_380, kAircraftDerived, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem390, 062_390, kFlightPlan, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem500, 062_500, kAccuracies, nullptr, nullptr)

// ---- I062/510 Composed Track Number ----

// Lenient at its end: a chain that announces a part for which there is no room ends before it.
uint64_t ast_dataitem_062_510_get_size(const uint8_t *data, uint64_t available) {
    constexpr uint64_t kPartOctets = 3;
    uint64_t size = kPartOctets;
    while (data && available >= size + kPartOctets && has_fx(data[size - 1])) size += kPartOctets;
    return size;
}

namespace {

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {40, "Track Number", items::track_number},
    {60, "Track Mode 3/A Code", items::mode_3a_code},
    {70, "Time of Track Information", items::time_of_day},
    {80, "Track Status", {variable<6>}},
    {100, "Calculated Track Position (Cartesian)", items::position_cartesian},
    {105, "Calculated Position in WGS84 Coordinates", items::without_encoder(items::position_wgs84)},
    {110, "Mode 5 Data reports & Extended Mode 1 Code", items::compound(ast_dataitem_062_110_get_size), &kItem110},
    {120, "Track Mode 2 Code", items::mode_3a_code},
    {130, "Calculated Track Geometric Altitude", {fixed<2>}},
    {135, "Calculated Track Barometric Altitude", {fixed<2>}},
    {136, "Measured Flight Level", {fixed<2>}},
    {185, "Calculated Track Velocity (Cartesian)", items::velocity_cartesian},
    {200, "Mode of Movement", {fixed<1>}},
    {210, "Calculated Acceleration (Cartesian)", {fixed<2>}},
    {220, "Calculated Rate of Climb/Descent", {fixed<2>}},
    {245, "Target Identification", items::target_id},
    {270, "Target Size & Orientation", {variable<3>}},
    {290, "System Track Update Ages", items::compound(ast_dataitem_062_290_get_size), &kItem290},
    {295, "Track Data Age", items::compound(ast_dataitem_062_295_get_size), &kItem295},
    {300, "Vehicle Fleet Identification", {fixed<1>}},
    {340, "Measured Information", items::compound(ast_dataitem_062_340_get_size), &kItem340},
    {380, "Aircraft Derived Data", items::compound(ast_dataitem_062_380_get_size), &kItem380},
    {390, "Flight Plan Related Data", items::compound(ast_dataitem_062_390_get_size), &kItem390},
    {500, "Estimated Accuracies", items::compound(ast_dataitem_062_500_get_size), &kItem500},
    {510, "Composed Track Number", {ast_dataitem_062_510_get_size}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Reserved For Special Purpose Indicator", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(062, 62, kItems, .reports_unknown_names = true)
