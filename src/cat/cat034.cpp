// Category 034: service messages of one radar: north markers, sector crossings, configuration and status.

#include <iterator>

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kSpare = {kNoSubfieldId, "Spare", octets(0)};

constexpr SubfieldRow kStationStatus[] = {
    {"COM", "Common Elements of System", octets(1)},
    kSpare,
    kSpare,
    {"PSR", "PSR Sensor Specific Status Information", octets(1)},
    {"SSR", "SSR Sensor Specific Status Information", octets(1)},
    {"MDS", "MODE-S Sensor Specific Status Information", octets(2)},
    kSpare,
};

constexpr SubfieldRow kProcessingMode[] = {
    {"COM", "Common Elements of System", octets(1)},
    kSpare,
    kSpare,
    {"PSR", "PSR Sensor Specific Processing Mode", octets(1)},
    {"SSR", "SSR Sensor Specific Processing Mode", octets(1)},
    {"MDS", "Mode S Sensor Specific Processing Mode", octets(1)},
    kSpare,
};

} // namespace

AST_DEFINE_COMPOUND(kItem050, 034_050, kStationStatus)
AST_DEFINE_COMPOUND(kItem060, 034_060, kProcessingMode)

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Sector Number", items::sector_number},
    {30, "Time of Day", items::time_of_day},
    {41, "Antenna Rotation Period", items::antenna_rotation_period},
    {50, "Station Configuration & Status", items::compound(ast_dataitem_034_050_get_size), &kItem050},
    {60, "System Processing Mode", items::compound(ast_dataitem_034_060_get_size), &kItem060},
    {70, "Message Count Values", {repetitive<2>}},
    {90, "Collimation Error", {fixed<2>}},
    {110, "Data Filter", {fixed<1>}},
    {120, "3D-Position Of Data Source", {fixed<8>}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(034, 34, kItems)
