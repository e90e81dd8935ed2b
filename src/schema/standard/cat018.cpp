// Category 018: Mode S Datalink Function Messages, edition 1.8.

#include "schema/standard/tables.hpp"

namespace ast::schema {

namespace {

// clang-format off

constexpr auto I000 = code("I000", "Message Type", 8,
    "Associate_req|Associate_resp|Release_req|Release_resp|Abort_req|Keep_alive|16:Aircraft_report|"
    "Aircraft_command|II_code_change|32:Uplink_packet|Cancel_uplink_packet|Uplink_packet_ack|Downlink_packet|"
    "38:Data_XON|Data_XOFF|48:Uplink_broadcast|Cancel_uplink_broadcast|Uplink_broadcast_ack|"
    "52:Downlink_broadcast|64:GICB_extraction|Cancel_GICB_extraction|GICB_extraction_ack|GICB_response");

constexpr auto I001 = group("I001", "Result",
    code("CAUSE", "Cause", 4,
        "Accepted, the request is accepted and is under processing|Rejected, the request has not been accepted|"
        "Cancelled, the request has been cancelled|"
        "Finished, the request has been accepted and successfully processed|"
        "Delayed, the request processing is temporarily delayed but the request is still valid|"
        "In Progress, the request is being successfully processed|"
        "In Progress, the request is being successfully processed"),
    code("DIAG", "Diagnostic", 4,
        "No diagnostic available|Aircraft Exit|Incorrect aircraft address|Impossibility to process the message|"
        "Insufficient or change in data link capability|Invalid LV field|Duplicate request number|"
        "Unknown request number|Timer T3 expiry|Expiry of I/R delivery timer|Uplink flow disabled by UC"));

constexpr auto I002 = quantity("I002", "Time of Day", 24, {1, 1U << 7}, "s");

constexpr auto I004 = group("I004", "II Code",
    raw("PREVIOUSII", "Former II Code", 4),
    raw("CURRENTII", "Current II Code", 4));

constexpr auto I005 = raw("I005", "Mode S Address", 24);

constexpr auto I006 = repetitive("I006", "Mode S Address List",
    raw("", "", 24));

constexpr auto I007 = group("I007", "Aircraft Data Link Command",
    code("UM", "Uplink Mask", 1, "UC shall be ignored|UC shall be taken into account"),
    code("DM", "Downlink Mask", 1, "DC shall be ignored|DC shall be taken into account"),
    code("UC", "Uplink Command", 1, "the uplink flow shall be enabled|the uplink flow shall be stopped"),
    code("DC", "Downlink Command", 1, "the downlink flow shall be enabled|the downlink flow shall be stopped"),
    spare(4));

constexpr auto I008 = extended("I008", "Aircraft Data Link Status",
    part(code("UDS", "Uplink Default Status", 1,
             "The interrogator is enabled to uplink frames|The interrogator is disabled to uplink frames"),
         code("DDS", "Downlink Default Status", 1,
             "The interrogator is enabled to extract frames|The interrogator is disabled to extract frames"),
         code("UCS", "Uplink Current Status", 1,
             "The interrogator is enabled to uplink frames|The interrogator is disabled to uplink frames"),
         code("DCS", "Downlink Current Status", 1,
             "The interrogator is enabled to extract frames|The interrogator is disabled to extract frames"),
         spare(2),
         code("EI", "Exit Indication", 1,
             "The aircraft is in the Datalink coverage map of the interrogator|"
             "The aircraft is not in the Datalink coverage map of the interrogator")),
    part(code("IC", "Interrogator Control", 1,
             "The interrogators current ability to uplink/downlink frames (UCS/DCS) and the content of the "
             "Aircraft_report could be changed using D_Data_link_command|"
             "The interrogators current ability to uplink/downlink frames (UCS/DCS) and the content of the "
             "Aircraft_report cannot be changed using D_Data_link_command"),
         spare(6)));

constexpr auto I009 = extended("I009", "Aircraft Data Link Report Request",
    part(code("SR", "", 1,
             "The next Aircraft_report may not include D_Data_link_status|"
             "The next Aircraft_report shall include D_Data_link_status"),
         code("AR", "", 1,
             "The next Aircraft_report may not include D_COM|The next Aircraft_report shall include D_COM"),
         code("ER", "", 1,
             "The next Aircraft_report may not include D_ECA|The next Aircraft_report shall include D_ECA"),
         code("FR", "", 1,
             "The next Aircraft_report may not include D_CQF|The next Aircraft_report shall include D_CQF"),
         code("MR", "", 1,
             "The next Aircraft_report may not include D_CQF_method|"
             "The next Aircraft_report shall include D_CQF_method"),
         code("PR", "", 1,
             "The next Aircraft_report may not include D_Polar_position|"
             "The next Aircraft_report shall include D_Polar_position"),
         code("CR", "", 1,
             "The next Aircraft_report may not include D_Cartesian_position|"
             "The next Aircraft_report shall include D_Cartesian_position")),
    part(code("ID", "", 1,
             "The next Aircraft_report may not include Aircraft_ID|"
             "The next Aircraft_report shall include Aircraft_ID"),
         code("MA", "", 1,
             "The next Aircraft_report may not include Mode_A|The next Aircraft_report shall include Mode_A"),
         code("SP", "", 1,
             "The next Aircraft_report may not include Speed|The next Aircraft_report shall include Speed"),
         code("HG", "", 1,
             "The next Aircraft_report may not include Height|The next Aircraft_report shall include Height"),
         code("HD", "", 1,
             "The next Aircraft_report may not include Heading|The next Aircraft_report shall include Heading"),
         spare(2)));

constexpr auto I010 = group("I010", "Transponder Communications Capability",
    spare(5),
    code("COM", "Communications Capability of the Transponder", 3,
        "No communications capability (surveillance only)|Comm. A and Comm. B capability|"
        "Comm. A, Comm. B and Uplink ELM|Comm. A, Comm. B and Uplink ELM and Downlink ELM|"
        "Level 5 Transponder capability"));

constexpr auto I011 = raw("I011", "Capability Report", 56);

constexpr auto I012 = group("I012", "Aircraft Coverage Quality Factor",
    code("FS", "Flight Status", 1, "Aircraft is airborne|Aircraft is on the ground"),
    code("CQF", "Aircraft CQF", 7,
        "The CQF calculation method is not supported|The CQF is minimum|126:The CQF is maximum|"
        "The CQF is undefined according to the calculation method"));

constexpr auto I013 = raw("I013", "Aircraft CQF Calculation Method", 8);

constexpr auto I014 = group("I014", "Aircraft Position in Polar Co-ordinates",
    quantity("RHO", "", 16, {1, 1U << 8}, "NM"),
    quantity("THETA", "", 16, {360, 1U << 16}, "°"));

constexpr auto I015 = group("I015", "Aircraft Position in Cartesian Co-ordinates",
    signed_quantity("X", "X-Component", 16, {1, 1U << 7}, "NM"),
    signed_quantity("Y", "Y-Component", 16, {1, 1U << 7}, "NM"));

constexpr auto I016 = integer("I016", "Packet Number", 32);

constexpr auto I017 = repetitive("I017", "Packet Number List",
    integer("", "", 32));

constexpr auto I018 = group("I018", "Mode S Packet Properties",
    spare(1),
    integer("PR", "Mode S Packet Internal Priority", 5),
    code("PT", "Packet Type", 2, "SVC packets|MSP packets|Route packets"));

constexpr auto I019 = explicit_length("I019", "Mode S Packet");

constexpr auto I020 = integer("I020", "Broadcast Number", 32);

constexpr auto I021 = group("I021", "Broadcast Properties",
    integer("PRIORITY", "Priority", 4),
    integer("POWER", "Power", 4),
    quantity("DURATION", "Duration", 8, {1, 1}, "s"),
    raw("COVERAGE", "Coverage", 32));

constexpr auto I022 = group("I022", "Broadcast Prefix",
    spare(5),
    raw("PREFIX", "Prefix Field", 27));

constexpr auto I023 = raw("I023", "Uplink or Downlink Broadcast", 56);

constexpr auto I025 = integer("I025", "GICB Number", 32);

constexpr auto I027 = raw("I027", "BDS Code", 8);

constexpr auto I028 = quantity("I028", "GICB Extraction Periodicity", 16, {1, 1}, "s");

constexpr auto I029 = raw("I029", "GICB Extracted", 56);

constexpr auto I030 = group("I030", "GICB Properties",
    integer("PRIORITY", "GICB Priority", 5),
    spare(3),
    code("PC", "Periodicity Constraint", 1,
        "The periodicity may not be strictly respected|The periodicity shall be strictly respected"),
    code("AU", "Asynchronous Update", 1,
        "GICB extractions should be sent only when required by the periodicity|"
        "If a GICB extraction is done due to external conditions, an update will also be sent, even if it does "
        "not match the expected periodicity"),
    code("NE", "Non Extraction", 1,
        "The GICB extraction is attempted according to the periodicity|There will no GICB attempts"),
    code("RD", "Reply Destination", 2,
        "The extracted GICB must be sent only on the Data Link line|"
        "The extracted GICB must be sent only on the Surveillance line|"
        "The extracted GICB must be sent both on the Data Link and on the Surveillance lines"),
    spare(3));

constexpr auto I031 = raw("I031", "Aircraft Identity", 48);

constexpr auto I032 = group("I032", "Aircraft Mode A",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    code("L", "", 1,
        "Mode-3/A code derived from the reply of the transponder|Mode-3/A code not extracted during the last scan"),
    spare(1),
    octal("MOD3A", "", 12));

constexpr auto I033 = group("I033", "Aircraft Height",
    code("V", "", 1, "Code validated|Code not validated"),
    code("G", "", 1, "Default|Garbled code"),
    signed_quantity("FL", "Flight Level", 14, {1, 1U << 2}, "FL"));

constexpr auto I034 = quantity("I034", "Aircraft Speed", 16, {1, 1U << 14}, "NM/s");

constexpr auto I035 = quantity("I035", "Aircraft Heading", 16, {360, 1U << 16}, "°");

constexpr auto I036 = group("I036", "Data Source Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr auto I037 = group("I037", "Data Destination Identifier",
    raw("SAC", "System Area Code", 8),
    raw("SIC", "System Identification Code", 8));

constexpr Item kItems[] = {
    item(0, I000), item(1, I001), item(2, I002), item(4, I004), item(5, I005), item(6, I006), item(7, I007),
    item(8, I008), item(9, I009), item(10, I010), item(11, I011), item(12, I012), item(13, I013), item(14, I014),
    item(15, I015), item(16, I016), item(17, I017), item(18, I018), item(19, I019), item(20, I020), item(21, I021),
    item(22, I022), item(23, I023), item(25, I025), item(27, I027), item(28, I028), item(29, I029), item(30, I030),
    item(31, I031), item(32, I032), item(33, I033), item(34, I034), item(35, I035), item(36, I036), item(37, I037),
};

constexpr uint16_t kProfile[] = {
    36, 37, 0, 1, 5, 16, 17,
    18, 19, 28, 30, 25, 27, 29,
    2, 6, 7, 8, 9, 10, 11,
    14, 15, 20, 21, 22, 23, 4,
    31, 32, 33, 34, 35, 12, 13,
};

// clang-format on

} // namespace

constinit const Edition kCat018 = edition<kItems>(18, "1.8", "Mode S Datalink Function Messages", profile(kProfile));

} // namespace ast::schema
