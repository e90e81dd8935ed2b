// Who sent it and whom it is about: sources, services, track numbers, addresses and names.

#include <cstring>

#include "core/bits.hpp"
#include "core/lookup.hpp"
#include "items/characters.hpp"
#include "items/items.hpp"
#include "items/units.hpp"

using namespace ast;

namespace {

// One octet that is a number by itself.
template <SizeRule Rule>
struct OctetNumber : SharedLayout<ast_uint_value_t, Rule> {
    static constexpr Row<ast_uint_value_t> kRows[] = {{&ast_uint_value_t::value, 8}};
};

} // namespace

// ---- Message type ----

namespace {

struct MessageType : OctetNumber<items::message_type.size> {};

} // namespace

AST_DEFINE_DECODE(MessageType, ast_dataitem_message_type_decode)
AST_DEFINE_ENCODE(MessageType, ast_dataitem_message_type_encode)

// ---- Data source identifier ----

namespace {

void write_area_code(ViewWriter &view, uint32_t sac) {
    view.title("System Area Code (SAC)");
    DetailTable table(view, "Octet", "Name", "Hex", "Dec", "Region", "Country");
    const auto row = [&](std::string_view region, std::string_view country) {
        table.row("Octet[1]", "SAC", Cell<5>("0x%.2X", sac), Cell<4>("%03u", sac), region, country);
    };
    bool is_known = false;
    const ast_sac_info_list_t list = sac_info(sac);
    for (uint64_t i = 0; i < list.count; ++i) {
        const ast_sac_info_t &info = list.entries[i];
        if (!info.valid) continue;
        row(Cell<128>("%s", info.region), Cell<128>("%s [%s]", info.country, info.country_code));
        is_known = true;
    }
    if (!is_known) row("Unknown Region", "Unknown Country");
}

void write_identification_code(ViewWriter &view, uint32_t sac, uint32_t sic) {
    view.title("System Identification Code (SIC)");
    DetailTable table(view, "Octet", "Name", "Hex", "Dec", "Country", "System", "Type", "Manufacturer", "Model",
                      "Description");
    const auto row = [&](const auto &...cells) {
        table.row("Octet[2]", "SIC", Cell<5>("0x%.2X", sic), Cell<4>("%03u", sic), cells...);
    };
    bool is_known = false;
    const ast_sensor_list_t list = sensors(sac, sic);
    for (uint64_t i = 0; i < list.count; ++i) {
        const ast_sensor_t &sensor = list.entries[i];
        if (!sensor.valid) continue;
        row(Cell<128>("%s [%s]", sensor.country, sensor.country_code), Cell<128>("%s", sensor.system),
            Cell<64>("%s", sensor.type), Cell<128>("%s", sensor.manufacturer), Cell<128>("%s", sensor.model),
            Cell<256>("%s", sensor.description));
        is_known = true;
    }
    if (!is_known) row("Unknown", "Unknown", "Unknown", "Unknown", "Unknown", "Unknown System");
}

struct DataSourceIdentifier : SharedLayout<ast_sac_sic_t, items::data_source_identifier.size> {
    static constexpr Row<Value> kRows[] = {{&Value::sac, 8}, {&Value::sic, 8}};

    static void summarize(TextWriter &out, const Value &source) {
        out.print("SAC:%03u SIC:%03u", source.sac, source.sic);
    }

    static void show(ViewWriter &view, const Value &source) { write_source(view, source.sac, source.sic); }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(DataSourceIdentifier, ast_dataitem_data_source_identifier)

namespace ast {

void write_source(ViewWriter &view, uint32_t sac, uint32_t sic) {
    write_area_code(view, sac);
    write_identification_code(view, sac, sic);
}

} // namespace ast

// ---- Service identification ----

namespace {

struct ServiceId : OctetNumber<items::service_id.size> {
    static void summarize(TextWriter &out, const Value &service) { out.print("SVC_ID:%03u", service.value); }
};

} // namespace

AST_DEFINE_SUMMARIZED_ITEM(ServiceId, ast_dataitem_service_id)
AST_DEFINE_ENCODE(ServiceId, ast_dataitem_service_id_encode)

// ---- Track number ----

namespace {

constexpr unsigned kShortTrackBits = 12; // the upper four are spare
constexpr unsigned kLongTrackBits = 16;

struct TrackNumberWidths {
    ast_dataitem_type_t type;
    unsigned decoded_bits;
    unsigned encoded_bits;
};

// I015/161 is read in 16 bits but written in 12; receivers rely on both.
constexpr TrackNumberWidths kLongTrackNumbers[] = {
    {1161, kLongTrackBits, kLongTrackBits},  {4030, kLongTrackBits, kLongTrackBits},
    {4035, kLongTrackBits, kLongTrackBits},  {15161, kLongTrackBits, kShortTrackBits},
    {62040, kLongTrackBits, kLongTrackBits},
};

TrackNumberWidths track_number_widths(ast_dataitem_type_t type) {
    for (const TrackNumberWidths &widths : kLongTrackNumbers)
        if (widths.type == type) return widths;
    return {type, kShortTrackBits, kShortTrackBits};
}

struct TrackNumber : SharedLayout<ast_uint_value_t, items::track_number.size> {
    static void read(Value &number, const ast_dataitem_t &item) {
        number.value = field(item.data, kLongTrackBits + 1 - track_number_widths(item.type).decoded_bits, 16);
    }

    static void summarize(TextWriter &out, const Value &number) { out.print("TRACK_NUM:%04u", number.value); }

    static bool write(uint8_t *octets, const Value &number, ast_dataitem_type_t type) {
        write_u16(octets, number.value);
        return fits(number.value, track_number_widths(type).encoded_bits);
    }
};

} // namespace

AST_DEFINE_SUMMARIZED_ITEM(TrackNumber, ast_dataitem_track_number)
AST_DEFINE_ENCODE(TrackNumber, ast_dataitem_track_number_encode)

// ---- Target address ----

namespace {

struct TargetAddress : SharedLayout<ast_target_address_t, items::target_address.size> {
    static void read(Value &target, const uint8_t *octets) {
        std::memcpy(target.octets, octets, sizeof target.octets);
        target.address = read_u24(octets);
    }

    static void summarize(TextWriter &out, const Value &target) { out.print("ADDR:%.6X", target.address); }

    static void show(ViewWriter &view, const Value &target, const ast_dataitem_t &item) {
        write_country_of(view, target.address, &item);
    }

    static bool write(uint8_t *octets, Value &target) {
        if (target.address == 0 || !fits(target.address, 24)) return false;
        write_u24(octets, target.address);
        std::memcpy(target.octets, octets, sizeof target.octets);
        return true;
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(TargetAddress, ast_dataitem_target_address)

namespace ast {

void write_country_of(ViewWriter &view, uint32_t address, const ast_dataitem_t *item) {
    if (!has_country_lookup()) return;
    const ast_country_t country = aircraft_country(address, item);
    constexpr char kBegin[] = "This ICAO 24-bit address ";
    const Cell<12> digits("%.6X", address);
    const auto or_null = [](const char *text) { return text ? text : "(null)"; };
    if (country.found)
        view.paragraph(kBegin, digits, " is allocated to ", or_null(country.name), " (", or_null(country.code), ").");
    else
        view.paragraph(kBegin, digits, " is allocated to unknown country/region.");
}

} // namespace ast

// ---- Aircraft identification ----

namespace {

struct AircraftId : SharedLayout<ast_aircraft_id_t, items::aircraft_id.size> {
    static void read(Value &aircraft, const uint8_t *octets) { read_identity(aircraft.text, octets); }

    static void summarize(TextWriter &out, const Value &aircraft) { out.print("ACID:%s", aircraft.text); }

    static void show(ViewWriter &view, const Value &aircraft) {
        // The sixth label counts backwards; viewers know it so.
        static constexpr const char *kLabels[kIdentityChars] = {
            "Bit[0-5]", "Bit[6-11]", "Bit[12-17]", "Bit[18-23]", "Bit[24-29]", "Bit[30-25]", "Bit[36-41]", "Bit[42-47]",
        };
        DetailTable table(view, "Bit", "Item", "Value");
        write_identity_rows(aircraft.text, [&](unsigned place, std::string_view name, std::string_view character) {
            table.row(kLabels[place], name, character);
        });
    }

    static bool write(uint8_t *octets, const Value &aircraft) {
        write_identity(octets, aircraft.text);
        return true;
    }
};

} // namespace

AST_DEFINE_ENCODED_ITEM(AircraftId, ast_dataitem_aircraft_id)

// ---- Target identification ----

namespace {

constexpr uint32_t kUndefinedIdentitySource = 3;

struct TargetId : SharedLayout<ast_target_id_t, items::target_id.size> {
    static constexpr Value kDefault = {.valid = false, .sti = kUndefinedIdentitySource, .text = {}};

    static void read(Value &target, const uint8_t *octets) {
        target.sti = bits(octets[0], 8, 7);
        read_identity(target.text, octets + 1);
    }

    static void summarize(TextWriter &out, const Value &target) {
        static constexpr const char *kKinds[] = {"TARGET_ID", "REGISTRATION", "CALLSIGN"};
        if (target.sti == kUndefinedIdentitySource)
            out.append("TARGET_ID:UNDIFINED");
        else
            out.print("%s:%s", kKinds[target.sti], target.text);
    }

    static void show(ViewWriter &view, const Value &target) {
        static constexpr const char *kKinds[] = {"CALLSIGN_OR_REGISTRATION", "REGISTRATION", "CALLSIGN"};
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-1]", "TARGET_ID_TYPE", text_of(kKinds, target.sti, "UNDIFINED"));
        table.row("Bit[2-7]", "SPARE", "0");
        write_identity_rows(target.text, [&](unsigned place, std::string_view name, std::string_view character) {
            const unsigned first = 8 + place * kIdentityCharBits;
            table.row(Cell<12>("Bit[%u-%u]", first, first + kIdentityCharBits - 1), name, character);
        });
    }
};

} // namespace

AST_DEFINE_ITEM(TargetId, ast_dataitem_target_id)

// ---- Signal amplitude ----

namespace {

struct SignalAmplitude : OctetNumber<items::signal_amplitude.size> {
    static void summarize(TextWriter &out, const Value &amplitude) { out.print("AMP:%u", amplitude.value); }
};

} // namespace

AST_DEFINE_SUMMARIZED_ITEM(SignalAmplitude, ast_dataitem_signal_amplitude)
AST_DEFINE_ENCODE(SignalAmplitude, ast_dataitem_signal_amplitude_encode)
