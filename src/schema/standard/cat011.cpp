// Category 011: Transmission of A-SMGCS Data, edition 1.3.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "1:Target reports, flight plan data and basic alerts|Manual attachment of flight plan to track|"
    "Manual detachment of flight plan to track|Insertion of flight plan data|Suppression of flight plan data|"
    "Modification of flight plan data|Holdbar status");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code Fixed to Zero", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I041 = group("I041", "Position in WGS-84 Coordinates",
    signed_quantity("LAT", "Latitude in WGS-84 in Two's Complement", 32, {180, 1U << 31}, "°"),
    signed_quantity("LON", "Longitude in WGS-84 in Two's Complement", 32, {180, 1U << 31}, "°"));

constexpr auto I042 = group("I042", "Calculated Position in Cartesian Co-ordinates",
    signed_quantity("X", "X-Component", 16, {1, 1}, "m"),
    signed_quantity("Y", "Y-Component", 16, {1, 1}, "m"));

constexpr auto I060 = group("I060", "Mode-3/A Code in Octal Representation",
    spare(4),
    octal("MOD3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I090 = signed_quantity("I090", "Measured Flight Level", 16, {1, 1U << 2}, "FL");

constexpr auto I092 = signed_quantity("I092", "Calculated Track Geometric Altitude", 16, {25, 1U << 2}, "ft");

constexpr auto I093 = group("I093", "Calculated Track Barometric Altitude",
    code("QNH", "QNH Correction Applied", 1, "No QNH Correction Applied|QNH Correction Applied"),
    signed_quantity("CTBA", "Calculated Track Barometric Altitude", 15, {1, 1U << 2}, "FL"));

constexpr auto I140 = quantity("I140", "Time of Track Information", 24, {1, 1U << 7}, "s");

constexpr auto I161 = group("I161", "Track Number",
    spare(1),
    raw("FTN", "Fusion Track Number", 15));

constexpr auto I170 = extended("I170", "Track Status",
    part(code("MON", "", 1, "Multisensor Track|Monosensor Track"),
         code("GBS", "", 1, "Transponder Ground bit not set or unknown|Transponder Ground bit set"),
         code("MRH", "", 1, "Barometric altitude (Mode C) more reliable|Geometric altitude more reliable"),
         code("SRC", "", 3,
             "No source|GPS|3d radar|Triangulation|Height from coverage|Speed look-up table|Default height|"
             "Multilateration"),
         code("CNF", "", 1, "Confirmed track|Tentative track")),
    part(code("SIM", "", 1, "Actual Track|Simulated track"),
         code("TSE", "", 1,
             "Default value|Track service end (i.e. last message transmitted to the user for the track)"),
         code("TSB", "", 1,
             "Default value|Track service begin (i.e. first message transmitted to the user for the track)"),
         code("FRIFOE", "", 2, "No Mode 4 interrogationt|Friendly target|Unknown target|No reply"),
         code("ME", "", 1,
             "Default value|"
             "Military Emergency present in the last report received from a sensor capable of decoding this data"),
         code("MI", "", 1,
             "End of Data Item|"
             "Military Identification present in the last report received from a sensor capable of decoding this "
             "data")),
    part(code("AMA", "", 1,
             "Track not resulting from amalgamation process|Track resulting from amalgamation process"),
         code("SPI", "", 1,
             "Default value|SPI present in the last report received from a sensor capable of decoding this data"),
         code("CST", "", 1,
             "Default value|"
             "Age of the last received track update is higher than system dependent threshold (coasting)"),
         code("FPC", "", 1, "Not flight-plan correlated|Flight plan correlated"),
         code("AFF", "", 1, "Default value|ADS-B data inconsistent with other surveillance information"),
         spare(2)),
    part(spare(1),
         code("PSR", "", 1,
             "Default value|Age of the last received PSR track update is higher than system dependent threshold"),
         code("SSR", "", 1,
             "Default value|Age of the last received SSR track update is higher than system dependent threshold"),
         code("MDS", "", 1,
             "Default value|"
             "Age of the last received Mode S track update is higher than system dependent threshold"),
         code("ADS", "", 1,
             "Default value|Age of the last received ADS track update is higher than system dependent threshold"),
         code("SUC", "", 1,
             "Default value|"
             "Special Used Code (Mode A codes to be defined in the system to mark a track with special interest)"),
         code("AAC", "", 1,
             "Default value|Assigned Mode A Code Conflict (same individual Mode A Code assigned to another track)")));

constexpr auto I202 = group("I202", "Calculated Track Velocity in Cartesian Coordinates",
    signed_quantity("VX", "Vx", 16, {1, 1U << 2}, "m/s"),
    signed_quantity("VY", "Vy", 16, {1, 1U << 2}, "m/s"));

constexpr auto I210 = group("I210", "Calculated Acceleration",
    signed_quantity("AX", "Ax", 8, {1, 1U << 2}, "m/s²"),
    signed_quantity("AY", "Ay", 8, {1, 1U << 2}, "m/s²"));

constexpr auto I215 = signed_quantity("I215", "Calculated Rate Of Climb/Descent", 16, {25, 1U << 2}, "ft/min");

constexpr auto I245 = group("I245", "Target Identification",
    code("STI", "", 2,
        "Callsign or registration downlinked from transponder|Callsign not downlinked from transponder|"
        "Registration not downlinked from transponder"),
    spare(6),
    icao("TID", "Target Identification", 48));

constexpr auto I270 = extended("I270", "Target Size and Orientation",
    part(quantity("LENGTH", "Length", 7, {1, 1}, "m")),
    part(quantity("ORIENTATION", "Orientation", 7, {360, 1U << 7}, "°")),
    part(quantity("WIDTH", "Width", 7, {1, 1}, "m")));

constexpr auto I290 = compound("I290", "System Track Update Ages",
    quantity("PSR", "Age of the Last Primary Report Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("SSR", "Age of the Last Secondary Report Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("MDA", "Age of the Last Valid Mode A Report Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("MFL", "Age of the Last Valid and Credible Mode C Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("MDS", "Age of the Last Mode S Report Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("ADS", "Age of the Last ADS Report Used to Update the Track", 16, {1, 1U << 2}, "s"),
    quantity("ADB", "Age of the Last ADS-B Report Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("MD1", "Age of the Last Valid Mode 1 Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("MD2", "Age of the Last Valid Mode 2 Used to Update the Track", 8, {1, 1U << 2}, "s"),
    quantity("LOP", "Age of the Last Magentic Loop Detection", 8, {1, 1U << 2}, "s"),
    quantity("TRK", "Actual Track Age Since First Occurrence", 8, {1, 1U << 2}, "s"),
    quantity("MUL", "Age of the Last Multilateration Detection", 8, {1, 1U << 2}, "s"));

constexpr auto I300 = code("I300", "Vehicle Fleet Identification", 8,
    "Flyco (follow me)|ATC equipment maintenance|Airport maintenance|Fire|Bird scarer|Snow plough|Runway sweeper|"
    "Emergency|Police|Bus|Tug (push/tow)|Grass cutter|Fuel|Baggage|Catering|Aircraft maintenance|Unknown");

constexpr auto I310 = group("I310", "Pre-programmed Message",
    code("TRB", "In Trouble", 1, "Default|In Trouble"),
    code("MSG", "Message", 7,
        "1:Towing aircraft|FOLLOW-ME operation|Runway check|Emergency operation (fire, medical...)|"
        "Work in progress (maintenance, birds scarer, sweepers...)"));

constexpr auto I380 = compound("I380", "Mode-S / ADS-B Related Data",
    repetitive("MB", "BDS",
        bds("", "", 64)),
    raw("ADR", "24 Bits Aircraft Address", 24),
    none(),
    group("COMACAS", "Communications/ACAS Capability and Flight Status",
        code("COM", "Communications Capability of the Transponder", 3,
            "No communications capability (surveillance only)|Comm. A and Comm. B capability|"
            "Comm. A, Comm. B and Uplink ELM|Comm. A, Comm. B, Uplink ELM and Downlink ELM|"
            "Level 5 Transponder capability|Not assigned|Not assigned|Not assigned"),
        code("STAT", "Flight Status", 4,
            "No alert, no SPI, aircraft airborne|No alert, no SPI, aircraft on ground|"
            "Alert, no SPI, aircraft airborne|Alert, no SPI, aircraft on ground|"
            "Alert, SPI, aircraft airborne or on ground|No alert, SPI, aircraft airborne or on ground|"
            "General Emergency|Lifeguard / medical|Minimum fuel|No communications|Unlawful interference"),
        spare(1),
        code("SSC", "Specific Service Capability", 1, "No|Yes"),
        code("ARC", "Altitude Reporting Capability", 1, "100 ft resolution|25 ft resolution"),
        code("AIC", "Aircraft Identification Capability", 1, "No|Yes"),
        raw("B1A", "BDS 1,0 Bit 16", 1),
        raw("B1B", "BDS 1,0 Bit 37/40", 4),
        code("AC", "ACAS Operational", 1, "No|Yes"),
        code("MN", "Multiple Navigational Aids Operating", 1, "No|Yes"),
        code("DC", "Differential Correction", 1, "Yes|No"),
        spare(5)),
    none(),
    none(),
    none(),
    ascii("ACT", "Aircraft Derived Aircraft Type", 32),
    code("ECAT", "Emitter Category", 8,
        "1:Light aircraft <= 7000 kg|Reserved|7000 kg &lt; medium aircraft &lt; 136000 kg|Reserved|"
        "136000 kg <= heavy aircraft|"
        "Highly manoeuvrable (5g acceleration capability) and high speed (&gt;400 knots cruise)|Reserved|"
        "Reserved|Reserved|Rotocraft|Glider / sailplane|Lighter-than-air|Unmanned aerial vehicle|"
        "Space / transatmospheric vehicle|Ultralight / handglider / paraglider|Parachutist / skydiver|Reserved|"
        "Reserved|Reserved|Surface emergency vehicle|Surface service vehicle|"
        "Fixed ground or tethered obstruction|Reserved|Reserved"),
    none(),
    group("AVTECH", "Available Technologies",
        code("VDL", "VDL Mode 4", 1, "VDL Mode 4 available|VDL Mode 4 not available"),
        code("MDS", "Mode S", 1, "Mode S available|Mode S not available"),
        code("UAT", "UAT", 1, "UAT available|UAT not available"),
        spare(5)));

constexpr auto I390 = compound("I390", "Flight Plan Related Data",
    group("FPPSID", "FPPS Identification Tag",
        raw("SAC", "System Area Code", 8),
        raw("SIC", "System Identity Code", 8)),
    ascii("CSN", "Callsign", 56),
    group("IFPSFLIGHTID", "IFPS_FLIGHT_ID",
        code("TYP", "IFPS Flight ID Type", 2,
            "Plan number|Unit 1 internal flight number|Unit 2 internal flight number|"
            "Unit 3 internal flight number"),
        spare(3),
        raw("NBR", "IFPS Flight ID Number", 27)),
    group("FLIGHTCAT", "Flight Category",
        code("GATOAT", "Flight Type", 2, "Unknown|General Air Traffic|Operational Air Traffic|Not applicable"),
        code("FR1FR2", "Flight Rules", 2,
            "Instrument Flight Rules|Visual Flight Rules|Not applicable|Controlled Visual Flight Rules"),
        code("RVSM", "RVSM", 2, "Unknown|Approved|Exempt|Not Approved"),
        code("HPR", "Flight Priority", 1, "Normal Priority Flight|High Priority Flight"),
        spare(1)),
    ascii("TOA", "Type of Aircraft", 32),
    code("WTC", "Wake Turbulence Category", 8, "76:Light|Medium|72:Heavy|74:Super"),
    ascii("ADEP", "Departure Airport", 32),
    ascii("ADES", "Destination Airport", 32),
    ascii("RWY", "Runway Designation", 24),
    quantity("CFL", "Current Cleared Flight Level", 16, {1, 1U << 2}, "FL"),
    group("CCP", "Current Control Position",
        raw("CENTRE", "8-bit Group Identification Code", 8),
        raw("POSITION", "8-bit Control Position Identification Code", 8)),
    repetitive("TOD", "Time of Departure",
        group("", "",
            code("TYP", "Time Type", 5,
                "Scheduled off-block time|Estimated off-block time|Estimated take-off time|Actual off-block time|"
                "Predicted time at runway hold|Actual time at runway hold|Actual line-up time|"
                "Actual take-off time|Estimated time of arrival|Predicted landing time|Actual landing time|"
                "Actual time off runway|Predicted time to gate|Actual on-block time"),
            code("DAY", "Day", 2, "Today|Yesterday|Tomorrow"),
            spare(4),
            integer("HOR", "Hours, from 0 to 23", 5),
            spare(2),
            integer("MIN", "Minutes, from 0 to 59", 6),
            code("AVS", "Seconds Available", 1, "Seconds available|Seconds not available"),
            spare(1),
            integer("SEC", "Seconds, from 0 to 59", 6))),
    ascii("AST", "Aircraft Stand", 48),
    group("STS", "Stand Status",
        code("EMP", "Stand Empty", 2, "Empty|Occupied|Unknown"),
        code("AVL", "Stand Available", 2, "Available|Not available|Unknown"),
        spare(4)));

constexpr auto I430 = code("I430", "Phase of Flight", 8,
    "Unknown|On stand|Taxiing for departure|Taxiing for arrival|Runway for departure|Runway for arrival|"
    "Hold for departure|Hold for arrival|Push back|On finals");

constexpr auto I500 = compound("I500", "Estimated Accuracies",
    group("APC", "Estimated Accuracy Of Track Position (Cartesian)",
        quantity("X", "Estimated Accuracy of the Calculated Position of X Component", 8, {1, 1U << 2}, "m"),
        quantity("Y", "Estimated Accuracy of the Calculated Position of Y Component", 8, {1, 1U << 2}, "m")),
    group("APW", "Estimated Accuracy Of Track Position (WGS84)",
        signed_quantity("LAT", "APW Latitude Component Accuracy", 16, {180, 1U << 31}, "°"),
        signed_quantity("LON", "APW Longitude Component Accuracy", 16, {180, 1U << 31}, "°")),
    signed_quantity("ATH", "Estimated Accuracy Of Track Height", 16, {1, 2}, "m"),
    group("AVC", "Estimated Accuracy Of Track Velocity (Cartesian)",
        quantity("X", "Estimated Accuracy of the Calculated Velocity of X Component", 8, {1, 10}, "m/s"),
        quantity("Y", "Estimated Accuracy of the Calculated Velocity of Y Component", 8, {1, 10}, "m/s")),
    signed_quantity("ARC", "Estimated Accuracy Of Rate Of Climb / Descent", 16, {1, 10}, "m/s"),
    group("AAC", "Estimated Accuracy Of Acceleration (Cartesian)",
        quantity("X", "Estimated Accuracy Of Acceleration of X Component", 8, {1, 100}, "m/s²"),
        quantity("Y", "Estimated Accuracy Of Acceleration of Y Component", 8, {1, 100}, "m/s²")));

constexpr auto I600 = group("I600", "Alert Messages",
    code("ACK", "Alert Acknowleged", 1, "Alert acknowledged|Alert not acknowledged"),
    code("SVR", "Alert Severity", 2, "End fo alert|Pre-alarm|Severe alert"),
    spare(5),
    raw("AT", "Alert Type", 8),
    raw("AN", "Alert Number", 8));

constexpr auto I605 = repetitive("I605", "Tracks in Alert",
    group("", "",
        spare(4),
        raw("FTN", "Fusion Track Number", 12)));

constexpr auto I610 = repetitive("I610", "Holdbar Status",
    group("", "",
        raw("BKN", "Bank Number", 4),
        code("I1", "Indicator 1", 1, "Indicator on|Indicator off"),
        code("I2", "Indicator 2", 1, "Indicator on|Indicator off"),
        code("I3", "Indicator 3", 1, "Indicator on|Indicator off"),
        code("I4", "Indicator 4", 1, "Indicator on|Indicator off"),
        code("I5", "Indicator 5", 1, "Indicator on|Indicator off"),
        code("I6", "Indicator 6", 1, "Indicator on|Indicator off"),
        code("I7", "Indicator 7", 1, "Indicator on|Indicator off"),
        code("I8", "Indicator 8", 1, "Indicator on|Indicator off"),
        code("I9", "Indicator 9", 1, "Indicator on|Indicator off"),
        code("I10", "Indicator 10", 1, "Indicator on|Indicator off"),
        code("I11", "Indicator 11", 1, "Indicator on|Indicator off"),
        code("I12", "Indicator 12", 1, "Indicator on|Indicator off")));

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(41, I041), item(42, I042), item(60, I060), item(90, I090),
    item(92, I092), item(93, I093), item(140, I140), item(161, I161), item(170, I170), item(202, I202),
    item(210, I210), item(215, I215), item(245, I245), item(270, I270), item(290, I290), item(300, I300),
    item(310, I310), item(380, I380), item(390, I390), item(430, I430), item(500, I500), item(600, I600),
    item(605, I605), item(610, I610), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 15, 140, 41, 42, 202,
    210, 60, 245, 380, 161, 170, 290,
    430, 90, 93, 92, 215, 270, 390,
    300, 310, 500, 600, 605, 610, AST_ITEM_SPF,
    AST_ITEM_REF,
};

// clang-format on

} // namespace

constinit const Edition kCat011 = edition<kItems>(11, "1.3", "Transmission of A-SMGCS Data", profile(kProfile));

} // namespace ast::schema
