// Category 048: plots and local tracks of one radar, in that radar's polar coordinates.

#include <iterator>

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kRadialDopplerSpeed[] = {
    {"CAL", "Calculated Doppler Speed", octets(2)},
    {"RDS", "Raw Doppler Speed", octets(7)}, // a repetition count of 1 and one element, whatever the count says
};

constexpr SubfieldRow kPlotCharacteristics[] = {
    {"SRL", "SSR Plot Runlength", octets(1)},
    {"SRR", "Number of Received Replies for (M)SSR", octets(1)},
    {"SAM", "Amplitude of (M)SSR Reply", octets(1)},
    {"PRL", "Primary Plot Runlength", octets(1)},
    {"PAM", "Amplitude of Primary Plot ", octets(1)}, // the name ends in a blank
    {"RPD", "Difference in Range between PSR and SSR plot", octets(1)},
    {"APD", "Difference in Azimuth between PSR and SSR plot", octets(1)},
};

} // namespace

AST_DEFINE_COMPOUND(kItem120, 048_120, kRadialDopplerSpeed)
AST_DEFINE_COMPOUND(kItem130, 048_130, kPlotCharacteristics)

namespace {

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Target Report Descriptor", {variable<2>}},
    {30, "Warning/Error Conditions", {variable<23>}},
    {40, "Measured Position in Polar Co-ordinates", {fixed<4>}},
    {42, "Calculated Position in Cartesian Co-ordinates", {fixed<4>}},
    {50, "Mode-2 Code in Octal Representation", {fixed<2>}},
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {80, "Mode-3/A Code Confidence Indicator", items::without_encoder(items::mode_3a_confidence)},
    {90, "Flight Level in Binary Representation", items::mode_c_code},
    {100, "Mode-C Code and Code Confidence Indicator", items::without_encoder(items::mode_c_confidence)},
    {110, "Height Measured by a 3D Radar", {fixed<2>}},
    {120, "Radial Doppler Speed", items::compound(ast_dataitem_048_120_get_size), &kItem120},
    {130, "Radar Plot Characteristics", items::compound(ast_dataitem_048_130_get_size), &kItem130},
    {140, "Time of Day", items::time_of_day},
    {161, "Track Number", items::track_number},
    {170, "Track Status", {variable<2>}},
    {200, "Calculated Track Velocity in Ploar Co-ordinates",
     items::velocity_polar}, // the name is known with this spelling
    {210, "Track Quality", {fixed<4>}},
    {220, "Aircraft Address", items::target_address},
    {230, "Communications / ACAS Capability and Flight Status", {fixed<2>}},
    {240, "Aircraft Identification", items::aircraft_id},
    {250, "Mode S MB Data", items::modes_mb},
    {260, "ACAS Resolution Advisory Report", {fixed<7>}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(048, 48, kItems, .reports_unknown_names = true)
