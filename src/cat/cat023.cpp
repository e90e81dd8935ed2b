// Category 023: status and statistics of CNS/ATM ground stations.

#include "core/bits.hpp"
#include "items/message_type.hpp"

using namespace ast;

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
    static void read(Value &service, const uint8_t *octets) {
        constexpr uint32_t kLastType = 9;
        service.sid = bits(octets[0], 8, 5);
        const uint32_t type = bits(octets[0], 4, 1);
        service.styp = type <= kLastType ? type : 0;
    }

    static void summarize(TextWriter &out, const Value &service) {
        static constexpr const char *kTypes[] = {"",
                                                 " STYP:ADSB_VDL4",
                                                 " STYP:ADSB_ES",
                                                 " STYP:ADSB_UAT",
                                                 " STYP:TISB_VDL4",
                                                 " STYP:TISB_ES",
                                                 " STYP:TISB_UAT",
                                                 " STYP:FISB_VDL4",
                                                 " STYP:GRAS_VDL4",
                                                 " STYP:MLT"};
        out.print("SID:%u%s", service.sid, kTypes[service.styp]);
    }

    static void show(ViewWriter &view, const Value &service) {
        // Multilateration has no text here, though it has one in the summary; viewers know it so.
        static constexpr const char *kTypes[] = {"UNKNOWN", "ADSB_VDL4", "ADSB_ES",   "ADSB_UAT", "TISB_VDL4",
                                                 "TISB_ES", "TISB_UAT",  "FISB_VDL4", "GRAS_VDL4"};
        DetailTable table(view, "Bit", "ID", "Item", "Value");
        table.row("Bit[1-4]", "SID", "SERVICE_IDENTIFICATION", Cell<4>("%u", service.sid));
        table.row("Bit[5-8]", "STYP", "TYPE_OF_SERVICE", text_of(kTypes, service.styp, "UNKNOWN"));
    }
};

AST_DEFINE_ITEM(I023_015, ast_dataitem_023_015)

// ---- I023/100 Ground Station Status ----

struct I023_100 : Item<23100, ast_dataitem_023_100_t, extended<2>> {
    static void read(Value &status, const ast_dataitem_t &item) {
        const uint8_t first = item.data[0];
        status.nogo = bit(first, 8);
        status.odp = bit(first, 7);
        status.oxt = bit(first, 6);
        status.msc = bit(first, 5);
        status.time_valid = !bit(first, 4);
        status.spo = bit(first, 3);
        status.rn = bit(first, 2);
        if (item.size >= 2) status.gssp_s = bits(item.data[1], 8, 2);
    }

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

    static void show(ViewWriter &view, const Value &status, const ast_dataitem_t &item) {
        DetailTable table(view, "Bit", "ID", "Item", "Value");
        const auto flag = [&](const char *label, const char *id, const char *name, bool is_set) {
            table.row(label, id, name, is_set ? "1" : "0");
        };
        flag("Bit[1]", "NOGO", "DATA_NOT_USED_OPERATIONALLY", status.nogo);
        flag("Bit[2]", "ODP", "DATA_PROCESSOR_OVERLOAD", status.odp);
        flag("Bit[3]", "OXT", "DATA_COMMUNICATION_OVERLOAD", status.oxt);
        flag("Bit[4]", "MSC", "MONITORING_SYSTEM_CONNECTED", status.msc);
        flag("Bit[5]", "TSV", "TIME_SOURCE_VALID", status.time_valid);
        flag("Bit[6]", "SPO", "POTENTIAL_SPOOFING_ATTACK", status.spo);
        flag("Bit[7]", "RN", "TRACK_NUMBERING_RESTARTED", status.rn);
        flag("Bit[8]", "FX", "FIELD_EXTENSION", item.size >= 2);
        if (item.size < 2) return;
        table.row("Bit[9-15]", "GSSP", "STATUS_REPORT_PERIOD", Cell<4>("%u", status.gssp_s));
        flag("Bit[16]", "FX", "FIELD_EXTENSION", has_fx(item.data[1]));
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
