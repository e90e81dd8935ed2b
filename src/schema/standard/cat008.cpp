// Category 008: Monoradar Derived Weather Information, edition 1.3.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "1:Polar vector|Cartesian vector of start point/length|Contour record|"
    "Cartesian start point and end point vector|254:SOP message|EOP message");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = extended("I020", "Vector Qualifier",
    part(code("ORG", "", 1, "Local Coordinates|System Coordinates"),
         integer("I", "Intensity Level", 3),
         code("S", "Shading Orientation with Respect to North", 3, "0°|22.5°|45°|67.5°|90°|112.5°|135°|157.5°")),
    part(spare(5),
         code("TST", "", 1, "Default|Test vector"),
         code("ER", "", 1, "Default|Error condition encountered")));

constexpr auto I034 = repetitive("I034", "Sequence of Polar Vectors in SPF Notation",
    group("", "",
        integer("STR", "Start Range", 8),
        integer("ENDR", "End Range", 8),
        quantity("AZ", "Azimuth", 16, {360, 1U << 16}, "°")));

constexpr auto I036 = repetitive("I036", "Sequence of Cartesian Vectors in SPF Notation",
    group("", "",
        signed_integer("X", "X-Component", 8),
        signed_integer("Y", "Y-Component", 8),
        integer("LENGTH", "Length", 8)));

constexpr auto I038 = repetitive("I038", "Sequence of Weather Vectors in SPF Notation",
    group("", "",
        signed_integer("X1", "X1-Component", 8),
        signed_integer("Y1", "Y1-Component", 8),
        signed_integer("X2", "X2-Component", 8),
        signed_integer("Y2", "Y2-Component", 8)));

constexpr auto I040 = group("I040", "Contour Identifier",
    code("ORG", "", 1, "Local Coordinates|System Coordinates"),
    raw("I", "Intensity Level", 3),
    spare(2),
    code("FSTLST", "", 2,
        "Intermediate record of a contour|Last record of a contour of at least two records|"
        "First record of a contour of at least two records|First and only record, fully defining a contour"),
    raw("CSN", "Contour Serial Number", 8));

constexpr auto I050 = repetitive("I050", "Sequence of Contour Points in SPF Notation",
    group("", "",
        signed_integer("X1", "", 8),
        signed_integer("Y1", "", 8)));

constexpr auto I090 = quantity("I090", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I100 = extended("I100", "Processing Status",
    part(signed_integer("F", "Scaling Factor", 5),
         raw("R", "Current Reduction Stage in Use", 3),
         raw("Q", "Processing Parameters", 15)));

constexpr auto I110 = chained("I110", "Station Configuration Status",
    raw("", "", 7));

constexpr auto I120 = integer("I120", "Total Number of Items Constituting One Weather Picture", 16);

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr auto RFS = random_field_sequencing();

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(20, I020), item(34, I034), item(36, I036), item(38, I038), item(40, I040),
    item(50, I050), item(90, I090), item(100, I100), item(110, I110), item(120, I120), item(AST_ITEM_RFS, RFS),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 20, 36, 34, 40, 50,
    90, 100, 110, 120, 38, AST_ITEM_SPF, AST_ITEM_RFS,
};

// clang-format on

} // namespace

constinit const Edition kCat008 = edition<kItems>(8, "1.3", "Monoradar Derived Weather Information", profile(kProfile));

} // namespace ast::schema
