// Category 023: status and statistics of CNS/ATM ground stations.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Report Type", {fixed<1>}},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Type and Identification", {fixed<1>}},
    {70, "Time of Day", items::time_of_day},
    {100, "Ground Station Status", {extended<2>}},
    {101, "Ground Station Configuration", {extended<2>}},
    {110, "Service Status", {extended<1>}},
    {120, "Service Statistics", {repetitive<6>}},
    {200, "Operational Range"}, // known by name only
};

} // namespace

AST_DEFINE_CATEGORY(kCategory023, 23, "Unknown CAT023 Dataitem", kItems, ast_dataitem_023_get_name)
