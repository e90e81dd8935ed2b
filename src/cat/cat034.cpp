// Category 034: service messages of one radar: north markers, sector crossings, configuration and status.

#include <iterator>

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/items.hpp"
#include "items/value.hpp"
#include "view/position.hpp"

using namespace ast;

// ---- I034/000 Message Type ----

void ast_dataitem_034_000_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kTypes[] = {"UNDEFINED", "NORTH_MARKER", "SECTOR_CROSSING", "GEO_FILTERING",
                                             "JAMMING_STROBE"};
    TextWriter out(text, capacity);
    const auto type = ast_dataitem_message_type_decode(item);
    if (type.valid) out.print("MSG_TYPE:%s", text_of(kTypes, type.value, "UNDEFINED"));
}

// ---- I034/050 Station Configuration & Status ----

namespace {

// The subfields of I034/050 and I034/060 that are read.
enum StationSubfield : uint32_t { kCom = 1, kPsr = 4, kSsr = 5, kMds = 6 };

constexpr SubfieldRow kSpare = {kNoSubfieldId, "Spare", octets(0)};

constexpr SubfieldRow kStationStatus[] = {
    {"COM", "Common Elements of System", octets(1)},
    kSpare,
    kSpare,
    {"PSR", "PSR Sensor Specific Status Information", octets(1)},
    {"SSR", "SSR Sensor Specific Status Information", octets(1)},
    {"MDS", "MODE-S Sensor Specific Status Information", octets(2)},
    kSpare,
};

const char *yes_or_no(bool flag) { return flag ? "YES" : "NO"; }
const char *connected_or_not(bool flag) { return flag ? "CONNECTED" : "DISCONNECTED"; }

} // namespace

ast_dataitem_034_050_t ast_dataitem_034_050_decode(const ast_dataitem_t *item) {
    ast_dataitem_034_050_t status{};
    if (!holds_type(item, 34050)) return status;
    status.subfields = ast_dataitem_subfields_decode(item);
    if (!status.subfields.valid) return {};
    if (const uint8_t *const com = subfield_octets(status.subfields, kCom, 1)) {
        status.com = {
            .present = true,
            .nogo = bit(*com, 8),
            .rdpc = bit(*com, 7) ? 2U : 1U,
            .rdpr = bit(*com, 6),
            .ovl_rdp = bit(*com, 5),
            .ovl_xmt = bit(*com, 4),
            .msc = !bit(*com, 3),
            .time_valid = !bit(*com, 2),
        };
    }
    if (const uint8_t *const ssr = subfield_octets(status.subfields, kSsr, 1)) {
        status.ssr = {
            .present = true,
            .ant = bit(*ssr, 8) ? 2U : 1U,
            .ch_ab = bits(*ssr, 7, 6),
            .ovl = bit(*ssr, 5),
            .msc = !bit(*ssr, 4),
        };
    }
    status.valid = true;
    return status;
}

void ast_subfield_034_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                      uint32_t subfield_type) {
    static constexpr const char *kChannels[] = {"CHN_NO", "CHN1", "CHN2", "CHN_INVALID"};
    TextWriter out(text, capacity);
    const auto status = ast_dataitem_034_050_decode(item);
    if (!status.valid || !has_subfield(status.subfields, subfield_type)) return;
    switch (subfield_number(subfield_type)) {
    case kCom:
        out.print("CHN%u", status.com.rdpc);
        break;
    case kSsr:
        out.print("ANT%u %s", status.ssr.ant, kChannels[status.ssr.ch_ab]);
        break;
    default:
        out.append("NOT_IMPLEMENTED");
    }
}

namespace {

void write_common_status(HtmlWriter &html, const ast_dataitem_034_050_t &status) {
    const auto &com = status.com;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0]", "OPERATIONAL_RELEASE_STATUS", com.nogo ? "NOGO!" : "OPERATIONAL");
    table.row("Bit[1]", "CHANNEL_SELECTION", Cell<30>("CHANNEL_%u", com.rdpc));
    table.row("Bit[2]", "RDP_RESTART", yes_or_no(com.rdpr));
    table.row("Bit[3]", "RDP_OVERLOAD", yes_or_no(com.ovl_rdp));
    table.row("Bit[4]", "TRANSMISSION_SUBSYSTEM_OVERLOAD", yes_or_no(com.ovl_xmt));
    table.row("Bit[5]", "MONITORING_SYSTEM_STATUS", connected_or_not(com.msc));
    table.row("Bit[6]", "TIME_SOURCE_STATUS", com.time_valid ? "VALID" : "INVALID");
    table.row("Bit[7]", "SPARE", "");
}

void write_ssr_status(HtmlWriter &html, const ast_dataitem_034_050_t &status) {
    // Viewers know the texts with this spelling.
    static constexpr const char *kChannels[] = {"NO_CHANNLE", "CHANNLE_A_ONLY", "CHANNLE_B_ONLY",
                                                "INVALID_COMBINATION"};
    const auto &ssr = status.ssr;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0]", "SELECTED_ANTENNA", Cell<30>("ANTENNA_%u", ssr.ant));
    table.row("Bit[1-2]", "CHANNEL_SELECTION", text_of(kChannels, ssr.ch_ab, "UNKNOWN"));
    table.row("Bit[3]", "OVERLOAD", yes_or_no(ssr.ovl));
    table.row("Bit[4]", "MONITORING_SYSTEM_STATUS", connected_or_not(ssr.msc));
    table.row("Bit[5-7]", "SPARE", "");
}

} // namespace

void ast_subfield_034_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                          uint32_t subfield_type) {
    HtmlWriter html(text, capacity);
    const auto status = ast_dataitem_034_050_decode(item);
    const uint32_t number = subfield_number(subfield_type);
    if (number == kCom && status.com.present) write_common_status(html, status);
    if (number == kSsr && status.ssr.present) write_ssr_status(html, status);
}

AST_DEFINE_COMPOUND(kItem050, 034_050, kStationStatus, ast_subfield_034_050_get_summary,
                    ast_subfield_034_050_get_detail_html)

// ---- I034/060 System Processing Mode ----

namespace {

constexpr SubfieldRow kProcessingMode[] = {
    {"COM", "Common Elements of System", octets(1)},
    kSpare,
    kSpare,
    {"PSR", "PSR Sensor Specific Processing Mode", octets(1)},
    {"SSR", "SSR Sensor Specific Processing Mode", octets(1)},
    {"MDS", "Mode S Sensor Specific Processing Mode", octets(1)},
    kSpare,
};

} // namespace

ast_dataitem_034_060_t ast_dataitem_034_060_decode(const ast_dataitem_t *item) {
    ast_dataitem_034_060_t mode{};
    if (!holds_type(item, 34060)) return mode;
    mode.subfields = ast_dataitem_subfields_decode(item);
    if (!mode.subfields.valid) return {};
    if (const uint8_t *const com = subfield_octets(mode.subfields, kCom, 1))
        mode.com = {.present = true, .red_rdp = bits(*com, 7, 5), .red_xmt = bits(*com, 4, 2)};
    if (const uint8_t *const psr = subfield_octets(mode.subfields, kPsr, 1))
        mode.psr = {.present = true, .pol = bit(*psr, 8), .red_rad = bits(*psr, 7, 5), .stc = bits(*psr, 4, 3)};
    if (const uint8_t *const ssr = subfield_octets(mode.subfields, kSsr, 1))
        mode.ssr = {.present = true, .red_rad = bits(*ssr, 8, 6)};
    if (const uint8_t *const mds = subfield_octets(mode.subfields, kMds, 1))
        mode.mds = {.present = true, .red_rad = bits(*mds, 8, 6), .clu_autonomous = !bit(*mds, 5)};
    mode.valid = true;
    return mode;
}

void ast_subfield_034_060_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                      uint32_t subfield_type) {
    TextWriter out(text, capacity);
    const auto mode = ast_dataitem_034_060_decode(item);
    if (!mode.valid || !has_subfield(mode.subfields, subfield_type)) return;
    if (subfield_number(subfield_type) == kCom)
        out.print("RED-RAD:%u RED-XMP:%u", mode.com.red_rdp, mode.com.red_xmt); // labels known so
    else
        out.append("NOT_IMPLEMENTED");
}

namespace {

void write_reduction(DetailTable &table, const char *bit_label, const char *name, uint32_t step) {
    if (step == 0)
        table.row(bit_label, name, "NO_REDUCTION_ACTIVE");
    else
        table.row(bit_label, name, Cell<30>("REDUCTION_STEP%u_ACTIVE", step));
}

} // namespace

void ast_subfield_034_060_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                          uint32_t subfield_type) {
    HtmlWriter html(text, capacity);
    const auto mode = ast_dataitem_034_060_decode(item);
    if (subfield_number(subfield_type) != kCom || !mode.com.present) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0]", "SPARE", "");
    write_reduction(table, "Bit[1-3]", "RED-REP", mode.com.red_rdp);
    write_reduction(table, "Bit[4-6]", "RED-XMT", mode.com.red_xmt);
    table.row("Bit[7]", "SPARE", "");
}

AST_DEFINE_COMPOUND(kItem060, 034_060, kProcessingMode, ast_subfield_034_060_get_summary,
                    ast_subfield_034_060_get_detail_html)

// ---- I034/070 Message Count Values ----

namespace {

constexpr uint64_t kCounterOctets = 2;

// Visits (type, value) of each counter of the item, as many as it carries.
template <typename Visitor>
void each_counter(const ast_dataitem_t *item, Visitor visit) {
    for (uint64_t offset = 1; offset < item->size; offset += kCounterOctets)
        visit(field(item->data + offset, 1, 5), field(item->data + offset, 6, 16));
}

} // namespace

ast_dataitem_034_070_t ast_dataitem_034_070_decode(const ast_dataitem_t *item) {
    ast_dataitem_034_070_t counts{};
    if (!holds_type(item, 34070) || item->size != 1 + kCounterOctets * item->data[0]) return counts;
    uint64_t held = 0;
    each_counter(item, [&](uint32_t typ, uint32_t value) {
        if (held < std::size(counts.counters)) counts.counters[held++] = {.typ = typ, .value = value};
    });
    counts.count = item->data[0];
    counts.valid = true;
    return counts;
}

void ast_dataitem_034_070_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto counts = ast_dataitem_034_070_decode(item);
    if (counts.valid) out.print("COUNTERS:%u", counts.count);
}

void ast_dataitem_034_070_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
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
    HtmlWriter html(text, capacity);
    const auto counts = ast_dataitem_034_070_decode(item);
    if (!counts.valid || counts.count == 0) return;
    DetailTable table(html, "Type", "Value");
    each_counter(item, [&](uint32_t typ, uint32_t value) {
        table.row(Cell<31>("%s", text_of(kTypes, typ, "UNDEFINED_COUNTER_TYPE")), Cell<10>("%u", value));
    });
}

// ---- I034/120 3D-Position Of Data Source ----

ast_dataitem_034_120_t ast_dataitem_034_120_decode(const ast_dataitem_t *item) {
    constexpr double kLsbDeg = 180.0 / (1 << 23);
    ast_dataitem_034_120_t position{};
    if (!holds_type(item, 34120, 8)) return position;
    position.height_raw = twos_complement(read_u16(item->data), 16);
    position.latitude_raw = magnitude_less_maximum(read_u24(item->data + 2), 24);
    position.longitude_raw = magnitude_less_maximum(read_u24(item->data + 5), 24);
    position.height_m = position.height_raw;
    position.latitude_deg = position.latitude_raw * kLsbDeg;
    position.longitude_deg = position.longitude_raw * kLsbDeg;
    position.valid = true;
    return position;
}

void ast_dataitem_034_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto position = ast_dataitem_034_120_decode(item);
    if (!position.valid) return;
    out.print("H:%.0f WGS84:%s", position.height_m, ast_latlong_to_str(position.latitude_deg, position.longitude_deg));
}

void ast_dataitem_034_120_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    constexpr char kOctets[] = "Octet[3-8]";
    HtmlWriter html(text, capacity);
    const auto position = ast_dataitem_034_120_decode(item);
    if (!position.valid) return;
    DetailTable table(html, "Octet", "Item", "Value");
    table.row("Octet[1-2]", "HEIGHT (LSB=M)", Cell<512>("%f", position.height_m));
    write_position_texts(table, kOctets, position.latitude_deg, position.longitude_deg);
    table.row(kOctets, kWgs84Item, Cell<512>("%02.6f, %03.6f", position.latitude_deg, position.longitude_deg));
    write_map_links(table, kOctets, position.latitude_deg, position.longitude_deg);
}

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
    taken_apart<&Flat::message_counts, ast_dataitem_034_070_decode>(34070),
};

} // namespace

ast_datarecord_034_t ast_datarecord_034_disassemble(const ast_datarecord_t *record) {
    ast_datarecord_034_t flat{};
    disassemble(flat, record, 34, kMembers, report_as_warning);
    return flat;
}

ast_datarecord_t ast_datarecord_034_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_034_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 34, uap, kMembers);
}

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, AST_SUMMARY(034_000))},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Sector Number", items::sector_number},
    {30, "Time of Day", items::time_of_day},
    {41, "Antenna Rotation Period", items::antenna_rotation_period},
    {50, "Station Configuration & Status", items::compound(ast_dataitem_034_050_get_size), &kItem050},
    {60, "System Processing Mode", items::compound(ast_dataitem_034_060_get_size), &kItem060},
    {70, "Message Count Values", {repetitive<2>, AST_VIEWS(034_070)}},
    {90, "Collimation Error", {fixed<2>}},
    {110, "Data Filter", {fixed<1>}},
    {120, "3D-Position Of Data Source", {fixed<8>, AST_VIEWS(034_120)}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(034, 34, kItems)
