// Category 065: SDPS Service Status Reports, edition 1.6.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8, "1:SDPS Status|End of Batch|Service Status Report");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I020 = integer("I020", "Batch Number", 8);

constexpr auto I030 = quantity("I030", "Time of Message", 24, {1, 1U << 7}, "s");

constexpr auto I040 = group("I040", "SDPS Configuration and Status",
    code("NOGO", "", 2, "Operational|Degraded|Not currently connected|Unknown"),
    code("OVL", "", 1, "Default|Overload"),
    code("TSV", "", 1, "Default|Invalid Time Source"),
    code("PSS", "Processing System Status", 2, "Not applicable|SDPS-1 selected|SDPS-2 selected|SDPS-3 selected"),
    raw("STTN", "Track Re-numbering Indication", 1),
    spare(1));

constexpr auto I050 = code("I050", "Service Status Report", 8,
    "1:Service degradation|Service degradation ended|Main radar out of service|"
    "Service interrupted by the operator|Service interrupted due to contingency|"
    "Ready for service restart after contingency|Service ended by the operator|Failure of user main radar|"
    "Service restarted by the operator|Main radar becoming operational|Main radar becoming degraded|"
    "Service continuity interrupted due to disconnection with adjacent unit|Service continuity restarted|"
    "Service synchronised on backup radar|Service synchronised on main radar|"
    "Main and backup radar, if any, failed");

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(20, I020), item(30, I030), item(40, I040), item(50, I050),
    item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 15, 30, 20, 40, 50,
    kSpare, kSpare, kSpare, kSpare, kSpare, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat065 = edition<kItems>(65, "1.6", "SDPS Service Status Reports", profile(kProfile));

} // namespace ast::schema
