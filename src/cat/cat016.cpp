// Category 016: configuration reports of a multistatic surveillance system.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {140, "Time of Day", items::time_of_day},
    {200, "System Configuration Reporting Period", {fixed<1>}},
    {300, "Pair Identification", {repetitive<6>}},
    {400, "Position of System Reference Point", items::position_wgs84},
    {405, "Height of System Reference Point", {fixed<2>}},
    {410, "Transmitter Properties", {repetitive<21>}},
    {420, "Receiver Properties", {repetitive<12>}},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory016, 16, "Unknown CAT016 Dataitem", kItems, ast_dataitem_016_get_name)
