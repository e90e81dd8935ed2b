// Category 020: multilateration target reports, edition 1.11.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kPositionAccuracyRows[] = {
    {"DOP", "DOP of Position", fixed<6>},
    {"SDP", "Standard Deviation of Position", fixed<6>},
    {"SDH", "Standard Deviation of Geometric Height (WGS 84)", fixed<2>},
};

constexpr Compound kPositionAccuracy = {
    .type = 20500, .rows = kPositionAccuracyRows, .count = std::size(kPositionAccuracyRows)};

} // namespace

// ---- I020/500 Position Accuracy ----

// Sized as the compound item that it is; its subfields are not registered.
uint64_t ast_dataitem_020_500_get_size(const uint8_t *data, uint64_t available) {
    return compound_size(kPositionAccuracy, data, available);
}

namespace {

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Target Report Descriptor", {extended<3>}},
    {30, "Warning/Error Conditions", {extended<kUnlimitedOctets>}},
    {41, "Position In WGS-84 Coordinates", items::without_encoder(items::position_wgs84)},
    {42, "Position in Cartesian Coordinates", items::position_cartesian},
    {50, "Mode-2 Code in Octal Representation", {fixed<2>}},
    {55, "Mode-1 Code in Octal Representation", {fixed<1>}},
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {90, "Flight Level in Binary Representation", items::mode_c_code},
    {100, "Mode C Code", {fixed<4>}},
    {105, "Geometric Height (WGS-84)", items::height},
    {110, "Measured Height (Local Cartesian Coordinates)", items::height},
    {140, "Time of Day", items::time_of_day},
    {161, "Track Number", items::track_number},
    {170, "Track Status", {extended<2>}},
    {202, "Calculated Track Velocity in Cartesian Coordinates", items::velocity_cartesian},
    {210, "Calculated Acceleration", {fixed<2>}},
    {220, "Target Address", items::without_encoder(items::target_address)},
    {230, "Communications/ACAS Capability and Flight Status", {fixed<2>}},
    {245, "Target Identification", items::target_id},
    {250, "BDS Register Data", items::modes_mb},
    {260, "ACAS Resolution Advisory Report", {fixed<7>}},
    {300, "Vehicle Fleet Identification", {fixed<1>}},
    {310, "Pre-programmed Message", {fixed<1>}},
    {400, "Contributing Devices", {repetitive<1>}},
    {500, "Position Accuracy", {sized_by(ast_dataitem_020_500_get_size)}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory020, 20, "Unknown CAT020 Dataitem", kItems, ast_dataitem_020_get_name)
