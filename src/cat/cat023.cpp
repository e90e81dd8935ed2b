// Category 023: status and statistics of CNS/ATM ground stations.

#include "core/bits.hpp"
#include "items/message_type.hpp"

using namespace ast;

// Viewers of this category count bits from 1.
constexpr Columns kColumnsFrom1 = {"Bit", "ID", "Item", "Value", Columns::Count::Bits, 1};

// ---- I023/000 Report Type ----

struct I023_000 : MessageType<23000> {
    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED", "STATION_STATUS", "SERVICE_STATUS", "SERVICE_STATISTICS"};
        out.append("RPT_TYPE:");
        out.append(text_of(kTypes, type.value, "UNDEFINED"));
    }
};

AST_DEFINE_SUMMARY(I023_000, ast_dataitem_023_000_get_summary)

// ---- I023/015 Service Type and Identification ----

struct I023_015 : Item<23015, ast_dataitem_023_015_t, fixed<1>> {
    static uint32_t known_type(uint32_t code) {
        constexpr uint32_t kLastType = 9;
        return code <= kLastType ? code : 0;
    }

    // Multilateration has no text here, though it has one in the summary; viewers know it so.
    static constexpr const char *kTypes[] = {"UNKNOWN", "ADSB_VDL4", "ADSB_ES",   "ADSB_UAT", "TISB_VDL4",
                                             "TISB_ES", "TISB_UAT",  "FISB_VDL4", "GRAS_VDL4"};

    static constexpr Columns kColumns = kColumnsFrom1;
    static constexpr Row<Value> kRows[] = {
        {&Value::sid, 4, {"SID", "SERVICE_IDENTIFICATION"}},
        {&Value::styp, {4, known_type}, {"STYP", "TYPE_OF_SERVICE"}, {kTypes, "UNKNOWN"}},
    };

    static void summarize(TextWriter &out, const Value &service) {
        static constexpr const char *kTypeWords[] = {"",
                                                     " STYP:ADSB_VDL4",
                                                     " STYP:ADSB_ES",
                                                     " STYP:ADSB_UAT",
                                                     " STYP:TISB_VDL4",
                                                     " STYP:TISB_ES",
                                                     " STYP:TISB_UAT",
                                                     " STYP:FISB_VDL4",
                                                     " STYP:GRAS_VDL4",
                                                     " STYP:MLT"};
        out.print("SID:%u%s", service.sid, kTypeWords[service.styp]);
    }
};

AST_DEFINE_ITEM(I023_015, ast_dataitem_023_015)

// ---- I023/100 Ground Station Status ----

struct I023_100 : Item<23100, ast_dataitem_023_100_t, extended<2>> {
    static constexpr Columns kColumns = kColumnsFrom1;
    static constexpr Row<Value> kRows[] = {
        {&Value::nogo, {"NOGO", "DATA_NOT_USED_OPERATIONALLY"}},
        {&Value::odp, {"ODP", "DATA_PROCESSOR_OVERLOAD"}},
        {&Value::oxt, {"OXT", "DATA_COMMUNICATION_OVERLOAD"}},
        {&Value::msc, {"MSC", "MONITORING_SYSTEM_CONNECTED"}},
        {&Value::time_valid, kInverted, {"TSV", "TIME_SOURCE_VALID"}, {"1", "0"}},
        {&Value::spo, {"SPO", "POTENTIAL_SPOOFING_ATTACK"}},
        {&Value::rn, {"RN", "TRACK_NUMBERING_RESTARTED"}},
        fx,
        {&Value::gssp_s, 7, {"GSSP", "STATUS_REPORT_PERIOD"}},
        fx,
    };

    static void summarize(TextWriter &out, const Value &status) {
        out.append(status.nogo ? "STS:NOGO" : "STS:GO");
        out.append(shown_if(status.odp, " ODP"));
        out.append(shown_if(status.oxt, " OXT"));
        out.append(shown_if(status.msc, " MSC"));
        out.append(shown_if(status.time_valid, " TSV"));
        out.append(shown_if(status.spo, " SPO"));
        out.append(shown_if(status.rn, " RN"));
        if (status.gssp_s != 0) out.print(" GSSP:%uS", status.gssp_s);
    }
};

AST_DEFINE_ITEM(I023_100, ast_dataitem_023_100)

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    own<I023_000>("Report Type"),
    {10, "Data Source Identifier", items::data_source_identifier},
    own<I023_015>("Service Type and Identification"),
    {70, "Time of Day", items::time_of_day},
    own<I023_100>("Ground Station Status"),
    {101, "Ground Station Configuration", {disputed(extended<2>)}},
    {110, "Service Status", {extended<1>}},
    {120, "Service Statistics", {repetitive<6>}},
    {200, "Operational Range"}, // known by name only
};

} // namespace

AST_DEFINE_CATEGORY(kCategory023, 23, "Unknown CAT023 Dataitem", kItems, ast_dataitem_023_get_name)
