// Category 002: service messages of one radar, edition 1.2 and the layouts of three radar families.

#include "cat/flat.hpp"
#include "items/accessors.hpp"
#include "items/items.hpp"
#include "items/message_type.hpp"
#include "items/octet_chain.hpp"

using namespace ast;

// ---- I002/000 Message Type ----

struct I002_000 : MessageType<2000> {
    static constexpr uint32_t kNorthMarker = 1;
    static constexpr uint32_t kSectorCrossing = 2;

    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {
            "UNDEFINED",
            "NORTH_MARKER",
            "SECTOR_CROSSING",
            "SOUTH_MARKER",
            "UNDEFINED",
            "UNDEFINED",
            "UNDEFINED",
            "UNDEFINED",
            "BLIND_ZONE_FILTERING_START",
            "BLIND_ZONE_FILTERING_STOP",
        };
        write_message_type(out, kTypes, type.value);
    }
};

AST_DEFINE_SUMMARY(I002_000, ast_dataitem_002_000_get_summary)

// ---- I002/050 Station Configuration Status, and as two radar families send it ----

struct I002_050 : OctetChain<2050, kUnlimitedOctets> {};
struct I002_A01 : OctetChain<2901, 16> {};
struct I002_A02 : OctetChain<2902, 16> {};

AST_DEFINE_DECODE(I002_050, ast_dataitem_002_050_decode)
AST_DEFINE_DETAIL(I002_050, ast_dataitem_002_050_get_detail_html)
AST_DEFINE_ITEM(I002_A01, ast_dataitem_002_A01)
AST_DEFINE_ITEM(I002_A02, ast_dataitem_002_A02)

// ---- Accessors ----

ast_sac_sic_t ast_datarecord_002_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 2010); }
ast_time_of_day_t ast_datarecord_002_get_timeofday(const ast_datarecord_t *record) {
    return timeofday_of(record, 2030);
}

ast_uint_value_t ast_datarecord_002_get_msgtype(const ast_datarecord_t *record) {
    const auto type = first<I002_000>(record);
    if (type.value == I002_000::kNorthMarker) return {.valid = true, .value = AST_MSGTYPE_NORTH};
    if (type.value == I002_000::kSectorCrossing) return {.valid = true, .value = AST_MSGTYPE_SECTOR};
    return {};
}

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_002_t;

constexpr FlatMember<Flat> kMembers[] = {
    both_ways<&Flat::message_type, I002_000>(),
    both_ways<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(2010),
    both_ways<&Flat::sector, ast_dataitem_sector_number_decode>(2020),
    both_ways<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(2030),
    both_ways<&Flat::antenna_rotation_period, ast_dataitem_antenna_rotation_period_decode>(2041),
    taken_apart<&Flat::station_status, I002_050>(),
    taken_apart<&Flat::station_status, I002_A01>(),
    taken_apart<&Flat::station_status, I002_A02>(),
};

} // namespace

ast_datarecord_002_t *ast_datarecord_002_disassemble(ast_datarecord_002_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 2, kMembers, report_quietly);
}

ast_datarecord_t ast_datarecord_002_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_002_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 2, uap, kMembers);
}

// ---- The category ----

namespace {

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_002_get_sacsic,
    .get_timeofday = ast_datarecord_002_get_timeofday,
    .get_msgtype = ast_datarecord_002_get_msgtype,
};

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_002_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    {20, "Sector Number", items::sector_number},
    {30, "Time of Day", items::time_of_day},
    {41, "Antenna Rotation Speed", items::antenna_rotation_period},
    {50, "Station Configuration Status", items::binary_data(I002_050::kSize, kDetailOf<I002_050>)},
    own<I002_A01>("Station Configuration Status", 50),
    own<I002_A02>("Station Configuration Status", 50),
    {951, nullptr, items::binary_data(fixed<2>)},
    {AST_ITEM_RFS, "Random Field Sequencing", items::random_field_sequencing},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory002, 2, "Unknown CAT002 Dataitem", kItems, ast_dataitem_002_get_name,
                    .accessors = kAccessors)
