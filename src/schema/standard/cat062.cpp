// Category 062: SDPS Track Messages, edition 1.21.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I040 = raw("I040", "Track Number", 16);

constexpr auto I060 = group("I060", "Track Mode 3/A Code",
    code("V", "Validated", 1, "Code validated|Code not validated"),
    code("G", "Garbled", 1, "Default|Garbled code"),
    code("CH", "Change in Mode 3/A", 1, "No change|Mode 3/A has changed"),
    spare(1),
    octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I070 = quantity("I070", "Time Of Track Information", 24, {1, 1U << 7}, "s");

constexpr auto I080 = extended("I080", "Track Status",
    part(code("MON", "", 1, "Multisensor track|Monosensor track"),
         code("SPI", "", 1,
             "Default value|SPI present in the last report received from a sensor capable of decoding this data"),
         code("MRH", "Most Reliable Height", 1,
             "Barometric altitude (Mode C) more reliable|Geometric altitude more reliable"),
         code("SRC", "Source of Calculated Track Altitude for I062/130", 3,
             "No source|GNSS|3D radar|Triangulation|Height from coverage|Speed look-up table|Default height|"
             "Multilateration"),
         code("CNF", "", 1, "Confirmed track|Tentative track")),
    part(code("SIM", "", 1, "Actual track|Simulated track"),
         code("TSE", "", 1, "Default value|Last message transmitted to the user for the track"),
         code("TSB", "", 1, "Default value|First message transmitted to the user for the track"),
         code("FPC", "", 1, "Not flight-plan correlated|Flight plan correlated"),
         code("AFF", "", 1, "Default value|ADS-B data inconsistent with other surveillance information"),
         code("STP", "", 1, "Default value|Slave Track Promotion"),
         code("KOS", "", 1, "Complementary service used|Background service used")),
    part(code("AMA", "", 1,
             "Track not resulting from amalgamation process|Track resulting from amalgamation process"),
         code("MD4", "", 2, "No Mode 4 interrogation|Friendly target|Unknown target|No reply"),
         code("ME", "", 1,
             "Default value|"
             "Military Emergency present in the last report received from a sensor capable of decoding this data"),
         code("MI", "", 1,
             "Default value|"
             "Military Identification present in the last report received from a sensor capable of decoding this "
             "data"),
         code("MD5", "", 2, "No Mode 5 interrogation|Friendly target|Unknown target|No reply")),
    part(code("CST", "", 1,
             "Default value|"
             "Age of the last received track update is higher than system dependent threshold (coasting)"),
         code("PSR", "", 1,
             "Default value|Age of the last received PSR track update is higher than system dependent threshold"),
         code("SSR", "", 1,
             "Default value|Age of the last received SSR track update is higher than system dependent threshold"),
         code("MDS", "", 1,
             "Default value|"
             "Age of the last received Mode S track update is higher than system dependent threshold"),
         code("ADS", "", 1,
             "Default value|Age of the last received ADS-B track update is higher than system dependent threshold"),
         code("SUC", "", 1,
             "Default value|"
             "Special Used Code (Mode A codes to be defined in the system to mark a track with special interest)"),
         code("AAC", "", 1,
             "Default value|Assigned Mode A Code Conflict (same discrete Mode A Code assigned to another track)")),
    part(code("SDS", "", 2, "Combined|Co-operative only|Non-Cooperative only|Not defined"),
         code("EMS", "", 3,
             "No emergency|General emergency|Lifeguard / medical|Minimum fuel|No communications|"
             "Unlawful interference|Downed Aircraft|Undefined"),
         code("PFT", "", 1, "No indication|Potential False Track Indication"),
         code("FPLT", "", 1, "Default value|Track created / updated with FPL data")),
    part(code("DUPT", "", 1, "Default value|Duplicate Mode 3/A Code"),
         code("DUPF", "", 1, "Default value|Duplicate Flight Plan"),
         code("DUPM", "", 1, "Default value|Duplicate Flight Plan due to manual correlation"),
         code("SFC", "", 1, "Default value|Surface target"),
         code("IDD", "", 1, "No indication|Duplicate Flight-ID"),
         code("IEC", "", 1, "Default value|Inconsistent Emergency Code"),
         code("MLAT", "", 1,
             "Default value|Age of the last received MLAT track updateis higher than system dependent threshold")),
    part(code("M5I", "", 1,
             "Default value|"
             "Age of the last received Mode-5 interrogation track update is higher than system dependent "
             "threshold"),
         spare(6)));

constexpr auto I100 = group("I100", "Calculated Track Position (Cartesian)",
    signed_quantity("X", "X Coordinate", 24, {1, 2}, "m"),
    signed_quantity("Y", "Y Coordinate", 24, {1, 2}, "m"));

constexpr auto I105 = group("I105", "Calculated Position In WGS-84 Co-ordinates",
    signed_quantity("LAT", "Latitude", 32, {180, 1U << 25}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 25}, "°"));

constexpr auto I110 = compound("I110", "Mode 5 Data Reports and Extended Mode 1 Code",
    group("SUM", "Mode 5 Summary",
        code("M5", "", 1, "No Mode 5 interrogation|Mode 5 interrogation"),
        code("ID", "", 1, "No authenticated Mode 5 ID reply|Authenticated Mode 5 ID reply"),
        code("DA", "", 1,
            "No authenticated Mode 5 Data reply or Report|"
            "Authenticated Mode 5 Data reply or Report (i.e any valid Mode 5 reply type other than ID)"),
        code("M1", "", 1, "Mode 1 code not present or not from Mode 5 reply|Mode 1 code from Mode 5 reply"),
        code("M2", "", 1, "Mode 2 code not present or not from Mode 5 reply|Mode 2 code from Mode 5 reply"),
        code("M3", "", 1, "Mode 3 code not present or not from Mode 5 reply|Mode 3 code from Mode 5 reply"),
        code("MC", "", 1,
            "Mode C altitude code not present or not from Mode 5 reply|Mode C altitude from Mode 5 reply"),
        code("X", "X-pulse from Mode 5 Data Reply or Report", 1,
            "X-pulse set to zero or no authenticated Data reply or Report received|X-pulse set to one")),
    group("PMN", "Mode 5 PIN/ National Origin/Mission Code",
        spare(2),
        raw("PIN", "PIN Code", 14),
        spare(3),
        raw("NAT", "National Origin", 5),
        spare(2),
        raw("MIS", "Mission Code", 6)),
    group("POS", "Mode 5 Reported Position",
        signed_quantity("LAT", "Latitude", 24, {180, 1U << 23}, "°"),
        signed_quantity("LON", "Longitude", 24, {180, 1U << 23}, "°")),
    group("GA", "Mode 5 GNSS-derived Altitude",
        spare(1),
        code("RES", "Resolution with which the GNSS-derived Altitude (GA) is Reported", 1,
            "GA reported in 100 ft increments|GA reported in 25 ft increments"),
        signed_quantity("GA", "GNSS-derived Altitude of Target, Expressed as Height Above WGS 84 Ellipsoid",
            14, {25, 1}, "ft")),
    group("EM1", "Extended Mode 1 Code in Octal Representation",
        spare(4),
        octal("EM1", "Extended Mode 1 Reply in Octal Representation", 12)),
    signed_quantity("TOS", "Time Offset for POS and GA", 8, {1, 1U << 7}, "s"),
    group("XP", "X Pulse Presence",
        spare(3),
        code("X5", "X-pulse from Mode 5 Data Reply or Report", 1,
            "X-pulse set to zero or no authenticated Data reply or Report received|X-pulse set to one (present)"),
        code("XC", "X-pulse from Mode C Reply", 1,
            "X-pulse set to zero or no Mode C reply|X-pulse set to one (present)"),
        code("X3", "X-pulse from Mode 3/A Reply", 1,
            "X-pulse set to zero or no Mode 3/A reply|X-pulse set to one (present)"),
        code("X2", "X-pulse from Mode 2 Reply", 1,
            "X-pulse set to zero or no Mode 2 reply|X-pulse set to one (present)"),
        code("X1", "X-pulse from Mode 1 Reply", 1,
            "X-pulse set to zero or no Mode 1 reply|X-pulse set to one (present)")));

constexpr auto I120 = group("I120", "Track Mode 2 Code",
    spare(4),
    octal("MODE2", "Mode-2 Code in Octal Representation", 12));

constexpr auto I130 = signed_quantity("I130", "Calculated Track Geometric Altitude", 16, {25, 1U << 2}, "ft");

constexpr auto I135 = group("I135", "Calculated Track Barometric Altitude",
    code("QNH", "", 1, "No QNH correction applied|QNH correction applied"),
    signed_quantity("CTB", "Calculated Track Barometric Altitude", 15, {1, 1U << 2}, "FL"));

constexpr auto I136 = signed_quantity("I136", "Measured Flight Level", 16, {1, 1U << 2}, "FL");

constexpr auto I185 = group("I185", "Calculated Track Velocity (Cartesian)",
    signed_quantity("VX", "Velocity (X-component)", 16, {1, 1U << 2}, "m/s"),
    signed_quantity("VY", "Velocity (Y-component)", 16, {1, 1U << 2}, "m/s"));

constexpr auto I200 = group("I200", "Mode of Movement",
    code("TRANS", "Transversal Acceleration", 2, "Constant course|Right turn|Left turn|Undetermined"),
    code("LONG", "Longitudinal Acceleration", 2,
        "Constant groundspeed|Increasing groundspeed|Decreasing groundspeed|Undetermined"),
    code("VERT", "Vertical Rate", 2, "Level|Climb|Descent|Undetermined"),
    code("ADF", "Altitude Discrepancy Flag", 1, "No altitude discrepancy|Altitude discrepancy"),
    spare(1));

constexpr auto I210 = group("I210", "Calculated Acceleration (Cartesian)",
    signed_quantity("AX", "", 8, {1, 1U << 2}, "m/s²"),
    signed_quantity("AY", "", 8, {1, 1U << 2}, "m/s²"));

constexpr auto I220 = signed_quantity("I220", "Calculated Rate of Climb/Descent", 16, {25, 1U << 2}, "ft/min");

constexpr auto I245 = group("I245", "Target Identification",
    code("STI", "", 2,
        "Callsign or registration downlinked from target|Callsign not downlinked from target|"
        "Registration not downlinked from target|Invalid"),
    spare(6),
    icao("CHR", "Characters 1-8 (Coded on 6 Bits Each) Defining Target Identification", 48));

constexpr auto I270 = extended("I270", "Target Size and Orientation",
    part(quantity("LENGTH", "Length", 7, {1, 1}, "m")),
    part(quantity("ORIENTATION", "Orientation", 7, {360, 1U << 7}, "°")),
    part(quantity("WIDTH", "Width", 7, {1, 1}, "m")));

constexpr auto I290 = compound("I290", "System Track Update Ages",
    quantity("TRK", "Track Age", 8, {1, 1U << 2}, "s"),
    quantity("PSR", "PSR Age", 8, {1, 1U << 2}, "s"),
    quantity("SSR", "SSR Age", 8, {1, 1U << 2}, "s"),
    quantity("MDS", "Mode S Age", 8, {1, 1U << 2}, "s"),
    quantity("ADS", "ADS-C Age", 16, {1, 1U << 2}, "s"),
    quantity("ES", "ADS-B Extended Squitter Age", 8, {1, 1U << 2}, "s"),
    quantity("VDL", "ADS-B VDL Mode 4 Age", 8, {1, 1U << 2}, "s"),
    quantity("UAT", "ADS-B UAT Age", 8, {1, 1U << 2}, "s"),
    quantity("LOP", "Loop Age", 8, {1, 1U << 2}, "s"),
    quantity("MLT", "Multilateration Age", 8, {1, 1U << 2}, "s"));

constexpr auto I295 = compound("I295", "Track Data Ages",
    quantity("MFL", "Measured Flight Level Age", 8, {1, 1U << 2}, "s"),
    quantity("MD1", "Mode 1 Age", 8, {1, 1U << 2}, "s"),
    quantity("MD2", "Mode 2 Age", 8, {1, 1U << 2}, "s"),
    quantity("MDA", "Mode 3/A Age", 8, {1, 1U << 2}, "s"),
    quantity("MD4", "Mode 4 Age", 8, {1, 1U << 2}, "s"),
    quantity("MD5", "Mode 5 Age", 8, {1, 1U << 2}, "s"),
    quantity("MHG", "Magnetic Heading Age", 8, {1, 1U << 2}, "s"),
    quantity("IAS", "Indicated Airspeed / Mach Nb Age", 8, {1, 1U << 2}, "s"),
    quantity("TAS", "True Airspeed Age", 8, {1, 1U << 2}, "s"),
    quantity("SAL", "Selected Altitude Age", 8, {1, 1U << 2}, "s"),
    quantity("FSS", "Final State Selected Altitude Age", 8, {1, 1U << 2}, "s"),
    quantity("TID", "Trajectory Intent Age", 8, {1, 1U << 2}, "s"),
    quantity("COM", "Communication/ACAS Capability and Flight Status Age", 8, {1, 1U << 2}, "s"),
    quantity("SAB", "Status Reported by ADS-B Age", 8, {1, 1U << 2}, "s"),
    quantity("ACS", "ACAS Resolution Advisory Report Age", 8, {1, 1U << 2}, "s"),
    quantity("BVR", "Barometric Vertical Rate Age", 8, {1, 1U << 2}, "s"),
    quantity("GVR", "Geometrical Vertical Rate Age", 8, {1, 1U << 2}, "s"),
    quantity("RAN", "Roll Angle Age", 8, {1, 1U << 2}, "s"),
    quantity("TAR", "Track Angle Rate Age", 8, {1, 1U << 2}, "s"),
    quantity("TAN", "Track Angle Age", 8, {1, 1U << 2}, "s"),
    quantity("GSP", "Ground Speed Age", 8, {1, 1U << 2}, "s"),
    quantity("VUN", "Velocity Uncertainty Age", 8, {1, 1U << 2}, "s"),
    quantity("MET", "Meteorological Data Age", 8, {1, 1U << 2}, "s"),
    quantity("EMC", "Emitter Category Age", 8, {1, 1U << 2}, "s"),
    quantity("POS", "Position Age", 8, {1, 1U << 2}, "s"),
    quantity("GAL", "Geometric Altitude Age", 8, {1, 1U << 2}, "s"),
    quantity("PUN", "Position Uncertainty Age", 8, {1, 1U << 2}, "s"),
    quantity("MB", "BDS Register Data Age", 8, {1, 1U << 2}, "s"),
    quantity("IAR", "Indicated Airspeed Data Age", 8, {1, 1U << 2}, "s"),
    quantity("MAC", "Mach Number Data Age", 8, {1, 1U << 2}, "s"),
    quantity("BPS", "Barometric Pressure Setting Data Age", 8, {1, 1U << 2}, "s"));

constexpr auto I300 = code("I300", "Vehicle Fleet Identification", 8,
    "Unknown|ATC equipment maintenance|Airport maintenance|Fire|Bird scarer|Snow plough|Runway sweeper|Emergency|"
    "Police|Bus|Tug (push/tow)|Grass cutter|Fuel|Baggage|Catering|Aircraft maintenance|Flyco (follow me)");

constexpr auto I340 = compound("I340", "Measured Information",
    group("SID", "Sensor Identification",
        raw("SAC", "System Area Code", 8),
        raw("SIC", "System Identification Code", 8)),
    group("POS", "Measured Position",
        quantity("RHO", "Measured Distance", 16, {1, 1U << 8}, "NM"),
        quantity("THETA", "Measured Azimuth", 16, {360, 1U << 16}, "°")),
    signed_quantity("HEIGHT", "Measured 3-D Height", 16, {25, 1}, "ft"),
    group("MDC", "",
        code("V", "Validated", 1, "Code validated|Code not validated"),
        code("G", "Garbled", 1, "Default|Garbled code"),
        signed_quantity("LMC", "Last Measured Mode C Code", 14, {1, 1U << 2}, "FL")),
    group("MDA", "",
        code("V", "Validated", 1, "Code validated|Code not validated"),
        code("G", "Garbled", 1, "Default|Garbled code"),
        code("L", "", 1,
            "Mode 3/A code as derived from the reply of the transponder|"
            "Mode 3/A code as provided by a sensor local tracker"),
        spare(1),
        octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12)),
    group("TYP", "",
        code("TYP", "Report Type", 3,
            "No detection|Single PSR detection|Single SSR detection|SSR + PSR detection|Single ModeS All-Call|"
            "Single ModeS Roll-Call|ModeS All-Call + PSR|ModeS Roll-Call + PSR"),
        code("SIM", "", 1, "Actual target report|Simulated target report"),
        code("RAB", "", 1, "Report from target transponder|Report from field monitor (item transponder)"),
        code("TST", "", 1, "Real target report|Test target report"),
        spare(2)));

constexpr auto I380 = compound("I380", "Aircraft Derived Data",
    raw("ADR", "Target Address", 24),
    icao("ID", "Target Identification", 48),
    quantity("MHG", "Magnetic Heading", 16, {360, 1U << 16}, "°"),
    group("IAS", "Indicated Airspeed/Mach No",
        code("IM", "", 1, "Air Speed = IAS, LSB (Bit-1) = 2^-14 NM/s|Air Speed = Mach, LSB (Bit-1) = 0.001"),
        either("IAS", "", 15,
            when(0, quantity("IAS", "", 15, {1, 1U << 14}, "NM/s")),
            when(1, quantity("IAS", "", 15, {1, 1000}, "Mach")))),
    quantity("TAS", "True Airspeed", 16, {1, 1}, "kt"),
    group("SAL", "Selected Altitude",
        code("SAS", "", 1, "No source information provided|Source information provided"),
        code("SRC", "", 2, "Unknown|Aircraft altitude|FCU/MCP selected altitude|FMS selected altitude"),
        signed_quantity("ALT", "Altitude in Two's Complement Form", 13, {25, 1}, "ft")),
    group("FSS", "Final State Selected Altitude",
        code("MV", "Manage Vertical Mode", 1, "Not active|Active"),
        code("AH", "Altitude Hold", 1, "Not active|Active"),
        code("AM", "Approach Mode", 1, "Not active|Active"),
        signed_quantity("ALT", "Altitude in Two's Complement Form", 13, {25, 1}, "ft")),
    extended("TIS", "Trajectory Intent Status",
        part(code("NAV", "TID Available", 1,
                 "Trajectory intent data is available for this aircraft|"
                 "Trajectory intent data is not available for this aircraft"),
             code("NVB", "TID Valid", 1, "Trajectory intent data is valid|Trajectory intent data is not valid"),
             spare(5))),
    repetitive("TID", "Trajectory Intent Data",
        group("", "",
            code("TCA", "TCP Number Availability", 1, "TCP number available|TCP number not available"),
            code("NC", "TCP Compliance", 1, "TCP compliance|TCP non-compliance"),
            raw("TCPN", "Trajectory Change Point Number", 6),
            signed_quantity("ALT", "Altitude in Two's Complement Form", 16, {10, 1}, "ft"),
            signed_quantity("LAT", "Latitude in WGS.84 in Two's Complement", 24, {180, 1U << 23}, "°"),
            signed_quantity("LON", "Longitude in WGS.84 in Two's Complement", 24, {180, 1U << 23}, "°"),
            code("PT", "Point Type", 4,
                "Unknown|Fly by waypoint (LT)|Fly over waypoint (LT)|Hold pattern (LT)|Procedure hold (LT)|"
                "Procedure turn (LT)|RF leg (LT)|Top of climb (VT)|Top of descent (VT)|Start of level (VT)|"
                "Cross-over altitude (VT)|Transition altitude (VT)"),
            code("TD", "Turn Direction", 2, "N/A|Turn right|Turn left|No turn"),
            code("TRA", "Turn Radius Availability", 1, "TTR not available|TTR available"),
            code("TOA", "TOV Available", 1, "TOV available|TOV not available"),
            quantity("TOV", "Time Over Point", 24, {1, 1}, "s"),
            quantity("TTR", "TCP Turn Radius", 16, {1, 100}, "NM"))),
    group("COM", "Communications/ACAS Capability and Flight Status",
        code("COM", "Communications Capability of the Transponder", 3,
            "No communications capability (surveillance only)|Comm. A and Comm. B capability|"
            "Comm. A, Comm. B and Uplink ELM|Comm. A, Comm. B, Uplink ELM and Downlink ELM|"
            "Level 5 Transponder capability|Not assigned|Not assigned|Not assigned"),
        code("STAT", "Flight Status", 3,
            "No alert, no SPI, aircraft airborne|No alert, no SPI, aircraft on ground|"
            "Alert, no SPI, aircraft airborne|Alert, no SPI, aircraft on ground|"
            "Alert, SPI, aircraft airborne or on ground|No alert, SPI, aircraft airborne or on ground|"
            "Not defined|Unknown or not yet extracted"),
        spare(2),
        code("SSC", "Specific Service Capability", 1, "No|Yes"),
        code("ARC", "Altitude Reporting Capability", 1, "100 ft resolution|25 ft resolution"),
        code("AIC", "Aircraft Identification Capability", 1, "No|Yes"),
        raw("B1A", "BDS 1,0 Bit 16", 1),
        raw("B1B", "BDS BDS 1,0 Bits 37/40", 4)),
    group("SAB", "Status Reported by ADS-B",
        code("AC", "ACAS Status", 2, "Unknown|ACAS not operational|ACAS operational|Invalid"),
        code("MN", "Multiple Navigational Aids Status", 2,
            "Unknown|Multiple navigational aids not operating|Multiple navigational aids operating|Invalid"),
        code("DC", "Differential Correction Status", 2,
            "Unknown|Differential correction|No differential correction|Invalid"),
        code("GBS", "Ground Bit Set", 1, "Transponder ground bit not set or unknown|Transponder Ground Bit set"),
        spare(6),
        code("STAT", "Flight Status", 3,
            "No emergency|General emergency|Lifeguard / medical|Minimum fuel|No communications|"
            "Unlawful interference|Downed Aircraft|Unknown")),
    bds("ACS", "ACAS Resolution Advisory Report", 56, 0x30),
    signed_quantity("BVR", "Barometric Vertical Rate", 16, {25, 1U << 2}, "ft/min"),
    signed_quantity("GVR", "Geometric Vertical Rate", 16, {25, 1U << 2}, "ft/min"),
    signed_quantity("RAN", "Roll Angle", 16, {1, 100}, "°"),
    group("TAR", "Track Angle Rate",
        code("TI", "Turn Indicator", 2, "Not available|Left|Right|Straight"),
        spare(6),
        signed_quantity("ROT", "Rate of Turn in Two's Complement Form", 7, {1, 1U << 2}, "°/s"),
        spare(1)),
    quantity("TAN", "Track Angle", 16, {360, 1U << 16}, "°"),
    signed_quantity("GS", "Ground Speed", 16, {1, 1U << 14}, "NM/s"),
    raw("VUN", "Velocity Uncertainty", 8),
    group("MET", "Meteorological Data",
        code("WS", "Wind Speed Valid Flag", 1, "Not valid Wind Speed|Valid Wind Speed"),
        code("WD", "Wind Direction Valid Flag", 1, "Not valid Wind Direction|Valid Wind Direction"),
        code("TMP", "Temperature Valid Flag", 1, "Not valid Temperature|Valid Temperature"),
        code("TRB", "Turbulence Valid Flag", 1, "Not valid Turbulence|Valid Turbulence"),
        spare(4),
        quantity("WSD", "Wind Speed", 16, {1, 1}, "kt"),
        quantity("WDD", "Wind Direction", 16, {1, 1}, "°"),
        signed_quantity("TMPD", "Temperature in Degrees Celsius", 16, {1, 1U << 2}, "°C"),
        integer("TRBD", "Turbulence", 8)),
    code("EMC", "Emitter Category", 8,
        "1:Light aircraft =< 7000 kg|Reserved|7000 kg < medium aircraft < 136000 kg|Reserved|"
        "136000 kg <= heavy aircraft|"
        "Highly manoeuvrable (5g acceleration capability) and high speed (>400 knots cruise)|Reserved|Reserved|"
        "Reserved|Rotocraft|Glider / sailplane|Lighter-than-air|Unmanned aerial vehicle|"
        "Space / transatmospheric vehicle|Ultralight / handglider / paraglider|Parachutist / skydiver|Reserved|"
        "Reserved|Reserved|Surface emergency vehicle|Surface service vehicle|"
        "Fixed ground or tethered obstruction|Reserved|Reserved"),
    group("POS", "Position",
        signed_quantity("LAT", "Latitude in WGS.84 in Two's Complement Form", 24, {180, 1U << 23}, "°"),
        signed_quantity("LON", "Longitude in WGS.84 in Two's Complement Form", 24, {180, 1U << 23}, "°")),
    signed_quantity("GAL", "Geometric Altitude", 16, {25, 1U << 2}, "ft"),
    group("PUN", "Position Uncertainty",
        spare(4),
        raw("PUN", "Position Uncertainty", 4)),
    repetitive("BDSDATA", "BDS Register DATA",
        bds("", "", 64)),
    quantity("IAR", "Indicated Airspeed", 16, {1, 1}, "kt"),
    quantity("MAC", "Mach Number", 16, {1, 125}, "Mach"),
    group("BPS", "Barometric Pressure Setting",
        spare(4),
        quantity("BPS", "", 12, {1, 10}, "mb")));

constexpr auto I390 = compound("I390", "Flight Plan Related Data",
    group("TAG", "FPPS Identification Tag",
        raw("SAC", "System Area Code", 8),
        raw("SIC", "System Identification Code", 8)),
    ascii("CS", "Callsign", 56),
    group("IFI", "IFPS_FLIGHT_ID",
        code("TYP", "", 2,
            "Plan Number|Unit 1 internal flight number|Unit 2 internal flight number|"
            "Unit 3 internal flight number"),
        spare(3),
        integer("NBR", "Number from 0 to 99 999 999", 27)),
    group("FCT", "Flight Category",
        code("GATOAT", "", 2, "Unknown|General Air Traffic|Operational Air Traffic|Not applicable"),
        code("FR1FR2", "", 2,
            "Instrument Flight Rules|Visual Flight Rules|Not applicable|Controlled Visual Flight Rules"),
        code("RVSM", "", 2, "Unknown|Approved|Exempt|Not Approved"),
        code("HPR", "", 1, "Normal Priority Flight|High Priority Flight"),
        spare(1)),
    ascii("TAC", "Type of Aircraft", 32),
    ascii("WTC", "Wake Turbulence Category", 8),
    ascii("DEP", "Departure Airport", 32),
    ascii("DST", "Destination Airport", 32),
    group("RDS", "Runway Designation",
        ascii("NU1", "First Number", 8),
        ascii("NU2", "Second Number", 8),
        ascii("LTR", "Letter", 8)),
    quantity("CFL", "Current Cleared Flight Level", 16, {1, 1U << 2}, "FL"),
    group("CTL", "Current Control Position",
        raw("CENTRE", "8-bit Group Identification Code", 8),
        raw("POSITION", "8-bit Control Position Identification Code", 8)),
    repetitive("TOD", "Time of Departure / Arrival",
        group("", "",
            code("TYP", "", 5,
                "Scheduled off-block time|Estimated off-block time|Estimated take-off time|Actual off-block time|"
                "Predicted time at runway hold|Actual time at runway hold|Actual line-up time|"
                "Actual take-off time|Estimated time of arrival|Predicted landing time|Actual landing time|"
                "Actual time off runway|Predicted time to gate|Actual on-block time"),
            code("DAY", "", 2, "Today|Yesterday|Tomorrow|Invalid"),
            spare(4),
            integer("HOR", "Hours", 5),
            spare(2),
            integer("MIN", "Minutes", 6),
            code("AVS", "Seconds Available Flag", 1, "Seconds available|Seconds not available"),
            spare(1),
            integer("SEC", "Seconds", 6))),
    ascii("AST", "Aircraft Stand", 48),
    group("STS", "Stand Status",
        code("EMP", "", 2, "Empty|Occupied|Unknown|Invalid"),
        code("AVL", "", 2, "Available|Not available|Unknown|Invalid"),
        spare(4)),
    ascii("STD", "Standard Instrument Departure", 56),
    ascii("STA", "Standard Instrument Arrival", 56),
    group("PEM", "Pre-Emergency Mode 3/A",
        spare(3),
        code("VA", "", 1, "No valid Mode 3/A available|Valid Mode 3/A available"),
        octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12)),
    ascii("PEC", "Pre-Emergency Callsign", 56));

constexpr auto I500 = compound("I500", "Estimated Accuracies",
    group("APC", "Estimated Accuracy Of Track Position (Cartesian)",
        quantity("X", "APC (X-Component)", 16, {1, 2}, "m"),
        quantity("Y", "APC (Y-Component)", 16, {1, 2}, "m")),
    signed_quantity("COV", "XY Covariance Component", 16, {1, 2}, "m"),
    group("APW", "Estimated Accuracy Of Track Position (WGS-84)",
        quantity("LAT", "APW (Latitude Component)", 16, {180, 1U << 25}, "°"),
        quantity("LON", "APW (Longitude Component)", 16, {180, 1U << 25}, "°")),
    quantity("AGA", "Estimated Accuracy Of Calculated Track Geometric Altitude", 8, {25, 1U << 2}, "ft"),
    quantity("ABA", "Estimated Accuracy Of Calculated Track Barometric Altitude", 8, {1, 1U << 2}, "FL"),
    group("ATV", "Estimated Accuracy Of Track Velocity (Cartesian)",
        quantity("X", "ATV (X-Component)", 8, {1, 1U << 2}, "m/s"),
        quantity("Y", "ATV (Y-Component)", 8, {1, 1U << 2}, "m/s")),
    group("AA", "Estimated Accuracy Of Acceleration (Cartesian)",
        quantity("X", "AA (X-Component)", 8, {1, 1U << 2}, "m/s²"),
        quantity("Y", "AA (Y-Component)", 8, {1, 1U << 2}, "m/s²")),
    quantity("ARC", "Estimated Accuracy Of Rate Of Climb/Descent", 8, {25, 1U << 2}, "ft/min"));

constexpr auto I510 = chained("I510", "Composed Track Number",
    group("", "",
        raw("IDENT", "System Unit Identification", 8),
        raw("TRACK", "System Track Number", 15)));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field",
    compound_of(1, "REF", "Reserved Expansion Field",
        repetitive("CST", "Contributing Sensors With Local Tracknumbers",
            group("", "",
                raw("SAC", "System Area Code", 8),
                raw("SIC", "System Identification Code", 8),
                spare(4),
                code("TYP", "", 4,
                    "No detection|Single PSR detection|Single SSR detection|SSR+PSR detection|"
                    "Single Mode S All-Call|Single Mode S Roll-Call|Mode S All-Call + PSR|Mode S Roll-Call + PSR|"
                    "ADS-B|WAM"),
                raw("LTN", "Local Track Number", 16))),
        repetitive("CSN", "Contributing Sensors No Local Tracknumbers",
            group("", "",
                raw("SAC", "System Area Code", 8),
                raw("SIC", "System Identification Code", 8),
                spare(4),
                code("TYP", "", 4,
                    "No detection|Single PSR detection|Single SSR detection|SSR+PSR detection|"
                    "Single Mode S All-Call|Single Mode S Roll-Call|Mode S All-Call + PSR|Mode S Roll-Call + PSR|"
                    "ADS-B|WAM"))),
        group("TVS", "Calculated Track Velocity Relative to System Reference Point",
            signed_quantity("VX", "", 16, {1, 1U << 2}, "m/s"),
            signed_quantity("VY", "", 16, {1, 1U << 2}, "m/s")),
        extended("STS", "Supplementary Track Status",
            part(code("FDR", "Flight Data Retained", 1,
                     "Flight plan data from active FDPS|Flight plan data retained from no longer active FDPS"),
                 group("LNAV", "Lateral Navigation Mode",
                     code("EP", "LNAV Element Populated", 1, "LNAV not populated|LNAV populated"),
                     code("VAL", "LNAV Mode", 1, "LNAV Mode Engaged|LNAV Mode not Engaged")),
                 spare(4))),
        compound("V3", "ADS-B Version 3 Data",
            group("PS3", "Priority Status for Version 3 ADS-B Systems",
                code("EP", "Priority Status for Version 3 ADS-B Systems Populated", 1,
                    "PS3 Element not populated|PS3 Element populated"),
                code("VAL", "Priority Status for Version 3 ADS-B Systems", 3,
                    "No emergency / not reported|General emergency|UAS/RPAS - Lost link|Minimum fuel|"
                    "No communications|Unlawful interference|Aircraft in Distress Automatic Activation|"
                    "Aircraft in Distress Manual Activation"),
                spare(4)),
            group("AS", "Aircraft Status",
                group("RCE", "Reduced Capability Equipment",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 2, "Not RCE|TABS|Reserved for future use|Other RCE")),
                group("RRL", "Reply Rate Limiting",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 1, "Reply Rate Limiting is not active|Reply Rate Limiting is active")),
                group("TPW", "Transmit Power",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 2, "Unavailable, Unknown, or less than 70 W|70 W|125 W|200 W")),
                group("TSI", "Transponder Side Indication",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 2,
                        "Unknown|Transponder #1 (left/pilot side or single)|Transponder #2 (right/co-pilot side)|"
                        "Transponder #3 (auxiliary or Back-up)")),
                group("TAO", "Transponder Antenna Offset",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("RE", "Range Exceeded", 1, "Value in defined range|Value exceeds defined range"),
                    raw("VAL", "Value", 6)),
                spare(5)),
            group("UAS", "UAS/RPAS Status",
                group("MUO", "Manned / Unmanned Operation",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 1, "Manned Operation|Unmanned Operation")),
                group("DAA", "Detect and Avoid Capabilities",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 2,
                        "No RWC Capability|RWC/RA/OCM Capability|RWC/OCM Capability|Invalid ASTERIX Value")),
                group("RWC", "Remain Well Clear",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 1, "RWC Corrective Alert not active|RWC Corrective Alert active")),
                spare(1)),
            group("CASS", "Collision Avoidance System Status",
                group("SVH", "Sense Vertical & Horizontal",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 2,
                        "Vertical Only|Horizontal Only|Blended|Vertical Only or Horizontal Only per intruder")),
                group("CATC", "CAS Type & Capability",
                    code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                    code("VAL", "Value", 3,
                        "Active CAS (TCAS II) or no CAS|Active CAS (not TCAS II)|"
                        "Active CAS (not TCAS II) with OCM transmit capability|Active CAS of Junior Status|"
                        "Passive CAS with 1030 TCAS Resolution Message receive capability|"
                        "Passive CAS with only OCM receive capability|Reserved for future use|"
                        "Reserved for future use")),
                spare(1)))));

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(10, I010), item(15, I015), item(40, I040), item(60, I060), item(70, I070), item(80, I080), item(100, I100),
    item(105, I105), item(110, I110), item(120, I120), item(130, I130), item(135, I135), item(136, I136),
    item(185, I185), item(200, I200), item(210, I210), item(220, I220), item(245, I245), item(270, I270),
    item(290, I290), item(295, I295), item(300, I300), item(340, I340), item(380, I380), item(390, I390),
    item(500, I500), item(510, I510), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, kSpare, 15, 70, 105, 100, 185,
    210, 60, 245, 380, 40, 80, 290,
    200, 295, 136, 130, 135, 220, 390,
    270, 300, 110, 120, 510, 500, 340,
    kSpare, kSpare, kSpare, kSpare, kSpare, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat062 = edition<kItems>(62, "1.21", "SDPS Track Messages", profile(kProfile));

} // namespace ast::schema
