// Category 007: Transmission of Directed Interrogation Messages, edition 1.12.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = extended("I020", "Type and Properties of the Target Report and Target Capabilities",
    part(code("TYP", "", 3,
             "No detection|Single PSR detection|Single SSR detection|SSR + PSR detection|Single ModeS All-Call|"
             "Single ModeS Roll-Call|ModeS All-Call + PSR|ModeS Roll-Call + PSR"),
         code("SIM", "", 1, "Actual target report|Simulated target report"),
         code("RDP", "", 1, "Report from RDP Chain 1|Report from RDP Chain 2"),
         code("SPI", "", 1, "Absence of SPI|Special Position Identification"),
         code("RAB", "", 1, "Report from aircraft transponder|Report from field monitor (fixed transponder)")),
    part(code("TST", "", 1, "Real target report|Test target report"),
         code("ERR", "", 1, "No Extended Range|Extended Range present"),
         code("XPP", "", 1, "No X-Pulse present|X-Pulse present"),
         code("ME", "", 1, "No military emergency|Military emergency"),
         code("MI", "", 1, "No military identification|Military identification"),
         code("FOEFRI", "", 2, "No Mode 4 interrogation|Friendly target|Unknown target|No reply")),
    part(group("ADSB", "On-Site ADS-B Information",
             code("EP", "ADSB Element Populated Bit", 1, "ADSB not populated|ADSB populated"),
             code("VAL", "On-Site ADS-B Information", 1, "Not available|Available")),
         group("SCN", "Surveillance Cluster Network Information",
             code("EP", "SCN Element Populated Bit", 1, "SCN not populated|SCN populated"),
             code("VAL", "Surveillance Cluster Network Information", 1, "Not available|Available")),
         group("PAI", "Passive Acquisition Interface Information",
             code("EP", "PAI Element Populated Bit", 1, "PAI not populated|PAI populated"),
             code("VAL", "Passive Acquisition Interface Information", 1, "Not available|Available")),
         spare(1)),
    part(group("ACASVX", "ACAS Extended Version",
             code("EP", "ACASVX Element Populated Bit", 1, "ACASVX not populated|ACASVX populated"),
             code("VAL", "ACAS Extended Version Value", 4,
                 "Non-Extended Version|ACAS Xa Version 1|ACAS Xu Version 1|Reserved for future versions|"
                 "Reserved for future versions|Reserved for future versions|Reserved for future versions|"
                 "Reserved for future versions|Reserved for future versions|Reserved for future versions|"
                 "Reserved for future versions|Reserved for future versions|Reserved for future versions|"
                 "Reserved for future versions|Reserved for future versions|Reserved for future versions")),
         group("POXPR", "PO Transponder Capability",
             code("EP", "POXPR Element Populated Bit", 1, "POXPR not populated|POXPR populated"),
             code("VAL", "PO Transponder Capability", 1, "PO not supported (PPM only)|PO supported"))),
    part(group("POACT", "PO Active for Current Plot",
             code("EP", "POACT Element Populated Bit", 1, "POACT not populated|POACT populated"),
             code("VAL", "PO Active for Current Plot", 1, "PO not active|PO active")),
         group("DTFXPR", "Basic Dataflash Transponder Capability",
             code("EP", "DTFXPR Element Populated Bit", 1, "DTFXPR not populated|DTFXPR populated"),
             code("VAL", "Basic Dataflash Transponder Capability", 1,
                 "Basic Dataflash not supported|Basic Dataflash supported")),
         group("DTFACT", "Basic Dataflash Active for Current Plot",
             code("EP", "DTFACT Element Populated Bit", 1, "DTFACT not populated|DTFACT populated"),
             code("VAL", "Basic Dataflash in Current Plot", 1, "Basic Dataflash not active|Basic Dataflash active")),
         spare(1)),
    part(group("IRMXPR", "IRM Transponder Capability",
             code("EP", "IRMXPR Element Populated Bit", 1, "IRMXPR not populated|IRMXPR populated"),
             code("VAL", "Transponder IRM Capability", 1, "Transponder not IRM capable|Transponder IRM capable")),
         group("IRMACT", "IRM Active for Current Plot",
             code("EP", "IRMACT Element Populated Bit", 1, "IRMACT not populated|IRMACT populated"),
             code("VAL", "IRM Active for Current Plot", 1, "IRM not active|IRM active")),
         spare(3)));

constexpr auto I025 = group("I025", "Data Destination Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I030 = chained("I030", "Warning/Error Conditions",
    code("", "", 7,
        "Not defined; never used|Multipath Reply (Reflection)|Reply due to sidelobe interrogation/reception|"
        "Split plot|Second time around reply|Angel|"
        "Slow moving target correlated with road infrastructure (terrestrial vehicle)|Fixed PSR plot|"
        "Slow PSR target|Low quality PSR plot|Phantom SSR plot|Non-Matching Mode-3/A Code|"
        "Mode C code/Mode S altitude code abnormal value compared to the track|Target in Clutter Area|"
        "Maximum Doppler Response in Zero Filter|Transponder anomaly detected|"
        "Duplicated or Illegal Mode S Aircraft Address|Mode S error correction applied|"
        "Undecodable Mode C code/Mode S altitude code|Birds|Flock of Birds|Mode 1 was present in original reply|"
        "Mode 2 was present in original reply|Plot potentially caused by Wind Turbine|Helicopter|"
        "Maximum number of re-interrogations reached (surveillance information)|"
        "Maximum number of re-interrogations reached (BDS Extractions)|BDS Overlay Incoherence|"
        "Potential BDS Swap Detected|Track Update in the Zenithal Gap|Mode S Track re-acquired|"
        "Duplicated Mode 5 Pair NO/PIN detected|Wrong DF reply format detected|"
        "Transponder anomaly (MS XPD replies with Mode A/C to Mode A/C-only all-call)|"
        "Transponder anomaly (SI capability report wrong)|Potential IC Conflict|"
        "IC Conflict detection possible - no conflict currently detected|"
        "Duplicate Mode 5 PIN (refer to the Mode 5 items in the REF)|"
        "64:Ambiguous acknowledge, overlapping interrogation windows|"
        "Ambiguous acknowledge, duplicated request for same Mode S address|"
        "Ambiguous acknowledge, duplicated request for same track number|Reject, unable to process|"
        "Reject, too many parallel requests (exceeds system parameter for maximum number of requests per scan)|"
        "Reject, duplicated request"));

constexpr auto I040 = group("I040", "Measured Position in Polar Co-ordinates",
    quantity("RHO", "", 16, {1, 1U << 8}, "NM"),
    quantity("THETA", "", 16, {360, 1U << 16}, "°"));

constexpr auto I042 = group("I042", "Calculated Position in Cartesian Co-ordinates",
    signed_quantity("X", "X-Component", 16, {1, 1U << 7}, "NM"),
    signed_quantity("Y", "Y-Component", 16, {1, 1U << 7}, "NM"));

constexpr auto I050 = group("I050", "Mode-2 Code in Octal Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-2 code as derived from the reply of the transponder|"
        "Smoothed Mode-2 code as provided by a local tracker"),
    spare(1),
    octal("MODE2", "Mode-2 Code in Octal Representation", 12));

constexpr auto I055 = group("I055", "Mode-1 Code in Octal Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-1 code as derived from the reply of the transponder|"
        "Smoothed Mode-1 code as provided by a local tracker"),
    raw("MODE1", "Mode-1 Code", 5));

constexpr auto I060 = group("I060", "Mode-2 Code Confidence Indicator",
    spare(4),
    code("QA4", "", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QA2", "", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QA1", "", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QB4", "", 1, "High quality pulse B4|Low quality pulse B4"),
    code("QB2", "", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QB1", "", 1, "High quality pulse B1|Low quality pulse B1"),
    code("QC4", "", 1, "High quality pulse C4|Low quality pulse C4"),
    code("QC2", "", 1, "High quality pulse C2|Low quality pulse C2"),
    code("QC1", "", 1, "High quality pulse C1|Low quality pulse C1"),
    code("QD4", "", 1, "High quality pulse D4|Low quality pulse D4"),
    code("QD2", "", 1, "High quality pulse D2|Low quality pulse D2"),
    code("QD1", "", 1, "High quality pulse D1|Low quality pulse D1"));

constexpr auto I065 = group("I065", "Mode-1 Code Confidence Indicator",
    spare(3),
    code("QA4", "", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QA2", "", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QA1", "", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QB2", "", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QB1", "", 1, "High quality pulse B1|Low quality pulse B1"));

constexpr auto I070 = group("I070", "Mode-3/A Code in Octal Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-3/A code derived from the reply of the transponder|Mode-3/A code not extracted during the last scan"),
    spare(1),
    octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I080 = group("I080", "Mode-3/A Code Confidence Indicator",
    spare(4),
    code("QA4", "", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QA2", "", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QA1", "", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QB4", "", 1, "High quality pulse B4|Low quality pulse B4"),
    code("QB2", "", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QB1", "", 1, "High quality pulse B1|Low quality pulse B1"),
    code("QC4", "", 1, "High quality pulse C4|Low quality pulse C4"),
    code("QC2", "", 1, "High quality pulse C2|Low quality pulse C2"),
    code("QC1", "", 1, "High quality pulse C1|Low quality pulse C1"),
    code("QD4", "", 1, "High quality pulse D4|Low quality pulse D4"),
    code("QD2", "", 1, "High quality pulse D2|Low quality pulse D2"),
    code("QD1", "", 1, "High quality pulse D1|Low quality pulse D1"));

constexpr auto I085 = compound("I085", "Mode 5, Extended Mode 1 and X-Pulse",
    group("SUM", "Subfield #1: Mode 5 Summary",
        code("M5", "", 1, "No Mode 5 interrogation|Mode 5 interrogation"),
        code("ID", "", 1, "No authenticated Mode 5 ID reply|Authenticated Mode 5 ID reply"),
        code("DA", "", 1,
            "No authenticated Mode 5 Data reply or Report|"
            "Authenticated Mode 5 Data reply or Report (i.e any valid Mode 5 reply type other than ID)"),
        code("M1", "", 1, "Mode 1 code not present or not from Mode 5 reply|Mode 1 code from Mode 5 reply"),
        code("M2", "", 1, "Mode 2 code not present or not from Mode 5 reply|Mode 2 code from Mode 5 reply"),
        code("M3", "", 1, "Mode 3 code not present or not from Mode 5 reply|Mode 3 code from Mode 5 reply"),
        code("MC", "", 1, "Mode C altitude not present or not from Mode 5 reply|Mode C altitude from Mode 5 reply"),
        spare(1)),
    group("PMN", "Subfield #2: Mode 5 PIN/National Origin/Mission Code",
        spare(2),
        raw("PIN", "PIN Code", 14),
        spare(3),
        raw("NAT", "National Origin", 5),
        spare(2),
        raw("MIS", "Mission Code", 6)),
    group("POS", "Subfield #3: Mode 5 Reported Position",
        signed_quantity("LAT", "Latitude in WGS 84", 24, {180, 1U << 23}, "°"),
        signed_quantity("LON", "Longitude in WGS 84", 24, {180, 1U << 23}, "°")),
    group("GA", "Subfield #4: Mode 5 GNSS-derived Altitude",
        spare(1),
        code("RES", "Resolution with which the GNSS-derived Altitude (GA) is Reported", 1,
            "GA reported in 100 ft increments|GA reported in 25 ft increments"),
        signed_quantity("GA", "GNSS-derived Altitude of Target, Expressed as Height Above WGS 84 Ellipsoid",
            14, {25, 1}, "ft")),
    group("EM1", "Subfield #5: Extended Mode 1 Code in Octal Representation",
        code("V", "", 1, "Code not validated|Code validated"),
        code("G", "", 1, "Default|Garbled code"),
        code("L", "", 1,
            "Mode-1 code derived from the reply of the transponder|Mode-1 code not extracted during the last scan"),
        spare(1),
        octal("EM1", "Extended Mode 1 Code in Octal Representation", 12)),
    signed_quantity("TOS", "Subfield #6: Time Offset for POS and GA", 8, {1, 1U << 7}, "s"),
    group("XP", "Subfield #7: X Pulse Presence",
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

constexpr auto I090 = group("I090", "Flight Level in Binary Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    signed_quantity("FL", "Flight Level", 14, {1, 1U << 2}, "FL"));

constexpr auto I100 = group("I100", "Mode-C Code and Code Confidence Indicator",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    spare(2),
    raw("MODEC", "Mode-C Reply in Gray Notation", 12),
    spare(4),
    code("QC1", "", 1, "High quality pulse C1|Low quality pulse C1"),
    code("QA1", "", 1, "High quality pulse A1|Low quality pulse A1"),
    code("QC2", "", 1, "High quality pulse C2|Low quality pulse C2"),
    code("QA2", "", 1, "High quality pulse A2|Low quality pulse A2"),
    code("QC4", "", 1, "High quality pulse C4|Low quality pulse C4"),
    code("QA4", "", 1, "High quality pulse A4|Low quality pulse A4"),
    code("QB1", "", 1, "High quality pulse B1|Low quality pulse B1"),
    code("QD1", "", 1, "High quality pulse D1|Low quality pulse D1"),
    code("QB2", "", 1, "High quality pulse B2|Low quality pulse B2"),
    code("QD2", "", 1, "High quality pulse D2|Low quality pulse D2"),
    code("QB4", "", 1, "High quality pulse B4|Low quality pulse B4"),
    code("QD4", "", 1, "High quality pulse D4|Low quality pulse D4"));

constexpr auto I110 = group("I110", "Height Measured by a 3D Radar",
    spare(2),
    signed_quantity("3DH", "3D-Height", 14, {25, 1}, "ft"));

constexpr auto I120 = compound("I120", "Radial Doppler Speed",
    group("CAL", "Subfield #1: Calculated Doppler Speed",
        code("D", "", 1, "Doppler speed is valid|Doppler speed is doubtful"),
        spare(5),
        signed_quantity("CAL", "Calculated Doppler Speed", 10, {1, 1}, "m/s")),
    repetitive("RDS", "Subfield #2: Raw Doppler Speed",
        group("", "",
            quantity("DOP", "Doppler Speed", 16, {1, 1}, "m/s"),
            quantity("AMB", "Ambiguity Range", 16, {1, 1}, "m/s"),
            quantity("FRQ", "Transmitter Frequency", 16, {1, 1}, "MHz"))));

constexpr auto I130 = compound("I130", "Radar Plot Characteristics",
    quantity("SRL", "Subfield #1: SSR Plot Runlength", 8, {360, 1U << 13}, "°"),
    integer("SRR", "Subfield #2: Number of Received Replies for (M)SSR", 8),
    signed_quantity("SAM", "Subfield #3: Amplitude of Received Replies for (M)SSR", 8, {1, 1}, "dBm"),
    quantity("PRL", "Subfield #4: PSR Plot Runlength", 8, {360, 1U << 13}, "°"),
    signed_quantity("PAM", "Subfield #5: PSR Amplitude", 8, {1, 1}, "dBm"),
    signed_quantity("RPD", "Subfield #6: Difference in Range Between PSR and SSR Plot", 8, {1, 1U << 8}, "NM"),
    signed_quantity("APD", "Subfield #7: Difference in Azimuth Between PSR and SSR Plot", 8, {360, 1U << 14}, "°"));

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I161 = group("I161", "Track Number",
    spare(4),
    raw("TN", "Track Number", 12));

constexpr auto I170 = extended("I170", "Track Status",
    part(code("CNF", "Confirmed Vs. Tentative Track", 1, "Confirmed Track|Tentative Track"),
         code("RAD", "Type of Sensor(s) Maintaining Track", 2, "Combined Track|PSR Track|SSR/Mode S Track|Invalid"),
         code("DOU", "Signals Level of Confidence in Plot to Track Association Process", 1,
             "Normal confidence|Low confidence in plot to track association"),
         code("MAH", "Manoeuvre Detection in Horizontal Sense", 1,
             "No horizontal manoeuvre sensed|Horizontal manoeuvre sensed"),
         code("CDM", "Climbing/Descending Mode", 2, "Maintaining|Climbing|Descending|Unknown")),
    part(code("TRE", "Signal for End_of_Track", 1,
             "Track still alive|End of track lifetime (last report for this track)"),
         code("GHO", "Ghost Vs. True Target", 1, "True target track|Ghost target track"),
         code("SUP", "Track Maintained with Track Information from Neighbouring Node B on the Cluster, or Network", 1,
             "No|Yes"),
         code("TCC", "Type of Plot Coordinate Transformation Mechanism", 1,
             "Tracking performed in so-called 'Radar Plane', i.e. neither slant range correction nor "
             "stereographical projection was applied|"
             "Slant range correction and a suitable projection technique are used to track in a 2D reference "
             "plane, tangential to the earth model at the Radar Site co-ordinates"),
         spare(3)));

constexpr auto I200 = group("I200", "Calculated Track Velocity in Polar Co-ordinates",
    quantity("GSP", "Calculated Groundspeed", 16, {1, 1U << 14}, "NM/s"),
    quantity("HDG", "Calculated Heading", 16, {360, 1U << 16}, "°"));

constexpr auto I210 = group("I210", "Track Quality",
    quantity("SIGX", "Standard Deviation on the Horizontal Axis of the Local Grid System", 8, {1, 1U << 7}, "NM"),
    quantity("SIGY", "Standard Deviation on the Vertical Axis of the Local Grid System", 8, {1, 1U << 7}, "NM"),
    quantity("SIGV", "Standard Deviation on the Groundspeed Within the Local Grid System", 8, {1, 1U << 14}, "NM/s"),
    quantity("SIGH", "Standard Deviation on the Heading Within the Local Grid System", 8, {360, 1U << 12}, "°"));

constexpr auto I220 = raw("I220", "Aircraft Address", 24);

constexpr auto I230 = group("I230", "Communications/ACAS Capability and Flight Status",
    code("COM", "Communications Capability of the Transponder", 3,
        "No communications capability (surveillance only)|Comm. A and Comm. B capability|"
        "Comm. A, Comm. B and Uplink ELM|Comm. A, Comm. B, Uplink ELM and Downlink ELM|"
        "Level 5 Transponder capability|Not Assigned|Not Assigned|Not Assigned"),
    code("STAT", "Flight Status", 3,
        "No alert, no SPI, aircraft airborne|No alert, no SPI, aircraft on ground|"
        "Alert, no SPI, aircraft airborne|Alert, no SPI, aircraft on ground|"
        "Alert, SPI, aircraft airborne or on ground|No alert, SPI, aircraft airborne or on ground|Not Assigned|"
        "Unknown"),
    code("SI", "SI/II Transponder Capability", 1, "SI-Code Capable|II-Code Capable"),
    spare(1),
    code("MSSC", "Mode-S Specific Service Capability", 1, "No|Yes"),
    code("ARC", "Altitude Reporting Capability", 1, "100 ft resolution|25 ft resolution"),
    code("AIC", "Aircraft Identification Capability", 1, "No|Yes"),
    raw("B1A", "BDS 1,0 Bit 16", 1),
    raw("B1B", "BDS 1,0 Bits 37/40", 4));

constexpr auto I240 = icao("I240", "Aircraft Identification", 48);

constexpr auto I250 = repetitive("I250", "Mode S MB Data",
    bds("", "Mode S Comm B Message Data", 64));

constexpr auto I260 = bds("I260", "ACAS Resolution Advisory Report", 56, 0x30);

constexpr auto I400 = group("I400", "Directed Interrogation Request Number",
    code("PRI", "Priority of Command", 1,
        "Normal Priority, surveillance function has priority|"
        "High Priority, Directed interrogation has priority over surveillance"),
    raw("RN", "Request Number", 15));

constexpr auto I410 = code("I410", "Directed Interrogation Message Type", 8,
    "Acknowledge|Reject|Interrogation Finished|Interrogation Completed|Target Report|"
    "Interrogation Request Type A|Interrogation Request Type B|Interrogation Request Type C|"
    "Selective BDS-Register Request");

constexpr auto I415 = compound("I415", "Required Interrogation Modes",
    none(),
    none(),
    none(),
    none(),
    none(),
    group("RIM", "Subfield #1: Required Interrogation Modes",
        spare(7),
        code("LO", "Lockout Override", 1, "No lockout override|Lockout override"),
        code("MSPROB", "Probability of Reply If Mode S UF11 or Combined Modes Are Used", 3, "1|1/2|1/4|1/8|1/16"),
        raw("M5FORMAT", "Mode 5 Format", 5),
        code("M4CS", "Mode 4 Code Selection", 2, "Code A|Code B|Defined by sensor"),
        raw("M5S", "M5_SUPERMODE_S", 1),
        raw("SM5S", "M5_SUPERMODE_S", 1),
        raw("SM54", "M5_SUPERMODE_4", 1),
        raw("SM5C", "M5_SUPERMODE_C", 1),
        raw("SM53", "M5_SUPERMODE_3A", 1),
        raw("SM52", "M5_SUPERMODE_2", 1),
        raw("SM51", "M5_SUPERMODE_1", 1),
        spare(1),
        raw("M5", "MODE_5", 1),
        raw("RCMA", "MODE S ROLL_CALL", 1),
        raw("RCMC", "MODE S ROLL_CALL", 1),
        raw("CMC", "COMBINED_C", 1),
        raw("CM3A", "COMBINED_3A", 1),
        raw("MS", "MODE_S", 1),
        raw("M4S", "M4_SUPERMODE_", 1),
        raw("SMC", "SUPERMODE_C", 1),
        raw("SM3A", "SUPERMODE_3A", 1),
        raw("SM2", "SUPERMODE_2", 1),
        raw("SM1", "SUPERMODE_1", 1),
        raw("MCO", "MODE_C_ONLY", 1),
        raw("M3O", "MODE_3A_ONLY", 1),
        raw("MCS", "MODE_C_S", 1),
        raw("M3S", "MODE_3A_S", 1),
        raw("MD", "MODE_D", 1),
        raw("MC", "MODE_C", 1),
        raw("MB", "MODE_B", 1),
        raw("M4", "MODE_4", 1),
        raw("M3A", "MODE_3A", 1),
        raw("M2", "MODE_2", 1),
        raw("M1", "MODE_1", 1)),
    raw("MIPT", "Subfield #2: MIP Table", 8));

constexpr auto I420 = group("I420", "Directed Interrogation Window",
    quantity("RS", "Rho-Start", 16, {1, 1U << 8}, "NM"),
    quantity("RE", "Rho-End", 16, {1, 1U << 8}, "NM"),
    quantity("TS", "Theta-Start", 16, {360, 1U << 16}, "°"),
    quantity("TE", "Theta-End", 16, {360, 1U << 16}, "°"));

constexpr auto I440 = repetitive("I440", "Directed Interrogation BDS Register Request",
    group("", "",
        raw("BDS1", "Comm B Data Buffer Store 1 Address", 4),
        raw("BDS2", "Comm B Data Buffer Store 2 Address", 4)));

constexpr auto I450 = compound("I450", "Directed Interrogation Result",
    group("TR", "Subfield #1: Truncation",
        spare(4),
        raw("N", "Interrogation Was Not Executed", 1),
        raw("T", "Interrogation Scheduler Has Truncated the All Call Request", 1),
        raw("A", "Interrogation Scheduler Has Activated the Request At Least Once", 1),
        raw("C", "Interrogation Scheduler Has Activated the Request During All Its Validity", 1)),
    raw("M4", "Subfield #2: Mode 4 Interrogations", 8),
    raw("M5", "Subfield #3: Mode 5 Interrogations", 8),
    group("MS", "Subfield #4: Mode S All Call Interrogations",
        spare(6),
        code("LO", "Lockout", 2,
            "No Lockout used by Interrogation Scheduler|Lockout used by Interrogation Scheduler|"
            "Lockout-Override applied"),
        raw("NB", "Number of Mode S All Calls Performed for the Request", 8)),
    raw("MX", "Subfield #5: Mark X Interrogations", 8),
    raw("SMS", "Subfield #6: Selective Mode S Interrogations", 8));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(25, I025), item(30, I030), item(40, I040), item(42, I042), item(50, I050),
    item(55, I055), item(60, I060), item(65, I065), item(70, I070), item(80, I080), item(85, I085), item(90, I090),
    item(100, I100), item(110, I110), item(120, I120), item(130, I130), item(140, I140), item(161, I161),
    item(170, I170), item(200, I200), item(210, I210), item(220, I220), item(230, I230), item(240, I240),
    item(250, I250), item(260, I260), item(400, I400), item(410, I410), item(415, I415), item(420, I420),
    item(440, I440), item(450, I450), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 25, 410, 140, 400, 20, 40,
    70, 90, 130, 220, 240, 250, 161,
    42, 200, 170, 210, 30, 80, 100,
    110, 120, 230, 260, 55, 50, 65,
    60, 450, 85, kSpare, kSpare, AST_ITEM_SPF, AST_ITEM_REF,
};

constexpr uint16_t kOtherProfile[] = {
    10, 25, 410, 140, 400, 40, 220,
    161, 42, 200, 415, 420, 440, kSpare,
    kSpare, kSpare, kSpare, kSpare, kSpare, AST_ITEM_SPF, AST_ITEM_REF,
};

// clang-format on

} // namespace

constinit const Edition kCat007 = edition<kItems>(7, "1.12", "Transmission of Directed Interrogation Messages",
                                                  profile(kProfile), profile(kOtherProfile));

} // namespace ast::schema
