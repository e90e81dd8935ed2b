// Category 021: ADS-B Target Reports, in the five editions that are in use. What several editions have in common stands
// once; what an edition defines itself hides that.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

namespace every_edition {

constexpr auto I010 = group("I010", "Data Source Identification",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I080 = raw("I080", "Target Address", 24);

constexpr auto I110 = compound("I110", "Trajectory Intent",
    extended("TIS", "Trajectory Intent Status",
        part(code("NAV", "", 1,
                 "Trajectory Intent Data is available for this aircraft|"
                 "Trajectory Intent Data is not available for this aircraft"),
             code("NVB", "", 1, "Trajectory Intent Data is valid|Trajectory Intent Data is not valid"),
             spare(5))),
    repetitive("TID", "Trajectory Intent Data",
        group("", "",
            code("TCA", "", 1, "TCP number available|TCP number not available"),
            code("NC", "", 1, "TCP compliance|TCP non-compliance"),
            raw("TCPN", "", 6),
            signed_quantity("ALT", "Altitude in Two's Complement Form", 16, {10, 1}, "ft"),
            signed_quantity("LAT", "In WGS.84 in Two's Complement", 24, {180, 1U << 23}, "°"),
            signed_quantity("LON", "In WGS.84 in Two's Complement", 24, {180, 1U << 23}, "°"),
            code("PT", "Point Type", 4,
                "Unknown|Fly by waypoint (LT)|Fly over waypoint (LT)|Hold pattern (LT)|Procedure hold (LT)|"
                "Procedure turn (LT)|RF leg (LT)|Top of climb (VT)|Top of descent (VT)|Start of level (VT)|"
                "Cross-over altitude (VT)|Transition altitude (VT)"),
            code("TD", "", 2, "N/A|Turn right|Turn left|No turn"),
            code("TRA", "", 1, "TTR not available|TTR available"),
            code("TOA", "", 1, "TOV available|TOV not available"),
            quantity("TOV", "Time Over Point", 24, {1, 1}, "s"),
            quantity("TTR", "TCP Turn Radius", 16, {1, 100}, "NM"))));

constexpr auto I130 = group("I130", "Position in WGS-84 Co-ordinates",
    signed_quantity("LAT", "Latitude", 24, {180, 1U << 23}, "°"),
    signed_quantity("LON", "Longitude", 24, {180, 1U << 23}, "°"));

constexpr auto I145 = signed_quantity("I145", "Flight Level", 16, {1, 1U << 2}, "FL");

constexpr auto I150 = group("I150", "Air Speed",
    code("IM", "", 1, "Air Speed = IAS, LSB (Bit-1) = 2 -14 NM/s|Air Speed = Mach, LSB (Bit-1) = 0.001"),
    either("AS", "Air Speed (IAS or Mach)", 15,
        when(0, quantity("AS", "Air Speed (IAS or Mach)", 15, {1, 1U << 14}, "NM/s")),
        when(1, quantity("AS", "Air Speed (IAS or Mach)", 15, {1, 1000}, "Mach"))));

constexpr auto I152 = quantity("I152", "Magnetic Heading", 16, {360, 1U << 16}, "°");

constexpr auto I170 = icao("I170", "Target Identification", 48);

constexpr auto I220 = compound("I220", "Met Information",
    quantity("WS", "Wind Speed", 16, {1, 1}, "kt"),
    quantity("WD", "Wind Direction", 16, {1, 1}, "°"),
    signed_quantity("TMP", "Temperature", 16, {1, 1U << 2}, "°C"),
    integer("TRB", "Turbulence", 8));

constexpr auto I230 = signed_quantity("I230", "Roll Angle", 16, {1, 100}, "°");

constexpr auto SPF = explicit_length("SPF", "Special Purpose Field");

} // namespace every_edition

namespace editions_before_1 {

using namespace every_edition;

constexpr auto I020 = code("I020", "Emitter Category", 8,
    "1:Light aircraft <= 7000 kg|Reserved|7000 kg < Medium aircraft < 136000 kg|Reserved|"
    "136000 kg <= Heavy aircraft|"
    "Highly manoeuvrable (5g acceleration capability) and high speed (>400 knots cruise)|Reserved|Reserved|"
    "Reserved|Rotocraft|Glider / sailplane|Lighter-than-air|Unmanned aerial vehicle|"
    "Space / transatmospheric vehicle|Ultralight / handglider / paraglider|Parachutist / skydiver|Reserved|"
    "Reserved|Reserved|Surface emergency vehicle|Surface service vehicle|Fixed ground or tethered obstruction|"
    "Reserved|Reserved");

constexpr auto I030 = quantity("I030", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I032 = quantity("I032", "Time of Day Accuracy", 8, {1, 1U << 8}, "s");

constexpr auto I040 = group("I040", "Target Report Descriptor",
    code("DCR", "Differential Correction", 1, "No differential correction (ADS-B)|Differential correction (ADS-B)"),
    code("GBS", "Ground Bit Setting", 1, "Ground Bit not set|Ground Bit set"),
    code("SIM", "Simulated Target", 1, "Actual target report|Simulated target report"),
    code("TST", "Test Target", 1, "Default|Test Target"),
    code("RAB", "Report Type", 1, "Report from target transponder|Report from field monitor (fixed transponder)"),
    code("SAA", "Selected Altitude Available", 1,
        "Equipment capable to provide Selected Altitude|Equipment not capable to provide Selected Altitude"),
    code("SPI", "Special Position Identification", 1, "Absence of SPI|Special Position Identification"),
    spare(1),
    code("ATP", "Address Type", 3,
        "Non unique address|24-Bit ICAO address|Surface vehicle address|Anonymous address|"
        "Reserved for future use|Reserved for future use|Reserved for future use|Reserved for future use"),
    code("ARC", "Altitude Reporting Capability", 2, "Unknown|25 ft|100 ft"),
    spare(3));

constexpr auto I090 = group("I090", "Figure of Merit",
    code("AC", "ACAS Capabilities", 2, "Unknown|ACAS not operational|ACAS operartional|Invalid"),
    code("MN", "Multiple Navigation Aids", 2,
        "Unknown|Multiple Navigation not operational|Multiple Navigation operartional|Invalid"),
    code("DC", "Differential Correction", 2, "Unknown|Differential Correction|NO Differential Correction|Invalid"),
    spare(6),
    signed_quantity("PA", "Position Accuracy", 4, {1, 1}, ""));

constexpr auto I095 = raw("I095", "Velocity Accuracy", 8);

constexpr auto I140 = signed_quantity("I140", "Geometric Altitude", 16, {25, 1U << 2}, "ft");

constexpr auto I146 = group("I146", "Intermediate State Selected Altitude",
    code("SAS", "Source Availability", 1, "No source information provided|Source Information provided"),
    code("SRC", "Source", 2,
        "Unknown|Aircraft Altitude (Holding Altitude)|MCP/FCU Selected Altitude|FMS Selected Altitude"),
    signed_quantity("ALT", "Altitude", 13, {25, 1}, "ft"));

constexpr auto I148 = group("I148", "Final State Selected Altitude",
    code("MV", "Manage Vertical Mode", 1, "Not active|Active"),
    code("AH", "Altitude Hold Mode", 1, "Not active|Active"),
    code("AM", "Approach Mode", 1, "Not active|Active"),
    signed_quantity("ALT", "Altitude", 13, {25, 1}, "ft"));

constexpr auto I151 = quantity("I151", "True Airspeed", 16, {1, 1}, "kt");

constexpr auto I155 = signed_quantity("I155", "Barometric Vertical Rate", 16, {25, 1U << 2}, "ft/min");

constexpr auto I157 = signed_quantity("I157", "Geometric Vertical Rate", 16, {25, 1U << 2}, "ft/min");

constexpr auto I160 = group("I160", "Ground Vector",
    signed_quantity("GS", "Ground Speed in Two's Complement Form Referenced to WGS84", 16, {1, 1U << 14}, "NM/s"),
    quantity("TA", "Track Angle", 16, {360, 1U << 16}, "°"));

constexpr auto I165 = extended("I165", "Rate Of Turn",
    part(code("TI", "Turn Indicator", 2, "Not available|Left|Right|Straight"),
         spare(5)),
    part(signed_quantity("ROT", "Rate of Turn", 7, {1, 1U << 2}, "°/s")));

constexpr auto I200 = code("I200", "Target Status", 8,
    "No emergency / not reported|General emergency|Lifeguard / medical|Minimum fuel|No communications|"
    "Unlawful interference");

constexpr auto I210 = group("I210", "Link Technology Indicator",
    spare(3),
    code("DTI", "Cockpit Display of Traffic Information", 1, "Unknown|Aircraft equiped with CDTI"),
    code("MDS", "Mode-S Extended Squitter", 1, "Not used|Used"),
    code("UAT", "UAT", 1, "Not used|Used"),
    code("VDL", "VDL Mode 4", 1, "Not used|Used"),
    code("OTR", "Other Technology", 1, "Not used|Used"));

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field");

} // namespace editions_before_1

namespace editions_since_2_1 {

using namespace every_edition;

constexpr auto I008 = group("I008", "Aircraft Operational Status",
    code("RA", "TCAS Resolution Advisory Active", 1, "TCAS II or ACAS RA not active|TCAS RA active"),
    code("TC", "Target Trajectory Change Report Capability", 2,
        "No capability for Trajectory Change Reports|Support for TC+0 reports only|"
        "Support for multiple TC reports|Reserved"),
    code("TS", "Target State Report Capability", 1,
        "No capability to support Target State Reports|Capable of supporting target State Reports"),
    code("ARV", "Air-Referenced Velocity Report Capability", 1,
        "No capability to generate ARV-reports|Capable of generate ARV-reports"),
    code("CDTIA", "Cockpit Display of Traffic Information Airborne", 1, "CDTI not operational|CDTI operational"),
    code("NOTTCAS", "TCAS System Status", 1, "TCAS operational|TCAS not operational"),
    code("SA", "Single Antenna", 1, "Antenna Diversity|Single Antenna only"));

constexpr auto I015 = raw("I015", "Service Identification", 8);

constexpr auto I016 = quantity("I016", "Service Management", 8, {1, 2}, "s");

constexpr auto I020 = code("I020", "Emitter Category", 8,
    "No ADS-B Emitter Category Information|Light aircraft <= 15500 lbs|15500 lbs < small aircraft <75000 lbs|"
    "75000 lbs < medium a/c < 300000 lbs|High Vortex Large|300000 lbs <= heavy aircraft|"
    "Highly manoeuvrable (5g acceleration capability) and high speed (>400 knots cruise)|Reserved|Reserved|"
    "Reserved|Rotocraft|Glider / sailplane|Lighter-than-air|Unmanned aerial vehicle|"
    "Space / transatmospheric vehicle|Ultralight / handglider / paraglider|Parachutist / skydiver|Reserved|"
    "Reserved|Reserved|Surface emergency vehicle|Surface service vehicle|Fixed ground or tethered obstruction|"
    "Cluster obstacle|Line obstacle");

constexpr auto I070 = group("I070", "Mode 3/A Code in Octal Representation",
    spare(4),
    octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I071 = quantity("I071", "Time of Applicability for Position", 24, {1, 1U << 7}, "s");

constexpr auto I072 = quantity("I072", "Time of Applicability for Velocity", 24, {1, 1U << 7}, "s");

constexpr auto I073 = quantity("I073", "Time of Message Reception for Position", 24, {1, 1U << 7}, "s");

constexpr auto I074 = group("I074", "Time of Message Reception of Position-High Precision",
    code("FSI", "Full Second Indication", 2,
        "3:Reserved|2:TOMRp whole seconds = (I021/073) Whole seconds - 1|"
        "1:TOMRp whole seconds = (I021/073) Whole seconds + 1|0:TOMRp whole seconds = (I021/073) Whole seconds"),
    quantity("TOMRP", "Fractional Part of the Time of Message Reception for Position in the Ground Station",
        30, {1, 1U << 30}, "s"));

constexpr auto I075 = quantity("I075", "Time of Message Reception for Velocity", 24, {1, 1U << 7}, "s");

constexpr auto I076 = group("I076", "Time of Message Reception of Velocity-High Precision",
    code("FSI", "Full Second Indication", 2,
        "3:Reserved|2:TOMRp whole seconds = (I021/075) Whole seconds - 1|"
        "1:TOMRp whole seconds = (I021/075) Whole seconds + 1|0:TOMRp whole seconds = (I021/075) Whole seconds"),
    quantity("TOMRP", "Fractional Part of the Time of Message Reception for Position in the Ground Station",
        30, {1, 1U << 30}, "s"));

constexpr auto I077 = quantity("I077", "Time of ASTERIX Report Transmission", 24, {1, 1U << 7}, "s");

constexpr auto I090 = extended("I090", "Quality Indicators",
    part(raw("NUCRNACV", "Navigation Uncertainty Category for Velocity NUCr or the Navigation Accuracy Category for Velocity NACv",
             3),
         raw("NUCPNIC", "Navigation Uncertainty Category for Position NUCp or Navigation Integrity Category NIC", 4)),
    part(raw("NICBARO", "Navigation Integrity Category for Barometric Altitude", 1),
         raw("SIL", "Surveillance (version 1) or Source (version 2) Integrity Level", 2),
         raw("NACP", "Navigation Accuracy Category for Position", 4)),
    part(spare(2),
         code("SILS", "SIL-Supplement", 1, "Measured per flight-hour|Measured per sample"),
         raw("SDA", "Horizontal Position System Design Assurance Level (as Defined in Version 2)", 2),
         raw("GVA", "Geometric Altitude Accuracy", 2)),
    part(raw("PIC", "Position Integrity Category", 4),
         spare(3)));

constexpr auto I131 = group("I131", "High-Resolution Position in WGS-84 Co-ordinates",
    signed_quantity("LAT", "Latitude", 32, {180, 1U << 30}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 30}, "°"));

constexpr auto I132 = signed_quantity("I132", "Message Amplitude", 8, {1, 1}, "dBm");

constexpr auto I140 = signed_quantity("I140", "Geometric Height", 16, {25, 1U << 2}, "ft");

constexpr auto I146 = group("I146", "Selected Altitude",
    code("SAS", "Source Availability", 1, "No source information provided|Source Information provided"),
    code("S", "Source", 2,
        "Unknown|Aircraft Altitude (Holding Altitude)|MCP/FCU Selected Altitude|FMS Selected Altitude"),
    signed_quantity("ALT", "Altitude", 13, {25, 1}, "ft"));

constexpr auto I148 = group("I148", "Final State Selected Altitude",
    code("MV", "Manage Vertical Mode", 1, "Not active or unknown|Active"),
    code("AH", "Altitude Hold Mode", 1, "Not active or unknown|Active"),
    code("AM", "Approach Mode", 1, "Not active or unknown|Active"),
    signed_quantity("ALT", "Altitude", 13, {25, 1}, "ft"));

constexpr auto I151 = group("I151", "True Airspeed",
    code("RE", "Range Exceeded Indicator", 1, "Value in defined range|Value exceeds defined range"),
    quantity("TAS", "True Air Speed", 15, {1, 1}, "kt"));

constexpr auto I155 = group("I155", "Barometric Vertical Rate",
    code("RE", "Range Exceeded Indicator", 1, "Value in defined range|Value exceeds defined range"),
    signed_quantity("BVR", "Barometric Vertical Rate", 15, {25, 1U << 2}, "ft/min"));

constexpr auto I157 = group("I157", "Geometric Vertical Rate",
    code("RE", "Range Exceeded Indicator", 1, "Value in defined range|Value exceeds defined range"),
    signed_quantity("GVR", "Geometric Vertical Rate", 15, {25, 1U << 2}, "ft/min"));

constexpr auto I160 = group("I160", "Airborne Ground Vector",
    code("RE", "Range Exceeded Indicator", 1, "Value in defined range|Value exceeds defined range"),
    quantity("GS", "Ground Speed Referenced to WGS-84", 15, {1, 1U << 14}, "NM/s"),
    quantity("TA", "Track Angle Clockwise Reference to True North", 16, {360, 1U << 16}, "°"));

constexpr auto I161 = group("I161", "Track Number",
    spare(4),
    raw("TRNUM", "Track Number", 12));

constexpr auto I165 = group("I165", "Track Angle Rate",
    spare(6),
    signed_quantity("TAR", "Track Angle Rate", 10, {1, 1U << 5}, "°/s"));

constexpr auto I200 = group("I200", "Target Status",
    code("ICF", "Intent Change Flag (see Note)", 1, "No intent change active|Intent change flag raised"),
    code("LNAV", "LNAV Mode", 1, "LNAV Mode engaged|LNAV Mode not engaged"),
    code("ME", "Military Emergency", 1, "No military emergency|Military emergency"),
    code("PS", "Priority Status", 3,
        "No emergency / not reported|General emergency|Lifeguard / medical emergency|Minimum fuel|"
        "No communications|Unlawful interference|DOWNED Aircraft"),
    code("SS", "Surveillance Status", 2,
        "No condition reported|Permanent Alert (Emergency condition)|"
        "Temporary Alert (change in Mode 3/A Code other than emergency)|SPI set"));

constexpr auto I210 = group("I210", "MOPS Version",
    spare(1),
    code("VNS", "Version Not Supported", 1,
        "The MOPS Version is supported by the GS|The MOPS Version is not supported by the GS"),
    code("VN", "Version Number", 3, "ED102/DO-260 [Ref. 8]|DO-260A [Ref. 9]|ED102A/DO-260B [Ref. 11]"),
    code("LTT", "Link Technology Type", 3,
        "Other|UAT|1090 ES|VDL 4|Not assigned|Not assigned|Not assigned|Not assigned"));

constexpr auto I250 = repetitive("I250", "Mode S MB Data",
    bds("", "", 64));

constexpr auto I260 = group("I260", "ACAS Resolution Advisory Report",
    raw("TYP", "Message Type (= 28 for 1090 ES, Version 2)", 5),
    raw("STYP", "Message Sub-type (= 2 for 1090 ES, Version 2)", 3),
    raw("ARA", "Active Resolution Advisories", 14),
    raw("RAC", "RAC (RA Complement) Record", 4),
    raw("RAT", "RA Terminated", 1),
    raw("MTE", "Multiple Threat Encounter", 1),
    raw("TTI", "Threat Type Indicator", 2),
    raw("TID", "Threat Identity Data", 26));

constexpr auto I271 = extended("I271", "Surface Capabilities and Characteristics",
    part(spare(2),
         code("POA", "Position Offset Applied", 1,
             "Position transmitted is not ADS-B position reference point|"
             "Position transmitted is the ADS-B position reference point"),
         code("CDTIS", "Cockpit Display of Traffic Information Surface", 1, "CDTI not operational|CDTI operational"),
         code("B2LOW", "Class B2 Transmit Power Less Than 70 Watts", 1, ">= 70 Watts|< 70 Watts"),
         code("RAS", "Receiving ATC Services", 1,
             "Aircraft not receiving ATC-services|Aircraft receiving ATC services"),
         code("IDENT", "Setting of IDENT Switch", 1, "IDENT switch not active|IDENT switch active")),
    part(raw("LW", "Length and Width of the Aircraft", 4),
         spare(3)));

constexpr auto I295 = compound("I295", "Data Ages",
    quantity("AOS", "Aircraft Operational Status Age", 8, {1, 10}, "s"),
    quantity("TRD", "Target Report Descriptor Age", 8, {1, 10}, "s"),
    quantity("M3A", "Mode 3/A Age", 8, {1, 10}, "s"),
    quantity("QI", "Quality Indicators Age", 8, {1, 10}, "s"),
    quantity("TI1", "Trajectory Intent Age", 8, {1, 10}, "s"),
    quantity("MAM", "Message Amplitude Age", 8, {1, 10}, "s"),
    quantity("GH", "Geometric Height Age", 8, {1, 10}, "s"),
    quantity("FL", "Flight Level Age", 8, {1, 10}, "s"),
    quantity("ISA", "Intermediate State Selected Altitude Age", 8, {1, 10}, "s"),
    quantity("FSA", "Final State Selected Altitude Age", 8, {1, 10}, "s"),
    quantity("AS", "Air Speed Age", 8, {1, 10}, "s"),
    quantity("TAS", "True Air Speed Age", 8, {1, 10}, "s"),
    quantity("MH", "Magnetic Heading Age", 8, {1, 10}, "s"),
    quantity("BVR", "Barometric Vertical Rate Age", 8, {1, 10}, "s"),
    quantity("GVR", "Geometric Vertical Rate Age", 8, {1, 10}, "s"),
    quantity("GV", "Ground Vector Age", 8, {1, 10}, "s"),
    quantity("TAR", "Track Angle Rate Age", 8, {1, 10}, "s"),
    quantity("TI2", "Target Identification Age", 8, {1, 10}, "s"),
    quantity("TS", "Target Status Age", 8, {1, 10}, "s"),
    quantity("MET", "Met Information Age", 8, {1, 10}, "s"),
    quantity("ROA", "Roll Angle Age", 8, {1, 10}, "s"),
    quantity("ARA", "ACAS Resolution Advisory Age", 8, {1, 10}, "s"),
    quantity("SCC", "Surface Capabilities and Characteristics Age", 8, {1, 10}, "s"));

constexpr auto I400 = raw("I400", "Receiver ID", 8);

constexpr auto REF = explicit_length("REF", "Reserved Expansion Field",
    compound_of(1, "REF", "Reserved Expansion Field",
        group("BPS", "Barometric Pressure Setting",
            spare(4),
            quantity("BPS", "Barometric Pressure Setting", 12, {1, 10}, "hPa")),
        group("SH", "Selected Heading",
            spare(4),
            code("HDR", "Horizontal Reference Direction", 1, "True North|Magnetic North"),
            code("STAT", "Selected Heading Status", 1,
                "Data is either unavailable or invalid|Data is available and valid"),
            quantity("SH", "Selected Heading", 10, {45, 1U << 6}, "°")),
        group("NAV", "Navigation Mode",
            code("AP", "Autopilot", 1, "Autopilot not engaged|Autopilot engaged"),
            code("VN", "Vertical Navigation", 1, "Vertical Navigation not active|Vertical Navigation active"),
            code("AH", "Altitude Hold", 1, "Altitude Hold not engaged|Altitude Hold engaged"),
            code("AM", "Approach Mode", 1, "Approach Mode not active|Approach Mode active"),
            group("MFM", "Status of MCP/FCU Mode Bits",
                code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                code("VAL", "Value", 1, "MCP/FCU Mode Bits not populated|MCP/FCU Mode Bits populated")),
            spare(2)),
        raw("GAO", "GPS Antenna Offset", 8),
        extended("SGV", "Surface Ground Vector",
            part(code("STP", "", 1, "Aircraft has not stopped|Aircraft has stopped"),
                 code("HTS", "", 1, "Heading/Ground Track data is not valid|Heading/Ground Track data is valid"),
                 code("HTT", "", 1, "Heading data provided|Ground Track provided"),
                 code("HRD", "", 1, "True North|Magnetic North"),
                 quantity("GSS", "Ground Speed", 11, {1, 1U << 3}, "kt")),
            part(quantity("HGT", "Heading/Ground Track Information", 7, {45, 1U << 4}, "°"))),
        extended("STA", "Aircraft Status",
            part(code("ES", "ES IN Capability", 1, "Target is not 1090 ES IN capable|Target is 1090 ES IN capable"),
                 code("UAT", "UAT IN Capability", 1, "Target is not UAT IN capable|Target is UAT IN capable"),
                 group("RCE", "Reduced Capability Equipment",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 2, "Not RCE|TABS (see Note 2)|Reserved for future use|Other RCE")),
                 group("RRL", "Reply Rate Limiting",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 1, "Reply Rate Limiting is not active|Reply Rate Limiting is active"))),
            part(group("PS3", "Priority Status for Version 3 ADS-B Systems",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 3,
                         "No emergency / not reported|General emergency|UAS/RPAS - Lost link|Minimum fuel|"
                         "No communications|Unlawful interference|Aircraft in Distress|"
                         "Aircraft in Distress Manual Activation")),
                 group("TPW", "Transmit Power",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 2, "Unavailable, Unknown, or less than 70 W|70 W|125 W|200 W"))),
            part(group("TSI", "Transponder Side Indication",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 2,
                         "Unknown|Transponder #1 (left/pilot side or single)|"
                         "Transponder #2 (right/co-pilot side)|Transponder #3 (auxiliary or Backup)")),
                 group("MUO", "Manned / Unmanned Operation",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 1, "Manned Operation|Unmanned Operation")),
                 group("RWC", "Remain Well Clear Corrective Alert",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 1, "RWC Corrective Alert not active|RWC Corrective Alert active"))),
            part(group("DAA", "Detectand Avoid Capabilities",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 2,
                         "No RWC Capability|RWC/RA/OCM Capability|RWC/OCM Capability|Invalid ASTERIX Value")),
                 group("DF17CA", "Transponder Capability",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     raw("VAL", "Value", 3))),
            part(group("SVH", "Sense Vertical & Horizontal",
                     code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 2,
                         "Vertical Only|Horizontal Only|Blended|Vertical Only or Horizontal Only per intruder")),
                 group("CATC", "CAS Type & Capability",
                     code("EP", "Element Population Bit", 1, "Element not populated|Element populated"),
                     code("VAL", "Value", 3,
                         "Active CAS (TCAS II) or no CAS|Active CAS (not TCAS II)|"
                         "Active CAS (not TCAS II) with OCM transmit capability|Active CAS of Junior Status|"
                         "Passive CAS with 1030TCAS Resolution Message receive capability|"
                         "Passive CAS with only OCM receive capability|Reserved for future use|"
                         "Reserved for future use"))),
            part(group("TAO", "Transponder Antenna Offset",
                     code("EP", "Element Populated Bit", 1, "Element Not Populated|Element Populated"),
                     code("VAL", "Value", 5,
                         "No data|0 ≤ TAO ≤ 1|1 < TAO ≤ 2|2 < TAO ≤ 4|4 < TAO ≤ 6|6 < TAO ≤ 8|8 < TAO ≤ 10|"
                         "10 < TAO ≤ 12|12 < TAO ≤ 14|14 < TAO ≤ 16|16 < TAO ≤ 18|18 < TAO ≤ 20|20 < TAO ≤ 22|"
                         "22 < TAO ≤ 24|24 < TAO ≤ 26|26 < TAO ≤ 28|28 < TAO ≤ 30|30 < TAO ≤ 32|32 < TAO ≤ 34|"
                         "34 < TAO ≤ 36|36 < TAO ≤ 38|38 < TAO ≤ 40|40 < TAO ≤ 42|42 < TAO ≤ 44|44 < TAO ≤ 46|"
                         "46 < TAO ≤ 48|48 < TAO ≤ 50|50 < TAO ≤ 52|52 < TAO ≤ 54|54 < TAO ≤ 56|56 < TAO ≤ 58|"
                         "TAO > 58"),
                     spare(1)))),
        quantity("TNH", "True North Heading", 16, {360, 1U << 16}, "°"),
        compound("MES", "Military Extended Squitter",
            group("SUM", "Mode 5 Summary",
                code("M5", "", 1, "No Mode 5 interrogation|Mode 5 interrogation"),
                code("ID", "", 1, "No authenticated Mode 5 ID reply/report|Authenticated Mode 5 ID reply/report"),
                code("DA", "", 1,
                    "No authenticated Mode 5 Data reply or Report|"
                    "Authenticated Mode 5 Data reply or Report (i.e any valid Mode 5 reply type other than ID)"),
                code("M1", "", 1,
                    "Mode 1 code not present or not from Mode 5 reply/report|Mode 1 code from Mode 5 reply/report"),
                code("M2", "", 1,
                    "Mode 2 code not present or not from Mode 5 reply/report|Mode 2 code from Mode 5 reply/report"),
                code("M3", "", 1,
                    "Mode 3 code not present or not from Mode 5 reply/report|Mode 3 code from Mode 5 reply/report"),
                code("MC", "", 1,
                    "Flightlevel not present or not from Mode 5 reply/report|Flightlevel from Mode 5 reply/report"),
                code("PO", "", 1, "Position not from Mode 5 report (ADS-B report)|Position from Mode 5 report")),
            group("PNO", "Mode 5 PIN / National Origin",
                spare(2),
                raw("PIN", "PIN Code", 14),
                spare(5),
                raw("NO", "National Origin Code", 11)),
            group("EM1", "Extended Mode 1 Code in Octal Representation",
                code("V", "", 1, "Code validated|Code not validated"),
                spare(1),
                code("L", "", 1,
                    "Mode 1 code as derived from the report of the transponder|"
                    "Smoothed Mode 1 code as provided by a local tracker"),
                spare(1),
                octal("EM1", "Extended Mode 1 Code in Octal Representation", 12)),
            group("XP", "X Pulse Presence",
                spare(2),
                code("XP", "X-pulse from Mode 5 PIN Reply/report", 1, "X-Pulse not present|X-pulse present"),
                code("X5", "X-pulse from Mode 5 Data Reply or Report", 1,
                    "X-pulse set to zero or no authenticated Data reply or Report received|"
                    "X-pulse set to one (present)"),
                code("XC", "X-pulse from Mode C Reply", 1,
                    "X-pulse set to zero or no Mode C reply|X-pulse set to one (present)"),
                code("X3", "X-pulse from Mode 3/A Reply", 1,
                    "X-pulse set to zero or no Mode 3/A reply|X-pulse set to one (present)"),
                code("X2", "X-pulse from Mode 2 Reply", 1,
                    "0 X-pulse set to zero or no Mode 2 reply|X-pulse set to one (present)"),
                code("X1", "X-pulse from Mode 1 Reply", 1,
                    "X-pulse set to zero or no Mode 1 reply|X-pulse set to one (present)")),
            group("FOM", "Figure of Merit",
                spare(3),
                raw("FOM", "Figure of Merit", 5)),
            group("M2", "Mode 2 Code in Octal Representation",
                code("V", "", 1, "Code validated|Code not validated"),
                spare(1),
                code("L", "", 1,
                    "Mode-2 code as derived from the reply of the transponder|"
                    "Smoothed Mode-2 code as provided by a local tracker"),
                spare(1),
                octal("MODE2", "Mode 2 Code in Octal Representation", 12)))));

} // namespace editions_since_2_1

namespace edition_0_23 {

using namespace editions_before_1;

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(30, I030), item(32, I032), item(80, I080), item(95, I095), item(110, I110),
    item(130, I130), item(140, I140), item(145, I145), item(146, I146), item(148, I148), item(150, I150),
    item(151, I151), item(152, I152), item(155, I155), item(157, I157), item(160, I160), item(165, I165),
    item(170, I170), item(220, I220), item(230, I230), item(903, I040), item(905, I090), item(906, I210),
    item(908, I200), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

} // namespace edition_0_23

namespace edition_0_26 {

using namespace editions_before_1;

constexpr auto I070 = group("I070", "Mode 3/A Code in Octal Representation",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1, "Mode-3/A code derived during last update|Mode-3/A code not extracted during the last update"),
    spare(1),
    octal("MODE3A", "Mode-3/A Reply in Octal Representation", 12));

constexpr auto I130 = group("I130", "Position in WGS-84 Co-ordinates",
    signed_quantity("LAT", "Latitude", 32, {180, 1U << 25}, "°"),
    signed_quantity("LON", "Longitude", 32, {180, 1U << 25}, "°"));

constexpr auto I131 = raw("I131", "Signal Amplitude", 8);

constexpr Item kItems[] = {
    item(10, I010), item(20, I020), item(30, I030), item(32, I032), item(70, I070), item(80, I080), item(95, I095),
    item(110, I110), item(140, I140), item(145, I145), item(146, I146), item(148, I148), item(150, I150),
    item(151, I151), item(152, I152), item(155, I155), item(157, I157), item(160, I160), item(165, I165),
    item(170, I170), item(220, I220), item(230, I230), item(902, I130), item(903, I040), item(904, I131),
    item(905, I090), item(906, I210), item(908, I200), item(AST_ITEM_REF, REF), item(AST_ITEM_SPF, SPF),
};

} // namespace edition_0_26

namespace edition_2_1 {

using namespace editions_since_2_1;

constexpr auto I040 = extended("I040", "Target Report Descriptor",
    part(code("ATP", "Address Type", 3,
             "24-Bit ICAO address|Duplicate address|Surface vehicle address|Anonymous address|"
             "Reserved for future use|Reserved for future use|Reserved for future use|Reserved for future use"),
         code("ARC", "Altitude Reporting Capability", 2, "25 ft|100 ft|Unknown|Invalid"),
         code("RC", "Range Check", 1, "Default|Range Check passed, CPR Validation pending"),
         code("RAB", "Report Type", 1,
             "Report from target transponder|Report from field monitor (fixed transponder)")),
    part(code("DCR", "Differential Correction", 1,
             "No differential correction (ADS-B)|Differential correction (ADS-B)"),
         code("GBS", "Ground Bit Setting", 1, "Ground Bit not set|Ground Bit set"),
         code("SIM", "Simulated Target", 1, "Actual target report|Simulated target report"),
         code("TST", "Test Target", 1, "Default|Test Target"),
         code("SAA", "Selected Altitude Available", 1,
             "Equipment capable to provide Selected Altitude|Equipment not capable to provide Selected Altitude"),
         code("CL", "Confidence Level", 2, "Report valid|Report suspect|No information|Reserved for future use")),
    part(spare(2),
         code("IPC", "Independent Position Check", 1, "Default (see note)|Independent Position Check failed"),
         code("NOGO", "No-go Bit Status", 1, "NOGO-bit not set|NOGO-bit set"),
         code("CPR", "Compact Position Reporting", 1, "CPR Validation correct|CPR Validation failed"),
         code("LDPJ", "Local Decoding Position Jump", 1, "LDPJ not detected|LDPJ detected"),
         code("RCF", "Range Check", 1, "Default|Range Check failed")));

constexpr auto I200 = group("I200", "Target Status",
    code("ICF", "Intent Change Flag (see Note)", 1, "No intent change active|Intent change flag raised"),
    code("LNAV", "LNAV Mode", 1, "LNAV Mode engaged|LNAV Mode not engaged"),
    spare(1),
    code("PS", "Priority Status", 3,
        "No emergency / not reported|General emergency|Lifeguard / medical emergency|Minimum fuel|"
        "No communications|Unlawful interference|DOWNED Aircraft"),
    code("SS", "Surveillance Status", 2,
        "No condition reported|Permanent Alert (Emergency condition)|"
        "Temporary Alert (change in Mode 3/A Code other than emergency)|SPI set"));

constexpr auto I271 = extended("I271", "Surface Capabilities and Characteristics",
    part(spare(2),
         code("POA", "Position Offset Applied", 1,
             "Position transmitted is not ADS-B position reference point|"
             "Position transmitted is the ADS-B position reference point"),
         code("CDTIS", "Cockpit Display of Traffic Information Surface", 1, "CDTI not operational|CDTI operational"),
         code("B2LOW", "Class B2 Transmit Power Less Than 70 Watts", 1, ">= 70 Watts|< 70 Watts"),
         code("RAS", "Receiving ATC Services", 1,
             "Aircraft not receiving ATC-services|Aircraft receiving ATC services"),
         code("IDENT", "Setting of IDENT Switch", 1, "IDENT switch not active|IDENT switch active")),
    last_part(spare(4),
         raw("LW", "Length and Width of the Aircraft", 4)));

constexpr Item kItems[] = {
    item(8, I008), item(10, I010), item(15, I015), item(16, I016), item(20, I020), item(40, I040), item(70, I070),
    item(71, I071), item(72, I072), item(73, I073), item(74, I074), item(75, I075), item(76, I076), item(77, I077),
    item(80, I080), item(90, I090), item(110, I110), item(130, I130), item(131, I131), item(132, I132),
    item(140, I140), item(145, I145), item(146, I146), item(148, I148), item(150, I150), item(151, I151),
    item(152, I152), item(155, I155), item(157, I157), item(160, I160), item(161, I161), item(165, I165),
    item(170, I170), item(200, I200), item(210, I210), item(220, I220), item(230, I230), item(250, I250),
    item(260, I260), item(295, I295), item(400, I400), item(907, I271), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

} // namespace edition_2_1

namespace edition_2_4 {

using namespace editions_since_2_1;

constexpr auto I040 = extended("I040", "Target Report Descriptor",
    part(code("ATP", "Address Type", 3,
             "24-Bit ICAO address|Duplicate address|Surface vehicle address|Anonymous address|"
             "Reserved for future use|Reserved for future use|Reserved for future use|Reserved for future use"),
         code("ARC", "Altitude Reporting Capability", 2, "25 ft|100 ft|Unknown|Invalid"),
         code("RC", "Range Check", 1, "Default|Range Check passed, CPR Validation pending"),
         code("RAB", "Report Type", 1,
             "Report from target transponder|Report from field monitor (fixed transponder)")),
    part(code("DCR", "Differential Correction", 1,
             "No differential correction (ADS-B)|Differential correction (ADS-B)"),
         code("GBS", "Ground Bit Setting", 1, "Ground Bit not set|Ground Bit set"),
         code("SIM", "Simulated Target", 1, "Actual target report|Simulated target report"),
         code("TST", "Test Target", 1, "Default|Test Target"),
         code("SAA", "Selected Altitude Available", 1,
             "Equipment capable to provide Selected Altitude|Equipment not capable to provide Selected Altitude"),
         code("CL", "Confidence Level", 2, "Report valid|Report suspect|No information|Reserved for future use")),
    part(spare(1),
         code("LLC", "List Lookup Check", 1, "Default|List Lookup failed (see note)"),
         code("IPC", "Independent Position Check", 1, "Default (see note)|Independent Position Check failed"),
         code("NOGO", "No-go Bit Status", 1, "NOGO-bit not set|NOGO-bit set"),
         code("CPR", "Compact Position Reporting", 1, "CPR Validation correct|CPR Validation failed"),
         code("LDPJ", "Local Decoding Position Jump", 1, "LDPJ not detected|LDPJ detected"),
         code("RCF", "Range Check", 1, "Default|Range Check failed")));

constexpr Item kItems[] = {
    item(8, I008), item(10, I010), item(15, I015), item(16, I016), item(20, I020), item(40, I040), item(70, I070),
    item(71, I071), item(72, I072), item(73, I073), item(74, I074), item(75, I075), item(76, I076), item(77, I077),
    item(80, I080), item(90, I090), item(110, I110), item(130, I130), item(131, I131), item(132, I132),
    item(140, I140), item(145, I145), item(146, I146), item(148, I148), item(150, I150), item(151, I151),
    item(152, I152), item(155, I155), item(157, I157), item(160, I160), item(161, I161), item(165, I165),
    item(170, I170), item(200, I200), item(210, I210), item(220, I220), item(230, I230), item(250, I250),
    item(260, I260), item(271, I271), item(295, I295), item(400, I400), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

} // namespace edition_2_4

namespace newest_edition {

using namespace editions_since_2_1;

constexpr auto I040 = extended("I040", "Target Report Descriptor",
    part(code("ATP", "Address Type", 3,
             "24-Bit ICAO address|Duplicate address|Surface vehicle address|Anonymous address|"
             "Reserved for future use|Reserved for future use|Reserved for future use|Reserved for future use"),
         code("ARC", "Altitude Reporting Capability", 2, "25 ft|100 ft|Unknown|Invalid"),
         code("RC", "Range Check", 1, "Default|Range Check passed, CPR Validation pending"),
         code("RAB", "Report Type", 1,
             "Report from target transponder|Report from field monitor (fixed transponder)")),
    part(code("DCR", "Differential Correction", 1,
             "No differential correction (ADS-B)|Differential correction (ADS-B)"),
         code("GBS", "Ground Bit Setting", 1, "Ground Bit not set|Ground Bit set"),
         code("SIM", "Simulated Target", 1, "Actual target report|Simulated target report"),
         code("TST", "Test Target", 1, "Default|Test Target"),
         code("SAA", "Selected Altitude Available", 1,
             "Equipment capable to provide Selected Altitude|Equipment not capable to provide Selected Altitude"),
         code("CL", "Confidence Level", 2, "Report valid|Report suspect|No information|Reserved for future use")),
    part(spare(1),
         code("LLC", "List Lookup Check", 1, "Default|List Lookup failed (see note)"),
         code("IPC", "Independent Position Check", 1, "Default (see note)|Independent Position Check failed"),
         code("NOGO", "No-go Bit Status", 1, "NOGO-bit not set|NOGO-bit set"),
         code("CPR", "Compact Position Reporting", 1, "CPR Validation correct|CPR Validation failed"),
         code("LDPJ", "Local Decoding Position Jump", 1, "LDPJ not detected|LDPJ detected"),
         code("RCF", "Range Check", 1, "Default|Range Check failed")),
    part(group("TBC", "Total Bits Corrected",
             code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
             integer("VAL", "Value", 6))),
    part(group("MBC", "Maximum Bits Corrected",
             code("EP", "Element Populated Bit", 1, "Element not populated|Element populated"),
             integer("VAL", "Value", 6))));

constexpr auto I090 = extended("I090", "Quality Indicators",
    part(raw("NUCRNACV", "Navigation Uncertainty Category for Velocity NUCr or the Navigation Accuracy Category for Velocity NACv",
             3),
         raw("NUCPNIC", "Navigation Uncertainty Category for Position NUCp or Navigation Integrity Category NIC", 4)),
    part(raw("NICBARO", "Navigation Integrity Category for Barometric Altitude", 1),
         raw("SIL", "Surveillance (version 1) or Source (version 2) Integrity Level", 2),
         raw("NACP", "Navigation Accuracy Category for Position", 4)),
    part(spare(2),
         code("SILS", "SIL-Supplement", 1, "Measured per flight-hour|Measured per sample"),
         raw("SDA", "Horizontal Position System Design Assurance Level (as Defined in Version 2)", 2),
         raw("GVA", "Geometric Altitude Accuracy", 2)),
    part(raw("PIC", "Position Integrity Category", 4),
         code("SRC", "Source of the PIC", 1,
             "PIC mapped from FTC and NIC Supplements|1 PIC directly received in HVA or Phase Overlay"),
         spare(2)),
    part(spare(2),
         group("VALSTATE", "Position Validation State",
             code("EP", "VAL_STATE Element Populated Bit", 1, "Element not populated|Element populated"),
             code("VAL", "VAL_STATE Value", 2,
                 "Validation not performed|Validation performed without Pass/Fail (see Note)|"
                 "Validation Pass (see Note)|Validation Fail (see Note)")),
         code("VD", "Validation Distance Availability", 1, "Item not available|Item available"),
         code("VQ", "Validation Distance Quality Availability", 1, "Item not available|Item available")),
    part(quantity("VALDISTP1", "Position Validation Distance P1", 7, {128, 1}, "m")),
    part(quantity("VALDISTP2", "Position Validation Distance P2", 7, {1, 1}, "m")),
    part(quantity("VALDISTQUALP1", "Position Validation Distance Quality P1", 7, {128, 1}, "m")),
    part(quantity("VALDISTQUALP2", "Position Validation Distance Quality P2", 7, {1, 1}, "m")));

constexpr auto I210 = group("I210", "MOPS Version",
    spare(1),
    code("VNS", "Version Not Supported", 1,
        "The MOPS Version is supported by the GS|The MOPS Version is not supported by the GS"),
    code("VN", "Version Number", 3,
        "ED102/DO-260 [Ref. 7]|DO-260A [Ref. 8]|ED102A/DO-260B [Ref. 10]|ED-102B/DO-260C [Ref. 11]"),
    code("LTT", "Link Technology Type", 3,
        "Other|UAT|1090 ES|VDL 4|Not assigned|Not assigned|Not assigned|Not assigned"));

constexpr auto I295 = compound("I295", "Data Ages",
    quantity("AOS", "Aircraft Operational Status Age", 8, {1, 10}, "s"),
    quantity("TRD", "Target Report Descriptor Age", 8, {1, 10}, "s"),
    quantity("M3A", "Mode 3/A Age", 8, {1, 10}, "s"),
    quantity("QI", "Quality Indicators Age", 8, {1, 10}, "s"),
    quantity("TI1", "Trajectory Intent Age", 8, {1, 10}, "s"),
    quantity("MAM", "Message Amplitude Age", 8, {1, 10}, "s"),
    quantity("GH", "Geometric Height Age", 8, {1, 10}, "s"),
    quantity("FL", "Flight Level Age", 8, {1, 10}, "s"),
    quantity("SAL", "Selected Altitude Age", 8, {1, 10}, "s"),
    quantity("FSA", "Final State Selected Altitude Age", 8, {1, 10}, "s"),
    quantity("AS", "Air Speed Age", 8, {1, 10}, "s"),
    quantity("TAS", "True Air Speed Age", 8, {1, 10}, "s"),
    quantity("MH", "Magnetic Heading Age", 8, {1, 10}, "s"),
    quantity("BVR", "Barometric Vertical Rate Age", 8, {1, 10}, "s"),
    quantity("GVR", "Geometric Vertical Rate Age", 8, {1, 10}, "s"),
    quantity("GV", "Ground Vector Age", 8, {1, 10}, "s"),
    quantity("TAR", "Track Angle Rate Age", 8, {1, 10}, "s"),
    quantity("TI2", "Target Identification Age", 8, {1, 10}, "s"),
    quantity("TS", "Target Status Age", 8, {1, 10}, "s"),
    quantity("MET", "Met Information Age", 8, {1, 10}, "s"),
    quantity("ROA", "Roll Angle Age", 8, {1, 10}, "s"),
    quantity("ARA", "ACAS Resolution Advisory Age", 8, {1, 10}, "s"),
    quantity("SCC", "Surface Capabilities and Characteristics Age", 8, {1, 10}, "s"));

constexpr Item kItems[] = {
    item(8, I008), item(10, I010), item(15, I015), item(16, I016), item(20, I020), item(40, I040), item(70, I070),
    item(71, I071), item(72, I072), item(73, I073), item(74, I074), item(75, I075), item(76, I076), item(77, I077),
    item(80, I080), item(90, I090), item(110, I110), item(130, I130), item(131, I131), item(132, I132),
    item(140, I140), item(145, I145), item(146, I146), item(148, I148), item(150, I150), item(151, I151),
    item(152, I152), item(155, I155), item(157, I157), item(160, I160), item(161, I161), item(165, I165),
    item(170, I170), item(200, I200), item(210, I210), item(220, I220), item(230, I230), item(250, I250),
    item(260, I260), item(271, I271), item(295, I295), item(400, I400), item(AST_ITEM_REF, REF),
    item(AST_ITEM_SPF, SPF),
};

constexpr uint16_t kProfile[] = {
    10, 40, 161, 15, 71, 130, 131,
    72, 150, 151, 80, 73, 74, 75,
    76, 140, 90, 210, 70, 230, 145,
    152, 200, 155, 157, 160, 165, 77,
    170, 20, 220, 146, 148, 110, 16,
    8, 271, 132, 250, 260, 400, 295,
    kSpare, kSpare, kSpare, kSpare, kSpare, AST_ITEM_REF, AST_ITEM_SPF,
};

} // namespace newest_edition

// clang-format on

} // namespace

constinit const Edition kCat021Ed023 = edition<edition_0_23::kItems>(21, "0.23", "ADS-B Target Reports");
constinit const Edition kCat021Ed026 = edition<edition_0_26::kItems>(21, "0.26", "ADS-B Target Reports");
constinit const Edition kCat021Ed21 = edition<edition_2_1::kItems>(21, "2.1", "ADS-B Target Reports");
constinit const Edition kCat021Ed24 = edition<edition_2_4::kItems>(21, "2.4", "ADS-B Target Reports");
constinit const Edition kCat021 =
    edition<newest_edition::kItems>(21, "2.7", "ADS-B Target Reports", profile(newest_edition::kProfile));

} // namespace ast::schema
