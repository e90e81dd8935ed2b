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
    static constexpr Value kDefault = {.chn = 1};
    static constexpr const char *kTypes[] = {"SSR_MLAT",      "MODE_S_MLAT", "ADS-B",     "PSR",
                                             "MAGNETIC_LOOP", "HF_MLAT",     "UNDEFINED", "OTHER"};
    static constexpr const char *kLoops[] = {"UNDETERMINED", "LOOP_START", "LOOP_FINISH", "UNDEFINED"};
    static constexpr const char *kTargets[] = {"UNDETERMINED", "AIRCRAFT", "GROUND_VEHICLE", "HELICOPTER"};

    static constexpr Row<Value> kRows[] = {
        {&Value::typ, 3, "TARGET_TYPE", kTypes},
        {&Value::dcr, "DIFFERENTIAL_CORRECTION"},
        {&Value::chn, kFirstOrSecond, "PROCESSING_CHAIN"},
        {&Value::gbs, "GROUND_BIT_SET"},
        {&Value::crt, "CORRUPTED_REPLIES"},
        fx,
        {&Value::sim, "SIMULATED_TARGET"},
        {&Value::tst, "TEST_TARGET"},
        {&Value::rab, "FIXED_TRANSPONDER"},
        {&Value::lop, 2, "LOOP_STATUS", kLoops},
        {&Value::tot, 2, "TYPE_OF_TARGET", kTargets},
        fx,
        {&Value::spi, "SPI"},
        spare(6, "0"),
        fx,
    };

    static void summarize(TextWriter &out, const Value &report) {
        static constexpr const char *kLoopWords[] = {"", " LOOP_START", " LOOP_FINISH", " LOOP_UNDEFINED"};
        static constexpr const char *kTargetWords[] = {"", " AIRCRAFT", " GROUND_VEHICLE", " HELICOPTER"};
        out.print("TYPE:%s%s CHN%u", kTypes[report.typ], shown_if(report.sim, " SIM"), report.chn);
        out.append(shown_if(report.spi, " SPI"));
        out.append(shown_if(report.rab, " RAB"));
        out.append(shown_if(report.tst, " TST"));
        out.append(shown_if(report.dcr, " DCR"));
        out.append(shown_if(report.gbs, " GBS"));
        out.append(shown_if(report.crt, " CRT"));
        out.append(kLoopWords[report.lop]);
        out.append(kTargetWords[report.tot]);
    }
};

AST_DEFINE_ENCODED_ITEM(I010_020, ast_dataitem_010_020)

// ---- I010/040 Measured Position in Polar Co-ordinates ----

struct I010_040 : PolarPosition<10040, ast_dataitem_010_040_t, &ast_dataitem_010_040_t::rho_m, 1> {
    static void summarize(TextWriter &out, const Value &position) {
        out.print("RHO:%.1f LSB:M THETA:%.1f", position.rho_m, position.theta_deg);
    }
    static void show(ViewWriter &view, const Value &position) { show_as(view, position, "RHO LSB:M", "Octet[3-4]"); }
    static bool write(uint8_t *octets, Value &position) { return write_fitting(octets, position); }
};

AST_DEFINE_ENCODED_ITEM(I010_040, ast_dataitem_010_040)

// ---- I010/042 Position in Cartesian Co-ordinates ----

struct I010_042 : ScaledPairItem<10042, signed_number(16, 1, 1)> { // metres
    static void summarize(TextWriter &out, const Value &position) {
        out.print("X:%.1f Y:%.1f LSB:M", position.value_1, position.value_2);
    }
    static void show(ViewWriter &view, const Value &position) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Octet[1-2]", "X LSB:M", Cell<20>("%d", position.raw_1));
        table.row("Octet[3-4]", "Y LSB:M", Cell<20>("%d", position.raw_2));
    }
};

AST_DEFINE_ENCODED_ITEM(I010_042, ast_dataitem_010_042)

// ---- I010/170 Track Status ----

struct I010_170 : Item<10170, ast_dataitem_010_170_t, extended<3>> {
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

    static constexpr Columns kColumns = kBitColumnsWithIds;
    static constexpr Row<Value> kRows[] = {
        {&Value::cnf, {"CNF", "TENTATIVE"}},
        {&Value::tre, {"TRE", "TRACK_END"}},
        {&Value::cst, 2, {"CST", "EXTRAPOLATION"}, kExtrapolations},
        {&Value::mah, {"MAH", "HORIZONTAL_MANOEUVRE"}},
        {&Value::tcc, {"TCC", "TRACKING_PLANE"}, {"SENSOR_PLANE", "REFERENCE_PLANE"}},
        {&Value::sth, {"STH", "POSITION"}, {"MEASURED", "SMOOTHED"}},
        fx,
        {&Value::tom, 2, {"TOM", "TYPE_OF_MOVEMENT"}, kMovements},
        {&Value::dou, 3, {"DOU", "DOUBT"}, kDoubts},
        {&Value::mrs, 2, {"MRS", "MERGE_OR_SPLIT"}, kMerges},
        fx,
        {&Value::gho, {"GHO", "GHOST_TRACK"}},
        spare(6, ""),
        fx,
    };

    static void summarize(TextWriter &out, const Value &status) {
        out.print("TRACK_STS:%s", status.cnf ? "TENTATIVE" : "CONFIRMED");
        out.append(shown_if(status.tre, " END"));
        out.append(shown_if(status.cst != 0, " COASTED"));
        out.append(shown_if(status.gho, " GHOST"));
    }
};

AST_DEFINE_ENCODED_ITEM(I010_170, ast_dataitem_010_170)

// ---- I010/270 Target Size and Orientation ----

struct I010_270 : TargetSize<10270, ast_dataitem_010_270_t> {};

AST_DEFINE_ENCODED_ITEM(I010_270, ast_dataitem_010_270)

// ---- I010/500 Standard Deviation of Position ----

struct I010_500 : Item<10500, ast_dataitem_010_500_t, fixed<4>> {
    static constexpr double kLsbM = 0.25;

    static constexpr Columns kColumns = kOctetColumns;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::x_raw, 8, "SIGMA(X) LSB:0.25M", {&Value::x_m, kLsbM, "SIGMA(X) LSB:M"}),
        quantity(&Value::y_raw, 8, "SIGMA(Y) LSB:0.25M", {&Value::y_m, kLsbM, "SIGMA(Y) LSB:M"}),
        quantity(&Value::xy_raw, kSigned16, "XY_COVARIANCE LSB:0.25M", {&Value::xy_m, kLsbM, "XY_COVARIANCE LSB:M"}),
    };

    static void summarize(TextWriter &out, const Value &deviation) {
        out.print("X:%.2f Y:%.2f COV:%.2f LSB:M", deviation.x_m, deviation.y_m, deviation.xy_m);
    }
};

AST_DEFINE_ENCODED_ITEM(I010_500, ast_dataitem_010_500)

// ---- I010/550 System Status ----

struct I010_550 : Item<10550, ast_dataitem_010_550_t, fixed<1>> {
    static constexpr const char *kStates[] = {"OPERATIONAL", "DEGRADED", "NOGO", "UNDEFINED"};

    static constexpr Row<Value> kRows[] = {
        {&Value::nogo, 2, "SYS_STATUS", kStates},
        {&Value::ovl, "OVERLOAD"},
        {&Value::time_valid, kInverted, "TIME_SOURCE_INVALID"},
        {&Value::div, "DIVERSITY_DEGRADED"},
        {&Value::ttf, "TEST_TARGET_FAILURE"},
        spare(2, "0"),
    };

    static void summarize(TextWriter &out, const Value &status) { out.print("SYS_STAT:%s", kStates[status.nogo]); }
};

AST_DEFINE_ENCODED_ITEM(I010_550, ast_dataitem_010_550)

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
