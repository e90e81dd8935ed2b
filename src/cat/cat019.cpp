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

    static void read(Value &status, const uint8_t *octets) {
        status.nogo = bits(octets[0], 8, 7);
        status.ovl = bit(octets[0], 6);
        status.tsv = bit(octets[0], 5);
        status.ttf = bit(octets[0], 3); // not bit 4, where the document has it, and shown as "Bit[4]"; users rely on it
    }

    static void summarize(TextWriter &out, const Value &status) {
        static constexpr const char *kStatuses[] = {"OPERATIVE", "DEGRADED", "NOGO", "UNDIFINED"}; // known so
        out.append("SYS_STAT:");
        out.append(kStatuses[status.nogo]);
    }

    static void show(ViewWriter &view, const Value &status) {
        static constexpr const char *kStatuses[] = {"OPERATIONAL", "DEGRADED", "NOGO", "UNDIFINED"}; // known so
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-1]", "SYS_STATUS", kStatuses[status.nogo]);
        table.row("Bit[2]", "OVERLOAD", Cell<2>("%d", status.ovl));
        table.row("Bit[3]", "TIME_SOURCE_INVALID", Cell<2>("%d", status.tsv));
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
    static void read(Value &height, const uint8_t *octets) {
        constexpr double kLsbM = 1.0 / 4;
        height.height_raw = magnitude_less_maximum(read_u16(octets), 16);
        height.height_m = height.height_raw * kLsbM;
    }

    static void summarize(TextWriter &out, const Value &height) { out.print("H:%.2f", height.height_m); }

    static void show(ViewWriter &view, const Value &height) {
        constexpr char kBits[] = "Bit[0-15]";
        DetailTable table(view, "Bit", "Item", "Value");
        table.row(kBits, "HEIGHT (LSB=0.25M)", Cell<16>("%d", height.height_raw));
        table.row(kBits, "HEIGHT (LSB=M)", Cell<16>("%.2f", height.height_m));
        table.row(kBits, "HEIGHT (LSB=FT)", Cell<16>("%.2f", height.height_m / kMetresPerFoot));
    }
};

AST_DEFINE_ITEM(I019_610, ast_dataitem_019_610)

// ---- I019/620 WGS-84 Undulation ----

struct I019_620 : Item<19620, ast_dataitem_019_620_t, fixed<1>> {
    static void read(Value &undulation, const uint8_t *octets) {
        undulation.undulation_m = magnitude_less_maximum(octets[0], 8);
    }

    static void summarize(TextWriter &out, const Value &undulation) { out.print("UND:%d", undulation.undulation_m); }

    static void show(ViewWriter &view, const Value &undulation) {
        constexpr char kBits[] = "Bit[0-7]";
        DetailTable table(view, "Bit", "Item", "Value");
        table.row(kBits, "UNDULATION (LSB=M)", Cell<16>("%d", undulation.undulation_m));
        table.row(kBits, "UNDULATION (LSB=FT)", Cell<16>("%.2f", undulation.undulation_m / kMetresPerFoot));
    }
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
