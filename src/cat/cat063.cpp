// Category 063: status of the sensors that feed a surveillance data processing system.

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/items.hpp"

using namespace ast;

// ---- I063/060 Sensor Configuration and Status ----

struct I063_060 : Item<63060, ast_dataitem_063_060_t, extended<2>> {
    // The time source flag is not the one of the second octet: it is bit 4 of the eleventh octet from the item's first,
    // in whatever follows the item. Users rely on it. Clear where that octet is not known to be there.
    static bool reads_invalid_time_source(const ast_dataitem_t &item) {
        constexpr uint64_t kPlace = 10;
        return item.size + item.following > kPlace && bit(item.data[kPlace], 4);
    }

    static constexpr const char *kGoOrNogo[] = {"GO", "NOGO", "NOGO", "NOGO"};

    static constexpr Row<Value> kRows[] = {
        {&Value::con, 2, "CON", kGoOrNogo},
        {&Value::psr, "PSR", {"GO", "NOGO"}},
        {&Value::ssr, "SSR", {"GO", "NOGO"}},
        {&Value::mds, "MDS", {"GO", "NOGO"}},
        {&Value::ads, "ADS", {"GO", "NOGO"}},
        {&Value::mlt, "MLT", {"GO", "NOGO"}},
        fx,
        {&Value::ops, "OPS", {"NO", "YES"}},
        {&Value::odp, "ODP", {"NO", "YES"}},
        {&Value::oxt, "OXT", {"NO", "YES"}},
        {&Value::msc, "MSC", {"NO", "YES"}},
        {&Value::tsv, "TSV", {"NO", "YES"}}, // read from elsewhere
        {&Value::npw, "NPW", {"NO", "YES"}},
        spare(1),
        hidden_fx,
    };

    static void read(Value &status, const ast_dataitem_t &item) {
        read_rows<I063_060>(status, item);
        status.tsv = reads_invalid_time_source(item);
    }

    static void summarize(TextWriter &out, const Value &status, const ast_dataitem_t &item) {
        static constexpr const char *kStates[] = {"CON:OPE", "CON:DGD", "STS:INI", "CON:DIS"}; // the third is known so
        out.append(kStates[status.con]);
        if (item.size < 2) return;
        out.append(shown_if(status.odp, " ODP"));
        out.append(shown_if(status.oxt, " OXT"));
        out.append(shown_if(status.tsv, " TSV"));
    }
};

AST_DEFINE_ITEM(I063_060, ast_dataitem_063_060)

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_063_t;

constexpr FlatMember<Flat> kMembers[] = {
    taken_apart<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(63010),
    taken_apart<&Flat::service, ast_dataitem_service_id_decode>(63015),
    taken_apart<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(63030),
    taken_apart<&Flat::sensor, ast_dataitem_data_source_identifier_decode>(63050),
    taken_apart<&Flat::status, I063_060>(),
};

} // namespace

ast_datarecord_063_t *ast_datarecord_063_disassemble(ast_datarecord_063_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 63, kMembers, report_as_warning);
}

// ---- The category ----

namespace {

// Rows without a size are known by name only: a record that carries one does not decode.
constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {30, "Time of Message", items::time_of_day},
    {50, "Sensor Identifier", items::data_source_identifier},
    own<I063_060>("Sensor Configuration and Status"),
    {70, "Time Stamping Bias"},
    {80, "SSR/Mode S Range Gain and Bias"},
    {81, "SSR/Mode S Azimuth Bias"},
    {90, "PSR Range Gain and Bias"},
    {91, "PSR Azimuth Bias"},
    {92, "PSR Elevation Bias"},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory063, 63, "Unknown CAT063 Dataitem", kItems, ast_dataitem_063_get_name)
