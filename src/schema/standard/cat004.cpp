// Category 004: Safety Net Messages, edition 1.13.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "1:Alive Message (AM)|Route Adherence Monitor Longitudinal Deviation (RAMLD)|"
    "Route Adherence Monitor Heading Deviation (RAMHD)|Minimum Safe Altitude Warning (MSAW)|"
    "Area Proximity Warning (APW)|Clearance Level Adherence Monitor (CLAM)|Short Term Conflict Alert (STCA)|"
    "Approach Path Monitor (APM)|RIMCAS Arrival / Landing Monitor (ALM)|"
    "RIMCAS Arrival / Departure Wrong Runway Alert (WRA)|RIMCAS Arrival / Departure Opposite Traffic Alert (OTA)|"
    "RIMCAS Departure Monitor (RDM)|RIMCAS Runway / Taxiway Crossing Monitor (RCM)|"
    "RIMCAS Taxiway Separation Monitor (TSM)|RIMCAS Unauthorized Taxiway Movement Monitor(UTMM)|"
    "RIMCAS Stop Bar Overrun Alert (SBOA)|End Of Conflict (EOC)|ACAS Resolution Advisory (ACASRA)|"
    "Near Term Conflict Alert (NTCA)|Downlinked Barometric Pressure Setting Monitor (DBPSM)|"
    "Speed Adherence Monitor (SAM)|Outside Controlled Airspace Tool (OCAT)|Vertical Conflict Detection (VCD)|"
    "Vertical Rate Adherence Monitor (VRAM)|Cleared Heading Adherence Monitor (CHAM)|"
    "Downlinked Selected Altitude Monitor (DSAM)|Holding Adherence Monitor (HAM)|Vertical Path Monitor (VPM)|"
    "RIMCAS Taxiway Traffic Alert (TTA)|RIMCAS Arrival/Departure Close Runway Alert (CRA)|"
    "RIMCAS Arrival/Departure Aircraft Separation Monitor (ASM)|RIMCAS ILS Area Violation Monitor (IAVM)|"
    "Final Target Distance Indicator (FTD)|Initial Target Distance Indicator (ITD)|"
    "Wake Vortex Indicator Infringement Alert (IIA)|Sequence Warning (SQW)|Catch Up Warning (CUW)|"
    "Conflicting ATC Clearances (CATC)|No ATC Clearance (NOCLR)|"
    "Aircraft Not Moving despite ATC Clearance (NOMOV)|"
    "Aircraft leaving/entering the aerodrome area without proper handover (NOH)|"
    "Wrong Runway or Taxiway Type (WRTY)|Stand Occupied (STOCC)|Ongoing Alert (ONGOING)|"
    "Non-Transgression Zone Violation (NTZ)|97:Lost Track Warning (LTW)|Holding Volume Infringement (HVI)|"
    "Airspace Infringement Warning (AIW)");

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I015 = repetitive("I015", "SDPS Identifier",
    group("", "",
        raw("SAC", "System Area Code", 8),
        raw("SIC", "System Identification Code", 8)));

constexpr auto I020 = quantity("I020", "Time of Message", 24, {1, 1U << 7}, "s");

constexpr auto I030 = raw("I030", "Track Number 1", 16);

constexpr auto I035 = raw("I035", "Track Number 2", 16);

constexpr auto I040 = raw("I040", "Alert Identifier", 16);

constexpr auto I045 = group("I045", "Area and Alert Status",
    group("AREA", "Area Status",
        code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
        code("VAL", "Area Status Value", 3,
            "Inactive|Active|Pre-active|Reserved for Future Use|Reserved for Future Use|Reserved for Future Use|"
            "Reserved for Future Use|Reserved for Future Use")),
    raw("STAT", "Status of the Alert", 3),
    spare(1));

constexpr auto I060 = extended("I060", "Safety Net Function and System Status",
    part(code("MRVA", "", 1, "Default|MRVA function"),
         code("RAMLD", "", 1, "Default|RAMLD function"),
         code("RAMHD", "", 1, "Default|RAMHD function"),
         code("MSAW", "", 1, "Default|MSAW function"),
         code("APW", "", 1, "Default|APW function"),
         code("CLAM", "", 1, "Default|CLAM function"),
         code("STCA", "", 1, "Default|STCA function")),
    part(code("APM", "", 1, "Default|APM function"),
         code("RIMCA", "", 1, "Default|RIMCA function"),
         code("ACASRA", "", 1, "Default|ACAS RA function"),
         code("NTCA", "", 1, "Default|NTCA function"),
         code("DG", "", 1, "Default|System degraded"),
         code("OF", "", 1, "Default|Overflow error"),
         code("OL", "", 1, "Default|Overload error")),
    part(code("AIW", "", 1, "Default|AIW function"),
         code("PAIW", "", 1, "Default|PAIW function"),
         code("OCAT", "", 1, "Default|OCAT function"),
         code("SAM", "", 1, "Default|SAM function"),
         code("VCD", "", 1, "Default|VCD function"),
         code("CHAM", "", 1, "Default|CHAM function"),
         code("DSAM", "", 1, "Default|DSAM function")),
    part(code("DBPSMARR", "", 1, "Default|DBPSM ARR sub-function"),
         code("DBPSMDEP", "", 1, "Default|DBPSM DEP sub-function"),
         code("DBPSMTL", "", 1, "Default|DBPSM TL sub-function"),
         code("VRAMCRM", "", 1, "Default|VRAM CRM sub-function"),
         code("VRAMVTM", "", 1, "Default|VRAM VTM sub-function"),
         code("VRAMVRM", "", 1, "Default|VRAM VRM sub-function"),
         code("HAMHD", "", 1, "Default|HAM HD sub-function")),
    part(code("HAMRD", "", 1, "Default|HAM RD sub-function"),
         code("HAMVD", "", 1, "Default|HAM VD sub-function"),
         code("HVI", "", 1, "Default|HVI function"),
         code("LTW", "", 1, "Default|LTW function"),
         code("VPM", "", 1, "Default|VPM function"),
         code("TTA", "", 1, "Default|TTA function"),
         code("CRA", "", 1, "Default|CRA function")),
    part(code("ASM", "", 1, "Default|ASM sub-function"),
         code("IAVM", "", 1, "Default|IAVM sub-function"),
         code("FTD", "", 1, "Default|FTD Function"),
         code("ITD", "", 1, "Default|ITD function"),
         code("IIA", "", 1, "Default|IIA function"),
         code("SQW", "", 1, "Default|SQW function"),
         code("CUW", "", 1, "Default|CUW function")),
    part(code("CATC", "", 1, "Default|CATC function"),
         code("NOCLR", "", 1, "Default|NOCLR sub-function"),
         code("NOMOV", "", 1, "Default|NOMOV Function"),
         code("NOH", "", 1, "Default|NOH function"),
         code("WRTY", "", 1, "Default|WRTY function"),
         code("STOCC", "", 1, "Default|STOCC function"),
         code("ONGOING", "", 1, "Default|ONGOING function")),
    part(code("NTZ", "", 1, "Default|Non-Transgression Zone Function"),
         spare(6)));

constexpr auto I070 = compound("I070", "Conflict Timing and Separation",
    quantity("TC", "Time to Conflict", 24, {1, 1U << 7}, "s"),
    quantity("TCA", "Time to Closest Approach", 24, {1, 1U << 7}, "s"),
    quantity("CHS", "Current Horizontal Separation", 24, {1, 2}, "m"),
    quantity("MHS", "Estimated Minimum Horizontal Separation", 16, {1, 2}, "m"),
    quantity("CVS", "Current Vertical Separation", 16, {25, 1}, "ft"),
    quantity("MVS", "Estimated Minimum Vertical Separation", 16, {25, 1}, "ft"));

constexpr auto I074 = signed_quantity("I074", "Longitudinal Deviation", 16, {32, 1}, "m");

constexpr auto I075 = signed_quantity("I075", "Transversal Distance Deviation", 24, {1, 2}, "m");

constexpr auto I076 = signed_quantity("I076", "Vertical Deviation", 16, {25, 1}, "ft");

constexpr auto I100 = compound("I100", "Area Definition",
    icao("AN", "Area Name", 48),
    ascii("CAN", "Crossing Area Name", 56),
    ascii("RT1", "Runway/Taxiway Designator 1", 56),
    ascii("RT2", "Runway/Taxiway Designator 2", 56),
    ascii("SB", "Stop Bar Designator", 56),
    ascii("G", "Gate Designator", 56));

constexpr auto I110 = repetitive("I110", "FDPS Sector Control Identification",
    group("", "",
        raw("CEN", "", 8),
        raw("POS", "", 8)));

constexpr auto I120 = compound("I120", "Conflict Characteristics",
    extended("CN", "Conflict Nature",
        part(code("MAS", "Conflict Location in Military Airspace", 1,
                 "Conflict not predicted to occur in military airspace|"
                 "Conflict predicted to occur in military airspace"),
             code("CAS", "Conflict Location in Civil Airspace", 1,
                 "Conflict not predicted to occur in civil airspace|Conflict predicted to occur in civil airspace"),
             code("FLD", "Fast Lateral Divergence", 1,
                 "Aircraft are not fast diverging laterally at current time|"
                 "Aircraft are fast diverging laterally at current time"),
             code("FVD", "Fast Vertical Divergence", 1,
                 "Aircraft are not fast diverging vertically at current time|"
                 "Aircraft are fast diverging vertically at current time"),
             code("TYPE", "Type of Separation Infringement", 1,
                 "Minor separation infringement|Major separation infringement"),
             code("CROSS", "Crossing Test", 1,
                 "Aircraft have not crossed at starting time of conflict|"
                 "Aircraft have crossed at starting time of conflict"),
             code("DIV", "Divergence Test", 1,
                 "Aircraft are not diverging at starting time of conflict|"
                 "Aircraft are diverging at starting time of conflict")),
        part(code("RRC", "Runway/Runway Crossing in RIMCAS", 1, "Default|Runway/Runway Crossing"),
             code("RTC", "Runway/Taxiway Crossing in RIMCAS", 1, "Default|Runway/Taxiway Crossing"),
             code("MRVA", "", 1, "Default|Msg Type 4 (MSAW) indicates MRVA"),
             code("VRAMCRM", "", 1, "Default|Msg Type 25 (VRAM) indicates CRM"),
             code("VRAMVRM", "", 1, "Default|Msg Type 25 (VRAM) indicates VRM"),
             code("VRAMVTM", "", 1, "Default|Msg Type 25 (VRAM) indicates VTM"),
             code("HAMHD", "", 1, "Default|Msg Type 29 (HAM) indicates HD")),
        part(code("HAMRD", "", 1, "Default|Msg Type 29 (HAM) indicates RD"),
             code("HAMVD", "", 1, "Default|Msg Type 29 (HAM) indicates VD"),
             code("DBPSMARR", "", 1, "Default|Msg Type 20 (DBPSM) indicates ARR"),
             code("DBPSMDEP", "", 1, "Default|Msg Type 20 (DBPSM) indicates DEP"),
             code("DBPSMTL", "", 1, "Default|Msg Type 20 (DBPSM) indicates above TL"),
             code("AIW", "", 1, "Default|Msg Type 99 (AIW) indicates pAIW Alert"),
             spare(1))),
    group("CC", "Conflict Classification",
        raw("TID", "Identification of Conflict Categories Definition Table", 4),
        either("CPC", "Conflict Properties Class", 3,
            when({5, 1}, code("CPC", "Conflict Properties Class", 3,
                "APW Low Severity|APW Medium Severity|APW High Severity")),
            when({7, 0}, code("CPC", "Conflict Properties Class", 3,
                "1:Major seperation infringement and not (crossed and diverging)|"
                "Minor seperation infringement and not (crossed and diverging)|"
                "Major seperation infringement and (crossed and diverging)|"
                "Minor seperation infringement and (crossed and diverging)")),
            when({7, 1}, group("CPC", "Conflict Properties Class",
                code("LPF", "Linear Prediction Filter", 1, "Filter not set|Filter set"),
                code("CPF", "Current Proximity Filter", 1, "Filter not set|Filter set"),
                code("MHF", "Manoeuvre Hazard Filter", 1, "Filter not set|Filter set"))),
            when({9, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({10, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({11, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({12, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({13, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({14, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({15, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({16, 2}, group("CPC", "Conflict Properties Class",
                code("RAS", "RIMCAS Alert Stage", 1, "Stage One Alert|Stage Two Alert"),
                spare(2))),
            when({15, 1}, code("CPC", "Conflict Properties Class", 3,
                "2 aircraft, same taxiway, opposite direction|Aircraft entering wrong direction|"
                "Aircraft entering wrong taxiway|Speed violation")),
            when({24, 1}, code("CPC", "Conflict Properties Class", 3, "VRM Slow Climb|VRM Slow Descent")),
            when({24, 2}, code("CPC", "Conflict Properties Class", 3, "VTM Fast Climb|VTM Fast Descent")),
            when({26, 1}, code("CPC", "Conflict Properties Class", 3,
                "Vertical manoeuvre deviation prior to reaching its expected level|"
                "Vertical manoeuvre deviation past its expected level")),
            when({27, 1}, code("CPC", "Conflict Properties Class", 3,
                "Slow Descent|Fast Descent|Slow Climb|Fast Climb")),
            when({27, 2}, code("CPC", "Conflict Properties Class", 3, "Above|Below")),
            when({33, 1}, code("CPC", "Conflict Properties Class", 3,
                "Table - Single RWY Operation|MRS - Single RWY Operation|ROT - Single RWY Operation|"
                "GAP - Single RWY Operation|Table - Parallel RWY Operation|"
                "MRS - Parallel RWY Operation|ROT - Parallel RWY Operation|"
                "GAP - Parallel RWY Operation")),
            when({34, 1}, code("CPC", "Conflict Properties Class", 3,
                "Table - Single RWY Operation|MRS - Single RWY Operation|ROT - Single RWY Operation|"
                "GAP - Single RWY Operation|Table - Parallel RWY Operation|"
                "MRS - Parallel RWY Operation|ROT - Parallel RWY Operation|"
                "GAP - Parallel RWY Operation")),
            when({35, 1}, code("CPC", "Conflict Properties Class", 3,
                "End of Alert|Planned Alert|Alert on TABLE Indicator|Alert on MRS Indicator|"
                "Alert on ROT Indicator|Alert on GAP Indicator")),
            when({38, 0}, code("CPC", "Conflict Properties Class", 3,
                "Line-Up vs. Line-Up|Line-Up vs. Cross or Enter|Line-Up vs. Take-Off|"
                "Line-Up vs. Landing")),
            when({38, 1}, code("CPC", "Conflict Properties Class", 3,
                "Cross or Enter  vs. Line-Up|Cross or Enter  vs. Cross or Enter|"
                "Cross or Enter  vs. Take-Off|Cross or Enter  vs. Landing")),
            when({38, 2}, code("CPC", "Conflict Properties Class", 3,
                "Take-Off vs. Line-Up|Take-Off vs. Cross or Enter|Take-Off vs. Take-Off|"
                "Take-Off vs. Landing")),
            when({38, 3}, code("CPC", "Conflict Properties Class", 3,
                "Landing vs. Line-Up|Landing vs. Cross or Enter|Landing vs. Take-Off|"
                "Landing vs. Landing")),
            when({38, 4}, code("CPC", "Conflict Properties Class", 3, "Push-Back vs. Push-Back|Push-Back vs. Taxi")),
            when({38, 5}, code("CPC", "Conflict Properties Class", 3, "Taxi vs. Push-Back|TAxi vs. Taxi")),
            when({39, 1}, code("CPC", "Conflict Properties Class", 3,
                "No Push-Back Clearance|No Taxi Clearance|No Line-Up Clearance|No Crossing Clearance|"
                "No Enter Clearance|No Take-Off Clearance|Landing Clearance")),
            when({40, 1}, code("CPC", "Conflict Properties Class", 3,
                "After Push-Back Clearance|After Taxi Clearance|After Line-Up Clearance|"
                "After Crossing Clearance|After Enter Clearance|After Take-Off Clearance|"
                "Stationary on Runway|Stationary on Taxiway")),
            when({41, 1}, code("CPC", "Conflict Properties Class", 3,
                "No contact (receiving ATSU)|No transfer (leaving ATSU)")),
            when({45, 1}, group("CPC", "Conflict Properties Class",
                code("LFP", "Linear Prediction Filter", 1, "Filter not set|Filter set"),
                spare(1),
                code("MSM", "Mode S Manoeuvre/Prediction Filter", 1, "Filter not set|Filter set")))),
        code("CS", "Conflict Severity", 1, "LOW|HIGH")),
    quantity("CP", "Conflict Probability", 8, {1, 2}, "%"),
    quantity("CD", "Conflict Duration", 24, {1, 1U << 7}, "s"));

constexpr auto I170 = compound("I170", "Aircraft Identification and Characteristics 1",
    ascii("AI1", "Aircraft Identifier (in 7 Characters) of Aircraft 1 Involved in the Conflict", 56),
    group("M31", "Mode 3/A Code Aircraft 1",
        spare(4),
        octal("MODE3A", "Mode-3/A Code (Converted Into Octal Representation) of Aircraft 1 Involved in the Conflict",
            12)),
    group("CPW", "Predicted Conflict Position Target 1 in WGS-84 Coordinates",
        signed_quantity("LAT", "Latitude in WGS-84 in Two’s Complement", 32, {180, 1U << 25}, "°"),
        signed_quantity("LON", "Longitude in WGS-84 in Two’s Complement", 32, {180, 1U << 25}, "°"),
        signed_quantity("ALT", "Altitude of Predicted Conflict", 16, {25, 1}, "ft")),
    group("CPC", "Predicted Conflict Position for the Aircraft 1 Involved in the Conflict",
        signed_quantity("X", "Starting X-position of the Conflict", 24, {1, 2}, "m"),
        signed_quantity("Y", "Starting Y-position of the Conflict", 24, {1, 2}, "m"),
        signed_quantity("Z", "Starting Z-position of the Conflict", 16, {25, 1}, "ft")),
    quantity("TT1", "Time to Runway Threshold for First Approaching Aircraft in a RIMCA", 24, {1, 1U << 7}, "s"),
    quantity("DT1", "Distance to Runway Threshold for Aircraft 1 Involved in a RIMCA", 16, {1, 2}, "m"),
    extended("AC1", "Characteristics of Aircraft 1 Involved in the Conflict",
        part(code("GATOAT", "Identification of Conflict Categories Definition Table", 2,
                 "Unknown|General Air Traffic|Operational Air Traffic|Not applicable"),
             code("FR1FR2", "Flight Rules", 2,
                 "Instrument Flight Rules|Visual Flight rules|Not applicable|Controlled Visual Flight Rules"),
             code("RVSM", "", 2, "Unknown|Approved|Exempt|Not Approved"),
             code("HPR", "", 1, "Normal Priority Flight|High Priority Flight")),
        part(code("CDM", "Climbing/Descending Mode", 2, "Maintaining|Climbing|Descending|Invalid"),
             code("PRI", "", 1, "Non primary target|Primary target"),
             code("GV", "", 1, "Default|Ground Vehicle"),
             spare(3))),
    icao("MS1", "Aircraft Identification Downloaded from Aircraft 1 Involved in the Conflict If Equipped with a Mode-S Transponder",
        48),
    group("FP1", "Number of the Flight Plan Correlated to Aircraft 1 Involved in the Conflict",
        spare(5),
        quantity("NBR", "", 27, {1, 1}, "")),
    quantity("CF1", "Cleared Flight Level for Aircraft 1 Involved in the Conflict", 16, {1, 1U << 2}, "FL"));

constexpr auto I171 = compound("I171", "Aircraft Identification and Characteristics 2",
    ascii("AI2", "Aircraft Identifier (in 7 Characters) of Aircraft 2 Involved in the Conflict", 56),
    group("M32", "Mode 3/A Code Aircraft 2",
        spare(4),
        octal("MODE3A", "Mode-3/A Code (Converted Into Octal Representation) of Aircraft 2 Involved in the Conflict",
            12)),
    group("CPW", "Predicted Conflict Position Target 2 in WGS-84 Coordinates",
        signed_quantity("LAT", "Latitude in WGS-84 in Two’s Complement", 32, {180, 1U << 25}, "°"),
        signed_quantity("LON", "Longitude in WGS-84 in Two’s Complement", 32, {180, 1U << 25}, "°"),
        signed_quantity("ALT", "Altitude of Predicted Conflict", 16, {25, 1}, "ft")),
    group("CPL", "Predicted Conflict Position for the Aircraft 2 Involved in the Conflict",
        signed_quantity("X", "Starting X-position of the Conflict", 24, {1, 2}, "m"),
        signed_quantity("Y", "Starting Y-position of the Conflict", 24, {1, 2}, "m"),
        signed_quantity("Z", "Starting Z-position of the Conflict", 16, {25, 1}, "ft")),
    quantity("TT2", "Time to Runway Threshold for Second Approaching Aircraft in a RIMCA", 24, {1, 1U << 7}, "s"),
    quantity("DT2", "Distance to Runway Threshold for Aircraft 2 Involved in a RIMCA", 16, {1, 2}, "m"),
    extended("AC2", "Characteristics of Aircraft 2 Involved in the Conflict",
        part(code("GATOAT", "Identification of Conflict Categories Definition Table", 2,
                 "Unknown|General Air Traffic|Operational Air Traffic|Not applicable"),
             code("FR1FR2", "Flight Rules", 2,
                 "Instrument Flight Rules|Visual Flight rules|Not applicable|Controlled Visual Flight Rules"),
             code("RVSM", "", 2, "Unknown|Approved|Exempt|Not Approved"),
             code("HPR", "", 1, "Normal Priority Flight|High Priority Flight")),
        part(code("CDM", "Climbing/Descending Mode", 2, "Maintaining|Climbing|Descending|Invalid"),
             code("PRI", "", 1, "Non primary target|Primary target"),
             code("GV", "", 1, "Default|Ground Vehicle"),
             spare(3))),
    icao("MS2", "Aircraft Identification Downloaded From Aircraft 2 Involved in the Conflict If Eequipped With a Mode-S Transponder",
        48),
    group("FP2", "Number of the Flight Plan Correlated to Aircraft 2 Involved in the Conflict",
        spare(5),
        quantity("NBR", "", 27, {1, 1}, "")),
    quantity("CF2", "Cleared Flight Level for Aircraft 2 Involved in the Conflict", 16, {1, 1U << 2}, "FL"));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(0, I000), item(10, I010), item(15, I015), item(20, I020), item(30, I030), item(35, I035), item(40, I040),
    item(45, I045), item(60, I060), item(70, I070), item(74, I074), item(75, I075), item(76, I076), item(100, I100),
    item(110, I110), item(120, I120), item(170, I170), item(171, I171), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 0, 15, 20, 40, 45, 60,
    30, 170, 120, 70, 76, 74, 75,
    100, 35, 171, 110, kSpare, AST_ITEM_REF, AST_ITEM_SPF,
};

// clang-format on

} // namespace

constinit const Edition kCat004 = edition<kItems>(4, "1.13", "Safety Net Messages", profile(kProfile));

} // namespace ast::schema
