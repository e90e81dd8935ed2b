// Category 004: safety net messages, alerts between and about aircraft.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr char kUnknownId[] = "--"; // two hyphens in this category

constexpr SubfieldRow kAreaDefinition[] = {
    {"AN", "Area Name", fixed<6>},
    {"CAN", "Crossing Area Name", fixed<7>},
    {"RT1", "Runway/Taxiway Designator 1", fixed<7>},
    {"RT2", "Runway/Taxiway Designator 2", fixed<7>},
    {"SB", "Stop Bar Designator", fixed<7>},
    {"G", "Gate Designator", fixed<7>},
};

constexpr SubfieldRow kConflictCharacteristics[] = {
    {"CN", "Conflict Nature", extended<3>},
    {"CC", "Conflict Classification", fixed<1>},
    {"CP", "Conflict Probability", fixed<1>},
    {"CD", "Conflict Duration", fixed<1>}, // one octet, although senders of later editions use three
};

constexpr SubfieldRow kAircraft1[] = {
    {"AI1", "Aircraft Identifier 1", fixed<7>},
    {"M31", "Mode 3/A Code Aircraft 1", fixed<2>},
    {"CPW1", "Predicted Conflict Position 1 (WGS84)", fixed<10>},
    {"CPC1", "Predicted Conflict Position 1 (Cartesian Coordinates)", fixed<8>},
    {"TT1", "Time to Threshold Aircraft 1", fixed<3>},
    {"DT1", "Distance to Threshold Aircraft 1", fixed<2>},
    {"AC1", "Aircraft Characteristics Aircraft 1", extended<2>},
    {"MS1", "Mode S Identifier Aircraft 1", fixed<6>},
    {"FP1", "Flight Plan Number Aircraft 1", fixed<4>},
    {"CF1", "Cleared Flight Level Aircraft 1", fixed<2>},
};

constexpr SubfieldRow kAircraft2[] = {
    {"AI2", "Aircraft Identifier 2", fixed<7>},
    {"M32", "Mode 3/A Code Aircraft 2", fixed<2>},
    {"CPW2", "Predicted Conflict Position 2 (WGS84)", fixed<10>},
    {"CPC2", "Predicted Conflict Position 2 (Cartesian Coordinates)", fixed<8>},
    {"TT2", "Time to Threshold Aircraft 2", fixed<3>},
    {"DT2", "Distance to Threshold Aircraft 2", fixed<2>},
    {"AC2", "Aircraft Characteristics Aircraft 2", extended<2>},
    {"MS2", "Mode S Identifier Aircraft 2", fixed<6>},
    {"FP2", "Flight Plan Number Aircraft 2", fixed<4>},
    {"CF2", "Cleared Flight Level Aircraft 2", fixed<2>},
};

} // namespace

AST_DEFINE_COMPOUND(kItem100, 4100, kAreaDefinition, ast_dataitem_004_100_get_size, ast_subfield_004_100_get_size,
                    ast_subfield_004_100_get_id, ast_subfield_004_100_get_name, nullptr, nullptr,
                    .unknown_id = kUnknownId)
AST_DEFINE_COMPOUND(kItem120, 4120, kConflictCharacteristics, ast_dataitem_004_120_get_size,
                    ast_subfield_004_120_get_size, ast_subfield_004_120_get_id, ast_subfield_004_120_get_name, nullptr,
                    nullptr, .unknown_id = kUnknownId)
AST_DEFINE_COMPOUND(kItem170, 4170, kAircraft1, ast_dataitem_004_170_get_size, ast_subfield_004_170_get_size,
                    ast_subfield_004_170_get_id, ast_subfield_004_170_get_name, nullptr, nullptr,
                    .unknown_id = kUnknownId)
AST_DEFINE_COMPOUND(kItem171, 4171, kAircraft2, ast_dataitem_004_171_get_size, ast_subfield_004_171_get_size,
                    ast_subfield_004_171_get_id, ast_subfield_004_171_get_name, nullptr, nullptr,
                    .unknown_id = kUnknownId)

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::message_type},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Time of Message", items::time_of_day},
    {30, "Track Number 1", items::track_number},
    {35, "Track Number 2", items::track_number},
    {40, "Alert Identifier", {fixed<2>}},
    {60, "Safety Net Function & System Status", {extended<6>}},
    items::compound("Area Definition", kItem100),
    items::compound("Conflict Characteristics", kItem120),
    items::compound("Aircraft Identification & Characteristics 1", kItem170),
    items::compound("Aircraft Identification & Characteristics 2", kItem171),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory004, 4, "Unknown CAT004 Dataitem", kItems, ast_dataitem_004_get_name,
                    .reports_unknown_names = true)
