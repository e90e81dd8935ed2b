// Category 001: target reports of one radar, plots and tracks, edition 1.4 and the layouts of three radar families.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Target Report Descriptor", {variable<2>}},
    {30, "Warning/Error Conditions", {variable<kUnlimitedOctets>}},
    {40, "Measured Position in Polar Co-ordinates", {fixed<4>}},
    {42, "Calculated Position in Cartesian Co-ordinates", {fixed<4>}},
    {50, "Mode-2 Code in Octal Representation", items::mode_3a_code},
    {60, "Mode-2 Code Confidence Indicator", items::mode_3a_confidence},
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {80, "Mode-3/A Code Confidence Indicator", items::mode_3a_confidence},
    {90, "Mode-C Code in Binary Representation", items::mode_c_code},
    {100, "Mode-C Code and Code Confidence Indicator", items::mode_c_confidence},
    {120, "Measured Radial Doppler Speed", {fixed<1>}},
    {130, "Radar Plot Characteristics", items::binary_data(variable<kUnlimitedOctets>)},
    {131, "Received Power", {fixed<1>}},
    {141, "Truncated Time of Day", {fixed<2>}},
    {150, "Presence of X-Pulse", {fixed<1>}},
    {161, "Track Plot Number", items::track_number},
    {170, "Track Status", {variable<2>}},
    {200, "Calculated Track Velocity in Polar Co-ordinates", items::velocity_polar},
    {210, "Track Quality", {variable<kUnlimitedOctets>}},
    {.number = 901, .name = "Radar Plot Characteristics", .handlers = {variable<1>}, .variant_of = 130},
    {.number = 902, .name = "Track Quality", .handlers = {variable<1>}, .variant_of = 210},
    {.number = 903, .name = "Radar Plot Characteristics", .handlers = {variable<4>}, .variant_of = 130},
    {.number = 904, .name = "Track Quality", .handlers = {variable<11>}, .variant_of = 210},
    {951, "Custom Field", {fixed<2>}},
    {AST_ITEM_RFS, "Random Field Sequencing", items::random_field_sequencing},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(001, 1, kItems)
