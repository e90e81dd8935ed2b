// Category 001: target reports of one radar, plots and tracks, edition 1.4 and the layouts of three radar families.

#include "cat/flat.hpp"
#include "codec/block.hpp"
#include "items/accessors.hpp"
#include "items/items.hpp"
#include "items/radar_position.hpp"
#include "items/scaled.hpp"
#include "items/warnings.hpp"

using namespace ast;

// ---- I001/020 Target Report Descriptor ----

struct I001_020 : Item<1020, ast_dataitem_001_020_t, extended<2>> {
    static constexpr Value kDefault = {.ant = 1};
    static constexpr const char *kDetections[] = {"NO_DETECTION", "PSR", "SSR", "PSR + SSR"};
    static constexpr const char *kCodes[] = {"DEFAULT", "UNLAWFUL_INTERFERENCE (7500)",
                                             "RADIO_COMMUNICATION_FAILURE (7600)", "EMERGENCY (7700)"};

    static constexpr Row<Value> kRows[] = {
        {&Value::typ, 1, "REPORT_TYPE", {"PLOT", "TRACK"}},
        {&Value::sim, "SIMULATED_TARGET"},
        {&Value::ssr_psr, 2, "TARGET_TYPE", kDetections},
        {&Value::ant, kFirstOrSecond, "ANTENNA"},
        {&Value::spi, "SPI"},
        {&Value::rab, "FIXED_TRANSPONDER"},
        fx,
        {&Value::tst, "TEST_TARGET"},
        {&Value::ds1_ds2, 2, "SPECIAL_CODE", kCodes},
        {&Value::me, "MIL_EMERGENCY"},
        {&Value::mi, "MIL_IDENTIFICATION"},
        spare(2, "0"),
        fx,
    };

    // The words of the special codes are those of emergency statuses.
    static void summarize(TextWriter &out, const Value &report) {
        static constexpr const char *kDetectionWords[] = {"NO_DETECTION", "PSR", "SSR", "PSR+SSR"};
        static constexpr const char *kCodeWords[] = {"", " EMG:UNLAWFUL", " EMG:NO_COMM", " EMG:GENERAL"};
        out.print("TYPE:%s%s%s ANT%u", kDetectionWords[report.ssr_psr], report.typ ? " TRACK" : " PLOT",
                  shown_if(report.sim, " SIM"), report.ant);
        out.append(shown_if(report.spi, " SPI"));
        out.append(shown_if(report.rab, " RAB"));
        out.append(shown_if(report.tst, " TST"));
        out.append(kCodeWords[report.ds1_ds2]);
        out.append(shown_if(report.me, " ME"));
        out.append(shown_if(report.mi, " MI"));
    }
};

AST_DEFINE_ENCODED_ITEM(I001_020, ast_dataitem_001_020)

// ---- I001/030 Warning/Error Conditions ----

namespace {

// The conditions of this category, which numbers them otherwise than category 048.
const char *describe_condition(uint32_t code) {
    static constexpr const char *kCommon[] = {
        "No warning nor error condition", "Garbled reply", "Reflection",           "Sidelobe reply", "Split plot",
        "Second time around reply",       "Angels",        "Terrestrial vehicles",
    };
    switch (code) {
    case 64:
        return "Possible wrong code in Mode-3/A";
    case 65:
        return "Possible wrong altitude information, transmitted when the Code C credibility check fails together with "
               "the Mode-C code in binary notation";
    case 66:
        return "Possible phantom MSSR plot";
    case 80:
        return "Fixed PSR plot";
    case 81:
        return "Slow PSR plot";
    case 82:
        return "Low quality PSR plot";
    default:
        return text_of(kCommon, code, kUnknownWarning);
    }
}

} // namespace

struct I001_030 : WarningConditions<1030, kUnlimitedOctets, describe_condition> {};

AST_DEFINE_ENCODED_ITEM(I001_030, ast_dataitem_001_030)

// ---- I001/040 Measured Position in Polar Co-ordinates ----

struct I001_040 : PolarPosition<1040, ast_dataitem_001_040_t, &ast_dataitem_001_040_t::rho_nm, 128> {
    static void show(ViewWriter &view, const Value &position) { show_as(view, position, "RHO LSB:NM", "Octet[3-4]"); }
    static bool write(uint8_t *octets, Value &position) { return write_fitting(octets, position); }
};

AST_DEFINE_ENCODED_ITEM(I001_040, ast_dataitem_001_040)

// ---- I001/042 Calculated Position in Cartesian Co-ordinates ----

namespace {

constexpr unsigned kCartesianUnitsPerNm = 64;

} // namespace

struct I001_042 : ScaledPairItem<1042, signed_number(16, 1, kCartesianUnitsPerNm)> {
    static void summarize(TextWriter &out, const Value &position) {
        append_pair<1>(out, "X:", position.value_1 * kMetresPerNm, " Y:", position.value_2 * kMetresPerNm);
        out.append(" LSB:M");
    }
    static void show(ViewWriter &view, const Value &position) {
        DetailTable table(view, "Bit", "Item", "Value");
        write_axis_rows(table, "Octet[1-2]", 'X', position.raw_1, kCartesianUnitsPerNm);
        write_axis_rows(table, "Octet[3-4]", 'Y', position.raw_2, kCartesianUnitsPerNm);
    }
};

AST_DEFINE_ENCODED_ITEM(I001_042, ast_dataitem_001_042)

// ---- I001/120 Measured Radial Doppler Speed ----

struct I001_120 : ScaledItem<1120, signed_number(8, 225, 16)> { // 1/256 NM/s, in knots
    static void summarize(TextWriter &out, const Value &speed) { out.print("DOPPLER:%.2fKT", speed.value); }
    static void show(ViewWriter &view, const Value &speed) {
        constexpr double kUnitsPerNmPerS = 256;
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-7]", "DOPPLER_SPEED LSB:1/256NM/S", Cell<20>("%d", speed.raw));
        table.row("Bit[0-7]", "DOPPLER_SPEED LSB:M/S", Cell<20>("%.2f", speed.raw * kMetresPerNm / kUnitsPerNmPerS));
        table.row("Bit[0-7]", "DOPPLER_SPEED LSB:KNOT", Cell<20>("%.2f", speed.value));
    }
};

AST_DEFINE_ENCODED_ITEM(I001_120, ast_dataitem_001_120)

// ---- I001/130 Radar Plot Characteristics ----

struct I001_130 : OctetChain<1130, kUnlimitedOctets> {};

AST_DEFINE_DECODE(I001_130, ast_dataitem_001_130_decode)
AST_DEFINE_DETAIL(I001_130, ast_dataitem_001_130_get_detail_html)

// ---- I001/131 Received Power ----

struct I001_131 : ScaledItem<1131, signed_number(8, 1, 1)> {
    static void summarize(TextWriter &out, const Value &power) { out.print("POWER:%d LSB:DBM", power.raw); }
    static void show(ViewWriter &view, const Value &power) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0-7]", "RECEIVED_POWER LSB:DBM", Cell<20>("%d", power.raw));
    }
};

AST_DEFINE_ENCODED_ITEM(I001_131, ast_dataitem_001_131)

// ---- I001/141 Truncated Time of Day ----

struct I001_141 : ScaledItem<1141, number(16, 1, 128)> {
    static void summarize(TextWriter &out, const Value &time) {
        out.append("TRUNC_TOD:");
        out.append_decimal<3>(time.value);
        out.append("S");
    }
    static void show(ViewWriter &view, const Value &time) {
        DetailTable table(view, "Name", "Value");
        table.row("TIME LSB=1/128S", Cell<10>("%d", time.raw));
        table.row("TIME LSB=1S", Cell<10>("%.3f", time.value));
    }
};

AST_DEFINE_ENCODED_ITEM(I001_141, ast_dataitem_001_141)

// ---- I001/150 Presence of X-Pulse ----

struct I001_150 : Item<1150, ast_dataitem_001_150_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {
        {&Value::xa, "X_PULSE_MODE_3/A"}, spare(1, "0"), {&Value::xc, "X_PULSE_MODE_C"}, spare(2, "0"),
        {&Value::x2, "X_PULSE_MODE_2"},   spare(2, "0"),
    };

    static void summarize(TextWriter &out, const Value &pulse) {
        const bool any = pulse.xa || pulse.xc || pulse.x2;
        out.append("X_PULSE:");
        if (!any) out.append("NONE");
        const char *gap = "";
        for (const auto &[is_there, mode] :
             {std::pair{pulse.xa, "MODE_3/A"}, {pulse.xc, "MODE_C"}, {pulse.x2, "MODE_2"}}) {
            if (!is_there) continue;
            out.print("%s%s", gap, mode);
            gap = " ";
        }
    }
};

AST_DEFINE_ENCODED_ITEM(I001_150, ast_dataitem_001_150)

// ---- I001/170 Track Status ----

struct I001_170 : Item<1170, ast_dataitem_001_170_t, extended<2>> {
    static constexpr Value kDefault = {.rdpc = 1};
    static constexpr Columns kColumns = kBitColumnsWithIds;
    static constexpr Row<Value> kRows[] = {
        {&Value::con, {"CON", "TENTATIVE"}},
        {&Value::rad, 1, {"RAD", "TRACK_TYPE"}, {"PSR", "SSR/COMBINED"}},
        {&Value::man, {"MAN", "MANOEUVRE"}},
        {&Value::dou, {"DOU", "LOW_CONFIDENCE"}},
        {&Value::rdpc, kFirstOrSecond, {"RDPC", "PROCESSING_CHAIN"}},
        spare(1, ""),
        {&Value::gho, {"GHO", "GHOST_TRACK"}},
        fx,
        {&Value::tre, {"TRE", "TRACK_END"}},
        spare(6, ""),
        fx,
    };

    static void summarize(TextWriter &out, const Value &status) {
        out.append(status.rad ? "TYPE:SSR/CMB" : "TYPE:PSR");
        out.append(shown_if(status.con, " TENTATIVE"));
        out.append(shown_if(status.gho, " GHOST"));
        out.append(shown_if(status.tre, " END"));
    }
};

AST_DEFINE_ENCODED_ITEM(I001_170, ast_dataitem_001_170)

// ---- I001/210 Track Quality ----

struct I001_210 : OctetChain<1210, kUnlimitedOctets> {};

AST_DEFINE_ENCODED_ITEM(I001_210, ast_dataitem_001_210)

// ---- I001/130 and I001/210 of two radar families, which bound them ----

struct I001_A01 : OctetChain<1901, 1> {};
struct I001_A02 : OctetChain<1902, 1> {};
struct I001_A03 : OctetChain<1903, 4> {};
struct I001_A04 : OctetChain<1904, 11> {};

AST_DEFINE_ITEM(I001_A01, ast_dataitem_001_A01)
AST_DEFINE_ITEM(I001_A02, ast_dataitem_001_A02)
AST_DEFINE_ITEM(I001_A03, ast_dataitem_001_A03)
AST_DEFINE_ITEM(I001_A04, ast_dataitem_001_A04)

// ---- Accessors ----

ast_sac_sic_t ast_datarecord_001_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 1010); }
ast_uint_value_t ast_datarecord_001_get_msgtype(const ast_datarecord_t *record) {
    const auto report = first<I001_020>(record);
    if (!report.valid) return {};
    return {.valid = true, .value = report.typ ? AST_MSGTYPE_TRACK : AST_MSGTYPE_PLOT};
}
ast_uint_value_t ast_datarecord_001_get_tracknum(const ast_datarecord_t *record) { return tracknum_of(record, 1161); }
ast_squawk_t ast_datarecord_001_get_squawk(const ast_datarecord_t *record) { return whole_squawk_of(record, 1070); }
ast_quantity_t ast_datarecord_001_get_flightlevel(const ast_datarecord_t *record) { return level_of(record, 1090); }
ast_polar_coordinate_t ast_datarecord_001_get_polarcoord(const ast_datarecord_t *record) {
    const auto position = first<I001_040>(record);
    return {.valid = position.valid, .rho_nm = position.rho_nm, .theta_deg = position.theta_deg};
}

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_001_t;

constexpr FlatMember<Flat> kMembers[] = {
    both_ways<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(1010),
    both_ways<&Flat::target_report, I001_020>(),
    both_ways<&Flat::warnings, I001_030>(),
    both_ways<&Flat::polar_position, I001_040>(),
    both_ways<&Flat::cartesian_position, I001_042>(),
    both_ways<&Flat::mode_2, ast_dataitem_mode_3a_code_decode>(1050),
    both_ways<&Flat::mode_2_confidence, ast_dataitem_mode_3a_confidence_decode>(1060),
    both_ways<&Flat::mode_3a, ast_dataitem_mode_3a_code_decode>(1070),
    both_ways<&Flat::mode_3a_confidence, ast_dataitem_mode_3a_confidence_decode>(1080),
    both_ways<&Flat::mode_c, ast_dataitem_mode_c_code_decode>(1090),
    both_ways<&Flat::mode_c_confidence, ast_dataitem_mode_c_confidence_decode>(1100),
    both_ways<&Flat::doppler_speed, I001_120>(),
    taken_apart<&Flat::plot_characteristics, I001_130>(),
    both_ways<&Flat::received_power, I001_131>(),
    both_ways<&Flat::truncated_time_of_day, I001_141>(),
    both_ways<&Flat::x_pulse, I001_150>(),
    both_ways<&Flat::track_number, ast_dataitem_track_number_decode>(1161),
    both_ways<&Flat::track_status, I001_170>(),
    both_ways<&Flat::polar_velocity, ast_dataitem_velocity_polar_decode>(1200),
    both_ways<&Flat::track_quality, I001_210>(),
    taken_apart<&Flat::plot_characteristics, I001_A01>(),
    taken_apart<&Flat::track_quality, I001_A02>(),
    taken_apart<&Flat::plot_characteristics, I001_A03>(),
    taken_apart<&Flat::track_quality, I001_A04>(),
};

} // namespace

ast_datarecord_001_t *ast_datarecord_001_disassemble(ast_datarecord_001_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 1, kMembers, report_quietly);
}

ast_datarecord_t ast_datarecord_001_assemble(uint8_t *buffer, uint64_t length, ast_datarecord_001_t *flat,
                                             ast_uap_t uap) {
    return assemble(buffer, length, flat, 1, uap, kMembers);
}

// ---- The category ----

namespace {

// Whether a record is a plot or a track stands in bit 8 (TYP) of its target report descriptor, I001/020. That octet is
// taken behind the two of I001/010, which senders of mixed blocks have, or where it is.
template <bool AssumesDataSource>
const ast_uap_t *plot_or_track(const uint8_t *record, uint64_t available) {
    constexpr unsigned kDataSourceBit = 8; // of the first octet of the FSPEC: FRN 1
    constexpr unsigned kDescriptorBit = 7; // FRN 2
    constexpr uint64_t kDataSourceOctets = 2;
    if (available == 0 || !bit(record[0], kDescriptorBit)) return nullptr;
    const uint64_t fspec_octets = plain_extended_size(record, available, available);
    const bool has_data_source = AssumesDataSource || bit(record[0], kDataSourceBit);
    const uint64_t descriptor = fspec_octets + (has_data_source ? kDataSourceOctets : 0);
    if (fspec_octets == 0 || descriptor >= available) return nullptr;
    return bit(record[descriptor], 8) ? &AST_UAP_STANDARD : &AST_UAP_CAT001_PLOT;
}

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_001_get_sacsic,
    .get_msgtype = ast_datarecord_001_get_msgtype,
    .get_tracknum = ast_datarecord_001_get_tracknum,
    .get_squawk = ast_datarecord_001_get_squawk,
    .get_flightlevel = ast_datarecord_001_get_flightlevel,
    .get_polarcoord = ast_datarecord_001_get_polarcoord,
};

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    own<I001_020>("Target Report Descriptor"),
    own<I001_030>("Warning/Error Conditions"),
    own<I001_040>("Measured Position in Polar Co-ordinates"),
    own<I001_042>("Calculated Position in Cartesian Co-ordinates"),
    {50, "Mode-2 Code in Octal Representation", items::mode_3a_code},
    {60, "Mode-2 Code Confidence Indicator", items::mode_3a_confidence},
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {80, "Mode-3/A Code Confidence Indicator", items::mode_3a_confidence},
    {90, "Mode-C Code in Binary Representation", items::mode_c_code},
    {100, "Mode-C Code and Code Confidence Indicator", items::mode_c_confidence},
    own<I001_120>("Measured Radial Doppler Speed"),
    {130, "Radar Plot Characteristics", items::binary_data(I001_130::kSize, kDetailOf<I001_130>)},
    own<I001_131>("Received Power"),
    own<I001_141>("Truncated Time of Day"),
    own<I001_150>("Presence of X-Pulse"),
    {161, "Track Plot Number", items::track_number},
    own<I001_170>("Track Status"),
    {200, "Calculated Track Velocity in Polar Co-ordinates", items::velocity_polar},
    own<I001_210>("Track Quality"),
    own<I001_A01>("Radar Plot Characteristics", 130),
    own<I001_A02>("Track Quality", 210),
    own<I001_A03>("Radar Plot Characteristics", 130),
    own<I001_A04>("Track Quality", 210),
    {951, "Custom Field", items::binary_data(fixed<2>)},
    {AST_ITEM_RFS, "Random Field Sequencing", items::random_field_sequencing},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory001, 1, "Unknown CAT001 Dataitem", kItems, ast_dataitem_001_get_name,
                    .accessors = kAccessors, .choose_profile = plot_or_track<true>,
                    .choose_profile_as_published = plot_or_track<false>)

void ast_datablock_001_mixuap_decode_into(ast_datablock_t *block, const uint8_t *data, uint64_t available) {
    if (block) decode_mixed(*block, data, available, kCategory001);
}

ast_datablock_t ast_datablock_001_mixuap_decode(const uint8_t *data, uint64_t available) {
    ast_datablock_t block{};
    ast_datablock_001_mixuap_decode_into(&block, data, available);
    return block;
}
