// Category 019: status of a multilateration system.

#include "codec/category.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", {fixed<2>}},
    {140, "Time of Day", {fixed<3>}},
    {550, "System Status", {fixed<1>}},
    {551, "Tracking Processor Detailed Status", {fixed<1>}},
    {552, "Remote Sensor Detailed Status", {repetitive<2>}},
    {553, "Reference Transponder Detailed Status", {variable<kUnlimitedOctets>}},
    {600, "Position of MLT System Reference Point", {fixed<8>}},
    {610, "Height of MLT System Reference Point", {fixed<2>}},
    {620, "WGS-84 Undulation", {fixed<1>}},
    {AST_ITEM_REF, "Reserved Expansion Field", {explicit_length}},
    {AST_ITEM_SPF, "Special Purpose Field", {explicit_length}},
};

} // namespace

AST_DEFINE_CATEGORY(019, 19, kItems)
