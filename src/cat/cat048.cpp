// Category 048: plots and local tracks of one radar, in that radar's polar coordinates.

#include <cmath>
#include <iterator>

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/accessors.hpp"
#include "items/code.hpp"
#include "items/items.hpp"
#include "items/register.hpp"
#include "items/value.hpp"
#include "view/html.hpp"

using namespace ast;

// ---- I048/020 Target Report Descriptor ----

namespace {

constexpr uint32_t kFirstChain = 1;
constexpr uint32_t kSecondChain = 2;
constexpr uint32_t kFriend = 1;

} // namespace

ast_dataitem_048_020_t ast_dataitem_048_020_decode(const ast_dataitem_t *item) {
    ast_dataitem_048_020_t report{};
    report.rdp = kFirstChain;
    if (!holds_type(item, 48020)) return report;
    const uint8_t first = item->data[0];
    report.typ = bits(first, 8, 6);
    report.sim = bit(first, 5);
    report.rdp = bit(first, 4) ? kSecondChain : kFirstChain;
    report.spi = bit(first, 3);
    report.rab = bit(first, 2);
    if (item->size >= 2) {
        const uint8_t second = item->data[1];
        report.tst = bit(second, 8);
        report.me = bit(second, 5);
        report.mi = bit(second, 4);
        // Bits 3-2 are taken unshifted, so 01 reads as status 2 and no other pattern reads at all; users rely on it.
        report.foe_fri = ast_iff_status_from_int(second & 0x06);
    }
    report.valid = true;
    return report;
}

void ast_dataitem_048_020_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kTypes[] = {
        "TYPE:NO_DETECTION", "TYPE:PSR",       "TYPE:SSR",          "TYPE:PSR+SSR",
        "TYPE:ALL_CALL",     "TYPE:ROLL_CALL", "TYPE:PSR+ALL_CALL", "TYPE:PSR+ROLL_CALL",
    };
    TextWriter out(text, capacity);
    const auto report = ast_dataitem_048_020_decode(item);
    if (!report.valid) return;
    out.append(kTypes[report.typ]);
    out.append(shown_if(report.sim, " SIM"));
    out.append(report.rdp == kSecondChain ? " CHN2" : " CHN1");
    out.append(shown_if(report.spi, " SPI"));
    out.append(shown_if(report.rab, " RAB"));
    out.append(shown_if(report.tst, " TST"));
    out.append(shown_if(report.me, " ME"));
    out.append(shown_if(report.mi, " MI"));
    out.append(shown_if(report.foe_fri == kFriend, " FRIEND"));
}

void ast_dataitem_048_020_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kTypes[] = {
        "NO_DETECTION",
        "PSR",
        "SSR",
        "PSR + SSR",
        "MODE-S ALL CALL",
        "MODE-S ROLL CALL",
        "PSR + MODE-S ALL CALL",
        "PSR + MODE-S ROLL CALL",
    };
    HtmlWriter html(text, capacity);
    const auto report = ast_dataitem_048_020_decode(item);
    if (!report.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0-2]", "TARGET_TYPE", kTypes[report.typ]);
    table.row("Bit[3]", "SIMULATED_TARGET", Cell<2>("%d", report.sim));
    table.row("Bit[4]", "PROCESSING_CHAIN", Cell<2>("%u", report.rdp));
    table.row("Bit[5]", "SPI", Cell<2>("%d", report.spi));
    table.row("Bit[6]", "FIXED_TRANSPONDER", Cell<2>("%d", report.rab));
    table.row("Bit[7]", "FX", Cell<2>("%d", item->size >= 2));
    if (item->size < 2) return;
    table.row("Bit[8]", "TEST_TARGET", Cell<2>("%d", report.tst));
    table.row("Bit[11]", "MIL_EMERGENCY", Cell<2>("%d", report.me));
    table.row("Bit[12]", "MIL_IDENTIFICATION", Cell<2>("%d", report.mi));
    table.row("Bit[13-14]", "FRIEND_OR_ENEMY", ast_iff_status_to_str(report.foe_fri));
    table.row("Bit[15]", "FX", Cell<2>("%d", item->size >= 3));
}

void ast_dataitem_048_020_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                 const ast_dataitem_src_t *source) {
    constexpr uint32_t kLastType = 7;
    constexpr uint32_t kLastStatus = 3;
    const auto *const report = open_encode<ast_dataitem_048_020_t>(result, buffer, length, source, 2);
    if (result) result->size = 1;
    if (!report) return;
    const uint32_t typ = report->typ <= kLastType ? report->typ : 0;
    buffer[0] =
        static_cast<uint8_t>(placed(typ, 8, 6) | placed(report->sim, 5) | placed(report->rdp == kSecondChain, 4) |
                             placed(report->spi, 3) | placed(report->rab, 2));
    if (report->tst || report->me || report->mi || report->foe_fri != 0) {
        const uint32_t status = report->foe_fri <= kLastStatus ? report->foe_fri : 0;
        buffer[0] |= kFx;
        // ME and MI go two bits above where the decoder looks for them; receivers of these octets rely on it.
        buffer[1] = static_cast<uint8_t>(placed(report->tst, 8) | placed(report->me, 7) | placed(report->mi, 6) |
                                         placed(status, 3, 2));
        result->size = 2;
    }
    written(result);
}

// ---- I048/030 Warning/Error Conditions ----

ast_dataitem_048_030_t ast_dataitem_048_030_decode(const ast_dataitem_t *item) {
    ast_dataitem_048_030_t warnings{};
    if (!is_readable(item) || item->type != 48030) return warnings; // no octets are no warnings
    warnings.count = static_cast<uint32_t>(std::min<uint64_t>(item->size, std::size(warnings.codes)));
    for (uint32_t i = 0; i < warnings.count; ++i) warnings.codes[i] = bits(item->data[i], 8, 2);
    warnings.valid = true;
    return warnings;
}

void ast_dataitem_048_030_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto warnings = ast_dataitem_048_030_decode(item);
    if (warnings.valid) out.print("ERRCODE:%u%s", warnings.codes[0], shown_if(warnings.count >= 2, "+"));
}

void ast_dataitem_048_030_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kConditions[] = {
        "Not defined; never used",
        "Multipath Reply (Reflection)",
        "Reply due to sidelobe interrogation/reception",
        "Split plot",
        "Second time around reply",
        "Angel",
        "Slow moving target correlated with road infrastructure (terrestrial vehicle)",
        "Fixed PSR plot",
        "Slow PSR target",
        "Low quality PSR plot",
        "Phantom SSR plot",
        "Non-Matching Mode-3/A Code",
        "Mode C code / Mode S altitude code abnormal value compared to the track",
        "Target in Clutter Area",
        "Maximum Doppler Response in Zero Filter",
        "Transponder anomaly detected",
        "Duplicated or Illegal Mode S Aircraft Address",
        "Mode S error correction applied",
        "Undecodable Mode C code / Mode S altitude code",
        "Birds",
        "Flock of Birds",
        "Mode 1 was present in original reply",
        "Mode 2 was present in original reply",
        "Plot potentially caused by Wind Turbine",
    };
    HtmlWriter html(text, capacity);
    const auto warnings = ast_dataitem_048_030_decode(item);
    if (!warnings.valid) return;
    DetailTable table(html, "Error Code", "Description");
    for (uint32_t i = 0; i < warnings.count; ++i)
        table.row(Cell<3>("%u", warnings.codes[i]), text_of(kConditions, warnings.codes[i], "Not defined; unknown"));
}

// ---- I048/040 Measured Position in Polar Co-ordinates ----

namespace {

constexpr double kRhoUnitsPerNm = 256;
constexpr double kFullCircleDeg = 360;
constexpr double kThetaUnits = 65536; // per full circle

} // namespace

ast_dataitem_048_040_t ast_dataitem_048_040_decode(const ast_dataitem_t *item) {
    ast_dataitem_048_040_t position{};
    if (!holds(item, 4)) return position;
    position.rho_raw = read_u16(item->data);
    position.theta_raw = read_u16(item->data + 2);
    position.rho_nm = position.rho_raw / kRhoUnitsPerNm;
    position.theta_deg = position.theta_raw * kFullCircleDeg / kThetaUnits;
    position.valid = true;
    return position;
}

void ast_dataitem_048_040_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto position = ast_dataitem_048_040_decode(item);
    if (position.valid) out.print("RHO:%.1f THETA:%.1f", position.rho_nm, position.theta_deg);
}

void ast_dataitem_048_040_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto position = ast_dataitem_048_040_decode(item);
    if (!position.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Octet[1-2]", "RHO LSB:NM", Cell<20>("%.2f", position.rho_nm));
    table.row("Octet[2-3]", "THETA LSB:DEG", Cell<20>("%.2f", position.theta_deg)); // viewers know the label so
}

void ast_dataitem_048_040_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                 const ast_dataitem_src_t *source) {
    auto *const position = open_encode<ast_dataitem_048_040_t>(result, buffer, length, source, 4);
    if (!position) return;
    if (position->rho_nm > 0 || position->theta_deg > 0) {
        position->rho_raw = to_raw(std::round(position->rho_nm * kRhoUnitsPerNm));
        position->theta_raw = to_raw(std::round(position->theta_deg / kFullCircleDeg * kThetaUnits));
    }
    write_u16(buffer, position->rho_raw);
    write_u16(buffer + 2, position->theta_raw);
    written(result);
}

// ---- I048/042 Calculated Position in Cartesian Co-ordinates ----

namespace {

constexpr double kCartesianLsbNm = 1.0 / 128;
constexpr double kMetresPerNm = 1852;

// One coordinate as sent, in nautical miles and in metres.
void write_coordinate(DetailTable &table, const char *octets, char axis, int32_t raw) {
    const double nm = raw * kCartesianLsbNm;
    table.row(octets, Cell<16>("%c LSB:1/128NM", axis), Cell<20>("%d", raw));
    table.row(octets, Cell<16>("%c LSB:NM", axis), Cell<20>("%.2f", nm));
    table.row(octets, Cell<16>("%c LSB:M", axis), Cell<20>("%.2f", nm * kMetresPerNm));
}

} // namespace

ast_dataitem_048_042_t ast_dataitem_048_042_decode(const ast_dataitem_t *item) {
    ast_dataitem_048_042_t position{};
    if (!holds(item, 4)) return position;
    position.x_raw = magnitude_less_maximum(read_u16(item->data), 16);
    position.y_raw = magnitude_less_maximum(read_u16(item->data + 2), 16);
    position.valid = true;
    return position;
}

void ast_dataitem_048_042_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto position = ast_dataitem_048_042_decode(item);
    if (!position.valid) return;
    out.print("X:%.1f Y:%.1f LSB:M", position.x_raw * kCartesianLsbNm * kMetresPerNm,
              position.y_raw * kCartesianLsbNm * kMetresPerNm);
}

void ast_dataitem_048_042_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto position = ast_dataitem_048_042_decode(item);
    if (!position.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    write_coordinate(table, "Octet[1-2]", 'X', position.x_raw);
    write_coordinate(table, "Octet[2-3]", 'Y', position.y_raw); // viewers know the label so
}

// ---- I048/050 Mode-2 Code ----

ast_dataitem_048_050_t ast_dataitem_048_050_decode(const ast_dataitem_t *item) {
    ast_dataitem_048_050_t code{};
    if (!holds_type(item, 48050, 2)) return code;
    code.not_validated = bit(item->data[0], 8);
    code.garbled = bit(item->data[0], 7);
    code.smoothed = bit(item->data[0], 6);
    code.code = field(item->data, 5, 16);
    code.valid = true;
    return code;
}

void ast_dataitem_048_050_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto code = ast_dataitem_048_050_decode(item);
    if (!code.valid) return;
    out.print("MODE_2:%04o%s%s%s", code.code, shown_if(code.not_validated, " NOT_VALIDATED"),
              shown_if(code.garbled, " GARBLED"), shown_if(code.smoothed, " SMOOTHED"));
}

void ast_dataitem_048_050_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto code = ast_dataitem_048_050_decode(item);
    if (!code.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Bit[0]", "NOT_VALIDATED", Cell<2>("%d", code.not_validated));
    table.row("Bit[1]", "GARBLED", Cell<2>("%d", code.garbled));
    table.row("Bit[2]", "SMOOTHED", Cell<2>("%d", code.smoothed));
    table.row("Bit[3]", "SPARE", "0");
    write_code_digits(table, code.code);
}

void ast_dataitem_048_050_encode(ast_dataitem_t *result, uint8_t *buffer, uint64_t length,
                                 const ast_dataitem_src_t *source) {
    const auto *const code = open_encode<ast_dataitem_048_050_t>(result, buffer, length, source, 2);
    if (!code || code->code > INT32_MAX) return;
    write_u16(buffer, code->code);
    buffer[0] = static_cast<uint8_t>(placed(code->not_validated, 8) | placed(code->garbled, 7) |
                                     placed(code->smoothed, 6) | placed(buffer[0], 4, 1));
    written(result);
}

// ---- I048/110 Height Measured by a 3D Radar ----

namespace {

constexpr int32_t kHeightLsbFt = 25;
constexpr double kMetresPerFoot = 0.3048;

} // namespace

ast_dataitem_048_110_t ast_dataitem_048_110_decode(const ast_dataitem_t *item) {
    ast_dataitem_048_110_t height{};
    if (!holds_type(item, 48110, 2)) return height;
    height.height_ft = magnitude_less_maximum(read_u16(item->data), 14) * kHeightLsbFt;
    height.valid = true;
    return height;
}

void ast_dataitem_048_110_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto height = ast_dataitem_048_110_decode(item);
    if (height.valid) out.print("H:%d LSB:FT", height.height_ft);
}

void ast_dataitem_048_110_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto height = ast_dataitem_048_110_decode(item);
    if (!height.valid) return;
    DetailTable table(html, "Bit", "Item", "Value");
    table.row("Octet[1-2]", "HEIGHT (LSB=25FT)", Cell<20>("%d", height.height_ft / kHeightLsbFt));
    table.row("Octet[1-2]", "HEIGHT (LSB=FT)", Cell<20>("%d", height.height_ft));
    table.row("Octet[1-2]", "HEIGHT (LSB=M)", Cell<20>("%d", static_cast<int>(height.height_ft * kMetresPerFoot)));
}

// ---- I048/120 Radial Doppler Speed ----

namespace {

constexpr SubfieldRow kRadialDopplerSpeed[] = {
    {"CAL", "Calculated Doppler Speed", octets(2)},
    {"RDS", "Raw Doppler Speed", octets(7)}, // a repetition count of 1 and one element, whatever the count says
};

} // namespace

void ast_subfield_048_120_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *, uint32_t) {
    set_text(text, capacity, "");
}

void ast_subfield_048_120_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *, uint32_t) {
    set_text(text, capacity, "");
}

AST_DEFINE_COMPOUND(kItem120, 048_120, kRadialDopplerSpeed, ast_subfield_048_120_get_summary,
                    ast_subfield_048_120_get_detail_html)

// ---- I048/130 Radar Plot Characteristics ----

namespace {

enum PlotCharacteristic : uint32_t { kSrl = 1, kSrr = 2, kSam = 3 };

constexpr SubfieldRow kPlotCharacteristics[] = {
    {"SRL", "SSR Plot Runlength", octets(1)},
    {"SRR", "Number of Received Replies for (M)SSR", octets(1)},
    {"SAM", "Amplitude of (M)SSR Reply", octets(1)},
    {"PRL", "Primary Plot Runlength", octets(1)},
    {"PAM", "Amplitude of Primary Plot ", octets(1)}, // the name ends in a blank
    {"RPD", "Difference in Range between PSR and SSR plot", octets(1)},
    {"APD", "Difference in Azimuth between PSR and SSR plot", octets(1)},
};

} // namespace

ast_dataitem_048_130_t ast_dataitem_048_130_decode(const ast_dataitem_t *item) {
    constexpr double kRunlengthUnits = 8192; // per full circle
    ast_dataitem_048_130_t plot{};
    if (!holds_type(item, 48130)) return plot;
    plot.subfields = ast_dataitem_subfields_decode(item);
    if (!plot.subfields.valid) return {};
    if (const uint8_t *const srl = subfield_octets(plot.subfields, kSrl, 1))
        plot.srl = {.present = true, .raw = *srl, .deg = *srl * kFullCircleDeg / kRunlengthUnits};
    if (const uint8_t *const srr = subfield_octets(plot.subfields, kSrr, 1))
        plot.srr = {.present = true, .value = *srr};
    if (const uint8_t *const sam = subfield_octets(plot.subfields, kSam, 1))
        plot.sam = {.present = true, .value = *sam};
    plot.valid = true;
    return plot;
}

void ast_subfield_048_130_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item,
                                      uint32_t subfield_type) {
    TextWriter out(text, capacity);
    const auto plot = ast_dataitem_048_130_decode(item);
    if (!plot.valid || !has_subfield(plot.subfields, subfield_type)) return;
    switch (subfield_number(subfield_type)) {
    case kSrl:
        out.print("%.2f LSB=DEG", plot.srl.deg);
        break;
    case kSrr:
        out.print("%d", plot.srr.value);
        break;
    case kSam:
        out.print("-%d LSB=DBM", plot.sam.value);
        break; // the amplitude is sent without its sign
    default:
        out.append("NOT_IMPLEMENTED");
    }
}

void ast_subfield_048_130_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *, uint32_t) {
    set_text(text, capacity, "");
}

AST_DEFINE_COMPOUND(kItem130, 048_130, kPlotCharacteristics, ast_subfield_048_130_get_summary,
                    ast_subfield_048_130_get_detail_html)

// ---- I048/170 Track Status ----

ast_dataitem_048_170_t ast_dataitem_048_170_decode(const ast_dataitem_t *item) {
    constexpr uint32_t kInvalid = 3;
    ast_dataitem_048_170_t status{};
    status.rad = kInvalid;
    status.cdm = kInvalid;
    if (!holds_type(item, 48170)) return status;
    const uint8_t octet = item->data[0];
    status.cnf = bit(octet, 8);
    status.rad = bits(octet, 7, 6);
    status.dou = bit(octet, 5);
    status.man = bit(octet, 4);
    status.cdm = bits(octet, 3, 2);
    status.valid = true;
    return status;
}

void ast_dataitem_048_170_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kTypes[] = {"TYPE:CMB", "TYPE:PSR", "TYPE:SSR", "TYPE:INVALID"};
    TextWriter out(text, capacity);
    const auto status = ast_dataitem_048_170_decode(item);
    if (status.valid) out.append(kTypes[status.rad]);
}

void ast_dataitem_048_170_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    static constexpr const char *kTypes[] = {"COMBINED", "PSR", "SSR", "INVALID"};
    static constexpr const char *kVertical[] = {"MAINTAINING", "CLIMBING", "DESCENDING", "INVALID"};
    HtmlWriter html(text, capacity);
    const auto status = ast_dataitem_048_170_decode(item);
    if (!status.valid) return;
    DetailTable table(html, "Bit", "ID", "Item", "Value");
    table.row("Bit[0]", "CNF", "TENTATIVE", Cell<2>("%d", status.cnf));
    table.row("Bit[1-2]", "RAD", "TRACK_TYPE", kTypes[status.rad]);
    table.row("Bit[3]", "DOU", "LOW_CONFIDENCE", Cell<2>("%d", status.dou));
    table.row("Bit[4]", "MAN", "HORIZONTIAL_MANOEUVRE", Cell<2>("%d", status.man));
    table.row("Bit[5-6]", "CDM", "VERTICAL_MANOEUVRE", kVertical[status.cdm]);
    table.row("Bit[7]", "FX", "FIELD_EXTENSION", Cell<2>("%d", item->size >= 2));
}

// ---- I048/210 Track Quality ----

ast_dataitem_048_210_t ast_dataitem_048_210_decode(const ast_dataitem_t *item) {
    constexpr double kPositionLsbNm = 1.0 / 128;
    constexpr double kSpeedLsbKt = 0.22;       // rounded from 2^-14 NM/s, and used so
    constexpr double kHeadingLsbDeg = 0.08789; // rounded from 360/2^12, and used so
    ast_dataitem_048_210_t quality{};
    if (!holds_type(item, 48210, 4)) return quality;
    quality.sigma_x_raw = item->data[0];
    quality.sigma_y_raw = item->data[1];
    quality.sigma_v_raw = item->data[2];
    quality.sigma_h_raw = item->data[3];
    quality.sigma_x_nm = quality.sigma_x_raw * kPositionLsbNm;
    quality.sigma_y_nm = quality.sigma_y_raw * kPositionLsbNm;
    quality.sigma_v_kt = quality.sigma_v_raw * kSpeedLsbKt;
    quality.sigma_h_deg = quality.sigma_h_raw * kHeadingLsbDeg;
    quality.valid = true;
    return quality;
}

void ast_dataitem_048_210_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto quality = ast_dataitem_048_210_decode(item);
    if (!quality.valid) return;
    out.print("X:%.2f Y:%.2f V:%.2f H:%.2f", quality.sigma_x_nm, quality.sigma_y_nm, quality.sigma_v_kt,
              quality.sigma_h_deg);
}

void ast_dataitem_048_210_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto quality = ast_dataitem_048_210_decode(item);
    if (!quality.valid) return;
    DetailTable table(html, "Octet", "Item", "Value");
    table.row("Octet[0]", "SIGMA(X) LSB:1/128NM", Cell<64>("%u", quality.sigma_x_raw));
    table.row("Octet[0]", "SIGMA(X) LSB:NM", Cell<64>("%f", quality.sigma_x_nm));
    table.row("Octet[1]", "SIGMA(Y) LSB:1/128NM", Cell<64>("%u", quality.sigma_y_raw));
    table.row("Octet[1]", "SIGMA(Y) LSB:NM", Cell<64>("%f", quality.sigma_y_nm));
    table.row("Octet[2]", "SIGMA(V) LSB:0.22Knot", Cell<64>("%u", quality.sigma_v_raw));
    table.row("Octet[2]", "SIGMA(V) LSB:Knot", Cell<64>("%f", quality.sigma_v_kt));
    table.row("Octet[3]", "SIGMA(H) LSB:360/2^12Deg", Cell<64>("%u", quality.sigma_h_raw));
    table.row("Octet[3]", "SIGMA(H) LSB:Deg", Cell<64>("%f", quality.sigma_h_deg));
}

// ---- I048/230 Communications / ACAS Capability and Flight Status ----

ast_dataitem_048_230_t ast_dataitem_048_230_decode(const ast_dataitem_t *item) {
    constexpr uint32_t kUndefinedCapability = 7;
    constexpr uint32_t kUndefinedStatus = 8;
    ast_dataitem_048_230_t status{};
    status.com = kUndefinedCapability;
    status.stat = kUndefinedStatus;
    if (!holds_type(item, 48230, 2)) return status;
    status.com = ast_transponder_comm_cap_from_int(bits(item->data[0], 8, 6));
    status.stat = ast_radar_flight_status_from_int(bits(item->data[0], 5, 3));
    if (status.com == kUndefinedCapability) ast_log(AST_LOG_WARNING, "I048/230: Communication Capability Undefined.");
    if (status.stat == kUndefinedStatus) ast_log(AST_LOG_WARNING, "I048/230: Flight Status Undefined.");
    status.mssc = bit(item->data[1], 8);
    status.arc = bit(item->data[1], 7);
    status.aic = bit(item->data[1], 6);
    status.b1a = bit(item->data[1], 5);
    status.b1b = static_cast<uint8_t>(bits(item->data[1], 4, 1));
    status.valid = true;
    return status;
}

void ast_dataitem_048_230_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto status = ast_dataitem_048_230_decode(item);
    if (status.valid) out.print("FS:%s", ast_radar_flight_status_to_str(status.stat));
}

void ast_dataitem_048_230_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto status = ast_dataitem_048_230_decode(item);
    if (!status.valid) return;
    DetailTable table(html, "Bit", "ID", "Item", "Value");
    table.row("Bit[0-2]", "COM", "COMMUNICATION_CAPABILITY", ast_transponder_comm_cap_to_str(status.com));
    table.row("Bit[3-5]", "STAT", "FLIGHT_STATUS", ast_radar_flight_status_to_str(status.stat));
    table.row("Bit[6-7]", "---", "SPARE", "");
    table.row("Bit[8]", "MSSC", "MODE-S_CAPABILITY", Cell<8>("%d", status.mssc));
    table.row("Bit[9]", "ARC", "ALTITUDE_REPORTING_CAPABILITY", status.arc ? "25FT" : "100FT");
    table.row("Bit[10]", "AIC", "ACID_CAPABILITY", Cell<8>("%d", status.aic));
    table.row("Bit[11]", "B1A", "BDS10_BIT16", ast_hex_to_bin(status.b1a));
    table.row("Bit[12-15]", "B1B", "BDS10_BIT37-40", ast_hex_to_bin(status.b1b));
}

// ---- I048/260 ACAS Resolution Advisory Report ----

namespace {

constexpr uint32_t kAcasRegister = 0x30;

} // namespace

ast_dataitem_048_260_t ast_dataitem_048_260_decode(const ast_dataitem_t *item) {
    ast_dataitem_048_260_t advisory{};
    if (!holds_type(item, 48260, kRegisterOctets)) return advisory;
    advisory.bds = ast_bds_decode(item->data, item->size, kAcasRegister);
    advisory.valid = advisory.bds.valid;
    return advisory;
}

void ast_dataitem_048_260_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto advisory = ast_dataitem_048_260_decode(item);
    if (advisory.valid) out.print("BDS:%s", ast_bds_type_to_str_simple(advisory.bds.bds));
}

void ast_dataitem_048_260_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto advisory = ast_dataitem_048_260_decode(item);
    if (advisory.valid) write_register(html, advisory.bds);
}

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
    constexpr double kModeCLsbFt = 25;
    const auto mode_c = ast_dataitem_mode_c_code_decode(first_item(record, 48090));
    if (mode_c.valid) return {.valid = true, .value = mode_c.flight_level * kModeCLsbFt};
    const auto height = ast_dataitem_048_110_decode(first_item(record, 48110));
    return {.valid = height.valid, .value = static_cast<double>(height.height_ft)};
}

namespace {

// Visits the registers of the record's Mode S MB data, in order, until the visitor returns false.
template <typename Visitor>
void each_register(const ast_datarecord_t *record, Visitor visit) {
    const auto data = ast_dataitem_modes_mb_decode(first_item(record, 48250));
    const uint64_t held = std::min<uint64_t>(data.count, std::size(data.registers));
    for (uint64_t i = 0; i < held; ++i)
        if (!visit(data.registers[i])) return;
}

} // namespace

ast_quantity_t ast_datarecord_048_get_selaltitude(const ast_datarecord_t *record) {
    ast_quantity_t selected{};
    each_register(record, [&](const ast_bds_t &bds) {
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
    const auto position = ast_dataitem_048_040_decode(first_item(record, 48040));
    return {.valid = position.valid, .rho_nm = position.rho_nm, .theta_deg = position.theta_deg};
}

ast_heading_t ast_datarecord_048_get_heading(const ast_datarecord_t *record) {
    ast_heading_t heading = kNoHeading;
    each_register(record, [&](const ast_bds_t &bds) {
        const auto speed = ast_bds_60_decode(&bds);
        if (speed.heading_status) heading.magnetic = {.valid = true, .value = speed.magnetic_heading_deg};
        const auto turn = ast_bds_50_decode(&bds);
        if (turn.track_status) heading.track = {.valid = true, .value = turn.true_track_deg};
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
    both_ways<&Flat::target_report, ast_dataitem_048_020_decode>(48020),
    taken_apart<&Flat::warnings, ast_dataitem_048_030_decode>(48030),
    both_ways<&Flat::polar_position, ast_dataitem_048_040_decode>(48040),
    taken_apart<&Flat::cartesian_position, ast_dataitem_048_042_decode>(48042),
    both_ways<&Flat::mode_2, ast_dataitem_048_050_decode>(48050),
    both_ways<&Flat::mode_3a, ast_dataitem_mode_3a_code_decode>(48070),
    taken_apart<&Flat::mode_3a_confidence, ast_dataitem_mode_3a_confidence_decode>(48080),
    both_ways<&Flat::mode_c, ast_dataitem_mode_c_code_decode>(48090),
    taken_apart<&Flat::mode_c_confidence, ast_dataitem_mode_c_confidence_decode>(48100),
    taken_apart<&Flat::height_3d, ast_dataitem_048_110_decode>(48110),
    taken_apart<&Flat::plot_characteristics, ast_dataitem_048_130_decode>(48130),
    both_ways<&Flat::time_of_day, ast_dataitem_time_of_day_decode>(48140),
    both_ways<&Flat::track_number, ast_dataitem_track_number_decode>(48161),
    taken_apart<&Flat::track_status, ast_dataitem_048_170_decode>(48170),
    both_ways<&Flat::polar_velocity, ast_dataitem_velocity_polar_decode>(48200),
    both_ways<&Flat::target_address, ast_dataitem_target_address_decode>(48220),
    taken_apart<&Flat::comm_and_flight_status, ast_dataitem_048_230_decode>(48230),
    both_ways<&Flat::aircraft_id, ast_dataitem_aircraft_id_decode>(48240),
    taken_apart<&Flat::modes_mb, ast_dataitem_modes_mb_decode>(48250),
    taken_apart<&Flat::acas_advisory, ast_dataitem_048_260_decode>(48260),
};

} // namespace

ast_datarecord_048_t ast_datarecord_048_disassemble(const ast_datarecord_t *record) {
    ast_datarecord_048_t flat{};
    disassemble(flat, record, 48, kMembers, report_quietly);
    return flat;
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
    {20, "Target Report Descriptor", {variable<2>, AST_VIEWS(048_020), AST_ENCODE(048_020)}},
    {30, "Warning/Error Conditions", {variable<23>, AST_VIEWS(048_030)}},
    {40, "Measured Position in Polar Co-ordinates", {fixed<4>, AST_VIEWS(048_040), AST_ENCODE(048_040)}},
    {42, "Calculated Position in Cartesian Co-ordinates", {fixed<4>, AST_VIEWS(048_042)}},
    {50, "Mode-2 Code in Octal Representation", {fixed<2>, AST_VIEWS(048_050), AST_ENCODE(048_050)}},
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {80, "Mode-3/A Code Confidence Indicator", items::without_encoder(items::mode_3a_confidence)},
    {90, "Flight Level in Binary Representation", items::mode_c_code},
    {100, "Mode-C Code and Code Confidence Indicator", items::without_encoder(items::mode_c_confidence)},
    {110, "Height Measured by a 3D Radar", {fixed<2>, AST_VIEWS(048_110)}},
    {120, "Radial Doppler Speed", items::compound(ast_dataitem_048_120_get_size), &kItem120},
    {130, "Radar Plot Characteristics", items::compound(ast_dataitem_048_130_get_size), &kItem130},
    {140, "Time of Day", items::time_of_day},
    {161, "Track Number", items::track_number},
    {170, "Track Status", {variable<2>, AST_VIEWS(048_170)}},
    {200, "Calculated Track Velocity in Ploar Co-ordinates", items::velocity_polar}, // known with this spelling
    {210, "Track Quality", {fixed<4>, AST_VIEWS(048_210)}},
    {220, "Aircraft Address", items::target_address},
    {230, "Communications / ACAS Capability and Flight Status", {fixed<2>, AST_VIEWS(048_230)}},
    {240, "Aircraft Identification", items::aircraft_id},
    {250, "Mode S MB Data", items::modes_mb},
    {260, "ACAS Resolution Advisory Report", {fixed<7>, AST_VIEWS(048_260)}},
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(048, 48, kItems, .reports_unknown_names = true, .accessors = kAccessors)
