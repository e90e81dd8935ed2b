// Category 240: radar video, in blocks of cell amplitudes per azimuth sector.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Video Record Header", {fixed<4>}},
    {30, "Video Summary", {repetitive<1>}},
    {40, "Video Header Nano", {fixed<12>}},
    {41, "Video Header Femto", {fixed<12>}},
    {48, "Video Cells Resolution & Data Compression Indicator", {fixed<2>}},
    {49, "Video Octets & Video Cells Counters", {fixed<5>}},
    {50, "Video Block Low Data Volume", {repetitive<4>}},
    {51, "Video Block Medium Data Volume", {repetitive<64>}},
    {52, "Video Block High Data Volume", {repetitive<256>}},
    {140, "Time of Day", items::time_of_day},
    // These two read as unknown items.
    {AST_ITEM_REF, nullptr, items::reserved_expansion_field},
    {AST_ITEM_SPF, nullptr, items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory240, 240, "Unknown CAT240 Dataitem", kItems, ast_dataitem_240_get_name)
