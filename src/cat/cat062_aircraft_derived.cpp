// I062/380: what the aircraft itself sends, by Mode S or ADS-B.

#include "cat/cat062.hpp"
#include "items/characters.hpp"
#include "items/register.hpp"

using namespace ast;
using namespace ast::cat062;

namespace {

using Derived = ast_dataitem_062_380_t;

constexpr std::string_view kNone = "---";

// ---- 1 to 3: ADR, ID, MHG ----

struct TargetAddress {
    using Value = decltype(Derived::adr);
    static constexpr Row<Value> kRows[] = {{&Value::address, 24}};

    static void summarize(TextWriter &out, const Value &target) { out.print("%.6X", target.address); }
    static void show(ViewWriter &view, const Value &target, const ast_dataitem_t &item) {
        view.paragraph("ICAO 24-bit address: ", Cell<12>("%.6X", target.address));
        write_country_of(view, target.address, &item);
    }
};

struct TargetIdentification {
    using Value = decltype(Derived::id);
    static void read(Value &target, const uint8_t *octets) { read_identity(target.text, octets); }
    static void summarize(TextWriter &out, const Value &target) { out.print("%s", target.text); }
    static void show(ViewWriter &view, const Value &target) {
        BitTable table(view);
        write_identity_rows(target.text, [&](unsigned place, std::string_view name, std::string_view character) {
            const unsigned first = place * kIdentityCharBits;
            table.row(Cell<12>("Bit[%u-%u]", first, first + kIdentityCharBits - 1), name, character);
        });
    }
};

constexpr double kAngleLsbDeg = kFullCircleDeg / 65536;

template <const SubfieldScale &kScale>
using Angle = ScaledSubfield<&ast_062_angle_t::angle_raw, &ast_062_angle_t::angle_deg, kScale>;

// The label of the heading rounds its resolution.
constexpr SubfieldScale kMagneticHeading = {
    kTwoOctets, kAngleLsbDeg, Sign::None, "DEG", "MAGNETIC_HEADING LSB=0.0055 DEG", "MAGNETIC_HEADING LSB=DEG"};
using MagneticHeading = Angle<kMagneticHeading>;

// ---- 4 and 5: IAS, TAS ----

constexpr char kTrueAirspeed[] = "TRUE_AIR_SPEED LSB=KT";
constexpr char kIndicatedAirspeed[] = "INDICATED_AIR_SPEED LSB=KT";

struct AirspeedOrMach {
    using Value = decltype(Derived::ias);
    static void read(Value &speed, const uint8_t *octets) {
        constexpr double kMachLsb = 0.001;
        speed.im = bit(octets[0], 8);
        speed.speed_raw = field(octets, 2, 16);
        if (speed.im)
            speed.mach = speed.speed_raw * kMachLsb;
        else
            speed.airspeed_kt = speed.speed_raw * kFineSpeedLsbKt;
    }
    static void summarize(TextWriter &out, const Value &speed) {
        if (speed.im)
            out.print("%.3f MACH", speed.mach);
        else
            out.print("%.2f KT", speed.airspeed_kt);
    }
    static void show(ViewWriter &view, const Value &speed) {
        constexpr char kBits[] = "Bit[1-15]";
        BitTable table(view);
        table.flag("Bit[0]", "MACH", speed.im);
        if (speed.im)
            table.scaled(kBits, "MACH LSB=0.001 MACH", speed.speed_raw, "MACH LSB=MACH", speed.mach);
        else
            table.scaled(kBits, "INDICATED_AIR_SPEED LSB=2^-14 NM/SEC", speed.speed_raw, kIndicatedAirspeed,
                         speed.airspeed_kt);
    }
};

template <const char *Name>
struct Airspeed {
    using Value = ast_062_airspeed_t;
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {{&Value::airspeed_kt, 16, Name}};
    static void summarize(TextWriter &out, const Value &speed) { out.print("%u KT", speed.airspeed_kt); }
};

// ---- 6 and 7: SAL, FSS ----

// Both have three bits of their own before the altitude.
template <typename Value>
constexpr Row<Value> selected_altitude_row() {
    return {&Value::altitude_raw,
            {13, Sign::TwosComplement},
            "ALTITUDE LSB=25 FT",
            {&Value::altitude_ft, kLevelLsbFt, "ALTITUDE LSB=FT"}};
}

struct SelectedAltitude {
    using Value = decltype(Derived::sal);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::sas},
        {&Value::src, {2, ast_selected_altitude_source_from_int}},
        selected_altitude_row<Value>(),
    };

    static void summarize(TextWriter &out, const Value &selected) {
        out.print("SAL:%d FT SRC:%s", selected.altitude_ft, source(selected, AST_STYLE_SHORT));
    }
    static void show(ViewWriter &view, const Value &selected) {
        BitTable table(view);
        table.flag("Bit[0]", "SOURCE_PROVIDED", selected.sas);
        table.row("Bit[1-2]", "SOURCE", source(selected, AST_STYLE_LONG));
        show_rows<SelectedAltitude>(table, selected);
    }
    static const char *source(const Value &selected, uint32_t style) {
        return selected.sas ? ast_selected_altitude_source_to_str(selected.src, style) : "NOT_PROVIDED";
    }
};

struct FinalSelectedAltitude {
    using Value = decltype(Derived::fss);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::mv, "MANAGE_VERTICAL_MODE"},
        {&Value::ah, "ALTITUDE_HOLD"},
        {&Value::am, "APPROACH_MODE"},
        selected_altitude_row<Value>(),
    };

    static void summarize(TextWriter &out, const Value &selected) { out.print("%d FT", selected.altitude_ft); }
};

// ---- 8 and 9: TIS, TID ----

struct IntentStatus {
    using Value = decltype(Derived::tis);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::nav, "TRAJECTORY_INTENT_UNAVAILABLE"},
        {&Value::nvb, "TRAJECTORY_INTENT_INVALID"},
        spare(6),
    };

    static void summarize(TextWriter &out, const Value &status) {
        out.print("%s %s", status.nav ? "UNAVAILABLE" : "AVAILABLE", status.nvb ? "INVALID" : "VALID");
    }
};

struct IntentPoint {
    using Value = ast_062_trajectory_point_t;
    static constexpr int32_t kAltitudeLsbFt = 10;
    static constexpr double kRadiusLsbNm = 0.01;
    static constexpr Bits kAngle = {24, Sign::TwosComplement};
    static constexpr Row<Value> kRows[] = {
        {&Value::tca},
        {&Value::nc},
        {&Value::tcpn, 6},
        quantity(&Value::altitude_raw, kSigned16, {}, {&Value::altitude_ft, kAltitudeLsbFt}),
        quantity(&Value::latitude_raw, kAngle, {}, {&Value::latitude_deg, kLowPositionLsbDeg}),
        quantity(&Value::longitude_raw, kAngle, {}, {&Value::longitude_deg, kLowPositionLsbDeg}),
        {&Value::pt, 4},
        {&Value::td, 2},
        {&Value::tra},
        {&Value::toa},
        {&Value::tov_s, 24},
        quantity(&Value::ttr_raw, 16, {}, {&Value::ttr_nm, kRadiusLsbNm}),
    };
};

struct IntentData {
    using Value = decltype(Derived::tid);
    using Point = ast_062_trajectory_point_t;
    static constexpr uint64_t kPointOctets = kRowOctets<IntentPoint>;

    static uint64_t held(const Value &intent) { return std::min<uint64_t>(intent.count, std::size(intent.points)); }

    static void read(Value &intent, const uint8_t *octets) {
        intent.count = octets[0];
        for (uint64_t i = 0; i < held(intent); ++i)
            read_rows<IntentPoint>(intent.points[i], octets + 1 + i * kPointOctets);
    }

    static void summarize(TextWriter &out, const Value &intent) {
        out.print("TIP:%zu", static_cast<size_t>(intent.count));
    }

    static void show(ViewWriter &view, const Value &intent) {
        static constexpr const char *kTypes[] = {
            "UNKNOWN",        "FLY_BY_WAYPOINT",    "FLY_OVER_WAYPOINT",
            "HOLD_PATTERN",   "PROCEDURE_HOLD",     "PROCEDURE_TURN",
            "RF_LEG",         "TOP_OF_CLIMB",       "TOP_OF_DESCENT",
            "START_OF_LEVEL", "CROSSOVER_ALTITUDE", "TRANSITION_ALTITUDE",
        };
        static constexpr const char *kTurns[] = {"N/A", "RIGHT", "LEFT", "NO_TURN"};
        view.title("Trajectory Intent Point List");
        DetailTable table(view, "Number", "Compliance", "Altitude LSB=FT", "WGS84_COORDINATES", "Type", "Turn",
                          "Time over Point LSB=SEC", "Turn Radius LSB=NM");
        for (uint64_t i = 0; i < held(intent); ++i) {
            const Point &point = intent.points[i];
            table.row(point.tca ? kNone : Cell<4>("%u", point.tcpn), point.nc ? "NO" : "YES",
                      Cell<12>("%d", point.altitude_ft), ast_latlong_to_str(point.latitude_deg, point.longitude_deg),
                      text_of(kTypes, point.pt, "UNKNOWN"), kTurns[point.td],
                      point.toa ? kNone : Cell<12>("%u", point.tov_s),
                      point.tra ? Cell<12>("%.2f", point.ttr_nm) : kNone);
        }
    }
};

// ---- 10 to 12: COM, SAB, ACS ----

struct Capability {
    using Value = decltype(Derived::com);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        code(&Value::com, {3, ast_transponder_comm_cap_from_int}, "COMMUNICATION_CAPABILITY",
             ast_transponder_comm_cap_to_str),
        {&Value::stat, {3, ast_radar_flight_status_from_int}, "FLIGHT_STATUS", ast_radar_flight_status_to_str},
        spare(2),
        {&Value::ssc, "SPECIFIC_SERVICE_CAPABILITY"},
        {&Value::arc, "ALTITUDE_REPORTING_CAPABILITY", {"100FT", "25FT"}},
        {&Value::aic, "ACID_CAPABILITY"},
        {&Value::b1a, "BDS10_BIT16", kBinary},
        {&Value::b1b, 4, "BDS10_BIT37-40", kBinary},
    };

    static void summarize(TextWriter &out, const Value &status) {
        out.print("COM:%s FS:%s", ast_transponder_comm_cap_to_str(status.com),
                  ast_radar_flight_status_to_str(status.stat));
    }
};

struct AdsbStatus {
    using Value = decltype(Derived::sab);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::ac, {2, ast_acas_status_from_int}, "ACAS_STATUS", ast_acas_status_to_str},
        {&Value::mn, {2, ast_multi_navids_status_from_int}, "MULTIPLE_NAVIDS_STATUS", ast_multi_navids_status_to_str},
        code(&Value::dc, {2, ast_diff_correction_status_from_int}, "DIFFERENTIAL_CORRECTION_STATUS",
             ast_diff_correction_status_to_str),
        {&Value::gbs, "GROUND_BIT_SET"},
        spare(6),
        {&Value::stat, {3, ast_emergency_status_from_int}, "STAT", ast_emergency_status_to_str},
    };

    static void summarize(TextWriter &out, const Value &status) {
        out.print("%s EMG:%s", status.gbs ? "GBS" : "NO_GBS", ast_emergency_status_to_str(status.stat));
    }
};

struct AcasAdvisory {
    using Value = decltype(Derived::acs);
    static void read(Value &advisory, const uint8_t *octets) {
        advisory.bds = ast_bds_decode(octets, kRegisterOctets, kAcasRegister);
    }
    static void summarize(TextWriter &out, const Value &advisory) {
        out.append(ast_bds_type_to_str_simple(advisory.bds.bds));
    }
    static void show(ViewWriter &view, const Value &advisory) { write_register(view, advisory.bds); }
};

// ---- 13 to 18: BVR, GVR, RAN, TAR, TAN, GSP ----

constexpr SubfieldScale kVerticalRate = {kTwoOctets,
                                         kVerticalLsbFt,
                                         Sign::TwosComplement,
                                         "FT/M",
                                         "VERTICAL_RATE LSB=6.25FT/M",
                                         "VERTICAL_RATE LSB=FT/M",
                                         "VERTICAL_RATE LSB=METER/M",
                                         kVerticalLsbM};
using VerticalRate =
    ScaledSubfield<&ast_062_vertical_rate_t::rate_raw, &ast_062_vertical_rate_t::rate_ft_min, kVerticalRate>;

using Ran = decltype(Derived::ran);
constexpr SubfieldScale kRollAngle = {kTwoOctets,          0.01, Sign::TwosComplement, "DEG", "ROLL_ANGLE LSB=0.01DEG",
                                      "ROLL_ANGLE LSB=DEG"};
using RollAngle = ScaledSubfield<&Ran::roll_raw, &Ran::roll_deg, kRollAngle>;

struct TrackAngleRate {
    using Value = decltype(Derived::tar);
    static constexpr double kLsbDegPerS = 0.25;
    static constexpr const char *kIndicators[] = {"NOT_AVAILABLE", "LEFT", "RIGHT", "STRAIGHT"};
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::ti, 2, "TURN_INDICATOR", kIndicators},
        spare(6),
        quantity(&Value::rate_raw, {7, Sign::TwosComplement}, "RATE_OF_TURN LSB=1/4 DEG/SEC",
                 {&Value::rate_deg_s, kLsbDegPerS, "RATE_OF_TURN LSB=DEG/SEC"}),
        spare(1),
    };

    static void summarize(TextWriter &out, const Value &turn) { out.print("%.2f DEG/SEC", turn.rate_deg_s); }
};

constexpr SubfieldScale kTrackAngle = {
    kTwoOctets, kAngleLsbDeg, Sign::None, "DEG", "TRACK_ANGLE LSB=360/2^16 DEG", "TRACK_ANGLE LSB=DEG"};
using TrackAngle = Angle<kTrackAngle>;

using Gsp = decltype(Derived::gsp);
constexpr SubfieldScale kGroundSpeed = {kTwoOctets,
                                        kFineSpeedLsbKt,
                                        Sign::TwosComplement,
                                        "KT",
                                        "GROUND_SPEED LSB=2^-14 NM/SEC",
                                        "GROUND_SPEED LSB=KT",
                                        "GROUND_SPEED LSB=NM/SEC",
                                        1 / kSpeedUnitsPerNmPerS};
using GroundSpeed = ScaledSubfield<&Gsp::speed_raw, &Gsp::speed_kt, kGroundSpeed>;

// ---- 19 to 21: VUN, MET, EMC ----

struct VelocityUncertainty {
    using Value = decltype(Derived::vun);
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {{&Value::category, 8, "VELOCITY_UNCERTAINTY_CATEGORY"}};

    static void summarize(TextWriter &out, const Value &uncertainty) { out.print("%u", uncertainty.category); }
};

struct Weather {
    using Value = decltype(Derived::met);
    static constexpr double kTemperatureLsbC = 0.25;
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::ws, "WIND_SPEED_VALID"},
        {&Value::wd, "WIND_DIRECTION_VALID"},
        {&Value::tmp, "TEMPERATURE_VALID"},
        {&Value::trb, "TURBULENCE_VALID"},
        spare(4),
        {&Value::wind_speed_kt, 16, "WIND_SPEED LSB:KT"},
        {&Value::wind_direction_deg, 16, "WIND_DIRECTION LSB:DEG"},
        quantity(&Value::temperature_raw, kSigned16, "TEMPERATURE LSB:0.25 CELSIUS",
                 {&Value::temperature_c, kTemperatureLsbC, "TEMPERATURE LSB:CELSIUS"}),
        {&Value::turbulence, 8, "TURBULENCE"},
    };

    static void summarize(TextWriter &out, const Value &weather) {
        out.print("WS:%u KT WD:%u DEG TMP:%f C", weather.wind_speed_kt, weather.wind_direction_deg,
                  weather.temperature_c);
    }
};

struct EmitterCategory {
    using Value = decltype(Derived::emc);
    static const char *long_text(uint32_t category) { return ast_emitter_category_to_str(category, AST_STYLE_LONG); }

    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {
        {&Value::category, {8, ast_emitter_category_from_int}, "EMITTER_CATEGORY", long_text},
    };

    static void summarize(TextWriter &out, const Value &emitter) {
        out.append(ast_emitter_category_to_str(emitter.category, AST_STYLE_SHORT));
    }
};

// ---- 23 to 25: GAL, PUN, MB ----

using Gal = decltype(Derived::gal);
constexpr SubfieldScale kGeometricAltitude = {
    kTwoOctets,           kVerticalLsbFt, Sign::TwosComplement, "FT", "GEO_ALTITUDE LSB=6.25FT", "GEO_ALTITUDE LSB=FT",
    "GEO_ALTITUDE LSB=M", kVerticalLsbM};
using GeometricAltitude = ScaledSubfield<&Gal::altitude_raw, &Gal::altitude_ft, kGeometricAltitude>;

struct PositionUncertainty {
    using Value = decltype(Derived::pun);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {spare(4), {&Value::category, 4, "POSITION_UNCERTAINTY"}};

    static void summarize(TextWriter &out, const Value &uncertainty) {
        out.print("%.u", uncertainty.category); // 0 shows as nothing; viewers know it so
    }
};

struct Registers {
    using Value = decltype(Derived::mb);
    static void read(Value &data, const uint8_t *octets) {
        data.count = octets[0];
        read_registers(data.registers, data.count, octets + 1);
    }
    static void summarize(TextWriter &out, const Value &data) {
        out.append("BDS:");
        for (uint64_t i = 0; i < held_registers(data.registers, data.count); ++i)
            out.print("%s ", ast_bds_type_to_str_simple(data.registers[i].bds)); // the last blank stays
    }
    static void show(ViewWriter &view, const Value &data) {
        write_registers(view, data.registers, held_registers(data.registers, data.count));
    }
};

// ---- 27 and 28: MAC, BPS ----

struct MachNumber {
    using Value = decltype(Derived::mac);
    static constexpr double kLsb = 0.008;
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::mach_raw, 16, "MACH LSB=0.008 MACH", {&Value::mach, kLsb, "MACH LSB=MACH"}),
    };

    static void summarize(TextWriter &out, const Value &speed) { out.print("%.3f MACH", speed.mach); }
};

struct PressureSetting {
    using Value = decltype(Derived::bps);
    static void read(Value &setting, const uint8_t *octets) {
        constexpr double kBaseMb = 800;
        constexpr double kLsbMb = 0.1;
        setting.pressure_raw = field(octets, 5, 16);
        setting.pressure_mb = kBaseMb + setting.pressure_raw * kLsbMb;
    }
    static void summarize(TextWriter &out, const Value &setting) { out.print("%.1f MB", setting.pressure_mb); }
    static void show(ViewWriter &view, const Value &setting) {
        BitTable table(view);
        table.scaled("Bit[4-15]", "BPS BASE=800 MB LSB=0.1 MB", setting.pressure_raw, "BPS LSB=MB",
                     setting.pressure_mb);
    }
};

// ---- The subfields ----

// Some names are known with their spellings.
constexpr SubfieldRow kAircraftDerived[] = {
    subfield<&Derived::adr, TargetAddress>("ADR", "Target Address", fixed<3>),
    subfield<&Derived::id, TargetIdentification>("ID", "Target Identification", fixed<6>),
    subfield<&Derived::mhg, MagneticHeading>("MHG", "Magnetic Heading", fixed<2>),
    subfield<&Derived::ias, AirspeedOrMach>("IAS", "Indicated Airspeed / Mach No", fixed<2>),
    subfield<&Derived::tas, Airspeed<kTrueAirspeed>>("TAS", "True Airspeed", fixed<2>),
    subfield<&Derived::sal, SelectedAltitude>("SAL", "Selected Altitude", fixed<2>),
    subfield<&Derived::fss, FinalSelectedAltitude>("FSS", "Final State Selected Altitude", fixed<2>),
    subfield<&Derived::tis, IntentStatus>("TIS", "Trajectory Intent Status", fixed<1>),
    subfield<&Derived::tid, IntentData>("TID", "Trajectory Intent Data", repetitive<IntentData::kPointOctets>),
    subfield<&Derived::com, Capability>("COM", "Communications / ACAS Capability and Flight Status reported by Mode-S",
                                        fixed<2>),
    subfield<&Derived::sab, AdsbStatus>("SAB", "Status reported by ADS-B", fixed<2>),
    subfield<&Derived::acs, AcasAdvisory>("ACS", "ACAS Resolution Avisory Report", fixed<kRegisterOctets>),
    subfield<&Derived::bvr, VerticalRate>("BVR", "Brometric Vertical Rate", fixed<2>),
    subfield<&Derived::gvr, VerticalRate>("GVR", "Geometric Vertical Rate", fixed<2>),
    subfield<&Derived::ran, RollAngle>("RAN", "Roll Angle", fixed<2>),
    subfield<&Derived::tar, TrackAngleRate>("TAR", "Track Angle Rate", fixed<2>),
    subfield<&Derived::tan, TrackAngle>("TAN", "Track Angle", fixed<2>),
    subfield<&Derived::gsp, GroundSpeed>("GSP", "Ground Speed", fixed<2>),
    subfield<&Derived::vun, VelocityUncertainty>("VUN", "Velocity Uncertainty Category", fixed<1>),
    subfield<&Derived::met, Weather>("MET", "Met Data", fixed<8>),
    subfield<&Derived::emc, EmitterCategory>("EMC", "Emitter Category", fixed<1>),
    subfield<&Derived::pos, Position>("POS", "Position", fixed<6>),
    subfield<&Derived::gal, GeometricAltitude>("GAL", "Geometric Altitude", fixed<2>),
    subfield<&Derived::pun, PositionUncertainty>("PUN", "Position Uncertainty", fixed<1>),
    subfield<&Derived::mb, Registers>("MB", "Mode-S MB Data", repetitive<kRegisterElementOctets>),
    subfield<&Derived::iar, Airspeed<kIndicatedAirspeed>>("IAR", "Indicated Airspeed", fixed<2>),
    subfield<&Derived::mac, MachNumber>("MAC", "Mach Number", fixed<2>),
    subfield<&Derived::bps, PressureSetting>("BPS", "Barometric Pressure Setting", fixed<2>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem380, 62380, kAircraftDerived, Derived, 062_380, .summarizes_unknown_subfields = true)

constinit const Compound ast::cat062::kAircraftDerivedData = kItem380;
