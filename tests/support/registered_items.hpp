// Every registered item: its type, its title and one sample of it. The layouts are those of the category documents.
#pragma once

#include <cstdint>
#include <vector>

#include "ast.h"
#include "support/octets.hpp"

namespace ast_test {

// Lenient items are valid, if shorter than they say or than they should be, where octets are missing.
enum class SizeKind : uint8_t { Whole, Extended, Unlimited, Lenient };

struct Sample {
    SizeKind kind;
    const char *first; // its first octets; the others are zero
    uint64_t size;     // in octets
};

constexpr Sample fixed(uint64_t size) { return {SizeKind::Whole, "", size}; }
constexpr Sample extended(uint64_t maximum) { return {SizeKind::Extended, "", maximum}; }
constexpr Sample repetitive(uint64_t element) { return {SizeKind::Whole, "02", 1 + 2 * element}; }
constexpr Sample whole(const char *first, uint64_t size) { return {SizeKind::Whole, first, size}; }
constexpr Sample lenient(const char *first, uint64_t size) { return {SizeKind::Lenient, first, size}; }
constexpr Sample unlimited{SizeKind::Unlimited, "01 01 01", 4};
constexpr Sample explicit_length = lenient("05", 5);
constexpr Sample composed = lenient("12 34 57", 6);

struct RegisteredItem {
    ast_dataitem_type_t type;
    Sample sample;
    const char *name;
};

// clang-format off
constexpr RegisteredItem kRegisteredItems[] = {
    {1010, fixed(2), "Data Source Identifier"}, {1020, extended(2), "Target Report Descriptor"},
    {1030, unlimited, "Warning/Error Conditions"}, {1040, fixed(4), "Measured Position in Polar Co-ordinates"},
    {1042, fixed(4), "Calculated Position in Cartesian Co-ordinates"},
    {1050, fixed(2), "Mode-2 Code in Octal Representation"}, {1060, fixed(2), "Mode-2 Code Confidence Indicator"},
    {1070, fixed(2), "Mode-3/A Code in Octal Representation"}, {1080, fixed(2), "Mode-3/A Code Confidence Indicator"},
    {1090, fixed(2), "Mode-C Code in Binary Representation"},
    {1100, fixed(4), "Mode-C Code and Code Confidence Indicator"}, {1120, fixed(1), "Measured Radial Doppler Speed"},
    {1130, unlimited, "Radar Plot Characteristics"}, {1131, fixed(1), "Received Power"},
    {1141, fixed(2), "Truncated Time of Day"}, {1150, fixed(1), "Presence of X-Pulse"},
    {1161, fixed(2), "Track Plot Number"}, {1170, extended(2), "Track Status"},
    {1200, fixed(4), "Calculated Track Velocity in Polar Co-ordinates"}, {1210, unlimited, "Track Quality"},
    {1901, extended(1), "Radar Plot Characteristics"}, {1902, extended(1), "Track Quality"},
    {1903, extended(4), "Radar Plot Characteristics"}, {1904, extended(11), "Track Quality"},
    {1951, fixed(2), "Custom Field"}, {1997, explicit_length, "Random Field Sequencing"},
    {1999, explicit_length, "Special Purpose Field"},
    {2000, fixed(1), "Message Type"}, {2010, fixed(2), "Data Source Identifier"}, {2020, fixed(1), "Sector Number"},
    {2030, fixed(3), "Time of Day"}, {2041, fixed(2), "Antenna Rotation Speed"},
    {2050, unlimited, "Station Configuration Status"}, {2901, extended(16), "Station Configuration Status"},
    {2902, extended(16), "Station Configuration Status"}, {2951, fixed(2), "Unknown CAT002 Dataitem"},
    {2997, explicit_length, "Random Field Sequencing"}, {2999, explicit_length, "Special Purpose Field"},
    {4000, fixed(1), "Message Type"}, {4010, fixed(2), "Data Source Identifier"}, {4020, fixed(3), "Time of Message"},
    {4030, fixed(2), "Track Number 1"}, {4035, fixed(2), "Track Number 2"}, {4040, fixed(2), "Alert Identifier"},
    {4060, extended(6), "Safety Net Function & System Status"}, {4100, whole("FC", 42), "Area Definition"},
    {4120, whole("F0", 5), "Conflict Characteristics"},
    {4170, whole("FF E0", 47), "Aircraft Identification & Characteristics 1"},
    {4171, whole("FF E0", 47), "Aircraft Identification & Characteristics 2"},
    {4998, explicit_length, "Reserved Expansion Field"}, {4999, explicit_length, "Special Purpose Field"},
    {8000, fixed(1), "Message Type"}, {8010, fixed(2), "Data Source Identifier"},
    {8020, extended(2), "Vector Qualifier"}, {8034, repetitive(4), "Sequence of Polar Vectors in SPF Notation"},
    {8036, repetitive(3), "Sequence of Cartesian Vectors in SPF Notation"},
    {8038, repetitive(4), "Sequence of Weather Vectors in SPF Notation"}, {8040, fixed(2), "Contour Identifier"},
    {8050, repetitive(2), "Sequence of Contour Points in SPF Notation"}, {8090, fixed(3), "Time of Day"},
    {8100, whole("", 3), "Processing Status"}, {8110, extended(2), "Station Configuration Status"},
    {8120, fixed(2), "Total Number of Items Constituting One Weather Picture"},
    {8997, explicit_length, "Random Field Sequencing"}, {8999, explicit_length, "Special Purpose Field"},
    {10000, fixed(1), "Message Type"}, {10010, fixed(2), "Data Source Identifier"},
    {10020, extended(3), "Target Report Descriptor"}, {10040, fixed(4), "Measured Position in Polar Co-ordinates"},
    {10041, fixed(8), "Position in WGS-84 Co-ordinates"}, {10042, fixed(4), "Position in Cartesian Co-ordinates"},
    {10060, fixed(2), "Mode-3/A Code in Octal Representation"},
    {10090, fixed(2), "Flight Level in Binary Representation"}, {10091, fixed(2), "Measured Height"},
    {10131, fixed(1), "Amplitude of Primary Plot"}, {10140, fixed(3), "Time of Day"},
    {10161, fixed(2), "Track Number"}, {10170, extended(3), "Track Status"},
    {10200, fixed(4), "Calculated Track Velocity in Polar Co-ordinates"},
    {10202, fixed(4), "Calculated Track Velocity in Cartesian Co-ordinates"}, {10220, fixed(3), "Target Address"},
    {10245, fixed(7), "Target Identification"}, {10270, extended(3), "Target Size and Orientation"},
    {10500, fixed(4), "Standard Deviation of Position"}, {10550, fixed(1), "System Status"},
    {10998, explicit_length, "Reserved Expansion Field"}, {10999, explicit_length, "Special Purpose Field"},
    {15000, fixed(1), "Message Type"}, {15010, fixed(2), "Data Source Identifier"},
    {15020, extended(1), "Target Report Descriptor"}, {15145, fixed(3), "Time of Applicability"},
    {15161, fixed(2), "Track/Plot Number"}, {15170, fixed(1), "Track/Plot Status"},
    {15300, repetitive(2), "Object Classification"}, {15400, fixed(5), "Measurement Identifier"},
    {15480, repetitive(5), "Associations"}, {15600, whole("E0", 19), "Horizontal Position Information"},
    {15601, whole("FF 80", 23), "Geometric Height Information"},
    {15602, whole("F0", 20), "Horizontal Velocity Information"},
    {15604, whole("FC", 15), "Vertical Velocity Information"}, {15625, whole("FF 80", 27), "Range Information"},
    {15626, whole("FF E0", 18), "Doppler Information"}, {15627, whole("FC", 16), "Azimuth Information"},
    {16000, fixed(1), "Message Type"}, {16010, fixed(2), "Data Source Identifier"},
    {16015, fixed(1), "Service Identification"}, {16140, fixed(3), "Time of Day"},
    {16200, fixed(1), "System Configuration Reporting Period"}, {16300, repetitive(6), "Pair Identification"},
    {16400, fixed(8), "Position of System Reference Point"}, {16405, fixed(2), "Height of System Reference Point"},
    {16410, repetitive(21), "Transmitter Properties"}, {16420, repetitive(12), "Receiver Properties"},
    {19000, fixed(1), "Message Type"}, {19010, fixed(2), "Data Source Identifier"}, {19140, fixed(3), "Time of Day"},
    {19550, fixed(1), "System Status"}, {19551, fixed(1), "Tracking Processor Detailed Status"},
    {19552, repetitive(2), "Remote Sensor Detailed Status"},
    {19553, unlimited, "Reference Transponder Detailed Status"},
    {19600, fixed(8), "Position of MLT System Reference Point"},
    {19610, fixed(2), "Height of MLT System Reference Point"}, {19620, fixed(1), "WGS-84 Undulation"},
    {19998, explicit_length, "Reserved Expansion Field"}, {19999, explicit_length, "Special Purpose Field"},
    {20010, fixed(2), "Data Source Identifier"}, {20020, extended(3), "Target Report Descriptor"},
    {20030, unlimited, "Warning/Error Conditions"}, {20041, fixed(8), "Position In WGS-84 Coordinates"},
    {20042, fixed(6), "Position in Cartesian Coordinates"}, {20050, fixed(2), "Mode-2 Code in Octal Representation"},
    {20055, fixed(1), "Mode-1 Code in Octal Representation"},
    {20070, fixed(2), "Mode-3/A Code in Octal Representation"},
    {20090, fixed(2), "Flight Level in Binary Representation"}, {20100, fixed(4), "Mode C Code"},
    {20105, fixed(2), "Geometric Height (WGS-84)"}, {20110, fixed(2), "Measured Height (Local Cartesian Coordinates)"},
    {20140, fixed(3), "Time of Day"}, {20161, fixed(2), "Track Number"}, {20170, extended(2), "Track Status"},
    {20202, fixed(4), "Calculated Track Velocity in Cartesian Coordinates"},
    {20210, fixed(2), "Calculated Acceleration"}, {20220, fixed(3), "Target Address"},
    {20230, fixed(2), "Communications/ACAS Capability and Flight Status"}, {20245, fixed(7), "Target Identification"},
    {20250, repetitive(8), "BDS Register Data"}, {20260, fixed(7), "ACAS Resolution Advisory Report"},
    {20300, fixed(1), "Vehicle Fleet Identification"}, {20310, fixed(1), "Pre-programmed Message"},
    {20400, repetitive(1), "Contributing Devices"}, {20500, whole("E0", 15), "Position Accuracy"},
    {20998, explicit_length, "Reserved Expansion Field"}, {20999, explicit_length, "Special Purpose Field"},
    {21008, fixed(1), "Aircraft Operational Status"}, {21010, fixed(2), "Data Source Identifier"},
    {21015, fixed(1), "Service Identification"}, {21016, fixed(1), "Service Management"},
    {21020, fixed(1), "Emitter Category"}, {21030, fixed(3), "Time of Day"}, {21032, fixed(1), "Time of Day Accuracy"},
    {21040, extended(3), "Target Report Descriptor"}, {21070, fixed(2), "Mode-3/A Code in Octal Representation"},
    {21071, fixed(3), "Time of Applicability for Position"}, {21072, fixed(3), "Time of Applicability for Velocity"},
    {21073, fixed(3), "Time of Message Reception for Position"},
    {21074, fixed(4), "Time of Message Reception of Position - High Precision"},
    {21075, fixed(3), "Time of Message Reception for Velocity"},
    {21076, fixed(4), "Time of Message Reception of Velocity - High Precision"},
    {21077, fixed(3), "Time of ASTERIX Report Transmission"}, {21080, fixed(3), "Target Address"},
    {21090, extended(4), "Quality Indicators"}, {21095, fixed(1), "Velocity Accuracy"},
    {21110, lenient("C0 00 01", 18), "Unknown CAT021 Dataitem"}, {21130, fixed(6), "Position in WGS84 Coordinates"},
    {21131, fixed(8), "High-Resolution Position in WGS-84 Coordinates"}, {21132, fixed(1), "Message Amplitude"},
    {21140, fixed(2), "Geometric Altitude"}, {21145, fixed(2), "Flight Level"}, {21146, fixed(2), "Selected Altitude"},
    {21148, fixed(2), "Unknown CAT021 Dataitem"}, {21150, fixed(2), "Air Speed"}, {21151, fixed(2), "True Air Speed"},
    {21152, fixed(2), "Magnetic Heading"}, {21155, fixed(2), "Barometric Vertical Rate"},
    {21157, fixed(2), "Geometric Vertical Rate"}, {21160, fixed(4), "Ground Vector"},
    {21161, fixed(2), "Track Number"}, {21165, extended(2), "Track Angle Rate"},
    {21170, fixed(6), "Target Identification"}, {21200, fixed(1), "Target Status"}, {21210, fixed(1), "MOPS Version"},
    {21220, whole("F0", 8), "Unknown CAT021 Dataitem"}, {21230, fixed(2), "Roll Angle"},
    {21250, repetitive(8), "Mode S MB Data"}, {21271, extended(2), "Surface Capabilities and Characteristics"},
    {21295, whole("FF FF FF C0", 27), "Data Ages"}, {21400, fixed(1), "Receiver ID"},
    {21902, fixed(8), "Position in WGS84 Coordinates (Version 0.24 ~ 0.26)"},
    {21903, fixed(2), "Target Report Descriptor (Prior Version 0.26)"},
    {21904, fixed(1), "Signal Amplitude (Version 0.26)"}, {21905, fixed(2), "Figure of Merit (Prior Version 0.26)"},
    {21906, fixed(1), "Link Technology Indicator (Prior Version 0.26)"},
    {21907, whole("01 01", 2), "Surface Capabilities and Characteristics (Version 1.0 ~ 2.1)"},
    {21908, fixed(1), "Target Status (Prior Version 0.26)"}, {21998, explicit_length, "Reserved Expansion Field"},
    {21999, explicit_length, "Special Purpose Field"},
    {23000, fixed(1), "Report Type"}, {23010, fixed(2), "Data Source Identifier"},
    {23015, fixed(1), "Service Type and Identification"}, {23070, fixed(3), "Time of Day"},
    {23100, extended(2), "Ground Station Status"}, {23101, extended(2), "Ground Station Configuration"},
    {23110, extended(1), "Service Status"}, {23120, repetitive(6), "Service Statistics"},
    {34000, fixed(1), "Message Type"}, {34010, fixed(2), "Data Source Identifier"}, {34020, fixed(1), "Sector Number"},
    {34030, fixed(3), "Time of Day"}, {34041, fixed(2), "Antenna Rotation Period"},
    {34050, whole("FE", 6), "Station Configuration & Status"}, {34060, whole("FE", 5), "System Processing Mode"},
    {34070, repetitive(2), "Message Count Values"}, {34090, fixed(2), "Collimation Error"},
    {34110, fixed(1), "Data Filter"}, {34120, fixed(8), "3D-Position Of Data Source"},
    {34998, explicit_length, "Reserved Expansion Field"}, {34999, explicit_length, "Special Purpose Field"},
    {48010, fixed(2), "Data Source Identifier"}, {48020, extended(2), "Target Report Descriptor"},
    {48030, extended(23), "Warning/Error Conditions"}, {48040, fixed(4), "Measured Position in Polar Co-ordinates"},
    {48042, fixed(4), "Calculated Position in Cartesian Co-ordinates"},
    {48050, fixed(2), "Mode-2 Code in Octal Representation"},
    {48070, fixed(2), "Mode-3/A Code in Octal Representation"},
    {48080, fixed(2), "Mode-3/A Code Confidence Indicator"},
    {48090, fixed(2), "Flight Level in Binary Representation"},
    {48100, fixed(4), "Mode-C Code and Code Confidence Indicator"}, {48110, fixed(2), "Height Measured by a 3D Radar"},
    {48120, whole("C0", 10), "Radial Doppler Speed"}, {48130, whole("FE", 8), "Radar Plot Characteristics"},
    {48140, fixed(3), "Time of Day"}, {48161, fixed(2), "Track Number"}, {48170, extended(2), "Track Status"},
    {48200, fixed(4), "Calculated Track Velocity in Ploar Co-ordinates"}, {48210, fixed(4), "Track Quality"},
    {48220, fixed(3), "Aircraft Address"}, {48230, fixed(2), "Communications / ACAS Capability and Flight Status"},
    {48240, fixed(6), "Aircraft Identification"}, {48250, repetitive(8), "Mode S MB Data"},
    {48260, fixed(7), "ACAS Resolution Advisory Report"}, {48998, explicit_length, "Reserved Expansion Field"},
    {48999, explicit_length, "Special Purpose Field"},
    {62010, fixed(2), "Data Source Identifier"}, {62015, fixed(1), "Service Identification"},
    {62040, fixed(2), "Track Number"}, {62060, fixed(2), "Track Mode 3/A Code"},
    {62070, fixed(3), "Time of Track Information"}, {62080, extended(6), "Track Status"},
    {62100, fixed(6), "Calculated Track Position (Cartesian)"},
    {62105, fixed(8), "Calculated Position in WGS84 Coordinates"},
    {62110, whole("FE", 18), "Mode 5 Data reports & Extended Mode 1 Code"}, {62120, fixed(2), "Track Mode 2 Code"},
    {62130, fixed(2), "Calculated Track Geometric Altitude"},
    {62135, fixed(2), "Calculated Track Barometric Altitude"}, {62136, fixed(2), "Measured Flight Level"},
    {62185, fixed(4), "Calculated Track Velocity (Cartesian)"}, {62200, fixed(1), "Mode of Movement"},
    {62210, fixed(2), "Calculated Acceleration (Cartesian)"}, {62220, fixed(2), "Calculated Rate of Climb/Descent"},
    {62245, fixed(7), "Target Identification"}, {62270, extended(3), "Target Size & Orientation"},
    {62290, whole("FF E0", 13), "System Track Update Ages"}, {62295, whole("FF FF FF FF E0", 36), "Track Data Age"},
    {62300, fixed(1), "Vehicle Fleet Identification"}, {62340, whole("FC", 14), "Measured Information"},
    {62380, whole("FF FF FF FE", 74), "Aircraft Derived Data"},
    {62390, whole("FF FF F0", 68), "Flight Plan Related Data"}, {62500, whole("FF 80", 19), "Estimated Accuracies"},
    {62510, composed, "Composed Track Number"}, {62998, explicit_length, "Reserved Expansion Field"},
    {62999, explicit_length, "Reserved For Special Purpose Indicator"},
    {63010, fixed(2), "Data Source Identifier"}, {63015, fixed(1), "Service Identification"},
    {63030, fixed(3), "Time of Message"}, {63050, fixed(2), "Sensor Identifier"},
    {63060, extended(2), "Sensor Configuration and Status"}, {63998, explicit_length, "Reserved Expansion Field"},
    {63999, explicit_length, "Special Purpose Field"},
    {65000, fixed(1), "Message Type"}, {65010, fixed(2), "Data Source Identifier"},
    {65015, fixed(1), "Service Identification"}, {65020, fixed(1), "Batch Number"}, {65030, fixed(3), "Time of Day"},
    {65040, fixed(1), "SDPS Configuration and Status"}, {65998, explicit_length, "Reserved Expansion Field"},
    {65999, explicit_length, "Special Purpose Field"},
    {240000, fixed(1), "Message Type"}, {240010, fixed(2), "Data Source Identifier"},
    {240020, fixed(4), "Video Record Header"}, {240030, repetitive(1), "Video Summary"},
    {240040, fixed(12), "Video Header Nano"}, {240041, fixed(12), "Video Header Femto"},
    {240048, fixed(2), "Video Cells Resolution & Data Compression Indicator"},
    {240049, fixed(5), "Video Octets & Video Cells Counters"}, {240050, repetitive(4), "Video Block Low Data Volume"},
    {240051, repetitive(64), "Video Block Medium Data Volume"},
    {240052, repetitive(256), "Video Block High Data Volume"}, {240140, fixed(3), "Time of Day"},
    {240998, explicit_length, "Unknown CAT240 Dataitem"}, {240999, explicit_length, "Unknown CAT240 Dataitem"},
};
// clang-format on

// The octets of the sample: extended items are as long as they may be, compound items have all their subfields.
inline std::vector<uint8_t> octets_of(const Sample &sample) {
    std::vector<uint8_t> result =
        sample.kind == SizeKind::Extended ? repeated("01", sample.size - 1) : octets(sample.first);
    result.resize(sample.size);
    return {result.begin(), result.end()};
}

} // namespace ast_test
