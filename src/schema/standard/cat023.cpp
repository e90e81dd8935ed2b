// Category 023: CNS/ATM Ground Station and Service Status Reports, edition 1.3.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Report Type", 8, "1:Ground station status report|Service status report|Service statistics report");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = group("I015", "Service Type and Identification",
    raw("SID", "Service Identification", 4),
    code("STYP", "Type of Service", 4,
        "1:ADS-B VDL4|ADS-B Ext Squitter|ADS-B UAT|TIS-B VDL4|TIS-B Ext Squitter|TIS-B UAT|FIS-B VDL4|GRAS VDL4|"
        "MLT"));

constexpr auto I070 = quantity("I070", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I100 = extended("I100", "Ground Station Status",
    part(code("NOGO", "Operational Release Status of the Data", 1,
             "Data is released for operational use|Data must not be used operationally"),
         code("ODP", "Data Processor Overload Indicator", 1, "Default, no overload|Overload in DP"),
         code("OXT", "Ground Interface Data Communications Overload", 1,
             "Default, no overload|Overload in transmission subsystem"),
         code("MSC", "Monitoring System Connected Status", 1,
             "Monitoring system not connected or unknown|Monitoring system connected"),
         code("TSV", "Time Source Validity", 1, "Valid|Invalid"),
         code("SPO", "Indication of Spoofing Attack", 1, "No spoofing detected|Potential spoofing attack"),
         code("RN", "Renumbering Indication for Track ID", 1, "Default|Track numbering has restarted")),
    part(quantity("GSSP", "Ground Station Status Reporting Period", 7, {1, 1}, "s")));

constexpr auto I101 = extended("I101", "Service Configuration",
    part(quantity("RP", "Report Period for Category 021 Reports", 8, {1, 2}, "s"),
         code("SC", "Service Class", 3,
             "No information|NRA class|Reserved for future use|Reserved for future use|Reserved for future use|"
             "Reserved for future use|Reserved for future use|Reserved for future use"),
         spare(4)),
    part(quantity("SSRP", "Service Status Reporting Period", 7, {1, 1}, "s")));

constexpr auto I110 = extended("I110", "Service Status",
    part(spare(4),
         code("STAT", "Status of the Service", 3, "Unknown|Failed|Disabled|Degraded|Normal|Initialisation")));

constexpr auto I120 = repetitive("I120", "Service Statistics",
    group("", "",
        code("TYPE", "Type of Report Counter", 8,
            "Number of unknown messages received|Number of too old messages received|"
            "Number of failed message conversions|Total Number of messages received|"
            "Total Number of messages transmitted|20:Number of TIS-B management messages received|"
            "Number of Basic messages received|Number of High Dynamic messages received|"
            "Number of Full Position messages received|Number of Basic Ground  messages received|"
            "Number of TCP messages received|Number of UTC time  messages received|"
            "Number of Data messages received|Number of High Resolution messages received|"
            "Number of Aircraft Target Airborne messages received|"
            "Number of Aircraft Target Ground messages received|"
            "Number of Ground Vehicle Target messages received|Number of 2 slots TCP messages received"),
        code("REF", "Reference from which the Messages Are Countered", 1, "From midnight|From the last report"),
        spare(7),
        raw("CV", "32-bit Counter Value", 32)));

constexpr auto I200 = quantity("I200", "Operational Range", 8, {1, 1}, "NM");

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(70, I070), item(100, I100), item(101, I101), item(110, I110),
    item(120, I120), item(200, I200), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 15, 70, 100, 101, 200,
    110, 120, kSpare, kSpare, kSpare, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat023 =
    edition<kItems>(23, "1.3", "CNS/ATM Ground Station and Service Status Reports", profile(kProfile));

} // namespace ast::schema
