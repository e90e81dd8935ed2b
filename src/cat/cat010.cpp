// Category 010: monosensor surface movement reports, edition 1.1.

#include "cat/flat.hpp"
#include "items/accessors.hpp"
#include "items/items.hpp"
#include "items/message_type.hpp"
#include "items/radar_position.hpp"
#include "items/scaled.hpp"
#include "items/target_size.hpp"

using namespace ast;

// ---- I010/000 Message Type ----

struct I010_000 : MessageType<10000> {
    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED", "TARGET_REPORT", "START_OF_UPDATE_CYCLE",
                                                 "PERIODIC_STATUS", "EVENT_STATUS"};
        write_message_type(out, kTypes, type.value);
    }
};

AST_DEFINE_SUMMARY(I010_000, ast_dataitem_010_000_get_summary)

// ---- I010/020 Target Report Descriptor ----

struct I010_020 : Item<10020, ast_dataitem_010_020_t, extended<3>> {
    static constexpr uint32_t kFirstChain = 1;
    static constexpr uint32_t kSecondChain = 2;
    static constexpr Value kDefault = {.chn = kFirstChain};

    static void read(Value &report, const ast_dataitem_t &item) {
        const uint8_t first = item.data[0];
        report.typ = bits(first, 8, 6);
        report.dcr = bit(first, 5);
        report.chn = bit(first, 4) ? kSecondChain : kFirstChain;
        report.gbs = bit(first, 3);
        report.crt = bit(first, 2);
        if (item.size < 2) return;
        const uint8_t second = item.data[1];
        report.sim = bit(second, 8);
        report.tst = bit(second, 7);
        report.rab = bit(second, 6);
        report.lop = bits(second, 5, 4);
        report.tot = bits(second, 3, 2);
        report.spi = item.size >= 3 && bit(item.data[2], 8);
    }

    static constexpr const char *kTypes[] = {"SSR_MLAT",      "MODE_S_MLAT", "ADS-B",     "PSR",
                                             "MAGNETIC_LOOP", "HF_MLAT",     "UNDEFINED", "OTHER"};

    static void summarize(TextWriter &out, const Value &report) {
        static constexpr const char *kLoops[] = {"", " LOOP_START", " LOOP_FINISH", " LOOP_UNDEFINED"};
        static constexpr const char *kTargets[] = {"", " AIRCRAFT", " GROUND_VEHICLE", " HELICOPTER"};
        out.print("TYPE:%s%s CHN%u", kTypes[report.typ], shown_if(report.sim, " SIM"), report.chn);
        out.append(shown_if(report.spi, " SPI"));
        out.append(shown_if(report.rab, " RAB"));
        out.append(shown_if(report.tst, " TST"));
        out.append(shown_if(report.dcr, " DCR"));
        out.append(shown_if(report.gbs, " GBS"));
        out.append(shown_if(report.crt, " CRT"));
        out.append(kLoops[report.lop]);
        out.append(kTargets[report.tot]);
    }

    static void show(ViewWriter &view, const Value &report, const ast_dataitem_t &item) {
        static constexpr const char *kLoops[] = {"UNDETERMINED", "LOOP_START", "LOOP_FINISH", "UNDEFINED"};
        static constexpr const char *kTargets[] = {"UNDETERMINED", "AIRCRAFT", "GROUND_VEHICLE", "HELICOPTER"};
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-2]", "TARGET_TYPE", kTypes[report.typ]);
        table.row("Bit[3]", "DIFFERENTIAL_CORRECTION", Cell<2>("%d", report.dcr));
        table.row("Bit[4]", "PROCESSING_CHAIN", Cell<2>("%u", report.chn));
        table.row("Bit[5]", "GROUND_BIT_SET", Cell<2>("%d", report.gbs));
        table.row("Bit[6]", "CORRUPTED_REPLIES", Cell<2>("%d", report.crt));
        table.row("Bit[7]", "FX", Cell<2>("%d", item.size >= 2));
        if (item.size < 2) return;
        table.row("Bit[8]", "SIMULATED_TARGET", Cell<2>("%d", report.sim));
        table.row("Bit[9]", "TEST_TARGET", Cell<2>("%d", report.tst));
        table.row("Bit[10]", "FIXED_TRANSPONDER", Cell<2>("%d", report.rab));
        table.row("Bit[11-12]", "LOOP_STATUS", kLoops[report.lop]);
        table.row("Bit[13-14]", "TYPE_OF_TARGET", kTargets[report.tot]);
        table.row("Bit[15]", "FX", Cell<2>("%d", item.size >= 3));
        if (item.size < 3) return;
        table.row("Bit[16]", "SPI", Cell<2>("%d", report.spi));
        table.row("Bit[17-22]", "SPARE", "0");
        table.row("Bit[23]", "FX", Cell<2>("%d", has_fx(item.data[2])));
    }

    static uint64_t write(uint8_t *octets, const Value &report) {
        if (!fits(report.typ, 3) || !fits(report.lop, 2) || !fits(report.tot, 2)) return 0;
        if (!is_first_or_second(report.chn)) return 0;
        octets[0] =
            static_cast<uint8_t>(placed(report.typ, 8, 6) | placed(report.dcr, 5) |
                                 placed(report.chn == kSecondChain, 4) | placed(report.gbs, 3) | placed(report.crt, 2));
        octets[1] = static_cast<uint8_t>(placed(report.sim, 8) | placed(report.tst, 7) | placed(report.rab, 6) |
                                         placed(report.lop, 5, 4) | placed(report.tot, 3, 2));
        octets[2] = placed(report.spi, 8);
        return chain_to_last(octets, 3);
    }
};

AST_DEFINE_DECODE(I010_020, ast_dataitem_010_020_decode)
AST_DEFINE_VIEWS(I010_020, ast_dataitem_010_020_get_summary, ast_dataitem_010_020_get_detail_html)
AST_DEFINE_ENCODE(I010_020, ast_dataitem_010_020_encode)

// ---- I010/040 Measured Position in Polar Co-ordinates ----

struct I010_040 : PolarPosition<10040, ast_dataitem_010_040_t, &ast_dataitem_010_040_t::rho_m, 1> {
    static void summarize(TextWriter &out, const Value &position) {
        out.print("RHO:%.1f LSB:M THETA:%.1f", position.rho_m, position.theta_deg);
    }
    static void show(ViewWriter &view, const Value &position) { show_as(view, position, "RHO LSB:M", "Octet[3-4]"); }
    static bool write(uint8_t *octets, Value &position) { return write_fitting(octets, position); }
};

AST_DEFINE_DECODE(I010_040, ast_dataitem_010_040_decode)
AST_DEFINE_VIEWS(I010_040, ast_dataitem_010_040_get_summary, ast_dataitem_010_040_get_detail_html)
AST_DEFINE_ENCODE(I010_040, ast_dataitem_010_040_encode)

// ---- I010/042 Position in Cartesian Co-ordinates ----

struct I010_042 : ScaledPairItem<10042, FieldScale{2, true, 1, 1}> { // metres
    static void summarize(TextWriter &out, const Value &position) {
        out.print("X:%.1f Y:%.1f LSB:M", position.value_1, position.value_2);
    }
    static void show(ViewWriter &view, const Value &position) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Octet[1-2]", "X LSB:M", Cell<20>("%d", position.raw_1));
        table.row("Octet[3-4]", "Y LSB:M", Cell<20>("%d", position.raw_2));
    }
};

AST_DEFINE_DECODE(I010_042, ast_dataitem_010_042_decode)
AST_DEFINE_VIEWS(I010_042, ast_dataitem_010_042_get_summary, ast_dataitem_010_042_get_detail_html)
AST_DEFINE_ENCODE(I010_042, ast_dataitem_010_042_encode)

// ---- I010/170 Track Status ----

struct I010_170 : Item<10170, ast_dataitem_010_170_t, extended<3>> {
    static void read(Value &status, const ast_dataitem_t &item) {
        const uint8_t first = item.data[0];
        status.cnf = bit(first, 8);
        status.tre = bit(first, 7);
        status.cst = bits(first, 6, 5);
        status.mah = bit(first, 4);
        status.tcc = bit(first, 3);
        status.sth = bit(first, 2);
        if (item.size < 2) return;
        const uint8_t second = item.data[1];
        status.tom = bits(second, 8, 7);
        status.dou = bits(second, 6, 4);
        status.mrs = bits(second, 3, 2);
        status.gho = item.size >= 3 && bit(item.data[2], 8);
    }

    static void summarize(TextWriter &out, const Value &status) {
        out.print("TRACK_STS:%s", status.cnf ? "TENTATIVE" : "CONFIRMED");
        out.append(shown_if(status.tre, " END"));
        out.append(shown_if(status.cst != 0, " COASTED"));
        out.append(shown_if(status.gho, " GHOST"));
    }

    static void show(ViewWriter &view, const Value &status, const ast_dataitem_t &item) {
        static constexpr const char *kExtrapolations[] = {"NONE", "SENSOR_REFRESH_PERIOD", "MASKED_AREA",
                                                          "UNPREDICTABLE_ABSENCE"};
        static constexpr const char *kMovements[] = {"UNKNOWN", "TAKING_OFF", "LANDING", "OTHER"};
        static constexpr const char *kDoubts[] = {"NO_DOUBT",
                                                  "DOUBTFUL_CORRELATION",
                                                  "DOUBTFUL_CORRELATION_IN_CLUTTER",
                                                  "LOSS_OF_ACCURACY",
                                                  "LOSS_OF_ACCURACY_IN_CLUTTER",
                                                  "UNSTABLE_TRACK",
                                                  "PREVIOUSLY_COASTED",
                                                  "UNDEFINED"};
        static constexpr const char *kMerges[] = {"UNDETERMINED", "MERGED_BY_ASSOCIATION", "MERGED_BY_NON_ASSOCIATION",
                                                  "SPLIT"};
        DetailTable table(view, "Bit", "ID", "Item", "Value");
        table.row("Bit[0]", "CNF", "TENTATIVE", Cell<2>("%d", status.cnf));
        table.row("Bit[1]", "TRE", "TRACK_END", Cell<2>("%d", status.tre));
        table.row("Bit[2-3]", "CST", "EXTRAPOLATION", kExtrapolations[status.cst]);
        table.row("Bit[4]", "MAH", "HORIZONTAL_MANOEUVRE", Cell<2>("%d", status.mah));
        table.row("Bit[5]", "TCC", "TRACKING_PLANE", status.tcc ? "REFERENCE_PLANE" : "SENSOR_PLANE");
        table.row("Bit[6]", "STH", "POSITION", status.sth ? "SMOOTHED" : "MEASURED");
        table.row("Bit[7]", "FX", "FIELD_EXTENSION", Cell<2>("%d", item.size >= 2));
        if (item.size < 2) return;
        table.row("Bit[8-9]", "TOM", "TYPE_OF_MOVEMENT", kMovements[status.tom]);
        table.row("Bit[10-12]", "DOU", "DOUBT", kDoubts[status.dou]);
        table.row("Bit[13-14]", "MRS", "MERGE_OR_SPLIT", kMerges[status.mrs]);
        table.row("Bit[15]", "FX", "FIELD_EXTENSION", Cell<2>("%d", item.size >= 3));
        if (item.size < 3) return;
        table.row("Bit[16]", "GHO", "GHOST_TRACK", Cell<2>("%d", status.gho));
        table.row("Bit[17-22]", "---", "SPARE", "");
        table.row("Bit[23]", "FX", "FIELD_EXTENSION", Cell<2>("%d", has_fx(item.data[2])));
    }

    static uint64_t write(uint8_t *octets, const Value &status) {
        if (!fits(status.cst, 2) || !fits(status.tom, 2) || !fits(status.dou, 3) || !fits(status.mrs, 2)) return 0;
        octets[0] = static_cast<uint8_t>(placed(status.cnf, 8) | placed(status.tre, 7) | placed(status.cst, 6, 5) |
                                         placed(status.mah, 4) | placed(status.tcc, 3) | placed(status.sth, 2));
        octets[1] =
            static_cast<uint8_t>(placed(status.tom, 8, 7) | placed(status.dou, 6, 4) | placed(status.mrs, 3, 2));
        octets[2] = placed(status.gho, 8);
        return chain_to_last(octets, 3);
    }
};

AST_DEFINE_DECODE(I010_170, ast_dataitem_010_170_decode)
AST_DEFINE_VIEWS(I010_170, ast_dataitem_010_170_get_summary, ast_dataitem_010_170_get_detail_html)
AST_DEFINE_ENCODE(I010_170, ast_dataitem_010_170_encode)

// ---- I010/270 Target Size and Orientation ----

struct I010_270 : TargetSize<10270, ast_dataitem_010_270_t> {};

AST_DEFINE_DECODE(I010_270, ast_dataitem_010_270_decode)
AST_DEFINE_VIEWS(I010_270, ast_dataitem_010_270_get_summary, ast_dataitem_010_270_get_detail_html)
AST_DEFINE_ENCODE(I010_270, ast_dataitem_010_270_encode)

// ---- I010/500 Standard Deviation of Position ----

struct I010_500 : Item<10500, ast_dataitem_010_500_t, fixed<4>> {
    static constexpr double kLsbM = 0.25;

    static void read(Value &deviation, const uint8_t *octets) {
        deviation.x_raw = octets[0];
        deviation.y_raw = octets[1];
        deviation.xy_raw = twos_complement(read_u16(octets + 2), 16);
        deviation.x_m = deviation.x_raw * kLsbM;
        deviation.y_m = deviation.y_raw * kLsbM;
        deviation.xy_m = deviation.xy_raw * kLsbM;
    }

    static void summarize(TextWriter &out, const Value &deviation) {
        out.print("X:%.2f Y:%.2f COV:%.2f LSB:M", deviation.x_m, deviation.y_m, deviation.xy_m);
    }

    static void show(ViewWriter &view, const Value &deviation) {
        DetailTable table(view, "Octet", "Item", "Value");
        table.row("Octet[1]", "SIGMA(X) LSB:0.25M", Cell<20>("%u", deviation.x_raw));
        table.row("Octet[1]", "SIGMA(X) LSB:M", Cell<20>("%.2f", deviation.x_m));
        table.row("Octet[2]", "SIGMA(Y) LSB:0.25M", Cell<20>("%u", deviation.y_raw));
        table.row("Octet[2]", "SIGMA(Y) LSB:M", Cell<20>("%.2f", deviation.y_m));
        table.row("Octet[3-4]", "XY_COVARIANCE LSB:0.25M", Cell<20>("%d", deviation.xy_raw));
        table.row("Octet[3-4]", "XY_COVARIANCE LSB:M", Cell<20>("%.2f", deviation.xy_m));
    }

    static bool write(uint8_t *octets, const Value &deviation) {
        octets[0] = static_cast<uint8_t>(deviation.x_raw);
        octets[1] = static_cast<uint8_t>(deviation.y_raw);
        write_u16(octets + 2, static_cast<uint32_t>(deviation.xy_raw));
        return fits(deviation.x_raw, 8) && fits(deviation.y_raw, 8) && fits_signed(deviation.xy_raw, 16);
    }
};

AST_DEFINE_DECODE(I010_500, ast_dataitem_010_500_decode)
AST_DEFINE_VIEWS(I010_500, ast_dataitem_010_500_get_summary, ast_dataitem_010_500_get_detail_html)
AST_DEFINE_ENCODE(I010_500, ast_dataitem_010_500_encode)

// ---- I010/550 System Status ----

struct I010_550 : Item<10550, ast_dataitem_010_550_t, fixed<1>> {
    static void read(Value &status, const uint8_t *octets) {
        status.nogo = bits(octets[0], 8, 7);
        status.ovl = bit(octets[0], 6);
        status.time_valid = !bit(octets[0], 5);
        status.div = bit(octets[0], 4);
        status.ttf = bit(octets[0], 3);
    }

    static constexpr const char *kStates[] = {"OPERATIONAL", "DEGRADED", "NOGO", "UNDEFINED"};

    static void summarize(TextWriter &out, const Value &status) { out.print("SYS_STAT:%s", kStates[status.nogo]); }

    static void show(ViewWriter &view, const Value &status) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-1]", "SYS_STATUS", kStates[status.nogo]);
        table.row("Bit[2]", "OVERLOAD", Cell<2>("%d", status.ovl));
        table.row("Bit[3]", "TIME_SOURCE_INVALID", Cell<2>("%d", !status.time_valid));
        table.row("Bit[4]", "DIVERSITY_DEGRADED", Cell<2>("%d", status.div));
        table.row("Bit[5]", "TEST_TARGET_FAILURE", Cell<2>("%d", status.ttf));
        table.row("Bit[6-7]", "SPARE", "0");
    }

    static bool write(uint8_t *octets, const Value &status) {
        octets[0] = static_cast<uint8_t>(placed(status.nogo, 8, 7) | placed(status.ovl, 6) |
                                         placed(!status.time_valid, 5) | placed(status.div, 4) | placed(status.ttf, 3));
        return fits(status.nogo, 2);
    }
};

AST_DEFINE_DECODE(I010_550, ast_dataitem_010_550_decode)
AST_DEFINE_VIEWS(I010_550, ast_dataitem_010_550_get_summary, ast_dataitem_010_550_get_detail_html)
AST_DEFINE_ENCODE(I010_550, ast_dataitem_010_550_encode)

// ---- Accessors ----

ast_sac_sic_t ast_datarecord_010_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 10010); }
ast_time_of_day_t ast_datarecord_010_get_timeofday(const ast_datarecord_t *record) {
    return timeofday_of(record, 10140);
}
ast_uint_value_t ast_datarecord_010_get_msgtype(const ast_datarecord_t *record) {
    return msgtype_of(record, AST_MSGTYPE_SURFACE);
}
ast_uint_value_t ast_datarecord_010_get_tracknum(const ast_datarecord_t *record) { return tracknum_of(record, 10161); }
ast_squawk_t ast_datarecord_010_get_squawk(const ast_datarecord_t *record) { return whole_squawk_of(record, 10060); }
ast_coordinate_t ast_datarecord_010_get_coordinate(const ast_datarecord_t *record) {
    return coordinate_of(record, 10041);
}
ast_quantity_t ast_datarecord_010_get_flightlevel(const ast_datarecord_t *record) {
    return first_valid(level_of(record, 10090), height_of(record, 10091));
}
ast_polar_coordinate_t ast_datarecord_010_get_polarcoord(const ast_datarecord_t *record) {
    const auto position = first<I010_040>(record);
    return {.valid = position.valid, .rho_nm = position.rho_m / kMetresPerNm, .theta_deg = position.theta_deg};
}

ast_heading_t ast_datarecord_010_get_heading(const ast_datarecord_t *record) {
    const auto velocity = ast_dataitem_velocity_polar_decode(first_item(record, 10200));
    ast_heading_t heading = kNoHeading;
    if (!velocity.valid) return heading;
    heading.valid = true;
    heading.track = {.valid = true, .value = velocity.value_2};
    return heading;
}

ast_quantity_t ast_datarecord_010_get_speed(const ast_datarecord_t *record) {
    const auto velocity = ast_dataitem_velocity_polar_decode(first_item(record, 10200));
    return {.valid = velocity.valid, .value = velocity.value_1};
}

ast_cartesian_velocity_t ast_datarecord_010_get_cartesianvel(const ast_datarecord_t *record) {
    const auto velocity = ast_dataitem_velocity_cartesian_decode(first_item(record, 10202));
    return {.valid = velocity.valid, .vx_m_s = velocity.value_1, .vy_m_s = velocity.value_2};
}

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_010_t;

constexpr FlatMember<Flat> kMembers[] = {
    both_ways<&Flat::message_type, I010_000>(),
    both_ways<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(10010),
    both_ways<&Flat::target_report, I010_020>(),
    both_ways<&Flat::polar_position, I010_040>(),
    taken_apart<&Flat::position, ast_dataitem_position_wgs84_decode>(10041), // its encoder writes another scale
    both_ways<&Flat::cartesian_position, I010_042>(),
    both_ways<&Flat::mode_3a, ast_dataitem_mode_3a_code_decode>(10060),
    both_ways<&Flat::mode_c, ast_dataitem_mode_c_code_decode>(10090),
    taken_apart<&Flat::measured_height, ast_dataitem_height_decode>(10091),
    both_ways<&Flat::plot_amplitude, ast_dataitem_signal_amplitude_decode>(10131),
    both_ways<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(10140),
    both_ways<&Flat::track_number, ast_dataitem_track_number_decode>(10161),
    both_ways<&Flat::track_status, I010_170>(),
    both_ways<&Flat::polar_velocity, ast_dataitem_velocity_polar_decode>(10200),
    taken_apart<&Flat::cartesian_velocity, ast_dataitem_velocity_cartesian_decode>(10202),
    both_ways<&Flat::target_address, ast_dataitem_target_address_decode>(10220),
    taken_apart<&Flat::target_id, ast_dataitem_target_id_decode>(10245),
    both_ways<&Flat::target_size, I010_270>(),
    both_ways<&Flat::position_deviation, I010_500>(),
    both_ways<&Flat::system_status, I010_550>(),
};

} // namespace

ast_datarecord_010_t *ast_datarecord_010_disassemble(ast_datarecord_010_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 10, kMembers, report_quietly);
}

ast_datarecord_t ast_datarecord_010_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_010_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 10, uap, kMembers);
}

// ---- The category ----

namespace {

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_010_get_sacsic,
    .get_timeofday = ast_datarecord_010_get_timeofday,
    .get_msgtype = ast_datarecord_010_get_msgtype,
    .get_tracknum = ast_datarecord_010_get_tracknum,
    .get_squawk = ast_datarecord_010_get_squawk,
    .get_coordinate = ast_datarecord_010_get_coordinate,
    .get_flightlevel = ast_datarecord_010_get_flightlevel,
    .get_polarcoord = ast_datarecord_010_get_polarcoord,
    .get_heading = ast_datarecord_010_get_heading,
    .get_speed = ast_datarecord_010_get_speed,
    .get_cartesianvel = ast_datarecord_010_get_cartesianvel,
};

constexpr ItemRow kItems[] = {
    {0, "Message Type", items::with_summary(items::message_type, ast_dataitem_010_000_get_summary)},
    {10, "Data Source Identifier", items::data_source_identifier},
    own<I010_020>("Target Report Descriptor"),
    own<I010_040>("Measured Position in Polar Co-ordinates"),
    {41, "Position in WGS-84 Co-ordinates", items::position_wgs84},
    own<I010_042>("Position in Cartesian Co-ordinates"),
    {60, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {90, "Flight Level in Binary Representation", items::mode_c_code},
    {91, "Measured Height", items::height},
    {131, "Amplitude of Primary Plot", items::signal_amplitude},
    {140, "Time of Day", items::time_of_day},
    {161, "Track Number", items::track_number},
    own<I010_170>("Track Status"),
    {200, "Calculated Track Velocity in Polar Co-ordinates", items::velocity_polar},
    {202, "Calculated Track Velocity in Cartesian Co-ordinates", items::velocity_cartesian},
    {220, "Target Address", items::target_address},
    {245, "Target Identification", items::target_id},
    own<I010_270>("Target Size and Orientation"),
    own<I010_500>("Standard Deviation of Position"),
    own<I010_550>("System Status"),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory010, 10, "Unknown CAT010 Dataitem", kItems, ast_dataitem_010_get_name,
                    .accessors = kAccessors)
