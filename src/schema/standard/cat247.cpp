// Category 247: Version Number Exchange, edition 1.3.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I550 = repetitive("I550", "Category Version Number Report",
    group("", "",
        integer("CAT", "Category", 8),
        integer("MAIN", "Main Version Number", 8),
        integer("SUB", "Sub Version Number", 8)));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(10, I010), item(15, I015), item(140, I140), item(550, I550), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 15, 140, 550, kSpare, AST_ITEM_SPF, AST_ITEM_REF,
};

// clang-format on

} // namespace

constinit const Edition kCat247 = edition<kItems>(247, "1.3", "Version Number Exchange", profile(kProfile));

} // namespace ast::schema
