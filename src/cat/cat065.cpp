// Category 065: status of a surveillance data processing system (SDPS) and its services.

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/message_type.hpp"

using namespace ast;

// ---- I065/000 Message Type ----

struct I065_000 : MessageType<65000> {
    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED", "SDPS_STATUS", "END_OF_BATCH", "SVC_STATUS_REPORT"};
        write_message_type(out, kTypes, type.value);
    }
};

AST_DEFINE_SUMMARY(I065_000, ast_dataitem_065_000_get_summary)

// ---- I065/020 Batch Number ----

struct I065_020 : Item<65020, ast_dataitem_065_020_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {{&Value::number, 8}};

    static void summarize(TextWriter &out, const Value &batch) { out.print("BAT:%u", batch.number); }
};

AST_DEFINE_SUMMARIZED_ITEM(I065_020, ast_dataitem_065_020)

// ---- I065/040 SDPS Configuration and Status ----

struct I065_040 : Item<65040, ast_dataitem_065_040_t, fixed<1>> {
    static constexpr const char *kProcessors[] = {"SDPS-0", "SDPS-1", "SDPS-2", "SDPS-3"};

    static constexpr Row<Value> kRows[] = {
        {&Value::nogo, 2}, {&Value::ovl, "OVL"}, {&Value::tsv, "TSV"}, {&Value::pss, 2, "PSS", kProcessors}, spare(2),
    };

    static void summarize(TextWriter &out, const Value &status) {
        static constexpr const char *kStatuses[] = {"STS:OPE", "STS:DGD", "STS:DIS", "STS:UKN"};
        out.append(kStatuses[status.nogo]);
        out.append(shown_if(status.ovl, " OVL"));
        out.append(shown_if(status.tsv, " TSV"));
        if (status.pss != 0) out.print(" SDPS-%u", status.pss);
    }

    static void show(ViewWriter &view, const Value &status) {
        static constexpr const char *kStatuses[] = {"OPERATIONAL", "DEGRADED", "NOT_CONNECTED", "UNKNOWN"};
        DetailTable table = table_of_rows<I065_040>(view);
        table.row("Bit[1-2]", "NOGO", kStatuses[status.nogo]); // viewers know the label so
        show_rows<I065_040>(table, status);
    }
};

AST_DEFINE_ITEM(I065_040, ast_dataitem_065_040)

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_065_t;

constexpr FlatMember<Flat> kMembers[] = {
    taken_apart<&Flat::message_type, ast_dataitem_message_type_decode>(65000),
    taken_apart<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(65010),
    taken_apart<&Flat::service, ast_dataitem_service_id_decode>(65015),
    taken_apart<&Flat::batch, I065_020>(),
    taken_apart<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(65030),
    taken_apart<&Flat::status, I065_040>(),
};

} // namespace

ast_datarecord_065_t *ast_datarecord_065_disassemble(ast_datarecord_065_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 65, kMembers, report_as_warning);
}

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_065_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    own<I065_020>("Batch Number"),
    {30, "Time of Day", items::time_of_day},
    own<I065_040>("SDPS Configuration and Status"),
    {50, "Service Status Report"}, // known by name only
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory065, 65, "Unknown CAT065 Dataitem", kItems, ast_dataitem_065_get_name)
