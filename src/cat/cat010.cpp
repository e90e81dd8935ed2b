// Category 010: monosensor surface movement reports, edition 1.1.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Target Report Descriptor", {extended<3>}},
    {40, "Measured Position in Polar Co-ordinates", {fixed<4>}},
    {41, "Position in WGS-84 Co-ordinates", items::position_wgs84},
    {42, "Position in Cartesian Co-ordinates", {fixed<4>}},
    {60, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {90, "Flight Level in Binary Representation", items::mode_c_code},
    {91, "Measured Height", items::height},
    {131, "Amplitude of Primary Plot", {fixed<1>}},
    {140, "Time of Day", items::time_of_day},
    {161, "Track Number", items::track_number},
    {170, "Track Status", {extended<3>}},
    {200, "Calculated Track Velocity in Polar Co-ordinates", items::velocity_polar},
    {202, "Calculated Track Velocity in Cartesian Co-ordinates", items::velocity_cartesian},
    {220, "Target Address", items::target_address},
    {245, "Target Identification", items::target_id},
    {270, "Target Size and Orientation", {extended<3>}},
    {500, "Standard Deviation of Position", {fixed<4>}},
    {550, "System Status", {fixed<1>}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory010, 10, "Unknown CAT010 Dataitem", kItems, ast_dataitem_010_get_name)
