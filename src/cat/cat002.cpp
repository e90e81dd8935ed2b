// Category 002: service messages of one radar, edition 1.2 and the layouts of three radar families.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Sector Number", items::sector_number},
    {30, "Time of Day", items::time_of_day},
    {41, "Antenna Rotation Speed", items::antenna_rotation_period},
    {50, "Station Configuration Status", items::binary_data(extended<kUnlimitedOctets>)},
    {.number = 901, .name = "Station Configuration Status", .handlers = {extended<16>}, .variant_of = 50},
    {.number = 902, .name = "Station Configuration Status", .handlers = {extended<16>}, .variant_of = 50},
    {951, nullptr, {fixed<2>}},
    {AST_ITEM_RFS, "Random Field Sequencing", items::random_field_sequencing},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory002, 2, "Unknown CAT002 Dataitem", kItems, ast_dataitem_002_get_name)
