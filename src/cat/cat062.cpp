// Category 062: system tracks of a surveillance data processing system.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kMode5[] = {
    {"SUM", "Mode 5 Summary", fixed<1>},
    {"PMN", "Mode 5 PIN/ National", fixed<4>},
    {"POS", "Mode 5 Reported Position", fixed<6>},
    {"GA", "Mode 5 GNSS-derived Altitude", fixed<2>},
    {"EM1", "Extended Mode 1 Code in Octal Representation", fixed<2>},
    {"TOS", "Time Offset for POS and GA", fixed<1>},
    {"XP", "X Pulse Presence", fixed<1>},
};

constexpr SubfieldRow kUpdateAges[] = {
    {"TRK", "Track age", fixed<1>},
    {"PSR", "PSR age", fixed<1>},
    {"SSR", "SSR age", fixed<1>},
    {"MDS", "Mode S age", fixed<1>},
    {"ADS", "ADS-C age", fixed<2>},
    {"ES", "ADS-B Extended Squitter age", fixed<1>},
    {"VDL", "ADS-B VDL Mode 4 age", fixed<1>},
    {"UAT", "ADS-B UAT age", fixed<1>},
    {"LOP", "Loop age", fixed<1>},
    {"MLT", "Multilateration age", fixed<1>},
};

constexpr SubfieldRow kDataAges[] = {
    {"MFL", "Measured Flight Level age", fixed<1>},
    {"MD1", "Mode 1 age", fixed<1>},
    {"MD2", "Mode 2 age", fixed<1>},
    {"MDA", "Mode 3/A age", fixed<1>},
    {"MD4", "Mode 4 age", fixed<1>},
    {"MD5", "Mode 5 age", fixed<1>},
    {"MHG", "Magnetic Heading age", fixed<1>},
    {"IAS", "Indicated Airspeed/Mach Nb age", fixed<1>},
    {"TAS", "True Airspeed age", fixed<1>},
    {"SAL", "Selected Altitude age", fixed<1>},
    {"FSS", "Final State Selected Altitude age", fixed<1>},
    {"TID", "Trajectory Intent Data age", fixed<1>},
    {"COM", "Communications / ACAS Capability and Flight Status age", fixed<1>},
    {"SAB", "Status Reported by ADS-B age", fixed<1>},
    {"ACS", "ACAS Resolution Advisory Report age", fixed<1>},
    {"BVR", "Barometric Vertical Rate age", fixed<1>},
    {"GVR", "Geometric Vertical Rate age", fixed<1>},
    {"RAN", "Roll Angle age", fixed<1>},
    {"TAR", "Track Angle Rate age", fixed<1>},
    {"TAN", "Track Angle age", fixed<1>},
    {"GSP", "Ground Speed age", fixed<1>},
    {"VUN", "Velocity Uncertanty age", fixed<1>}, // the names are known with their spellings, here and below
    {"MET", "Meteorological Data age", fixed<1>},
    {"EMC", "Emitter Category age", fixed<1>},
    {"POS", "Position Data age", fixed<1>},
    {"GAL", "Geometric Altitude Data age", fixed<1>},
    {"PUN", "Position Uncertainty Data age", fixed<1>},
    {"MB", "Mode S MB Data age", fixed<1>},
    {"IAR", "Indicated Airspeed Data age", fixed<1>},
    {"MAC", "Mach Number Data age", fixed<1>},
    {"BPS", "Barometric Pressure Setting Data age", fixed<1>},
};

constexpr SubfieldRow kMeasured[] = {
    {"SID", "Sensor Identification", fixed<2>},       {"POS", "Measured Position", fixed<4>},
    {"HEI", "Measured 3-D Height", fixed<2>},         {"MDC", "Last Measured Mode C Code", fixed<2>},
    {"MDA", "Last Measured Mode 3/A Code", fixed<2>}, {"TYP", "Report Type", fixed<1>},
};

constexpr SubfieldRow kAircraftDerived[] = {
    {"ADR", "Target Address", fixed<3>},
    {"ID", "Target Identification", fixed<6>},
    {"MHG", "Magnetic Heading", fixed<2>},
    {"IAS", "Indicated Airspeed / Mach No", fixed<2>},
    {"TAS", "True Airspeed", fixed<2>},
    {"SAL", "Selected Altitude", fixed<2>},
    {"FSS", "Final State Selected Altitude", fixed<2>},
    {"TIS", "Trajectory Intent Status", fixed<1>},
    {"TID", "Trajectory Intent Data", repetitive<15>},
    {"COM", "Communications / ACAS Capability and Flight Status reported by Mode-S", fixed<2>},
    {"SAB", "Status reported by ADS-B", fixed<2>},
    {"ACS", "ACAS Resolution Avisory Report", fixed<7>},
    {"BVR", "Brometric Vertical Rate", fixed<2>},
    {"GVR", "Geometric Vertical Rate", fixed<2>},
    {"RAN", "Roll Angle", fixed<2>},
    {"TAR", "Track Angle Rate", fixed<2>},
    {"TAN", "Track Angle", fixed<2>},
    {"GSP", "Ground Speed", fixed<2>},
    {"VUN", "Velocity Uncertainty Category", fixed<1>},
    {"MET", "Met Data", fixed<8>},
    {"EMC", "Emitter Category", fixed<1>},
    {"POS", "Position", fixed<6>},
    {"GAL", "Geometric Altitude", fixed<2>},
    {"PUN", "Position Uncertainty", fixed<1>},
    {"MB", "Mode-S MB Data", repetitive<8>},
    {"IAR", "Indicated Airspeed", fixed<2>},
    {"MAC", "Mach Number", fixed<2>},
    {"BPS", "Barometric Pressure Setting", fixed<2>},
};

constexpr SubfieldRow kFlightPlan[] = {
    {"TAG", "FPPS Identification Tag", fixed<2>},
    {"CSN", "Callsign", fixed<7>},
    {"IFI", "IFPS Flight ID", fixed<4>},
    {"FCT", "Flight Category", fixed<1>},
    {"TAC", "Type of Aircraft", fixed<4>},
    {"WTC", "Wake Turbulence Category", fixed<1>},
    {"DEP", "Departure Airport", fixed<4>},
    {"DST", "Destination Airport", fixed<4>},
    {"RDS", "Runway Designation", fixed<3>},
    {"CFL", "Current Cleared Flight Level", fixed<2>},
    {"CTL", "Current Control Position", fixed<2>},
    {"TOD", "Time of Departure / Arrival", repetitive<4>},
    {"AST", "Aircraft Stand", fixed<6>},
    {"STS", "Stand Status", fixed<1>},
    {"STD", "Standard Instrument Departure", fixed<7>},
    {"STA", "Standard Instrument Arrival", fixed<7>},
    {"PEM", "Pre-emergency Mode 3/A Code", fixed<2>},
    {"PEC", "Pre-emergency Callsign", fixed<7>},
};

constexpr SubfieldRow kAccuracies[] = {
    {"APC", "Estimated Accuracy Of Track Position (Cartesian)", fixed<4>},
    {"COV", "XY Covariance", fixed<2>},
    {"APW", "Estimated Accuracy Of Track Position (WGS-84)", fixed<4>},
    {"AGA", "Estimated Accuracy Of Calculated Track Geometric Altitude", fixed<1>},
    {"ABA", "Estimated Accuracy Of Calculated Track Barometric Altitude", fixed<1>},
    {"ATV", "Estimated Accuracy Of Track Velocity (Cartesian)", fixed<2>},
    {"AA", "Estimated Accuracy Of Acceleration", fixed<2>},
    {"ARC", "Estimated Accuracy Of Rate Of Climb/Descent", fixed<1>},
};

} // namespace

AST_DEFINE_COMPOUND(kItem110, 62110, kMode5, ast_dataitem_062_110_get_size, ast_subfield_062_110_get_size,
                    ast_subfield_062_110_get_id, ast_subfield_062_110_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem290, 62290, kUpdateAges, ast_dataitem_062_290_get_size, ast_subfield_062_290_get_size,
                    ast_subfield_062_290_get_id, ast_subfield_062_290_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem295, 62295, kDataAges, ast_dataitem_062_295_get_size, ast_subfield_062_295_get_size,
                    ast_subfield_062_295_get_id, ast_subfield_062_295_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem340, 62340, kMeasured, ast_dataitem_062_340_get_size, ast_subfield_062_340_get_size,
                    ast_subfield_062_340_get_id, ast_subfield_062_340_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem380, 62380, kAircraftDerived, ast_dataitem_062_380_get_size, ast_subfield_062_380_get_size,
                    ast_subfield_062_380_get_id, ast_subfield_062_380_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem390, 62390, kFlightPlan, ast_dataitem_062_390_get_size, ast_subfield_062_390_get_size,
                    ast_subfield_062_390_get_id, ast_subfield_062_390_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem500, 62500, kAccuracies, ast_dataitem_062_500_get_size, ast_subfield_062_500_get_size,
                    ast_subfield_062_500_get_id, ast_subfield_062_500_get_name, nullptr, nullptr)

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
    {80, "Track Status", {extended<6>}},
    {100, "Calculated Track Position (Cartesian)", items::position_cartesian},
    {105, "Calculated Position in WGS84 Coordinates", items::without_encoder(items::position_wgs84)},
    items::compound("Mode 5 Data reports & Extended Mode 1 Code", kItem110),
    {120, "Track Mode 2 Code", items::mode_3a_code},
    {130, "Calculated Track Geometric Altitude", {fixed<2>}},
    {135, "Calculated Track Barometric Altitude", {fixed<2>}},
    {136, "Measured Flight Level", {fixed<2>}},
    {185, "Calculated Track Velocity (Cartesian)", items::velocity_cartesian},
    {200, "Mode of Movement", {fixed<1>}},
    {210, "Calculated Acceleration (Cartesian)", {fixed<2>}},
    {220, "Calculated Rate of Climb/Descent", {fixed<2>}},
    {245, "Target Identification", items::target_id},
    {270, "Target Size & Orientation", {extended<3>}},
    items::compound("System Track Update Ages", kItem290),
    items::compound("Track Data Age", kItem295),
    {300, "Vehicle Fleet Identification", {fixed<1>}},
    items::compound("Measured Information", kItem340),
    items::compound("Aircraft Derived Data", kItem380),
    items::compound("Flight Plan Related Data", kItem390),
    items::compound("Estimated Accuracies", kItem500),
    {510, "Composed Track Number", {sized_by(ast_dataitem_062_510_get_size)}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Reserved For Special Purpose Indicator", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory062, 62, "Unknown CAT062 Dataitem", kItems, ast_dataitem_062_get_name,
                    .reports_unknown_names = true)
