// Category 004: safety net messages, alerts between and about aircraft.

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/characters.hpp"
#include "items/compound.hpp"
#include "items/items.hpp"
#include "items/message_type.hpp"
#include "items/units.hpp"

using namespace ast;

// ---- The safety net functions, as message types and as what a server has in operation ----

namespace {

struct SafetyNetFunction {
    uint32_t code;
    const char *id;
    const char *name;
};

constexpr SafetyNetFunction kUndefinedFunction = {0, "UNDEFINED", "UNDEFINED"};

constexpr SafetyNetFunction kFunctions[] = {
    {1, "ALIVE", "Alive Message"},
    {2, "RAMLD", "Route Adherence Monitor Longitudinal Deviation"},
    {3, "RAMHD", "Route Adherence Monitor Heading Deviation"},
    {4, "MSAW", "Minimum Safe Altitude Warning"},
    {5, "APW", "Area Proximity Warning"},
    {6, "CLAM", "Clearance Level Adherence Monitor"},
    {7, "STCA", "Short Term Conflict Alert"},
    {8, "APM", "Approach Path Monitor"},
    {9, "ALM", "RIMCAS Arrival / Landing Monitor"},
    {10, "WRA", "RIMCAS Arrival / Departure Wrong Runway Alert"},
    {11, "OTA", "RIMCAS Arrival / Departure Opposite Traffic Alert"},
    {12, "RDM", "RIMCAS Departure Monitor"},
    {13, "RCM", "RIMCAS Runway / Taxiway Crossing Monitor"},
    {14, "TSM", "RIMCAS Taxiway Separation Monitor"},
    {15, "UTMM", "RIMCAS Unauthorized Taxiway Movement Monitor"},
    {16, "SBOA", "RIMCAS Stop Bar Overrun Alert"},
    {17, "EOC", "End Of Conflict"},
    {18, "ACASRA", "ACAS Resolution Advisory"},
    {19, "NTCA", "Near Term Conflict Alert"},
    {20, "DBPSM", "Downlinked Barometric Pressure Setting Monitor"},
    {21, "SAM", "Speed Adherence Monitor"},
    {22, "OCAT", "Outside Controlled Airspace Tool"},
    {23, "VCD", "Vertical Conflict Detection"},
    {24, "VRAM", "Vertical Rate Adherence Monitor"},
    {25, "CHAM", "Cleared Heading Adherence Monitor"},
    {26, "DSAM", "Downlinked Selected Altitude Monitor"},
    {27, "HAM", "Holding Adherence Monitor"},
    {28, "VPM", "Vertical Path Monitor"},
    {29, "TTA", "RIMCAS Taxiway Traffic Alert"},
    {30, "CRA", "RIMCAS Arrival/Departure Close Runway Alert"},
    {31, "ASM", "RIMCAS Arrival/Departure Aircraft Separation Monitor"},
    {32, "IAVM", "RIMCAS ILS Area Violation Monitor"},
    {33, "FTD", "Final Target Distance Indicator"},
    {34, "ITD", "Initial Target Distance Indicator"},
    {35, "IIA", "Wake Vortex Indicator Infringement Alert"},
    {36, "SQW", "Sequence Warning"},
    {37, "CUW", "Catch Up Warning"},
    {97, "LTW", "Lost Track Warning"},
    {98, "HVI", "Holding Volume Infringement"},
    {99, "AIW", "Airspace Infringement Warning"},
    {201, "MRVA", "Minimum Radar Vectoring Altitude Infringement"}, // no message of its own; only I004/060 has it
};

const SafetyNetFunction &find_function(uint32_t code) {
    const auto *const found = std::ranges::find(kFunctions, code, &SafetyNetFunction::code);
    return found == std::end(kFunctions) ? kUndefinedFunction : *found;
}

} // namespace

const char *ast_snet_message_type_get_id(uint32_t code) { return find_function(code).id; }
const char *ast_snet_message_type_get_name(uint32_t code) { return find_function(code).name; }

// ---- I004/000 Message Type ----

struct I004_000 : MessageType<4000> {
    static void summarize(TextWriter &out, const Value &type) {
        out.append("MSG_TYPE:");
        out.append(find_function(type.value).id);
    }

    static void show(ViewWriter &view, const Value &type) {
        const SafetyNetFunction &function = find_function(type.value);
        view.paragraph("Message type: ", function.name, " (", function.id, ")");
    }
};

AST_DEFINE_VIEWS(I004_000, ast_dataitem_004_000_get_summary, ast_dataitem_004_000_get_detail_html)

// ---- I004/040 Alert Identifier ----

struct I004_040 : Item<4040, ast_dataitem_004_040_t, fixed<2>> {
    static bool accepts(const ast_dataitem_t &item) { return item.size == kSize.octets; } // whatever its type

    static constexpr Row<Value> kRows[] = {{&Value::value, 16}};

    static void summarize(TextWriter &out, const Value &alert) { out.print("ALERT_ID:%04u", alert.value); }
};

AST_DEFINE_SUMMARIZED_ITEM(I004_040, ast_dataitem_004_040)
AST_DEFINE_ENCODE(I004_040, ast_dataitem_004_040_encode)

// ---- I004/060 Safety Net Function & System Status ----

struct I004_060 : Item<4060, ast_dataitem_004_060_t, extended<6>> {
    static bool accepts(const ast_dataitem_t &item) {
        return item.type == kType && item.size >= 1 && item.size <= kSize.octets;
    }

    // The first octet alone is read, although every octet counts.
    static void read(Value &status, const ast_dataitem_t &item) {
        static constexpr uint32_t kCodes[AST_004_060_FUNCTIONS] = {201, 2, 3, 4, 5, 6, 7}; // bits 8 to 2
        status.function_count = static_cast<uint32_t>(item.size) * AST_004_060_FUNCTIONS;
        for (unsigned i = 0; i < AST_004_060_FUNCTIONS; ++i)
            status.functions[i] = {.code = kCodes[i], .status = bit(item.data[0], 8 - i)};
        if (item.size > 1)
            ast_log(AST_LOG_DEBUG, "Unimplemented octects detected in I004/060"); // known with this spelling
    }

    static void summarize(TextWriter &out, const Value &status) {
        const auto in_operation = std::ranges::count_if(status.functions, [](const auto &each) { return each.status; });
        out.print("FUNCTIONS:%d", static_cast<int>(in_operation));
    }

    static void show(ViewWriter &view, const Value &status) {
        DetailTable table(view, "Function", "Name", "Status");
        for (const auto &function : status.functions)
            table.row(Cell<4>("%u", function.code), find_function(function.code).name, Cell<2>("%d", function.status));
    }
};

AST_DEFINE_ITEM(I004_060, ast_dataitem_004_060)

// ---- I004/100 Area Definition ----

namespace {

constexpr char kUnknownId[] = "--"; // two hyphens in this category

using Area = ast_dataitem_004_100_t;

struct AreaName {
    using Value = decltype(Area::an);
    static void read(Value &an, const uint8_t *octets) { read_identity(an.text, octets); }
    static void summarize(TextWriter &out, const Value &an) { out.print("AN:%s", an.text); }
};

constexpr SubfieldRow kAreaDefinition[] = {
    subfield<&Area::an, AreaName>("AN", "Area Name", fixed<6>),
    {"CAN", "Crossing Area Name", fixed<7>},
    {"RT1", "Runway/Taxiway Designator 1", fixed<7>},
    {"RT2", "Runway/Taxiway Designator 2", fixed<7>},
    {"SB", "Stop Bar Designator", fixed<7>},
    {"G", "Gate Designator", fixed<7>},
};

} // namespace

AST_DEFINE_COMPOUND(kItem100, 4100, kAreaDefinition, ast_dataitem_004_100_get_size, ast_subfield_004_100_get_size,
                    ast_subfield_004_100_get_id, ast_subfield_004_100_get_name, ast_subfield_004_100_get_summary,
                    ast_subfield_004_100_get_detail_html, .unknown_id = kUnknownId, .shows_subfields = false,
                    .summarizes_unknown_subfields = true)
AST_DEFINE_COMPOUND_DECODE(kItem100, kAreaDefinition, Area, ast_dataitem_004_100_decode)
AST_DEFINE_SUBFIELD_SUMMARY(kItem100, ast_subfield_004_100_get_summary)
AST_DEFINE_EMPTY_SUBFIELD_VIEW(ast_subfield_004_100_get_detail_html)

// ---- I004/120 Conflict Characteristics ----

namespace {

using Conflict = ast_dataitem_004_120_t;

struct Classification {
    using Value = decltype(Conflict::cc);
    static constexpr Row<Value> kRows[] = {{&Value::table, 4}, {&Value::property, 3}, {&Value::criticality}};

    static void summarize(TextWriter &out, const Value &cc) {
        out.print("TAB:%u PROP:%u CS:%s", cc.table, cc.property, cc.criticality ? "HIGH" : "LOW");
    }
};

constexpr SubfieldRow kConflictCharacteristics[] = {
    {"CN", "Conflict Nature", extended<3>},
    subfield<&Conflict::cc, Classification>("CC", "Conflict Classification", fixed<1>),
    {"CP", "Conflict Probability", fixed<1>},
    {"CD", "Conflict Duration", disputed(fixed<1>)}, // one octet, although senders of later editions use three
};

AST_DEFINE_EMPTY_SUBFIELD_VIEW(show_conflict_subfield)

} // namespace

AST_DEFINE_COMPOUND(kItem120, 4120, kConflictCharacteristics, ast_dataitem_004_120_get_size,
                    ast_subfield_004_120_get_size, ast_subfield_004_120_get_id, ast_subfield_004_120_get_name,
                    ast_subfield_004_120_get_summary, show_conflict_subfield, .unknown_id = kUnknownId,
                    .shows_subfields = false, .summarizes_unknown_subfields = true)
AST_DEFINE_COMPOUND_DECODE(kItem120, kConflictCharacteristics, Conflict, ast_dataitem_004_120_decode)
AST_DEFINE_SUBFIELD_SUMMARY(kItem120, ast_subfield_004_120_get_summary)

// ---- I004/170 and I004/171 Aircraft Identification & Characteristics ----

namespace {

using Aircraft1 = ast_dataitem_004_170_t;
using Aircraft2 = ast_dataitem_004_171_t;

template <typename Code>
struct AircraftCode {
    using Value = Code;
    static constexpr Row<Value> kRows[] = {spare(4), {&Value::code, 12}};
    static void summarize(TextWriter &out, const Value &code) { out.print("MODE_3/A:%04o", code.code); }
};

constexpr SubfieldRow kAircraft1[] = {
    {"AI1", "Aircraft Identifier 1", fixed<7>},
    subfield<&Aircraft1::m31, AircraftCode<decltype(Aircraft1::m31)>>("M31", "Mode 3/A Code Aircraft 1", fixed<2>),
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
    subfield<&Aircraft2::m32, AircraftCode<decltype(Aircraft2::m32)>>("M32", "Mode 3/A Code Aircraft 2", fixed<2>),
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

// The views of the whole items do not show the codes: who wants one asks the first item's own function.
AST_DEFINE_COMPOUND(kItem170, 4170, kAircraft1, ast_dataitem_004_170_get_size, ast_subfield_004_170_get_size,
                    ast_subfield_004_170_get_id, ast_subfield_004_170_get_name, nullptr, nullptr,
                    .unknown_id = kUnknownId, .summarizes_unknown_subfields = true)
AST_DEFINE_COMPOUND_DECODE(kItem170, kAircraft1, Aircraft1, ast_dataitem_004_170_decode)
AST_DEFINE_SUBFIELD_SUMMARY(kItem170, ast_subfield_004_170_get_summary)

AST_DEFINE_COMPOUND(kItem171, 4171, kAircraft2, ast_dataitem_004_171_get_size, ast_subfield_004_171_get_size,
                    ast_subfield_004_171_get_id, ast_subfield_004_171_get_name, nullptr, nullptr,
                    .unknown_id = kUnknownId)

namespace {

AST_DEFINE_COMPOUND_DECODE(kItem171, kAircraft2, Aircraft2, decode_aircraft_2)

} // namespace

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_004_t;

constexpr FlatMember<Flat> kMembers[] = {
    taken_apart<&Flat::message_type, ast_dataitem_message_type_decode>(4000),
    taken_apart<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(4010),
    taken_apart<&Flat::time_of_message, ast_dataitem_time_of_day_decode>(4020),
    taken_apart<&Flat::track_number_1, ast_dataitem_track_number_decode>(4030),
    taken_apart<&Flat::track_number_2, ast_dataitem_track_number_decode>(4035),
    taken_apart<&Flat::alert_identifier, I004_040>(),
    taken_apart<&Flat::function_status, I004_060>(),
    taken_apart<&Flat::area_definition, ast_dataitem_004_100_decode>(4100),
    taken_apart<&Flat::conflict_characteristics, ast_dataitem_004_120_decode>(4120),
    taken_apart<&Flat::aircraft_1, ast_dataitem_004_170_decode>(4170),
    taken_apart<&Flat::aircraft_2, decode_aircraft_2>(4171),
};

} // namespace

ast_datarecord_004_t *ast_datarecord_004_disassemble(ast_datarecord_004_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 4, kMembers, report_quietly);
}

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0,
     "Message Type",
     {fixed<1>, ast_dataitem_004_000_get_summary, kDetailOf<I004_000>, ast_dataitem_message_type_encode}},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Time of Message", items::time_of_day},
    {30, "Track Number 1", items::track_number},
    {35, "Track Number 2", items::track_number},
    own<I004_040>("Alert Identifier"),
    own<I004_060>("Safety Net Function & System Status"),
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
