// Category 021: ADS-B target reports, editions 0.23 to 2.4.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kTrajectoryIntent[] = {
    {"TIS", "Trajectory Intent Status", extended<1>},
    {"TID", "Trajectory Intent Data", repetitive<15>},
};

constexpr SubfieldRow kMetInformation[] = {
    {"WS", "Wind Speed", fixed<2>},
    {"WD", "Wind Direction", fixed<2>},
    {"TMP", "Temperature", fixed<2>},
    {"TRB", "Turbulence", fixed<1>},
};

constexpr SubfieldRow kDataAges[] = {
    {"AOS", "Aircraft Operational Status Age", fixed<1>},
    {"TRD", "Target Report Descriptor Age", fixed<1>},
    {"M3A", "Mode 3/A Code Age", fixed<1>},
    {"QI", "Quality Indicators Age", fixed<1>},
    {"TI", "Trajectory Intent Age", fixed<1>},
    {"MAM", "Message Amplitude Age", fixed<1>},
    {"GH", "Geometric Height Age", fixed<1>},
    {"FL", "Flight Level Age", fixed<1>},
    {"SAL", "Selected Altitude Age", fixed<1>},
    {"FSA", "Final State Selected Altitude Age", fixed<1>},
    {"AS", "Air Speed Age", fixed<1>},
    {"TAS", "True Air Speed Age", fixed<1>},
    {"MH", "Magnetic Heading Age", fixed<1>},
    {"BVR", "Barometric Vertical Rate Age", fixed<1>},
    {"GVR", "Geometric Vertical Rate Age", fixed<1>},
    {"GV", "Ground Vector Age", fixed<1>},
    {"TAR", "Track Angle Rate Age", fixed<1>},
    {"TI", "Target Identification Age", fixed<1>}, // the same id as trajectory intent
    {"TS", "Target Status Age", fixed<1>},
    {"MET", "Met Information Age", fixed<1>},
    {"ROA", "Roll Angle Age", fixed<1>},
    {"ARA", "ACAS Resolution Advisory Age", fixed<1>},
    {"SCC", "Surface Capabilities and Characteristics Age", fixed<1>},
};

} // namespace

AST_DEFINE_COMPOUND(kItem110, 21110, kTrajectoryIntent, ast_dataitem_021_110_get_size, ast_subfield_021_110_get_size,
                    ast_subfield_021_110_get_id, ast_subfield_021_110_get_name, nullptr, nullptr,
                    .reports_unknown_subfields = true)
AST_DEFINE_COMPOUND(kItem220, 21220, kMetInformation, ast_dataitem_021_220_get_size, ast_subfield_021_220_get_size,
                    ast_subfield_021_220_get_id, ast_subfield_021_220_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem295, 21295, kDataAges, ast_dataitem_021_295_get_size, ast_subfield_021_295_get_size,
                    ast_subfield_021_295_get_id, ast_subfield_021_295_get_name, nullptr, nullptr)

// ---- I021/271 Surface Capabilities and Characteristics, editions 1.0 to 2.1 ----

uint64_t ast_dataitem_021_A07_get_size(const uint8_t *data, uint64_t available) {
    constexpr uint64_t kLongOctets = 2;
    if (!data || available == 0) return 0;
    if (!has_fx(data[0])) return 1;
    return available >= kLongOctets ? kLongOctets : 0;
}

namespace {

// Three items are handled but have no title; they read, and are reported, as unknown ones.
constexpr ItemRow kItems[] = {
    {8, "Aircraft Operational Status", {fixed<1>}},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {16, "Service Management", {fixed<1>}},
    {20, "Emitter Category", {fixed<1>}},
    {30, "Time of Day", items::time_of_day},
    {32, "Time of Day Accuracy", {fixed<1>}},
    {40, "Target Report Descriptor", {extended<3>}},
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {71, "Time of Applicability for Position", items::time_of_day},
    {72, "Time of Applicability for Velocity", items::time_of_day},
    {73, "Time of Message Reception for Position", items::time_of_day},
    {74, "Time of Message Reception of Position - High Precision", items::time_of_day_high},
    {75, "Time of Message Reception for Velocity", items::time_of_day},
    {76, "Time of Message Reception of Velocity - High Precision", items::time_of_day_high},
    {77, "Time of ASTERIX Report Transmission", items::time_of_day},
    {80, "Target Address", items::target_address},
    {90, "Quality Indicators", {extended<4>}},
    {95, "Velocity Accuracy", {fixed<1>}},
    items::compound(nullptr, kItem110),
    {130, "Position in WGS84 Coordinates", items::position_wgs84_low},
    {131, "High-Resolution Position in WGS-84 Coordinates", items::position_wgs84},
    {132, "Message Amplitude", items::signal_amplitude},
    {140, "Geometric Altitude", {fixed<2>}},
    {145, "Flight Level", {fixed<2>}},
    {146, "Selected Altitude", {fixed<2>}},
    {148, nullptr, {fixed<2>}},
    {150, "Air Speed", {fixed<2>}},
    {151, "True Air Speed", {fixed<2>}},
    {152, "Magnetic Heading", {fixed<2>}},
    {155, "Barometric Vertical Rate", items::vertical_rate},
    {157, "Geometric Vertical Rate", items::vertical_rate},
    {160, "Ground Vector", {fixed<4>}},
    {161, "Track Number", items::track_number},
    {165, "Track Angle Rate", {extended<2>}},
    {170, "Target Identification", items::aircraft_id},
    {200, "Target Status", {fixed<1>}},
    {210, "MOPS Version", {fixed<1>}},
    items::compound(nullptr, kItem220),
    {230, "Roll Angle", {fixed<2>}},
    {250, "Mode S MB Data", items::modes_mb},
    {271, "Surface Capabilities and Characteristics", {extended<2>}},
    items::compound("Data Ages", kItem295),
    {400, "Receiver ID", {fixed<1>}},
    {.number = 902,
     .name = "Position in WGS84 Coordinates (Version 0.24 ~ 0.26)",
     .handlers = items::position_wgs84,
     .variant_of = 130},
    {.number = 903, .name = "Target Report Descriptor (Prior Version 0.26)", .handlers = {fixed<2>}, .variant_of = 40},
    {.number = 904, .name = "Signal Amplitude (Version 0.26)", .handlers = items::signal_amplitude, .variant_of = 131},
    {.number = 905, .name = "Figure of Merit (Prior Version 0.26)", .handlers = {fixed<2>}, .variant_of = 90},
    {.number = 906,
     .name = "Link Technology Indicator (Prior Version 0.26)",
     .handlers = {fixed<1>},
     .variant_of = 210},
    {.number = 907,
     .name = "Surface Capabilities and Characteristics (Version 1.0 ~ 2.1)",
     .handlers = {sized_by(ast_dataitem_021_A07_get_size)},
     .variant_of = 271},
    {.number = 908, .name = "Target Status (Prior Version 0.26)", .handlers = {fixed<1>}, .variant_of = 200},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory021, 21, "Unknown CAT021 Dataitem", kItems, ast_dataitem_021_get_name,
                    .reports_unknown_names = true)
