// Category 034: service messages of one radar: north markers, sector crossings, configuration and status.

#include <iterator>

#include "codec/category.hpp"

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
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", {fixed<2>}},
    {20, "Sector Number", {fixed<1>}},
    {30, "Time of Day", {fixed<3>}},
    {41, "Antenna Rotation Period", {fixed<2>}},
    {50, "Station Configuration & Status", {ast_dataitem_034_050_get_size}, &kItem050},
    {60, "System Processing Mode", {ast_dataitem_034_060_get_size}, &kItem060},
    {70, "Message Count Values", {repetitive<2>}},
    {90, "Collimation Error", {fixed<2>}},
    {110, "Data Filter", {fixed<1>}},
    {120, "3D-Position Of Data Source", {fixed<8>}},
    {AST_ITEM_REF, "Reserved Expansion Field", {explicit_length}},
    {AST_ITEM_SPF, "Special Purpose Field", {explicit_length}},
};

} // namespace

AST_DEFINE_CATEGORY(034, 34, kItems)
