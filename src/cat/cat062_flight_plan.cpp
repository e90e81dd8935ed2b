// I062/390: the flight plan that the track is correlated with.

#include "cat/cat062.hpp"
#include "items/code.hpp"

using namespace ast;
using namespace ast::cat062;

namespace {

using Plan = ast_dataitem_062_390_t;

constexpr char kInvalid[] = "INVALID";

// ---- Texts: CSN, TAC, WTC, DEP, DST, RDS, AST, STD, STA, PEC ----

// What the texts of subfields are shown as.
constexpr char kCallsign[] = "Callsign";
constexpr char kAircraftType[] = "Type of Aircraft";
constexpr char kWakeTurbulence[] = "Wake Turbulence Category";
constexpr char kDeparture[] = "Departure Airport";
constexpr char kDestination[] = "Destination Airport";
constexpr char kRunway[] = "Runway Designation";
constexpr char kStand[] = "Aircraft Stand";
constexpr char kInstrumentDeparture[] = "Standard Instrument Departure (SID)";
constexpr char kInstrumentArrival[] = "Standard Instrument Arrival (STAR)";
constexpr char kEmergencyCallsign[] = "Pre-Emergency Callsign";

// A text of so many characters, in ASCII.
template <const char *Label, uint64_t Chars>
struct Text {
    using Value = ast_062_text_t;
    static_assert(Chars < sizeof(Value::text));

    static void read(Value &text, const uint8_t *octets) { std::memcpy(text.text, octets, Chars); }

    static void summarize(TextWriter &out, const Value &text) {
        if (is_blank(text))
            out.append(kInvalid);
        else
            append_received(out, {text.text, Chars});
    }

    static void show(ViewWriter &view, const Value &text) {
        view.paragraph(Label, ": ", ReceivedText<Chars>(text.text));
        DetailTable table(view, "Octet", "ASCII");
        for (unsigned i = 0; i < Chars; ++i) table.row(Cell<9>("Octet[%u]", i), ReceivedText<1>(&text.text[i]));
    }

    static bool is_blank(const Value &text) {
        return std::all_of(text.text, text.text + Chars,
                           [](char character) { return character == ' ' || character == '\0'; });
    }
};

// ---- 3 and 4: IFI, FCT ----

struct FlightId {
    using Value = decltype(Plan::ifi);
    static constexpr const char *kTypes[] = {"PLAN_NUMBER", "UNIT1", "UNIT2", "UNIT3"};
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {{&Value::typ, 2, "TYPE", kTypes}, spare(3), {&Value::nbr, 27, "NUMBER"}};

    static void summarize(TextWriter &out, const Value &id) { out.print("TYP:%s NUM:%u", kTypes[id.typ], id.nbr); }
};

struct FlightCategory {
    using Value = decltype(Plan::fct);
    static constexpr uint32_t kGeneral = 1;
    static constexpr uint32_t kOperational = 2;
    static constexpr uint32_t kNoRules = 2;
    static constexpr uint32_t kApproved = 1;
    static constexpr char kUnknown[] = "UNKNOWN";
    static constexpr char kNotApplicable[] = "NOT_APPLICABLE";
    static constexpr const char *kTraffic[] = {kUnknown, "GAT", "OAT", kNotApplicable};
    static constexpr const char *kRules[] = {"IFR", "VFR", kNotApplicable, "CVFR"};
    static constexpr const char *kSeparation[] = {kUnknown, "APPROVED", "EXEMPT", "NOT_APPROVED"};

    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::gat_oat, 2, "GAT_OAT", kTraffic},
        {&Value::fr, 2, "VFR_CTRL", kRules},
        {&Value::rvsm, 2, "RVSM", kSeparation},
        {&Value::hpr, "HIGH_PRIORITY_FLIGHT"},
        spare(1),
    };

    static void summarize(TextWriter &out, const Value &category) {
        const auto word = [&](bool is_shown, const char *text) {
            if (!is_shown) return;
            out.append(shown_if(out.length() != 0, " "));
            out.append(text);
        };
        word(category.gat_oat == kGeneral || category.gat_oat == kOperational, kTraffic[category.gat_oat]);
        word(category.fr != kNoRules, kRules[category.fr]);
        word(category.rvsm == kApproved, "RVSM");
        word(category.hpr, "HPR");
    }
};

// ---- 10 to 12: CFL, CTL, TOD ----

struct ClearedLevel {
    using Value = decltype(Plan::cfl);
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::level_raw, 16, "CFL LSB=1/4 FL", {&Value::level_ft, kLevelLsbFt, "CFL LSB=FT"}),
    };

    static void summarize(TextWriter &out, const Value &level) { out.print("%05u FT", level.level_ft); }
};

struct ControlPosition {
    using Value = decltype(Plan::ctl);
    static constexpr Columns kColumns = kOctets;
    static constexpr Row<Value> kRows[] = {{&Value::centre, 8, "CENTRE"}, {&Value::position, 8, "POSITION"}};

    static void summarize(TextWriter &out, const Value &control) {
        out.print("CEN:%03u POS:%03u", control.centre, control.position);
    }
};

struct Time {
    using Value = std::remove_extent_t<decltype(decltype(Plan::tod)::times)>;
    static constexpr Row<Value> kRows[] = {
        {&Value::typ, 5},    {&Value::day, 2}, spare(4), {&Value::hour, 5},   spare(2),
        {&Value::minute, 6}, {&Value::avs},    spare(1), {&Value::second, 6},
    };
};

struct Times {
    using Value = decltype(Plan::tod);
    static constexpr uint64_t kTimeOctets = kRowOctets<Time>;

    static uint64_t held(const Value &tod) { return std::min<uint64_t>(tod.count, std::size(tod.times)); }

    static void read(Value &tod, const uint8_t *octets) {
        tod.count = octets[0];
        for (uint64_t i = 0; i < held(tod); ++i) read_rows<Time>(tod.times[i], octets + 1 + i * kTimeOctets);
    }

    static void summarize(TextWriter &out, const Value &tod) { out.print("%zu TIMES", static_cast<size_t>(tod.count)); }

    static void show(ViewWriter &view, const Value &tod) {
        static constexpr const char *kTypes[] = {
            "Scheduled off-block time", "Estimated off-block time",      "Estimated take-off time",
            "Actual off-block time",    "Predicted time at runway hold", "Actual time at runway hold",
            "Actual line-up time",      "Actual take-off time",          "Estimated time of arrival",
            "Predicted landing time",   "Actual landing time",           "Actual time off runway",
            "Predicted time to gate",   "Actual on-block time",
        };
        static constexpr const char *kDays[] = {"Today", "Yesterday", "Tomorrow", "Invalid"};
        DetailTable table(view, "Type", "Date", "Time");
        for (uint64_t i = 0; i < held(tod); ++i) {
            const Time::Value &time = tod.times[i];
            const Cell<9> with_seconds("%02u:%02u:%02u", time.hour, time.minute, time.second);
            const Cell<9> without_seconds("%02u:%02u", time.hour, time.minute);
            table.row(text_of(kTypes, time.typ, "Unknown time"), kDays[time.day],
                      time.avs ? without_seconds : with_seconds);
        }
    }
};

// ---- 14: STS ----

struct StandStatus {
    using Value = decltype(Plan::sts);
    static constexpr const char *kOccupations[] = {"EMPTY", "OCCUPIED", "UNKNOWN", kInvalid};
    static constexpr const char *kAvailabilities[] = {"AVAILABLE", "UNAVAILABLE", "UNKNOWN", kInvalid};

    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {
        {&Value::emp, 2, "OCCUPATION", kOccupations},
        {&Value::avl, 2, "AVAILABILITY", kAvailabilities},
        spare(4),
    };

    static void summarize(TextWriter &out, const Value &stand) {
        out.print("EMP:%s AVL:%s", kOccupations[stand.emp], kAvailabilities[stand.avl]);
    }
};

// ---- 17: PEM ----

struct EmergencyCode {
    using Value = decltype(Plan::pem);
    static constexpr Columns kColumns = kBits;
    static constexpr Row<Value> kRows[] = {spare(3), {&Value::va, "VALID"}, code_row(&Value::code)};

    static void summarize(TextWriter &out, const Value &code) {
        if (code.va)
            out.print("%04o", code.code);
        else
            out.append(kInvalid);
    }
};

// ---- The subfields ----

constexpr SubfieldRow kFlightPlan[] = {
    subfield<&Plan::tag, Source>("TAG", "FPPS Identification Tag", fixed<2>),
    subfield<&Plan::csn, Text<kCallsign, 7>>("CSN", "Callsign", fixed<7>),
    subfield<&Plan::ifi, FlightId>("IFI", "IFPS Flight ID", fixed<4>),
    subfield<&Plan::fct, FlightCategory>("FCT", "Flight Category", fixed<1>),
    subfield<&Plan::tac, Text<kAircraftType, 4>>("TAC", "Type of Aircraft", fixed<4>),
    subfield<&Plan::wtc, Text<kWakeTurbulence, 1>>("WTC", "Wake Turbulence Category", fixed<1>),
    subfield<&Plan::dep, Text<kDeparture, 4>>("DEP", "Departure Airport", fixed<4>),
    subfield<&Plan::dst, Text<kDestination, 4>>("DST", "Destination Airport", fixed<4>),
    subfield<&Plan::rds, Text<kRunway, 3>>("RDS", "Runway Designation", fixed<3>),
    subfield<&Plan::cfl, ClearedLevel>("CFL", "Current Cleared Flight Level", fixed<2>),
    subfield<&Plan::ctl, ControlPosition>("CTL", "Current Control Position", fixed<2>),
    subfield<&Plan::tod, Times>("TOD", "Time of Departure / Arrival", repetitive<Times::kTimeOctets>),
    subfield<&Plan::ast, Text<kStand, 6>>("AST", "Aircraft Stand", fixed<6>),
    subfield<&Plan::sts, StandStatus>("STS", "Stand Status", fixed<1>),
    subfield<&Plan::std, Text<kInstrumentDeparture, 7>>("STD", "Standard Instrument Departure", fixed<7>),
    subfield<&Plan::sta, Text<kInstrumentArrival, 7>>("STA", "Standard Instrument Arrival", fixed<7>),
    subfield<&Plan::pem, EmergencyCode>("PEM", "Pre-emergency Mode 3/A Code", fixed<2>),
    subfield<&Plan::pec, Text<kEmergencyCallsign, 7>>("PEC", "Pre-emergency Callsign", fixed<7>),
};

} // namespace

AST_DEFINE_COMPOUND_ITEM(kItem390, 62390, kFlightPlan, Plan, 062_390, .summarizes_unknown_subfields = true)

constinit const Compound ast::cat062::kFlightPlanRelatedData = kItem390;
