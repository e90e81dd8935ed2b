// Category 048: plots and local tracks of one radar, in that radar's polar coordinates.

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/accessors.hpp"
#include "items/code.hpp"
#include "items/compound.hpp"
#include "items/items.hpp"
#include "items/radar_position.hpp"
#include "items/register.hpp"
#include "items/report_type.hpp"
#include "items/transponder.hpp"
#include "items/units.hpp"
#include "items/warnings.hpp"

using namespace ast;

// ---- I048/020 Target Report Descriptor ----

struct I048_020 : Item<48020, ast_dataitem_048_020_t, extended<2>> {
    static constexpr uint32_t kSecondChain = 2;
    static constexpr uint32_t kFriend = 1;
    static constexpr Value kDefault = {.rdp = 1};

    // The bits are taken unshifted, so 01 reads as status 2 and no other pattern reads at all; users rely on it.
    static uint32_t status_of_unshifted(uint32_t code) { return ast_iff_status_from_int(code << 1); }

    static constexpr Row<Value> kRows[] = {
        {&Value::typ, 3, "TARGET_TYPE", kReportTypeTitles},
        {&Value::sim, "SIMULATED_TARGET"},
        {&Value::rdp, kFirstOrSecond, "PROCESSING_CHAIN"},
        {&Value::spi, "SPI"},
        {&Value::rab, "FIXED_TRANSPONDER"},
        fx,
        {&Value::tst, "TEST_TARGET"},
        spare(2),
        {&Value::me, "MIL_EMERGENCY"},
        {&Value::mi, "MIL_IDENTIFICATION"},
        {&Value::foe_fri, {2, status_of_unshifted}, "FRIEND_OR_ENEMY", ast_iff_status_to_str},
        hidden_fx,
    };

    static void summarize(TextWriter &out, const Value &report) {
        out.append("TYPE:");
        out.append(kReportTypes[report.typ]);
        out.append(shown_if(report.sim, " SIM"));
        out.append(report.rdp == kSecondChain ? " CHN2" : " CHN1");
        out.append(shown_if(report.spi, " SPI"));
        out.append(shown_if(report.rab, " RAB"));
        out.append(shown_if(report.tst, " TST"));
        out.append(shown_if(report.me, " ME"));
        out.append(shown_if(report.mi, " MI"));
        out.append(shown_if(report.foe_fri == kFriend, " FRIEND"));
    }

    // FX of the last octet shows whether there is a third one, which an item never has.
    static void show(ViewWriter &view, const Value &report, const ast_dataitem_t &item) {
        DetailTable table = table_of_rows<I048_020>(view);
        show_rows<I048_020>(table, report, item.data, item.size);
        if (item.size >= 2) table.row("Bit[15]", "FX", item.size >= 3 ? "1" : "0");
    }

    static constexpr uint64_t kNeededRoom = 2;
    static uint64_t write(uint8_t *octets, const Value &report) {
        constexpr uint32_t kLastType = 7;
        constexpr uint32_t kLastStatus = 3;
        const uint32_t typ = report.typ <= kLastType ? report.typ : 0;
        octets[0] =
            static_cast<uint8_t>(placed(typ, 8, 6) | placed(report.sim, 5) | placed(report.rdp == kSecondChain, 4) |
                                 placed(report.spi, 3) | placed(report.rab, 2));
        if (!report.tst && !report.me && !report.mi && report.foe_fri == 0) return 1;
        const uint32_t status = report.foe_fri <= kLastStatus ? report.foe_fri : 0;
        octets[0] |= kFx;
        // ME and MI go two bits above where the decoder looks for them; receivers of these octets rely on it.
        octets[1] = static_cast<uint8_t>(placed(report.tst, 8) | placed(report.me, 7) | placed(report.mi, 6) |
                                         placed(status, 3, 2));
        return 2;
    }
};

AST_DEFINE_ENCODED_ITEM(I048_020, ast_dataitem_048_020)

// ---- I048/030 Warning/Error Conditions ----

struct I048_030 : WarningConditions<48030, 23, describe_warning, 2> {              // cells known to hold two digits
    static bool accepts(const ast_dataitem_t &item) { return item.type == kType; } // no octets are no warnings
};

AST_DEFINE_ITEM(I048_030, ast_dataitem_048_030)

// ---- I048/040 Measured Position in Polar Co-ordinates ----

struct I048_040 : PolarPosition<48040, ast_dataitem_048_040_t, &ast_dataitem_048_040_t::rho_nm, 256> {
    static bool accepts(const ast_dataitem_t &item) { return item.size == kSize.octets; } // whatever its type

    static void show(ViewWriter &view, const Value &position) {
        show_as(view, position, "RHO LSB:NM", "Octet[2-3]"); // viewers know the label so
    }
};

AST_DEFINE_ENCODED_ITEM(I048_040, ast_dataitem_048_040)

// ---- I048/042 Calculated Position in Cartesian Co-ordinates ----

struct I048_042 : Item<48042, ast_dataitem_048_042_t, fixed<4>> {
    static constexpr unsigned kUnitsPerNm = 128;
    static constexpr double kLsbNm = 1.0 / kUnitsPerNm;

    static bool accepts(const ast_dataitem_t &item) { return item.size == kSize.octets; } // whatever its type

    static constexpr Row<Value> kRows[] = {{&Value::x_raw, kMagnitude16}, {&Value::y_raw, kMagnitude16}};

    static void summarize(TextWriter &out, const Value &position) {
        append_pair<1>(out, "X:", position.x_raw * kLsbNm * kMetresPerNm,
                       " Y:", position.y_raw * kLsbNm * kMetresPerNm);
        out.append(" LSB:M");
    }

    static void show(ViewWriter &view, const Value &position) {
        DetailTable table(view, "Bit", "Item", "Value");
        write_axis_rows(table, "Octet[1-2]", 'X', position.x_raw, kUnitsPerNm);
        write_axis_rows(table, "Octet[2-3]", 'Y', position.y_raw, kUnitsPerNm); // viewers know the label so
    }
};

AST_DEFINE_ITEM(I048_042, ast_dataitem_048_042)

// ---- I048/050 Mode-2 Code ----

struct I048_050 : Item<48050, ast_dataitem_048_050_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        {&Value::not_validated, "NOT_VALIDATED"},
        {&Value::garbled, "GARBLED"},
        {&Value::smoothed, "SMOOTHED"},
        spare(1, "0"),
        code_row(&Value::code),
    };

    static void summarize(TextWriter &out, const Value &code) {
        out.print("MODE_2:%04o%s%s%s", code.code, shown_if(code.not_validated, kNotValidated),
                  shown_if(code.garbled, kGarbled), shown_if(code.smoothed, kSmoothed));
    }
};

AST_DEFINE_ENCODED_ITEM(I048_050, ast_dataitem_048_050)

// ---- I048/110 Height Measured by a 3D Radar ----

struct I048_110 : Item<48110, ast_dataitem_048_110_t, fixed<2>> {
    static constexpr int32_t kLsbFt = 25;

    static void read(Value &height, const uint8_t *octets) {
        height.height_ft = magnitude_less_maximum(read_u16(octets), 14) * kLsbFt;
    }

    static void summarize(TextWriter &out, const Value &height) { out.print("H:%d LSB:FT", height.height_ft); }

    static void show(ViewWriter &view, const Value &height) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Octet[1-2]", "HEIGHT (LSB=25FT)", Cell<20>("%d", height.height_ft / kLsbFt));
        table.row("Octet[1-2]", "HEIGHT (LSB=FT)", Cell<20>("%d", height.height_ft));
        table.row("Octet[1-2]", "HEIGHT (LSB=M)", Cell<20>("%d", static_cast<int>(height.height_ft * kMetresPerFoot)));
    }
};

AST_DEFINE_ITEM(I048_110, ast_dataitem_048_110)

// ---- I048/120 Radial Doppler Speed ----

namespace {

constexpr SubfieldRow kRadialDopplerSpeed[] = {
    {"CAL", "Calculated Doppler Speed", fixed<2>},
    {"RDS", "Raw Doppler Speed",
     disputed(fixed<7>)}, // a repetition count of 1 and one element, whatever the count says
};

} // namespace

AST_DEFINE_EMPTY_SUBFIELD_VIEW(ast_subfield_048_120_get_summary)
AST_DEFINE_EMPTY_SUBFIELD_VIEW(ast_subfield_048_120_get_detail_html)
AST_DEFINE_COMPOUND(kItem120, 48120, kRadialDopplerSpeed, ast_dataitem_048_120_get_size, ast_subfield_048_120_get_size,
                    ast_subfield_048_120_get_id, ast_subfield_048_120_get_name, ast_subfield_048_120_get_summary,
                    ast_subfield_048_120_get_detail_html, .shows_subfields = false)

// ---- I048/130 Radar Plot Characteristics ----

namespace {

using Plot = ast_dataitem_048_130_t;

struct Runlength {
    using Value = decltype(Plot::srl);
    static constexpr double kUnits = 8192; // per full circle
    static constexpr Row<Value> kRows[] = {quantity(&Value::raw, 8, {}, {&Value::deg, kFullCircleDeg / kUnits})};
    static void summarize(TextWriter &out, const Value &srl) { out.print("%.2f LSB=DEG", srl.deg); }
};

struct Replies {
    using Value = decltype(Plot::srr);
    static constexpr Row<Value> kRows[] = {{&Value::value, 8}};
    static void summarize(TextWriter &out, const Value &srr) { out.print("%d", srr.value); }
};

struct Amplitude {
    using Value = decltype(Plot::sam);
    static constexpr Row<Value> kRows[] = {{&Value::value, 8}}; // sent without its sign
    static void summarize(TextWriter &out, const Value &sam) { out.print("-%d LSB=DBM", sam.value); }
};

constexpr SubfieldRow kPlotCharacteristics[] = {
    subfield<&Plot::srl, Runlength>("SRL", "SSR Plot Runlength", fixed<1>),
    subfield<&Plot::srr, Replies>("SRR", "Number of Received Replies for (M)SSR", fixed<1>),
    subfield<&Plot::sam, Amplitude>("SAM", "Amplitude of (M)SSR Reply", fixed<1>),
    {"PRL", "Primary Plot Runlength", fixed<1>},
    {"PAM", "Amplitude of Primary Plot ", fixed<1>}, // the name ends in a blank
    {"RPD", "Difference in Range between PSR and SSR plot", fixed<1>},
    {"APD", "Difference in Azimuth between PSR and SSR plot", fixed<1>},
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem130, 48130, kPlotCharacteristics, Plot, 048_130)

// ---- I048/170 Track Status ----

struct I048_170 : Item<48170, ast_dataitem_048_170_t, extended<2>> {
    static constexpr uint32_t kInvalid = 3;
    static constexpr Value kDefault = {.rad = kInvalid, .cdm = kInvalid};
    static constexpr const char *kRadars[] = {"COMBINED", "PSR", "SSR", "INVALID"};
    static constexpr const char *kVertical[] = {"MAINTAINING", "CLIMBING", "DESCENDING", "INVALID"};

    static constexpr Columns kColumns = kBitColumnsWithIds;
    static constexpr Row<Value> kRows[] = {
        {&Value::cnf, {"CNF", "TENTATIVE"}},
        {&Value::rad, 2, {"RAD", "TRACK_TYPE"}, kRadars},
        {&Value::dou, {"DOU", "LOW_CONFIDENCE"}},
        {&Value::man, {"MAN", "HORIZONTIAL_MANOEUVRE"}},
        {&Value::cdm, 2, {"CDM", "VERTICAL_MANOEUVRE"}, kVertical},
        fx,
    };

    static void summarize(TextWriter &out, const Value &status) {
        static constexpr const char *kTypes[] = {"TYPE:CMB", "TYPE:PSR", "TYPE:SSR", "TYPE:INVALID"};
        out.append(kTypes[status.rad]);
    }
};

AST_DEFINE_ITEM(I048_170, ast_dataitem_048_170)

// ---- I048/210 Track Quality ----

struct I048_210 : Item<48210, ast_dataitem_048_210_t, fixed<4>> {
    static constexpr double kPositionLsbNm = 1.0 / 128;
    static constexpr double kSpeedLsbKt = 0.22;       // rounded from 2^-14 NM/s, and used so
    static constexpr double kHeadingLsbDeg = 0.08789; // rounded from 360/2^12, and used so

    static constexpr Columns kColumns = kOctetColumnsFrom0;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::sigma_x_raw, 8, "SIGMA(X) LSB:1/128NM",
                 {&Value::sigma_x_nm, kPositionLsbNm, "SIGMA(X) LSB:NM", 6}),
        quantity(&Value::sigma_y_raw, 8, "SIGMA(Y) LSB:1/128NM",
                 {&Value::sigma_y_nm, kPositionLsbNm, "SIGMA(Y) LSB:NM", 6}),
        quantity(&Value::sigma_v_raw, 8, "SIGMA(V) LSB:0.22Knot",
                 {&Value::sigma_v_kt, kSpeedLsbKt, "SIGMA(V) LSB:Knot", 6}),
        quantity(&Value::sigma_h_raw, 8, "SIGMA(H) LSB:360/2^12Deg",
                 {&Value::sigma_h_deg, kHeadingLsbDeg, "SIGMA(H) LSB:Deg", 6}),
    };

    static void summarize(TextWriter &out, const Value &quality) {
        out.print("X:%.2f Y:%.2f V:%.2f H:%.2f", quality.sigma_x_nm, quality.sigma_y_nm, quality.sigma_v_kt,
                  quality.sigma_h_deg);
    }
};

AST_DEFINE_ITEM(I048_210, ast_dataitem_048_210)

// ---- I048/230 Communications / ACAS Capability and Flight Status ----

struct I048_230 : CommAndFlightStatus<48230> {};

AST_DEFINE_ITEM(I048_230, ast_dataitem_048_230)

// ---- I048/260 ACAS Resolution Advisory Report ----

struct I048_260 : AcasAdvisory<48260> {};

AST_DEFINE_ITEM(I048_260, ast_dataitem_048_260)

// ---- Accessors ----

ast_sac_sic_t ast_datarecord_048_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 48010); }
ast_time_of_day_t ast_datarecord_048_get_timeofday(const ast_datarecord_t *record) {
    return timeofday_of(record, 48140);
}
ast_uint_value_t ast_datarecord_048_get_msgtype(const ast_datarecord_t *record) {
    if (!record || !record->valid) return {};
    return {.valid = true, .value = first_item(record, 48161) ? AST_MSGTYPE_TRACK : AST_MSGTYPE_PLOT};
}
ast_uint_value_t ast_datarecord_048_get_tracknum(const ast_datarecord_t *record) { return tracknum_of(record, 48161); }
ast_squawk_t ast_datarecord_048_get_squawk(const ast_datarecord_t *record) { return squawk_of(record, 48070); }
ast_aircraft_id_t ast_datarecord_048_get_callsign(const ast_datarecord_t *record) { return callsign_of(record, 48240); }
ast_icao_address_t ast_datarecord_048_get_icaoaddr(const ast_datarecord_t *record) {
    return icaoaddr_of(record, 48220);
}

ast_quantity_t ast_datarecord_048_get_flightlevel(const ast_datarecord_t *record) {
    const auto height = first<I048_110>(record);
    return first_valid(level_of(record, 48090),
                       {.valid = height.valid, .value = static_cast<double>(height.height_ft)});
}

namespace {

// Visits the registers of the record's Mode S MB data, in order, until the visitor returns false.
template <typename Visitor>
void each_register(const ast_datarecord_t *record, Visitor visit) {
    const ast_dataitem_t *const item = first_item(record, 48250);
    if (!is_readable(item) || !holds_registers(*item)) return;
    const uint64_t held = std::min<uint64_t>(item->data[0], AST_MODES_MB_MAX_REGISTERS);
    for (uint64_t i = 0; i < held; ++i)
        if (!visit(register_at(item->data + 1, i))) return;
}

} // namespace

ast_quantity_t ast_datarecord_048_get_selaltitude(const ast_datarecord_t *record) {
    ast_quantity_t selected{};
    each_register(record, [&](const ast_bds_t &bds) {
        if (bds.bds != 0x40) return true;
        const auto intention = ast_bds_40_decode(&bds);
        if (!intention.valid) return true;
        if (intention.fms_status)
            selected = {.valid = true, .value = static_cast<double>(intention.fms_altitude_ft)};
        else if (intention.mcp_fcu_status)
            selected = {.valid = true, .value = static_cast<double>(intention.mcp_fcu_altitude_ft)};
        return false; // the first register 4,0 decides
    });
    return selected;
}

ast_polar_coordinate_t ast_datarecord_048_get_polarcoord(const ast_datarecord_t *record) {
    const auto position = first<I048_040>(record);
    return {.valid = position.valid, .rho_nm = position.rho_nm, .theta_deg = position.theta_deg};
}

ast_heading_t ast_datarecord_048_get_heading(const ast_datarecord_t *record) {
    ast_heading_t heading = kNoHeading;
    each_register(record, [&](const ast_bds_t &bds) {
        if (bds.bds == 0x60) {
            const auto speed = ast_bds_60_decode(&bds);
            if (speed.heading_status) heading.magnetic = {.valid = true, .value = speed.magnetic_heading_deg};
        } else if (bds.bds == 0x50) {
            const auto turn = ast_bds_50_decode(&bds);
            if (turn.track_status) heading.track = {.valid = true, .value = turn.true_track_deg};
        }
        return true;
    });
    heading.valid = heading.magnetic.valid || heading.track.valid;
    return heading;
}

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_048_t;

constexpr FlatMember<Flat> kMembers[] = {
    both_ways<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(48010),
    both_ways<&Flat::target_report, I048_020>(),
    taken_apart<&Flat::warnings, I048_030>(),
    both_ways<&Flat::polar_position, I048_040>(),
    taken_apart<&Flat::cartesian_position, I048_042>(),
    both_ways<&Flat::mode_2, I048_050>(),
    both_ways<&Flat::mode_3a, ast_dataitem_mode_3a_code_decode>(48070),
    taken_apart<&Flat::mode_3a_confidence, ast_dataitem_mode_3a_confidence_decode>(48080),
    both_ways<&Flat::mode_c, ast_dataitem_mode_c_code_decode>(48090),
    taken_apart<&Flat::mode_c_confidence, ast_dataitem_mode_c_confidence_decode>(48100),
    taken_apart<&Flat::height_3d, I048_110>(),
    taken_apart<&Flat::plot_characteristics, ast_dataitem_048_130_decode>(48130),
    both_ways<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(48140),
    both_ways<&Flat::track_number, ast_dataitem_track_number_decode>(48161),
    taken_apart<&Flat::track_status, I048_170>(),
    both_ways<&Flat::polar_velocity, ast_dataitem_velocity_polar_decode>(48200),
    both_ways<&Flat::target_address, ast_dataitem_target_address_decode>(48220),
    taken_apart<&Flat::comm_and_flight_status, I048_230>(),
    both_ways<&Flat::aircraft_id, ast_dataitem_aircraft_id_decode>(48240),
    taken_apart<&Flat::modes_mb, ast_dataitem_modes_mb_decode>(48250),
    taken_apart<&Flat::acas_advisory, I048_260>(),
};

} // namespace

ast_datarecord_048_t ast_datarecord_048_disassemble(const ast_datarecord_t *record) {
    return disassembled(record, 48, kMembers, report_quietly);
}

ast_datarecord_t ast_datarecord_048_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_048_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 48, uap, kMembers);
}

// ---- The category ----

namespace {

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_048_get_sacsic,
    .get_timeofday = ast_datarecord_048_get_timeofday,
    .get_msgtype = ast_datarecord_048_get_msgtype,
    .get_tracknum = ast_datarecord_048_get_tracknum,
    .get_squawk = ast_datarecord_048_get_squawk,
    .get_callsign = ast_datarecord_048_get_callsign,
    .get_icaoaddr = ast_datarecord_048_get_icaoaddr,
    .get_flightlevel = ast_datarecord_048_get_flightlevel,
    .get_selaltitude = ast_datarecord_048_get_selaltitude,
    .get_polarcoord = ast_datarecord_048_get_polarcoord,
    .get_heading = ast_datarecord_048_get_heading,
};

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    own<I048_020>("Target Report Descriptor"),
    own<I048_030>("Warning/Error Conditions"),
    own<I048_040>("Measured Position in Polar Co-ordinates"),
    own<I048_042>("Calculated Position in Cartesian Co-ordinates"),
    own<I048_050>("Mode-2 Code in Octal Representation"),
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {80, "Mode-3/A Code Confidence Indicator", items::without_encoder(items::mode_3a_confidence)},
    {90, "Flight Level in Binary Representation", items::mode_c_code},
    {100, "Mode-C Code and Code Confidence Indicator", items::without_encoder(items::mode_c_confidence)},
    own<I048_110>("Height Measured by a 3D Radar"),
    items::compound("Radial Doppler Speed", kItem120),
    items::compound("Radar Plot Characteristics", kItem130),
    {140, "Time of Day", items::time_of_day},
    {161, "Track Number", items::track_number},
    own<I048_170>("Track Status"),
    {200, "Calculated Track Velocity in Ploar Co-ordinates", items::velocity_polar}, // known with this spelling
    own<I048_210>("Track Quality"),
    {220, "Aircraft Address", items::target_address},
    own<I048_230>("Communications / ACAS Capability and Flight Status"),
    {240, "Aircraft Identification", items::aircraft_id},
    {250, "Mode S MB Data", items::modes_mb},
    own<I048_260>("ACAS Resolution Advisory Report"),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory048, 48, "Unknown CAT048 Dataitem", kItems, ast_dataitem_048_get_name,
                    .reports_unknown_names = true, .accessors = kAccessors)
