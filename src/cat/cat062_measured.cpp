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
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::rho_raw, 16, {}, {&Value::rho_nm, kRhoLsbNm, "RHO LSB:NM"}),
        quantity(&Value::theta_raw, 16, {}, {&Value::theta_deg, kThetaLsbDeg, "THETA LSB:DEG"}),
    };

    static void summarize(TextWriter &out, const Value &position) {
        out.print("RHO:%.1f THETA:%.1f", position.rho_nm, position.theta_deg);
    }
};

struct Height {
    using Value = decltype(Measured::hei);
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::height_raw, kSigned16, "HEIGHT (LSB=25FT)",
                 {&Value::height_ft, kLevelLsbFt, "HEIGHT (LSB=FT)"}, {kLevelLsbM, "HEIGHT (LSB=M)"}),
    };

    static void summarize(TextWriter &out, const Value &height) { out.print("HEIGHT:%d", height.height_ft); }
};

struct ModeC {
    using Value = decltype(Measured::mdc);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::not_validated, "NOT_VALIDATED"}, {&Value::garbled, "GARBLED"}, level_row(&Value::flight_level)};

    static void summarize(TextWriter &out, const Value &level) {
        summarize_level(out, level.flight_level, level.not_validated, level.garbled);
    }
};

struct Mode3a {
    using Value = decltype(Measured::mda);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::not_validated, "NOT_VALIDATED"},
        {&Value::garbled, "GARBLED"},
        {&Value::smoothed, "SMOOTHED"},
        spare(1, "0"),
        code_row(&Value::code),
    };

    static void summarize(TextWriter &out, const Value &code) {
        out.print("MODE_3/A:%04o%s%s%s", code.code, shown_if(code.not_validated, kNotValidated),
                  shown_if(code.garbled, kGarbled), shown_if(code.smoothed, kSmoothed));
    }
};

struct ReportType {
    using Value = decltype(Measured::typ);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::typ, 3, "TARGET_TYPE", kReportTypeTitles},
        {&Value::sim, "SIMULATED_TARGET"},
        {&Value::rab, "FIXED_TRANSPONDER"},
        {&Value::tst, "TEST_TARGET"},
        spare(2, ""),
    };

    static void summarize(TextWriter &out, const Value &report) {
        out.append("TYPE:");
        out.append(kReportTypes[report.typ]);
        out.append(shown_if(report.sim, " SIM"));
        out.append(shown_if(report.rab, " RAB"));
        out.append(shown_if(report.tst, " TST"));
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
