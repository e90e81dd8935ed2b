// Category 032: Miniplan Reports to an SDPS, edition 1.2.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Server Identification Tag",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = integer("I015", "User Number", 16);

constexpr auto I018 = group("I018", "Data Source Identification Tag",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = quantity("I020", "Time of ASTERIX Report Generation", 24, {1, 1U << 7}, "s");

constexpr auto I035 = group("I035", "Type of Message",
    code("FAMILY", "", 4, "Invalid ASTERIX value|Information sent by an FPPS|SUC information sent by an FDPS"),
    either("NATURE", "", 4,
        when(1, code("NATURE", "", 4,
                    "Invalid ASTERIX value|Flight Plan to track initial correlation|Miniplan update|"
                    "End of correlation|Miniplan Cancellation|Retained Miniplan")),
        when(2, code("NATURE", "", 4,
                    "Invalid ASTERIX value|Initial SUC correlation|End of SUC correlation|"
                    "Change of SUC correlation information"))));

constexpr auto I040 = integer("I040", "Track Number", 16);

constexpr auto I050 = extended("I050", "Composed Track Number",
    part(integer("SUI", "System Unit Identification", 8),
         integer("STN", "System Track Number", 15)));

constexpr auto I060 = group("I060", "Track Mode 3/A",
    spare(4),
    octal("MODE3A", "(Mode 3/A Code) 4 Digits, Octal Representation", 12));

constexpr auto I400 = ascii("I400", "Callsign", 56);

constexpr auto I410 = integer("I410", "Plan Number", 16);

constexpr auto I420 = group("I420", "Flight Category",
    code("GATOAT", "", 2, "Unknown|General Air Traffic|Operational Air Traffic|Not applicable"),
    code("FR1FR2", "", 2,
        "Instrument Flight Rules|Visual Flight rules|Not applicable|Controlled Visual Flight Rules"),
    raw("SP3", "", 1),
    raw("SP2", "", 1),
    raw("SP1", "", 1),
    spare(1));

constexpr auto I430 = ascii("I430", "Type of Aircraft", 32);

constexpr auto I435 = code("I435", "Wake Turbulence Category", 8, "76:Light|Medium|72:Heavy|74:Super");

constexpr auto I440 = ascii("I440", "Departure Aerodrome", 32);

constexpr auto I450 = ascii("I450", "Destination Aerodrome", 32);

constexpr auto I460 = repetitive("I460", "Allocated SSR Codes",
    group("", "",
        spare(4),
        raw("OCT1", "1st Octal Digit", 3),
        raw("OCT2", "2nd Octal Digit", 3),
        raw("OCT3", "3rd Octal Digit", 3),
        raw("OCT4", "4th Octal Digit", 3)));

constexpr auto I480 = quantity("I480", "Current Cleared Flight Level", 16, {1, 1U << 2}, "FL");

constexpr auto I490 = group("I490", "Current Control Position",
    raw("CEN", "Centre", 8),
    raw("POS", "Position", 8));

constexpr auto I500 = compound("I500", "Supplementary Flight Data",
    group("IFI", "IFPS FLIGHT ID",
        code("TYP", "", 2,
            "Plan Number|Unit 1 internal flight number|Unit 2 internal flight number|"
            "Unit 3 internal flight number"),
        spare(3),
        integer("NBR", "", 27)),
    group("RVP", "RVSM & Flight Priority",
        spare(5),
        code("RVSM", "", 2, "Unknown|Approved|Exempt|Not approved"),
        code("HPR", "", 1, "Normal Priority Flight|High Priority Flight")),
    group("RDS", "Runway Designation",
        ascii("NU1", "First Number", 8),
        ascii("NU2", "Second Number", 8),
        ascii("LTR", "Letter", 8)),
    repetitive("TOD", "Time of Departure / Arrival",
        group("", "",
            code("TYP", "", 5,
                "Scheduled Off-Block Time|Estimated Off-Block Time|Estimated Take-Off Time|Actual Off-Block Time|"
                "Predicted Time at Runway Hold|Actual Time at Runway Hold|Actual Line-Up Time|"
                "Actual Take-Off Time|Estimated Time of Arrival|Predicted Landing Time|Actual Landing Time|"
                "Actual Time off Runway|Predicted Time to Gate|Actual On-Block Time"),
            code("DAY", "", 2, "Today|Yesterday|Tomorrow|Invalid"),
            spare(4),
            integer("HOR", "", 5),
            spare(2),
            integer("MIN", "", 6),
            code("AVS", "", 1, "Seconds available|Seconds not available"),
            spare(1),
            integer("SEC", "", 6))),
    ascii("AST", "Aircraft Stand", 48),
    group("STS", "Stand Status",
        code("EMP", "", 2, "Empty|Occupied|Unknown|Invalid"),
        code("AVL", "", 2, "Available|Not available|Unknown|Invalid"),
        spare(4)),
    ascii("SID", "Standard Instrument Departure", 56),
    ascii("STAR", "Standard Instrument Arrival", 56));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr Item kItems[] = {
    item(10, I010), item(15, I015), item(18, I018), item(20, I020), item(35, I035), item(40, I040), item(50, I050),
    item(60, I060), item(400, I400), item(410, I410), item(420, I420), item(430, I430), item(435, I435),
    item(440, I440), item(450, I450), item(460, I460), item(480, I480), item(490, I490), item(500, I500),
    item(AST_ITEM_REF, REF),
};

constexpr uint16_t kProfile[] = {
    10, 15, 18, 35, 20, 40, 50,
    60, 400, 410, 420, 440, 450, 480,
    490, 430, 435, 460, 500, kSpare, AST_ITEM_REF,
};

// clang-format on

} // namespace

constinit const Edition kCat032 = edition<kItems>(32, "1.2", "Miniplan Reports to an SDPS", profile(kProfile));

} // namespace ast::schema
