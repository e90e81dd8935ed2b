// Category 010: monosensor surface movement reports, edition 1.1.

#include "codec/category.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", {fixed<2>}},
    {20, "Target Report Descriptor", {variable<3>}},
    {40, "Measured Position in Polar Co-ordinates", {fixed<4>}},
    {41, "Position in WGS-84 Co-ordinates", {fixed<8>}},
    {42, "Position in Cartesian Co-ordinates", {fixed<4>}},
    {60, "Mode-3/A Code in Octal Representation", {fixed<2>}},
    {90, "Flight Level in Binary Representation", {fixed<2>}},
    {91, "Measured Height", {fixed<2>}},
    {131, "Amplitude of Primary Plot", {fixed<1>}},
    {140, "Time of Day", {fixed<3>}},
    {161, "Track Number", {fixed<2>}},
    {170, "Track Status", {variable<3>}},
    {200, "Calculated Track Velocity in Polar Co-ordinates", {fixed<4>}},
    {202, "Calculated Track Velocity in Cartesian Co-ordinates", {fixed<4>}},
    {220, "Target Address", {fixed<3>}},
    {245, "Target Identification", {fixed<7>}},
    {270, "Target Size and Orientation", {variable<3>}},
    {500, "Standard Deviation of Position", {fixed<4>}},
    {550, "System Status", {fixed<1>}},
    {AST_ITEM_REF, "Reserved Expansion Field", {explicit_length}},
    {AST_ITEM_SPF, "Special Purpose Field", {explicit_length}},
};

} // namespace

AST_DEFINE_CATEGORY(010, 10, kItems)
