// Every registered item: its type, its title and one sample of it. The layouts are those of the category documents.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ast.h"
#include "support/octets.hpp"
#include "support/text.hpp"

namespace ast_test {

// Lenient items are valid, if shorter than they say or than they should be, where octets are missing.
enum class SizeKind : uint8_t { Whole, Extended, Unlimited, Lenient };

struct RegisteredItem {
    ast_dataitem_type_t type;
    SizeKind kind;
    std::vector<uint8_t> sample; // extended items are as long as they may be, compound items have all their subfields
    std::string name;
};

// By category, each item as "number size name". A size is a number of octets; or "x" and the most that extended ones
// may have, "r" and the octets of an element that is repeated (here twice), "u" for extended ones without a limit, "e"
// for an explicit length; or ":" between the first octets of the sample and its size, "~" if the item is lenient.
constexpr std::string_view kRegistry = R"(
001/ 010 2 Data Source Identifier; 020 x2 Target Report Descriptor; 030 u Warning/Error Conditions;
040 4 Measured Position in Polar Co-ordinates; 042 4 Calculated Position in Cartesian Co-ordinates;
050 2 Mode-2 Code in Octal Representation; 060 2 Mode-2 Code Confidence Indicator;
070 2 Mode-3/A Code in Octal Representation; 080 2 Mode-3/A Code Confidence Indicator;
090 2 Mode-C Code in Binary Representation; 100 4 Mode-C Code and Code Confidence Indicator;
120 1 Measured Radial Doppler Speed; 130 u Radar Plot Characteristics; 131 1 Received Power;
141 2 Truncated Time of Day; 150 1 Presence of X-Pulse; 161 2 Track Plot Number; 170 x2 Track Status;
200 4 Calculated Track Velocity in Polar Co-ordinates; 210 u Track Quality; 901 x1 Radar Plot Characteristics;
902 x1 Track Quality; 903 x4 Radar Plot Characteristics; 904 x11 Track Quality; 951 2 Custom Field;
997 e Random Field Sequencing; 999 e Special Purpose Field;
002/ 000 1 Message Type; 010 2 Data Source Identifier; 020 1 Sector Number; 030 3 Time of Day;
041 2 Antenna Rotation Speed; 050 u Station Configuration Status; 901 x16 Station Configuration Status;
902 x16 Station Configuration Status; 951 2 Unknown CAT002 Dataitem; 997 e Random Field Sequencing;
999 e Special Purpose Field;
004/ 000 1 Message Type; 010 2 Data Source Identifier; 020 3 Time of Message; 030 2 Track Number 1;
035 2 Track Number 2; 040 2 Alert Identifier; 060 x6 Safety Net Function & System Status; 100 FC:42 Area Definition;
120 F0:5 Conflict Characteristics; 170 FF.E0:47 Aircraft Identification & Characteristics 1;
171 FF.E0:47 Aircraft Identification & Characteristics 2; 998 e Reserved Expansion Field; 999 e Special Purpose Field;
008/ 000 1 Message Type; 010 2 Data Source Identifier; 020 x2 Vector Qualifier;
034 r4 Sequence of Polar Vectors in SPF Notation; 036 r3 Sequence of Cartesian Vectors in SPF Notation;
038 r4 Sequence of Weather Vectors in SPF Notation; 040 2 Contour Identifier;
050 r2 Sequence of Contour Points in SPF Notation; 090 3 Time of Day; 100 3 Processing Status;
110 x2 Station Configuration Status; 120 2 Total Number of Items Constituting One Weather Picture;
997 e Random Field Sequencing; 999 e Special Purpose Field;
010/ 000 1 Message Type; 010 2 Data Source Identifier; 020 x3 Target Report Descriptor;
040 4 Measured Position in Polar Co-ordinates; 041 8 Position in WGS-84 Co-ordinates;
042 4 Position in Cartesian Co-ordinates; 060 2 Mode-3/A Code in Octal Representation;
090 2 Flight Level in Binary Representation; 091 2 Measured Height; 131 1 Amplitude of Primary Plot; 140 3 Time of Day;
161 2 Track Number; 170 x3 Track Status; 200 4 Calculated Track Velocity in Polar Co-ordinates;
202 4 Calculated Track Velocity in Cartesian Co-ordinates; 220 3 Target Address; 245 7 Target Identification;
270 x3 Target Size and Orientation; 500 4 Standard Deviation of Position; 550 1 System Status;
998 e Reserved Expansion Field; 999 e Special Purpose Field;
015/ 000 1 Message Type; 010 2 Data Source Identifier; 020 x1 Target Report Descriptor; 145 3 Time of Applicability;
161 2 Track/Plot Number; 170 1 Track/Plot Status; 300 r2 Object Classification; 400 5 Measurement Identifier;
480 r5 Associations; 600 E0:19 Horizontal Position Information; 601 FF.80:23 Geometric Height Information;
602 F0:20 Horizontal Velocity Information; 604 FC:15 Vertical Velocity Information; 625 FF.80:27 Range Information;
626 FF.E0:18 Doppler Information; 627 FC:16 Azimuth Information;
016/ 000 1 Message Type; 010 2 Data Source Identifier; 015 1 Service Identification; 140 3 Time of Day;
200 1 System Configuration Reporting Period; 300 r6 Pair Identification; 400 8 Position of System Reference Point;
405 2 Height of System Reference Point; 410 r21 Transmitter Properties; 420 r12 Receiver Properties;
019/ 000 1 Message Type; 010 2 Data Source Identifier; 140 3 Time of Day; 550 1 System Status;
551 1 Tracking Processor Detailed Status; 552 r2 Remote Sensor Detailed Status;
553 u Reference Transponder Detailed Status; 600 8 Position of MLT System Reference Point;
610 2 Height of MLT System Reference Point; 620 1 WGS-84 Undulation; 998 e Reserved Expansion Field;
999 e Special Purpose Field;
020/ 010 2 Data Source Identifier; 020 x3 Target Report Descriptor; 030 u Warning/Error Conditions;
041 8 Position In WGS-84 Coordinates; 042 6 Position in Cartesian Coordinates;
050 2 Mode-2 Code in Octal Representation; 055 1 Mode-1 Code in Octal Representation;
070 2 Mode-3/A Code in Octal Representation; 090 2 Flight Level in Binary Representation; 100 4 Mode C Code;
105 2 Geometric Height (WGS-84); 110 2 Measured Height (Local Cartesian Coordinates); 140 3 Time of Day;
161 2 Track Number; 170 x2 Track Status; 202 4 Calculated Track Velocity in Cartesian Coordinates;
210 2 Calculated Acceleration; 220 3 Target Address; 230 2 Communications/ACAS Capability and Flight Status;
245 7 Target Identification; 250 r8 BDS Register Data; 260 7 ACAS Resolution Advisory Report;
300 1 Vehicle Fleet Identification; 310 1 Pre-programmed Message; 400 r1 Contributing Devices;
500 E0:15 Position Accuracy; 998 e Reserved Expansion Field; 999 e Special Purpose Field;
021/ 008 1 Aircraft Operational Status; 010 2 Data Source Identifier; 015 1 Service Identification;
016 1 Service Management; 020 1 Emitter Category; 030 3 Time of Day; 032 1 Time of Day Accuracy;
040 x3 Target Report Descriptor; 070 2 Mode-3/A Code in Octal Representation; 071 3 Time of Applicability for Position;
072 3 Time of Applicability for Velocity; 073 3 Time of Message Reception for Position;
074 4 Time of Message Reception of Position - High Precision; 075 3 Time of Message Reception for Velocity;
076 4 Time of Message Reception of Velocity - High Precision; 077 3 Time of ASTERIX Report Transmission;
080 3 Target Address; 090 x4 Quality Indicators; 095 1 Velocity Accuracy; 110 C0.00.01~18 Unknown CAT021 Dataitem;
130 6 Position in WGS84 Coordinates; 131 8 High-Resolution Position in WGS-84 Coordinates; 132 1 Message Amplitude;
140 2 Geometric Altitude; 145 2 Flight Level; 146 2 Selected Altitude; 148 2 Unknown CAT021 Dataitem; 150 2 Air Speed;
151 2 True Air Speed; 152 2 Magnetic Heading; 155 2 Barometric Vertical Rate; 157 2 Geometric Vertical Rate;
160 4 Ground Vector; 161 2 Track Number; 165 x2 Track Angle Rate; 170 6 Target Identification; 200 1 Target Status;
210 1 MOPS Version; 220 F0:8 Unknown CAT021 Dataitem; 230 2 Roll Angle; 250 r8 Mode S MB Data;
271 x2 Surface Capabilities and Characteristics; 295 FF.FF.FF.C0:27 Data Ages; 400 1 Receiver ID;
902 8 Position in WGS84 Coordinates (Version 0.24 ~ 0.26); 903 2 Target Report Descriptor (Prior Version 0.26);
904 1 Signal Amplitude (Version 0.26); 905 2 Figure of Merit (Prior Version 0.26);
906 1 Link Technology Indicator (Prior Version 0.26);
907 01.01:2 Surface Capabilities and Characteristics (Version 1.0 ~ 2.1); 908 1 Target Status (Prior Version 0.26);
998 e Reserved Expansion Field; 999 e Special Purpose Field;
023/ 000 1 Report Type; 010 2 Data Source Identifier; 015 1 Service Type and Identification; 070 3 Time of Day;
100 x2 Ground Station Status; 101 x2 Ground Station Configuration; 110 x1 Service Status; 120 r6 Service Statistics;
034/ 000 1 Message Type; 010 2 Data Source Identifier; 020 1 Sector Number; 030 3 Time of Day;
041 2 Antenna Rotation Period; 050 FE:6 Station Configuration & Status; 060 FE:5 System Processing Mode;
070 r2 Message Count Values; 090 2 Collimation Error; 110 1 Data Filter; 120 8 3D-Position Of Data Source;
998 e Reserved Expansion Field; 999 e Special Purpose Field;
048/ 010 2 Data Source Identifier; 020 x2 Target Report Descriptor; 030 x23 Warning/Error Conditions;
040 4 Measured Position in Polar Co-ordinates; 042 4 Calculated Position in Cartesian Co-ordinates;
050 2 Mode-2 Code in Octal Representation; 070 2 Mode-3/A Code in Octal Representation;
080 2 Mode-3/A Code Confidence Indicator; 090 2 Flight Level in Binary Representation;
100 4 Mode-C Code and Code Confidence Indicator; 110 2 Height Measured by a 3D Radar; 120 C0:10 Radial Doppler Speed;
130 FE:8 Radar Plot Characteristics; 140 3 Time of Day; 161 2 Track Number; 170 x2 Track Status;
200 4 Calculated Track Velocity in Ploar Co-ordinates; 210 4 Track Quality; 220 3 Aircraft Address;
230 2 Communications / ACAS Capability and Flight Status; 240 6 Aircraft Identification; 250 r8 Mode S MB Data;
260 7 ACAS Resolution Advisory Report; 998 e Reserved Expansion Field; 999 e Special Purpose Field;
062/ 010 2 Data Source Identifier; 015 1 Service Identification; 040 2 Track Number; 060 2 Track Mode 3/A Code;
070 3 Time of Track Information; 080 x6 Track Status; 100 6 Calculated Track Position (Cartesian);
105 8 Calculated Position in WGS84 Coordinates; 110 FE:18 Mode 5 Data reports & Extended Mode 1 Code;
120 2 Track Mode 2 Code; 130 2 Calculated Track Geometric Altitude; 135 2 Calculated Track Barometric Altitude;
136 2 Measured Flight Level; 185 4 Calculated Track Velocity (Cartesian); 200 1 Mode of Movement;
210 2 Calculated Acceleration (Cartesian); 220 2 Calculated Rate of Climb/Descent; 245 7 Target Identification;
270 x3 Target Size & Orientation; 290 FF.E0:13 System Track Update Ages; 295 FF.FF.FF.FF.E0:36 Track Data Age;
300 1 Vehicle Fleet Identification; 340 FC:14 Measured Information; 380 FF.FF.FF.FE:74 Aircraft Derived Data;
390 FF.FF.F0:68 Flight Plan Related Data; 500 FF.80:19 Estimated Accuracies; 510 12.34.57~6 Composed Track Number;
998 e Reserved Expansion Field; 999 e Reserved For Special Purpose Indicator;
063/ 010 2 Data Source Identifier; 015 1 Service Identification; 030 3 Time of Message; 050 2 Sensor Identifier;
060 x2 Sensor Configuration and Status; 998 e Reserved Expansion Field; 999 e Special Purpose Field;
065/ 000 1 Message Type; 010 2 Data Source Identifier; 015 1 Service Identification; 020 1 Batch Number;
030 3 Time of Day; 040 1 SDPS Configuration and Status; 998 e Reserved Expansion Field; 999 e Special Purpose Field;
240/ 000 1 Message Type; 010 2 Data Source Identifier; 020 4 Video Record Header; 030 r1 Video Summary;
040 12 Video Header Nano; 041 12 Video Header Femto; 048 2 Video Cells Resolution & Data Compression Indicator;
049 5 Video Octets & Video Cells Counters; 050 r4 Video Block Low Data Volume; 051 r64 Video Block Medium Data Volume;
052 r256 Video Block High Data Volume; 140 3 Time of Day; 998 e Unknown CAT240 Dataitem; 999 e Unknown CAT240 Dataitem;
)";

// A sample of a size as the registry has it.
inline RegisteredItem sample_of(std::string_view size) {
    if (size == "u") return {0, SizeKind::Unlimited, octets("01 01 01 00"), ""};
    if (size == "e") return {0, SizeKind::Lenient, octets("05 00 00 00 00"), ""};
    const size_t mark = size.find_first_of(":~");
    const size_t digits = mark == size.npos ? size.find_first_of("0123456789") : mark + 1;
    const uint64_t number = std::stoul(std::string(size.substr(digits)));
    if (size[0] == 'x') {
        auto chain = repeated("01", number);
        chain.back() = 0;
        return {0, SizeKind::Extended, chain, ""};
    }
    std::string first(size[0] == 'r' ? "02" : mark == size.npos ? "" : size.substr(0, mark));
    std::replace(first.begin(), first.end(), '.', ' ');
    RegisteredItem result{0, size.find('~') == size.npos ? SizeKind::Whole : SizeKind::Lenient, octets(first), ""};
    result.sample.resize(size[0] == 'r' ? 1 + 2 * number : number);
    result.sample.shrink_to_fit();
    return result;
}

inline const std::vector<RegisteredItem> &registered_items() {
    static const auto items = [] {
        std::vector<RegisteredItem> result;
        ast_dataitem_type_t category = 0;
        each_entry(kRegistry, [&](std::string_view entry) {
            if (entry[3] == '/') {
                category = static_cast<uint32_t>(std::stoul(std::string(entry.substr(0, 3)))) * 1000;
                entry.remove_prefix(5);
            }
            const size_t name = entry.find(' ', 4) + 1;
            result.push_back(sample_of(entry.substr(4, name - 5)));
            result.back().type = category + static_cast<uint32_t>(std::stoul(std::string(entry.substr(0, 3))));
            result.back().name = entry.substr(name);
        });
        return result;
    }();
    return items;
}

} // namespace ast_test
