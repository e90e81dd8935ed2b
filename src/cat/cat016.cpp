// Category 016: configuration reports of a multistatic surveillance system: its reference point, its transmitters and
// receivers, and the pairs of them that it uses.

#include "core/bits.hpp"
#include "items/message_type.hpp"
#include "items/repetitive.hpp"
#include "items/units.hpp"

using namespace ast;

namespace {

constexpr double kHeightLsbM = 1.0 / 4;

// A repetitive item that is not as long as its REP says is not valid, but its REP is counted.
template <typename I>
typename I::Value decode_counted(const ast_dataitem_t *item) {
    auto value = decode<I>(item);
    if (!value.valid && accepts<I>(item)) value.count = item->data[0];
    return value;
}

// ---- Where a transmitter or receiver stands ----

// None of the numbers is two's complement, though those of I016/400 are; users rely on it.
ast_dataitem_016_site_t read_site(const uint8_t *octets) {
    constexpr double kLsbDeg = kHalfCircleDeg / (UINT32_C(1) << 31);
    ast_dataitem_016_site_t site{};
    site.latitude_raw = magnitude_less_maximum(read_u32(octets), 32);
    site.longitude_raw = magnitude_less_maximum(read_u32(octets + 4), 32);
    site.altitude_raw = magnitude_less_maximum(read_u16(octets + 8), 16);
    site.latitude_deg = site.latitude_raw * kLsbDeg;
    site.longitude_deg = site.longitude_raw * kLsbDeg;
    site.altitude_m = site.altitude_raw * kHeightLsbM;
    return site;
}

// The detail view of an item whose elements take several rows each.
template <typename I>
class ElementTable {
public:
    explicit ElementTable(ViewWriter &view) : table_(view, "Repfield", "Octet", "Item", "Value") {}

    // The next row, for the next so many octets of an element.
    void row(uint32_t octets, const char *name, std::string_view value) {
        table_.row(Cell<4>("%u", element_ + 1), octets_label<I>(element_, place_, octets), name, value);
        place_ += octets;
        if (place_ == I::kSize.octets) ++element_, place_ = 0;
    }

    void site_rows(const char *id_name, uint32_t id, const ast_dataitem_016_site_t &site) {
        row(2, id_name, Cell<6>("%u", id));
        row(8, "WGS-84 Coordinate", Cell<32>("%012.8f, %013.8f", site.latitude_deg, site.longitude_deg));
        row(2, "Altitude", Cell<16>("%.2f", site.altitude_m));
    }

private:
    DetailTable table_;
    uint32_t element_ = 0;
    uint32_t place_ = 0;
};

} // namespace

// ---- I016/000 Message Type ----

struct I016_000 : MessageType<16000> {
    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED", "SYSTEM", "TXRX"};
        write_message_type(out, kTypes, type.value);
    }
};

AST_DEFINE_SUMMARY(I016_000, ast_dataitem_016_000_get_summary)

// ---- I016/200 System Configuration Reporting Period ----

struct I016_200 : Item<16200, ast_dataitem_016_200_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {{&Value::period_s, 8}};

    static void summarize(TextWriter &out, const Value &period) { out.print("SCRP:%u", period.period_s); }
};

AST_DEFINE_SUMMARIZED_ITEM(I016_200, ast_dataitem_016_200)

// ---- I016/300 Pair Identification ----

struct I016_300 : Item<16300, ast_dataitem_016_300_t, repetitive<6>> {
    static bool read(Value &list, const ast_dataitem_t &item) {
        return read_elements<I016_300>(list.pairs, list.count, item, [](auto &pair, const uint8_t *octets) {
            pair = {.pid = read_u16(octets), .tid = read_u16(octets + 2), .rid = read_u16(octets + 4)};
        });
    }

    static void summarize(TextWriter &out, const Value &list) { out.print("PAIRS:%u", list.count); }

    static void show(ViewWriter &view, const Value &list) {
        DetailTable table(view, "Repfield", "Octet", "Pair Identifier", "Transmitter", "Receiver");
        for (uint32_t i = 0; i < list.count; ++i) {
            const auto &pair = list.pairs[i];
            table.row(Cell<4>("%u", i + 1), octets_label<I016_300>(i), Cell<6>("%u", pair.pid), Cell<6>("%u", pair.tid),
                      Cell<6>("%u", pair.rid));
        }
    }
};

ast_dataitem_016_300_t ast_dataitem_016_300_decode(const ast_dataitem_t *item) {
    return decode_counted<I016_300>(item);
}
AST_DEFINE_VIEWS(I016_300, ast_dataitem_016_300_get_summary, ast_dataitem_016_300_get_detail_html)

// ---- I016/405 Height of System Reference Point ----

struct I016_405 : Item<16405, ast_dataitem_016_405_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::height_raw, kMagnitude16, "HEIGHT LSB=0.25M", {&Value::height_m, kHeightLsbM, "HEIGHT LSB=M"},
                 {kHeightLsbM / kMetresPerFoot, "HEIGHT LSB=FT"}),
    };

    static void summarize(TextWriter &out, const Value &height) { out.print("H:%.2f LSB:M", height.height_m); }
};

AST_DEFINE_ITEM(I016_405, ast_dataitem_016_405)

// ---- I016/410 Transmitter Properties ----

struct I016_410 : Item<16410, ast_dataitem_016_410_t, repetitive<21>> {
    static constexpr int64_t kTimeLsbNs = 2;

    static bool read(Value &list, const ast_dataitem_t &item) {
        return read_elements<I016_410>(list.transmitters, list.count, item, [](auto &one, const uint8_t *octets) {
            one.tid = read_u16(octets);
            one.site = read_site(octets + 2);
            one.tto_raw = magnitude_less_maximum(read_u32(octets + 12), 32);
            one.tto_ns = one.tto_raw * kTimeLsbNs;
            one.ato_ns = bits(read_u24(octets + 16), 20, 1);
            one.pci = read_u16(octets + 19);
        });
    }

    static void summarize(TextWriter &out, const Value &list) { out.print("TX:%u", list.count); }

    static void show(ViewWriter &view, const Value &list) {
        ElementTable<I016_410> table(view);
        for (uint32_t i = 0; i < list.count; ++i) {
            const auto &transmitter = list.transmitters[i];
            table.site_rows("Transmitter Id", transmitter.tid, transmitter.site);
            table.row(4, "Time Offset", Cell<24>("%lld", static_cast<long long>(transmitter.tto_ns)));
            table.row(3, "Accuracy", Cell<12>("%u", transmitter.ato_ns));
            table.row(2, "Parallel Transmitter Index", Cell<6>("%u", transmitter.pci));
        }
    }
};

ast_dataitem_016_410_t ast_dataitem_016_410_decode(const ast_dataitem_t *item) {
    return decode_counted<I016_410>(item);
}
AST_DEFINE_VIEWS(I016_410, ast_dataitem_016_410_get_summary, ast_dataitem_016_410_get_detail_html)

// ---- I016/420 Receiver Properties ----

struct I016_420 : Item<16420, ast_dataitem_016_420_t, repetitive<12>> {
    static bool read(Value &list, const ast_dataitem_t &item) {
        return read_elements<I016_420>(list.receivers, list.count, item, [](auto &receiver, const uint8_t *octets) {
            receiver = {.rid = read_u16(octets), .site = read_site(octets + 2)};
        });
    }

    static void summarize(TextWriter &out, const Value &list) { out.print("RX:%u", list.count); }

    static void show(ViewWriter &view, const Value &list) {
        ElementTable<I016_420> table(view);
        for (uint32_t i = 0; i < list.count; ++i)
            table.site_rows("Receiver Id", list.receivers[i].rid, list.receivers[i].site);
    }
};

ast_dataitem_016_420_t ast_dataitem_016_420_decode(const ast_dataitem_t *item) {
    return decode_counted<I016_420>(item);
}
AST_DEFINE_VIEWS(I016_420, ast_dataitem_016_420_get_summary, ast_dataitem_016_420_get_detail_html)

// ---- The category ----

namespace {

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_016_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {140, "Time of Day", items::time_of_day},
    own<I016_200>("System Configuration Reporting Period"),
    own<I016_300>("Pair Identification"),
    {400, "Position of System Reference Point", items::position_wgs84},
    own<I016_405>("Height of System Reference Point"),
    own<I016_410>("Transmitter Properties"),
    own<I016_420>("Receiver Properties"),
};

} // namespace

AST_DEFINE_CATEGORY(kCategory016, 16, "Unknown CAT016 Dataitem", kItems, ast_dataitem_016_get_name)
