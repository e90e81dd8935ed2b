// Category 025: CNS/ATM Ground System Status Reports, edition 1.6.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = group("I000", "Report Type",
    raw("RTYP", "Report Type", 7),
    code("RG", "Report Generation", 1, "Periodic Report|Event Driven Report"));

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I020 = icao("I020", "Service Designator", 48);

constexpr auto I070 = quantity("I070", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I100 = extended("I100", "System and Service Status",
    part(code("NOGO", "", 1, "Data is released for operational use|Data must not be used operationally"),
         code("OPS", "", 2, "Operational|Operational but in Standby|Maintenance|Reserved for future use"),
         code("SSTAT", "", 4,
             "Running|Failed|Degraded|Undefined|Reserved for future use|Reserved for future use|"
             "Reserved for future use|Reserved for future use|Reserved for future use|Reserved for future use|"
             "Reserved for future use|Reserved for future use|Reserved for future use|Reserved for future use|"
             "Reserved for future use|Reserved for future use")),
    part(spare(1),
         code("SYSTAT", "", 3,
             "Running / OK|Failed|Degraded|Undefined|Reserved for future use|Reserved for future use|"
             "Reserved for future use|Reserved for future use"),
         code("SESTAT", "", 3,
             "OK|Failed|Degraded|Undefined|Reserved for future use|Reserved for future use|"
             "Reserved for future use|Reserved for future use")));

constexpr auto I105 = repetitive("I105", "System and Service Error Codes",
    code("", "", 8,
        "No error detected (shall not be sent)|Error Code Undefined|Time Source Invalid|Time Source Coasting|"
        "Track ID numbering has restarted|Data Processor Overload|Ground Interface Data Communications Overload|"
        "System stopped by operator|CBIT failed|Test Target Failure|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
        "Reserved for allocation by the AMG|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
        "Reserved for allocation by system manufacturers"));

constexpr auto I120 = repetitive("I120", "Component Status",
    group("", "",
        raw("CID", "Component ID", 16),
        code("ERRC", "Error Code", 6,
            "No Error Detected|Error Code Undefined|Alert|Alarm|Reserved for allocation by the AMG|"
            "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
            "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
            "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
            "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
            "Reserved for allocation by the AMG|Reserved for allocation by the AMG|"
            "Reserved for allocation by the AMG|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers|Reserved for allocation by system manufacturers|"
            "Reserved for allocation by system manufacturers"),
        code("CS", "Component State/Mode", 2, "Running|Failed|Maintenance|Reserved")));

constexpr auto I140 = repetitive("I140", "Service Statistics",
    group("", "",
        code("TYPE", "Type of Report Counter", 8,
            "Number of unknown messages received|Number of too old messages received|"
            "Number of failed message conversions|Total Number of messages received|"
            "Total number of messages transmitted|Reserved for AMG|Reserved for AMG|Reserved for AMG|"
            "Reserved for AMG|Reserved for AMG|Reserved for AMG|Reserved for AMG|Reserved for AMG|"
            "Reserved for AMG|Reserved for AMG|Reserved for AMG|Reserved for AMG|Reserved for AMG|"
            "Reserved for AMG|Reserved for AMG|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific|Implementation specific|Implementation specific|"
            "Implementation specific|Implementation specific"),
        code("REF", "Reference from which the Messages Are Counted", 1, "From UTC midnight|From the previous report"),
        spare(7),
        integer("COUNT", "Counter Value", 32)));

constexpr auto I200 = integer("I200", "Message Identification", 24);

constexpr auto I600 = group("I600", "Position of the System Reference Point",
    signed_quantity("LAT", "Latitude", 32, {180, uint64_t{1} << 32}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 31}, "°"));

constexpr auto I610 = signed_quantity("I610", "Height of the System Reference Point", 16, {1, 1U << 2}, "m");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(20, I020), item(70, I070), item(100, I100), item(105, I105),
    item(120, I120), item(140, I140), item(200, I200), item(600, I600), item(610, I610), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 200, 15, 20, 70, 100,
    105, 120, 140, AST_ITEM_SPF, 600, 610,
};

// clang-format on

} // namespace

constinit const Edition kCat025 = edition<kItems>(25, "1.6", "CNS/ATM Ground System Status Reports", profile(kProfile));

} // namespace ast::schema
