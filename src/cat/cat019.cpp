// Category 019: status of a multilateration system.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {140, "Time of Day", items::time_of_day},
    {550, "System Status", {fixed<1>}},
    {551, "Tracking Processor Detailed Status", {fixed<1>}},
    {552, "Remote Sensor Detailed Status", {repetitive<2>}},
    {553, "Reference Transponder Detailed Status", {extended<kUnlimitedOctets>}},
    {600, "Position of MLT System Reference Point", items::without_encoder(items::position_wgs84)},
    {610, "Height of MLT System Reference Point", {fixed<2>}},
    {620, "WGS-84 Undulation", {fixed<1>}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory019, 19, "Unknown CAT019 Dataitem", kItems, ast_dataitem_019_get_name)
