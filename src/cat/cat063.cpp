// Category 063: status of the sensors that feed a surveillance data processing system.

#include "items/items.hpp"

namespace {

using namespace ast;

// Rows without a size are known by name only: a record that carries one does not decode.
constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {30, "Time of Message", items::time_of_day},
    {50, "Sensor Identifier", items::data_source_identifier},
    {60, "Sensor Configuration and Status", {extended<2>}},
    {70, "Time Stamping Bias"},
    {80, "SSR/Mode S Range Gain and Bias"},
    {81, "SSR/Mode S Azimuth Bias"},
    {90, "PSR Range Gain and Bias"},
    {91, "PSR Azimuth Bias"},
    {92, "PSR Elevation Bias"},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory063, 63, "Unknown CAT063 Dataitem", kItems, ast_dataitem_063_get_name)
