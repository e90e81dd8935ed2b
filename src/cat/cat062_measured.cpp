// I062/340: what the last report that updated the track said, as its sensor measured it.

#include "cat/cat062.hpp"
#include "items/code.hpp"
#include "items/report_type.hpp"

using namespace ast;
using namespace ast::cat062;

namespace {

using Measured = ast_dataitem_062_340_t;

struct MeasuredPosition {
    using Value = decltype(Measured::pos);
    static constexpr double kRhoLsbNm = 1.0 / 256;
    static constexpr double kThetaLsbDeg = kFullCircleDeg / 65536;

    static void read(Value &position, const uint8_t *octets) {
        position.rho_raw = read_u16(octets);
        position.theta_raw = read_u16(octets + 2);
        position.rho_nm = position.rho_raw * kRhoLsbNm;
        position.theta_deg = position.theta_raw * kThetaLsbDeg;
    }
    static void summarize(TextWriter &out, const Value &position) {
        out.print("RHO:%.1f THETA:%.1f", position.rho_nm, position.theta_deg);
    }
    static void show(ViewWriter &view, const Value &position) {
        OctetTable table(view);
        table.quantity("Octet[0-1]", "RHO LSB:NM", position.rho_nm);
        table.quantity("Octet[2-3]", "THETA LSB:DEG", position.theta_deg);
    }
};

struct Height {
    using Value = decltype(Measured::hei);
    static void read(Value &height, const uint8_t *octets) {
        height.height_raw = read_i16(octets);
        height.height_ft = height.height_raw * kLevelLsbFt;
    }
    static void summarize(TextWriter &out, const Value &height) { out.print("HEIGHT:%d", height.height_ft); }
    static void show(ViewWriter &view, const Value &height) {
        constexpr char kOctets[] = "Octet[0-1]";
        OctetTable table(view);
        table.scaled(kOctets, "HEIGHT (LSB=25FT)", height.height_raw, "HEIGHT (LSB=FT)", height.height_ft);
        table.quantity(kOctets, "HEIGHT (LSB=M)", height.height_raw * kLevelLsbM);
    }
};

struct ModeC {
    using Value = decltype(Measured::mdc);
    static void read(Value &level, const uint8_t *octets) {
        level.not_validated = bit(octets[0], 8);
        level.garbled = bit(octets[0], 7);
        level.flight_level = twos_complement(read_u16(octets), 14);
    }
    static void summarize(TextWriter &out, const Value &level) {
        summarize_level(out, level.flight_level, level.not_validated, level.garbled);
    }
    static void show(ViewWriter &view, const Value &level) {
        BitTable table(view);
        write_level(table, level.flight_level, level.not_validated, level.garbled);
    }
};

struct Mode3a {
    using Value = decltype(Measured::mda);
    static void read(Value &code, const uint8_t *octets) {
        code.not_validated = bit(octets[0], 8);
        code.garbled = bit(octets[0], 7);
        code.smoothed = bit(octets[0], 6);
        code.code = field(octets, 5, 16);
    }
    static void summarize(TextWriter &out, const Value &code) {
        out.print("MODE_3/A:%04o%s%s%s", code.code, shown_if(code.not_validated, kNotValidated),
                  shown_if(code.garbled, kGarbled), shown_if(code.smoothed, kSmoothed));
    }
    static void show(ViewWriter &view, const Value &code) {
        BitTable table(view);
        write_code_flags(table, code.not_validated, code.garbled, "SMOOTHED", code.smoothed);
        write_code_digits(table, code.code);
    }
};

struct ReportType {
    using Value = decltype(Measured::typ);
    static void read(Value &report, const uint8_t *octets) {
        report.typ = bits(octets[0], 8, 6);
        report.sim = bit(octets[0], 5);
        report.rab = bit(octets[0], 4);
        report.tst = bit(octets[0], 3);
    }
    static void summarize(TextWriter &out, const Value &report) {
        out.append("TYPE:");
        out.append(kReportTypes[report.typ]);
        out.append(shown_if(report.sim, " SIM"));
        out.append(shown_if(report.rab, " RAB"));
        out.append(shown_if(report.tst, " TST"));
    }
    static void show(ViewWriter &view, const Value &report) {
        BitTable table(view);
        table.row("Bit[0-2]", "TARGET_TYPE", kReportTypeTitles[report.typ]);
        table.flag("Bit[3]", "SIMULATED_TARGET", report.sim);
        table.flag("Bit[4]", "FIXED_TRANSPONDER", report.rab);
        table.flag("Bit[5]", "TEST_TARGET", report.tst);
        table.row("Bit[6-7]", "SPARE", "");
    }
};

constexpr SubfieldRow kMeasured[] = {
    subfield<&Measured::sid, Source>("SID", "Sensor Identification", fixed<2>),
    subfield<&Measured::pos, MeasuredPosition>("POS", "Measured Position", fixed<4>),
    subfield<&Measured::hei, Height>("HEI", "Measured 3-D Height", fixed<2>),
    subfield<&Measured::mdc, ModeC>("MDC", "Last Measured Mode C Code", fixed<2>),
    subfield<&Measured::mda, Mode3a>("MDA", "Last Measured Mode 3/A Code", fixed<2>),
    subfield<&Measured::typ, ReportType>("TYP", "Report Type", fixed<1>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem340, 62340, kMeasured, Measured, 062_340, .summarizes_unknown_subfields = true)

constinit const Compound ast::cat062::kMeasuredInformation = kItem340;
