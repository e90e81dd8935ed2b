// Category 065: status of a surveillance data processing system and its services.

#include "codec/category.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", {fixed<2>}},
    {15, "Service Identification", {fixed<1>}},
    {20, "Batch Number", {fixed<1>}},
    {30, "Time of Day", {fixed<3>}},
    {40, "SDPS Configuration and Status", {fixed<1>}},
    {50, "Service Status Report"}, // known by name only
    {AST_ITEM_REF, "Reserved Expansion Field", {explicit_length}},
    {AST_ITEM_SPF, "Special Purpose Field", {explicit_length}},
};

} // namespace

AST_DEFINE_CATEGORY(065, 65, kItems)
