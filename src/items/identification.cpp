// Who sent it and whom it is about: sources, services, track numbers, addresses and names.

#include <cstring>

#include "core/bits.hpp"
#include "core/lookup.hpp"
#include "items/characters.hpp"
#include "items/value.hpp"
#include "view/html.hpp"

using namespace ast;

namespace {

constexpr uint32_t kMaxOctet = 255;

// One octet that is a number by itself.
ast_uint_value_t decode_octet(const ast_dataitem_t *item) {
    ast_uint_value_t number{};
    if (!holds(item, 1)) return number;
    number.value = item->data[0];
    number.valid = true;
    return number;
}

void encode_octet(ast_dataitem_t *result, uint8_t *buffer, uint64_t length, const ast_dataitem_src_t *source) {
    const auto *const number = open_encode<ast_uint_value_t>(result, buffer, length, source, 1);
    if (!number || number->value > kMaxOctet) return;
    buffer[0] = static_cast<uint8_t>(number->value);
    written(result);
}

} // namespace

// ---- Message type ----

ast_uint_value_t ast_dataitem_message_type_decode(const ast_dataitem_t *item) { return decode_octet(item); }

void ast_dataitem_message_type_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                      const ast_dataitem_src_t *source) {
    encode_octet(result, buffer, length, source);
}

// ---- Data source identifier ----

ast_sac_sic_t ast_dataitem_data_source_identifier_decode(const ast_dataitem_t *item) {
    ast_sac_sic_t source{};
    if (!holds(item, 2)) return source;
    source.sac = item->data[0];
    source.sic = item->data[1];
    source.valid = true;
    return source;
}

void ast_dataitem_data_source_identifier_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                                const ast_dataitem_src_t *source) {
    const auto *const identifier = open_encode<ast_sac_sic_t>(result, buffer, length, source, 2);
    if (!identifier || identifier->sac > kMaxOctet || identifier->sic > kMaxOctet) return;
    buffer[0] = static_cast<uint8_t>(identifier->sac);
    buffer[1] = static_cast<uint8_t>(identifier->sic);
    written(result);
}

void ast_dataitem_data_source_identifier_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto source = ast_dataitem_data_source_identifier_decode(item);
    if (source.valid) out.print("SAC:%03u SIC:%03u", source.sac, source.sic);
}

namespace {

void write_area_code(HtmlWriter &html, uint32_t sac) {
    html.title("System Area Code (SAC)");
    DetailTable table(html, "Octet", "Name", "Hex", "Dec", "Region", "Country");
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

void write_identification_code(HtmlWriter &html, uint32_t sac, uint32_t sic) {
    html.title("System Identification Code (SIC)");
    DetailTable table(html, "Octet", "Name", "Hex", "Dec", "Country", "System", "Type", "Manufacturer", "Model",
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

} // namespace

void ast_dataitem_data_source_identifier_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto source = ast_dataitem_data_source_identifier_decode(item);
    if (!source.valid) return;
    write_area_code(html, source.sac);
    write_identification_code(html, source.sac, source.sic);
}

// ---- Service identification ----

ast_uint_value_t ast_dataitem_service_id_decode(const ast_dataitem_t *item) { return decode_octet(item); }

void ast_dataitem_service_id_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                    const ast_dataitem_src_t *source) {
    encode_octet(result, buffer, length, source);
}

void ast_dataitem_service_id_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto service = ast_dataitem_service_id_decode(item);
    if (service.valid) out.print("SVC_ID:%03u", service.value);
}

// ---- Track number ----

namespace {

constexpr uint32_t kShortTrackNumber = 0x0FFF; // 12 bits; the upper four are spare

// The items whose track number takes all 16 bits. I015/161 is read so but written in 12 bits; receivers rely on both.
struct LongTrackNumber {
    ast_dataitem_type_t type;
    bool is_encoded_long;
};

constexpr LongTrackNumber kLongTrackNumbers[] = {
    {1161, true}, {4030, true}, {4035, true}, {15161, false}, {62040, true},
};

const LongTrackNumber *find_long_track_number(ast_dataitem_type_t type) {
    for (const LongTrackNumber &number : kLongTrackNumbers)
        if (number.type == type) return &number;
    return nullptr;
}

} // namespace

ast_uint_value_t ast_dataitem_track_number_decode(const ast_dataitem_t *item) {
    ast_uint_value_t number{};
    if (!holds(item, 2)) return number;
    const uint32_t raw = read_u16(item->data);
    number.value = find_long_track_number(item->type) ? raw : raw & kShortTrackNumber;
    number.valid = true;
    return number;
}

void ast_dataitem_track_number_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                      const ast_dataitem_src_t *source) {
    const auto *const number = open_encode<ast_uint_value_t>(result, buffer, length, source, 2);
    if (!number) return;
    const LongTrackNumber *const found = find_long_track_number(source->type);
    write_u16(buffer, found && found->is_encoded_long ? number->value : number->value & kShortTrackNumber);
    written(result);
}

void ast_dataitem_track_number_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto number = ast_dataitem_track_number_decode(item);
    if (number.valid) out.print("TRACK_NUM:%04u", number.value);
}

// ---- Target address ----

ast_target_address_t ast_dataitem_target_address_decode(const ast_dataitem_t *item) {
    ast_target_address_t target{};
    if (!holds(item, sizeof target.octets)) return target;
    std::memcpy(target.octets, item->data, sizeof target.octets);
    target.address = read_u24(item->data);
    target.valid = true;
    return target;
}

void ast_dataitem_target_address_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                        const ast_dataitem_src_t *source) {
    auto *const target = open_encode<ast_target_address_t>(result, buffer, length, source, 3);
    if (!target || target->address == 0) return;
    write_u24(target->octets, target->address);
    std::memcpy(buffer, target->octets, sizeof target->octets);
    written(result);
}

void ast_dataitem_target_address_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto target = ast_dataitem_target_address_decode(item);
    if (target.valid) out.print("ADDR:%.6X", target.address);
}

void ast_dataitem_target_address_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto target = ast_dataitem_target_address_decode(item);
    if (!target.valid || !has_country_lookup()) return;
    const ast_country_t country = aircraft_country(target.address, item);
    if (country.found)
        html.paragraph("This ICAO 24-bit address %.6X is allocated to %s (%s).", target.address, country.name,
                       country.code);
    else
        html.paragraph("This ICAO 24-bit address %.6X is allocated to unknown country/region.", target.address);
}

// ---- Aircraft identification ----

ast_aircraft_id_t ast_dataitem_aircraft_id_decode(const ast_dataitem_t *item) {
    ast_aircraft_id_t aircraft{};
    if (!holds(item, kIdentityOctets)) return aircraft;
    read_identity(aircraft.text, item->data);
    aircraft.valid = true;
    return aircraft;
}

void ast_dataitem_aircraft_id_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                     const ast_dataitem_src_t *source) {
    const auto *const aircraft = open_encode<ast_aircraft_id_t>(result, buffer, length, source, kIdentityOctets);
    if (!aircraft) return;
    write_identity(buffer, aircraft->text);
    written(result);
}

void ast_dataitem_aircraft_id_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto aircraft = ast_dataitem_aircraft_id_decode(item);
    if (aircraft.valid) out.print("ACID:%s", aircraft.text);
}

void ast_dataitem_aircraft_id_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    // The sixth label counts backwards; viewers know it so.
    static constexpr const char *kLabels[kIdentityChars] = {"Bit[0-5]",   "Bit[6-11]",  "Bit[12-17]", "Bit[18-23]",
                                                            "Bit[24-29]", "Bit[30-25]", "Bit[36-41]", "Bit[42-47]"};
    HtmlWriter html(text, capacity);
    const auto aircraft = ast_dataitem_aircraft_id_decode(item);
    if (!aircraft.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    write_identity_rows(aircraft.text, [&](unsigned place, std::string_view name, std::string_view character) {
        table.row(kLabels[place], name, character);
    });
}

// ---- Target identification ----

namespace {

constexpr uint32_t kUndefinedIdentitySource = 3;

} // namespace

ast_target_id_t ast_dataitem_target_id_decode(const ast_dataitem_t *item) {
    ast_target_id_t target{};
    target.sti = kUndefinedIdentitySource;
    if (!holds(item, 1 + kIdentityOctets)) return target;
    target.sti = bits(item->data[0], 8, 7);
    read_identity(target.text, item->data + 1);
    target.valid = true;
    return target;
}

void ast_dataitem_target_id_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kKinds[] = {"TARGET_ID", "REGISTRATION", "CALLSIGN"};
    TextWriter out(text, capacity);
    const auto target = ast_dataitem_target_id_decode(item);
    if (!target.valid) return;
    if (target.sti == kUndefinedIdentitySource)
        out.append("TARGET_ID:UNDIFINED");
    else
        out.print("%s:%s", kKinds[target.sti], target.text);
}

void ast_dataitem_target_id_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kKinds[] = {"CALLSIGN_OR_REGISTRATION", "REGISTRATION", "CALLSIGN"};
    HtmlWriter html(text, capacity);
    const auto target = ast_dataitem_target_id_decode(item);
    if (!target.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0-1]", "TARGET_ID_TYPE", text_of(kKinds, target.sti, "UNDIFINED"));
    table.row("Bit[2-7]", "SPARE", "0");
    write_identity_rows(target.text, [&](unsigned place, std::string_view name, std::string_view character) {
        const unsigned first = 8 + place * kIdentityCharBits;
        table.row(Cell<12>("Bit[%u-%u]", first, first + kIdentityCharBits - 1), name, character);
    });
}

// ---- Signal amplitude ----

ast_uint_value_t ast_dataitem_signal_amplitude_decode(const ast_dataitem_t *item) { return decode_octet(item); }

void ast_dataitem_signal_amplitude_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                          const ast_dataitem_src_t *source) {
    encode_octet(result, buffer, length, source);
}

void ast_dataitem_signal_amplitude_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto amplitude = ast_dataitem_signal_amplitude_decode(item);
    if (amplitude.valid) out.print("AMP:%u", amplitude.value);
}
