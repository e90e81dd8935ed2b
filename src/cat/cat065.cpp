// Category 065: status of a surveillance data processing system and its services.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {20, "Batch Number", {fixed<1>}},
    {30, "Time of Day", items::time_of_day},
    {40, "SDPS Configuration and Status", {fixed<1>}},
    {50, "Service Status Report"}, // known by name only
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory065, 65, "Unknown CAT065 Dataitem", kItems, ast_dataitem_065_get_name)
