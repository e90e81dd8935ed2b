// Mode S registers: what the 56 bits of a Comm-B reply say, register by register. Bits count from 1 to 56.

#include "core/bits.hpp"
#include "items/characters.hpp"
#include "items/register.hpp"
#include "items/rows.hpp"
#include "items/units.hpp"
#include "view/html.hpp"

using namespace ast;

namespace {

// The frame around a register: `read` takes its 56 bits and tells whether they are a valid value; what it filled in
// stays in any case.
template <uint32_t Number, typename RegisterValue>
struct Register {
    using Value = RegisterValue;
    static constexpr uint32_t kNumber = Number;
};

template <typename R>
typename R::Value decode(const ast_bds_t *bds) {
    typename R::Value value{};
    const bool is_held = bds && bds->valid && bds->data && bds->bds == R::kNumber && bds->size == kRegisterOctets;
    if (is_held) value.valid = R::read(value, bds->data);
    return value;
}

template <typename R>
void show(ViewWriter &view, const ast_bds_t *bds) {
    if (const auto value = decode<R>(bds); value.valid) R::show(view, value);
}

#define AST_DEFINE_REGISTER(layout, decode_function, detail_function)                                                  \
    layout::Value decode_function(const ast_bds_t *bds) { return decode<layout>(bds); }                                \
    void detail_function(char *text, uint64_t capacity, const ast_bds_t *bds) {                                        \
        HtmlView view(text, capacity);                                                                                 \
        show<layout>(view, bds);                                                                                       \
    }

bool flag(const uint8_t *mb, unsigned bit) { return field(mb, bit, bit) != 0; }

// A field behind its status bit; 0 without that.
uint32_t field_if(bool status, const uint8_t *mb, unsigned first, unsigned last) {
    return status ? field(mb, first, last) : 0;
}

// Sign and magnitude, not two's complement.
double with_sign(bool is_negative, double magnitude) { return is_negative ? -magnitude : magnitude; }

} // namespace

// ---- The register as an item ----

ast_bds_t ast_bds_decode(const uint8_t *data, uint64_t available, uint32_t bds) {
    return {.data = data, .size = kRegisterOctets, .bds = bds, .valid = data && available >= kRegisterOctets};
}

// ---- BDS 0,5 Extended squitter airborne position ----

namespace {

struct Bds05 : Register<0x05, ast_bds_05_t> {
    static bool read(Value &position, const uint8_t *mb) {
        constexpr int32_t kFineLsbFt = 25;
        constexpr int32_t kCoarseLsbFt = 100; // taken as a plain number, although such replies are Gillham-coded
        constexpr int32_t kLowestFt = -1000;
        position.format_type_code = field(mb, 1, 5);
        const uint32_t code = position.format_type_code;
        const bool is_barometric = code >= 9 && code <= 18;
        position.gnss_height = code >= 20 && code <= 22;
        if (!is_barometric && !position.gnss_height) return false;
        position.surveillance_status = field(mb, 6, 7);
        position.single_antenna = flag(mb, 8);
        const auto steps = static_cast<int32_t>(field(mb, 9, 15) << 4 | field(mb, 17, 20)); // around the Q bit
        position.altitude_ft = steps * (flag(mb, 16) ? kFineLsbFt : kCoarseLsbFt) + kLowestFt;
        position.time = flag(mb, 21);
        position.cpr_odd = flag(mb, 22);
        position.cpr_latitude = field(mb, 23, 39);
        position.cpr_longitude = field(mb, 40, 56);
        return true;
    }

    static void show(ViewWriter &view, const Value &position) {
        DetailTable table(view, "Item", "Value");
        table.row("Format Type Code", Cell<12>("%u", position.format_type_code));
        table.row("Surveillance Status", Cell<12>("%u", position.surveillance_status));
        table.row("NIC Supplement-B", Cell<12>("%d", position.single_antenna));
        table.row("Altitude Source", position.gnss_height ? "GNSS" : "BARO");
        table.row("Altitude", Cell<12>("%d", position.altitude_ft));
        table.row("Time", Cell<12>("%d", position.time));
        table.row("CPR Format", position.cpr_odd ? "ODD" : "EVEN");
        table.row("CPR Encoded Latitude", Cell<12>("%u", position.cpr_latitude));
        table.row("CPR Encoded Longitude", Cell<12>("%u", position.cpr_longitude));
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds05, ast_bds_05_decode, ast_bds_05_get_detail_html)

// ---- BDS 0,8 Extended squitter aircraft identification and category ----

namespace {

constexpr uint64_t kCallsignOctet = 1; // from the second octet on

void write_characters(DetailTable &table, const char (&callsign)[kIdentityChars + 1]) {
    write_identity_rows(
        callsign, [&](unsigned, std::string_view name, std::string_view character) { table.row(name, character); });
}

struct Bds08 : Register<0x08, ast_bds_08_t> {
    static bool read(Value &identity, const uint8_t *mb) {
        identity.format_type_code = field(mb, 1, 5);
        identity.emitter_category = field(mb, 7, 8); // two of its three bits
        read_identity(identity.callsign, mb + kCallsignOctet);
        return true;
    }

    static void show(ViewWriter &view, const Value &identity) {
        // The category set is a letter, by the format type code.
        static constexpr const char *kSets[] = {"-", "D", "C", "B", "A"};
        DetailTable table(view, "Item", "Value");
        table.row("Format Type Code", Cell<12>("%u", identity.format_type_code));
        table.row("Emitter Category Set", text_of(kSets, identity.format_type_code, "-"));
        table.row("Emitter Category", Cell<12>("%u", identity.emitter_category));
        write_characters(table, identity.callsign);
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds08, ast_bds_08_decode, ast_bds_08_get_detail_html)

// ---- BDS 0,9 Extended squitter airborne velocity ----

namespace {

constexpr uint32_t kVelocityTypeCode = 19;

void read_ground_velocity(ast_bds_09_t &velocity, const uint8_t *mb) {
    constexpr uint32_t kSubsonic = 1;
    constexpr uint32_t kSupersonic = 2;
    if (velocity.subtype != kSubsonic && velocity.subtype != kSupersonic) return;
    const uint32_t lsb_kt = velocity.subtype == kSupersonic ? 4 : 1;
    const uint32_t east_west = field(mb, 15, 24);
    const uint32_t north_south = field(mb, 26, 35);
    velocity.west = flag(mb, 14);
    velocity.south = flag(mb, 25);
    velocity.velocity_valid = east_west != 0 && north_south != 0;
    if (!velocity.velocity_valid) return;
    velocity.east_west_velocity_kt = (east_west - 1) * lsb_kt;
    velocity.north_south_velocity_kt = (north_south - 1) * lsb_kt;
}

struct Bds09 : Register<0x09, ast_bds_09_t> {
    static bool read(Value &velocity, const uint8_t *mb) {
        constexpr uint32_t kVerticalRateLsbFtMin = 64;
        constexpr uint32_t kHeightDifferenceLsbFt = 25;
        constexpr uint32_t kLastSubtype = 4;
        velocity.format_type_code = field(mb, 1, 5);
        velocity.subtype = field(mb, 6, 8);
        if (velocity.format_type_code != kVelocityTypeCode || velocity.subtype == 0 || velocity.subtype > kLastSubtype)
            return false;
        velocity.intent_change = flag(mb, 9);
        velocity.nacv = field(mb, 11, 13);
        read_ground_velocity(velocity, mb);
        velocity.vertical_rate_barometric = flag(mb, 36);
        velocity.vertical_rate_down = flag(mb, 37);
        const uint32_t rate = field(mb, 38, 46);
        velocity.vertical_rate_valid = rate != 0;
        if (rate != 0) velocity.vertical_rate_ft_min = (rate - 1) * kVerticalRateLsbFtMin;
        velocity.height_difference_below = flag(mb, 49);
        const uint32_t difference = field(mb, 50, 56);
        velocity.height_difference_valid = difference != 0;
        if (difference != 0) velocity.height_difference_ft = (difference - 1) * kHeightDifferenceLsbFt;
        return true;
    }

    static void show(ViewWriter &view, const Value &velocity) {
        DetailTable table(view, "Item", "Value");
        table.row("Format Type Code", Cell<12>("%u", velocity.format_type_code));
        table.row("Subtype", Cell<12>("%u", velocity.subtype));
        table.row("Intent Change Flag", yes_or_no(velocity.intent_change));
        table.row("NACv", Cell<12>("%u", velocity.nacv));
        table.row("Ground Speed Valid", yes_or_no(velocity.velocity_valid));
        table.row("Ground Speed Direction E-W",
                  Cell<20>("%s %u", velocity.west ? "WEST" : "EAST", velocity.east_west_velocity_kt));
        table.row("Ground Speed N-S",
                  Cell<20>("%s %u", velocity.south ? "SOUTH" : "NORTH", velocity.north_south_velocity_kt));
        table.row("Vertical Rate Source", velocity.vertical_rate_barometric ? "BARO" : "GEOMETRIC");
        table.row("Vertical Rate Sign", velocity.vertical_rate_down ? "DOWN" : "UP");
        table.row("Vertical Rate Valid", yes_or_no(velocity.vertical_rate_valid));
        table.row("Vertical Rate", Cell<12>("%u", velocity.vertical_rate_ft_min));
        table.row("Geometric Height Difference Sign", velocity.height_difference_below ? "BELOW_BARO" : "ABOVE_BARO");
        table.row("Geometric Height Difference Valid", yes_or_no(velocity.height_difference_valid));
        table.row("Geometric Height Difference", Cell<12>("%u", velocity.height_difference_ft));
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds09, ast_bds_09_decode, ast_bds_09_get_detail_html)

// ---- BDS 1,0 Data link capability report ----

namespace {

// Texts are known with their spellings and stray brackets.
constexpr const char *kSubnetworkVersions[] = {
    "NOT AVALIABLE",
    "ICAO(ANNEX10 1996)",
    "ICAO(ANNEX10 1998)",
    "ICAO(ANNEX10 2002)",
    "ICAO(ANNEX10 2007, DOC9871 ED1) RTCA(DO-181D) EUROCAE(ED-73C)",
};

constexpr const char *kUplinkThroughputs[] = {
    "NO UELM CAPABILITY",           "16 UELM SEGMENTS IN 1 SEC)",   "16 UELM SEGMENTS IN 500 MSEC",
    "16 UELM SEGMENTS IN 250 MSEC", "16 UELM SEGMENTS IN 125 MSEC", "16 UELM SEGMENTS IN 60 MSEC",
    "16 UELM SEGMENTS IN 30 MSEC",
};

constexpr const char *kDownlinkThroughputs[] = {
    "NO DELM CAPABILITY",           "4 DELM SEGMENTS IN 1 SEC)",    "8 DELM SEGMENTS IN 1 SEC",
    "16 DELM SEGMENTS IN 1 SEC",    "16 DELM SEGMENTS IN 500 MSEC", "16 DELM SEGMENTS IN 250 MSEC",
    "16 DELM SEGMENTS IN 125 MSEC",
};

constexpr char kUnassigned[] = "UNASSIGNED";

struct Bds10 : Register<0x10, ast_bds_10_t> {
    static constexpr Columns kColumns = {nullptr, nullptr, "Item", "Value", Columns::Count::Bits, 0};
    static constexpr Row<Value> kRows[] = {
        spare(8),
        {&Value::continuation, "Continuation Flag", {"NO", "YES"}},
        spare(6),
        {&Value::overlay_tcas, "TCAS Interface Operational", {"NO", "YES"}},
        {&Value::subnetwork_version, 7, "Mode-S Subnetwork Version Number", {kSubnetworkVersions, kUnassigned}},
        {&Value::enhanced_protocol, "Transponder Enhanced Protocol Indicator", {"LEVEL 2-4", "LEVEL 5"}},
        {&Value::specific_services, "Mode-S Specific Services Capability", {"NO", "YES"}},
        {&Value::uplink_elm, 3, "Uplink ELM Average Throughput Capability", {kUplinkThroughputs, kUnassigned}},
        {&Value::downlink_elm, 4, "Downlink ELM Throughput Capability", {kDownlinkThroughputs, kUnassigned}},
        {&Value::aircraft_identification, "Aircraft Identification Capability", {"NO", "YES"}},
        {&Value::squitter, "Squitter Capability Subfield (SCS)", {"NO", "YES"}},
        {&Value::surveillance_identifier, "Surveillance Identifier Code (SIC)", {"NO", "YES"}},
        {&Value::common_usage_gicb, "Common Usage GICB Capability", {"NO", "YES"}},
        spare(20),
    };

    static bool read(Value &capability, const uint8_t *mb) { return read_rows<Bds10>(capability, mb), true; }
    static void show(ViewWriter &view, const Value &capability) {
        DetailTable table = table_of_rows<Bds10>(view);
        show_rows<Bds10>(table, capability);
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds10, ast_bds_10_decode, ast_bds_10_get_detail_html)

// ---- BDS 2,0 Aircraft identification ----

namespace {

struct Bds20 : Register<0x20, ast_bds_20_t> {
    static bool read(Value &identity, const uint8_t *mb) {
        constexpr uint8_t kOwnNumber = 0x20; // the register repeats its number in its first octet
        if (mb[0] != kOwnNumber) return false;
        read_identity(identity.callsign, mb + kCallsignOctet);
        return true;
    }

    static void show(ViewWriter &view, const Value &identity) {
        DetailTable table(view, "Item", "Value");
        write_characters(table, identity.callsign);
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds20, ast_bds_20_decode, ast_bds_20_get_detail_html)

// ---- BDS 3,0 ACAS active resolution advisory ----

namespace {

struct Bds30 : Register<0x30, ast_bds_30_t> {
    static bool read(Value &advisory, const uint8_t *mb) {
        constexpr uint8_t kByAddress = 1;
        constexpr uint8_t kByPosition = 2;
        advisory.ara_present = field(mb, 9, 22) != 0;
        advisory.rac_present = field(mb, 23, 26) != 0;
        advisory.ra_terminated = flag(mb, 27);
        advisory.multiple_threat = flag(mb, 28);
        const uint32_t threat_type = field(mb, 29, 30);
        if (threat_type == kByAddress) {
            advisory.threat_type = kByAddress;
            write_u24(advisory.threat_address, field(mb, 31, 54));
        } else if (threat_type == kByPosition) {
            advisory.threat_type = kByPosition; // its range, altitude and bearing are not read
        }
        return true;
    }

    static void show(ViewWriter &view, const Value &advisory) {
        DetailTable table(view, "Item", "Value");
        table.row("Active Resolution Advisories (ARA)", yes_or_no(advisory.ara_present));
        table.row("Resolution Advisory Complements (RAC)", yes_or_no(advisory.rac_present));
        table.row("Resolution Advisory Terminated Indicator (RAT)", yes_or_no(advisory.ra_terminated));
        table.row("Multiple Threat Encounter (MTE)", yes_or_no(advisory.multiple_threat));
        table.row("Threat Type Indicator (TTI)", Cell<12>("%u", unsigned{advisory.threat_type}));
        const uint8_t *const address = advisory.threat_address;
        table.row("Threat Mode-S Address", Cell<12>("%.2X%.2X%.2X", address[0], address[1], address[2]));
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds30, ast_bds_30_decode, ast_bds_30_get_detail_html)

// ---- BDS 4,0 Selected vertical intention ----

namespace {

struct Bds40 : Register<0x40, ast_bds_40_t> {
    static bool read(Value &intention, const uint8_t *mb) {
        constexpr uint32_t kAltitudeLsbFt = 16;
        constexpr double kPressureLsbMb = 0.1;
        constexpr double kPressureBaseMb = 800;
        intention.mcp_fcu_status = flag(mb, 1);
        intention.mcp_fcu_altitude_ft = field_if(intention.mcp_fcu_status, mb, 2, 13) * kAltitudeLsbFt;
        intention.fms_status = flag(mb, 14);
        intention.fms_altitude_ft = field_if(intention.fms_status, mb, 15, 26) * kAltitudeLsbFt;
        intention.barometric_status = flag(mb, 27);
        if (intention.barometric_status)
            intention.barometric_setting_mb = field(mb, 28, 39) * kPressureLsbMb + kPressureBaseMb;
        intention.mode_status = flag(mb, 48);
        intention.vnav = field_if(intention.mode_status, mb, 49, 49) != 0;
        intention.altitude_hold = field_if(intention.mode_status, mb, 50, 50) != 0;
        intention.approach = field_if(intention.mode_status, mb, 51, 51) != 0;
        intention.target_source_status = flag(mb, 54);
        intention.target_source = field_if(intention.target_source_status, mb, 55, 56);
        return true;
    }

    static void show(ViewWriter &view, const Value &intention) {
        DetailTable table(view, "Item", "Value", "Status");
        const auto row = [&](const char *name, std::string_view value, bool status) {
            table.row(name, value, status ? "valid" : "invalid");
        };
        row("MCP/FCU Selected Altitude", Cell<16>("%u FT", intention.mcp_fcu_altitude_ft), intention.mcp_fcu_status);
        row("FMS Selected Altitude", Cell<16>("%u FT", intention.fms_altitude_ft), intention.fms_status);
        row("Barometric Pressure Setting", Cell<16>("%.1f MB", intention.barometric_setting_mb),
            intention.barometric_status);
        row("Target Altitude Source", ast_selected_altitude_source_to_str(intention.target_source, AST_STYLE_LONG),
            intention.target_source_status);
        row("Vnav Mode", yes_or_no(intention.vnav), intention.mode_status);
        row("Alt Hold Mode", yes_or_no(intention.altitude_hold), intention.mode_status);
        row("Approach Mode", yes_or_no(intention.approach), intention.mode_status);
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds40, ast_bds_40_decode, ast_bds_40_get_detail_html)

// ---- BDS 5,0 Track and turn report ----

namespace {

constexpr double kAngleLsbDeg = 90.0 / 512;
constexpr uint32_t kSpeedLsbKt = 2;

struct Bds50 : Register<0x50, ast_bds_50_t> {
    static bool read(Value &turn, const uint8_t *mb) {
        constexpr double kRollLsbDeg = 45.0 / 256;
        constexpr double kTurnLsbDegPerS = 8.0 / 256;
        turn.roll_status = flag(mb, 1);
        turn.roll_sign = field_if(turn.roll_status, mb, 2, 2) != 0;
        turn.roll_angle_deg = with_sign(turn.roll_sign, field_if(turn.roll_status, mb, 3, 11) * kRollLsbDeg);
        turn.track_status = flag(mb, 12);
        turn.track_sign = field_if(turn.track_status, mb, 13, 13) != 0;
        turn.true_track_deg = field_if(turn.track_status, mb, 14, 23) * kAngleLsbDeg;
        if (turn.track_sign) turn.true_track_deg = kFullCircleDeg - turn.true_track_deg;
        turn.ground_speed_status = flag(mb, 24);
        turn.ground_speed_kt = field_if(turn.ground_speed_status, mb, 25, 34) * kSpeedLsbKt;
        turn.track_rate_status = flag(mb, 35);
        turn.track_rate_deg_s = with_sign(turn.track_rate_status && flag(mb, 36),
                                          field_if(turn.track_rate_status, mb, 37, 45) * kTurnLsbDegPerS);
        turn.airspeed_status = flag(mb, 46);
        turn.true_airspeed_kt = field_if(turn.airspeed_status, mb, 47, 56) * kSpeedLsbKt;
        return true;
    }

    static void show(ViewWriter &view, const Value &turn) {
        DetailTable table(view, "Item", "Value");
        table.row("Roll Angle", Cell<24>("%.2f DEG", turn.roll_angle_deg));
        table.row("True Track Angle", Cell<24>("%.2f DEG", turn.true_track_deg));
        table.row("Ground Speed", Cell<24>("%.2f KNOT", turn.ground_speed_kt));
        table.row("Track Angle Rate", Cell<24>("%.2f DEG/SEC", turn.track_rate_deg_s));
        table.row("True Airspeed", Cell<24>("%u KNOTS", turn.true_airspeed_kt));
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds50, ast_bds_50_decode, ast_bds_50_get_detail_html)

// ---- BDS 6,0 Heading and speed report ----

namespace {

struct Bds60 : Register<0x60, ast_bds_60_t> {
    static bool read(Value &speed, const uint8_t *mb) {
        constexpr double kMachLsb = 2.048 / 512;
        constexpr double kRateLsbFtMin = 32;
        speed.heading_status = flag(mb, 1);
        speed.heading_sign = field_if(speed.heading_status, mb, 2, 2) != 0;
        speed.magnetic_heading_deg = field_if(speed.heading_status, mb, 3, 12) * kAngleLsbDeg;
        if (speed.heading_sign) speed.magnetic_heading_deg += kHalfCircleDeg;
        speed.ias_status = flag(mb, 13);
        speed.indicated_airspeed_kt = field_if(speed.ias_status, mb, 14, 23);
        speed.mach_status = flag(mb, 24);
        speed.mach = field_if(speed.mach_status, mb, 25, 34) * kMachLsb;
        speed.altitude_rate_status = flag(mb, 35);
        speed.barometric_altitude_rate_ft_min =
            with_sign(speed.altitude_rate_status && flag(mb, 36),
                      field_if(speed.altitude_rate_status, mb, 37, 45) * kRateLsbFtMin);
        speed.vertical_velocity_status = flag(mb, 46);
        speed.inertial_vertical_velocity_ft_min =
            with_sign(speed.vertical_velocity_status && flag(mb, 47),
                      field_if(speed.vertical_velocity_status, mb, 48, 56) * kRateLsbFtMin);
        return true;
    }

    static void show(ViewWriter &view, const Value &speed) {
        DetailTable table(view, "Item", "Value");
        table.row("Magnetic Heading", Cell<24>("%.2f DEG", speed.magnetic_heading_deg));
        table.row("Indicated Airspeed", Cell<24>("%.u KNOT", speed.indicated_airspeed_kt)); // 0 leaves the digits out
        table.row("Mach", Cell<24>("%.2f MACH", speed.mach));
        table.row("Barometric Altitude Rate", Cell<24>("%.2f FEET/MIN", speed.barometric_altitude_rate_ft_min));
        table.row("Intertial Vertical Velocity", Cell<24>("%.2f FEET/MIN", speed.inertial_vertical_velocity_ft_min));
    }
};

} // namespace

AST_DEFINE_REGISTER(Bds60, ast_bds_60_decode, ast_bds_60_get_detail_html)

// ---- All registers ----

namespace {

struct RegisterRow {
    uint32_t bds;
    const char *name;
    ast_bds_detail_html_t *detail = nullptr; // null: known by name only
    void (*show)(ViewWriter &view, const ast_bds_t *bds) = nullptr;
};

constexpr RegisterRow kRegisters[] = {
    {0x05, "Extended Squitter Airborne Position", ast_bds_05_get_detail_html, show<Bds05>},
    {0x06, "Extended Squitter Surface Position"},
    {0x07, "Extended Squitter Status"},
    {0x08, "Extended Squitter Aircraft Identification and Category", ast_bds_08_get_detail_html, show<Bds08>},
    {0x09, "Extended Squitter Airborne Velocity", ast_bds_09_get_detail_html, show<Bds09>},
    {0x0A, "Extended Squitter Event-Driven Information"},
    {0x10, "Data Link Capability Report", ast_bds_10_get_detail_html, show<Bds10>},
    {0x17, "Common Usage GICB Capability Report"},
    {0x20, "Aircraft Identification", ast_bds_20_get_detail_html, show<Bds20>},
    {0x30, "TCAS/ACAS Active Resolution Advisory", ast_bds_30_get_detail_html, show<Bds30>},
    {0x40, "Selected Vertical Intention", ast_bds_40_get_detail_html, show<Bds40>},
    {0x50, "Track and Turn Report", ast_bds_50_get_detail_html, show<Bds50>},
    {0x60, "Heading and Speed Report", ast_bds_60_get_detail_html, show<Bds60>},
    {0x61, "Extended Squitter Aircraft Status"},
    {0x62, "Target State and Status"},
    {0x65, "Extended Squitter Aircraft Operational Status"},
    {0xE1, "Reserved for Mode S BITE"},
};

const RegisterRow *find_register(uint32_t bds) {
    for (const RegisterRow &row : kRegisters)
        if (row.bds == bds) return &row;
    return nullptr;
}

// The row of one that has a view. Others are reported.
const RegisterRow *find_shown(uint32_t bds) {
    const RegisterRow *const row = find_register(bds);
    if (row && row->detail) return row;
    ast_log(AST_LOG_WARNING, "Unsupported BDS %s", ast_bds_type_to_str_simple(bds));
    return nullptr;
}

constexpr uint32_t bds1(uint32_t bds) { return bds >> 4; }
constexpr uint32_t bds2(uint32_t bds) { return bds & 0x0F; }

} // namespace

const char *ast_bds_get_name(uint32_t bds) {
    const RegisterRow *const row = find_register(bds);
    return row ? row->name : "UNKNOWN NAME";
}

const char *ast_bds_type_to_str(uint32_t bds) {
    thread_local char text[10];
    TextWriter(text, sizeof text).print("BDS %X,%X", bds1(bds), bds2(bds));
    return text;
}

const char *ast_bds_type_to_str_simple(uint32_t bds) {
    thread_local char text[10];
    TextWriter(text, sizeof text).print("%X,%X", bds1(bds), bds2(bds));
    return text;
}

ast_bds_detail_html_t *ast_bds_get_func(uint32_t bds) {
    const RegisterRow *const row = find_shown(bds);
    return row ? row->detail : nullptr;
}

void ast::show_register(ViewWriter &view, const ast_bds_t *bds) {
    if (!bds || !bds->valid) return;
    if (const RegisterRow *const row = find_shown(bds->bds)) row->show(view, bds);
}

void ast_bds_get_detail_html(char *text, uint64_t capacity, const ast_bds_t *bds) {
    HtmlView view(text, capacity);
    show_register(view, bds);
}

void ast_bds_get_details(const ast_bds_t *bds, const ast_details_visitor_t *visitor, void *context) {
    if (!visitor) return;
    const WholeVisitor whole(*visitor);
    ViewWriter view(whole.get(), context);
    show_register(view, bds);
}

void ast_bds_get_detail_html_dummy(char *text, uint64_t capacity) { set_text(text, capacity, ""); }
