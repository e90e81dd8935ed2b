// Category 048: Monoradar Target Reports, edition 1.32.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I010 = group("I010", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I020 = extended("I020", "Target Report Descriptor",
    part(code("TYP", "", 3,
             "No detection|Single PSR detection|Single SSR detection|SSR + PSR detection|Single ModeS All-Call|"
             "Single ModeS Roll-Call|ModeS All-Call + PSR|ModeS Roll-Call +PSR"),
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
    part(group("ACASXV", "Extended Version",
             code("EP", "ACASXV Element Populated Bit", 1, "ACASXV not populated|ACASXV populated"),
             code("VAL", "ACAS Extended Version Value", 4,
                 "Non-Extended Version|ACAS Xa Version 1|ACAS Xu Version 1")),
         group("POXPR", "PO Transponder Capability",
             code("EP", "POXPR Element Populated Bit", 1, "POXPR not populated|POXPR populated"),
             code("VAL", "PO Transponder Capability", 1, "PO not supported (PPM only)|PO supported"))),
    part(group("POACT", "PO Active for Current Plot",
             code("EP", "POACT Element Populated Bit", 1, "POACT not populated|POACT populated"),
             code("VAL", "POACT Active for Current Plot", 1, "PO not active|PO active")),
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
             code("EP", "IRM Element Populated Bit", 1, "IRMACT not populated|IRMACT populated"),
             code("VAL", "IRM Active for Current Plot", 1, "IRM not active|IRM active")),
         spare(3)));

constexpr auto I030 = chained("I030", "Warning/Error Conditions and Target Classification",
    code("", "", 7,
        "Not defined; never used|Multipath Reply (Reflection)|Reply due to sidelobe interrogation/reception|"
        "Split plot|Second time around reply|Angel|"
        "Slow moving target correlated with road infrastructure (terrestrial vehicle)|Fixed PSR plot|"
        "Slow PSR target|Low quality PSR plot|Phantom SSR plot|Non-Matching Mode-3/A Code|"
        "Mode C code / Mode S altitude code abnormal value compared to the track|Target in Clutter Area|"
        "Maximum Doppler Response in Zero Filter|Transponder anomaly detected|"
        "Duplicated or Illegal Mode S Aircraft Address|Mode S error correction applied|"
        "Undecodable Mode C code / Mode S altitude code|Birds|Flock of Birds|"
        "Mode-1 was present in original reply|Mode-2 was present in original reply|"
        "Plot potentially caused by Wind Turbine|Helicopter|"
        "Maximum number of re-interrogations reached (surveillance information)|"
        "Maximum number of re-interrogations reached (BDS Extractions)|BDS Overlay Incoherence|"
        "Potential BDS Swap Detected|Track Update in the Zenithal Gap|Mode S Track re-acquired|"
        "Duplicated Mode 5 Pair NO/PIN detected|Wrong DF reply format detected|"
        "Transponder anomaly (MS XPD replies with Mode A/C to Mode A/C-only all-call)|"
        "Transponder anomaly (SI capability report wrong)|Potential IC Conflict|"
        "IC Conflict detection possible-no conflict currently detected|"
        "Duplicate Mode 5 PIN (refer to the Mode 5 items in the REF)"));

constexpr auto I040 = group("I040", "Measured Position in Polar Co-ordinates",
    quantity("RHO", "", 16, {1, 1U << 8}, "NM"),
    quantity("THETA", "", 16, {360, 1U << 16}, "°"));

constexpr auto I042 = group("I042", "Calculated Position in Cartesian Co-ordinates",
    signed_quantity("X", "X-Component", 16, {1, 1U << 7}, "NM"),
    signed_quantity("Y", "X-Component", 16, {1, 1U << 7}, "NM"));

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

constexpr auto I090 = group("I090", "Flight Level in Binary Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    signed_quantity("FL", "", 14, {1, 1U << 2}, "FL"));

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
    signed_quantity("3DH", "3D Height, in Binary Notation. Negative Values Are Expressed in Two's Complement",
        14, {25, 1}, "ft"));

constexpr auto I120 = compound("I120", "Radial Doppler Speed",
    group("CAL", "Calculated Doppler Speed",
        code("D", "", 1, "Doppler speed is valid|Doppler speed is doubtful"),
        spare(5),
        signed_quantity("CAL", "Calculated Doppler Speed, Coded in Two's Complement", 10, {1, 1}, "m/s")),
    repetitive("RDS", "Raw Doppler Speed",
        group("", "",
            quantity("DOP", "Doppler Speed", 16, {1, 1}, "m/s"),
            quantity("AMB", "Ambiguity Range", 16, {1, 1}, "m/s"),
            quantity("FRQ", "Transmitter Frequency", 16, {1, 1}, "MHz"))));

constexpr auto I130 = compound("I130", "Radar Plot Characteristics",
    quantity("SRL", "SSR Plot Runlength", 8, {360, 1U << 13}, "°"),
    integer("SRR", "Number of Received Replies for (M)SSR", 8),
    signed_quantity("SAM", "Amplitude of (M)SSR Reply", 8, {1, 1}, "dBm"),
    quantity("PRL", "Primary Plot Runlength", 8, {360, 1U << 13}, "°"),
    signed_quantity("PAM", "Amplitude of Primary Plot", 8, {1, 1}, "dBm"),
    signed_quantity("RPD", "Difference in Range Between PSR and SSR Plot", 8, {1, 1U << 8}, "NM"),
    signed_quantity("APD", "Difference in Azimuth Between PSR and SSR Plot", 8, {360, 1U << 14}, "°"));

constexpr auto I140 = quantity("I140", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I161 = group("I161", "Track Number",
    spare(4),
    raw("TRN", "Track Number", 12));

constexpr auto I170 = extended("I170", "Track Status",
    part(code("CNF", "Confirmed Vs. Tentative Track", 1, "Confirmed Track|Tentative Track"),
         code("RAD", "Type of Sensor(s) Maintaining Track", 2, "Combined Track|PSR Track|SSR/Mode S Track|Invalid"),
         code("DOU", "Signals Level of Confidence in Plot to Track Association Process", 1,
             "Normal confidence|Low confidence in plot to track association"),
         code("MAH", "Manoeuvre Detection in Horizontal Sense", 1, "No horizontal man.sensed|Horizontal man. sensed"),
         code("CDM", "Climbing / Descending Mode", 2, "Maintaining|Climbing|Descending|Unknown")),
    part(code("TRE", "Signal for End_of_Track", 1,
             "Track still alive|End of track lifetime(last report for this track)"),
         code("GHO", "Ghost Vs. True Target", 1, "True target track|Ghost target track"),
         code("SUP", "Track Maintained with Track Information from Neighbouring Node B on the Cluster, or Network", 1,
             "No|Yes"),
         code("TCC", "Type of Plot Coordinate Transformation Mechanism:", 1,
             "Tracking performed in so-called 'Radar Plane', i.e. neither slant range correction nor "
             "stereographical projection was applied|"
             "Slant range correction and a suitable projection technique are used to track in a 2D.reference "
             "plane, tangential to the earth model at the Radar Site co-ordinates"),
         spare(3)));

constexpr auto I200 = group("I200", "Calculated Track Velocity in Polar Co-ordinates",
    quantity("GSP", "Calculated Groundspeed", 16, {1, 1U << 14}, "NM/s"),
    quantity("HDG", "Calculated Heading", 16, {360, 1U << 16}, "°"));

constexpr auto I210 = group("I210", "Track Quality",
    quantity("SIGX", "Sigma (X)) Standard Deviation on the Horizontal Axis of the Local Grid System",
        8, {1, 1U << 7}, "NM"),
    quantity("SIGY", "Sigma (Y)) Standard Deviation on the Vertical Axis of the Local Grid System",
        8, {1, 1U << 7}, "NM"),
    quantity("SIGV", "Sigma (V)) Standard Deviation on the Groundspeed Within the Local Grid System",
        8, {1, 1U << 14}, "NM/s"),
    quantity("SIGH", "Sigma (H)) Standard Deviation on the Heading Within the Local Grid System",
        8, {360, 1U << 12}, "°"));

constexpr auto I220 = raw("I220", "Aircraft Address", 24);

constexpr auto I230 = group("I230", "Communications/ACAS Capability and Flight Status",
    code("COM", "Communications Capability of the Transponder", 3,
        "No communications capability (surveillance only)|Comm. A and Comm. B capability|"
        "Comm. A, Comm. B and Uplink ELM|Comm. A, Comm. B, Uplink ELM and Downlink ELM|"
        "Level 5 Transponder capability"),
    code("STAT", "Flight Status", 3,
        "No alert, no SPI, aircraft airborne|No alert, no SPI, aircraft on ground|"
        "Alert, no SPI, aircraft airborne|Alert, no SPI, aircraft on ground|"
        "Alert, SPI, aircraft airborne or on ground|No alert, SPI, aircraft airborne or on ground|7:Unknown"),
    code("SI", "SI/II Transponder Capability", 1, "SI-Code Capable|II-Code Capable"),
    spare(1),
    code("MSSC", "Mode-S Specific Service Capability", 1, "No|Yes"),
    code("ARC", "Altitude Reporting Capability", 1, "100 ft resolution|25 ft resolution"),
    code("AIC", "Aircraft Identification Capability", 1, "No|Yes"),
    raw("B1A", "BDS 1,0 Bit 16", 1),
    raw("B1B", "BDS 1,0 Bits 37/40", 4));

constexpr auto I240 = icao("I240", "Aircraft Identification", 48);

constexpr auto I250 = repetitive("I250", "BDS Register Data",
    bds("", "BDS Register Data", 64));

constexpr auto I260 = bds("I260", "ACAS Resolution Advisory Report", 56, 0x30);

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field",
    compound_of(1, "REF", "Reserved Expansion Field",
        compound("MD5", "Mode 5 Reports",
            group("SUM", "Mode 5 Summary",
                code("M5", "", 1, "No Mode 5 interrogation|Mode 5 interrogation"),
                code("ID", "", 1, "No authenticated Mode 5 ID reply/report|Authenticated Mode 5 ID reply/report"),
                code("DA", "", 1,
                    "No authenticated Mode 5 Data reply/report|"
                    "Authenticated Mode 5 Data reply/report (i.e any valid Mode 5 reply type other than ID)"),
                code("M1", "", 1,
                    "Mode 1 code not present or not from Mode 5 reply/report|Mode 1 code from Mode 5 reply/report"),
                code("M2", "", 1,
                    "Mode 2 code not present or not from Mode 5 reply/report|Mode 2 code from Mode 5 reply/report"),
                code("M3", "", 1,
                    "Mode 3 code not present or not from Mode 5 reply/report|Mode 3 code from Mode 5 reply/report"),
                code("MC", "", 1,
                    "Mode C altitude not present or not from Mode 5 reply/report|"
                    "Mode C altitude from Mode 5 reply/report"),
                spare(1)),
            group("PMN", "PIN/ National Origin/Mission Code",
                spare(2),
                raw("PIN", "PIN Code", 14),
                spare(2),
                code("NAV", "Validity of NAT", 1, "National Origin is valid|National Origin is invalid"),
                raw("NAT", "National Origin", 5),
                spare(2),
                raw("MIS", "Mission Code", 6)),
            group("POS", "Mode 5 Reported Position",
                signed_quantity("LAT", "Latitude in WGS 84", 24, {180, 1U << 23}, "°"),
                signed_quantity("LON", "Longitude in WGS 84", 24, {180, 1U << 23}, "°")),
            group("GA", "Mode 5 GNSS-derived Altitude",
                spare(1),
                code("RES", "", 1, "GA reported in 100 ft increments|GA reported in 25 ft increments"),
                signed_quantity("GA", "", 14, {25, 1}, "ft")),
            group("EM1", "Extended Mode 1 Code in Octal Representation",
                code("V", "", 1, "Code not validated|Code validated"),
                code("G", "", 1, "Default|Garbled code"),
                code("L", "", 1,
                    "Mode 1 Code derived from the reply of the transponder|"
                    "Mode 1 Code not extracted during the last scan"),
                spare(1),
                octal("EM1", "Extended Mode 1 Code in Octal Representation", 12)),
            quantity("TOS", "Time Offset for POS and GA", 8, {1, 1U << 7}, "s"),
            group("XP", "X Pulse Presence",
                spare(2),
                code("XP", "X-pulse from Mode 5 PIN Reply/Report", 1, "X-Pulse not present|X-pulse present"),
                code("X5", "X-pulse from Mode 5 Data Reply or Report", 1,
                    "X-pulse set to zero or no authenticated Data reply or Report received|"
                    "X-pulse set to one (present)"),
                code("XC", "X-pulse from Mode C Reply", 1,
                    "X-pulse set to zero or no Mode C reply|X-pulse set to one (present)"),
                code("X3", "X-pulse from Mode 3/A Reply", 1,
                    "X-pulse set to zero or no Mode 3/A reply|X-pulse set to one (present)"),
                code("X2", "X-pulse from Mode 2 Reply", 1,
                    "X-pulse set to zero or no Mode 2 reply|X-pulse set to one (present)"),
                code("X1", "X-pulse from Mode 1 Reply", 1,
                    "X-pulse set to zero or no Mode 1 reply|X-pulse set to one (present)"))),
        compound("M5N", "Mode 5 Reports, New Format",
            group("SUM", "Mode 5 Summary",
                code("M5", "", 1, "No Mode 5 interrogation|Mode 5 interrogation"),
                code("ID", "", 1, "No authenticated Mode 5 ID reply/report|Authenticated Mode 5 ID reply/report"),
                code("DA", "", 1,
                    "No authenticated Mode 5 Data reply/report|"
                    "Authenticated Mode 5 Data reply/report (i.e any valid Mode 5 reply type other than ID)"),
                code("M1", "", 1,
                    "Mode 1 code not present or not from Mode 5 reply/report|Mode 1 code from Mode 5 reply/report"),
                code("M2", "", 1,
                    "Mode 2 code not present or not from Mode 5 reply/report|Mode 2 code from Mode 5 reply/report"),
                code("M3", "", 1,
                    "Mode 3 code not present or not from Mode 5 reply/report|Mode 3 code from Mode 5 reply/report"),
                code("MC", "", 1,
                    "Mode C altitude not present or not from Mode 5 reply/report|"
                    "Mode C altitude from Mode 5 reply/report"),
                spare(1)),
            group("PMN", "PIN/ National Origin/Mission Code",
                spare(2),
                raw("PIN", "PIN Code", 14),
                spare(4),
                code("NOV", "Validity of NO", 1, "National Origin is valid|National Origin is invalid"),
                raw("NO", "National Origin", 11)),
            group("POS", "Mode 5 Reported Position",
                signed_quantity("LAT", "Latitude in WGS 84", 24, {180, 1U << 23}, "°"),
                signed_quantity("LON", "Longitude in WGS 84", 24, {180, 1U << 23}, "°")),
            group("GA", "Mode 5 GNSS-derived Altitude",
                spare(1),
                code("RES", "", 1, "GA reported in 100 ft increments|GA reported in 25 ft increments"),
                signed_quantity("GA", "", 14, {25, 1}, "ft")),
            group("EM1", "Extended Mode 1 Code in Octal Representation",
                code("V", "", 1, "Code not validated|Code validated"),
                code("G", "", 1, "Default|Garbled code"),
                code("L", "", 1,
                    "Mode 1 Code derived from the reply of the transponder|"
                    "Mode 1 Code not extracted during the last scan"),
                spare(1),
                octal("EM1", "Extended Mode 1 Code in Octal Representation", 12)),
            quantity("TOS", "Time Offset for POS and GA", 8, {1, 1U << 7}, "s"),
            group("XP", "X Pulse Presence",
                spare(2),
                code("XP", "X-pulse from Mode 5 PIN Reply/Report", 1, "X-Pulse not present|X-pulse present"),
                code("X5", "X-pulse from Mode 5 Data Reply or Report", 1,
                    "X-pulse set to zero or no authenticated Data reply or Report received|"
                    "X-pulse set to one (present)"),
                code("XC", "X-pulse from Mode C Reply", 1,
                    "X-pulse set to zero or no Mode C reply|X-pulse set to one (present)"),
                code("X3", "X-pulse from Mode 3/A Reply", 1,
                    "X-pulse set to zero or no Mode 3/A reply|X-pulse set to one (present)"),
                code("X2", "X-pulse from Mode 2 Reply", 1,
                    "X-pulse set to zero or no Mode 2 reply|X-pulse set to one (present)"),
                code("X1", "X-pulse from Mode 1 Reply", 1,
                    "X-pulse set to zero or no Mode 1 reply|X-pulse set to one (present)")),
            group("FOM", "Figure of Merit",
                spare(3),
                raw("FOM", "", 5))),
        extended("M4E", "Extended Mode 4 Report",
            part(spare(5),
                 code("FOEFRI", "Indication Foe/Friend (Mode4)", 2,
                     "No Mode 4 interrogation|Possibly friendly target|Probably friendly target|Friendly target"))),
        compound("RPC", "Radar Plot Characteristics",
            integer("SCO", "Score", 8),
            quantity("SRC", "Signal/Clutter Ratio", 16, {1, 10}, "dB"),
            quantity("RW", "Range Width", 16, {1, 1U << 8}, "NM"),
            quantity("AR", "Ambiguous Range", 16, {1, 1U << 8}, "NM")),
        quantity("ERR", "Extended Range Report", 24, {1, 1U << 8}, "NM"),
        compound("RTC", "Radar Track Characteristics",
            group("PTL", "Plot/Track Link",
                spare(3),
                code("SCN", "Track / SCN Association", 1,
                    "Track is not associated with an SCN Plot|Track is associated with an SCN Plot"),
                code("RC", "Roll Call Component", 1,
                    "Associated Plot does not contain a Roll Call component|"
                    "Associated Plot contains at least a Roll Call component"),
                code("AC", "All Call Component", 1,
                    "Associated Plot does not contain an All Call component|"
                    "Associated Plot contains at least an All Call component"),
                code("SSR", "SSR Component", 1,
                    "Associated Plot does not contain an SSR component|"
                    "Associated Plot contains at least an SSR component"),
                code("PSR", "PSR Component", 1,
                    "Associated Plot does not contain a PSR component|"
                    "Associated Plot contains at least a PSR component"),
                raw("PLOTNR", "", 16)),
            repetitive("ATL", "ADS-B/Track Link",
                raw("", "", 16)),
            quantity("TRN", "Turn State", 8, {1, 1}, "%"),
            group("NPP", "Next Predicted Position",
                quantity("PREDRHO", "Predicted Range", 16, {1, 1U << 7}, "NM"),
                quantity("PREDTHETA", "Predicted Azimuth", 16, {360, 1U << 16}, "°"),
                quantity("EVOLRHOSTART", "Predicted Closest Range", 16, {1, 1U << 7}, "NM"),
                quantity("EVOLRHOEND", "Predicted Largest Range", 16, {1, 1U << 7}, "NM"),
                quantity("EVOLTHETASTART", "Predicted Smallest Azimuth", 16, {360, 1U << 16}, "°"),
                quantity("EVOLTHETAEND", "Predicted Largest Azimuth", 16, {360, 1U << 16}, "°"),
                quantity("NOISERHOSTART", "Predicted Closest Range", 16, {1, 1U << 7}, "NM"),
                quantity("NOISERHOEND", "Predicted Largest Range", 16, {1, 1U << 7}, "NM"),
                quantity("NOISETHETASTART", "Predicted Smallest Azimuth", 16, {360, 1U << 16}, "°"),
                quantity("NOISETHETAEND", "Predicted Largest Azimuth", 16, {360, 1U << 16}, "°"),
                quantity("PREDTIME", "Predicted Detection Time", 16, {1, 1U << 7}, "s")),
            repetitive("DLK", "Data Link Characteristics",
                group("", "",
                    code("TYPE", "", 4,
                        "Surveillance Mode A (alert bit or periodic)|Comm-A|Ground Initiated Comm-B|"
                        "Air Initiated Comm-B|Broadcast Comm-B|Comm-C|Comm-D|Reserved for future use|"
                        "Reserved for future use|Reserved for future use|Reserved for future use|"
                        "Reserved for future use|Reserved for future use|Reserved for future use|"
                        "Reserved for future use|Reserved for future use"),
                    code("ORIGIN", "", 2,
                        "From previous scan|New in current scan|Requested in the beam by transponder|"
                        "Invalid ASTERIX value"),
                    code("STATE", "", 2, "In progress|Completed|Cancelled|Invalid ASTERIX value"))),
            group("LCK", "Lockout Characteristics",
                code("LS", "Lockout State", 1, "Target not locked out by this radar|Target locked out by this radar"),
                quantity("LOCTIM", "Lockout Time", 15, {1, 1}, "ms")),
            group("TC", "Transition Code",
                spare(7),
                integer("TCOUNT1", "", 4),
                raw("TCODE1", "", 5),
                integer("TCOUNT2", "", 4),
                octal("TCODE2", "", 12),
                integer("TCOUNT3", "", 4),
                octal("TCODE3", "", 12)),
            group("TLC", "Track Life Cycle",
                code("ACQI", "", 2,
                    "Tentative Track with One Plot|Tentative Track with at least Two Plots|Pre-Confirmed Track|"
                    "Confirmed Track"),
                integer("TRKUPDCTR", "", 14),
                quantity("LASTTRKUPD", "", 16, {1, 1}, "ms")),
            repetitive("ASI", "Adjacent Sensor Information",
                group("", "",
                    raw("SACADJS", "SAC of the Adjacent Sensor", 8),
                    raw("SICADJS", "SIC of the Adjacent Sensor", 8),
                    quantity("TIMEOFDAYSCN", "Absolute Timestamp in UTC Provided by the SCN", 16, {1, 1U << 7}, "s"),
                    code("DATAUSE", "Use of Adjacent Sensor Data", 7,
                        "Data used by Tracker|Data not used by Tracker|2-127: Reserved for future use"),
                    code("DRNA", "DRN Availability", 1, "DRN not available|DRN available"),
                    raw("DRN", "", 16))),
            code("TES", "Track Extrapolation Source", 8,
                "Radar tracker calculation|Integrated ADS-B|External ADS-B|SCN"),
            group("IR", "Identity Requested",
                code("IR", "", 1, "Identity not requested|Identity requested"),
                quantity("M3A", "Age of Mode 3/A Code (I048/070)", 7, {1, 1}, "s"))),
        compound("CPC", "Common and Plot Characteristics",
            raw("PNB", "Plot Number", 16),
            repetitive("RPL", "Replies/Plot Link",
                group("", "",
                    code("TYPE", "Reply Type", 8, "PSR Echo|SSR Reply|All Call Reply|Roll Call Reply"),
                    raw("REPLYNBR", "", 16))),
            integer("SNB", "Scan Number", 8),
            group("DATE", "Common and Plot Characteristics Date",
                integer("Y1", "", 4),
                integer("Y2", "", 4),
                integer("Y3", "", 4),
                integer("Y4", "", 4),
                integer("M1", "", 4),
                integer("M2", "", 4),
                integer("D1", "", 4),
                integer("D2", "", 4))),
        compound("GEN48", "Generic Category 048 Data",
            group("ALTM2", "Alternative Mode 2 Code",
                code("V", "", 1, "Code validated|Code not validated"),
                code("G", "", 1, "Default|Garbled code"),
                code("L", "", 1,
                    "Mode-2 code as derived from reply of the transponder|"
                    "Smoothed Mode-2 as provided by a local tracker"),
                spare(1),
                octal("ALTM2", "Mode-2 Code in Octal Representation", 12)),
            group("ALTM3", "Alternative Mode 3/A",
                code("V", "", 1, "Code validated|Code not validated"),
                code("G", "", 1, "Default|Garbled code"),
                code("L", "", 1,
                    "Mode-3/A code as derived from the reply of the transponder|"
                    "Smoothed Mode-3/A code as provided by a local tracker"),
                spare(1),
                octal("ALTM3", "Mode-3/A Code in Octal Representation", 12)),
            group("ALTFL", "Alternative Flight Level",
                code("V", "", 1, "Code validated|Code not validated"),
                code("G", "", 1, "Default|Garbled code"),
                signed_quantity("ALTFL", "Flight Level in Two's Complement Form", 14, {1, 1U << 2}, "ALTFL")),
            group("RCSDB", "Radar Cross Section",
                spare(2),
                signed_quantity("RCSDB", "", 14, {1, 100}, "dBm²")),
            group("RCSM", "Radar Cross Section",
                spare(2),
                quantity("RCSM", "", 30, {1, 1000000}, "m²")))));

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(30, I030), item(40, I040), item(42, I042), item(50, I050), item(55, I055),
    item(60, I060), item(65, I065), item(70, I070), item(80, I080), item(90, I090), item(100, I100), item(110, I110),
    item(120, I120), item(130, I130), item(140, I140), item(161, I161), item(170, I170), item(200, I200),
    item(210, I210), item(220, I220), item(230, I230), item(240, I240), item(250, I250), item(260, I260),
    item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 140, 20, 40, 70, 90, 130,
    220, 240, 250, 161, 42, 200, 170,
    210, 30, 80, 100, 110, 120, 230,
    260, 55, 50, 65, 60, AST_ITEM_SPF, AST_ITEM_REF,
};

// clang-format on

} // namespace

constinit const Edition kCat048 = edition<kItems>(48, "1.32", "Monoradar Target Reports", profile(kProfile));

} // namespace ast::schema
