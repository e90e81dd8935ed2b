// Category 020: multilateration target reports, edition 1.11.

#include "cat/flat.hpp"
#include "codec/fspec.hpp"
#include "items/accessors.hpp"
#include "items/code.hpp"
#include "items/items.hpp"
#include "items/octet_chain.hpp"
#include "items/scaled.hpp"
#include "items/transponder.hpp"
#include "items/vehicle_fleet.hpp"
#include "items/warnings.hpp"

using namespace ast;

// ---- I020/020 Target Report Descriptor ----

struct I020_020 : Item<20020, ast_dataitem_020_020_t, extended<3>> {
    static constexpr uint32_t kFormatNotAvailable = 3;
    static constexpr Value kDefault = {.chn = 1, .cf = kFormatNotAvailable};
    static constexpr const char *kFormats[] = {"ICAO_ADDRESS", "NON_ICAO_ADDRESS", "NON_ADS-B_MESSAGE",
                                               "NOT_AVAILABLE"};

    static constexpr Row<Value> kRows[] = {
        {&Value::ssr, "SSR_MULTILATERATION"},
        {&Value::ms, "MODE-S_MULTILATERATION"},
        {&Value::hf, "HF_MULTILATERATION"},
        {&Value::vdl4, "VDL4_MULTILATERATION"},
        {&Value::uat, "UAT_MULTILATERATION"},
        {&Value::dme, "DME_MULTILATERATION"},
        {&Value::ot, "OTHER_MULTILATERATION"},
        fx,
        {&Value::rab, "FIXED_TRANSPONDER"},
        {&Value::spi, "SPI"},
        {&Value::chn, kFirstOrSecond, "PROCESSING_CHAIN"},
        {&Value::gbs, "GROUND_BIT_SET"},
        {&Value::crt, "CORRUPTED_REPLIES"},
        {&Value::sim, "SIMULATED_TARGET"},
        {&Value::tst, "TEST_TARGET"},
        fx,
        {&Value::cf, 2, "CF_INDICATION", kFormats},
        spare(5, "0"),
        fx,
    };

    // A bit that is set names a technology that took part; systems in service send them so.
    static void summarize(TextWriter &out, const Value &report) {
        const char *sign = "";
        out.append("TYPE:");
        const auto name = [&](bool takes_part, const char *technology) {
            if (!takes_part) return;
            out.print("%s%s", sign, technology);
            sign = "+";
        };
        name(report.ssr, "SSR");
        name(report.ms, "MODE_S");
        name(report.hf, "HF");
        name(report.vdl4, "VDL4");
        name(report.uat, "UAT");
        name(report.dme, "DME");
        name(report.ot, "OTHER");
        out.append(*sign ? "" : "NONE");
        out.print("%s CHN%u", shown_if(report.sim, " SIM"), report.chn);
        out.append(shown_if(report.spi, " SPI"));
        out.append(shown_if(report.rab, " RAB"));
        out.append(shown_if(report.tst, " TST"));
        out.append(shown_if(report.gbs, " GBS"));
        out.append(shown_if(report.crt, " CRT"));
    }

    // The third octet is left out when it would say what its absence does.
    static uint64_t write(uint8_t *octets, const Value &report) {
        if (!place_rows<I020_020>(octets, report)) return 0;
        return report.cf == kFormatNotAvailable ? chain_to_last(octets, 2) : chain(octets, 3);
    }
};

AST_DEFINE_ENCODED_ITEM(I020_020, ast_dataitem_020_020)

// ---- I020/030 Warning/Error Conditions ----

struct I020_030 : WarningConditions<20030, kUnlimitedOctets, describe_warning> {};

AST_DEFINE_ENCODED_ITEM(I020_030, ast_dataitem_020_030)

// ---- I020/055 Mode-1 Code ----

struct I020_055 : Item<20055, ast_dataitem_020_055_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {
        {&Value::not_validated, "NOT_VALIDATED"},
        {&Value::garbled, "GARBLED"},
        {&Value::smoothed, "SMOOTHED"},
        {&Value::code, 5, "CODE", kOctalDigits},
    };

    static void summarize(TextWriter &out, const Value &code) {
        out.print("MODE_1:%o%o%s%s%s", bits(code.code, 5, 3), bits(code.code, 2, 1),
                  shown_if(code.not_validated, kNotValidated), shown_if(code.garbled, kGarbled),
                  shown_if(code.smoothed, kSmoothed));
    }
};

AST_DEFINE_ENCODED_ITEM(I020_055, ast_dataitem_020_055)

// ---- I020/170 Track Status ----

struct I020_170 : Item<20170, ast_dataitem_020_170_t, extended<2>> {
    static constexpr uint32_t kInvalid = 3;
    static constexpr Value kDefault = {.cdm = kInvalid};
    static constexpr const char *kVertical[] = {"MAINTAINING", "CLIMBING", "DESCENDING", "INVALID"};

    static constexpr Columns kColumns = kBitColumnsWithIds;
    static constexpr Row<Value> kRows[] = {
        {&Value::cnf, {"CNF", "TENTATIVE"}},
        {&Value::tre, {"TRE", "TRACK_END"}},
        {&Value::cst, {"CST", "COASTING"}},
        {&Value::cdm, 2, {"CDM", "VERTICAL_MANOEUVRE"}, kVertical},
        {&Value::mah, {"MAH", "HORIZONTAL_MANOEUVRE"}},
        {&Value::sth, {"STH", "POSITION"}, {"MEASURED", "SMOOTHED"}},
        fx,
        {&Value::gho, {"GHO", "GHOST_TRACK"}},
        spare(6, ""),
        fx,
    };

    static void summarize(TextWriter &out, const Value &status) {
        out.print("TRACK_STS:%s", status.cnf ? "TENTATIVE" : "CONFIRMED");
        out.append(shown_if(status.tre, " END"));
        out.append(shown_if(status.cst, " COASTED"));
        out.append(shown_if(status.gho, " GHOST"));
    }
};

AST_DEFINE_ENCODED_ITEM(I020_170, ast_dataitem_020_170)

// ---- I020/210 Calculated Acceleration ----

struct I020_210 : ScaledPairItem<20210, signed_number(8, 1, 4)> { // metres per second squared
    static void summarize(TextWriter &out, const Value &acceleration) {
        out.print("AX:%.2f AY:%.2f", acceleration.value_1, acceleration.value_2);
    }

    static void show(ViewWriter &view, const Value &acceleration) {
        DetailTable table(view, "Octet", "Item", "Value");
        table.row("Octet[1]", "ACCELERATION_X LSB:M/S^2", Cell<20>("%.2f", acceleration.value_1));
        table.row("Octet[2]", "ACCELERATION_Y LSB:M/S^2", Cell<20>("%.2f", acceleration.value_2));
    }
};

AST_DEFINE_ENCODED_ITEM(I020_210, ast_dataitem_020_210)

// ---- I020/230 Communications/ACAS Capability and Flight Status ----

struct I020_230 : CommAndFlightStatus<20230> {};

AST_DEFINE_ENCODED_ITEM(I020_230, ast_dataitem_020_230)

// ---- I020/260 ACAS Resolution Advisory Report ----

struct I020_260 : AcasAdvisory<20260> {};

AST_DEFINE_ITEM(I020_260, ast_dataitem_020_260)

// ---- I020/300 Vehicle Fleet Identification ----

struct I020_300 : Item<20300, ast_uint_value_t, fixed<1>> {
    static constexpr Columns kColumns = kOctetColumns;
    static constexpr Row<Value> kRows[] = {{&Value::value, 8, "VEHICLE_FLEET_ID", vehicle_fleet}};
    static void summarize(TextWriter &out, const Value &fleet) { out.print("FLEET:%s", vehicle_fleet(fleet.value)); }
};

AST_DEFINE_ENCODED_ITEM(I020_300, ast_dataitem_020_300)

// ---- I020/310 Pre-programmed Message ----

struct I020_310 : Item<20310, ast_dataitem_020_310_t, fixed<1>> {
    static const char *message_text(uint32_t msg) {
        static constexpr const char *kMessages[] = {"UNDEFINED",    "TOWING_AIRCRAFT",     "FOLLOW_ME",
                                                    "RUNWAY_CHECK", "EMERGENCY_OPERATION", "WORK_IN_PROGRESS"};
        return text_of(kMessages, msg, "UNDEFINED");
    }

    static constexpr Row<Value> kRows[] = {{&Value::trb, "IN_TROUBLE"}, {&Value::msg, 7, "MESSAGE", message_text}};

    static void summarize(TextWriter &out, const Value &message) {
        out.print("MSG:%s%s", message_text(message.msg), shown_if(message.trb, " IN_TROUBLE"));
    }
};

AST_DEFINE_ENCODED_ITEM(I020_310, ast_dataitem_020_310)

// ---- I020/400 Contributing Devices ----

// Receiver units are numbered from the last bit on: bit 1 of the last octet is unit 1.
struct I020_400 : Item<20400, ast_dataitem_020_400_t, repetitive<1>> {
    static constexpr uint64_t kMostOctets = 1 + AST_020_400_MAX_OCTETS;
    static constexpr uint64_t kUnitsPerOctet = 8;

    static bool read(Value &devices, const ast_dataitem_t &item) {
        if (item.size != 1 + uint64_t{item.data[0]}) return false;
        devices.count = item.data[0];
        uint64_t octet = 1;
        for (uint8_t &held : devices.octets) {
            if (octet == item.size) break;
            devices.units += bits_set(held = item.data[octet++]);
        }
        for (; octet < item.size; ++octet) devices.units += bits_set(item.data[octet]);
        return true;
    }

    static void summarize(TextWriter &out, const Value &devices) { out.print("DEVICES:%u", devices.units); }

    static void show(ViewWriter &view, const Value &, const ast_dataitem_t &item) {
        DetailTable table(view, "Octet", "Item", "Value");
        for (uint64_t octet = 1; octet < item.size; ++octet) {
            const auto lowest = static_cast<unsigned>((item.size - 1 - octet) * kUnitsPerOctet + 1);
            table.row(Cell<16>("Octet[%u]", static_cast<unsigned>(octet + 1)),
                      Cell<16>("RU%u-RU%u", lowest + 7, lowest), BinaryOctet(item.data[octet]));
        }
    }

    static uint64_t write(uint8_t *octets, const Value &devices) {
        if (devices.count > std::size(devices.octets)) return 0;
        octets[0] = static_cast<uint8_t>(devices.count);
        std::copy_n(devices.octets, devices.count, octets + 1);
        return 1 + uint64_t{devices.count};
    }
};

AST_DEFINE_ENCODED_ITEM(I020_400, ast_dataitem_020_400)

// ---- I020/500 Position Accuracy ----

namespace {

constexpr SubfieldRow kPositionAccuracyRows[] = {
    {"DOP", "DOP of Position", fixed<6>},
    {"SDP", "Standard Deviation of Position", fixed<6>},
    {"SDH", "Standard Deviation of Geometric Height (WGS 84)", fixed<2>},
};

constexpr Compound kPositionAccuracy = {
    .type = 20500, .rows = kPositionAccuracyRows, .count = std::size(kPositionAccuracyRows)};

} // namespace

// Sized as the compound item that it is; its subfields are not registered, and it is shown as a whole.
uint64_t ast_dataitem_020_500_get_size(const uint8_t *data, uint64_t available) {
    return compound_size(kPositionAccuracy, data, available);
}

struct I020_500 : Item<20500, ast_dataitem_020_500_t, SizeRule{}> {
    static constexpr SizeRule kSize = sized_by(ast_dataitem_020_500_get_size);
    static constexpr double kLsb = 0.25;
    static constexpr double kHeightLsbM = 0.5;

    static double read_quarters(const uint8_t *octets) { return read_u16(octets) * kLsb; }

    static bool read(Value &accuracy, const ast_dataitem_t &item) {
        if (ast_dataitem_020_500_get_size(item.data, item.size) != item.size) return false;
        const ast_fspec_t primary = ast_fspec_decode(item.data, item.size);
        const uint8_t *next = item.data + primary.length;
        const auto take = [&](uint32_t number) -> const uint8_t * {
            if (!ast_fspec_is_set(&primary, number)) return nullptr;
            const uint8_t *const octets = next;
            next += kPositionAccuracyRows[number - 1].size.octets;
            return octets;
        };
        if (const uint8_t *const dop = take(1))
            accuracy.dop = {true, read_quarters(dop), read_quarters(dop + 2), read_quarters(dop + 4)};
        if (const uint8_t *const sdp = take(2))
            accuracy.sdp = {true, read_quarters(sdp), read_quarters(sdp + 2), read_quarters(sdp + 4)};
        if (const uint8_t *const sdh = take(3)) accuracy.sdh = {true, read_u16(sdh) * kHeightLsbM};
        return true;
    }

    static void summarize(TextWriter &out, const Value &accuracy) {
        const char *gap = "";
        if (accuracy.dop.present) {
            out.print("DOP:%.2f,%.2f,%.2f", accuracy.dop.x, accuracy.dop.y, accuracy.dop.xy);
            gap = " ";
        }
        if (accuracy.sdp.present) {
            out.print("%sSDP:%.2f,%.2f,%.2f", gap, accuracy.sdp.x_m, accuracy.sdp.y_m, accuracy.sdp.xy);
            gap = " ";
        }
        if (accuracy.sdh.present) out.print("%sSDH:%.1f", gap, accuracy.sdh.height_m);
    }

    static void show(ViewWriter &view, const Value &accuracy) {
        DetailTable table(view, "ID", "Item", "Value");
        const auto row = [&](const char *id, const char *name, double value) {
            table.row(id, name, Cell<20>("%.2f", value));
        };
        if (accuracy.dop.present) {
            row("DOP", "X-COMPONENT", accuracy.dop.x);
            row("DOP", "Y-COMPONENT", accuracy.dop.y);
            row("DOP", "CORRELATION_XY", accuracy.dop.xy);
        }
        if (accuracy.sdp.present) {
            row("SDP", "X-COMPONENT LSB:M", accuracy.sdp.x_m);
            row("SDP", "Y-COMPONENT LSB:M", accuracy.sdp.y_m);
            row("SDP", "CORRELATION_XY", accuracy.sdp.xy);
        }
        if (accuracy.sdh.present) row("SDH", "GEO_HEIGHT LSB:M", accuracy.sdh.height_m);
    }
};

AST_DEFINE_ITEM(I020_500, ast_dataitem_020_500)

// ---- Accessors ----

ast_sac_sic_t ast_datarecord_020_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 20010); }
ast_time_of_day_t ast_datarecord_020_get_timeofday(const ast_datarecord_t *record) {
    return timeofday_of(record, 20140);
}
ast_uint_value_t ast_datarecord_020_get_msgtype(const ast_datarecord_t *record) {
    return msgtype_of(record, AST_MSGTYPE_MLAT);
}
ast_uint_value_t ast_datarecord_020_get_tracknum(const ast_datarecord_t *record) { return tracknum_of(record, 20161); }
ast_squawk_t ast_datarecord_020_get_squawk(const ast_datarecord_t *record) { return whole_squawk_of(record, 20070); }

ast_aircraft_id_t ast_datarecord_020_get_callsign(const ast_datarecord_t *record) {
    const auto target = ast_dataitem_target_id_decode(first_item(record, 20245));
    ast_aircraft_id_t callsign{.valid = target.valid, .text = {}};
    std::copy(std::begin(target.text), std::end(target.text), callsign.text);
    return callsign;
}

ast_icao_address_t ast_datarecord_020_get_icaoaddr(const ast_datarecord_t *record) {
    return icaoaddr_of(record, 20220);
}
ast_coordinate_t ast_datarecord_020_get_coordinate(const ast_datarecord_t *record) {
    return coordinate_of(record, 20041);
}
ast_quantity_t ast_datarecord_020_get_flightlevel(const ast_datarecord_t *record) {
    return first_valid(level_of(record, 20090), first_valid(height_of(record, 20110), height_of(record, 20105)));
}

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_020_t;

constexpr FlatMember<Flat> kMembers[] = {
    both_ways<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(20010),
    both_ways<&Flat::target_report, I020_020>(),
    both_ways<&Flat::warnings, I020_030>(),
    taken_apart<&Flat::position, ast_dataitem_position_wgs84_decode>(20041),
    taken_apart<&Flat::cartesian_position, ast_dataitem_position_cartesian_decode>(20042),
    both_ways<&Flat::mode_2, ast_dataitem_mode_3a_code_decode>(20050),
    both_ways<&Flat::mode_1, I020_055>(),
    both_ways<&Flat::mode_3a, ast_dataitem_mode_3a_code_decode>(20070),
    both_ways<&Flat::mode_c, ast_dataitem_mode_c_code_decode>(20090),
    both_ways<&Flat::mode_c_confidence, ast_dataitem_mode_c_confidence_decode>(20100),
    taken_apart<&Flat::geometric_height, ast_dataitem_height_decode>(20105),
    taken_apart<&Flat::measured_height, ast_dataitem_height_decode>(20110),
    both_ways<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(20140),
    both_ways<&Flat::track_number, ast_dataitem_track_number_decode>(20161),
    both_ways<&Flat::track_status, I020_170>(),
    taken_apart<&Flat::cartesian_velocity, ast_dataitem_velocity_cartesian_decode>(20202),
    both_ways<&Flat::acceleration, I020_210>(),
    taken_apart<&Flat::target_address, ast_dataitem_target_address_decode>(20220),
    both_ways<&Flat::comm_and_flight_status, I020_230>(),
    taken_apart<&Flat::target_id, ast_dataitem_target_id_decode>(20245),
    taken_apart<&Flat::modes_mb, ast_dataitem_modes_mb_decode>(20250),
    taken_apart<&Flat::acas_advisory, I020_260>(),
    both_ways<&Flat::vehicle_fleet, I020_300>(),
    both_ways<&Flat::message, I020_310>(),
    both_ways<&Flat::contributing_devices, I020_400>(),
    taken_apart<&Flat::position_accuracy, I020_500>(),
};

} // namespace

ast_datarecord_020_t *ast_datarecord_020_disassemble(ast_datarecord_020_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 20, kMembers, report_quietly);
}

ast_datarecord_t ast_datarecord_020_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_020_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 20, uap, kMembers);
}

// ---- The category ----

namespace {

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_020_get_sacsic,
    .get_timeofday = ast_datarecord_020_get_timeofday,
    .get_msgtype = ast_datarecord_020_get_msgtype,
    .get_tracknum = ast_datarecord_020_get_tracknum,
    .get_squawk = ast_datarecord_020_get_squawk,
    .get_callsign = ast_datarecord_020_get_callsign,
    .get_icaoaddr = ast_datarecord_020_get_icaoaddr,
    .get_coordinate = ast_datarecord_020_get_coordinate,
    .get_flightlevel = ast_datarecord_020_get_flightlevel,
};

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    own<I020_020>("Target Report Descriptor"),
    own<I020_030>("Warning/Error Conditions"),
    {41, "Position In WGS-84 Coordinates", items::without_encoder(items::position_wgs84)},
    {42, "Position in Cartesian Coordinates", items::position_cartesian},
    {50, "Mode-2 Code in Octal Representation", items::mode_3a_code},
    own<I020_055>("Mode-1 Code in Octal Representation"),
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {90, "Flight Level in Binary Representation", items::mode_c_code},
    {100, "Mode C Code", items::mode_c_confidence},
    {105, "Geometric Height (WGS-84)", items::height},
    {110, "Measured Height (Local Cartesian Coordinates)", items::height},
    {140, "Time of Day", items::time_of_day},
    {161, "Track Number", items::track_number},
    own<I020_170>("Track Status"),
    {202, "Calculated Track Velocity in Cartesian Coordinates", items::velocity_cartesian},
    own<I020_210>("Calculated Acceleration"),
    {220, "Target Address", items::without_encoder(items::target_address)},
    own<I020_230>("Communications/ACAS Capability and Flight Status"),
    {245, "Target Identification", items::target_id},
    {250, "BDS Register Data", items::modes_mb},
    own<I020_260>("ACAS Resolution Advisory Report"),
    own<I020_300>("Vehicle Fleet Identification"),
    own<I020_310>("Pre-programmed Message"),
    own<I020_400>("Contributing Devices"),
    own<I020_500>("Position Accuracy"),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory020, 20, "Unknown CAT020 Dataitem", kItems, ast_dataitem_020_get_name,
                    .accessors = kAccessors)
