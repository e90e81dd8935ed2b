// Category 019: status of a multilateration system.

#include "core/bits.hpp"
#include "items/message_type.hpp"
#include "items/repetitive.hpp"
#include "items/units.hpp"

using namespace ast;

// ---- I019/000 Message Type ----

struct I019_000 : MessageType<19000> {
    static bool accepts(const ast_dataitem_t &item) { return item.type == kType && MessageType::accepts(item); }

    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED", "CYCLE_START", "PERIODIC_STATUS", "EVENT_STATUS"};
        write_message_type(out, kTypes, type.value);
    }
};

AST_DEFINE_SUMMARY(I019_000, ast_dataitem_019_000_get_summary)

// ---- I019/550 System Status ----

struct I019_550 : Item<19550, ast_dataitem_019_550_t, fixed<1>> {
    static constexpr Value kDefault = {.nogo = 3};
    static constexpr const char *kStatuses[] = {"OPERATIONAL", "DEGRADED", "NOGO", "UNDIFINED"}; // known so

    static constexpr Row<Value> kRows[] = {
        {&Value::nogo, 2, "SYS_STATUS", kStatuses},
        {&Value::ovl, "OVERLOAD"},
        {&Value::tsv, "TIME_SOURCE_INVALID"},
        spare(1), // where the document has TTF, and where it is shown; users rely on it
        {&Value::ttf},
        spare(2),
    };

    static void summarize(TextWriter &out, const Value &status) {
        static constexpr const char *kStatusWords[] = {"OPERATIVE", "DEGRADED", "NOGO", "UNDIFINED"}; // known so
        out.append("SYS_STAT:");
        out.append(kStatusWords[status.nogo]);
    }

    static void show(ViewWriter &view, const Value &status) {
        DetailTable table = table_of_rows<I019_550>(view);
        show_rows<I019_550>(table, status);
        table.row("Bit[4]", "TEST_TARGET_FAILURE", Cell<2>("%d", status.ttf));
        table.row("Bit[5-7]", "SPARE", "0");
    }
};

AST_DEFINE_ITEM(I019_550, ast_dataitem_019_550)

// ---- I019/551 Tracking Processor Detailed Status ----

namespace {

const char *good_or_faulted(bool is_good) { return is_good ? "GOOD" : "FAULTED"; }

} // namespace

struct I019_551 : Item<19551, ast_dataitem_019_551_t, fixed<1>> {
    static void read(Value &status, const uint8_t *octets) {
        unsigned place = 8;
        for (auto &processor : status.tp) {
            processor.exec = bit(octets[0], place--);
            processor.good = bit(octets[0], place--);
        }
    }

    static void summarize(TextWriter &out, const Value &status) {
        for (unsigned i = 0; i < std::size(status.tp); ++i) {
            const auto &processor = status.tp[i];
            if (!processor.exec && !processor.good) continue; // not used in the system
            out.print("%sTP%u:%s%s", shown_if(out.length() > 0, " "), i + 1, processor.exec ? "E" : "S",
                      processor.good ? "G" : "F");
        }
    }

    static void show(ViewWriter &view, const Value &status) {
        DetailTable table(view, "Bit", "Tracking Processor", "Mode", "Status");
        for (unsigned i = 0; i < std::size(status.tp); ++i)
            table.row(Cell<16>("Bit[%u-%u]", 2 * i, 2 * i + 1), Cell<4>("TP%u", i + 1),
                      status.tp[i].exec ? "EXECUTIVE" : "STANDBY", good_or_faulted(status.tp[i].good));
    }
};

AST_DEFINE_ITEM(I019_551, ast_dataitem_019_551)

// ---- I019/552 Remote Sensor Detailed Status ----

struct I019_552 : Item<19552, ast_dataitem_019_552_t, repetitive<2>> {
    static bool read(Value &status, const ast_dataitem_t &item) {
        return read_elements<I019_552>(status.sensors, status.count, item, [](auto &sensor, const uint8_t *octets) {
            sensor.rsi = octets[0];
            sensor.rs1090 = bit(octets[1], 7);
            sensor.tx1030 = bit(octets[1], 6);
            sensor.tx1090 = bit(octets[1], 5);
            sensor.rss = bit(octets[1], 4);
            sensor.rso = bit(octets[1], 3);
        });
    }

    static void summarize(TextWriter &out, const Value &status) {
        out.print("RS:%zu", static_cast<size_t>(status.count));
    }

    static void show(ViewWriter &view, const Value &status) {
        const auto y_or_n = [](bool is_present) { return is_present ? "Y" : "N"; };
        DetailTable table(view, "ID", "Rx 1090MHz", "Tx 1030MHz", "Tx 1090MHz", "Status", "Operational");
        for (uint64_t i = 0; i < status.count; ++i) {
            const auto &sensor = status.sensors[i];
            table.row(Cell<4>("%.3u", sensor.rsi), y_or_n(sensor.rs1090), y_or_n(sensor.tx1030), y_or_n(sensor.tx1090),
                      good_or_faulted(sensor.rss), sensor.rso ? "ONLINE" : "OFFLINE");
        }
    }
};

AST_DEFINE_ITEM(I019_552, ast_dataitem_019_552)

// ---- I019/553 Reference Transponder Detailed Status ----

struct I019_553 : Item<19553, ast_dataitem_019_553_t, extended<kUnlimitedOctets>> {
    static constexpr uint64_t kTranspondersPerOctet = 2;

    // The statuses of an item of more transponders than there is room for stay unknown, all of them.
    static void read(Value &status, const ast_dataitem_t &item) {
        status.count = kTranspondersPerOctet * item.size;
        if (status.count > std::size(status.transponders)) return;
        for (uint64_t i = 0; i < item.size; ++i) {
            status.transponders[kTranspondersPerOctet * i] = bits(item.data[i], 8, 7);
            status.transponders[kTranspondersPerOctet * i + 1] = bits(item.data[i], 4, 3);
        }
    }

    static void summarize(TextWriter &out, const Value &status) {
        out.print("RT:%zu", static_cast<size_t>(status.count));
    }

    static void show(ViewWriter &view, const Value &status) {
        static constexpr const char *kStatuses[] = {"UNDEFINED", "GOOD", "FAULTED", "WARNING"}; // known in this order
        DetailTable table(view, "Bit", "Ref Transponder", "Status");
        for (unsigned i = 0; i < status.count && i < std::size(status.transponders); ++i)
            table.row(Cell<16>("Bit[%u-%u]", 4 * i, 4 * i + 1), Cell<5>("RT%u", i + 1),
                      kStatuses[status.transponders[i]]);
    }
};

AST_DEFINE_ITEM(I019_553, ast_dataitem_019_553)

// ---- I019/610 Height of MLT System Reference Point ----

struct I019_610 : Item<19610, ast_dataitem_019_610_t, fixed<2>> {
    static constexpr double kLsbM = 1.0 / 4;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::height_raw, kMagnitude16, "HEIGHT (LSB=0.25M)", {&Value::height_m, kLsbM, "HEIGHT (LSB=M)"},
                 {kLsbM / kMetresPerFoot, "HEIGHT (LSB=FT)"}),
    };

    static void summarize(TextWriter &out, const Value &height) { out.print("H:%.2f", height.height_m); }
};

AST_DEFINE_ITEM(I019_610, ast_dataitem_019_610)

// ---- I019/620 WGS-84 Undulation ----

struct I019_620 : Item<19620, ast_dataitem_019_620_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::undulation_m, {8, Sign::MagnitudeLessMaximum}, "UNDULATION (LSB=M)",
                 {1 / kMetresPerFoot, "UNDULATION (LSB=FT)"}),
    };

    static void summarize(TextWriter &out, const Value &undulation) { out.print("UND:%d", undulation.undulation_m); }
};

AST_DEFINE_ITEM(I019_620, ast_dataitem_019_620)

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_019_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    {140, "Time of Day", items::time_of_day},
    own<I019_550>("System Status"),
    own<I019_551>("Tracking Processor Detailed Status"),
    own<I019_552>("Remote Sensor Detailed Status"),
    own<I019_553>("Reference Transponder Detailed Status"),
    {600, "Position of MLT System Reference Point", items::without_encoder(items::position_wgs84)},
    own<I019_610>("Height of MLT System Reference Point"),
    own<I019_620>("WGS-84 Undulation"),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory019, 19, "Unknown CAT019 Dataitem", kItems, ast_dataitem_019_get_name)
