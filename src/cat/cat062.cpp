// Category 062: system tracks of a surveillance data processing system.
//
// The compound items I062/340, I062/380 and I062/390 have sources of their own: cat062_measured.cpp,
// cat062_aircraft_derived.cpp and cat062_flight_plan.cpp.

#include "cat/cat062.hpp"
#include "cat/flat.hpp"
#include "items/accessors.hpp"
#include "items/code.hpp"
#include "items/target_size.hpp"
#include "items/vehicle_fleet.hpp"

using namespace ast;
using namespace ast::cat062;

// ---- I062/080 Track Status ----

struct I062_080 : Item<62080, ast_dataitem_062_080_t, extended<6>> {
    static constexpr uint32_t kCooperativeOnly = 1;
    static constexpr const char *kReplies[] = {"NO_INTERROGATION", "FRIENDLY_TARGET", "UNKNOWN_TARGET", "NO_REPLY"};
    static constexpr const char *kSurveillance[] = {"COMBINED", "COOPERATIVE_ONLY", "NONCOOPERATIVE_ONLY", "UNDEFINED"};

    static constexpr Row<Value> kRows[] = {
        {&Value::mon, "TRACK_TYPE", {"MULTI_SENSOR_TRACK", "MONO_SENSOR_TRACK"}},
        {&Value::spi},
        {&Value::mrh, "MORE_RELIABLE_HEIGHT"},
        code(&Value::src, {3, ast_geometric_altitude_source_from_int}, "ALTITUDE_SOURCE",
             ast_geometric_altitude_source_to_str),
        {&Value::cnf, "TENTATIVE"},
        hidden_fx,
        {&Value::sim, "SIMULATED"},
        {&Value::tse, "TRACK_END"},
        {&Value::tsb, "TRACK_BEGIN"},
        {&Value::fpc, "FP_CORRELATED"},
        {&Value::aff, "ADSB_INCONSISTENT"},
        {&Value::stp, "SLAVE_TRACK_PROMOTION"},
        {&Value::kos, "BACKGROUND_SERVICE"},
        hidden_fx,
        {&Value::ama, "AMALGAMATION"},
        {&Value::md4, {2, ast_iff_status_from_int}, "MODE-4", kReplies},
        {&Value::me, "MIL_EMERGENCY"},
        {&Value::mi, "MIL_IDENTIFICATION"},
        {&Value::md5, {2, ast_iff_status_from_int}, "MODE-5", kReplies},
        hidden_fx,
        {&Value::cst, "COASTING"},
        {&Value::psr, "PSR_COASTING"},
        {&Value::ssr, "SSR_COASTING"},
        {&Value::mds, "MODES_COASTING"},
        {&Value::ads, "ADSB_COASTING"},
        {&Value::suc, "SPECIAL_MODEA_CODE"},
        {&Value::aac, "CONFLICT_MODEA_CODE"},
        hidden_fx,
        {&Value::sds, 2, "SUR_STATUS", kSurveillance},
        {&Value::ems, {3, ast_emergency_status_from_int}, "EMG_STATUS", ast_emergency_status_to_str},
        {&Value::pft, "POTENTIAL_FALSE_TRACK"},
        {&Value::fplt, "FPL_TRACK"},
        hidden_fx,
        {&Value::dupt, "DUP_MODEA"},
        {&Value::dupf, "DUP_FP"},
        {&Value::dupm, "DUP_FP_DUE_TO_MANUAL_CORRELATION"},
        {&Value::sfc, "SURFACE_TARGET"},
        {&Value::idd, "DUP_FLIGHT_ID"},
        {&Value::iec, "INCONSISTENT_EMG_CODE"},
        {&Value::mlat, "MLAT_COASTING"},
        hidden_fx,
    };

    static void read(Value &status, const ast_dataitem_t &item) {
        read_rows<I062_080>(status, item);
        status.cooperative = status.sds == kCooperativeOnly;
    }

    static void summarize(TextWriter &out, const Value &status) {
        out.append(status.mon ? "TRACK_STS:MONO" : "TRACK_STS:MULTI");
    }
};

AST_DEFINE_ITEM(I062_080, ast_dataitem_062_080)

// ---- I062/110 Mode 5 Data reports & Extended Mode 1 Code ----

namespace {

using Mode5 = ast_dataitem_062_110_t;

// The names of the flags that are set.
template <typename Kind>
void summarize_flags(TextWriter &out, const typename Kind::Value &value) {
    all_rows<Kind>([&](auto row) {
        constexpr std::string_view name = row.kRow.label.name;
        if constexpr (!name.empty())
            if (row.number(value) != 0) {
                out.append(shown_if(out.length() != 0, " "));
                out.append(name);
            }
        return true;
    });
}

struct Mode5Summary {
    using Value = decltype(Mode5::sum);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {{&Value::m5, "M5"}, {&Value::id, "ID"}, {&Value::da, "DA"},
                                           {&Value::m1, "M1"}, {&Value::m2, "M2"}, {&Value::m3, "M3"},
                                           {&Value::mc, "MC"}, {&Value::x, "X"}};
    static void summarize(TextWriter &out, const Value &sum) { summarize_flags<Mode5Summary>(out, sum); }
};

struct MissionCode {
    using Value = decltype(Mode5::pmn);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        spare(2), {&Value::pin, 14, "PIN"}, spare(3), {&Value::nat, 5, "NAT"}, spare(2), {&Value::mis, 6, "MIS"},
    };

    static void summarize(TextWriter &out, const Value &codes) {
        out.print("PIN:%u NAT:%u MIS:%u", codes.pin, codes.nat, codes.mis);
    }
};

struct GnssAltitude {
    using Value = decltype(Mode5::ga);
    static constexpr int32_t kLsbFt = 25; // whatever the steps in which it is reported
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        spare(1),
        {&Value::res, "RES", {"100FT", "25FT"}},
        quantity(&Value::altitude_raw, {14, Sign::TwosComplement}, "GA LSB=25 FT",
                 {&Value::altitude_ft, kLsbFt, "GA LSB=FT"}),
    };

    static void summarize(TextWriter &out, const Value &altitude) { out.print("%d FT", altitude.altitude_ft); }
};

struct ExtendedMode1 {
    using Value = decltype(Mode5::em1);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {spare(4, "0"), code_row(&Value::code)};

    static void summarize(TextWriter &out, const Value &code) { out.print("%o", code.code); }
};

struct TimeOffset {
    using Value = decltype(Mode5::tos);
    static constexpr double kLsbS = 1.0 / 128;
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::offset_raw, {8, Sign::TwosComplement}, "TIME_OFFSET LSB=1/128 SEC",
                 {&Value::offset_s, kLsbS, "TIME_OFFSET LSB=SEC"}),
    };

    static void summarize(TextWriter &out, const Value &offset) { out.print("%f SEC", offset.offset_s); }
};

struct XPulses {
    using Value = decltype(Mode5::xp);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        spare(3), {&Value::x5, "X5"}, {&Value::xc, "XC"}, {&Value::x3, "X3"}, {&Value::x2, "X2"}, {&Value::x1, "X1"},
    };
    static void summarize(TextWriter &out, const Value &pulses) { summarize_flags<XPulses>(out, pulses); }
};

constexpr SubfieldRow kMode5[] = {
    subfield<&Mode5::sum, Mode5Summary>("SUM", "Mode 5 Summary", fixed<1>),
    subfield<&Mode5::pmn, MissionCode>("PMN", "Mode 5 PIN/ National", fixed<4>),
    subfield<&Mode5::pos, Position>("POS", "Mode 5 Reported Position", fixed<6>),
    subfield<&Mode5::ga, GnssAltitude>("GA", "Mode 5 GNSS-derived Altitude", fixed<2>),
    subfield<&Mode5::em1, ExtendedMode1>("EM1", "Extended Mode 1 Code in Octal Representation", fixed<2>),
    subfield<&Mode5::tos, TimeOffset>("TOS", "Time Offset for POS and GA", fixed<1>),
    subfield<&Mode5::xp, XPulses>("XP", "X Pulse Presence", fixed<1>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem110, 62110, kMode5, Mode5, 062_110, .summarizes_unknown_subfields = true)

// ---- I062/130 Calculated Track Geometric Altitude ----

struct I062_130 : Item<62130, ast_dataitem_062_130_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::altitude_raw, kMagnitude16, {}, {&Value::altitude_ft, kVerticalLsbFt, "LEVEL LSB:FT"},
                 {kVerticalLsbM, "LEVEL LSB:M"}),
    };

    static void summarize(TextWriter &out, const Value &altitude) {
        out.print("LEVEL:%.2f LSB:FT", altitude.altitude_ft);
    }
};

AST_DEFINE_ITEM(I062_130, ast_dataitem_062_130)

// ---- I062/135 Calculated Track Barometric Altitude ----

struct I062_135 : Item<62135, ast_dataitem_062_135_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        {&Value::qnh, "QNH_CORRECTION"},
        quantity(&Value::altitude_raw, {15, Sign::MagnitudeLessMaximum}, {},
                 {&Value::altitude_ft, kLevelLsbFt, "ALTITUDE LSB:FT"}, {kLevelLsbM, "ALTITUDE LSB:M"}),
    };

    static void summarize(TextWriter &out, const Value &altitude) {
        out.print("ALTITUDE:%d LSB:FT%s", altitude.altitude_ft, shown_if(altitude.qnh, " QNH"));
    }
};

AST_DEFINE_ITEM(I062_135, ast_dataitem_062_135)

// ---- I062/136 Measured Flight Level ----

struct I062_136 : Item<62136, ast_dataitem_062_136_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::level_raw, kMagnitude16, {}, {&Value::level_ft, kLevelLsbFt, "LEVEL LSB:FT"},
                 {kLevelLsbM, "LEVEL LSB:M"}),
    };

    static void summarize(TextWriter &out, const Value &level) { out.print("LEVEL:%d LSB:FT", level.level_ft); }
};

AST_DEFINE_ITEM(I062_136, ast_dataitem_062_136)

// ---- I062/200 Mode of Movement ----

struct I062_200 : Item<62200, ast_dataitem_062_200_t, fixed<1>> {
    static constexpr const char *kCourses[] = {"CONSTANT_COURSE", "RIGHT_TURN", "LEFT_TURN", "UNDETERMINED"};
    static constexpr const char *kSpeeds[] = {"CONSTANT_GROUNDSPEED", "INCREASING_GROUNDSPEED",
                                              "DECREASING_GROUNDSPEED", "UNDETERMINED"};
    static constexpr const char *kRates[] = {"LEVEL", "CLIMB", "DESCENT", "UNDETERMINED"};
    static constexpr char kDiscrepancy[] = "ALTITUDE_DISCREPANCY";
    static constexpr Row<Value> kRows[] = {
        {&Value::transversal, 2, "TRANSVERSAL_ACCELERATION", kCourses},
        {&Value::longitudinal, 2, "LONGITUDINAL_ACCELERATION", kSpeeds},
        {&Value::vertical, 2, "VERTICAL_RATE", kRates},
        {&Value::adf, kDiscrepancy},
        spare(1),
    };

    static void summarize(TextWriter &out, const Value &movement) {
        out.print("%s %s %s", kCourses[movement.transversal], kSpeeds[movement.longitudinal],
                  kRates[movement.vertical]);
        if (movement.adf) out.print(" %s", kDiscrepancy);
    }
};

AST_DEFINE_ITEM(I062_200, ast_dataitem_062_200)

// ---- I062/210 Calculated Acceleration (Cartesian) ----

struct I062_210 : Item<62210, ast_dataitem_062_210_t, fixed<2>> {
    static void read(Value &acceleration, const uint8_t *octets) {
        constexpr double kLsbMPerS2 = 0.25;
        acceleration.ax_raw = read_component(octets[0]);
        acceleration.ay_raw = read_component(octets[1]);
        acceleration.ax_m_s2 = acceleration.ax_raw * kLsbMPerS2;
        acceleration.ay_m_s2 = acceleration.ay_raw * kLsbMPerS2;
    }

    // A negative octet has the maximum of 16 bits taken off, not that of 8; receivers know its values so.
    static int32_t read_component(uint8_t octet) {
        const auto magnitude = static_cast<int32_t>(bits(octet, 7, 1));
        return bit(octet, 8) ? magnitude - INT16_MAX : magnitude;
    }

    static void summarize(TextWriter &out, const Value &acceleration) {
        out.print("AX:%.2f AY:%.2f", acceleration.ax_m_s2, acceleration.ay_m_s2);
    }

    static void show(ViewWriter &view, const Value &acceleration) {
        FieldTable table(view, "Octet", "Item", "Value");
        table.quantity("Octect[0]", "ACCERATION_X LSB:M/S^2", acceleration.ax_m_s2); // labels known so
        table.quantity("Octect[1]", "ACCERATION_Y LSB:M/S^2", acceleration.ay_m_s2);
    }
};

AST_DEFINE_ITEM(I062_210, ast_dataitem_062_210)

// ---- I062/220 Calculated Rate of Climb/Descent ----

struct I062_220 : Item<62220, ast_dataitem_062_220_t, fixed<2>> {
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::rate_raw, kMagnitude16, {},
                 {&Value::rate_ft_min, kVerticalLsbFt, "CLIMB_DESCENT_RATE LSB:FT/MIN"},
                 {kVerticalLsbM, "CLIMB_DESCENT_RATE LSB:M/MIN", 3}),
    };

    static void summarize(TextWriter &out, const Value &rate) { out.print("VH:%.2f", rate.rate_ft_min); }
};

AST_DEFINE_ITEM(I062_220, ast_dataitem_062_220)

// ---- I062/270 Target Size & Orientation ----

struct I062_270 : TargetSize<62270, ast_dataitem_062_270_t> {};

AST_DEFINE_ITEM(I062_270, ast_dataitem_062_270)

// ---- I062/290 System Track Update Ages, I062/295 Track Data Age ----

namespace {

constexpr SubfieldScale kAge = {kOneOctet, 0.25, Sign::None, "SEC", "AGE LSB:1/4 SEC", "AGE LSB:SEC"};
using Age = ScaledSubfield<&ast_age_t::raw, &ast_age_t::age_s, kAge>;

using UpdateAges = ast_dataitem_062_290_t;

constexpr SubfieldRow kUpdateAges[] = {
    subfield<&UpdateAges::trk, Age>("TRK", "Track age", fixed<1>),
    subfield<&UpdateAges::psr, Age>("PSR", "PSR age", fixed<1>),
    subfield<&UpdateAges::ssr, Age>("SSR", "SSR age", fixed<1>),
    subfield<&UpdateAges::mds, Age>("MDS", "Mode S age", fixed<1>),
    subfield<&UpdateAges::ads, Age>("ADS", "ADS-C age", fixed<2>),
    subfield<&UpdateAges::es, Age>("ES", "ADS-B Extended Squitter age", fixed<1>),
    subfield<&UpdateAges::vdl, Age>("VDL", "ADS-B VDL Mode 4 age", fixed<1>),
    subfield<&UpdateAges::uat, Age>("UAT", "ADS-B UAT age", fixed<1>),
    subfield<&UpdateAges::lop, Age>("LOP", "Loop age", fixed<1>),
    subfield<&UpdateAges::mlt, Age>("MLT", "Multilateration age", fixed<1>),
};

using DataAges = ast_dataitem_062_295_t;

constexpr SubfieldRow kDataAges[] = {
    subfield<&DataAges::mfl, Age>("MFL", "Measured Flight Level age", fixed<1>),
    subfield<&DataAges::md1, Age>("MD1", "Mode 1 age", fixed<1>),
    subfield<&DataAges::md2, Age>("MD2", "Mode 2 age", fixed<1>),
    subfield<&DataAges::mda, Age>("MDA", "Mode 3/A age", fixed<1>),
    subfield<&DataAges::md4, Age>("MD4", "Mode 4 age", fixed<1>),
    subfield<&DataAges::md5, Age>("MD5", "Mode 5 age", fixed<1>),
    subfield<&DataAges::mhg, Age>("MHG", "Magnetic Heading age", fixed<1>),
    subfield<&DataAges::ias, Age>("IAS", "Indicated Airspeed/Mach Nb age", fixed<1>),
    subfield<&DataAges::tas, Age>("TAS", "True Airspeed age", fixed<1>),
    subfield<&DataAges::sal, Age>("SAL", "Selected Altitude age", fixed<1>),
    subfield<&DataAges::fss, Age>("FSS", "Final State Selected Altitude age", fixed<1>),
    subfield<&DataAges::tid, Age>("TID", "Trajectory Intent Data age", fixed<1>),
    subfield<&DataAges::com, Age>("COM", "Communications / ACAS Capability and Flight Status age", fixed<1>),
    subfield<&DataAges::sab, Age>("SAB", "Status Reported by ADS-B age", fixed<1>),
    subfield<&DataAges::acs, Age>("ACS", "ACAS Resolution Advisory Report age", fixed<1>),
    subfield<&DataAges::bvr, Age>("BVR", "Barometric Vertical Rate age", fixed<1>),
    subfield<&DataAges::gvr, Age>("GVR", "Geometric Vertical Rate age", fixed<1>),
    subfield<&DataAges::ran, Age>("RAN", "Roll Angle age", fixed<1>),
    subfield<&DataAges::tar, Age>("TAR", "Track Angle Rate age", fixed<1>),
    subfield<&DataAges::tan, Age>("TAN", "Track Angle age", fixed<1>),
    subfield<&DataAges::gsp, Age>("GSP", "Ground Speed age", fixed<1>),
    subfield<&DataAges::vun, Age>("VUN", "Velocity Uncertanty age",
                                  fixed<1>), // the names are known with their spellings, here and below
    subfield<&DataAges::met, Age>("MET", "Meteorological Data age", fixed<1>),
    subfield<&DataAges::emc, Age>("EMC", "Emitter Category age", fixed<1>),
    subfield<&DataAges::pos, Age>("POS", "Position Data age", fixed<1>),
    subfield<&DataAges::gal, Age>("GAL", "Geometric Altitude Data age", fixed<1>),
    subfield<&DataAges::pun, Age>("PUN", "Position Uncertainty Data age", fixed<1>),
    subfield<&DataAges::mb, Age>("MB", "Mode S MB Data age", fixed<1>),
    subfield<&DataAges::iar, Age>("IAR", "Indicated Airspeed Data age", fixed<1>),
    subfield<&DataAges::mac, Age>("MAC", "Mach Number Data age", fixed<1>),
    subfield<&DataAges::bps, Age>("BPS", "Barometric Pressure Setting Data age", fixed<1>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem290, 62290, kUpdateAges, UpdateAges, 062_290, .summarizes_unknown_subfields = true)

AST_DEFINE_COMPOUND_ITEM(kItem295, 62295, kDataAges, DataAges, 062_295, .summarizes_unknown_subfields = true)

// ---- I062/300 Vehicle Fleet Identification ----

const char *ast_vehicle_fleet_id_get_name(uint32_t value) { return vehicle_fleet(value); }

struct I062_300 : Item<62300, ast_dataitem_062_300_t, fixed<1>> {
    static constexpr uint32_t kLastFleet = 16;

    static void read(Value &vehicle, const uint8_t *octets) {
        vehicle.raw = octets[0];
        vehicle.fleet = vehicle.raw <= kLastFleet ? vehicle.raw : 0;
    }

    static void summarize(TextWriter &out, const Value &vehicle) { out.append(vehicle_fleet(vehicle.fleet)); }

    // A fleet that is not defined reads as unknown, and shows here as what it is.
    static void show(ViewWriter &view, const Value &vehicle) {
        FieldTable table(view, "Octet", "Item", "Value");
        table.row("Octet[0]", "VEHICLE_FLEET_ID", vehicle_fleet(vehicle.raw));
    }
};

AST_DEFINE_ITEM(I062_300, ast_dataitem_062_300)

// ---- I062/500 Estimated Accuracies ----

namespace {

using Accuracies = ast_dataitem_062_500_t;

// Two quantities of one resolution, one behind the other.
struct SubfieldPairScale {
    double lsb;
    const char *summary_names[2];
    const char *unit;
    const char *octets[2];
    const char *raw_names[2];
    const char *names[2];
};

template <auto Raw1, auto Raw2, auto Physical1, auto Physical2, const SubfieldPairScale &kScale>
struct ScaledPairSubfield {
    using Value = typename OwnerOf<decltype(Raw1)>::Type;
    static void read(Value &pair, const ast_subfield_t &subfield) {
        const auto width = static_cast<unsigned>(subfield.size) * 8 / 2;
        pair.*Raw1 = field(subfield.data, 1, width);
        pair.*Raw2 = field(subfield.data, width + 1, 2 * width);
        pair.*Physical1 = pair.*Raw1 * kScale.lsb;
        pair.*Physical2 = pair.*Raw2 * kScale.lsb;
    }
    static void summarize(TextWriter &out, const Value &pair) {
        out.print("%s:%.2f %s:%.2f %s", kScale.summary_names[0], pair.*Physical1, kScale.summary_names[1],
                  pair.*Physical2, kScale.unit);
    }
    static void show(ViewWriter &view, const Value &pair) {
        OctetTable table(view);
        table.scaled(kScale.octets[0], kScale.raw_names[0], pair.*Raw1, kScale.names[0], pair.*Physical1);
        table.scaled(kScale.octets[1], kScale.raw_names[1], pair.*Raw2, kScale.names[1], pair.*Physical2);
    }
};

using Apc = decltype(Accuracies::apc);
constexpr SubfieldPairScale kCartesianPosition = {0.5,
                                                  {"X", "Y"},
                                                  "M",
                                                  {"Octet[0-1]", "Octet[2-3]"},
                                                  {"X-COMPONENT LSB=0.5M", "Y-COMPONENT LSB=0.5M"},
                                                  {"X-COMPONENT LSB=M", "Y-COMPONENT LSB=M"}};
using CartesianPosition = ScaledPairSubfield<&Apc::x_raw, &Apc::y_raw, &Apc::x_m, &Apc::y_m, kCartesianPosition>;

using Cov = decltype(Accuracies::cov);
constexpr SubfieldScale kCovariance = {kTwoOctets,           0.5, Sign::TwosComplement, "M", "XY_COVARIANCE LSB=0.5M",
                                       "XY_COVARIANCE LSB=M"};
using Covariance = ScaledSubfield<&Cov::covariance_raw, &Cov::covariance_m, kCovariance>;

using Apw = decltype(Accuracies::apw);
constexpr SubfieldPairScale kWgs84Position = {kHalfCircleDeg / (1 << 25),
                                              {"LAT", "LON"},
                                              "DEG",
                                              {"Octet[0-1]", "Octet[2-3]"},
                                              {"LATITUDE LSB=180/2^25 DEG", "LONGITUDE LSB=180/2^25 DEG"},
                                              {"LATITUDE LSB=DEG", "LONGITUDE LSB=DEG"}};
using Wgs84Position = ScaledPairSubfield<&Apw::latitude_raw, &Apw::longitude_raw, &Apw::latitude_deg,
                                         &Apw::longitude_deg, kWgs84Position>;

using Aga = decltype(Accuracies::aga);
constexpr SubfieldScale kGeometric = {
    kOneOctet, kVerticalLsbFt, Sign::None, "FT", "GEOMETRIC_ALTITUDE LSB=6.25 FT", "GEOMETRIC_ALTITUDE LSB=FT"};
using Geometric = ScaledSubfield<&Aga::altitude_raw, &Aga::altitude_ft, kGeometric>;

using Aba = decltype(Accuracies::aba);
constexpr SubfieldScale kBarometric = {
    kOneOctet, kLevelLsbFt, Sign::None, "FT", "BAROMETRIC_ALTITUDE LSB=1/4 FL", "BAROMETRIC_ALTITUDE LSB=FT"};
using Barometric = ScaledSubfield<&Aba::altitude_raw, &Aba::altitude_ft, kBarometric>;

using Atv = decltype(Accuracies::atv);
constexpr SubfieldPairScale kVelocity = {0.25,
                                         {"X", "Y"},
                                         "M/S",
                                         {"Octet[0]", "Octet[1]"},
                                         {"X-COMPONENT LSB=0.25M/S", "Y-COMPONENT LSB=0.25M/S"},
                                         {"X-COMPONENT LSB=M/S", "Y-COMPONENT LSB=M/S"}};
using Velocity = ScaledPairSubfield<&Atv::x_raw, &Atv::y_raw, &Atv::x_m_s, &Atv::y_m_s, kVelocity>;

using Aa = decltype(Accuracies::aa);
constexpr SubfieldPairScale kAcceleration = {0.25,
                                             {"X", "Y"},
                                             "M/S2",
                                             {"Octet[0]", "Octet[1]"},
                                             {"X-COMPONENT LSB=0.25M/S2", "Y-COMPONENT LSB=0.25M/S2"},
                                             {"X-COMPONENT LSB=M/S2", "Y-COMPONENT LSB=M/S2"}};
using Acceleration = ScaledPairSubfield<&Aa::x_raw, &Aa::y_raw, &Aa::x_m_s2, &Aa::y_m_s2, kAcceleration>;

using Arc = decltype(Accuracies::arc);
constexpr SubfieldScale kClimbRate = {kOneOctet, kVerticalLsbFt,         Sign::None,
                                      "FT/MIN",  "ROCD LSB=6.25 FT/MIN", "ROCD LSB=FT/MIN"};
using ClimbRate = ScaledSubfield<&Arc::rate_raw, &Arc::rate_ft_min, kClimbRate>;

constexpr SubfieldRow kAccuracies[] = {
    subfield<&Accuracies::apc, CartesianPosition>("APC", "Estimated Accuracy Of Track Position (Cartesian)", fixed<4>),
    subfield<&Accuracies::cov, Covariance>("COV", "XY Covariance", fixed<2>),
    subfield<&Accuracies::apw, Wgs84Position>("APW", "Estimated Accuracy Of Track Position (WGS-84)", fixed<4>),
    subfield<&Accuracies::aga, Geometric>("AGA", "Estimated Accuracy Of Calculated Track Geometric Altitude", fixed<1>),
    subfield<&Accuracies::aba, Barometric>("ABA", "Estimated Accuracy Of Calculated Track Barometric Altitude",
                                           fixed<1>),
    subfield<&Accuracies::atv, Velocity>("ATV", "Estimated Accuracy Of Track Velocity (Cartesian)", fixed<2>),
    subfield<&Accuracies::aa, Acceleration>("AA", "Estimated Accuracy Of Acceleration", fixed<2>),
    subfield<&Accuracies::arc, ClimbRate>("ARC", "Estimated Accuracy Of Rate Of Climb/Descent", fixed<1>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem500, 62500, kAccuracies, Accuracies, 062_500, .summarizes_unknown_subfields = true)

// ---- I062/510 Composed Track Number ----

namespace {

constexpr uint64_t kTrackOctets = 3;

} // namespace

// Lenient at its end: a chain that announces a part for which there is no room ends before it.
uint64_t ast_dataitem_062_510_get_size(const uint8_t *data, uint64_t available) {
    uint64_t size = kTrackOctets;
    while (data && available >= size + kTrackOctets && has_fx(data[size - 1])) size += kTrackOctets;
    return size;
}

struct I062_510 : Item<62510, ast_dataitem_062_510_t, SizeRule{}> {
    static constexpr SizeRule kSize = sized_by(ast_dataitem_062_510_get_size); // no template argument for GCC 12

    static bool read(Value &composed, const ast_dataitem_t &item) {
        if (item.size % kTrackOctets != 0 || item.size / kTrackOctets > std::size(composed.tracks)) return false;
        composed.count = static_cast<uint32_t>(item.size / kTrackOctets);
        for (uint32_t i = 0; i < composed.count; ++i) {
            const uint8_t *const part = item.data + i * kTrackOctets;
            composed.tracks[i] = {.unit = part[0], .track_number = field(part, 9, 23)};
        }
        return true;
    }

    static void summarize(TextWriter &out, const Value &composed) { out.print("NUM_TRACKS:%u", composed.count); }

    // Unit and number stand in one cell; viewers know them so.
    static void show(ViewWriter &view, const Value &composed) {
        DetailTable table(view, "Octets", "Unit ID", "Track Number");
        for (uint32_t i = 0; i < composed.count; ++i) {
            const unsigned first = i * kTrackOctets;
            table.row(Cell<16>("Octet[%u-%u]", first, first + 2),
                      Cell<16>("0x%.2X - %u", composed.tracks[i].unit, composed.tracks[i].track_number));
        }
    }
};

AST_DEFINE_ITEM(I062_510, ast_dataitem_062_510)

// ---- Accessors ----

namespace {

using AircraftDerived = ast_dataitem_062_380_t;

// Subfields of I062/380.
constexpr uint32_t kAdr = 1;
constexpr uint32_t kId = 2;
constexpr uint32_t kMhg = 3;
constexpr uint32_t kIas = 4;
constexpr uint32_t kTas = 5;
constexpr uint32_t kSal = 6;
constexpr uint32_t kFss = 7;
constexpr uint32_t kTan = 17;
constexpr uint32_t kGsp = 18;

// One of them alone, being asked for often: the whole item has 28, in 3,000 octets.
template <auto Member>
auto derived(const ast_dataitem_t *item, uint32_t number) {
    AircraftDerived value;
    value.*Member = {};
    if (item) read_subfield_of(cat062::kAircraftDerivedData, item, number, &value);
    return value.*Member;
}

const ast_dataitem_t *derived_data(const ast_datarecord_t *record) { return first_item(record, 62380); }

ast_quantity_t quantity(double value) { return {.valid = true, .value = value}; }

} // namespace

ast_sac_sic_t ast_datarecord_062_get_sacsic(const ast_datarecord_t *record) { return sacsic_of(record, 62010); }
ast_time_of_day_t ast_datarecord_062_get_timeofday(const ast_datarecord_t *record) {
    return timeofday_of(record, 62070);
}
ast_uint_value_t ast_datarecord_062_get_msgtype(const ast_datarecord_t *record) {
    return msgtype_of(record, AST_MSGTYPE_TRACK);
}
ast_uint_value_t ast_datarecord_062_get_tracknum(const ast_datarecord_t *record) { return tracknum_of(record, 62040); }
ast_squawk_t ast_datarecord_062_get_squawk(const ast_datarecord_t *record) { return whole_squawk_of(record, 62060); }

ast_aircraft_id_t ast_datarecord_062_get_callsign(const ast_datarecord_t *record) {
    ast_aircraft_id_t callsign{};
    const auto id = derived<&AircraftDerived::id>(derived_data(record), kId);
    callsign.valid = id.present;
    std::memcpy(callsign.text, id.text, sizeof callsign.text);
    return callsign;
}

ast_icao_address_t ast_datarecord_062_get_icaoaddr(const ast_datarecord_t *record) {
    const auto target = derived<&AircraftDerived::adr>(derived_data(record), kAdr);
    return {.valid = target.present, .address = target.present ? target.address : UINT32_MAX};
}

ast_coordinate_t ast_datarecord_062_get_coordinate(const ast_datarecord_t *record) {
    return coordinate_of(record, 62105);
}

ast_quantity_t ast_datarecord_062_get_flightlevel(const ast_datarecord_t *record) {
    if (const auto measured = first<I062_136>(record); measured.valid) return quantity(measured.level_ft);
    if (const auto barometric = first<I062_135>(record); barometric.valid) return quantity(barometric.altitude_ft);
    if (const auto geometric = first<I062_130>(record); geometric.valid) return quantity(geometric.altitude_ft);
    return {};
}

ast_quantity_t ast_datarecord_062_get_selaltitude(const ast_datarecord_t *record) {
    const ast_dataitem_t *const item = derived_data(record);
    if (const auto sal = derived<&AircraftDerived::sal>(item, kSal); sal.present) return quantity(sal.altitude_ft);
    if (const auto fss = derived<&AircraftDerived::fss>(item, kFss); fss.present) return quantity(fss.altitude_ft);
    return {};
}

ast_heading_t ast_datarecord_062_get_heading(const ast_datarecord_t *record) {
    const ast_dataitem_t *const item = derived_data(record);
    ast_heading_t heading = kNoHeading;
    const auto magnetic = derived<&AircraftDerived::mhg>(item, kMhg);
    const auto track = derived<&AircraftDerived::tan>(item, kTan);
    if (magnetic.present) heading.magnetic = quantity(magnetic.angle_deg);
    if (track.present) heading.track = quantity(track.angle_deg);
    heading.valid = heading.magnetic.valid || heading.track.valid;
    return heading;
}

ast_quantity_t ast_datarecord_062_get_speed(const ast_datarecord_t *record) {
    const ast_dataitem_t *const item = derived_data(record);
    if (const auto gsp = derived<&AircraftDerived::gsp>(item, kGsp); gsp.present) return quantity(gsp.speed_kt);
    if (const auto tas = derived<&AircraftDerived::tas>(item, kTas); tas.present) return quantity(tas.airspeed_kt);
    const auto ias = derived<&AircraftDerived::ias>(item, kIas);
    if (ias.present && !ias.im) return quantity(ias.airspeed_kt);
    return {};
}

ast_cartesian_velocity_t ast_datarecord_062_get_cartesianvel(const ast_datarecord_t *record) {
    const auto velocity = ast_dataitem_velocity_cartesian_decode(first_item(record, 62185));
    return {.valid = velocity.valid, .vx_m_s = velocity.value_1, .vy_m_s = velocity.value_2};
}

ast_quantity_t ast_datarecord_062_get_vrate(const ast_datarecord_t *record) {
    const auto rate = first<I062_220>(record);
    return {.valid = rate.valid, .value = rate.rate_ft_min};
}

// ---- The flat record ----

namespace {

using Flat = ast_datarecord_062_t;

// Target identification and flight plan data are left out.
constexpr FlatMember<Flat> kMembers[] = {
    taken_apart<&Flat::data_source, ast_dataitem_data_source_identifier_decode>(62010),
    taken_apart<&Flat::service_id, ast_dataitem_service_id_decode>(62015),
    taken_apart<&Flat::track_number, ast_dataitem_track_number_decode>(62040),
    taken_apart<&Flat::mode_3a, ast_dataitem_mode_3a_code_decode>(62060),
    taken_apart<&Flat::time_of_track, ast_dataitem_time_of_day_decode>(62070),
    taken_apart<&Flat::track_status, I062_080>(),
    taken_apart<&Flat::cartesian_position, ast_dataitem_position_cartesian_decode>(62100),
    taken_apart<&Flat::wgs84_position, ast_dataitem_position_wgs84_decode>(62105),
    taken_apart<&Flat::mode_5, ast_dataitem_062_110_decode>(62110),
    taken_apart<&Flat::mode_2, ast_dataitem_mode_3a_code_decode>(62120),
    taken_apart<&Flat::geometric_altitude, I062_130>(),
    taken_apart<&Flat::barometric_altitude, I062_135>(),
    taken_apart<&Flat::measured_flight_level, I062_136>(),
    taken_apart<&Flat::cartesian_velocity, ast_dataitem_velocity_cartesian_decode>(62185),
    taken_apart<&Flat::mode_of_movement, I062_200>(),
    taken_apart<&Flat::cartesian_acceleration, I062_210>(),
    taken_apart<&Flat::rate_of_climb, I062_220>(),
    taken_apart<&Flat::target_size, I062_270>(),
    taken_apart<&Flat::update_ages, ast_dataitem_062_290_decode>(62290),
    taken_apart<&Flat::data_ages, ast_dataitem_062_295_decode>(62295),
    taken_apart<&Flat::vehicle_fleet, I062_300>(),
    taken_apart<&Flat::measured_information, ast_dataitem_062_340_decode>(62340),
    taken_apart<&Flat::aircraft_derived_data, ast_dataitem_062_380_decode>(62380),
    taken_apart<&Flat::estimated_accuracies, ast_dataitem_062_500_decode>(62500),
    taken_apart<&Flat::composed_track_number, I062_510>(),
};

} // namespace

ast_datarecord_062_t *ast_datarecord_062_disassemble(ast_datarecord_062_t *flat, const ast_datarecord_t *record) {
    return disassemble_into(flat, record, 62, kMembers, report_quietly);
}

// ---- The category ----

namespace {

constexpr ast_datarecord_func_t kAccessors = {
    .get_sacsic = ast_datarecord_062_get_sacsic,
    .get_timeofday = ast_datarecord_062_get_timeofday,
    .get_msgtype = ast_datarecord_062_get_msgtype,
    .get_tracknum = ast_datarecord_062_get_tracknum,
    .get_squawk = ast_datarecord_062_get_squawk,
    .get_callsign = ast_datarecord_062_get_callsign,
    .get_icaoaddr = ast_datarecord_062_get_icaoaddr,
    .get_coordinate = ast_datarecord_062_get_coordinate,
    .get_flightlevel = ast_datarecord_062_get_flightlevel,
    .get_selaltitude = ast_datarecord_062_get_selaltitude,
    .get_heading = ast_datarecord_062_get_heading,
    .get_speed = ast_datarecord_062_get_speed,
    .get_cartesianvel = ast_datarecord_062_get_cartesianvel,
    .get_vrate = ast_datarecord_062_get_vrate,
};

constexpr ItemRow kItems[] = {
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification", items::service_id},
    {40, "Track Number", items::track_number},
    {60, "Track Mode 3/A Code", items::mode_3a_code},
    {70, "Time of Track Information", items::time_of_day},
    own<I062_080>("Track Status"),
    {100, "Calculated Track Position (Cartesian)", items::position_cartesian},
    {105, "Calculated Position in WGS84 Coordinates", items::without_encoder(items::position_wgs84)},
    items::compound("Mode 5 Data reports & Extended Mode 1 Code", kItem110),
    {120, "Track Mode 2 Code", items::mode_3a_code},
    own<I062_130>("Calculated Track Geometric Altitude"),
    own<I062_135>("Calculated Track Barometric Altitude"),
    own<I062_136>("Measured Flight Level"),
    {185, "Calculated Track Velocity (Cartesian)", items::velocity_cartesian},
    own<I062_200>("Mode of Movement"),
    own<I062_210>("Calculated Acceleration (Cartesian)"),
    own<I062_220>("Calculated Rate of Climb/Descent"),
    {245, "Target Identification", items::target_id},
    own<I062_270>("Target Size & Orientation"),
    items::compound("System Track Update Ages", kItem290),
    items::compound("Track Data Age", kItem295),
    own<I062_300>("Vehicle Fleet Identification"),
    items::compound(340, "Measured Information", ast_dataitem_062_340_get_size, kMeasuredInformation),
    items::compound(380, "Aircraft Derived Data", ast_dataitem_062_380_get_size, kAircraftDerivedData),
    items::compound(390, "Flight Plan Related Data", ast_dataitem_062_390_get_size, kFlightPlanRelatedData),
    items::compound("Estimated Accuracies", kItem500),
    own<I062_510>("Composed Track Number"),
    {AST_ITEM_REF, "Reserved Expansion Field", items::reserved_expansion_field},
    {AST_ITEM_SPF, "Reserved For Special Purpose Indicator", items::special_purpose_field},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory062, 62, "Unknown CAT062 Dataitem", kItems, ast_dataitem_062_get_name,
                    .reports_unknown_names = true, .accessors = kAccessors)
