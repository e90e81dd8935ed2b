// Category 015: target reports of independent non-cooperative surveillance sensors.

#include "cat/flat.hpp"
#include "core/bits.hpp"
#include "items/accessors.hpp"
#include "items/compound.hpp"
#include "items/items.hpp"
#include "items/repetitive.hpp"
#include "items/scaled.hpp"
#include "items/units.hpp"

using namespace ast;

// ---- I015/000 Message Type ----

struct I015_000 : Item<15000, ast_dataitem_015_000_t, fixed<1>> {
    static constexpr Row<Value> kRows[] = {{&Value::mt, 7}, {&Value::rg}};

    static void summarize(TextWriter &out, const Value &type) {
        static constexpr const char *kTypes[] = {"UNDEFINED",           "MEASUREMENT_PLOT",     "MEASUREMENT_TRACK",
                                                 "SENSOR_CENTRIC_PLOT", "SENSOR_CENTRIC_TRACK", "TRACK_END"};
        out.append("MSG_TYPE:");
        out.append(text_of(kTypes, type.mt, "UNDEFINED"));
    }
};

AST_DEFINE_SUMMARIZED_ITEM(I015_000, ast_dataitem_015_000)

// ---- I015/020 Target Report Descriptor ----

struct I015_020 : Item<15020, ast_dataitem_015_020_t, extended<1>> {
    static constexpr uint32_t kSimulated = 3;
    static constexpr Value kDefault = {.ttax = kSimulated};
    static constexpr const char *kSensors[] = {"MONO", "MULTI", "OTHER", "UNKNOWN"};
    static constexpr const char *kTargets[] = {"ACTUAL", "REFERENCE", "SYNTHETIC", "SIMULATED"};
    static constexpr const char *kDirections[] = {"UNKNOWN", "FORWARD", "BACKWARD", "STATIC"};

    static constexpr Row<Value> kRows[] = {
        {&Value::momu, 2, "SENSOR_TYPE", kSensors},
        {&Value::ttax, 2, "TARGET_TAXONOMY", kTargets},
        {&Value::scd, 2, "SCANNING_DIRECTION", kDirections},
        spare(1, "0"),
        fx,
    };

    static void summarize(TextWriter &out, const Value &report) {
        static constexpr const char *kSensorWords[] = {"SENSOR:MONO", "SENSOR:MULTI", "SENSOR:OTHER", "SENSOR:UNKNOWN"};
        static constexpr const char *kDirectionWords[] = {"", " SCAN_FORWARD", " SCAN_BACKWARD", " SCAN_STATIC"};
        out.append(kSensorWords[report.momu]);
        out.append(kDirectionWords[report.scd]);
    }
};

AST_DEFINE_ITEM(I015_020, ast_dataitem_015_020)

// ---- I015/170 Track/Plot Status ----

struct I015_170 : Item<15170, ast_dataitem_015_170_t, fixed<1>> {
    static constexpr Columns kColumns = kBitColumnsWithIds;
    static constexpr Row<Value> kRows[] = {
        {&Value::biz, {"BIZ", "BLIND_ZONE"}},         {&Value::baz, {"BAZ", "BLANKED_ZONE"}},
        {&Value::tur, {"TUR", "TRACK_TERMINATED"}},   spare(1),
        {&Value::cstp, {"CSTP", "POSITION_COASTED"}}, {&Value::csth, {"CSTH", "HEIGHT_COASTED"}},
        {&Value::cnf, {"CNF", "TENTATIVE"}},          fx,
    };

    // Of several texts the last one alone stands, with its leading blank; viewers know it so, as its spelling.
    static void summarize(TextWriter &out, const Value &status) {
        const char *text = status.tur ? "TERM" : "ALIVE";
        if (status.biz) text = " BLIND";
        if (status.baz) text = " BLANK";
        if (status.cstp) text = " P_COAST";
        if (status.csth) text = " H_COAST";
        if (status.cnf) text = " TENTITIVE";
        out.append(text);
    }
};

AST_DEFINE_ITEM(I015_170, ast_dataitem_015_170)

// ---- I015/300 Object Classification ----

struct I015_300 : Item<15300, ast_dataitem_015_300_t, repetitive<2>> {
    static bool read(Value &list, const ast_dataitem_t &item) {
        return read_elements<I015_300>(list.classes, list.count, item, [](auto &one, const uint8_t *octets) {
            one = {.cls = octets[0], .prb_percent = octets[1]};
        });
    }

    static void summarize(TextWriter &out, const Value &list) {
        out.print("NUM_CLS:%u", list.count);
        for (uint32_t i = 0; i < list.count; ++i)
            out.print(" CLS:%u PRB:%u%%", list.classes[i].cls, list.classes[i].prb_percent);
    }

    static void show(ViewWriter &view, const Value &list) {
        DetailTable table(view, "Number", "Classification", "Probability");
        for (uint32_t i = 0; i < list.count; ++i)
            table.row(Cell<4>("%u", i + 1), Cell<4>("%u", list.classes[i].cls),
                      Cell<5>("%u%%", list.classes[i].prb_percent));
    }
};

AST_DEFINE_ITEM(I015_300, ast_dataitem_015_300)

// ---- I015/400 Measurement Identifier ----

namespace {

template <typename Measurement>
void read_measurement(Measurement &measurement, const uint8_t *octets) {
    measurement.pid = read_u16(octets);
    measurement.on = read_u24(octets + 2);
}

} // namespace

struct I015_400 : Item<15400, ast_dataitem_015_400_t, fixed<5>> {
    static constexpr Columns kColumns = kOctetColumnsFrom0;
    static constexpr Row<Value> kRows[] = {
        {&Value::pid, 16, "PAIR_IDENTIFIER"},
        {&Value::on, 24, "OBSERVATION_NUMBER"},
    };

    static void summarize(TextWriter &out, const Value &measurement) {
        out.print("PID:%u OBS:%u", measurement.pid, measurement.on);
    }
};

AST_DEFINE_ITEM(I015_400, ast_dataitem_015_400)

// ---- I015/480 Associations ----

struct I015_480 : Item<15480, ast_dataitem_015_480_t, repetitive<5>> {
    static bool read(Value &list, const ast_dataitem_t &item) {
        return read_elements<I015_480>(list.measurements, list.count, item,
                                       [](auto &one, const uint8_t *octets) { read_measurement(one, octets); });
    }

    static void summarize(TextWriter &out, const Value &list) { out.print("IDENTIFIERS:%u", list.count); }

    static void show(ViewWriter &view, const Value &list) {
        DetailTable table(view, "Repfield", "Octet", "Pair Identifier", "Observation Number");
        for (uint32_t i = 0; i < list.count; ++i)
            table.row(Cell<4>("%u", i + 1), octets_label<I015_480>(i), Cell<6>("%u", list.measurements[i].pid),
                      Cell<9>("%u", list.measurements[i].on));
    }
};

AST_DEFINE_ITEM(I015_480, ast_dataitem_015_480)

// ---- Kinds of subfields ----

namespace {

constexpr FieldScale kCorrelation = signed_number(8, 1, 1 << 7);

double correlation_at(const uint8_t *octets, unsigned behind) {
    return kCorrelation.value(kCorrelation.read(octets, behind));
}

// One number. Those that are shown name their unit.
template <FieldScale F>
struct Number {
    using Value = ast_dataitem_015_number_t;
    static void read(Value &number, const uint8_t *octets) {
        number.raw = F.read(octets);
        number.value = F.value(number.raw);
    }
};

template <FieldScale F>
struct Metres : Number<F> {
    static void summarize(TextWriter &out, const ast_dataitem_015_number_t &number) { out.print("%f M", number.value); }
};

template <FieldScale F>
struct MetresPerSecond : Number<F> {
    static void summarize(TextWriter &out, const ast_dataitem_015_number_t &number) {
        out.print("%f M/S", number.value);
    }
};

template <FieldScale F>
struct Degrees : Number<F> {
    static void summarize(TextWriter &out, const ast_dataitem_015_number_t &number) {
        out.print("%f DEG", number.value);
    }
};

// Two numbers of one kind, along x and along y.
template <FieldScale F, typename Value>
void read_components(Value &value, const uint8_t *octets) {
    value.x_raw = F.read(octets);
    value.y_raw = F.read(octets, F.width);
    value.x = F.value(value.x_raw);
    value.y = F.value(value.y_raw);
}

template <FieldScale F>
struct Components {
    using Value = ast_dataitem_015_components_t;
    static void read(Value &value, const uint8_t *octets) { read_components<F>(value, octets); }
    static void summarize(TextWriter &out, const Value &value) { out.print("X:%f Y:%f", value.x, value.y); }
};

// The same, and how they correlate: a resolution or a precision in the plane.
template <FieldScale F>
struct Spread {
    using Value = ast_dataitem_015_spread_t;
    static void read(Value &value, const uint8_t *octets) {
        read_components<F>(value, octets);
        value.correlation = correlation_at(octets, 2 * F.width);
    }
    static void summarize(TextWriter &out, const Value &value) {
        out.print("X:%f Y:%f C:%f", value.x, value.y, value.correlation);
    }
};

// The standard deviation of a rate, and how it correlates with what changes at that rate.
template <FieldScale F>
struct RatePrecision {
    using Value = ast_dataitem_015_precision_t;
    static void read(Value &value, const uint8_t *octets) {
        value.raw = F.read(octets);
        value.value = F.value(value.raw);
        value.correlation = correlation_at(octets, F.width);
    }
};

} // namespace

// ---- I015/600 Horizontal Position Information ----

namespace {

using Position = ast_dataitem_015_600_t;

struct Wgs84 {
    using Value = decltype(Position::p84);
    static void read(Value &p84, const uint8_t *octets) {
        constexpr FieldScale kAngle = signed_number(32, 180, UINT32_C(1) << 31);
        p84.latitude_raw = kAngle.read(octets);
        p84.longitude_raw = kAngle.read(octets, 32);
        p84.latitude_deg = kAngle.value(p84.latitude_raw);
        p84.longitude_deg = kAngle.value(p84.longitude_raw);
    }
};

constexpr SubfieldRow kHorizontalPosition[] = {
    subfield<&Position::p84, Wgs84>("P84", "Horizontal Position in WGS-84 Coordinates", fixed<8>),
    subfield<&Position::hpr, Spread<number(16, 1, 2)>>("HPR", "Horizontal Position Resolution", fixed<5>),
    subfield<&Position::hpp, Spread<number(16, 1, 4)>>("HPP", "Horizontal Position Precision", fixed<5>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem600, 15600, kHorizontalPosition, Position, 015_600, .summarizes_unknown_subfields = true)

// ---- I015/601 Geometric Height Information ----

namespace {

using Height = ast_dataitem_015_601_t;

struct Interval {
    using Value = decltype(Height::ci6);
    static constexpr int32_t kLsbM = 16;
    static void read(Value &interval, const uint8_t *octets) {
        interval.upper_m = static_cast<int32_t>(field(octets, 1, 12)) * kLsbM;
        interval.lower_m = static_cast<int32_t>(field(octets, 13, 24)) * kLsbM;
    }
    static void summarize(TextWriter &out, const Value &interval) {
        out.print("U:%d L:%d", interval.upper_m, interval.lower_m);
    }
};

constexpr SubfieldRow kGeometricHeight[] = {
    subfield<&Height::gh, Number<signed_number(24, 1, 100)>>("GH", "Geometric Height (WGS-84)", fixed<3>),
    subfield<&Height::rs_gh, Number<number(24, 1, 100)>>("RS_GH", "Geometric Height Resolution", fixed<3>),
    subfield<&Height::sd_gh, Number<number(24, 1, 100)>>("SD_GH", "Geometric Height Precision", fixed<3>),
    subfield<&Height::ci6, Interval>("CI6", "Confidence Interval for Geometric Height (67%)", fixed<3>),
    subfield<&Height::ci9, Interval>("CI9", "Confidence Interval for Geometric Height (95%)", fixed<3>),
    subfield<&Height::co_ghhp, Components<kCorrelation>>(
        "CO_GHHP", "Correlation of Geometric Height and Horizontal Position", fixed<2>),
    subfield<&Height::co_ghhv, Components<kCorrelation>>(
        "CO_GHHV", "Correlation of Geometric Height and Horizontal Velocity", fixed<2>),
    subfield<&Height::co_ghha, Components<kCorrelation>>(
        "CO_GHHA", "Correlation of Geometric Height and Horizontal Acceleration", fixed<2>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem601, 15601, kGeometricHeight, Height, 015_601, .summarizes_unknown_subfields = true)

// ---- I015/602 Horizontal Velocity Information ----

namespace {

using Velocity = ast_dataitem_015_602_t;

struct VelocityWithPosition {
    using Value = decltype(Velocity::co_hvhp);
    static void read(Value &correlation, const uint8_t *octets) {
        correlation.xx = correlation_at(octets, 0);
        correlation.xy = correlation_at(octets, 8);
        correlation.yx = correlation_at(octets, 16);
        correlation.yy = correlation_at(octets, 24);
    }
    static void summarize(TextWriter &out, const Value &correlation) {
        out.print("XX:%f XY:%f YX:%f YY:%f", correlation.xx, correlation.xy, correlation.yx, correlation.yy);
    }
};

constexpr SubfieldRow kHorizontalVelocity[] = {
    subfield<&Velocity::hv, Components<signed_number(20, 1, 100)>>("HV", "Horizontal Velocity Vector", fixed<5>),
    subfield<&Velocity::rs_hv, Spread<number(16, 1, 100)>>("RS_HV", "Horizontal Velocity Resolution", fixed<5>),
    subfield<&Velocity::sd_hv, Spread<number(16, 1, 100)>>("SD_HV", "Horizontal Velocity Precision", fixed<5>),
    subfield<&Velocity::co_hvhp, VelocityWithPosition>(
        "CO_HVHP", "Correlation of Horizontal Velocity and Horizontal Position", fixed<4>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem602, 15602, kHorizontalVelocity, Velocity, 015_602, .summarizes_unknown_subfields = true)

// ---- I015/604 Vertical Velocity Information ----

namespace {

using ClimbRate = ast_dataitem_015_604_t;

// The one precision of a rate that is shown.
struct ClimbRatePrecision : RatePrecision<number(16, 1, 100)> {
    static void summarize(TextWriter &out, const Value &precision) {
        out.print("P:%f C:%f", precision.value, precision.correlation);
    }
};

constexpr SubfieldRow kVerticalVelocity[] = {
    subfield<&ClimbRate::vv, Number<signed_number(24, 1, 100)>>("VV", "Vertical Velocity", fixed<3>),
    subfield<&ClimbRate::rs_vv, Number<number(16, 1, 100)>>("RS_VV", "Vertical Velocity Resolution", fixed<2>),
    subfield<&ClimbRate::sd_vv, ClimbRatePrecision>("SD_VV", "Vertical Velocity Precision", fixed<3>),
    subfield<&ClimbRate::co_vvhp, Components<kCorrelation>>(
        "CO_VVHP", "Correlation of Vertical Velocity and Horizontal Position", fixed<2>),
    subfield<&ClimbRate::co_vvhv, Components<kCorrelation>>(
        "CO_VVHV", "Correlation of Vertical Velocity and Horizontal Velocity", fixed<2>),
    subfield<&ClimbRate::co_vvha, Components<kCorrelation>>(
        "CO_VVHA", "Correlation of Vertical Velocity and Horizontal Acceleration", fixed<2>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem604, 15604, kVerticalVelocity, ClimbRate, 015_604, .summarizes_unknown_subfields = true)

// ---- I015/625 Range Information ----

namespace {

using Range = ast_dataitem_015_625_t;

struct RangeAccelerationPrecision {
    using Value = decltype(Range::sd_ra);
    static void read(Value &precision, const uint8_t *octets) {
        constexpr FieldScale kDeviation = number(16, 1, 1 << 7);
        precision.raw = kDeviation.read(octets);
        precision.value = kDeviation.value(precision.raw);
        precision.range_correlation = correlation_at(octets, 16);
        precision.rate_correlation = correlation_at(octets, 24);
    }
};

constexpr SubfieldRow kRange[] = {
    subfield<&Range::r, Metres<signed_number(24, 1, 10)>>("R", "Range", fixed<3>),
    subfield<&Range::rs_r, Metres<number(24, 1, 10)>>("RS_R", "Range Resolution", fixed<3>),
    subfield<&Range::sd_r, Metres<number(24, 1, 10)>>("SD_R", "Range Precision", fixed<3>),
    subfield<&Range::rr, Number<signed_number(24, 1, 10)>>("RR", "Range Rate", fixed<3>),
    subfield<&Range::rs_rr, Number<number(24, 1, 10)>>("RS_RR", "Range Rate Resolution", fixed<3>),
    subfield<&Range::sd_rr, RatePrecision<number(24, 1, 10)>>("SD_RR", "Range Rate Precision", fixed<4>),
    subfield<&Range::ra, Number<signed_number(16, 1, 1 << 6)>>("RA", "Range Acceleration", fixed<2>),
    subfield<&Range::sd_ra, RangeAccelerationPrecision>("SD_RA", "Range Acceleration Precision", fixed<4>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem625, 15625, kRange, Range, 015_625, .summarizes_unknown_subfields = true)

// ---- I015/626 Doppler Information ----

namespace {

using Doppler = ast_dataitem_015_626_t;

// Ten times the published LSB, and not two's complement; users rely on both.
constexpr FieldScale kDopplerVelocity = {24, Sign::MagnitudeLessMaximum, 1, 10};

constexpr SubfieldRow kDoppler[] = {
    subfield<&Doppler::dv, MetresPerSecond<kDopplerVelocity>>("DV", "Doppler Velocity", fixed<3>),
    subfield<&Doppler::sd_dv, MetresPerSecond<number(16, 1, 1 << 6)>>("SD_DV", "Doppler Velocity Precision", fixed<2>),
    subfield<&Doppler::da, Number<signed_number(16, 1, 1 << 6)>>("DA", "Doppler Acceleration", fixed<2>),
    subfield<&Doppler::sd_da, RatePrecision<number(16, 1, 1 << 6)>>("SD_DA", "Doppler Acceleration Precision",
                                                                    fixed<3>),
    subfield<&Doppler::co_dvr, Number<kCorrelation>>("CO_DVR", "Correlation Doppler Velocity and Range", fixed<1>),
    subfield<&Doppler::co_dvrr, Number<kCorrelation>>("CO_DVRR", "Correlation Doppler Velocity and Range Rate",
                                                      fixed<1>),
    subfield<&Doppler::co_dvra, Number<kCorrelation>>("CO_DVRA", "Correlation Doppler Velocity and Range Acceleration",
                                                      fixed<1>),
    subfield<&Doppler::co_dar, Number<kCorrelation>>("CO_DAR", "Correlation Doppler Acceleration and Range", fixed<1>),
    subfield<&Doppler::co_darr, Number<kCorrelation>>("CO_DARR", "Correlation Doppler Acceleration and Range Rate",
                                                      fixed<1>),
    subfield<&Doppler::co_dara, Number<kCorrelation>>(
        "CO_DARA", "Correlation Doppler Acceleration and Range Acceleration", fixed<1>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem626, 15626, kDoppler, Doppler, 015_626, .summarizes_unknown_subfields = true)

// ---- I015/627 Azimuth Information ----

namespace {

using Azimuth = ast_dataitem_015_627_t;

struct Extent {
    using Value = decltype(Azimuth::azex);
    static void read(Value &extent, const uint8_t *octets) {
        constexpr FieldScale kAngle = number(16, 360, 1 << 16);
        extent.start_raw = kAngle.read(octets);
        extent.end_raw = kAngle.read(octets, 16);
        extent.start_deg = kAngle.value(extent.start_raw);
        extent.end_deg = kAngle.value(extent.end_raw);
    }
};

constexpr SubfieldRow kAzimuth[] = {
    subfield<&Azimuth::az, Degrees<number(16, 360, 1 << 16)>>("AZ", "Azimuth", fixed<2>),
    subfield<&Azimuth::rs_az, Degrees<number(16, 45, 1 << 16)>>("RS_AZ", "Azimuth Resolution", fixed<2>),
    subfield<&Azimuth::sd_az, Degrees<number(16, 45, 1 << 16)>>("SD_AZ", "Azimuth Precision", fixed<2>),
    subfield<&Azimuth::azr, Number<signed_number(16, 180, 1 << 16)>>("AZR", "Azimuth Rate", fixed<2>),
    subfield<&Azimuth::sd_azr, RatePrecision<number(16, 45, 1 << 16)>>("SD_AZR", "Azimuth Rate Precision", fixed<3>),
    subfield<&Azimuth::azex, Extent>("AZEX", "Azimuth Extent", fixed<4>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem627, 15627, kAzimuth, Azimuth, 015_627, .summarizes_unknown_subfields = true)

// ---- Accessors ----

ast_sac_sic_t ast_datarecord_015_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 15010); }
ast_time_of_day_t ast_datarecord_015_get_timeofday(const ast_datarecord_t *record) {
    return timeofday_of(record, 15145);
}
ast_uint_value_t ast_datarecord_015_get_tracknum(const ast_datarecord_t *record) { return tracknum_of(record, 15161); }

ast_uint_value_t ast_datarecord_015_get_msgtype(const ast_datarecord_t *record) {
    constexpr uint32_t kTypes = AST_MSGTYPE_TRACK_END - AST_MSGTYPE_MEASUREMENT_PLOT + 1;
    const auto type = first<I015_000>(record);
    if (type.mt == 0 || type.mt > kTypes) return {};
    return {.valid = true, .value = AST_MSGTYPE_MEASUREMENT_PLOT + type.mt - 1};
}

ast_coordinate_t ast_datarecord_015_get_coordinate(const ast_datarecord_t *record) {
    const auto position = ast_dataitem_015_600_decode(first_item(record, 15600)).p84;
    return {.valid = position.present, .latitude_deg = position.latitude_deg, .longitude_deg = position.longitude_deg};
}

ast_cartesian_velocity_t ast_datarecord_015_get_cartesianvel(const ast_datarecord_t *record) {
    const auto velocity = ast_dataitem_015_602_decode(first_item(record, 15602)).hv;
    return {.valid = velocity.present, .vx_m_s = velocity.x, .vy_m_s = velocity.y};
}

namespace {

constexpr double kFeetPerMetre = 3.2808399;
constexpr double kSecondsPerMinute = 60;

ast_quantity_t quantity_of(const ast_dataitem_015_number_t &number, double scale = 1) {
    return {.valid = number.present, .value = number.value * scale};
}

} // namespace

ast_quantity_t ast_datarecord_015_get_flightlevel(const ast_datarecord_t *record) {
    return quantity_of(ast_dataitem_015_601_decode(first_item(record, 15601)).gh, kFeetPerMetre);
}
ast_quantity_t ast_datarecord_015_get_vrate(const ast_datarecord_t *record) {
    return quantity_of(ast_dataitem_015_604_decode(first_item(record, 15604)).vv, kFeetPerMetre * kSecondsPerMinute);
}
ast_quantity_t ast_datarecord_015_get_range(const ast_datarecord_t *record) {
    return quantity_of(ast_dataitem_015_625_decode(first_item(record, 15625)).r);
}
ast_quantity_t ast_datarecord_015_get_dopplervel(const ast_datarecord_t *record) {
    return quantity_of(ast_dataitem_015_626_decode(first_item(record, 15626)).dv);
}
ast_quantity_t ast_datarecord_015_get_azimuth(const ast_datarecord_t *record) {
    return quantity_of(ast_dataitem_015_627_decode(first_item(record, 15627)).az);
}

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_015_t;

constexpr FlatMember<Flat> kMembers[] = {
    taken_apart<&Flat::message_type, I015_000>(),
    taken_apart<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(15010),
    taken_apart<&Flat::target_report, I015_020>(),
    taken_apart<&Flat::time_of_applicability, ast_dataitem_time_of_day_decode>(15145),
    taken_apart<&Flat::track_number, ast_dataitem_track_number_decode>(15161),
    taken_apart<&Flat::track_status, I015_170>(),
    taken_apart<&Flat::classification, I015_300>(),
    taken_apart<&Flat::measurement, I015_400>(),
    taken_apart<&Flat::associations, I015_480>(),
    taken_apart<&Flat::horizontal_position, ast_dataitem_015_600_decode>(15600),
    taken_apart<&Flat::geometric_height, ast_dataitem_015_601_decode>(15601),
    taken_apart<&Flat::horizontal_velocity, ast_dataitem_015_602_decode>(15602),
    taken_apart<&Flat::vertical_velocity, ast_dataitem_015_604_decode>(15604),
    taken_apart<&Flat::range, ast_dataitem_015_625_decode>(15625),
    taken_apart<&Flat::doppler, ast_dataitem_015_626_decode>(15626),
    taken_apart<&Flat::azimuth, ast_dataitem_015_627_decode>(15627),
};

} // namespace

ast_datarecord_015_t *ast_datarecord_015_disassemble(ast_datarecord_015_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 15, kMembers, report_quietly);
}

// ---- The category ----

namespace {

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_015_get_sacsic,
    .get_timeofday = ast_datarecord_015_get_timeofday,
    .get_msgtype = ast_datarecord_015_get_msgtype,
    .get_tracknum = ast_datarecord_015_get_tracknum,
    .get_coordinate = ast_datarecord_015_get_coordinate,
    .get_flightlevel = ast_datarecord_015_get_flightlevel,
    .get_cartesianvel = ast_datarecord_015_get_cartesianvel,
    .get_vrate = ast_datarecord_015_get_vrate,
};

// Rows without a size are known by name only: a record that carries one does not decode.
constexpr ItemRow kItems[] = {
    own<I015_000>("Message Type"),
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification"},
    own<I015_020>("Target Report Descriptor"),
    {30, "Warning/Error Conditions"},
    {50, "Update Period"},
    {145, "Time of Applicability", items::time_of_day},
    {161, "Track/Plot Number", items::track_number},
    own<I015_170>("Track/Plot Status"),
    {270, "Target Size & Orientation"},
    own<I015_300>("Object Classification"),
    own<I015_400>("Measurement Identifier"),
    own<I015_480>("Associations"),
    items::compound("Horizontal Position Information", kItem600),
    items::compound("Geometric Height Information", kItem601),
    items::compound("Horizontal Velocity Information", kItem602),
    {603, "Horizontal Acceleration Information"},
    items::compound("Vertical Velocity Information", kItem604),
    {605, "Vertical Acceleration Information"},
    items::compound("Range Information", kItem625),
    items::compound("Doppler Information", kItem626),
    items::compound("Azimuth Information", kItem627),
    {628, "Elevation Information"},
    {630, "Path Quality"},
    {631, "Contour (Azimuth, Elevation Angle, Range Extent)"},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory015, 15, "Unknown CAT015 Dataitem", kItems, ast_dataitem_015_get_name,
                    .accessors = kAccessors)
