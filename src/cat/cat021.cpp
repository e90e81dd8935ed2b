// Category 021: ADS-B target reports, editions 0.23 to 2.4.

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

#include "core/bits.hpp"
#include "items/compound.hpp"
#include "items/items.hpp"
#include "items/octet_chain.hpp"
#include "items/units.hpp"
#include "items/vertical.hpp"

using namespace ast;

namespace {

constexpr uint32_t kAngleUnits = 65536; // per full circle

// An item whose detail view is one table, which stays without rows when the item cannot be read.
template <ast_dataitem_type_t Type, typename Value, SizeRule Rule>
struct Tabled : Item<Type, Value, Rule> {
    static constexpr bool kShowsUnread = true;
};

// A text that stands only when its flag is set.
struct Word {
    bool flag;
    const char *text;
};

// The words whose flags are set, with a blank between them; another one when none is.
void write_words(TextWriter &out, std::initializer_list<Word> words, const char *no_word) {
    const char *blank = "";
    for (const Word &word : words) {
        if (!word.flag) continue;
        out.append(blank);
        out.append(word.text);
        blank = " ";
    }
    if (*blank == '\0') out.append(no_word);
}

// Some items show their spare bits behind all others; viewers know them so.
template <typename I>
void show_with_spare_behind(ViewWriter &view, const typename I::Value &value, const char *spare_bits) {
    DetailTable table = table_of_rows<I>(view);
    show_rows<I>(table, value);
    table.row(spare_bits, "SPARE", "");
}

// The nearest number of steps to a value; the raw one where the value is no number.
int32_t steps_of(double value, double lsb, int32_t raw) { return std::isnan(value) ? raw : rounded_units(value / lsb); }

int32_t read_signed(const uint8_t *octets) { return magnitude_less_maximum(read_u16(octets), 16); }

// Writes what read_signed reads.
bool write_signed(uint8_t *octets, int32_t raw) {
    write_u16(octets, one_below_when_negative(raw));
    return fits(std::abs(int64_t{raw}), 15);
}

} // namespace

// ---- I021/008 Aircraft Operational Status ----

struct I021_008 : Tabled<21008, ast_dataitem_021_008_t, fixed<1>> {
    static void read(Value &status, const uint8_t *octets) {
        status.ra = bit(octets[0], 8);
        status.ts = bit(octets[0], 5);
        status.arv = bit(octets[0], 4);
        status.cdti = bit(octets[0], 3);
        status.not_tcas = bit(octets[0], 2);
        status.sa = bit(octets[0], 1);
    }

    static void summarize(TextWriter &out, const Value &status) {
        write_words(out,
                    {{status.ra, "RA"},
                     {status.ts, "TS"},
                     {status.arv, "ARV"},
                     {status.cdti, "CDTI"},
                     {status.not_tcas, "NO_TCAS"},
                     {status.sa, "SA"}},
                    "");
    }

    static void show(ViewWriter &view, const Value &status, const ast_dataitem_t &item) {
        DetailTable table(view, "Bit", "Item", "Value");
        table.row("Bit[0]", "TCAS_RA_ACTIVE", Cell<2>("%d", status.ra));
        table.row("Bit[1-2]", "TC_CAPABILITY", Cell<2>("%u", bits(item.data[0], 7, 6)));
        table.row("Bit[3]", "TS_CAPABILITY", Cell<2>("%d", status.ts));
        table.row("Bit[4]", "ARV_CAPABILITY", Cell<2>("%d", status.arv));
        table.row("Bit[5]", "CDTI_OPERATIONAL", Cell<2>("%d", status.cdti));
        table.row("Bit[6]", "TCAS_NO_OPERATIONAL", Cell<2>("%d", status.not_tcas));
        table.row("Bit[7]", "SINGLE_ANTENNA", Cell<2>("%d", status.sa));
    }
};

AST_DEFINE_DECODE(I021_008, ast_dataitem_021_008_decode)
AST_DEFINE_DETAIL(I021_008, ast_dataitem_021_008_get_detail_html)

// This summary leaves the last eight characters of its room free; viewers know it cut there.
void ast_dataitem_021_008_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    constexpr uint64_t kFreeChars = 8;
    set_text(text, capacity, "");
    if (capacity > kFreeChars) summarize<I021_008>(text, capacity - kFreeChars, item);
}
template <>
constexpr SummaryView *ast::kSummaryOf<I021_008> = ast_dataitem_021_008_get_summary;

// ---- I021/016 Service Management ----

struct I021_016 : Item<21016, ast_dataitem_021_016_t, fixed<1>> {
    static constexpr double kLsbS = 0.5;
    static constexpr double kLongestS = 127.5; // or longer

    static constexpr Row<Value> kRows[] = {quantity(&Value::raw, 8, {}, {&Value::period_s, kLsbS})};

    static void summarize(TextWriter &out, const Value &service) {
        if (service.period_s <= 0)
            out.append("DATA_DRIVEN_MODE");
        else
            out.print("PR:%s%.2fSEC", shown_if(service.period_s >= kLongestS, ">="), service.period_s);
    }
};

AST_DEFINE_SUMMARIZED_ITEM(I021_016, ast_dataitem_021_016)

// ---- I021/020 Emitter Category ----

struct I021_020 : Tabled<21020, ast_dataitem_021_020_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {{&Value::emitter_category, {8, ast_emitter_category_from_int}, "Value"}};

    static void summarize(TextWriter &out, const Value &emitter) {
        out.append("EMITTER:");
        out.append(ast_emitter_category_to_str(emitter.emitter_category, AST_STYLE_SHORT));
    }

    static void show(ViewWriter &view, const Value &emitter) {
        DetailTable table = table_of_rows<I021_020>(view);
        show_rows<I021_020>(table, emitter);
        table.row("Bit[0-7]", "Description", ast_emitter_category_to_str(emitter.emitter_category, AST_STYLE_LONG));
    }
};

AST_DEFINE_ENCODED_ITEM(I021_020, ast_dataitem_021_020)

// ---- I021/032 Time of Day Accuracy ----

struct I021_032 : Tabled<21032, ast_dataitem_021_032_t, fixed<1>> {
    static constexpr double kLsbS = 1.0 / 256;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::raw, 8, "TOD_ACCURACY LSB=1/256S", {&Value::accuracy_s, kLsbS, "TOD_ACCURACY LSB=S"}),
    };

    static void summarize(TextWriter &out, const Value &time) { out.print("TOD_ACCU:%.2fS", time.accuracy_s); }
};

AST_DEFINE_ITEM(I021_032, ast_dataitem_021_032)

// ---- I021/040 Target Report Descriptor ----

namespace {

// 4 stands for the reserved ones behind it, too.
uint32_t address_type(uint32_t code) { return std::min(code, UINT32_C(4)); }

// Altitude reporting capability: the values are one above the codes, and what is invalid is unknown.
constexpr uint32_t kUnknownCapability = 3;

uint32_t capability_from(uint32_t code) { return std::min(code + 1, kUnknownCapability); }

uint32_t capability_code(uint32_t capability) { return (capability == 0 ? kUnknownCapability : capability) - 1; }

const char *capability_text(uint32_t capability) {
    static constexpr const char *kCapabilities[] = {"UNKNOWN", "25FT", "100FT", "UNKNOWN"};
    return text_of(kCapabilities, capability, "UNKNOWN");
}

} // namespace

struct I021_040 : Tabled<21040, ast_dataitem_021_040_t, extended<3>> {
    static constexpr const char *kAddresses[] = {"24-BIT_ICAO_ADDRESS", "DUPLICATED_ADDRESS", "SURFACE_VEHICLE_ADDRESS",
                                                 "ANONYMOUS_ADDRESS"};
    static constexpr const char *kConfidence[] = {"VALID", "SUSPECT", "NO_INFO"};

    static constexpr Columns kColumns = {"Bit", nullptr, "Name", "Value", Columns::Count::Bits, 1};
    static constexpr Row<Value> kRows[] = {
        {&Value::atp, {3, address_type}, "ADDRESS_TYPE", {kAddresses, "RESERVED"}},
        {&Value::arc, {2, capability_from, capability_code}, "ALTITUDE_REPORT_CAPABILITY", capability_text},
        {&Value::rc, "RANGE_CHECK"},
        {&Value::rab, "FIXED_TRANSPONDER_REPORT"},
        hidden_fx,
        {&Value::dcr, "DIFFERENTIAL_CORRECTION"},
        {&Value::gbs, "GROUND_BIT_SET"},
        {&Value::sim, "SIMULATED_TARGET_REPORT"},
        {&Value::tst, "TEST_TARGET"},
        {&Value::saa, "NO_SELECTED_ALTITUDE_CAPABILITY"},
        {&Value::cl, 2, "CONFIDENCE_LEVEL", {kConfidence, "RESERVED"}},
        hidden_fx,
        spare(1), // each of the next ones stands one bit above its place in the published layout; users rely on it
        {&Value::ipc},
        {&Value::nogo},
        {&Value::cpr},
        {&Value::ldpj},
        {&Value::rcf},
        {&Value::bit_2},
        hidden_fx,
    };

    static void summarize(TextWriter &out, const Value &report) {
        out.append("TARGET:");
        write_words(out, {{report.gbs, "GBS"}, {report.sim, "SIM"}, {report.tst, "TST"}}, "NORMAL");
    }

    static void show(ViewWriter &view, const Value &report, const ast_dataitem_t &item) {
        DetailTable table = table_of_rows<I021_040>(view);
        show_rows<I021_040>(table, report, item.data, item.size);
        if (item.size >= 3) show_third_as_published(table, report);
    }

    static void show_third_as_published(DetailTable &table, const Value &report) {
        table.row("Bit[17-18]", "SPARE", "");
        table.row("Bit[19]", "INDEPENDENT_PONSITION_CHECK_FAILED", Cell<2>("%d", report.ipc)); // known so
        table.row("Bit[20]", "NOGO", report.nogo ? "NOGO_BIT_SET" : "0");
        table.row("Bit[21]", "CPR_VALIDATION_FAILED", Cell<2>("%d", report.cpr));
        table.row("Bit[22]", "LDPJ", report.ldpj ? "LDPJ_DETECTED" : "0");
        table.row("Bit[23]", "RANGE_CHECK_FAILED", Cell<2>("%d", report.rcf));
    }
};

AST_DEFINE_ENCODED_ITEM(I021_040, ast_dataitem_021_040)

// ---- I021/090 Quality Indicators ----

struct I021_090 : Tabled<21090, ast_dataitem_021_090_t, extended<4>> {
    static constexpr Row<Value> kRows[] = {
        {&Value::nucr_nacv, 3, "NUC_R, NAC_V"},
        {&Value::nucp_nic, 4, "NUC_P, NIC"},
        hidden_fx,
        {&Value::nic_baro, 1, "NIC_BARO"},
        {&Value::sil, 2, "SIL"},
        {&Value::nac_p, 4, "NAC_P"},
        hidden_fx,
        spare(2, ""),
        {&Value::sil_s, 1, "SIL_S"},
        {&Value::sda, 2, "SDA"},
        {&Value::gva, 2, "GVA"},
        hidden_fx,
        {&Value::pic, 4, "PIC"},
        spare(3, ""),
        hidden_fx,
    };

    static void summarize(TextWriter &out, const Value &quality) {
        out.print("NUCR:%u NUCP:%u", quality.nucr_nacv, quality.nucp_nic);
    }

    // Ends with the last octet that a present field stands in.
    static uint64_t write(uint8_t *octets, const Value &quality) {
        if (!place_rows<I021_090>(octets, quality)) return 0;
        if (quality.pic.present) return chain(octets, 4);
        if (quality.sil_s.present || quality.sda.present || quality.gva.present) return chain(octets, 3);
        return chain(octets, quality.nic_baro.present || quality.sil.present || quality.nac_p.present ? 2 : 1);
    }
};

AST_DEFINE_ENCODED_ITEM(I021_090, ast_dataitem_021_090)

// ---- I021/095 Velocity Accuracy ----

struct I021_095 : Item<21095, ast_dataitem_021_095_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {{&Value::value, 8}};

    static void summarize(TextWriter &out, const Value &accuracy) { out.print("VA:%u", accuracy.value); }
};

AST_DEFINE_SUMMARIZED_ITEM(I021_095, ast_dataitem_021_095)
AST_DEFINE_ENCODE(I021_095, ast_dataitem_021_095_encode)

// ---- I021/110 Trajectory Intent ----

namespace {

constexpr SubfieldRow kTrajectoryIntent[] = {
    {"TIS", "Trajectory Intent Status", extended<1>},
    {"TID", "Trajectory Intent Data", repetitive<15>},
};

} // namespace

AST_DEFINE_COMPOUND(kItem110, 21110, kTrajectoryIntent, ast_dataitem_021_110_get_size, ast_subfield_021_110_get_size,
                    ast_subfield_021_110_get_id, ast_subfield_021_110_get_name, nullptr, nullptr,
                    .reports_unknown_subfields = true)

// ---- I021/140 Geometric Altitude ----

struct I021_140 : Tabled<21140, ast_dataitem_021_140_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::raw, kMagnitude16, "GEO_ALTITUDE LSB=6.25FT",
                 {&Value::altitude_ft, kVerticalLsbFt, "GEO_ALTITUDE LSB=FT"}, {kVerticalLsbM, "GEO_ALTITUDE LSB=M"}),
    };

    static void summarize(TextWriter &out, const Value &altitude) {
        out.print("ALTITUDE:%.2fFT", altitude.altitude_ft);
    }

    static uint64_t write(uint8_t *octets, Value &altitude) {
        altitude.raw = steps_of(altitude.altitude_ft, kVerticalLsbFt, altitude.raw);
        return write_rows<I021_140>(octets, altitude);
    }
};

AST_DEFINE_ENCODED_ITEM(I021_140, ast_dataitem_021_140)

// ---- I021/145 Flight Level ----

namespace {

// A level below so many bits of other fields, as it is sent and in three units.
template <typename Value>
constexpr Row<Value> level_row(unsigned width) {
    return {&Value::raw,
            {width, Sign::MagnitudeLessMaximum},
            "FLIGHT_LEVEL LSB=0.25FL",
            {&Value::altitude_ft, kLevelLsbFt},
            {kLevelLsbFl, "FLIGHT_LEVEL LSB=FL"},
            {kLevelLsbM, "FLIGHT_LEVEL LSB=M"}};
}

} // namespace

struct I021_145 : Tabled<21145, ast_dataitem_021_145_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {level_row<Value>(16)};

    static void summarize(TextWriter &out, const Value &level) { out.print("LEVEL:%.2fFL", level.raw * kLevelLsbFl); }

    static uint64_t write(uint8_t *octets, Value &level) {
        level.raw = steps_of(level.altitude_ft, kLevelLsbFt, level.raw);
        return write_rows<I021_145>(octets, level);
    }
};

AST_DEFINE_ENCODED_ITEM(I021_145, ast_dataitem_021_145)

// ---- I021/146 Selected Altitude ----

struct I021_146 : Tabled<21146, ast_dataitem_021_146_t, fixed<2>> {
    static const char *source_text(uint32_t source) {
        return ast_selected_altitude_source_to_str(source, AST_STYLE_LONG);
    }

    static constexpr Row<Value> kRows[] = {
        {&Value::sas, "SOURCE_INFO_PROVIDED"},
        {&Value::source, {2, ast_selected_altitude_source_from_int}, "SOURCE_TYPE", source_text},
        level_row<Value>(13),
    };

    static void summarize(TextWriter &out, const Value &selected) {
        out.print("SELECTED_ALTITUDE:%.2fFL", selected.raw * kLevelLsbFl);
    }
};

AST_DEFINE_ITEM(I021_146, ast_dataitem_021_146)

// ---- I021/150 Air Speed ----

namespace {

constexpr double kSpeedLsbKt = 3600.0 / 16384; // 2^-14 NM/s

} // namespace

struct I021_150 : Tabled<21150, ast_dataitem_021_150_t, fixed<2>> {
    static constexpr double kMachLsb = 0.001;

    static void read(Value &speed, const uint8_t *octets) {
        speed.im = bit(octets[0], 8);
        speed.raw = field(octets, 2, 16);
        (speed.im ? speed.mach : speed.ias_kt) = speed.raw * (speed.im ? kMachLsb : kSpeedLsbKt);
    }

    static void summarize(TextWriter &out, const Value &speed) {
        if (speed.im)
            out.print("MACH:%.3f", speed.mach);
        else
            out.print("IAS:%.2fKT", speed.ias_kt);
    }

    static void show(ViewWriter &view, const Value &speed) {
        DetailTable table(view, "Bit", "Item", "Value");
        if (speed.im) {
            table.row("Bit[1-15]", "MACH LSB=0.001", Cell<20>("%u", speed.raw));
            table.row("Bit[1-15]", "MACH LSB=1", Cell<20>("%.3f", speed.mach));
        } else {
            table.row("Bit[1-15]", "INDICATED_AIR_SPEED LSB=2^-14 NM/S", Cell<20>("%u", speed.raw));
            table.row("Bit[1-15]", "INDICATED_AIR_SPEED LSB=KNOT", Cell<20>("%.2f", speed.ias_kt));
        }
        table.row("Bit[0]", "MATCH", Cell<2>("%d", speed.im)); // viewers know the label with this spelling
    }

    static bool write(uint8_t *octets, Value &speed) {
        const auto raw = static_cast<int32_t>(speed.raw);
        const int32_t steps = speed.im ? steps_of(speed.mach, kMachLsb, raw) : steps_of(speed.ias_kt, kSpeedLsbKt, raw);
        speed.raw = static_cast<uint32_t>(steps);
        write_u16(octets, speed.raw);
        octets[0] = static_cast<uint8_t>(placed(speed.im, 8) | placed(octets[0], 7, 1));
        return fits(steps, 15);
    }
};

AST_DEFINE_ENCODED_ITEM(I021_150, ast_dataitem_021_150)

// ---- I021/151 True Air Speed ----

namespace {

// A speed in knots, as its own text, and in two other units.
void write_speed_rows(DetailTable &table, const char *bit_label, const char *name, std::string_view knots,
                      double speed_kt) {
    constexpr double kMPerSPerKt = kMetresPerNm / 3600;
    constexpr double kKmPerHPerKt = kMetresPerNm / 1000;
    table.row(bit_label, Cell<32>("%s LSB=KNOTS", name), knots);
    table.row(bit_label, Cell<32>("%s LSB=M/S", name), Cell<20>("%.2f", speed_kt * kMPerSPerKt));
    table.row(bit_label, Cell<32>("%s LSB=KM/H", name), Cell<20>("%.2f", speed_kt * kKmPerHPerKt));
}

} // namespace

struct I021_151 : Tabled<21151, ast_dataitem_021_151_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {{&Value::re}, {&Value::speed_kt, 15}};

    static void summarize(TextWriter &out, const Value &speed) { out.print("TAS:%uKT", speed.speed_kt); }

    static void show(ViewWriter &view, const Value &speed) {
        DetailTable table(view, "Bit", "Item", "Value");
        write_speed_rows(table, "Bit[1-15]", "TRUE_AIR_SPEED", Cell<20>("%u", speed.speed_kt), speed.speed_kt);
    }
};

AST_DEFINE_ITEM(I021_151, ast_dataitem_021_151)

// ---- I021/152 Magnetic Heading ----

struct I021_152 : Tabled<21152, ast_dataitem_021_152_t, fixed<2>> {
    static constexpr double kLsbDeg = kFullCircleDeg / kAngleUnits;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::raw, 16, "MAGNETIC_HEADING LSB=0.0055DEG",
                 {&Value::heading_deg, kLsbDeg, "MAGNETIC_HEADING LSB=DEG"}),
    };

    static void summarize(TextWriter &out, const Value &heading) { out.print("HDG:%03.2fDEG", heading.heading_deg); }
};

AST_DEFINE_ITEM(I021_152, ast_dataitem_021_152)

// ---- I021/160 Ground Vector ----

struct I021_160 : Tabled<21160, ast_dataitem_021_160_t, fixed<4>> {
    // RE is the sign bit of the speed as well, so an exceeded range reads as a negative speed; users rely on it.
    static void read(Value &vector, const uint8_t *octets) {
        vector.re = bit(octets[0], 8);
        vector.speed_raw = read_signed(octets);
        vector.track_raw = read_u16(octets + 2);
        vector.ground_speed_kt = vector.speed_raw * kSpeedLsbKt;
        vector.track_angle_deg = vector.track_raw * kFullCircleDeg / kAngleUnits;
    }

    static void summarize(TextWriter &out, const Value &vector) {
        out.print("SPD:%.2fKT AGL:%03.2fDEG", vector.ground_speed_kt, vector.track_angle_deg);
    }

    static void show(ViewWriter &view, const Value &vector) {
        DetailTable table(view, "Bit", "Item", "Value");
        write_speed_rows(table, "Bit[0-15]", "GROUND_SPEED", Cell<20>("%.2f", vector.ground_speed_kt),
                         vector.ground_speed_kt);
        table.row("Bit[16-31]", "TRACK_ANGLE LSB=DEG", Cell<20>("%.2f", vector.track_angle_deg));
    }

    // An angle just below a full circle is rounded to north.
    static bool write_track(uint8_t *octets, Value &vector) {
        const double angle_deg = vector.track_angle_deg;
        if (!std::isnan(angle_deg)) {
            if (angle_deg < 0 || angle_deg >= kFullCircleDeg) return false;
            vector.track_raw = low_bits(std::round(angle_deg / kFullCircleDeg * kAngleUnits)) % kAngleUnits;
        }
        write_u16(octets, vector.track_raw);
        return fits(vector.track_raw, 16);
    }

    static bool write(uint8_t *octets, Value &vector) {
        constexpr uint32_t kNoSpeedOutOfRange = 0xFFFF; // reads as 0 with RE set
        vector.speed_raw = steps_of(vector.ground_speed_kt, kSpeedLsbKt, vector.speed_raw);
        const bool has_speed = write_signed(octets, vector.speed_raw) && (vector.speed_raw <= 0 || !vector.re);
        if (vector.speed_raw == 0 && vector.re) write_u16(octets, kNoSpeedOutOfRange);
        return has_speed && write_track(octets + 2, vector);
    }
};

AST_DEFINE_ENCODED_ITEM(I021_160, ast_dataitem_021_160)

// ---- I021/200 Target Status ----

struct I021_200 : Item<21200, ast_dataitem_021_200_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {
        {&Value::icf}, {&Value::lnav}, {&Value::me}, {&Value::ps, {3, ast_emergency_status_from_int}}, {&Value::ss, 2},
    };

    static void summarize(TextWriter &out, const Value &status) {
        static constexpr const char *kSurveillance[] = {" SUR:NO_RPT", " SUR:PERM_ALR", " SUR:TEMP_ALR", " SUR:SPI"};
        out.append("EMG:");
        out.append(ast_emergency_status_to_str(status.ps));
        out.append(kSurveillance[status.ss]);
    }
};

AST_DEFINE_SUMMARIZED_ITEM(I021_200, ast_dataitem_021_200)
AST_DEFINE_ENCODE(I021_200, ast_dataitem_021_200_encode)

// ---- I021/210 MOPS Version ----

struct I021_210 : Tabled<21210, ast_dataitem_021_210_t, fixed<1>> {
    static constexpr uint32_t kUnknownLink = 4; // stands for the unassigned ones behind it, too
    static uint32_t link(uint32_t code) { return std::min(code, kUnknownLink); }

    static constexpr const char *kVersions[] = {
        "0 (DO-260, ED102)", "1 (DO-260A)", "2 (DO-260B, ED102A)", "3 (DO-260C, ED102B)",
        "4 (UNKNOWN)",       "5 (UNKNOWN)", "6 (UNKNOWN)",         "7 (UNKNOWN)",
    };
    static constexpr const char *kLinks[] = {"OTHER", "UAT", "1090ES", "VDL4"};

    static constexpr Columns kColumns = kNamedBitColumns;
    static constexpr Row<Value> kRows[] = {
        spare(1),
        {&Value::vns, "VERSION_NOT_SUPPORTED"},
        {&Value::vn, 3, "VERSION_NUMBER", kVersions},
        {&Value::ltt, {3, link}, "LINK_TYPE", {kLinks, "UNKNOWN"}},
    };

    static void summarize(TextWriter &out, const Value &mops) {
        if (mops.ltt == kUnknownLink)
            out.append("LINK:UNKNOWN");
        else
            out.print("VN:%u", mops.vn);
    }

    static void show(ViewWriter &view, const Value &mops) { show_with_spare_behind<I021_210>(view, mops, "Bit[0]"); }
};

AST_DEFINE_ENCODED_ITEM(I021_210, ast_dataitem_021_210)

// ---- I021/220 Met Information ----

namespace {

constexpr SubfieldRow kMetInformation[] = {
    {"WS", "Wind Speed", fixed<2>},
    {"WD", "Wind Direction", fixed<2>},
    {"TMP", "Temperature", fixed<2>},
    {"TRB", "Turbulence", fixed<1>},
};

} // namespace

AST_DEFINE_COMPOUND(kItem220, 21220, kMetInformation, ast_dataitem_021_220_get_size, ast_subfield_021_220_get_size,
                    ast_subfield_021_220_get_id, ast_subfield_021_220_get_name, nullptr, nullptr)

// ---- I021/230 Roll Angle ----

struct I021_230 : Item<21230, ast_dataitem_021_230_t, fixed<2>> {
    static constexpr double kLsbDeg = 0.01;

    // Sign and magnitude, not the published two's complement; users rely on it.
    static void read(Value &roll, const uint8_t *octets) {
        const auto magnitude = static_cast<int32_t>(field(octets, 2, 16));
        roll.raw = bit(octets[0], 8) ? -magnitude : magnitude;
        roll.roll_deg = roll.raw * kLsbDeg;
    }

    static void summarize(TextWriter &out, const Value &roll) { out.print("RA:%.2fDEG", roll.roll_deg); }
};

AST_DEFINE_SUMMARIZED_ITEM(I021_230, ast_dataitem_021_230)

// ---- I021/295 Data Ages ----

namespace {

using Ages = ast_dataitem_021_295_t;

struct Age {
    using Value = ast_age_t;
    static constexpr double kLsbS = 0.1;
    static constexpr Row<Value> kRows[] = {quantity(&Value::raw, 8, {}, {&Value::age_s, kLsbS})};
    static void summarize(TextWriter &out, const Value &age) { out.print("%.2f LSB=SEC", age.age_s); }
};

constexpr SubfieldRow kDataAges[] = {
    subfield<&Ages::aos, Age>("AOS", "Aircraft Operational Status Age", fixed<1>),
    subfield<&Ages::trd, Age>("TRD", "Target Report Descriptor Age", fixed<1>),
    subfield<&Ages::m3a, Age>("M3A", "Mode 3/A Code Age", fixed<1>),
    subfield<&Ages::qi, Age>("QI", "Quality Indicators Age", fixed<1>),
    subfield<&Ages::ti, Age>("TI", "Trajectory Intent Age", fixed<1>),
    subfield<&Ages::mam, Age>("MAM", "Message Amplitude Age", fixed<1>),
    subfield<&Ages::gh, Age>("GH", "Geometric Height Age", fixed<1>),
    subfield<&Ages::fl, Age>("FL", "Flight Level Age", fixed<1>),
    subfield<&Ages::sal, Age>("SAL", "Selected Altitude Age", fixed<1>),
    subfield<&Ages::fsa, Age>("FSA", "Final State Selected Altitude Age", fixed<1>),
    subfield<&Ages::as, Age>("AS", "Air Speed Age", fixed<1>),
    subfield<&Ages::tas, Age>("TAS", "True Air Speed Age", fixed<1>),
    subfield<&Ages::mh, Age>("MH", "Magnetic Heading Age", fixed<1>),
    subfield<&Ages::bvr, Age>("BVR", "Barometric Vertical Rate Age", fixed<1>),
    subfield<&Ages::gvr, Age>("GVR", "Geometric Vertical Rate Age", fixed<1>),
    subfield<&Ages::gv, Age>("GV", "Ground Vector Age", fixed<1>),
    subfield<&Ages::tar, Age>("TAR", "Track Angle Rate Age", fixed<1>),
    subfield<&Ages::tid, Age>("TI", "Target Identification Age", fixed<1>), // the same id as trajectory intent
    subfield<&Ages::ts, Age>("TS", "Target Status Age", fixed<1>),
    subfield<&Ages::met, Age>("MET", "Met Information Age", fixed<1>),
    subfield<&Ages::roa, Age>("ROA", "Roll Angle Age", fixed<1>),
    subfield<&Ages::ara, Age>("ARA", "ACAS Resolution Advisory Age", fixed<1>),
    subfield<&Ages::scc, Age>("SCC", "Surface Capabilities and Characteristics Age", fixed<1>),
};

} // namespace

AST_DEFINE_COMPOUND(kItem295, 21295, kDataAges, ast_dataitem_021_295_get_size, ast_subfield_021_295_get_size,
                    ast_subfield_021_295_get_id, ast_subfield_021_295_get_name, ast_subfield_021_295_get_summary,
                    nullptr, .summarizes_unknown_subfields = true)
AST_DEFINE_COMPOUND_DECODE(kItem295, kDataAges, Ages, ast_dataitem_021_295_decode)
AST_DEFINE_SUBFIELD_SUMMARY(kItem295, ast_subfield_021_295_get_summary)

// ---- I021/400 Receiver ID ----

struct I021_400 : Item<21400, ast_dataitem_021_400_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {{&Value::value, 8}};

    static void summarize(TextWriter &out, const Value &receiver) { out.print("RID:%u", receiver.value); }
};

AST_DEFINE_SUMMARIZED_ITEM(I021_400, ast_dataitem_021_400)

// ---- I021/040 Target Report Descriptor, editions 0.23 to 0.26 ----

struct I021_A03 : Tabled<21903, ast_dataitem_021_A03_t, fixed<2>> {
    // The values are those of later editions, where the first two are the other way round.
    static uint32_t swapped(uint32_t type) { return type < 2 ? 1 - type : type; }
    static uint32_t address_type_of(uint32_t code) { return address_type(swapped(code)); }

    static constexpr const char *kAddresses[] = {"24-BIT_ICAO_ADDRESS", "NON_UNIQUE_ADDRESS", "SURFACE_VEHICLE_ADDRESS",
                                                 "ANONYMOUS_ADDRESS"};

    static constexpr Columns kColumns = kNamedBitColumns;
    static constexpr Row<Value> kRows[] = {
        {&Value::dcr, "DIFFERENTIAL_CORRECTION"},
        {&Value::gbs, "GROUND_BIT_SET"},
        {&Value::sim, "SIMULATED_TARGET_REPORT"},
        {&Value::tst, "TEST_TARGET"},
        {&Value::rab, "FIXED_TRANSPONDER_REPORT"},
        {&Value::saa, "SELECTED_ALTITUDE_CAPABILITY"},
        {&Value::spi, "SPECIAL_POSITION_IDENTIFICATION"},
        spare(1, ""),
        {&Value::atp, {3, address_type_of, swapped}, "ADDRESS_TYPE", {kAddresses, "RESERVED"}},
        {&Value::arc, {2, capability_from, capability_code}, "ALTITUDE_REPORT_CAPABILITY", capability_text},
        spare(3, ""),
    };

    static void summarize(TextWriter &out, const Value &report) {
        out.append("TARGET:");
        write_words(out, {{report.gbs, "GBS"}, {report.sim, "SIM"}, {report.tst, "TST"}, {report.spi, "SPI"}},
                    "NORMAL");
    }
};

AST_DEFINE_ENCODED_ITEM(I021_A03, ast_dataitem_021_A03)

// ---- I021/090 Figure of Merit, editions 0.23 to 0.26 ----

struct I021_A05 : Tabled<21905, ast_dataitem_021_A05_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        {&Value::ac, {2, ast_acas_status_from_int}, "ACAS_STATUS", ast_acas_status_to_str},
        {&Value::mn, {2, ast_multi_navids_status_from_int}, "MULTIPLE_NAVIDS_STATUS", ast_multi_navids_status_to_str},
        code(&Value::dc, {2, ast_diff_correction_status_from_int}, "DIFFERENTIAL_CORRECTION_STATUS",
             ast_diff_correction_status_to_str),
        spare(6),
        {&Value::pa, 4, "POSITION_ACCURACY"},
    };

    static void summarize(TextWriter &out, const Value &merit) { out.print("PA:%u", merit.pa); }

    static void show(ViewWriter &view, const Value &merit) {
        show_with_spare_behind<I021_A05>(view, merit, "Bit[6-11]");
    }
};

AST_DEFINE_ENCODED_ITEM(I021_A05, ast_dataitem_021_A05)

// ---- I021/210 Link Technology Indicator, editions 0.23 to 0.26 ----

struct I021_A06 : Tabled<21906, ast_dataitem_021_A06_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {
        spare(3),
        {&Value::cdti, "COCKPIT_DISPLAY_OF_TRAFFIC_INFO"},
        {&Value::mds, "MODE_S"},
        {&Value::uat, "UAT"},
        {&Value::vdl, "VDL_MODE_4"},
        {&Value::otr, "OTHER"},
    };

    static void summarize(TextWriter &out, const Value &link) {
        out.append("LINK:");
        write_words(
            out,
            {{link.cdti, "CDTI"}, {link.mds, "MODE_S"}, {link.uat, "UAT"}, {link.vdl, "VDL4"}, {link.otr, "OTHER"}},
            "NONE");
    }

    static void show(ViewWriter &view, const Value &link) { show_with_spare_behind<I021_A06>(view, link, "Bit[0-2]"); }
};

AST_DEFINE_ENCODED_ITEM(I021_A06, ast_dataitem_021_A06)

// ---- I021/271 Surface Capabilities and Characteristics, editions 1.0 to 2.1 ----

uint64_t ast_dataitem_021_A07_get_size(const uint8_t *data, uint64_t available) {
    constexpr uint64_t kLongOctets = 2;
    if (!data || available == 0) return 0;
    if (!has_fx(data[0])) return 1;
    return available >= kLongOctets ? kLongOctets : 0;
}

// ---- I021/200 Target Status, editions 0.23 to 0.26 ----

struct I021_A08 : Item<21908, ast_dataitem_021_A08_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {{&Value::status, {8, ast_emergency_status_from_int}}};

    static void summarize(TextWriter &out, const Value &target) {
        out.append("EMG:");
        out.append(ast_emergency_status_to_str(target.status));
    }
};

AST_DEFINE_SUMMARIZED_ITEM(I021_A08, ast_dataitem_021_A08)
AST_DEFINE_ENCODE(I021_A08, ast_dataitem_021_A08_encode)

// ---- The category ----

namespace {

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_021_get_sacsic,
    .get_timeofday = ast_datarecord_021_get_timeofday,
    .get_msgtype = ast_datarecord_021_get_msgtype,
    .get_tracknum = ast_datarecord_021_get_tracknum,
    .get_squawk = ast_datarecord_021_get_squawk,
    .get_callsign = ast_datarecord_021_get_callsign,
    .get_icaoaddr = ast_datarecord_021_get_icaoaddr,
    .get_coordinate = ast_datarecord_021_get_coordinate,
    .get_flightlevel = ast_datarecord_021_get_flightlevel,
    .get_selaltitude = ast_datarecord_021_get_selaltitude,
    .get_heading = ast_datarecord_021_get_heading,
    .get_speed = ast_datarecord_021_get_speed,
    .get_vrate = ast_datarecord_021_get_vrate,
};

// Three items are handled but have no title; they read, and are reported, as unknown ones.
constexpr ItemRow kItems[] = {
    own<I021_008>("Aircraft Operational Status"),
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    own<I021_016>("Service Management"),
    own<I021_020>("Emitter Category"),
    {30, "Time of Day", items::time_of_day},
    own<I021_032>("Time of Day Accuracy"),
    own<I021_040>("Target Report Descriptor"),
    {70, "Mode-3/A Code in Octal Representation", items::mode_3a_code},
    {71, "Time of Applicability for Position", items::time_of_day},
    {72, "Time of Applicability for Velocity", items::time_of_day},
    {73, "Time of Message Reception for Position", items::time_of_day},
    {74, "Time of Message Reception of Position - High Precision", items::time_of_day_high},
    {75, "Time of Message Reception for Velocity", items::time_of_day},
    {76, "Time of Message Reception of Velocity - High Precision", items::time_of_day_high},
    {77, "Time of ASTERIX Report Transmission", items::time_of_day},
    {80, "Target Address", items::target_address},
    own<I021_090>("Quality Indicators"),
    own<I021_095>("Velocity Accuracy"),
    items::compound(nullptr, kItem110),
    {130, "Position in WGS84 Coordinates", items::position_wgs84_low},
    {131, "High-Resolution Position in WGS-84 Coordinates", items::position_wgs84},
    {132, "Message Amplitude", items::signal_amplitude},
    own<I021_140>("Geometric Altitude"),
    own<I021_145>("Flight Level"),
    own<I021_146>("Selected Altitude"),
    {148, nullptr, {fixed<2>}},
    own<I021_150>("Air Speed"),
    own<I021_151>("True Air Speed"),
    own<I021_152>("Magnetic Heading"),
    {155, "Barometric Vertical Rate", items::vertical_rate},
    {157, "Geometric Vertical Rate", items::vertical_rate},
    own<I021_160>("Ground Vector"),
    {161, "Track Number", items::track_number},
    {165, "Track Angle Rate", {disputed(extended<2>)}},
    {170, "Target Identification", items::aircraft_id},
    own<I021_200>("Target Status"),
    own<I021_210>("MOPS Version"),
    items::compound(nullptr, kItem220),
    own<I021_230>("Roll Angle"),
    {250, "Mode S MB Data", items::modes_mb},
    {271, "Surface Capabilities and Characteristics", {extended<2>}},
    items::compound("Data Ages", kItem295),
    own<I021_400>("Receiver ID"),
    {.number = 902,
     .name = "Position in WGS84 Coordinates (Version 0.24 ~ 0.26)",
     .handlers = items::position_wgs84,
     .variant_of = 130},
    own<I021_A03>("Target Report Descriptor (Prior Version 0.26)", 40),
    {.number = 904, .name = "Signal Amplitude (Version 0.26)", .handlers = items::signal_amplitude, .variant_of = 131},
    own<I021_A05>("Figure of Merit (Prior Version 0.26)", 90),
    own<I021_A06>("Link Technology Indicator (Prior Version 0.26)", 210),
    {.number = 907,
     .name = "Surface Capabilities and Characteristics (Version 1.0 ~ 2.1)",
     .handlers = {sized_by(ast_dataitem_021_A07_get_size)},
     .variant_of = 271},
    own<I021_A08>("Target Status (Prior Version 0.26)", 200),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Special Purpose Field", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory021, 21, "Unknown CAT021 Dataitem", kItems, ast_dataitem_021_get_name,
                    .reports_unknown_names = true, .accessors = kAccessors)
