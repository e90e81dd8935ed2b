// Category 002: service messages of one radar, edition 1.2 and the layouts of three radar families.

#include "codec/category.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", {fixed<2>}},
    {20, "Sector Number", {fixed<1>}},
    {30, "Time of Day", {fixed<3>}},
    {41, "Antenna Rotation Speed", {fixed<2>}},
    {50, "Station Configuration Status", {variable<kUnlimitedOctets>}},
    {.number = 901, .name = "Station Configuration Status", .handlers = {variable<16>}, .variant_of = 50},
    {.number = 902, .name = "Station Configuration Status", .handlers = {variable<16>}, .variant_of = 50},
    {951, nullptr, {fixed<2>}},
    {AST_ITEM_RFS, "Random Field Sequencing", {explicit_length}},
    {AST_ITEM_SPF, "Special Purpose Field", {explicit_length}},
};

} // namespace

AST_DEFINE_CATEGORY(002, 2, kItems)
