// Category 020: multilateration target reports, edition 1.11.

#include <iterator>

#include "codec/category.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kPositionAccuracyRows[] = {
    {"DOP", "DOP of Position", octets(6)},
    {"SDP", "Standard Deviation of Position", octets(6)},
    {"SDH", "Standard Deviation of Geometric Height (WGS 84)", octets(2)},
};

constexpr Compound kPositionAccuracy = {.rows = kPositionAccuracyRows, .count = std::size(kPositionAccuracyRows)};

} // namespace

// ---- I020/500 Position Accuracy ----

// Sized as the compound item that it is; its subfields are not registered.
uint64_t ast_dataitem_020_500_get_size(const uint8_t *data, uint64_t available) {
    return compound_size(kPositionAccuracy, data, available);
}

namespace {

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", {fixed<2>}},
    {20, "Target Report Descriptor", {variable<3>}},
    {30, "Warning/Error Conditions", {variable<kUnlimitedOctets>}},
    {41, "Position In WGS-84 Coordinates", {fixed<8>}},
    {42, "Position in Cartesian Coordinates", {fixed<6>}},
    {50, "Mode-2 Code in Octal Representation", {fixed<2>}},
    {55, "Mode-1 Code in Octal Representation", {fixed<1>}},
    {70, "Mode-3/A Code in Octal Representation", {fixed<2>}},
    {90, "Flight Level in Binary Representation", {fixed<2>}},
    {100, "Mode C Code", {fixed<4>}},
    {105, "Geometric Height (WGS-84)", {fixed<2>}},
    {110, "Measured Height (Local Cartesian Coordinates)", {fixed<2>}},
    {140, "Time of Day", {fixed<3>}},
    {161, "Track Number", {fixed<2>}},
    {170, "Track Status", {variable<2>}},
    {202, "Calculated Track Velocity in Cartesian Coordinates", {fixed<4>}},
    {210, "Calculated Acceleration", {fixed<2>}},
    {220, "Target Address", {fixed<3>}},
    {230, "Communications/ACAS Capability and Flight Status", {fixed<2>}},
    {245, "Target Identification", {fixed<7>}},
    {250, "BDS Register Data", {repetitive<8>}},
    {260, "ACAS Resolution Advisory Report", {fixed<7>}},
    {300, "Vehicle Fleet Identification", {fixed<1>}},
    {310, "Pre-programmed Message", {fixed<1>}},
    {400, "Contributing Devices", {repetitive<1>}},
    {500, "Position Accuracy", {ast_dataitem_020_500_get_size}},
    {AST_ITEM_REF, "Reserved Expansion Field", {explicit_length}},
    {AST_ITEM_SPF, "Special Purpose Field", {explicit_length}},
};

} // namespace

AST_DEFINE_CATEGORY(020, 20, kItems)
