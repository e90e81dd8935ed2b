// Category 034: service messages of one radar: north markers, sector crossings, configuration and status.

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/compound.hpp"
#include "items/message_type.hpp"
#include "view/position.hpp"

using namespace ast;

// ---- I034/000 Message Type ----

struct I034_000 : MessageType<34000> {
    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED", "NORTH_MARKER", "SECTOR_CROSSING", "GEO_FILTERING",
                                                 "JAMMING_STROBE"};
        write_message_type(out, kTypes, type.value);
    }
};

AST_DEFINE_SUMMARY(I034_000, ast_dataitem_034_000_get_summary)

// ---- I034/050 Station Configuration & Status ----

namespace {

using Status = ast_dataitem_034_050_t;

constexpr SubfieldRow kSpare = {kNoSubfieldId, "Spare", fixed<0>};

struct CommonStatus {
    using Value = decltype(Status::com);
    static constexpr Columns kColumns = kBitColumns;
    static constexpr Row<Value> kRows[] = {
        {&Value::nogo, "OPERATIONAL_RELEASE_STATUS", {"OPERATIONAL", "NOGO!"}},
        {&Value::rdpc, kFirstOrSecond, "CHANNEL_SELECTION", {"CHANNEL_1", "CHANNEL_2"}},
        {&Value::rdpr, "RDP_RESTART", {"NO", "YES"}},
        {&Value::ovl_rdp, "RDP_OVERLOAD", {"NO", "YES"}},
        {&Value::ovl_xmt, "TRANSMISSION_SUBSYSTEM_OVERLOAD", {"NO", "YES"}},
        {&Value::msc, kInverted, "MONITORING_SYSTEM_STATUS", {"CONNECTED", "DISCONNECTED"}},
        {&Value::time_valid, kInverted, "TIME_SOURCE_STATUS", {"VALID", "INVALID"}},
        spare(1, ""),
    };

    static void summarize(TextWriter &out, const Value &com) { out.print("CHN%u", com.rdpc); }
};

struct SsrStatus {
    using Value = decltype(Status::ssr);
    // Viewers know the texts with this spelling.
    static constexpr const char *kChannels[] = {"NO_CHANNLE", "CHANNLE_A_ONLY", "CHANNLE_B_ONLY",
                                                "INVALID_COMBINATION"};

    static constexpr Columns kColumns = kBitColumns;
    static constexpr Row<Value> kRows[] = {
        {&Value::ant, kFirstOrSecond, "SELECTED_ANTENNA", {"ANTENNA_1", "ANTENNA_2"}},
        {&Value::ch_ab, 2, "CHANNEL_SELECTION", kChannels},
        {&Value::ovl, "OVERLOAD", {"NO", "YES"}},
        {&Value::msc, kInverted, "MONITORING_SYSTEM_STATUS", {"CONNECTED", "DISCONNECTED"}},
        spare(3, ""),
    };

    static void summarize(TextWriter &out, const Value &ssr) {
        static constexpr const char *kChannelWords[] = {"CHN_NO", "CHN1", "CHN2", "CHN_INVALID"};
        out.print("ANT%u %s", ssr.ant, kChannelWords[ssr.ch_ab]);
    }
};

constexpr SubfieldRow kStationStatus[] = {
    subfield<&Status::com, CommonStatus>("COM", "Common Elements of System", fixed<1>),
    kSpare,
    kSpare,
    {"PSR", "PSR Sensor Specific Status Information", fixed<1>},
    subfield<&Status::ssr, SsrStatus>("SSR", "SSR Sensor Specific Status Information", fixed<1>),
    {"MDS", "MODE-S Sensor Specific Status Information", fixed<2>},
    kSpare,
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem050, 34050, kStationStatus, Status, 034_050)

// ---- I034/060 System Processing Mode ----

namespace {

using Mode = ast_dataitem_034_060_t;

constexpr const char *kReductions[] = {
    "NO_REDUCTION_ACTIVE",    "REDUCTION_STEP1_ACTIVE", "REDUCTION_STEP2_ACTIVE", "REDUCTION_STEP3_ACTIVE",
    "REDUCTION_STEP4_ACTIVE", "REDUCTION_STEP5_ACTIVE", "REDUCTION_STEP6_ACTIVE", "REDUCTION_STEP7_ACTIVE",
};

struct CommonMode {
    using Value = decltype(Mode::com);
    static constexpr Columns kColumns = kBitColumns;
    static constexpr Row<Value> kRows[] = {
        spare(1, ""),
        {&Value::red_rdp, 3, "RED-REP", kReductions},
        {&Value::red_xmt, 3, "RED-XMT", kReductions},
        spare(1, ""),
    };

    static void summarize(TextWriter &out, const Value &com) {
        out.print("RED-RAD:%u RED-XMP:%u", com.red_rdp, com.red_xmt); // labels known so
    }
};

struct PsrMode {
    using Value = decltype(Mode::psr);
    static constexpr Row<Value> kRows[] = {{&Value::pol}, {&Value::red_rad, 3}, {&Value::stc, 2}, spare(2)};
};

struct SsrMode {
    using Value = decltype(Mode::ssr);
    static constexpr Row<Value> kRows[] = {{&Value::red_rad, 3}, spare(5)};
};

struct ModeSMode {
    using Value = decltype(Mode::mds);
    static constexpr Row<Value> kRows[] = {{&Value::red_rad, 3}, {&Value::clu_autonomous, kInverted}, spare(4)};
};

constexpr SubfieldRow kProcessingMode[] = {
    subfield<&Mode::com, CommonMode>("COM", "Common Elements of System", fixed<1>),
    kSpare,
    kSpare,
    subfield<&Mode::psr, PsrMode>("PSR", "PSR Sensor Specific Processing Mode", fixed<1>),
    subfield<&Mode::ssr, SsrMode>("SSR", "SSR Sensor Specific Processing Mode", fixed<1>),
    subfield<&Mode::mds, ModeSMode>("MDS", "Mode S Sensor Specific Processing Mode", fixed<1>),
    kSpare,
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem060, 34060, kProcessingMode, Mode, 034_060)

// ---- I034/070 Message Count Values ----

struct I034_070 : Item<34070, ast_dataitem_034_070_t, repetitive<2>> {
    // Visits (type, value) of each counter of the item, as many as it carries.
    template <typename Visitor>
    static void each_counter(const ast_dataitem_t &item, Visitor visit) {
        for (uint64_t offset = 1; offset < item.size; offset += kSize.octets)
            visit(field(item.data + offset, 1, 5), field(item.data + offset, 6, 16));
    }

    static bool read(Value &counts, const ast_dataitem_t &item) {
        if (item.size != 1 + uint64_t{kSize.octets} * item.data[0]) return false;
        uint64_t held = 0;
        each_counter(item, [&](uint32_t typ, uint32_t value) {
            if (held < std::size(counts.counters)) counts.counters[held++] = {.typ = typ, .value = value};
        });
        counts.count = item.data[0];
        return true;
    }

    static void summarize(TextWriter &out, const Value &counts) { out.print("COUNTERS:%u", counts.count); }

    static void show(ViewWriter &view, const Value &counts, const ast_dataitem_t &item) {
        static constexpr const char *kTypes[] = {
            "NO_DETECTION",
            "SINGLE_PSR",
            "SINGLE_SSR_NON_MODE-S",
            "SSR+PSR_NON_MODE-S",
            "SINGLE_ALL_CALL_MODE-S",
            "SINGLE_ROLL_CALL_MODE-S",
            "ALL_CALL+PSR_MODE-S",
            "ROLL_CALL+PSR_MODE-S",
            "FILTER_WEATHER_DATA",
            "FILTER_JAMMING_STROBE",
            "FILTER_PSR",
            "FILTER_SSR",
            "FILTER_SSR/MODE-S_PSR",
            "FILTER_EHS",
            "FILTER_PSR_EHS",
            "FILTER_PSR_EHS_SSR/MODE-S_NOT_IN_AOI", // shown as far as the cell goes
            "FILTER_PSR_EHS_SSR/MODE-S_",
        };
        if (counts.count == 0) return;
        DetailTable table(view, "Type", "Value");
        each_counter(item, [&](uint32_t typ, uint32_t value) {
            table.row(Cell<31>("%s", text_of(kTypes, typ, "UNDEFINED_COUNTER_TYPE")), Cell<10>("%u", value));
        });
    }
};

AST_DEFINE_ITEM(I034_070, ast_dataitem_034_070)

// ---- I034/120 3D-Position Of Data Source ----

struct I034_120 : Item<34120, ast_dataitem_034_120_t, fixed<8>> {
    static constexpr double kLsbDeg = 180.0 / (1 << 23);
    static constexpr Bits kAngle = {24, Sign::MagnitudeLessMaximum};
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::height_raw, kSigned16, {}, {&Value::height_m, 1}),
        quantity(&Value::latitude_raw, kAngle, {}, {&Value::latitude_deg, kLsbDeg}),
        quantity(&Value::longitude_raw, kAngle, {}, {&Value::longitude_deg, kLsbDeg}),
    };

    static void summarize(TextWriter &out, const Value &position) {
        out.print("H:%.0f WGS84:%s", position.height_m,
                  ast_latlong_to_str(position.latitude_deg, position.longitude_deg));
    }

    static void show(ViewWriter &view, const Value &position) {
        constexpr char kOctets[] = "Octet[3-8]";
        DetailTable table(view, "Octet", "Item", "Value");
        table.row("Octet[1-2]", "HEIGHT (LSB=M)", Cell<512>("%f", position.height_m));
        write_position_texts(table, kOctets, position.latitude_deg, position.longitude_deg);
        table.row(kOctets, kWgs84Item, Cell<512>("%02.6f, %03.6f", position.latitude_deg, position.longitude_deg));
        write_map_links(table, kOctets, position.latitude_deg, position.longitude_deg);
    }
};

AST_DEFINE_ITEM(I034_120, ast_dataitem_034_120)

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_034_t;

constexpr FlatMember<Flat> kMembers[] = {
    both_ways<&Flat::message_type, ast_dataitem_message_type_decode>(34000),
    both_ways<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(34010),
    both_ways<&Flat::sector, ast_dataitem_sector_number_decode>(34020),
    both_ways<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(34030),
    both_ways<&Flat::antenna_rotation_period, ast_dataitem_antenna_rotation_period_decode>(34041),
    taken_apart<&Flat::station_status, ast_dataitem_034_050_decode>(34050),
    taken_apart<&Flat::processing_mode, ast_dataitem_034_060_decode>(34060),
    taken_apart<&Flat::message_counts, I034_070>(),
};

} // namespace

ast_datarecord_034_t ast_datarecord_034_disassemble(const ast_datarecord_t *record) {
    return disassembled(record, 34, kMembers, report_as_warning);
}

ast_datarecord_t ast_datarecord_034_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_034_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 34, uap, kMembers);
}

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_034_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Sector Number", items::sector_number},
    {30, "Time of Day", items::time_of_day},
    {41, "Antenna Rotation Period", items::antenna_rotation_period},
    items::compound("Station Configuration & Status", kItem050),
    items::compound("System Processing Mode", kItem060),
    own<I034_070>("Message Count Values"),
    {90, "Collimation Error", {fixed<2>}},
    {110, "Data Filter", {fixed<1>}},
    own<I034_120>("3D-Position Of Data Source"),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory034, 34, "Unknown CAT034 Dataitem", kItems, ast_dataitem_034_get_name)
